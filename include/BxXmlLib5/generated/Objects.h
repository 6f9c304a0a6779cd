// Properties that hold objects: of generated classes, and of untyped content.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/generated/Property.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5::Generated {

class CObject;

/// What all properties for one object have in common: a counted pointer, null for none. Copies are deep.
class BXXMLLIB5_API ObjectHolder {
public:
    /// No object.
    ObjectHolder() = default;
    /// A copy of the object, if there is one.
    ObjectHolder(ObjectHolder const& other);
    /// Leaves the other property without an object.
    ObjectHolder(ObjectHolder&& other) noexcept = default;
    /// Takes a copy of the object, or none.
    ObjectHolder& operator=(ObjectHolder const& other) { return *this = ObjectHolder(other); }
    /// Leaves the other property without an object.
    ObjectHolder& operator=(ObjectHolder&& other) noexcept = default;
    /// Gives up its reference.
    ~ObjectHolder();

    /// Whether there is an object.
    explicit operator bool() const { return m_object != nullptr; }
    /// Gives up the object.
    void Clear() { m_object = nullptr; }

    /// The object without its type, null for none.
    CXmlObjectBase* Held() const { return m_object; }
    /// Takes an object, whose class is not tested, or none for null.
    void Hold(CSmartPtr<CXmlObjectBase> object) { m_object = std::move(object); }

private:
    CSmartPtr<CXmlObjectBase> m_object;
};

/// What all properties for repeated objects have in common. They take the room of a pointer as long as they
/// are empty. Copies are deep.
class BXXMLLIB5_API ObjectsHolder {
public:
    /// Without objects.
    ObjectsHolder() = default;
    /// A copy of each object.
    ObjectsHolder(ObjectsHolder const& other);
    /// Leaves the other property empty.
    ObjectsHolder(ObjectsHolder&& other) noexcept = default;
    /// Takes a copy of each object.
    ObjectsHolder& operator=(ObjectsHolder const& other) { return *this = ObjectsHolder(other); }
    /// Leaves the other property empty.
    ObjectsHolder& operator=(ObjectsHolder&& other) noexcept = default;
    /// Gives up all references.
    ~ObjectsHolder();

    /// Whether there is no object.
    bool IsEmpty() const { return Count() == 0; }
    /// The number of objects.
    int Count() const { return m_objects ? static_cast<int>(m_objects->size()) : 0; }
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    void Remove(int index);
    /// Gives up all objects.
    void Clear() { m_objects.reset(); }

    /// An object without its type.
    /// @param index 0 to Count() - 1
    CXmlObjectBase* HeldAt(int index) const { return (*m_objects)[static_cast<std::size_t>(index)]; }
    /// @throws CBxInvalidParamException for null
    void Append(CSmartPtr<CXmlObjectBase> object);

protected:
    /// Where the pointer to an object is.
    using Place = CSmartPtr<CXmlObjectBase> const*;

    /// @{
    /// The places from the first to behind the last one.
    Place First() const { return m_objects ? m_objects->data() : nullptr; }
    Place Last() const { return First() + Count(); }
    /// @}
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    CXmlObjectBase* At(int index) const;
    /// @throws CBxInvalidParamException unless index is 0 to Count() and the object is not null
    void Insert(int index, CSmartPtr<CXmlObjectBase> object);

private:
    std::unique_ptr<std::vector<CSmartPtr<CXmlObjectBase>>> m_objects;
};

/// Walks repeated objects of class T.
template <class T>
class ObjectIterator {
public:
    /// @{
    /// What the standard asks of a forward iterator.
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using reference = T&;
    using pointer = T*;
    using iterator_category = std::forward_iterator_tag;
    /// @}

    /// Not to be used before another is assigned.
    ObjectIterator() = default;
    /// @param place of the object, in the vector that holds it
    explicit ObjectIterator(CSmartPtr<CXmlObjectBase> const* place) : m_place(place) {}

    /// @{
    /// The object.
    T& operator*() const { return static_cast<T&>(static_cast<CXmlObjectBase&>(**m_place)); }
    T* operator->() const { return &**this; }
    /// @}
    /// Goes on to the next object.
    ObjectIterator& operator++() {
        ++m_place;
        return *this;
    }
    /// Goes on to the next object. @return where it was
    ObjectIterator operator++(int) {
        ObjectIterator old = *this;
        ++m_place;
        return old;
    }
    /// Whether both are at the same object of the same property.
    bool operator==(ObjectIterator const&) const = default;

private:
    CSmartPtr<CXmlObjectBase> const* m_place = nullptr;
};

/// An element of class T, or none. T may be incomplete until the property is used.
///
///     note.Pitch.Make().Step = Step::C;              // a new pitch, unless there is one
///     note.Pitch = pitch;                            // a deep copy
///     note.Pitch = CSmartPtr<CPitch>(new CPitch);    // the object itself
///     if (note.Pitch) Use(note.Pitch->Step);
///
/// The object may be of a class that derives from T: `Make<CCircle>()`, `Get<CCircle>()`.
template <class T>
class Object : public ObjectHolder {
public:
    /// The declared class of the object.
    using Class = T;

    /// @{
    /// The object.
    /// @throws CBxInvalidStateException if there is none
    T& operator*() {
        if (!*this) ThrowNotSet();
        return *Typed();
    }
    T const& operator*() const { return *const_cast<Object&>(*this); }
    T* operator->() { return &**this; }
    T const* operator->() const { return &**this; }
    /// @}

    /// The object as one of class D; null if there is none, or none of that class.
    template <class D = T>
    D* Get() {
        return dynamic_cast<D*>(Held());
    }
    /// The same for a property that is not to be changed.
    template <class D = T>
    D const* Get() const {
        return dynamic_cast<D const*>(static_cast<CXmlObjectBase const*>(Held()));
    }

