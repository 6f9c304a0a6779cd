// The failures of the library: one class and its six kinds, thrown by value.
//
//     CBxException
//       CBxValidationException
//         CBxInvalidValueException
//         CBxInvalidNamespaceException
//       CBxInvalidStateException
//       CBxInvalidParamException
//       CBxOverFlowException
#pragma once

#include <memory>
#include <string_view>

#include "BxXmlLib5/core/CBxLocation.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A failure with its message and, if another failure led to it, a private copy of that one. Thrown as is for
/// failures without a kind of their own: malformed documents, failed facets, the environment, misuse of
/// metadata.
class BXXMLLIB5_API CBxException {
public:
    /// @{
    /// What is not given is the empty message and no inner exception. The inner exception, a failure that led to
    /// this one, is copied, and so is its place.
    CBxException();
    CBxException(wstring message);
    CBxException(wstring message, CBxException const& inner);
    /// @}
    /// @{
    /// Copies message, place and inner exceptions.
    CBxException(CBxException const& other);
    CBxException& operator=(CBxException const& other);
    /// @}
    virtual ~CBxException();

    /// The message alone.
    wstring GetMessage() const;

    /// The message, then those of the inner exceptions, outermost first, one to a line.
    wstring GetFullMessage() const;

    /// The failure that led to this one, null if none. It lives as long as this object.
    CBxException const* GetInnerException() const;

    /// Where in the document that is read or written the failure lies. Not known for failures that concern no
    /// document, and for a write that fails in another way when it is tried again, which is how its place is
    /// found. A failure that another one led to has the place of that one, unless it was given its own.
    CBxLocation GetLocation() const;
    /// Sets the place, for failures that an application throws while it reads.
    void SetLocation(CBxLocation const& location);

    /// The text for a terminal or a log: `source:line:column: path: message`, without what is not known. The
    /// message is the full one.
    /// @param source the name of the document, empty for none
    wstring GetReport(std::u16string_view source = {}) const;

protected:
    /// A copy of the same final class on the heap, owned by the caller.
    virtual CBxException* Clone() const;

private:
    friend class CFailurePlace;
    struct Place;

    CSmartPtr<Place const> m_place;  // null if it is not known
    wstring m_message;
    std::unique_ptr<CBxException> m_innerException;
};

/// The data does not fit the schema.
class BXXMLLIB5_API CBxValidationException : public CBxException {
public:
    /// @{
    /// As those of CBxException.
    CBxValidationException();
    CBxValidationException(wstring message);
    CBxValidationException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxValidationException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

/// A text or number is no valid value of its type.
class BXXMLLIB5_API CBxInvalidValueException : public CBxValidationException {
public:
    /// @{
    /// As those of CBxException.
    CBxInvalidValueException();
    CBxInvalidValueException(wstring message);
    CBxInvalidValueException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxInvalidValueException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

/// A namespace is not allowed at this point.
class BXXMLLIB5_API CBxInvalidNamespaceException : public CBxValidationException {
public:
    /// @{
    /// As those of CBxException.
    CBxInvalidNamespaceException();
    CBxInvalidNamespaceException(wstring message);
    CBxInvalidNamespaceException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxInvalidNamespaceException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

/// The object is not in a state that allows the call.
class BXXMLLIB5_API CBxInvalidStateException : public CBxException {
public:
    /// @{
    /// As those of CBxException.
    CBxInvalidStateException();
    CBxInvalidStateException(wstring message);
    CBxInvalidStateException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxInvalidStateException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

/// An argument is not acceptable.
class BXXMLLIB5_API CBxInvalidParamException : public CBxException {
public:
    /// @{
    /// As those of CBxException.
    CBxInvalidParamException();
    CBxInvalidParamException(wstring message);
    CBxInvalidParamException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxInvalidParamException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

/// A numeric result exceeds what its type can hold.
class BXXMLLIB5_API CBxOverFlowException : public CBxException {
public:
    /// @{
    /// As those of CBxException.
    CBxOverFlowException();
    CBxOverFlowException(wstring message);
    CBxOverFlowException(wstring message, CBxException const& inner);
    /// @}
    /// The message and inner exception of a failure of any kind.
    CBxOverFlowException(CBxException const& other);

protected:
    CBxException* Clone() const override;
};

}  // namespace BxXmlLib5
