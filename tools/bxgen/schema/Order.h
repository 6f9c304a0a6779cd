// Walks that meet what something rests on before the thing itself.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "schema/Limits.h"

namespace BxGen {

/// Puts components in such an order that each comes behind those that it rests on, and finds cycles and chains that are
/// too long. Takes no stack, however long the chains are.
template <class T>
class DependencyOrder {
public:
    /// What a component rests on, and the depth that it adds itself (1, or more).
    struct Edges {
        std::vector<T const*> m_to;
        std::size_t m_depth = 1;
    };

    struct Result {
        std::vector<T const*> m_order;
        std::vector<T const*> m_cycles;   ///< one component of each cycle
        std::vector<T const*> m_tooDeep;  ///< the first of each chain beyond kMaxDepth
    };

    explicit DependencyOrder(std::function<Edges(T const&)> edgesOf) : m_edgesOf(std::move(edgesOf)) {}

    void Visit(T const& start) {
        if (m_depths.contains(&start)) return;
        Open(start);
        while (!m_open.empty()) {
            Frame& frame = m_open.back();
            if (frame.m_next == frame.m_edges.m_to.size()) {
                Close();
                continue;
            }
            T const* const to = frame.m_edges.m_to[frame.m_next++];
            auto const known = m_depths.find(to);
            if (known == m_depths.end()) {
                Open(*to);
            } else if (known->second == kOpen) {
                m_result.m_cycles.push_back(to);
            } else {
                frame.m_below = std::max(frame.m_below, known->second);
            }
        }
    }

    Result const& Found() const { return m_result; }

private:
    static constexpr std::size_t kOpen = 0;

    struct Frame {
        T const* m_component;
        Edges m_edges;
        std::size_t m_next = 0;
        std::size_t m_below = 0;
    };

    void Open(T const& component) {
        m_depths[&component] = kOpen;
        m_open.push_back({&component, m_edgesOf(component)});
    }

    void Close() {
        Frame const& frame = m_open.back();
        std::size_t depth = frame.m_below + frame.m_edges.m_depth;
        if (depth > kMaxDepth && frame.m_below <= kMaxDepth) m_result.m_tooDeep.push_back(frame.m_component);
        depth = std::min(depth, 2 * kMaxDepth);
        m_depths[frame.m_component] = depth;
        m_result.m_order.push_back(frame.m_component);
        m_open.pop_back();
        if (!m_open.empty()) m_open.back().m_below = std::max(m_open.back().m_below, depth);
    }

    std::function<Edges(T const&)> m_edgesOf;
    std::unordered_map<T const*, std::size_t> m_depths;
    std::vector<Frame> m_open;
    Result m_result;
};

}  // namespace BxGen
