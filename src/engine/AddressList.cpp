#include "engine/AddressList.h"

#include <algorithm>

namespace lumeroom {

namespace {

/// Without the white space of any script at its ends: lists are pasted from web pages.
std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kWhiteSpace[] = {" ", "\t", "\n", "\v", "\f", "\r", "\u0085",
        "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
        "\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"};
    for (bool found = true; found;) {
        found = false;
        for (const std::string_view space : kWhiteSpace) {
            if (text.starts_with(space)) {
                text.remove_prefix(space.size());
                found = true;
            } else if (text.ends_with(space)) {
                text.remove_suffix(space.size());
                found = true;
            }
        }
    }
    return text;
}

} // namespace

std::set<std::string> piecesOfAddressList(std::string_view text)
{
    constexpr std::string_view kSeparators = "\n\r\t, ";

    std::set<std::string> pieces;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, start), text.size());
        const auto piece = trimmed(text.substr(start, end - start));
        if (!piece.empty())
            pieces.emplace(piece);
        start = end + 1;
    }
    return pieces;
}

std::set<std::string> addressesInList(std::string_view text)
{
    auto pieces = piecesOfAddressList(text);
    std::erase_if(
        pieces, [](const std::string& piece) { return piece.find('.') == std::string::npos; });
    return pieces;
}

} // namespace lumeroom
