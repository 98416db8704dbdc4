#pragma once

#include "engine/Records.h"

namespace lumeroom {

class Log;
class StripCollection;
class StripFactory;
class Summaries;
enum class StripType;

/// Brings what the engine knows to the strips, without anything being sent back.
class StripReports {
public:
    StripReports(const Summaries& summaries, const StripCollection& collection,
        const StripFactory& factory, Log& log);

    void updateLamps(const Lamps& lamps) const;
    void updateZones(const Lamp& lamp) const;
    void updateGroups(const Groups& groups) const;
    void updateLocations(const Locations& locations) const;
    void updateTags(const Tags& tags) const;
    void updateGroupAll() const;

private:
    void showSummary(std::string_view id, StripType type) const;

    const Summaries& m_summaries;
    const StripCollection& m_collection;
    const StripFactory& m_factory;
    Log& m_log;
};

} // namespace lumeroom
