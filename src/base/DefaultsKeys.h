#pragma once

#include "base/Value.h"

#include <array>

namespace lumeroom {

/// A setting or a piece of stored data: its name in the file, the form of it that the program works
/// with, and what counts while none is stored.
template <typename T> struct DefaultsKey {
    /// In the form in which it has always been kept: some numbers are texts.
    using Registered = std::variant<std::monostate, bool, int, double, std::string_view>;

    std::string_view name;
    Registered registered{};
    /// What the program makes of a stored value; null where it takes it as it is.
    T (*meaning)(T) = nullptr;

    constexpr operator std::string_view() const { return name; }
    T registeredValue() const
    {
        return std::visit(
            [](const auto& value) {
                if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::monostate>)
                    return T();
                else
                    return coerced<T>(Value(value));
            },
            registered);
    }
};

/// What the user defaults hold, each declared here and nowhere else.
namespace keys {

using Switch = DefaultsKey<bool>;
using Integer = DefaultsKey<std::int64_t>;
using Number = DefaultsKey<double>;
using Text = DefaultsKey<std::string>;
using List = DefaultsKey<Value::Array>;
using Dictionary = DefaultsKey<Value::Dictionary>;
using Date = DefaultsKey<TimePoint>;

/// What is no speed counts as 1. Minus 0 becomes 0, lest it make the pauses short.
double asSpeed(double stored);
std::int64_t asVerbosity(std::int64_t stored);
/// What is no appearance counts as the system's.
std::int64_t asAppearance(std::int64_t stored);

// Lamps and network
/// Lamps are looked for at the known addresses, not by broadcast.
inline constexpr Switch kNoBroadcastSupport{"noBroadcastSupport"};
/// The only addresses that are spoken to, between blanks, commas or line ends; none for all.
inline constexpr Text kManualIPAddresses{"manualIPAddresses"};
/// Addresses where lamps were seen.
inline constexpr List kKnownIPs{"knownIPs"};
/// Divides the pauses between polls; 0 stops the polling.
inline constexpr Number kHeartbeatSpeed{"heartbeatSpeed", 1.0, asSpeed};
/// Seconds that a lamp takes for a change that names no time.
inline constexpr Number kDefaultTransition{"defaultTransition", 0.4};
/// Not read.
inline constexpr Switch kMakeLightStrips{"makeLightStrips", true};
/// A group is on when at least one of its lamps is (0), more than half (1), or all (2).
inline constexpr Integer kGroupPowerStateBasedOn{"groupPowerStateBasedOn", 1};
/// Switching a group on also sends its colour and brightness.
inline constexpr Switch kGroupOnOffChangesSettings{"groupOnOffChangesSettings", false};

// The panel
/// Other than 0 takes the colour wells out of the strips.
inline constexpr Integer kColourPickerType{"colourPickerType"};
/// The colour slider of a lamp sends its colour, and does not only show it in the well.
inline constexpr Switch kColourSliderActsAtOnce{"colourSliderActsAtOnce", false};
/// Levels of brightness, of 255, for each line of scrolling over a colour well.
inline constexpr Number kScrollToDimTrackingSpeed{"scrollToDimTrackingSpeed", 2.0};
inline constexpr List kSortOrder{"sortOrder"};
/// The layout, by its number in `theme`.
inline constexpr Integer kCurrentTheme{"currentTheme"};
inline constexpr Dictionary kClassicWindowState{"classicWindowState"};
inline constexpr Dictionary kHorizontalWindowState{"horizontalWindowState"};
inline constexpr Dictionary kThinWindowState{"thinWindowState"};
inline constexpr Dictionary kBoxWindowState{"boxWindowState"};

// Presets, effects and hotkeys
inline constexpr List kPresets{"presets"};
/// Seconds, for a preset that names no time.
inline constexpr Number kPresetTransition{"presetTransition", "0.5"};
inline constexpr List kEffects{"effects"};
/// The tag of the preset that sound sets off.
inline constexpr Integer kSoundTriggerPreset{"soundTriggerPreset"};
/// The title of the key that is held with a function key.
inline constexpr Text kModifier{"modifier"};
/// What each function key does.
inline constexpr std::array<Text, 15> kFunctionKeyClips{
    {{"f1clip"}, {"f2clip"}, {"f3clip"}, {"f4clip"}, {"f5clip"}, {"f6clip"}, {"f7clip"}, {"f8clip"},
        {"f13clip"}, {"f14clip"}, {"f15clip"}, {"f16clip"}, {"f17clip"}, {"f18clip"}, {"f19clip"}}};

// Schedules
inline constexpr List kActions{"GlowController actions"};
/// Minutes of dusk that are offered.
inline constexpr Number kTransitionMins{"transitionMins", "30"};
/// Which twilight counts as sunrise and sunset, 0 to 3.
inline constexpr Integer kSunriseType{"sunrisetype", "0"};
/// Sunrise and sunset change places where a schedule is set.
inline constexpr Switch kDayOrNight{"dayornight", "0"};
/// The weekday that the week chart shows, as a bit.
inline constexpr Integer kSelectedWeekday{"GCSelectedWeekday", "64"};
/// The week chart shows all days.
inline constexpr Switch kShowWeek{"GCShowWeek", 0};
inline constexpr Date kDailyChecksLastPerformed{"dailyChecksLastPerformed"};
/// Degrees.
inline constexpr Number kLatitude{"latitude"};
inline constexpr Number kLongitude{"longitude"};
/// Today's, as clock times.
inline constexpr Text kSunrise{"sunrise"};
inline constexpr Text kSunset{"sunset"};

// What an export takes in
inline constexpr Switch kExportPresets{"exportPresets", true};
/// Hotkeys too.
inline constexpr Switch kExportSchedules{"exportSchedules", true};
inline constexpr Switch kExportEffects{"exportEffects", true};
/// Not read.
inline constexpr Switch kExportHotkeys{"exportHotkeys", true};

// The program
/// Light or dark windows.
inline constexpr Integer kAppearance{"appearance", {}, asAppearance};
inline constexpr std::int64_t kAppearanceSystem = 0;
inline constexpr std::int64_t kAppearanceLight = 1;
inline constexpr std::int64_t kAppearanceDark = 2;
/// How much is logged, 0 to 3.
inline constexpr Integer kVerbosity{"verbosity", {}, asVerbosity};
/// Written at each start, and not read.
inline constexpr Switch kVeryVerboseAtStartup{"veryVerboseAtStartup"};
/// Not read.
inline constexpr Switch kSilenceWarnings{"silenceWarnings", "1"};
inline constexpr Switch kAutomaticUpdateCheck{"automaticUpdateCheck", true};
/// The program shows in the tray alone.
inline constexpr Switch kHideDockIcon{"hideDockIcon"};
/// The number of lamps that are on shows on the program's icon.
inline constexpr Switch kBadgeIcon{"badgeIcon"};

} // namespace keys

} // namespace lumeroom
