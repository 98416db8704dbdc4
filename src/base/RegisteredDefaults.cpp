#include "base/RegisteredDefaults.h"

#include "base/DefaultsKeys.h"

namespace lumeroom {

Value::Dictionary registeredDefaults()
{
    const std::pair<std::string_view, Value> kTable[] = {
        {keys::kTransitionMins, "30"},
        {keys::kPresetTransition, "0.5"},
        {keys::kSilenceWarnings, "1"},
        {keys::kSunriseType, "0"},
        {keys::kDayOrNight, "0"},
        {keys::kSelectedWeekday, "64"},
        {keys::kShowWeek, 0},
        {keys::kMakeLightStrips, true},
        {keys::kHeartbeatSpeed, 1.0},
        {keys::kScrollToDimTrackingSpeed, 2.0},
        {keys::kDefaultTransition, 0.4},
        {keys::kExportPresets, true},
        {keys::kExportSchedules, true},
        {keys::kExportEffects, true},
        {keys::kExportHotkeys, true},
        {keys::kGroupPowerStateBasedOn, 1},
        {keys::kGroupOnOffChangesSettings, false},
        {keys::kAutomaticUpdateCheck, true},
    };
    Value::Dictionary defaults;
    for (const auto& [key, value] : kTable)
        defaults.emplace(key, value);
    return defaults;
}

} // namespace lumeroom
