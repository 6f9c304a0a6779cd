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

std::string TakeLog() {
    return std::exchange(Counted::s_log, "");
}

Counted* Plain(Counted* object) {
    return object;
}

class CSmartPtrTest : public testing::Test {
protected:
    CSmartPtrTest() { TakeLog(); }
};

TEST_F(CSmartPtrTest, CountsConstructionCopyAndDestruction) {
    {
        CSmartPtr<Counted> p(new Counted('a'));
        EXPECT_EQ(p->m_count, 1);
        {
            CSmartPtr<Counted> const q = p;
            CSmartPtr<Counted> const r = Plain(p);
            EXPECT_EQ((*q).m_count, 3);
            EXPECT_TRUE(q == p && r == p);
        }
        EXPECT_EQ(p->m_count, 1);
        EXPECT_EQ(TakeLog(), "+a+a+a-a-a");
    }
    EXPECT_EQ(TakeLog(), "-a~a");
}

TEST_F(CSmartPtrTest, TakesTheNewReferenceBeforeItDropsTheOld) {
    CSmartPtr<Counted> p = new Counted('a');
    CSmartPtr<Counted> const q = new Counted('b');
    TakeLog();
    p = q;
    EXPECT_EQ(TakeLog(), "+b-a~a");
    p = new Counted('c');
    EXPECT_EQ(TakeLog(), "+c-b");
    p = nullptr;
    EXPECT_EQ(TakeLog(), "-c~c");
    EXPECT_EQ(q->m_count, 1);
}

TEST_F(CSmartPtrTest, MovesWithoutCounting) {
    CSmartPtr<Counted> p = new Counted('a');
    CSmartPtr<Counted> q = std::move(p);
    EXPECT_TRUE(p == nullptr);
    CSmartPtr<Counted> r = new Counted('b');
    TakeLog();
    r = std::move(q);
    EXPECT_TRUE(q == nullptr && r->m_name == 'a' && r->m_count == 1);
    EXPECT_EQ(TakeLog(), "-b~b");
}

TEST_F(CSmartPtrTest, IsAssignedFromItselfAndFromWhatItHolds) {
    CSmartPtr<Counted> p = new Counted('a');
    p->m_next = new Counted('b');
    p->m_next->m_next = new Counted('c');
    CSmartPtr<Counted>& self = p;
    p = self;
    p = std::move(self);
    EXPECT_TRUE(p != nullptr && p->m_count == 1);
    p = Plain(p);
    EXPECT_EQ(p->m_count, 1);
    TakeLog();
    p = p->m_next;
    EXPECT_EQ(TakeLog(), "+b-a~a-b");
    p = std::move(p->m_next);
    EXPECT_EQ(TakeLog(), "-b~b");
    EXPECT_TRUE(p->m_name == 'c' && p->m_count == 1);
}

TEST_F(CSmartPtrTest, BehavesLikeAPlainPointer) {
    CSmartPtr<Counted> const null;
    CSmartPtr<Counted> const alsoNull = nullptr;
    CSmartPtr<Derived> const derived = new Derived('d');
    CSmartPtr<Counted> base = derived;
    EXPECT_EQ(base->m_count, 2);
    base = null;
    base = derived;
    EXPECT_EQ(base->m_count, 2);
    EXPECT_TRUE(!null && null == nullptr && null == alsoNull && Plain(null) == nullptr);
    EXPECT_TRUE(base && base != nullptr && base == derived && derived == Plain(base) && base != null);
    EXPECT_EQ(static_cast<Derived*>(Plain(base)), derived);
    std::map<CSmartPtr<Counted>, int> byPointer = {{base, 1}, {null, 0}};
    EXPECT_EQ(byPointer[Plain(derived)], 1);
}

}  // namespace
