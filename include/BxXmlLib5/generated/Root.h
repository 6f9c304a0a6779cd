// Classes that are the root of a document.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "BxXmlLib5/binding/CRecordWriter.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/generated/CObject.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5::Generated {

using BxXmlLib5::Layout;

/// Writes large documents of such objects.
using RecordWriter = CRecordWriter;
using BxXmlLib5::RecordSettings;

/// Marks the classes of roots.
class RootTag {};

// What stands behind Root.
/// @cond
BXXMLLIB5_API void LoadRoot(CObject& root, std::string_view path, CXmlSerializationContext const& context);
BXXMLLIB5_API void ParseRoot(CObject& root, std::string_view document,
                             CXmlSerializationContext const& context);
BXXMLLIB5_API void SaveRoot(CObject const& root, std::string_view path, Layout layout,
                            CXmlSerializationContext const& context);
BXXMLLIB5_API std::string RootText(CObject const& root, Layout layout,
                                   CXmlSerializationContext const& context);
enum class RootForm { Text, FastInfoset };
BXXMLLIB5_API CXmlSerializationContext RootContext(CObject const& root, RootForm form);

/// T with the mark, which the class of a root has already.
template <class T, bool = std::is_base_of_v<RootTag, T>>
class Marked : public T, public RootTag {};
template <class T>
class Marked<T, true> : public T {};
/// @endcond

/// What a root has beside T: nothing, unless other types may derive from that of T.
template <class T>
class RootContent : public Marked<T> {
public:
    /// The content of a document whose root names a type that derives from T by xsi:type: of the class of that type.
    /// The properties of the root itself are not set then, and writing refuses both.
    ///
    ///     if (CCircle const* circle = drawing.XsiTyped.Get<CCircle>()) Use(circle->Radius);
    ///     drawing.XsiTyped.Make<CCircle>().Radius = 2;
    Object<T> XsiTyped;
};
/// @cond
template <>
class RootContent<CObject> : public Marked<CObject> {};
/// @endcond

/// The class of a global element, over T, the class of its type, or over CObject if the type has no name.
template <class T>
class Root : public RootContent<T> {
public:
    /// Reads a file: XML text in any encoding that CXmlDocument reads, or Fast Infoset, either as such or
    /// compressed.
    /// @param path as the system has it, which is UTF-8 as a rule
    /// @throws CBxException if the file cannot be read, is not well-formed or ends early
    /// @throws CBxValidationException if its root is another element, or its content does not fit
    void Load(std::string_view path,
              CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext()) {
        LoadRoot(*this, path, context);
    }

    /// Reads a document in memory, as Load() does.
    void Parse(std::string_view document,
               CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext()) {
        ParseRoot(*this, document, context);
    }

    /// Writes a file of XML text in UTF-8. One of that name is replaced, but only once the new one is whole
    /// (CFileReplacement): whatever fails leaves it as it was.
    /// @param path as the system has it, which is UTF-8 as a rule
    /// @throws CBxValidationException for what Validate() tells
    /// @throws CBxException if the file cannot be written
    void Save(std::string_view path, Layout layout = Layout::Compact) const {
        SaveRoot(*this, path, layout, WritingContext());
    }
    /// As above, under settings of the caller, best made from WritingContext().
    void Save(std::string_view path, Layout layout, CXmlSerializationContext const& context) const {
        SaveRoot(*this, path, layout, context);
    }

    /// The document as text in UTF-8.
    /// @throws CBxValidationException for what Validate() tells
    std::string ToText(Layout layout = Layout::Compact) const {
        return RootText(*this, layout, WritingContext());
    }
    /// As above, under settings of the caller, best made from WritingContext().
    std::string ToText(Layout layout, CXmlSerializationContext const& context) const {
        return RootText(*this, layout, context);
    }

    /// A context for writing the document as XML text as it is now. The root's namespace is the default one, unless
    /// untyped content has an element in no namespace, which nothing would tell from it. All others have prefixes:
    /// those of the schema, and made-up ones where only untyped content has them.
    CXmlSerializationContext WritingContext() const { return RootContext(*this, RootForm::Text); }

    /// The same for Fast Infoset, where every namespace has a prefix, as its readers want it.
    CXmlSerializationContext FastInfosetContext() const { return RootContext(*this, RootForm::FastInfoset); }
};

/// @cond
template <class T, class Element>
T ReadElement(Element const& element, CXmlSerializationContext const& context) {
    T object;
    CXmlSerializationContext own(context);
    object.FromXmlElement(&element, own);
    return object;
}
/// @endcond

/// A typed object of untyped content, as a wildcard holds it: `CTrack const track = Bx::Read<CTrack>(gpx.Any[0]);`.
/// @throws CBxException and CBxValidationException as Root::Parse()
template <class T>
T Read(CElement const& element,
       CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext()) {
    return ReadElement<T>(element, context);
}

/// The same of an element of a tree.
template <class T>
T Read(CXmlElement const& element,
       CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext()) {
    return ReadElement<T>(element, context);
}

}  // namespace BxXmlLib5::Generated
