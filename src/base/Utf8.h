#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace lumeroom {

/// Whether the bytes are well-formed UTF-8 as RFC 3629 has it: no overlong forms, no surrogates,
/// nothing above U+10FFFF.
bool isValidUtf8(std::span<const std::uint8_t> bytes);
bool isValidUtf8(std::string_view text);

/// The text with U+FFFD in place of what is not well-formed.
std::string wellFormedUtf8(std::string_view text);

/// The text as names are compared that a person types: without regard to case, accents and
/// compatibility forms. "Ärger" and "arger" are one.
std::string foldedUtf8(std::string_view text);

/// The number of bytes at the end that begin a character which is still incomplete.
std::size_t incompleteTail(std::string_view text);

} // namespace lumeroom
