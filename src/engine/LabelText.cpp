#include "engine/LabelText.h"

#include "base/Log.h"
#include "base/Utf8.h"

#include <algorithm>

namespace lumeroom {

namespace {

bool isAscii(std::span<const std::uint8_t> bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte < 0x80; });
}

std::string textOf(std::span<const std::uint8_t> bytes)
{
    return {bytes.begin(), bytes.end()};
}

} // namespace

std::optional<std::string> stringFromData(std::span<const std::uint8_t> data, Log& log)
{
    const auto end = std::find(data.begin(), data.end(), std::uint8_t(0));
    const auto terminated = data.first(static_cast<std::size_t>(end - data.begin()));
    if (isValidUtf8(terminated))
        return textOf(terminated);
    if (isAscii(terminated)) {
        log.line("unable to make label using cstring / UTF8, succeeded with cstring / ASCII");
        return textOf(terminated);
    }
    if (isValidUtf8(data)) {
        log.line("unable to make label using 'cstring', succeeded with initWithData / UTF8");
        return textOf(data);
    }
    if (isAscii(data)) {
        log.line("unable to make label using 'initWithData / UTF8', succeeded with initWithData / "
                 "ASCII");
        return textOf(data);
    }
    return {};
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
