#include "BxXmlLib5/binding/CSmartPtr.h"

#include <map>

#include "support/Expect.h"

namespace {

std::string g_log;

/// Logs its references: + and - with its name, ~ at its end.
struct Counted {
    explicit Counted(char name) : m_name(name) {}
    virtual ~Counted() { g_log += {'~', m_name, ' '}; }
    void AddRef() { ++m_count, g_log += {'+', m_name, ' '}; }
    void Release() {
        g_log += {'-', m_name, ' '};
        if (--m_count == 0) delete this;
    }

    char m_name;
    int m_count = 0;
    CSmartPtr<Counted> m_next;
};

struct Derived : Counted {
    using Counted::Counted;
};

TEST(CSmartPtr, CountsReferencesInOrder) {
    CSmartPtr<Counted> p(new Counted('a'));
    {
        CSmartPtr<Counted> q = p;
        EXPECT_EQ((*q).m_count, 2);
        q = new Counted('b');
        p = q;
        p = std::move(q);
        EXPECT_TRUE(q == nullptr && p->m_name == 'b');
        CSmartPtr<Counted> const moved = std::move(p);
        EXPECT_TRUE(p == nullptr && moved->m_count == 1);
    }
    p = nullptr;
    EXPECT_EQ(std::exchange(g_log, ""), "+a +a +b -a +b -a ~a -b -b ~b ");
}

TEST(CSmartPtr, IsAssignedFromItselfAndFromWhatItHolds) {
    CSmartPtr<Counted> p = new Counted('a');
    p->m_next = new Counted('b');
    p->m_next->m_next = new Counted('c');
    CSmartPtr<Counted>& self = p;
    p = self;
    p = std::move(self);
    p = static_cast<Counted*>(p);
    EXPECT_TRUE(p != nullptr && p->m_count == 1);
    g_log.clear();
    p = p->m_next;
    p = std::move(p->m_next);
    EXPECT_EQ(std::exchange(g_log, ""), "+b -a ~a -b -b ~b ");
    EXPECT_TRUE(p->m_name == 'c' && p->m_count == 1);
}

TEST(CSmartPtr, BehavesLikeAPlainPointer) {
    CSmartPtr<Counted> const null;
    CSmartPtr<Derived> const derived = new Derived('d');
    CSmartPtr<Counted> base = derived;
    base = null;
    EXPECT_EQ(derived->m_count, 1);
    base = derived;
    EXPECT_EQ(derived->m_count, 2);
    Counted* const plain = base;
    EXPECT_TRUE(!null && null == nullptr && null == CSmartPtr<Counted>(nullptr) && base != null);
    EXPECT_TRUE(base && base != nullptr && base == derived && derived == plain && plain == base);
    EXPECT_EQ((std::map<CSmartPtr<Counted>, int>{{base, 1}, {null, 0}}[plain]), 1);
}

}  // namespace
