#pragma once

#include <array>
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
inline constexpr std::string_view kCurrentTheme = "currentTheme";
inline constexpr std::string_view kClassicWindowState = "classicWindowState";
inline constexpr std::string_view kHorizontalWindowState = "horizontalWindowState";
inline constexpr std::string_view kThinWindowState = "thinWindowState";
inline constexpr std::string_view kBoxWindowState = "boxWindowState";

// Presets, effects and hotkeys
inline constexpr std::string_view kPresets = "presets";
inline constexpr std::string_view kPresetTransition = "presetTransition";
inline constexpr std::string_view kEffects = "effects";
inline constexpr std::string_view kSoundTriggerPreset = "soundTriggerPreset";
inline constexpr std::string_view kModifier = "modifier";
/// What each function key does.
inline constexpr std::array<std::string_view, 15> kFunctionKeyClips
    = {"f1clip", "f2clip", "f3clip", "f4clip", "f5clip", "f6clip", "f7clip", "f8clip", "f13clip",
        "f14clip", "f15clip", "f16clip", "f17clip", "f18clip", "f19clip"};

// Schedules
inline constexpr std::string_view kActions = "GlowController actions";
inline constexpr std::string_view kTransitionMins = "transitionMins";
inline constexpr std::string_view kSunriseType = "sunrisetype";
inline constexpr std::string_view kDayOrNight = "dayornight";
inline constexpr std::string_view kSelectedWeekday = "GCSelectedWeekday";
inline constexpr std::string_view kShowWeek = "GCShowWeek";
inline constexpr std::string_view kDailyChecksLastPerformed = "dailyChecksLastPerformed";
inline constexpr std::string_view kLatitude = "latitude";
inline constexpr std::string_view kLongitude = "longitude";
inline constexpr std::string_view kSunrise = "sunrise";
inline constexpr std::string_view kSunset = "sunset";

// Export
inline constexpr std::string_view kExportPresets = "exportPresets";
inline constexpr std::string_view kExportSchedules = "exportSchedules";
inline constexpr std::string_view kExportEffects = "exportEffects";
inline constexpr std::string_view kExportHotkeys = "exportHotkeys";

// The program
inline constexpr std::string_view kVerbosity = "verbosity";
inline constexpr std::string_view kVeryVerboseAtStartup = "veryVerboseAtStartup";
inline constexpr std::string_view kSilenceWarnings = "silenceWarnings";
inline constexpr std::string_view kAutomaticUpdateCheck = "automaticUpdateCheck";
inline constexpr std::string_view kHideDockIcon = "hideDockIcon";
inline constexpr std::string_view kBadgeIcon = "badgeIcon";

} // namespace lumeroom::keys
