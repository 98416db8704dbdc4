#include "app/StripRecord.h"

#include <fmt/core.h>

namespace lumeroom {

namespace {

/// A lamp that has no name, or has not told it yet, takes none from its row.
std::optional<std::string> nameFrom(const std::string& label)
{
    return label.empty() ? std::nullopt : std::optional(label);
}

} // namespace

StripRecord StripRecord::of(const Lamp& lamp)
{
    StripRecord record{lamp.id, {}, lamp.capabilities, lamp.numberOfZones()};
    record.settings.adopt(lamp);
    record.settings.onoff = lamp.expectedPower();
    record.settings.label = nameFrom(lamp.label);
    record.settings.reports = lamp.reports;
    record.isNew = lamp.label.empty() && !lamp.labelIsKnown;
    return record;
}

StripRecord StripRecord::of(
    const std::string& id, const std::string& label, const Settings& summary)
{
    StripRecord record{id, {}, {}, 0};
    record.settings.adopt(summary);
    record.settings.onoff = summary.onoff;
    record.settings.label = nameFrom(label);
    return record;
}

StripRecord StripRecord::of(const Zone& zone, const Lamp& lamp)
{
    StripRecord record{zoneID(lamp, zone), {}, {}, 0};
    record.settings.adopt(zone.expectedColour());
    record.settings.onoff = lamp.expectedPower();
    record.settings.label = fmt::format("zone {}", zone.zone);
    return record;
}

std::string zoneID(const Lamp& lamp, const Zone& zone)
{
    return fmt::format("{}-{}", lamp.id, zone.zone);
}

StripRecord StripRecord::ofAll(const Settings& summary)
{
    return of(std::string(kAllLampsId), "All", summary);
}

} // namespace lumeroom
