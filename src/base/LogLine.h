#pragma once

#include <string>
#include <string_view>

namespace lumeroom {

/// The text as one line of a log: cut at a whole character after 1000 bytes, with "..." behind it,
/// and with U+FFFD in place of what is no well-formed UTF-8 and of every character that steers a
/// terminal, forges a line or turns the direction of the text. A line end of its own stays.
std::string logLine(std::string_view text);

} // namespace lumeroom
