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

/// Gives a failure the location where the second run of the same write ended.
void LocateWritten(CBxException& failure, CPathWriter const& path);

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
