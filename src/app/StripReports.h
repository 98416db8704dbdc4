#pragma once

#include "engine/Records.h"

namespace lumeroom {

class Log;
class LampControlStrip;
class LampRegistry;
class StripCollection;
class StripFactory;
class Summaries;
struct GroupingAccess;

/// Brings what the engine knows to the strips, without anything being sent back.
class StripReports {
public:
    StripReports(const Summaries& summaries, const StripCollection& collection,
        const StripFactory& factory, Log& log);

    /// What the captions say of the lamps, which may only have been sent something.
    void updateConditions(const LampRegistry& registry) const;
    void updateLamps(const Lamps& lamps) const;
    void updateZones(const Lamp& lamp) const;
    void updateGroupings(const GroupingAccess& access, const LampRegistry& registry) const;
    void updateGroupAll() const;

private:
    void showSummary(LampControlStrip& strip, const Settings& summary) const;

    const Summaries& m_summaries;
    const StripCollection& m_collection;
    const StripFactory& m_factory;
    Log& m_log;
};

} // namespace lumeroom
