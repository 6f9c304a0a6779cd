// A binding for tests: generated classes that are described by short texts.
#pragma once

#include <memory>
#include <vector>

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CClassfactoryBase.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CXmlCollection.h"
#include "BxXmlLib5/values/BxVariant.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "support/Expect.h"

namespace BxTest {

using namespace BxXmlLib5;
using namespace BxXmlLib5Data;

class TestClass;

/// A property, which is an element, an attribute or the text.
struct Field {
    int m_index = 0;
    bool m_isAttribute = false;
    char m_kind = 0;
    wstring m_name;
    wstring m_namespace;
    char m_occurrence = 0;
    int m_minOccurs = 0;
    int m_maxOccurs = -1;
    char m_defect = 0;
    wstring m_allowed = u"##any";
    wstring m_target;
    wstring m_default;
    TestClass const* m_class = nullptr;
    int m_classId = -1;
    bool m_isPseudo = false;

    bool HoldsObject() const;
};

/// The metadata of a class.
///
///     class       [~] group [-] [=Name] ( fields )
///     group       s sequence, c choice, a all, x none of them; ~ makes the class a pseudo element, - an unknown
///                 attribute an error, =Name a class that has base classes, which the abstract ones find by name
///     field       kind name occurrence [defect] [class]
///     kind        P i4, S string with whitespace collapsed, R double with two places, F string of at most two
///                 characters, E enumeration of zero, one and two, C class, A abstract class (~ for a pseudo
///                 one), U untyped, B the base of the collections; behind @ an attribute; # the text, unnamed
///     name        a capital is in the namespace n, _ stands for AnyElement
///     occurrence  ! one, . one that need not be there, ? at most one, * or *1-2 a collection
///     defect      % holds nothing, $ holds a value of another kind, & holds another kind of collection,
///                 - keeps nothing
///     class       of C: a description, ^ for the class that has the field, 0 for one that the factory refuses;
///                 of U: [allowed|target]; of an attribute: =default
///
/// All entries of the tables are copies, whose originals are gone.
class TestClass {
public:
    explicit TestClass(char const*& description);
    ~TestClass();

    Field const* TextField() const;

    int const m_id;
    wstring m_namespace = u"own";
    std::vector<Field> m_fields;
    CParentElementInfo* m_info = nullptr;
    CElementInfo** m_elements = nullptr;
    CAttributeInfo** m_attributes = nullptr;

private:
    Field NextField(char const*& at);
};

/// The class of a description; all of them live until the end.
TestClass& Class(char const* description);

/// What the objects note on this thread: x= a value stored in x, x=0 a null, {} the read of a class, new x() the
/// call of a factory.
inline thread_local std::string t_log;

struct Factory : CClassfactoryBase {
    using CClassfactoryBase::GetElementType, CClassfactoryBase::GetElementTypeNamespaceUri;
    static CSmartPtr<CXmlObjectBase> ById(int classId, char16_t const* elementName);
    static CSmartPtr<CXmlObjectBase> FromElement(CXmlElement* element);
};

/// An object of a class. It keeps the state of a choice as generated code does.
class TestObject : public CXmlGeneratedClass {
public:
    explicit TestObject(TestClass const& type, char16_t const* name = u"r");
    ~TestObject() override;

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetTargetNamespace() const override { return m_target; }
    wstring GetNamespace() const override { return m_class.m_namespace; }
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    CParentElementInfo* GetClassInfo() const override { return m_class.m_info; }
    CElementInfo** GetClassElementInfo() const override { return m_class.m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_class.m_attributes; }
    void ResetContent() override;

    using CXmlGeneratedClass::CleanMetaData, CXmlGeneratedClass::IsElementInList,
        CXmlGeneratedClass::ToXml_Int;
    using CXmlObjectBase::GetElementName;

    /// What a property holds, past all setters.
    BxVariant& operator[](char const* name);
    TestObject& Child(char const* name);

    std::string Text(std::string_view settings = "") const;

    TestClass const& m_class;
    wstring m_target;

private:
    BxVariant Initial(Field const& field);
    void StopListening();
    void Select(Field const& field, BxVariant const& value);

