#pragma once

#include "VirtualLamp.h"

#include <memory>
#include <optional>

namespace virtual_lamps {

/// A lamp's address on the wire, made from its number (from 1): the same in every run.
MacAddress macAddressForNumber(unsigned number);

/// A guid made from a name: lamps given the same group are in the same group.
std::array<std::uint8_t, 16> guidForName(const std::string& name);

Membership membershipNamed(const std::string& name);

/// Puts a tag on the lamp, by the n-th bit (from 0).
void putTag(VirtualLamp& lamp, const std::string& name, unsigned bit);

/// The n-th address (from 0) at or behind an IPv4 address, passing over those that end in 0 and
/// 255; nothing if `first` is no IPv4 address.
std::optional<std::string> addressBehind(const std::string& first, unsigned n);

} // namespace virtual_lamps
