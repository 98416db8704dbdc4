#pragma once

#include <cstdint>
#include <span>

namespace lumeroom::propertylist {

/// Whether arrays and dictionaries in an XML or binary property list nest deeper than this.
/// Readers work by recursion, so a hostile depth has to be seen before one is let at the bytes.
/// Malformed lists may give either answer.
bool nestsDeeperThan(int limit, std::span<const std::uint8_t> bytes);

} // namespace lumeroom::propertylist
