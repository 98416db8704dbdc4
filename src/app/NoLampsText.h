#pragma once

#include <string>

namespace lumeroom {

struct SearchedPlaces;

/// Where lamps were looked for in vain, what the network said, if it did, and what to check: each
/// on a line of its own.
std::string noLampsText(const SearchedPlaces& places, const std::string& complaint);

} // namespace lumeroom
