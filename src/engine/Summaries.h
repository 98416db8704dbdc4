#pragma once

#include "engine/Records.h"

namespace lumeroom {

class LampRegistry;
class UserDefaults;

/// Collections as if each were one lamp: the running mean of the lamps' colours, in which each lamp
/// pulls the values halfway, so that the last counts for one half and the one before for a quarter.
/// An ID that names nothing, and a collection without lamps, give zeros and off; only where all
/// lamps of a group have to be on does one without lamps count as on.
class Summaries {
public:
    Summaries(const LampRegistry& registry, const UserDefaults& defaults);

    /// Takes the ID of a group, a location or a tag, or "0" for all lamps. On or off follows the
    /// user default "groupPowerStateBasedOn": 0 for any lamp on, 1 for more than half, 2 for all;
    /// with another value the group never reads as on.
    Settings settingsForGroup(std::string_view id) const;
    /// The same of a group whose lamps are at hand.
    Settings settingsForLampsOfGroup(const Lamps& lamps) const;
    /// As powered as the last lamp.
    Settings settingsForTag(std::string_view id) const;
    Settings settingsForLocation(std::string_view id) const;

private:
    const LampRegistry& m_registry;
    const UserDefaults& m_defaults;
};

/// The mean of lamps, as powered as the last.
Settings settingsForLamps(const Lamps& lamps);

/// The same over the zones that a lamp has, in their order of arrival, with no power. A lamp
/// without zones reads as all lamps do before any has answered.
Settings settingsForMultiZoneLamp(const Lamp& lamp);
/// A light strip's own record shows its zones. One without a state yet waits for its first report
/// of power.
void adoptMeanOfZones(Lamp& lamp);

} // namespace lumeroom
