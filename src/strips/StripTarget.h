#pragma once

#include "engine/Records.h"

#include <string>
#include <tuple>

namespace lumeroom {

class EngineRoom;
class LampCommands;
class LampRegistry;

/// The kinds of target.
enum class StripType { None = 0, Lamp = 1, Group = 2, Location = 3, Tag = 4, Zone = 5 };

/// What a strip controls, and the way there: each kind has its own operations of the engine.
struct StripTarget {
    /// A zone's is its lamp's ID, "-" and the zone's number; "0" stands for all lamps.
    std::string id;
    StripType type = StripType::None;

    bool isGroup() const;
    bool isKnown(const LampRegistry& registry) const;
    /// The lamp's own ID, or that of a zone's lamp.
    std::string_view lampID() const;
    /// The lamps of a grouping, the lamp itself, or the one of a zone; none if nothing is known of
    /// it.
    Lamps lamps(const LampRegistry& registry) const;
    bool operator==(const StripTarget&) const = default;
    bool operator<(const StripTarget& other) const
    {
        return std::tie(type, id) < std::tie(other.type, other.id);
    }

    /// For a group, a location or a tag; nothing for the other kinds.
    void sendSettingsToGroup(LampCommands& commands, const Settings& settings) const;
    void groupOn(LampCommands& commands, bool on) const;
    /// For every kind.
    void sendSettings(LampCommands& commands, const Settings& settings) const;
    /// Nothing for a tag.
    void rename(EngineRoom& engineRoom, const std::string& name) const;
};

} // namespace lumeroom
