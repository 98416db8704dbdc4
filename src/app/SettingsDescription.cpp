#include "app/SettingsDescription.h"

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

constexpr std::string_view kLamps = "&Lamps && network";
constexpr std::string_view kGroups = "&Groups";
constexpr std::string_view kPanel = "&Panel && colours";
constexpr std::string_view kLog = "L&og";

/// As it goes to the lamps: in 32 bits, so that a time below 0 is one of many days.
double asTransition(double stored)
{
    return millisecondsFromSeconds(stored) / 1000.0;
}

const std::vector<Setting>& table()
{
    static const std::vector<Setting> kTable{
        {kLamps, keys::kManualIPAddresses, Kind::Addresses, "Lamp &addresses",
            "Leave this empty to let the program search the local network. With addresses here it "
            "speaks to them alone; put one on each line."},
        {kLamps, keys::kNoBroadcastSupport, Kind::Switch, "This network does not carry &broadcasts",
            "Lamps are then looked for at addresses that the computer has seen before."},
        {kLamps, keys::kHeartbeatSpeed, Kind::Number, "Polling &speed",
            "At 1 the lamps are asked for their state every 3 seconds, at 2 twice as often. With "
            "more than nine lamps a lower speed keeps up better.",
            {0.1, 10, 0.1, 1, " ×"}},
        {kLamps, keys::kDefaultTransition, Kind::Number, "&Fade time",
            "How long a lamp takes to get to a new colour or to switch.", {0, 60, 0.1, 1, " s"}, {},
            {}, asTransition},
        {kGroups, keys::kGroupPowerStateBasedOn, Kind::Choice, "A group counts as on w&hen", {}, {},
            {{0, "at least one lamp is on"}, {1, "more than half of its lamps are on"},
                {2, "all of its lamps are on"}},
            "never"},
        {kGroups, keys::kGroupOnOffChangesSettings, Kind::Switch,
            "Switching a group on also sends its &settings",
            "Its lamps then take on the colour and brightness of the group's controls."},
        {kPanel, keys::kColourPickerType, Kind::Switch, "Hide the colour &wells in the strips"},
        {kPanel, keys::kColourSliderActsAtOnce, Kind::Switch, "The &colour slider acts at once",
            "Otherwise it shows its colour in the well, and the lamp gets it with Return or a "
            "click on the ring round the well."},
        {kPanel, keys::kScrollToDimTrackingSpeed, Kind::Number, "&Scrolling speed",
            "How much each line of scrolling over a colour well changes the brightness, in steps "
            "of 1/255.",
            {0.5, 25, 0.5, 1, {}}},
        {kPanel, keys::kBadgeIcon, Kind::Switch,
            "Show on the program's &icon how many lamps are on",
            "On desktops whose dock or task bar puts numbers on icons."},
        {kPanel, keys::kHideDockIcon, Kind::Switch, "Keep the program out of the &task bar",
            "Use its icon in the tray instead. Takes effect at the next start."},
        {kLog, keys::kVerbosity, Kind::Choice, "&Detail",
            "Shown in the console. The two highest levels last until you quit; the program then "
            "starts at Operation again.",
            {}, {{0, "Essentials"}, {1, "Operation"}, {2, "Detail"}, {3, "Every event"}}},
    };
    return kTable;
}

} // namespace

std::span<const Setting> allSettings()
{
    return table();
}

double numberFor(const Setting& setting, const UserDefaults& defaults)
{
    const double number = std::visit(
        [&](const auto& key) {
            if constexpr (std::is_same_v<decltype(key), const keys::Text&>)
                return 0.0;
            else
                return static_cast<double>(defaults.get(key));
        },
        setting.key);
    return setting.meaning ? setting.meaning(number) : number;
}

bool switchFor(const Setting& setting, const UserDefaults& defaults)
{
    return numberFor(setting, defaults) != 0;
}

int choiceFor(const Setting& setting, const UserDefaults& defaults)
{
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(numberFor(setting, defaults), -kMost, kMost));
}

std::string textFor(const Setting& setting, const UserDefaults& defaults)
{
    const auto* key = std::get_if<keys::Text>(&setting.key);
    return key ? defaults.get(*key) : std::string();
}

void storeNumber(const Setting& setting, double number, UserDefaults& defaults)
{
    const double unit = std::pow(10.0, setting.range.decimals);
    const double rounded = std::round(number * unit) / unit;
    if (std::holds_alternative<keys::Switch>(setting.key))
        defaults.setObject(setting.name(), rounded != 0);
    else if (std::holds_alternative<keys::Integer>(setting.key))
        defaults.setObject(setting.name(), static_cast<std::int64_t>(rounded));
    else if (std::holds_alternative<keys::Number>(setting.key))
        defaults.setObject(setting.name(), rounded);
}

void storeText(const Setting& setting, const std::string& text, UserDefaults& defaults)
{
    defaults.setObject(setting.name(), text);
}

void restoreDefaults(std::string_view page, UserDefaults& defaults)
{
    for (const Setting& setting : allSettings()) {
        if (setting.page == page)
            defaults.removeObject(setting.name());
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
