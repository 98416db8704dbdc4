#include "engine/LabelText.h"

#include "base/Log.h"
#include "base/Utf8.h"

#include <algorithm>

namespace lumeroom {

std::optional<std::string> stringFromData(std::span<const std::uint8_t> data)
{
    const std::string text(data.begin(), std::find(data.begin(), data.end(), std::uint8_t(0)));
    return isValidUtf8(text) ? std::optional(text) : std::nullopt;
}

std::string dataFromString(const std::string& text, Log& log)
{
    if (isValidUtf8(text))
        return text;
    // ASCII is a part of UTF-8, so each further attempt at the same text fails as well.
    log.line("utf8string failed, trying cStringUsingEncoding:NSUTF8StringEncoding");
    log.line("cStringUsingEncoding:NSUTF8StringEncoding failed, trying "
             "cStringUsingEncoding:NSASCIIStringEncoding");
    log.line("cStringUsingEncoding:NSASCIIStringEncoding failed, nothing else to try");
    return {};
}

} // namespace lumeroom
