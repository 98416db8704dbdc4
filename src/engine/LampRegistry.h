#pragma once

#include "engine/Records.h"

#include <unordered_map>

namespace lumeroom {

class Log;

/// Every lamp heard from, and the groups, locations and tags they carry, in order of arrival.
/// Nothing leaves because a lamp went silent.
class LampRegistry {
public:
    explicit LampRegistry(Log& log)
        : m_log(log)
    {
    }

    /// Every record: a lamp that was heard at several addresses has one for each.
    const Lamps& lightsArray() const { return m_lamps; }
    /// Each lamp once, by the record that look-ups find.
    const Lamps& distinctLamps() const { return m_distinct; }
    Groups& groupsArray() { return m_groups; }
    const Groups& groupsArray() const { return m_groups; }
    Locations& locationssArray() { return m_locations; }
    const Locations& locationssArray() const { return m_locations; }
    Tags& tagsArray() { return m_tags; }
    const Tags& tagsArray() const { return m_tags; }

    /// A new record of this lamp at this address, or null when there is one. A lamp that comes back
    /// at a new address has a second record with the same ID, by which it is reached there;
    /// look-ups find the older, and reports go to it.
    std::shared_ptr<Lamp> addLamp(const std::string& address, const Target& target);
    /// Forgets a record, for good.
    void remove(const std::shared_ptr<Lamp>& lamp);
    /// The records at an address: several where one lamp took it over from another.
    const Lamps& lampsAtAddress(const std::string& address) const;
    Lamp* lampAtAddress(const std::string& address, const Target& target) const;

    Lamp* lampWithTarget(const Target& target) const;
    std::shared_ptr<Lamp> lampWithID(std::string_view id) const;
    std::shared_ptr<Group> groupWithID(std::string_view id) const;
    std::shared_ptr<Location> locationWithID(std::string_view id) const;
    std::shared_ptr<const Tag> tagNamed(std::string_view name) const;
    /// Of the first with this label.
    std::optional<std::string> IDForGroupNamed(std::string_view name) const;
    std::optional<std::string> IDForLocationNamed(std::string_view name) const;

    /// The lamps of a group, else of a location, else of a tag with this ID; "0" means all. Each
    /// lamp is there once.
    Lamps lightsArrayForGroup(std::string_view id) const;
    Lamps lightsArrayForLocation(std::string_view id) const;
    Lamps lightsArrayForTag(std::string_view id) const;

    /// The known tags that share a bit with the field.
    Tags tagArrayForTags(std::uint64_t field) const;

    // One integer for each thing, for menus and schedules
    std::int64_t integerTagForLamp(const Lamp& lamp) const;
    std::shared_ptr<Lamp> lampForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<Group> groupForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<Location> locationForIntegerTag(std::int64_t tag) const;
    std::shared_ptr<const Tag> tagForIntegerTag(std::int64_t tag) const;
    /// The ID of the lamp, group, location or tag with this integer, tried in that order; "0" for
    /// 0; nothing if it names none.
    std::optional<std::string> stripStyleIDforIntTag(std::int64_t tag) const;

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };

    Log& m_log;
    Lamps m_lamps;
    Groups m_groups;
    Locations m_locations;
    Tags m_tags;
    Lamps m_distinct;
    std::unordered_map<std::string, Lamps> m_byAddress;
    std::unordered_map<std::uint64_t, Lamp*> m_firstByTarget;
    /// One datagram asks for its lamp several times.
    mutable std::pair<std::uint64_t, Lamp*> m_lastFound;
    std::unordered_map<std::string, std::shared_ptr<Lamp>, TextHash, std::equal_to<>> m_byID;
};

/// The integer tags of the other kinds of record.
inline std::int64_t integerTagForGroup(const Group& group)
{
    return group.integerId;
}
inline std::int64_t integerTagForLocation(const Location& location)
{
    return location.integerId;
}
inline std::int64_t integerTagForTag(const Tag& tag)
{
    return static_cast<std::int64_t>(tag.tag);
}

} // namespace lumeroom
