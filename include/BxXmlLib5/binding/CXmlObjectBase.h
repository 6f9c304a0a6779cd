// The root of everything that can be written and read.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace BxXmlLib5Data

namespace BxXmlLib5 {

class CBinaryData;
class CBxException;
class CElement;
class CXmlCollectionBase;
class CXmlDocument;
class CXmlElement;
class CXmlSerializationContext;
class CXmlTextWriter;
class CXmlWriter;
enum class Unprefixed;

/// An object that writes itself through a CXmlWriter and reads itself from a tree of CXmlElement.
///
/// It is counted: CSmartPtr takes and drops references, and the object deletes itself when the last one goes.
/// An object on the stack is simply never put into a CSmartPtr. The count is atomic; everything else belongs
/// to one thread at a time. The object holds the name of its element, not its namespace.
///
/// A null text argument means the empty text unless said otherwise.
class BXXMLLIB5_API CXmlObjectBase {
public:
    /// What an OnEvent call tells.
    enum MsgType : std::int32_t {
        msg_CollectionChanged = 0,  ///< a collection has other items than before
    };

    /// The object itself; with several bases, the same pointer from each of them.
    virtual CXmlObjectBase* GetBase() = 0;

protected:
    virtual ~CXmlObjectBase();

    /// The namespace in which the entry points write a root.
    virtual wstring GetTargetNamespace() const = 0;

public:
    /// The namespace of the object's element.
    virtual wstring GetNamespace() const = 0;

protected:
    /// Called by what the object listens to.
    /// @param data null
    virtual void OnEvent(CXmlObjectBase* source, MsgType type, void* data);

    /// Writes the attributes that the object adds to the tag of its owner.
    virtual void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const;

    /// Writes the object.
    /// @param isRoot the object is the root of the document, which carries what the context adds to it
    /// @param namespaceUri the namespace of the element that the object writes
    /// @param allowEmptyChoice a choice with no member is no failure here
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                           CXmlSerializationContext const& context, bool allowEmptyChoice) const = 0;

    /// Reads the object.
    /// @param element gives name, attributes and text
    /// @param firstChild the child of element at which reading starts; null if none is left
    /// @return the first child that the object did not consume, null if none is left
    virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                     CXmlSerializationContext const& context, bool allowEmptyChoice) = 0;

public:
    /// A copy starts with no references.
    CXmlObjectBase(CXmlObjectBase const& other);
    /// Leaves the counts of both objects as they are.
    CXmlObjectBase& operator=(CXmlObjectBase const& other);

    /// The same for an object that is not to be changed.
    CXmlObjectBase const* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

    /// Takes a reference.
    /// @return the new count
    std::int32_t AddRef();
    /// Deletes the object when no reference is left.
    /// @return the new count
    std::int32_t Release();

    /// The object as an XML document in text form.
    /// @param includeDeclaration begin with an XML declaration, which names no encoding
    /// @param formatted break lines and indent by tabs
    /// @throws CBxException for an eol that is not one of the two, and whatever the object's data gives cause
    ///        for
    wstring ToXml(bool includeDeclaration, bool formatted, EOLType eol,
                  CXmlSerializationContext const& context) const;

    /// @name The object as a document of octets
    /// All are complete in memory before a file is touched, and a file of that name is replaced. What ToXml()
    /// throws, these throw too; CBxException also if the octets are to be compressed and do not shrink, which
    /// small documents do not, or if the file cannot be written.
    /// @{

    /// As XML text.
    /// @param includeDeclaration begin with an XML declaration, which names the encoding
    /// @param encoding enc_UTF8, or one of the two UTF-16, whose octets come low first and without a byte
    ///        order mark
    /// @throws CBxException for any other encoding
    /// @throws CBxInvalidValueException if the encoding is enc_UTF8 and a text has half of a surrogate pair
    CBinaryData ToXmlStream(bool includeDeclaration, bool formatted, XmlEncoding encoding, EOLType eol,
                            CXmlSerializationContext const& context, CompressionType compression) const;

    /// As above, to a file. UTF-16 begins with a byte order mark, inside what is compressed.
    /// @throws CBxException for cmp_ZLib, before anything is done
    void ToXmlFile(char16_t const* fileName, bool includeDeclaration, bool formatted, XmlEncoding encoding,
                   EOLType eol, CXmlSerializationContext const& context, CompressionType compression) const;

    /// As Fast Infoset (ITU-T X.891), which leaves out the context's instructions and in-line schema.
    /// @throws CBxInvalidValueException if a text, a name or a namespace has half of a surrogate pair; an
    ///        attribute value that has one is written empty
    CBinaryData ToFastInfosetStream(FInfoDecl declaration, CXmlSerializationContext const& context,
                                    CompressionType compression) const;

    /// As above, to a file.
    /// @throws CBxException for cmp_ZLib, before anything is done
    void ToFastInfosetFile(char16_t const* fileName, FInfoDecl declaration,
                           CXmlSerializationContext const& context, CompressionType compression) const;
    /// @}

    /// Reads the object from an XML document. The name of the root is not compared with anything. A failed
    /// read leaves what was stored so far.
    /// @param text zero-terminated octets in the encoding that the document declares, UTF-8 by default
    /// @throws CBxException if the text is empty or no well-formed document, and whatever the data gives
    ///        cause for
    void FromXml(char const* text, CXmlSerializationContext const& context);

    /// As above, from UTF-16. A declaration in the text must not name an encoding of one octet for a
    /// character.
    void FromXml(char16_t const* text, CXmlSerializationContext const& context);

    /// @{
    /// As above, from a file or from octets, which are taken for what they are: XML text in any encoding that
    /// CXmlDocument reads, or Fast Infoset, either of them as such or compressed by gzip or zlib. The name of a file
    /// in octets is as the system has it, which is UTF-8 as a rule.
    /// @throws CBxException also if the file cannot be read or there are no octets
    void FromXmlFile(char16_t const* fileName, CXmlSerializationContext const& context);
    void FromXmlFile(std::string_view fileName, CXmlSerializationContext const& context);
    void FromXmlStream(CBinaryData const& data, CXmlSerializationContext const& context);
    void FromXmlStream(unsigned char const* data, std::size_t size, CXmlSerializationContext const& context);
    /// @}

    /// Reads the object from an element, which stays the caller's. The path of a failure begins at the element.
    /// @param element not null
    void FromXmlElement(CXmlElement const* element, CXmlSerializationContext& context);

    /// Reads the object from untyped content, by way of its text form.
    /// @param element not null
    void FromXmlElement(CElement const* element, CXmlSerializationContext& context);

