#pragma once

#include "app/StripRecord.h"
#include "strips/StripCondition.h"
#include "strips/StripTarget.h"

namespace lumeroom {

class LampRegistry;
class Summaries;

/// Something that can be controlled, as the engine knows it.
struct KnownThing {
    StripTarget target;
    StripRecord record; ///< its label is never empty
    StripCondition condition;
    Lamps lamps; ///< of a group, a location, a tag or of all lamps
};

/// Looks up what is known.
class KnownThings {
public:
    KnownThings(const LampRegistry& registry, const Summaries& summaries)
        : m_registry(registry)
        , m_summaries(summaries)
    {
    }

    /// The lamp, zone, group, location or tag, or all lamps; nothing if there is none.
    std::optional<KnownThing> find(const StripTarget& target) const;
    /// All of them: lamps, zones, groups, locations, tags, and last the group of all lamps. Of
    /// zones the first 5,000, more than a home has: each lamp could claim 256.
    std::vector<KnownThing> all() const;

private:
    KnownThing collection(const StripTarget& target, const std::string& label, Lamps lamps) const;
    std::optional<KnownThing> findZone(const StripTarget& target) const;

    const LampRegistry& m_registry;
    const Summaries& m_summaries;
};

} // namespace lumeroom
