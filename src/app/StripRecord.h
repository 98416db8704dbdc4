#pragma once

#include "engine/Records.h"
#include "strips/StripSettings.h"

namespace lumeroom {

/// What a strip is made from: a lamp's record, a group's, location's or tag's with a summary of
/// its lamps, or a zone's.
struct StripRecord {
    std::string id;
    StripSettings settings; ///< with the label
    std::optional<int> capabilities;
    std::size_t zones = 0; ///< of a multizone lamp
    bool isNew = false; ///< a lamp that has not told its name yet

    static StripRecord of(const Lamp& lamp);
    /// A group, location or tag; the summary's members win.
    static StripRecord of(const std::string& id, const std::string& label, const Settings& summary);
    static StripRecord of(const Zone& zone, const Lamp& lamp);
    /// All lamps.
    static StripRecord ofAll(const Settings& summary);
};

/// Shows in place of the name of a lamp that has not told it.
inline constexpr const char* kNameOfNewLamp = "New lamp";

/// The lamp's ID, "-", the number.
std::string zoneID(const Lamp& lamp, const Zone& zone);

} // namespace lumeroom
