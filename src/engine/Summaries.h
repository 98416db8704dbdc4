#pragma once

#include "engine/Records.h"

namespace lumeroom {

/// What a collection shows when nothing is known of it.
Settings settingsOfUnknownLamps();

/// The running mean of the lamps' colours, and the power of the last lamp. Each lamp pulls the
/// values halfway, so the last counts for one half and the one before for a quarter. No lamps give
/// zeros and off.
Settings summaryOfLamps(const Lamps& lamps);

/// The same over a lamp's zones, in their order of arrival, with no power.
/// A lamp without zones gives `settingsOfUnknownLamps`.
Settings settingsForMultiZoneLamp(const Lamp& lamp);

/// How a group's power follows from its lamps: the user default "groupPowerStateBasedOn" is 0 for
/// any lamp on, 1 for more than half, 2 for all; with another value the group never reads as on.
bool groupIsOn(const Lamps& lamps, std::int64_t basedOn);

} // namespace lumeroom
