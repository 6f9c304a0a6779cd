#include "BxXmlLib5/values/CBinaryData.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/Count.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/platform/CFileReplacement.h"
#include "platform/Files.h"
#include "platform/TextView.h"
#include "values/Base64.h"
#include "values/ByteEncodings.h"
#include "values/ByteOrderMark.h"
#include "values/Deflate.h"
#include "values/Hex.h"
#include "values/NotWritten.h"

namespace BxXmlLib5 {

using Buffer = std::unique_ptr<unsigned char[]>;

struct BinaryDataHolder {
    /// Takes the buffer, with no room beyond the octets.
    BinaryDataHolder(Buffer data, std::size_t length)
        : m_data(std::move(data)), m_length(length), m_capacity(length) {}

    /// Copies, with room for more.
    explicit BinaryDataHolder(std::span<unsigned char const> octets)
        : m_length(octets.size()), m_capacity(std::max(2 * octets.size(), kLeastCapacity)) {
        m_data = std::make_unique_for_overwrite<unsigned char[]>(m_capacity);
        std::ranges::copy(octets, m_data.get());
    }

    void Append(std::span<unsigned char const> octets) {
        std::size_t const length = m_length + octets.size();
        Buffer former;  // the new octets may be part of it
        if (length > m_capacity) {
            former = std::exchange(m_data, std::make_unique_for_overwrite<unsigned char[]>(2 * length));
            std::copy_n(former.get(), m_length, m_data.get());
            m_capacity = 2 * length;
        }
        std::ranges::copy(octets, m_data.get() + m_length);
        m_length = length;
    }

    void AddRef() { AddToCount(m_refCount, 1, std::memory_order_relaxed); }
    void Release() {
        if (AddToCount(m_refCount, -1, std::memory_order_acq_rel) == 1) delete this;
    }
    int RefCount() const { return m_refCount.load(std::memory_order_acquire); }

    static constexpr std::size_t kLeastCapacity = 4096;

