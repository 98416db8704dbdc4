#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumeroom {

/// The addresses of the lamps in an ARP listing: of each line that names a "lifx" host, what stands
/// between the first "(" and the first ")". Text that is not UTF-8 gives none.
std::vector<std::string> lifxAddresses(std::string_view output);

} // namespace lumeroom
