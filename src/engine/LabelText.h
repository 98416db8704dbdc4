#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lumeroom {

class Log;

/// The text in a label field: up to its first zero byte, or else to its end; nothing if that is no
/// well-formed UTF-8.
std::optional<std::string> stringFromData(std::span<const std::uint8_t> data);

/// The bytes of a label to send. Text that is not well-formed gives, with log lines, none.
std::string dataFromString(const std::string& text, Log& log);

} // namespace lumeroom
