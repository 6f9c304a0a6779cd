// Texts that live as long as the schemas.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>

namespace BxGen {

/// Keeps one copy of each text. Views of it stay valid as long as the pool.
class StringPool {
public:
    StringPool() = default;
    StringPool(StringPool const&) = delete;
    StringPool& operator=(StringPool const&) = delete;

    std::string_view Intern(std::string_view text) {
        if (auto const found = m_views.find(text); found != m_views.end()) return *found;
        return *m_views.insert(m_texts.emplace_back(text)).first;
    }

private:
    std::deque<std::string> m_texts;
    std::unordered_set<std::string_view> m_views;
};

}  // namespace BxGen
