#include <algorithm>
#include <new>

#include "BxXmlLib5/values/CBigInteger.h"

namespace BxXmlLib5 {

void CBigInteger::CLimbs::Assign(std::uint32_t const* limbs, std::size_t size) {
    Reserve(size);
    m_size = static_cast<std::uint32_t>(size);
    std::copy_n(limbs, size, begin());
}

void CBigInteger::CLimbs::Reserve(std::size_t capacity) {
    if (capacity <= m_capacity) return;
    if (capacity > UINT32_MAX) throw std::bad_alloc();
    std::uint32_t* const storage = new std::uint32_t[capacity];
    std::copy(begin(), end(), storage);
    if (IsOnHeap()) delete[] m_storage.m_heap;
    m_storage.m_heap = storage;
    m_capacity = static_cast<std::uint32_t>(capacity);
}

void CBigInteger::CLimbs::Resize(std::size_t size) {
    Reserve(size);
    if (size > m_size) std::fill(end(), begin() + size, 0U);
    m_size = static_cast<std::uint32_t>(size);
}

void CBigInteger::CLimbs::PushBack(std::uint32_t limb) {
    if (m_size == m_capacity) Reserve(size() + size() / 2 + 1);
    data()[m_size++] = limb;
}

void CBigInteger::CLimbs::Append(CLimbs const& other) {
    std::size_t const size = m_size;
    std::size_t const added = other.m_size;  // which grows if the other one is this one
    Resize(size + added);
    std::copy_n(other.begin(), added, begin() + size);
}

void CBigInteger::CLimbs::InsertLow(std::size_t count) {
    std::size_t const size = m_size;
    Resize(size + count);
    std::copy_backward(begin(), begin() + size, end());
    std::fill_n(begin(), count, 0U);
}

void CBigInteger::CLimbs::DropLow(std::size_t count) {
    std::size_t const dropped = std::min<std::size_t>(count, m_size);
    std::copy(begin() + dropped, end(), begin());
    m_size -= static_cast<std::uint32_t>(dropped);
}

}  // namespace BxXmlLib5
