#include "app/StripReports.h"

#include "app/StripCollection.h"
#include "app/StripFactory.h"
#include "base/Log.h"
#include "engine/Summaries.h"
#include "strips/GroupingAccess.h"

namespace lumeroom {

StripReports::StripReports(const Summaries& summaries, const StripCollection& collection,
    const StripFactory& factory, Log& log)
    : m_summaries(summaries)
    , m_collection(collection)
    , m_factory(factory)
    , m_log(log)
{
}

void StripReports::updateLamps(const Lamps& lamps) const
{
    for (const auto& lamp : lamps) {
        const auto strip = m_collection.getStripWithID(lamp->id);
        if (!strip)
            continue;
        if (lamp->capabilities)
            strip->setCapabilities(*lamp->capabilities);
        if (!lamp->onoff || !lamp->brightness)
            continue;
        if (lamp->zones)
            m_factory.showZones(*strip, lamp->numberOfZones());
        strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(
            StripRecord::of(*lamp).settings);
    }
}

void StripReports::updateZones(const Lamp& lamp) const
{
    for (const Zone& zone : lamp.ownZones()) {
        const StripRecord record = StripRecord::of(zone, lamp);
        if (const auto strip = m_collection.getStripWithID(record.id))
            strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(record.settings);
    }
}

void StripReports::updateGroups(const Groups& groups) const
{
    for (const auto& group : groups)
        showSummary(group->id, StripType::Group);
}

void StripReports::updateLocations(const Locations& locations) const
{
    for (const auto& location : locations)
        showSummary(location->id, StripType::Location);
}

void StripReports::updateTags(const Tags& tags) const
{
    for (const auto& tag : tags)
        showSummary(tag->id, StripType::Tag);
}

void StripReports::updateGroupAll() const
{
    if (!m_collection.getGroupStripWithID(kAllLampsId)) {
        if (m_log.shows(1))
            m_log.line("can't find all group");
        return;
    }
    showSummary(kAllLampsId, StripType::Group);
}

void StripReports::showSummary(std::string_view id, StripType type) const
{
    const auto strip = m_collection.getGroupStripWithID(id);
    if (!strip)
        return;
    const Settings summary = groupingAccess(type)->summary(m_summaries, id);
    if (!summary.onoff || !summary.brightness)
        return;
    StripSettings report;
    report.adopt(summary);
    report.onoff = summary.onoff;
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(report);
}

} // namespace lumeroom
