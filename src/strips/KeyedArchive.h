#pragma once

#include "base/Value.h"

#include <span>

namespace lumeroom {

/// A dictionary of numbers, texts and data in the keyed-archive format: a binary property list of
/// "$archiver", "$version", "$top" and "$objects", in which objects refer to each other by number.
Value::Data keyedArchiveOf(const Value::Dictionary& dictionary);

/// The archived dictionary's entries that are plain values; nothing for bytes that are no such
/// archive.
std::optional<Value::Dictionary> dictionaryFromKeyedArchive(std::span<const std::uint8_t> bytes);

} // namespace lumeroom
