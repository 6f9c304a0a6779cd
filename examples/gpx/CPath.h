// What routes and tracks have in common.
#pragma once

#include "CExtensions.h"
#include "CGpxClass.h"
#include "CGpxFactory.h"
#include "CLink.h"

namespace Gpx {

/// A route or a track: a description, everything in it optional, and the parts that it is made of.
/// @tparam Class CRoute or CTrack, which has the name of the schema's type and that of the part's element as
///         kTypeName and kPartName
template <class Class, class PartCol>
class CPath : public CGpxClass<Class> {
public:
    bool HasName() const { return m_name.Has(); }
    wstring const& GetName() const { return m_name.Get(); }
    void SetName(wstring name) { m_name.Set(std::move(name)); }
    void ClearName() { m_name.Clear(); }

    bool HasComment() const { return m_comment.Has(); }
    wstring const& GetComment() const { return m_comment.Get(); }
    void SetComment(wstring comment) { m_comment.Set(std::move(comment)); }
    void ClearComment() { m_comment.Clear(); }

    bool HasDescription() const { return m_description.Has(); }
    wstring const& GetDescription() const { return m_description.Get(); }
    void SetDescription(wstring description) { m_description.Set(std::move(description)); }
    void ClearDescription() { m_description.Clear(); }

    /// Where the data come from.
    bool HasSource() const { return m_source.Has(); }
    wstring const& GetSource() const { return m_source.Get(); }
    void SetSource(wstring source) { m_source.Set(std::move(source)); }
    void ClearSource() { m_source.Clear(); }

    /// The collection itself, never null.
    CSmartPtr<CLinkCol> GetLinks() const { return m_links; }

    /// From 0.
    /// @throws CBxException for another number
    bool HasNumber() const { return m_number.Has(); }
    CBigInteger const& GetNumber() const { return m_number.Get(); }
    void SetNumber(CBigInteger const& number) { this->Store(kNumber, number); }
    void ClearNumber() { m_number.Clear(); }

    bool HasType() const { return m_type.Has(); }
    wstring const& GetType() const { return m_type.Get(); }
    void SetType(wstring type) { m_type.Set(std::move(type)); }
    void ClearType() { m_type.Clear(); }

    /// Null for none.
    CSmartPtr<CExtensions> GetExtensions() const { return m_extensions; }
    void SetExtensions(CExtensions* extensions) {
        this->StoreObject(m_extensions, extensions, u"extensions");
    }

    static MetaData Describe() {
        return {Class::kTypeName,
                {
                    Element(u"name", kName, it_string),
                    Element(u"cmt", kComment, it_string),
                    Element(u"desc", kDescription, it_string),
                    Element(u"src", kSource, it_string),
                    CollectionElement(u"link", kLinks),
                    Element(u"number", kNumber, it_integer, NonNegativeFacets()),
                    Element(u"type", kType, it_string),
                    ObjectElement(u"extensions", kExtensions, CGpxFactory::kExtensions),
                    CollectionElement(Class::kPartName, kParts),
                },
                {}};
    }

protected:
    explicit CPath(char16_t const* elementName) : CGpxClass<Class>(elementName) { CPath::ResetContent(); }

    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override {
        switch (propertyIndex) {
            case kName:
                return Exchange(read, value, m_name);
            case kComment:
                return Exchange(read, value, m_comment);
            case kDescription:
                return Exchange(read, value, m_description);
            case kSource:
                return Exchange(read, value, m_source);
            case kLinks:
                return ExchangeCollection(read, value, m_links);
            case kNumber:
                return this->ExchangeChecked(kNumber, read, value, m_number);
            case kType:
                return Exchange(read, value, m_type);
            case kExtensions:
                return this->ExchangeObject(read, value, m_extensions);
            case kParts:
                return ExchangeCollection(read, value, m_parts);
        }
    }

    void ResetContent() override {
        m_name.Clear();
        m_comment.Clear();
        m_description.Clear();
        m_source.Clear();
        m_links = new CLinkCol(u"link");
        m_number.Clear();
        m_type.Clear();
        m_extensions = nullptr;
        m_parts = new PartCol(Class::kPartName);
    }

    CSmartPtr<PartCol> GetParts() const { return m_parts; }

private:
    enum Property { kName, kComment, kDescription, kSource, kLinks, kNumber, kType, kExtensions, kParts };

    Optional<wstring> m_name;
    Optional<wstring> m_comment;
    Optional<wstring> m_description;
    Optional<wstring> m_source;
    CSmartPtr<CLinkCol> m_links;
    Optional<CBigInteger> m_number;
    Optional<wstring> m_type;
    CSmartPtr<CExtensions> m_extensions;
    CSmartPtr<PartCol> m_parts;
};

}  // namespace Gpx