    /// The object that is there, if it is of class D; otherwise a new one in its place.
    template <class D = T>
    D& Make() {
        D* object = nullptr;
        if constexpr (std::is_same_v<D, T>) {
            object = Typed();
        } else {
            object = Get<D>();
        }
        if (object == nullptr) Hold(object = new D);
        return *object;
    }

    /// A deep copy of the object, which is of class T even if the argument's derives from it.
    Object& operator=(T const& object) {
        Hold(new T(object));
        return *this;
    }
    /// Shares the object; null clears the property. An object must not be inside itself.
    Object& operator=(CSmartPtr<T> object) {
        Hold(static_cast<T*>(object));
        return *this;
    }

private:
    T* Typed() const { return static_cast<T*>(Held()); }
};

/// A repeated element of class T, which may be incomplete until the property is used.
///
///     note.Tie.Add().Type = StartStop::Start;
///     for (CTie& tie : note.Tie) Use(tie);
template <class T>
class Collection : public ObjectsHolder {
public:
    /// The declared class of the objects.
    using Class = T;

    /// Appends a new object, of a class that may derive from T.
    template <class D = T>
    D& Add() {
        D* const object = new D;
        Append(object);
        return *object;
    }
    /// Appends a deep copy.
    T& Add(T const& object) {
        T* const copy = new T(object);
        Append(copy);
        return *copy;
    }
    /// Appends the object itself.
    /// @throws CBxInvalidParamException for null
    T& Add(CSmartPtr<T> object) {
        T* const added = object;
        Append(added);
        return *added;
    }
    /// Puts a new object at a position.
    /// @throws CBxInvalidParamException unless index is 0 to Count()
    T& Insert(int index) {
        T* const object = new T;
        ObjectsHolder::Insert(index, object);
        return *object;
    }

    /// @{
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    T& operator[](int index) { return static_cast<T&>(*At(index)); }
    T const& operator[](int index) const { return static_cast<T const&>(*At(index)); }
    /// @}

    /// @{
    /// Walk the objects in document order, as references.
    auto begin() { return ObjectIterator<T>(First()); }
    auto end() { return ObjectIterator<T>(Last()); }
    auto begin() const { return ObjectIterator<T const>(First()); }
    auto end() const { return ObjectIterator<T const>(Last()); }
    /// @}
};

/// Whether an element is nil: there without content, but with its attributes.
///
///     order.Due.Make().Nil = true;
class Nil {
public:
    /// Whether it is nil.
    explicit operator bool() const { return m_isNil; }
    /// Says whether it is nil. What has content is refused on writing then.
    Nil& operator=(bool isNil) {
        m_isNil = isNil;
        return *this;
    }

private:
    bool m_isNil = false;
};

/// One element that the schema leaves open.
class BXXMLLIB5_API AnyElement : public ObjectHolder {
public:
    /// @{
    /// @throws CBxInvalidStateException if there is none
    CElement& operator*() const;
    CElement* operator->() const { return &**this; }
    /// @}

    /// The element that is there, or a new one.
    CElement& Make(char16_t const* name, char16_t const* namespaceUri = u"");
    /// Shares the element; null clears the property.
    AnyElement& operator=(CSmartPtr<CElement> element);
};

/// Elements that the schema leaves open.
class BXXMLLIB5_API AnyElements : public ObjectsHolder {
public:
    /// Appends a new element.
    CElement& Add(char16_t const* name, char16_t const* namespaceUri = u"");
    /// Appends the element itself.
    /// @throws CBxInvalidParamException for null
    CElement& Add(CSmartPtr<CElement> element);

    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    CElement& operator[](int index) const { return static_cast<CElement&>(*At(index)); }

    /// @{
    /// Walk the elements in document order, as references.
    auto begin() const { return ObjectIterator<CElement>(First()); }
    auto end() const { return ObjectIterator<CElement>(Last()); }
    /// @}
};

/// Attributes that the schema leaves open.
class BXXMLLIB5_API AnyAttributes {
public:
    /// Without attributes.
    AnyAttributes() = default;
    /// A copy of each attribute.
    AnyAttributes(AnyAttributes const& other);
    /// Leaves the other property empty.
    AnyAttributes(AnyAttributes&& other) noexcept = default;
    /// Takes a copy of each attribute.
    AnyAttributes& operator=(AnyAttributes const& other) { return *this = AnyAttributes(other); }
    /// Leaves the other property empty.
    AnyAttributes& operator=(AnyAttributes&& other) noexcept = default;
    /// Gives up its reference on the collection.
    ~AnyAttributes() = default;

    /// Whether there is no attribute.
    bool IsEmpty() const { return Count() == 0; }
    /// The number of attributes.
    int Count() const { return m_attributes ? m_attributes->GetCount() : 0; }
    /// Gives up all attributes.
    void Clear() { m_attributes = nullptr; }

    /// The collection itself, which is made by the first call.
    CAttributeCol& All();

    /// Sets the value of an attribute, which is added if there is none of that name.
    void Set(char16_t const* name, char16_t const* value, char16_t const* namespaceUri = u"");
    /// The attribute of a name, null if there is none.
    CAttribute const* Find(char16_t const* name, char16_t const* namespaceUri = u"") const;

    /// Walk the attributes as pointers that are not null.
    auto begin() const {
        return m_attributes ? std::as_const(*m_attributes).begin() : CBxIterator<CAttribute const>(nullptr);
    }
    /// Behind the last attribute.
    auto end() const { return CBxIterator<CAttribute const>(nullptr); }

private:
    CSmartPtr<CAttributeCol> m_attributes;
};

}  // namespace BxXmlLib5::Generated
