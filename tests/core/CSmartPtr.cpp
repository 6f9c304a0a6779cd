#include "BxXmlLib5/core/CSmartPtr.h"

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

TEST(CSmartPtr, CountsReferencesTheNewOneFirst) {
    CSmartPtr<Counted> p(new Counted('a'));
    {
        CSmartPtr<Counted> q = p;
        q = new Counted('b');
        p = q;
        p = std::move(q);
        CSmartPtr<Counted> const moved = std::move(p);
        EXPECT_TRUE(p == nullptr && q == nullptr && moved->m_count == 1);
        p = moved;
    }
    p->m_next = new Counted('c');
    p->m_next->m_next = new Counted('d');
    EXPECT_EQ(std::exchange(g_log, ""), "+a +a +b -a +b -a ~a -b +b -b +c +d ");
    p = p->m_next;
    p = std::move(p->m_next);
    p = nullptr;
    EXPECT_EQ(std::exchange(g_log, ""), "+c -b ~b -c -c ~c -d ~d ");
}

TEST(CSmartPtr, BehavesLikeAPlainPointer) {
    CSmartPtr<Counted> const null;
    CSmartPtr<Derived> const derived = new Derived('d');
    CSmartPtr<Counted> base = derived;
    base = null;
    base = derived;
    EXPECT_EQ((*derived).m_count, 2);
    Counted* const plain = base;
    EXPECT_TRUE(!null && base == derived && derived == plain && plain == base && null < base);
}

}  // namespace