    std::vector<BxVariant> m_values;
    wstring m_selected;
};

/// A collection of objects, as generated code defines one for each class.
class TestCol : public CXmlCollection {
public:
    explicit TestCol(Field const& field);
    void Add(CXmlObjectBase* item) { AppendItem(item); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;

private:
    Field const& m_field;
};

/// Notes its calls.
class LogWriter : public CXmlWriter {
public:
    LogWriter() : CXmlWriter(u"LogWriter") {}
    void SetDefaultNamespace(wstring const& ns) override { Note("default", {ns}); }
    void AddNamespace(wstring const& alias, wstring const& ns) override { Note("alias", {alias, ns}); }
    void WriteEndDocument() override { Note("document end", {}); }
    void WriteComment(wstring const& text) override { Note("comment", {text}); }
    void WriteProcessingInstruction(wstring const& text) override { Note("instruction", {text}); }
    void WriteInLineSchema(wstring const& text) override { Note("schema", {text}); }
    void WriteStartElement(wstring const& name, wstring const& ns) override { Note("start", {name, ns}); }
    void WriteText(wstring const& text) override { Note("text", {text}); }
    void WriteEndElement() override { Note("end", {}); }
    void WriteAttribute(wstring const& name, wstring const& ns, wstring const& value) override {
        Note("attribute", {name, ns, value});
    }
    void WriteXsiType(wstring const& ns, wstring const& name) override { Note("type", {ns, name}); }

    std::string m_calls;

private:
    void Note(char const* call, std::initializer_list<wstring> arguments) {
        m_calls += call;
        for (wstring const& argument : arguments) m_calls += " [" + ToUtf8(argument) + "]";
        m_calls += "\n";
    }
};

/// Letters: E unknown elements, A unknown attributes, M missing mandatory elements, C missing choices, # counts
/// and N namespaces are ignored; 2 no namespaces; D no defaults are written.
CXmlSerializationContext Settings(std::string_view letters);

/// The text, inside an element r unless it has one or is a failure.
std::string InRoot(std::string_view text);

inline void Read(TestObject& object, std::string_view document, std::string_view settings = "") {
    object.FromXml(FromUtf8(InRoot(document)).c_str(), Settings(settings));
}

/// What reading and writing give, or the failure.
struct Row {
    char const* m_class;
    char const* m_settings;  ///< For both, or those for reading, a slash, those for writing.
    char const* m_document;  ///< Null for no reading.
    std::string m_expected = m_document;
};
void ExpectRows(std::initializer_list<Row> rows);

/// @name The failures of reading
/// @{
inline std::string Invalid(std::string const& text) {
    return "CBxValidationException: " + text;
}
inline std::string Missing(std::string const& name) {
    return Invalid("Failed to find a required element [" + name + "]");
}
inline std::string MissingInAll(std::string const& name) {
    return Invalid("Failed to find the mandatory element [" + name + "]");
}
inline std::string NoSubstitute(std::string const& name) {
    return Invalid("Failed to find a suitable substitution element for [" + name + "]");
}
inline std::string LeftOver(std::string const& child, std::string const& element = "r") {
    return Invalid("Failed read all the elements held within the element [" + element +
                   "]. The unexpected element [" + child + "] remains un processed");
}
inline std::string EmptyChoice(std::string const& element = "r") {
    return Invalid("No child elements within the element [" + element +
                   "] were populated. The element represents a choice, so one and only one element should be "
                   "populated. The element contained no sutable child elements");
}
inline std::string TooFew(std::string const& name, int least) {
    return Invalid("The Minimum number of [" + name + "] elements allowed in this collection is " +
                   std::to_string(least));
}
inline std::string TooMany(std::string const& name, int most) {
    return Invalid("The Maximum number of [" + name + "] elements allowed in this collection is " +
                   std::to_string(most));
}
inline std::string MissingAttribute(std::string const& name) {
    return Invalid("Failed to find the required Attribute [" + name + "]");
}
inline std::string UnknownAttribute(std::string const& name) {
    return Invalid("Unexpected Attribute [" + name + "] found.");
}
inline std::string NotAllowed(std::string const& ns, std::string const& allowed, std::string const& target) {
    return "CBxInvalidNamespaceException: Invalid namespace [" + ns + "]. The namespace must be one of [" +
           allowed + "] where the target namespace is [" + target + "]";
}
/// @}
inline std::string const kNothingSet = Invalid(
    "This element is a choice, and as such must have at one (and only one) valid item, currently there are none "
    "set");
inline std::string const kNothingInPlace =
    "CBxException: Serialization Data Error : The property should hold an object or a collection, it holds none!";

inline std::string WrongKind(int expected, int actual) {
    return "CBxException: Serialization Data Error : The property should hold a value of type " +
           std::to_string(expected) + ", it holds " + std::to_string(actual) + "!";
}

}  // namespace BxTest
