#pragma once

#include <string_view>

/// The keys of the user defaults.
namespace lumeroom::keys {

inline constexpr std::string_view kVerbosity = "verbosity";
inline constexpr std::string_view kHeartbeatSpeed = "heartbeatSpeed";
inline constexpr std::string_view kDefaultTransition = "defaultTransition";
inline constexpr std::string_view kGroupPowerStateBasedOn = "groupPowerStateBasedOn";
inline constexpr std::string_view kGroupOnOffChangesSettings = "groupOnOffChangesSettings";
inline constexpr std::string_view kNoBroadcastSupport = "noBroadcastSupport";
inline constexpr std::string_view kManualIPAddresses = "manualIPAddresses";
inline constexpr std::string_view kKnownIPs = "knownIPs";
inline constexpr std::string_view kColourPickerType = "colourPickerType";
inline constexpr std::string_view kSortOrder = "sortOrder";
inline constexpr std::string_view kVeryVerboseAtStartup = "veryVerboseAtStartup";
inline constexpr std::string_view kTransitionMins = "transitionMins";
inline constexpr std::string_view kEffects = "effects";

} // namespace lumeroom::keys
