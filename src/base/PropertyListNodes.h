#pragma once

#include "base/Value.h"

#include <plist/plist.h>

namespace lumeroom::propertylist {

struct FreeNode {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using Owned = std::unique_ptr<T, FreeMemory>;

/// Nothing for a kind that a `Value` does not have; within an array or dictionary, such an entry
/// is left out.
std::optional<Value> valueOf(plist_t node);

/// Bytes that are not UTF-8, and characters that XML cannot hold, become U+FFFD in texts.
Node nodeOf(const Value& value);

} // namespace lumeroom::propertylist
