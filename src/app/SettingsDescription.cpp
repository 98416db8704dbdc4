#include "app/SettingsDescription.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/AddressList.h"
#include "engine/LampUnits.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace lumeroom {

namespace {

using Kind = Setting::Kind;
using Form = Setting::Form;

constexpr std::string_view kLamps = "&Lamps && network";
constexpr std::string_view kGroups = "&Groups";
constexpr std::string_view kPanel = "&Panel && colours";
constexpr std::string_view kLog = "L&og";

/// The heartbeat takes what is no speed as 1.
double asSpeed(double stored)
{
    return stored >= 0 ? std::abs(stored) : 1.0;
}

/// As it goes to the lamps: in 32 bits, so that a time below 0 is one of many days.
double asTransition(double stored)
{
    return millisecondsFromSeconds(stored) / 1000.0;
}

double asLogLevel(double stored)
{
    return std::clamp(stored, 0.0, 3.0);
}

const std::vector<Setting>& table()
{
    static const std::vector<Setting> kTable{
        {kLamps, keys::kManualIPAddresses, Kind::Addresses, Form::Text, "Lamp &addresses",
            "Leave this empty to let the program search the local network. With addresses here it "
            "speaks to them alone; put one on each line."},
        {kLamps, keys::kNoBroadcastSupport, Kind::Switch, Form::Boolean,
            "This network does not carry &broadcasts",
            "Lamps are then looked for at addresses that the computer has seen before."},
        {kLamps, keys::kHeartbeatSpeed, Kind::Number, Form::Real, "Polling &speed",
            "At 1 the lamps are asked for their state every 3 seconds, at 2 twice as often. With "
            "more than nine lamps a lower speed keeps up better.",
            {0.1, 10, 0.1, 1, " ×"}, {}, {}, asSpeed},
        {kLamps, keys::kDefaultTransition, Kind::Number, Form::Real, "&Fade time",
            "How long a lamp takes to get to a new colour or to switch.", {0, 60, 0.1, 1, " s"}, {},
            {}, asTransition},
        {kGroups, keys::kGroupPowerStateBasedOn, Kind::Choice, Form::Integer,
            "A group counts as on w&hen", {}, {},
            {{0, "at least one lamp is on"}, {1, "more than half of its lamps are on"},
                {2, "all of its lamps are on"}},
            "never"},
        {kGroups, keys::kGroupOnOffChangesSettings, Kind::Switch, Form::Boolean,
            "Switching a group on also sends its &settings",
            "Its lamps then take on the colour and brightness of the group's controls."},
        {kPanel, keys::kColourPickerType, Kind::Switch, Form::Integer,
            "Hide the colour &wells in the strips"},
        {kPanel, keys::kScrollToDimTrackingSpeed, Kind::Number, Form::Real, "&Scrolling speed",
            "How much each line of scrolling over a colour well changes the brightness, in steps "
            "of 1/255.",
            {0.5, 25, 0.5, 1, {}}},
        {kPanel, keys::kBadgeIcon, Kind::Switch, Form::Boolean,
            "Show on the program's &icon how many lamps are on",
            "On desktops whose dock or task bar puts numbers on icons."},
        {kPanel, keys::kHideDockIcon, Kind::Switch, Form::Boolean,
            "Keep the program out of the &task bar",
            "Use its icon in the tray instead. Takes effect at the next start."},
        {kLog, keys::kVerbosity, Kind::Choice, Form::Integer, "&Detail",
            "Shown in the console. The two highest levels last until you quit; the program then "
            "starts at Operation again.",
            {}, {{0, "Essentials"}, {1, "Operation"}, {2, "Detail"}, {3, "Every event"}}, {},
            asLogLevel},
    };
    return kTable;
}

double meaningOf(const Setting& setting, double stored)
{
    return setting.meaning ? setting.meaning(stored) : stored;
}

} // namespace

std::span<const Setting> allSettings()
{
    return table();
}

double numberFor(const Setting& setting, const UserDefaults& defaults)
{
    return meaningOf(setting, defaults.floatForKey(setting.key));
}

bool switchFor(const Setting& setting, const UserDefaults& defaults)
{
    return setting.form == Form::Boolean ? defaults.boolForKey(setting.key)
                                         : choiceFor(setting, defaults) != 0;
}

int choiceFor(const Setting& setting, const UserDefaults& defaults)
{
    constexpr double kMost = std::numeric_limits<int>::max();
    const auto stored = static_cast<double>(defaults.integerForKey(setting.key));
    return static_cast<int>(std::clamp(meaningOf(setting, stored), -kMost, kMost));
}

std::string textFor(const Setting& setting, const UserDefaults& defaults)
{
    return defaults.stringForKey(setting.key);
}

void storeNumber(const Setting& setting, double number, UserDefaults& defaults)
{
    const double unit = std::pow(10.0, setting.range.decimals);
    const double rounded = std::round(number * unit) / unit;
    switch (setting.form) {
    case Form::Boolean:
        defaults.setObject(setting.key, rounded != 0);
        break;
    case Form::Integer:
        defaults.setObject(setting.key, static_cast<std::int64_t>(rounded));
        break;
    case Form::Real:
        defaults.setObject(setting.key, rounded);
        break;
    case Form::Text:
        break; // no number
    }
}

void storeText(const Setting& setting, const std::string& text, UserDefaults& defaults)
{
    defaults.setObject(setting.key, text);
}

void restoreDefaults(std::string_view page, UserDefaults& defaults)
{
    for (const Setting& setting : allSettings()) {
        if (setting.page == page)
            defaults.removeObject(setting.key);
    }
}

std::string addressListSummary(std::string_view text)
{
    const std::size_t count = addressesInList(text).size();
    std::string summary = count == 1 ? "1 address" : fmt::format("{} addresses", count);
    std::string rest;
    for (const std::string& piece : piecesOfAddressList(text)) {
        if (addressesInList(piece).empty())
            rest += (rest.empty() ? "" : ", ") + piece;
    }
    if (!rest.empty())
        return summary + "; not understood: " + rest;
    return count == 0 ? "No address: the whole network is searched" : summary;
}

} // namespace lumeroom
