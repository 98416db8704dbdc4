#include "base/Utf8.h"

#include <utf8.h>
#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>

namespace lumeroom {

bool isValidUtf8(std::span<const std::uint8_t> bytes)
{
    return utf8::is_valid(bytes.begin(), bytes.end());
}

bool isValidUtf8(std::string_view text)
{
    return utf8::is_valid(text.begin(), text.end());
}

std::string wellFormedUtf8(std::string_view text)
{
    std::string result;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(result));
    return result;
}

std::string foldedUtf8(std::string_view text)
{
    std::string whole = wellFormedUtf8(text);
    constexpr auto kHow = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPAT
        | UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK | UTF8PROC_IGNORE);
    utf8proc_uint8_t* folded = nullptr;
    const auto size = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(whole.data()),
        static_cast<utf8proc_ssize_t>(whole.size()), &folded, kHow);
    if (size < 0)
        return whole;
    const std::unique_ptr<utf8proc_uint8_t, void (*)(void*)> owner(folded, std::free);
    return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(size)};
}

std::size_t incompleteTail(std::string_view text)
{
    constexpr std::size_t kMost = 3; // of a character of four bytes
    for (std::size_t back = 1; back <= std::min(kMost, text.size()); ++back) {
        auto start = text.end() - static_cast<std::ptrdiff_t>(back);
        if ((static_cast<unsigned char>(*start) & 0xC0U) == 0x80U)
            continue; // not the first of a character
        try {
            utf8::next(start, text.end());
        } catch (const utf8::not_enough_room&) {
            return back;
        } catch (const utf8::exception&) {
        }
        return 0;
    }
    return 0;
}

} // namespace lumeroom
