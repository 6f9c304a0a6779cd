// Where in a document that is being written a failure lies.
#pragma once

#include <string_view>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"

namespace BxXmlLib5 {

class CPathWriter;

/// What a name is that has not begun.
enum class Step { Element, Attribute };

/// Marks a failure with what was about to be written when it came up, unless it is marked.
void MarkNext(CBxException& failure, std::u16string_view name, Step step);

/// Marks a failure with the name of the items of a collection that it has passed.
void MarkRepeated(CBxException& failure, std::u16string_view name);

/// Gives a failure the location where a writer stands.
void LocateWritten(CBxException& failure, CPathWriter const& path);

/// Gives a failure the location where the second run of the same write ends.
/// @param write writes to the path
/// @return false if that does not fail, or not in the same way
template <class Write>
bool LocateWritten(CBxException& failure, CPathWriter const& path, Write&& write) {
    try {
        std::forward<Write>(write)();
    } catch (CBxException const& again) {
        if (again.GetMessage() != failure.GetMessage()) return false;
        LocateWritten(failure, path);
        return true;
    }
    return false;
}

/// Calls a function that makes what is about to be written, and marks the failure of it.
template <class Make>
decltype(auto) MakeNext(std::u16string_view name, Step step, Make&& make) {
    try {
        return std::forward<Make>(make)();
    } catch (CBxException& failure) {
        MarkNext(failure, name, step);
        throw;
    }
}

}  // namespace BxXmlLib5
