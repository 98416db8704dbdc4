#pragma once

#include <string_view>

/// The keys of the user defaults.
namespace lumeroom::keys {

// Lamps and network
inline constexpr std::string_view kNoBroadcastSupport = "noBroadcastSupport";
inline constexpr std::string_view kManualIPAddresses = "manualIPAddresses";
inline constexpr std::string_view kKnownIPs = "knownIPs";
inline constexpr std::string_view kHeartbeatSpeed = "heartbeatSpeed";
inline constexpr std::string_view kDefaultTransition = "defaultTransition";
inline constexpr std::string_view kMakeLightStrips = "makeLightStrips";
inline constexpr std::string_view kGroupPowerStateBasedOn = "groupPowerStateBasedOn";
inline constexpr std::string_view kGroupOnOffChangesSettings = "groupOnOffChangesSettings";

// The panel
inline constexpr std::string_view kColourPickerType = "colourPickerType";
inline constexpr std::string_view kScrollToDimTrackingSpeed = "scrollToDimTrackingSpeed";
inline constexpr std::string_view kSortOrder = "sortOrder";

// Presets, schedules and export
inline constexpr std::string_view kEffects = "effects";
inline constexpr std::string_view kPresetTransition = "presetTransition";
inline constexpr std::string_view kTransitionMins = "transitionMins";
inline constexpr std::string_view kSunriseType = "sunrisetype";
inline constexpr std::string_view kDayOrNight = "dayornight";
inline constexpr std::string_view kSelectedWeekday = "GCSelectedWeekday";
inline constexpr std::string_view kShowWeek = "GCShowWeek";
inline constexpr std::string_view kExportPresets = "exportPresets";
inline constexpr std::string_view kExportSchedules = "exportSchedules";
inline constexpr std::string_view kExportEffects = "exportEffects";
inline constexpr std::string_view kExportHotkeys = "exportHotkeys";

// The program
inline constexpr std::string_view kVerbosity = "verbosity";
inline constexpr std::string_view kVeryVerboseAtStartup = "veryVerboseAtStartup";
inline constexpr std::string_view kSilenceWarnings = "silenceWarnings";
inline constexpr std::string_view kAutomaticUpdateCheck = "automaticUpdateCheck";

} // namespace lumeroom::keys