protected:
    /// No reference, and no element name.
    CXmlObjectBase();

    /// The local name under which the object is written, and which it takes from what it is read from.
    void SetElementName(char16_t const* name);
    /// The local name of the element.
    wstring GetElementName() const;
    /// SetElementName() of another object.
    static void SetElementName(CXmlObjectBase* object, char16_t const* name);

    /// AttributesToXml_Int() of another object, for classes that hold it.
    static void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                    CXmlSerializationContext const& context);
    /// ToXml_Int() of another object, for classes that hold it.
    static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot,
                          char16_t const* namespaceUri, CXmlSerializationContext const& context,
                          bool allowEmptyChoice);
    /// FromXml_Int() of another object, for classes that hold it.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    CXmlSerializationContext const& context);

    /// Refuses a null.
    /// @throws CBxInvalidParamException if value is null
    void Throw_IfPropertyIsNull(CXmlObjectBase* value, char16_t const* name);

    /// @throws CBxInvalidParamException if value is not null and its element has another name
    void Throw_IfElementNameDiffers(CXmlObjectBase* value, char16_t const* name);

    /// @name The state of a choice
    /// For the setters of a class that is a schema choice: selected names the one member that is set, empty
    /// for none. Setting one member while another is set throws CBxInvalidStateException and leaves selected
    /// as it was.
    /// @{

    /// A member of simple type was set, or unset: valid false clears the selection, whichever member it
    /// names.
    void Choice_SetElementValid(bool valid, char16_t const* name, wstring& selected);

    /// A member that holds an object was set: a null deselects the member if it is the selected one, but
    /// selects it if none is.
    void Choice_SelectElement(char16_t const* name, CXmlObjectBase* value, wstring& selected);

    /// A member that is a collection has a new count.
    void Choice_CollectionChanged(char16_t const* name, std::int32_t count, wstring& selected);

    /// Reads a collection that is a member of a choice, once.
    /// @param child where reading starts; moved behind what was consumed
    /// @param count how often the member was read; nothing is done unless it is 0
    /// @throws CBxValidationException if the collection consumed something and its count is out of bounds
    void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element, CXmlElement*& child,
                                std::int32_t& count, CXmlSerializationContext const& context);
    /// @}

    /// Refuses a namespace.
    /// @throws CBxInvalidNamespaceException if IsNamespaceValid() is false
    void TestNamespace(char16_t const* namespaceUri, char16_t const* allowed,
                       char16_t const* targetNamespace) const;

    /// Tests a namespace against the namespace attribute of a schema wildcard.
    /// @param allowed tokens separated by single blanks: `##any`, `##other`, `##local`, `##targetNamespace` or a
    ///        URI;
    ///        a URI, and an empty token, admits no namespace as well
    bool IsNamespaceValid(char16_t const* namespaceUri, char16_t const* allowed,
                          char16_t const* targetNamespace) const;

    /// Whether an element has this local name and, unless the context ignores namespaces, this namespace.
    /// @param element not null
    bool DoesElementNameMatch(CXmlSerializationContext const& context, CXmlElement const* element,
                              char16_t const* name, char16_t const* namespaceUri) const;

    /// Tells a listener that a collection changed.
    static void FireOnCollectionChangeEvent(CXmlObjectBase* listener, CXmlCollectionBase* collection);

    wstring m_elementName;  ///< what GetElementName() gives

private:
    friend class BxXmlLib5Data::CAttributeInfo;
    friend class BxXmlLib5Data::CElementInfo;
    friend class CRecordReader;
    friend class CRecordWriter;

    void WriteDocument(CXmlTextWriter& writer, bool includeDeclaration, bool formatted, XmlEncoding encoding,
                       EOLType eol, CXmlSerializationContext const& context) const;
    void WriteRoot(CXmlWriter& writer, Unprefixed unprefixed, CXmlSerializationContext const& context) const;
    void FindPlace(CBxException& failure, Unprefixed unprefixed,
                   CXmlSerializationContext const& context) const;
    void FromDocument(CXmlDocument const& document, CXmlSerializationContext const& context);
    void Delete();

    std::atomic<std::intptr_t> m_refCount =
        0;  // of an object that waits to be deleted, the next one that does
};

}  // namespace BxXmlLib5
