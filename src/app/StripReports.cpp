#include "app/StripReports.h"

#include "app/StripCollection.h"
#include "app/StripFactory.h"
#include "base/Log.h"
#include "engine/LampRegistry.h"
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

void StripReports::updateConditions(const LampRegistry& registry) const
{
    for (const auto& strip : m_collection.strips())
        strip->setCondition(StripCondition::of(strip->target(), registry));
}

void StripReports::updateLamps(const Lamps& lamps) const
{
    for (const auto& lamp : lamps) {
        const auto strip = m_collection.getStripWithID(lamp->id);
        if (!strip)
            continue;
        if (lamp->capabilities)
            strip->setCapabilities(*lamp->capabilities);
        const StripRecord record = StripRecord::of(*lamp);
        // Its name comes at once in the place of the stand-in, also while other reports are held
        // off.
        if (strip->label().hasStandIn() && !record.isNew)
            strip->label().setText(record.settings.label.value_or(strip->label().text()));
        strip->label().setStandIn(record.isNew ? kNameOfNewLamp : "");
        if (!lamp->onoff || !lamp->brightness)
            continue;
        if (record.zones > 0)
            m_factory.showZones(*strip, record.zones);
        strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(record.settings);
    }
}

void StripReports::updateZones(const Lamp& lamp) const
{
    for (const Zone& zone : lamp.zonesInOrder()) {
        const StripRecord record = StripRecord::of(zone, lamp);
        if (const auto strip = m_collection.getStripWithID(record.id))
            strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(record.settings);
    }
}

void StripReports::updateGroupings(const GroupingAccess& access, const LampRegistry& registry) const
{
    access.forEach(registry, [&](const std::string& id, const std::string&) {
        const auto strip = m_collection.getGroupStripWithID(id);
        if (!strip)
            return;
        m_factory.showLampCount(*strip);
        showSummary(*strip, access.summary(m_summaries, id));
    });
}

void StripReports::updateGroupAll() const
{
    if (const auto strip = m_collection.getGroupStripWithID(kAllLampsId))
        showSummary(*strip, m_summaries.settingsForGroup(kAllLampsId));
    else if (m_log.shows(1))
        m_log.line("can't find all group");
}

void StripReports::showSummary(LampControlStrip& strip, const Settings& summary) const
{
    if (!summary.onoff || !summary.brightness)
        return;
    StripSettings report;
    report.adopt(summary);
    report.onoff = summary.onoff;
    strip.implementSettingsFromDictionaryWithoutActingObservingEmbargo(report);
}

} // namespace lumeroom
