#pragma once

#include <set>
#include <string>
#include <string_view>

namespace lumeroom {

/// The pieces of a list of lamp addresses: what stands between newlines, returns, tabs, commas and
/// blanks. Pieces come without white space of any script at their ends and are never empty.
std::set<std::string> piecesOfAddressList(std::string_view text);

/// Those of the pieces that count as an address: the ones with a dot.
std::set<std::string> addressesInList(std::string_view text);

} // namespace lumeroom
