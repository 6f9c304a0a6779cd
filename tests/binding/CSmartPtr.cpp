#include "BxXmlLib5/binding/CSmartPtr.h"

#include <map>
#include <string>

#include "support/Expect.h"

namespace {

/// Counts its references and logs them: + and - with its name, ~ at its end.
struct Counted {
    explicit Counted(char name) : m_name(name) {}
    virtual ~Counted() { Log('~'); }
    void AddRef() { ++m_count, Log('+'); }
    void Release() {
        Log('-');
        if (--m_count == 0) delete this;
    }
    void Log(char event) const { s_log += {event, m_name}; }

    char m_name;
    int m_count = 0;
    CSmartPtr<Counted> m_next;
    static inline std::string s_log;
};

struct Derived : Counted {
    using Counted::Counted;
};

using Pointer = CSmartPtr<Counted>;

std::string TakeLog() {
    return std::exchange(Counted::s_log, "");
}

TEST(CSmartPtr, CountsConstructionCopyAndDestruction) {
    {
        Pointer const p(new Counted('a'));
        Pointer const q = p;
        EXPECT_EQ(p->m_count, 2);
        EXPECT_EQ((*q).m_count, 2);
    }
    EXPECT_EQ(TakeLog(), "+a+a-a-a~a");
}

TEST(CSmartPtr, TakesTheNewReferenceBeforeItDropsTheOld) {
    Pointer p = new Counted('a');
    Pointer const q = new Counted('b');
    TakeLog();
    p = q;
    p = new Counted('c');
    p = nullptr;
    EXPECT_EQ(TakeLog(), "+b-a~a+c-b-c~c");
}

TEST(CSmartPtr, MovesWithoutCounting) {
    Pointer p = new Counted('a');
    Pointer q = new Counted('b');
    TakeLog();
    Pointer moved = std::move(p);
    q = std::move(moved);
    EXPECT_TRUE(p == nullptr && moved == nullptr && q->m_name == 'a');
    EXPECT_EQ(TakeLog(), "-b~b");
}

TEST(CSmartPtr, IsAssignedFromItselfAndFromWhatItHolds) {
    Pointer p = new Counted('a');
    p->m_next = new Counted('b');
    p->m_next->m_next = new Counted('c');
    Pointer& self = p;
    p = self;
    p = std::move(self);
    p = static_cast<Counted*>(p);
    EXPECT_TRUE(p != nullptr && p->m_count == 1);
    TakeLog();
    p = p->m_next;
    p = std::move(p->m_next);
    EXPECT_EQ(TakeLog(), "+b-a~a-b-b~b");
    EXPECT_TRUE(p->m_name == 'c' && p->m_count == 1);
}

TEST(CSmartPtr, BehavesLikeAPlainPointer) {
    Pointer const null;
    CSmartPtr<Derived> const derived = new Derived('d');
    Pointer base = derived;
    base = null;
    EXPECT_EQ(derived->m_count, 1);
    base = derived;
    EXPECT_EQ(derived->m_count, 2);
    Counted* const plain = base;
    EXPECT_TRUE(!null && null == nullptr && null == Pointer(nullptr) && base != null);
    EXPECT_TRUE(base && base != nullptr && base == derived && derived == plain && plain == base);
    EXPECT_EQ((std::map<Pointer, int>{{base, 1}, {null, 0}}[plain]), 1);
}

}  // namespace
