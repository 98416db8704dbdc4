#include "base/Utf8.h"

#include <algorithm>

namespace lumeroom {

namespace {

/// The length that a first byte promises; 0 for one that starts no character.
std::size_t promisedLength(std::uint8_t first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return 2;
    if (first >= 0xE0 && first <= 0xEF)
        return 3;
    if (first >= 0xF0 && first <= 0xF4)
        return 4;
    return 0;
}

/// The well-formed character at the front: its length, or 0.
std::size_t characterLength(std::span<const std::uint8_t> bytes)
{
    const std::size_t length = promisedLength(bytes[0]);
    if (length == 0 || length > bytes.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0U) != 0x80U)
            return 0;
    }
    // The second byte is narrower after these (overlong forms, surrogates, past the last plane).
    if ((bytes[0] == 0xE0 && bytes[1] < 0xA0) || (bytes[0] == 0xED && bytes[1] > 0x9F)
        || (bytes[0] == 0xF0 && bytes[1] < 0x90) || (bytes[0] == 0xF4 && bytes[1] > 0x8F))
        return 0;
    return length;
}

std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

bool isValidUtf8(std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0)
            return false;
        bytes = bytes.subspan(length);
    }
    return true;
}

bool isValidUtf8(std::string_view text)
{
    return isValidUtf8(bytesOf(text));
}

std::string wellFormedUtf8(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = characterLength(bytesOf(text));
        result += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::size_t incompleteTail(std::string_view text)
{
    const auto bytes = bytesOf(text);
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
        const std::uint8_t byte = bytes[bytes.size() - back];
        if ((byte & 0xC0U) != 0x80U)
            return promisedLength(byte) > back ? back : 0;
    }
    return 0;
}

} // namespace lumeroom
