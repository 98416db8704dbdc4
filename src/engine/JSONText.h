#pragma once

#include "base/Value.h"

/// A JSON writer and flat readers. These are simple scanners: every value read is a string,
/// escapes are not handled, and a "|" in the text splits a value.
namespace lumeroom {

class Log;

/// Numbers with two decimals; "true", "false" and what starts with "[" bare; no escaping.
std::string JSONFromDictionary(const Value::Dictionary& dictionary, Log& log);

/// One level of keys and string values.
Value::Dictionary dictionaryFromJSON(std::string_view json);
/// Nested objects become dictionaries in turn.
Value::Dictionary dictionaryOfDictionariesFromJSON(std::string_view json);
Value::Array arrayOfDictionariesFromJSON(std::string_view json);

} // namespace lumeroom
