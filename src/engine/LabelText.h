#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lumeroom {

class Log;

/// The text in a label field: up to its first zero byte, or else to its end. Fields that are not
/// well-formed UTF-8 fall back on other readings, each told in the log; nothing if none fits.
std::optional<std::string> stringFromData(std::span<const std::uint8_t> data, Log& log);

/// The bytes of a label to send. Text that is not well-formed gives, with log lines, none.
std::string dataFromString(const std::string& text, Log& log);

} // namespace lumeroom
