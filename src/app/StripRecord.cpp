#include "app/StripRecord.h"

#include <fmt/core.h>

namespace lumeroom {

StripRecord StripRecord::of(const Lamp& lamp)
{
    StripRecord record{lamp.id, {}, lamp.capabilities, lamp.zones ? lamp.zones->size() : 0};
    record.settings.adopt(lamp);
    record.settings.onoff = lamp.onoff;
    record.settings.label = lamp.label;
    record.settings.reports = lamp.reports;
    return record;
}

StripRecord StripRecord::of(
    const std::string& id, const std::string& label, const Settings& summary)
{
    StripRecord record{id, {}, {}, 0};
    record.settings.adopt(summary);
    record.settings.onoff = summary.onoff;
    record.settings.label = label;
    return record;
}

StripRecord StripRecord::of(const Zone& zone, const Lamp& lamp)
{
    StripRecord record{fmt::format("{}-{}", lamp.id, zone.zone), {}, {}, 0};
    record.settings.adopt(zone);
    record.settings.onoff = lamp.onoff;
    record.settings.label = fmt::format("zone {}", zone.zone);
    return record;
}

StripRecord StripRecord::ofAll(const Settings& summary)
{
    return of(std::string(kAllLampsId), "All", summary);
}

} // namespace lumeroom
