#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lumeroom::propertylist {

/// No list of ours comes near this; reading takes some twenty times as much memory.
inline constexpr std::size_t kLargestBytes = std::size_t(32) * 1024 * 1024;

/// Why an XML or binary property list must not be read, in words; empty if it may be.
/// Readers work by recursion and unfold what a binary list shares, so that a few bytes can end the
/// stack or the memory. This has to be seen before a reader is let at them.
/// An answer for malformed bytes may be either, as long as reading them is safe.
std::string_view reasonToRefuse(std::span<const std::uint8_t> bytes);

} // namespace lumeroom::propertylist