    Buffer m_data;
    std::size_t m_length;
    std::size_t m_capacity;
    std::atomic<int> m_refCount = 0;
};

namespace {

std::span<unsigned char const> OctetsAt(unsigned char const* data, std::size_t length) {
    return {data, data == nullptr ? 0 : length};
}

std::span<unsigned char const> OctetsOf(char16_t const* text) {
    std::u16string_view const units = TextOf(text);
    return {reinterpret_cast<unsigned char const*>(units.data()), units.size() * sizeof(char16_t)};
}

}  // namespace

CBinaryData::CBinaryData() noexcept = default;
CBinaryData::CBinaryData(CBinaryData const& other) noexcept = default;
CBinaryData& CBinaryData::operator=(CBinaryData const& other) noexcept = default;
CBinaryData::CBinaryData(CBinaryData&& other) noexcept = default;
CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept = default;
CBinaryData::~CBinaryData() = default;

CBinaryData::CBinaryData(unsigned char* data, std::size_t length, bool takeOwnership) {
    if (takeOwnership) {
        *this = CBinaryData(Buffer(data), length);
    } else {
        SetBuffer(data, length);
    }
}

CBinaryData::CBinaryData(Buffer data, std::size_t length) {
    std::size_t const known = OctetsAt(data.get(), length).size();
    m_holder = new BinaryDataHolder(std::move(data), known);
}

CBinaryData::CBinaryData(std::span<unsigned char const> octets) {
    SetBuffer(octets);
}

CBinaryData::CBinaryData(char16_t const* text) {
    SetBuffer(text);
}

void CBinaryData::Clear() noexcept {
    m_holder = nullptr;
}

unsigned char* CBinaryData::GetData() const {
    return m_holder == nullptr ? nullptr : m_holder->m_data.get();
}

std::size_t CBinaryData::GetLength() const {
    return m_holder == nullptr ? 0 : m_holder->m_length;
}

std::span<unsigned char const> CBinaryData::GetOctets() const {
    return {GetData(), GetLength()};
}

void CBinaryData::SetBuffer(unsigned char const* data, std::size_t length) {
    SetBuffer(OctetsAt(data, length));
}

void CBinaryData::SetBuffer(std::span<unsigned char const> octets) {
    m_holder = new BinaryDataHolder(octets);
}

void CBinaryData::SetBuffer(char16_t const* text) {
    SetBuffer(OctetsOf(text));
}

void CBinaryData::Append(unsigned char octet) {
    Append({&octet, 1});
}

void CBinaryData::Append(unsigned char const* data, std::size_t length) {
    Append(OctetsAt(data, length));
}

void CBinaryData::Append(char16_t const* text) {
    Append(OctetsOf(text));
}

void CBinaryData::Append(CBinaryData const& other) {
    Append(other.GetOctets());
}

void CBinaryData::Append(std::span<unsigned char const> octets) {
    if (m_holder == nullptr) {
        m_holder = new BinaryDataHolder(octets);
        return;
    }
    auto const former = TakeExclusiveHolder();  // the new octets may be part of it
    m_holder->Append(octets);
}

void CBinaryData::GetExclusiveDataHolder() {
    TakeExclusiveHolder();
}

CSmartPtr<BinaryDataHolder> CBinaryData::TakeExclusiveHolder() {
    if (m_holder == nullptr || m_holder->RefCount() == 1) return nullptr;
    return std::exchange(m_holder, CSmartPtr<BinaryDataHolder>(new BinaryDataHolder(GetOctets())));
}

void CBinaryData::ThrowIfShared(char16_t const* message) const {
    int const count = m_holder->RefCount();
    if (count > 1) throw CBxException(FormatString(message, count));
}

unsigned char* CBinaryData::ReleaseData() {
    if (m_holder == nullptr) return nullptr;
    GetExclusiveDataHolder();
    ThrowIfShared(u"Failed to release data. [RefCount=%d]");
    m_holder->m_length = m_holder->m_capacity = 0;
    return m_holder->m_data.release();
}

CBinaryData CBinaryData::CompressData(CompressionType type) {
    if (m_holder == nullptr) return *this;
    GetExclusiveDataHolder();
    ThrowIfShared(u"Failed to compress data. [RefCount=%d]");
    if (type == cmp_GZip || type == cmp_ZLib) {
        std::size_t const room = GetLength();
        auto compressed = std::make_unique_for_overwrite<unsigned char[]>(room);
        m_holder->m_length = Deflate(GetOctets(), type, {compressed.get(), room});
        m_holder->m_capacity = room;
        m_holder->m_data = std::move(compressed);
    }
    return *this;
}

wstring CBinaryData::GetString() const {
    wstring text(GetLength() / sizeof(char16_t), u'\0');
    std::copy_n(GetData(), text.size() * sizeof(char16_t), reinterpret_cast<unsigned char*>(text.data()));
    return text;
}

wstring CBinaryData::GetAsHexString() const {
    return EncodeHex(GetOctets());
}

wstring CBinaryData::GetAsHexString(unsigned char const* data, std::size_t length) {
    return EncodeHex(OctetsAt(data, length));
}

void CBinaryData::SetAsHexString(char16_t const* text) {
    SetAsHexString(TextOf(text));
}

void CBinaryData::SetAsHexString(std::u16string_view text) {
    *this = DecodeHex(text);
}

wstring CBinaryData::GetAsBase64() const {
    return EncodeBase64(GetOctets());
}

void CBinaryData::SetAsBase64(char16_t const* text) {
    SetAsBase64(TextOf(text));
}

void CBinaryData::SetAsBase64(std::u16string_view text) {
    *this = DecodeBase64(text);
}

wstring CBinaryData::GetAsString(ByteEncoding encoding) const {
    if (GetLength() == 0) return {};
    switch (encoding) {
        case be_Text:
            return GetString();
        case be_Hex:
            return GetAsHexString();
        case be_Base64:
            return GetAsBase64();
        default:
            return RenderValues(GetOctets(), encoding);
    }
}

bool CBinaryData::operator==(CBinaryData const& other) const {
    if (m_holder == other.m_holder) return true;
    return m_holder != nullptr && other.m_holder != nullptr &&
           std::ranges::equal(GetOctets(), other.GetOctets());
}

unsigned char const& CBinaryData::operator[](std::size_t index) const {
    if (index < GetLength()) return GetData()[index];
    throw CBxException(FormatString(u"Index Out of range [%d]", static_cast<std::int32_t>(index)));
}

unsigned char& CBinaryData::operator[](std::size_t index) {
    std::as_const(*this)[index];  // tested before anything is copied
    GetExclusiveDataHolder();
    return GetData()[index];
}

void CBinaryData::ToFile(char16_t const* fileName, XmlEncoding encoding) const {
    COutputFile file(TextOf(fileName));
    file.Write(ByteOrderMark(encoding));
    file.Write(GetOctets());
    file.Close();
    if (file.Error() != 0) ThrowNotWritten(wstring(TextOf(fileName)), file.Error());
}

void CBinaryData::SaveTo(std::string_view path) const {
    CFileReplacement file(path);
    file.Write(GetOctets());
    if (file.Finish() != 0) ThrowNotWritten(FromUtf8(path), file.Error());
}

}  // namespace BxXmlLib5
