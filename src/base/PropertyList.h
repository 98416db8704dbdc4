#pragma once

#include "base/Value.h"

#include <span>

namespace lumeroom::propertylist {

/// Reads an XML or binary property list. Without a result, `error` (if given) says why in words.
std::optional<Value> parse(std::span<const std::uint8_t> bytes, std::string* error = nullptr);

/// The XML form. `Uid` values have none there and are written as CF$UID dictionaries.
std::string toXml(const Value& value);

/// The binary form ("bplist00").
Value::Data toBinary(const Value& value);

} // namespace lumeroom::propertylist
