#include "base/NameText.h"

#include "base/Utf8.h"

#include <utf8.h>
#include <utf8proc.h>

#include <algorithm>
#include <iterator>

namespace lumeroom {

namespace {

using Character = char32_t;

std::u32string charactersOf(std::string_view name)
{
    const std::string whole = wellFormedUtf8(name);
    std::u32string characters;
    utf8::utf8to32(whole.begin(), whole.end(), std::back_inserter(characters));
    return characters;
}

utf8proc_category_t categoryOf(Character character)
{
    return utf8proc_category(static_cast<utf8proc_int32_t>(character));
}

bool breaksTheLine(Character character)
{
    switch (categoryOf(character)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
        return true;
    default:
        return false;
    }
}

bool isInvisible(Character character)
{
    const auto category = categoryOf(character);
    return breaksTheLine(character) || category == UTF8PROC_CATEGORY_ZS
        || category == UTF8PROC_CATEGORY_CF;
}

} // namespace

bool isBlankName(std::string_view name)
{
    const auto characters = charactersOf(name);
    return std::all_of(characters.begin(), characters.end(), isInvisible);
}

std::string nameOnOneLine(std::string_view name)
{
    auto characters = charactersOf(name);
    std::replace_if(characters.begin(), characters.end(), breaksTheLine, U' ');
    std::string line;
    utf8::utf32to8(characters.begin(), characters.end(), std::back_inserter(line));
    return line;
}

} // namespace lumeroom
