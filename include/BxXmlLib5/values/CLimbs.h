// The digits of a number of any size.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5 {

/// The limbs of a magnitude, the least significant first, for CBigInteger: a vector of few operations, which
/// is small and needs no heap for up to two limbs, since nearly all numbers of documents are that short.
class BXXMLLIB5_API CLimbs {
public:
    CLimbs() noexcept {}
    /// None for 0.
    explicit CLimbs(std::uint32_t limb) noexcept : m_size(limb == 0 ? 0 : 1) {
        m_storage.m_inPlace[0] = limb;
    }
    /// @param limb the value of each of them
    CLimbs(std::size_t size, std::uint32_t limb);
    CLimbs(CLimbs const& other) {
        if (other.IsOnHeap()) {
            Assign(other.begin(), other.size());
        } else {
            m_storage = other.m_storage;
            m_size = other.m_size;
        }
    }
    /// Leaves the other object empty.
    CLimbs(CLimbs&& other) noexcept { Swap(other); }
    CLimbs& operator=(CLimbs const& other) {
        CLimbs copy = other;
        Swap(copy);
        return *this;
    }
    CLimbs& operator=(CLimbs&& other) noexcept {
        CLimbs taken = std::move(other);
        Swap(taken);
        return *this;
    }
    ~CLimbs() {
        if (IsOnHeap()) delete[] m_storage.m_heap;
    }

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    std::uint32_t* data() { return IsOnHeap() ? m_storage.m_heap : m_storage.m_inPlace; }
    std::uint32_t const* data() const { return IsOnHeap() ? m_storage.m_heap : m_storage.m_inPlace; }
    std::uint32_t* begin() { return data(); }
    std::uint32_t* end() { return data() + m_size; }
    std::uint32_t const* begin() const { return data(); }
    std::uint32_t const* end() const { return data() + m_size; }
    std::uint32_t& operator[](std::size_t index) { return data()[index]; }
    std::uint32_t operator[](std::size_t index) const { return data()[index]; }
    std::uint32_t back() const { return data()[m_size - 1]; }

    bool operator==(CLimbs const& other) const {
        return std::equal(begin(), end(), other.begin(), other.end());
    }

    /// The limbs from a position on, so many of them at most.
    CLimbs Part(std::size_t from, std::size_t count = SIZE_MAX) const {
        CLimbs part;
        part.Assign(begin() + from, std::min(count, m_size - from));
        return part;
    }

    void Reserve(std::size_t capacity);
    /// New limbs at the top are 0.
    void Resize(std::size_t size);
    void PushBack(std::uint32_t limb);
    void Append(CLimbs const& other);
    /// Puts limbs of 0 below the others.
    void InsertLow(std::size_t count);
    /// Drops the lowest limbs, all if there are no more.
    void DropLow(std::size_t count);
    void Clear() { m_size = 0; }

private:
    static constexpr std::uint32_t kInPlace = 2;

    union Storage {
        std::uint32_t m_inPlace[kInPlace] = {};
        std::uint32_t* m_heap;
    };

    /// In place of what is there, which is lost.
    void Assign(std::uint32_t const* limbs, std::size_t size);

    bool IsOnHeap() const { return m_capacity > kInPlace; }
    void Swap(CLimbs& other) noexcept {
        std::swap(m_storage, other.m_storage);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }

    Storage m_storage;
    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = kInPlace;
};

}  // namespace BxXmlLib5
