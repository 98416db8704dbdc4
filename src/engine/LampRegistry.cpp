#include "engine/LampRegistry.h"

#include "base/Log.h"

#include <algorithm>
#include <bit>

namespace lumeroom {

namespace {

std::uint64_t integerOf(const Target& target)
{
    return std::bit_cast<std::uint64_t>(target);
}

/// The first record that satisfies the test, in array order.
template <typename Record, typename Test>
std::shared_ptr<Record> firstOf(const std::vector<std::shared_ptr<Record>>& records, Test test)
{
    const auto found = std::find_if(
        records.begin(), records.end(), [&test](const auto& record) { return test(*record); });
    return found == records.end() ? nullptr : *found;
}

template <typename Records>
std::optional<std::string> idOfFirstNamed(const Records& records, std::string_view name)
{
    const auto found
        = firstOf(records, [name](const auto& record) { return record.label == name; });
    return found ? std::optional(found->id) : std::nullopt;
}

template <typename Test> Lamps lampsWhere(const Lamps& lamps, Test test)
{
    Lamps result;
    std::copy_if(lamps.begin(), lamps.end(), std::back_inserter(result),
        [&test](const auto& lamp) { return test(*lamp); });
    return result;
}

} // namespace

std::shared_ptr<Lamp> LampRegistry::addLamp(const std::string& address)
{
    if (lampAtAddress(address))
        return nullptr;
    auto lamp = std::make_shared<Lamp>();
    m_byAddress.emplace(address, lamp.get());
    lamp->address = address;
    m_lamps.push_back(lamp);
    return lamp;
}

void LampRegistry::remove(const std::shared_ptr<Lamp>& lamp)
{
    m_byAddress.erase(lamp->address);
    if (const auto sharing = m_byID.find(lamp->id); sharing != m_byID.end()) {
        std::erase(sharing->second, lamp);
        const std::uint64_t target = integerOf(*lamp->mac);
        m_firstByTarget.erase(target);
        if (sharing->second.empty())
            m_byID.erase(sharing);
        else
            m_firstByTarget.emplace(target, sharing->second.front().get());
    }
    std::erase(m_lamps, lamp);
}

Lamp* LampRegistry::lampAtAddress(const std::string& address) const
{
    const auto found = m_byAddress.find(address);
    return found == m_byAddress.end() ? nullptr : found->second;
}

void LampRegistry::identify(const std::shared_ptr<Lamp>& lamp, const Target& target)
{
    lamp->mac = target;
    lamp->id = getIDFromMAC(target);
    m_firstByTarget.emplace(integerOf(target), lamp.get());
    m_byID[lamp->id].push_back(lamp);
}

Lamp* LampRegistry::lampWithTarget(const Target& target) const
{
    const auto found = m_firstByTarget.find(integerOf(target));
    return found == m_firstByTarget.end() ? nullptr : found->second;
}

std::shared_ptr<Lamp> LampRegistry::lampWithID(std::string_view id) const
{
    const Lamps& lamps = lampsWithID(id);
    return lamps.empty() ? nullptr : lamps.front();
}

const Lamps& LampRegistry::lampsWithID(std::string_view id) const
{
    static const Lamps kNone;
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? kNone : found->second;
}

std::shared_ptr<Group> LampRegistry::groupWithID(std::string_view id) const
{
    return firstOf(m_groups, [id](const Group& group) { return group.id == id; });
}

std::shared_ptr<Location> LampRegistry::locationWithID(std::string_view id) const
{
    return firstOf(m_locations, [id](const Location& location) { return location.id == id; });
}

std::shared_ptr<const Tag> LampRegistry::tagNamed(std::string_view name) const
{
    return firstOf(m_tags, [name](const Tag& tag) { return tag.label == name; });
}

std::optional<std::string> LampRegistry::IDForGroupNamed(std::string_view name) const
{
    return idOfFirstNamed(m_groups, name);
}

std::optional<std::string> LampRegistry::IDForLocationNamed(std::string_view name) const
{
    return idOfFirstNamed(m_locations, name);
}

Lamps LampRegistry::lightsArrayForGroup(std::string_view id) const
{
    if (id == kAllLampsId)
        return m_lamps;
    if (groupWithID(id)) {
        return lampsWhere(
            m_lamps, [id](const Lamp& lamp) { return lamp.group && lamp.group->id == id; });
    }
    if (locationWithID(id))
        return lightsArrayForLocation(id);
    if (tagNamed(id))
        return lightsArrayForTag(id);
    return {};
}

Lamps LampRegistry::lightsArrayForLocation(std::string_view id) const
{
    return lampsWhere(
        m_lamps, [id](const Lamp& lamp) { return lamp.location && lamp.location->id == id; });
}

Lamps LampRegistry::lightsArrayForTag(std::string_view id) const
{
    return lampsWhere(m_lamps, [id](const Lamp& lamp) {
        return lamp.tags && firstOf(*lamp.tags, [id](const Tag& tag) { return tag.id == id; });
    });
}

Tags LampRegistry::tagArrayForTags(std::uint64_t field) const
{
    Tags result;
    std::copy_if(m_tags.begin(), m_tags.end(), std::back_inserter(result),
        [field](const auto& tag) { return (tag->tag & field) != 0; });
    return result;
}

std::int64_t LampRegistry::integerTagForLamp(const Lamp& lamp) const
{
    if (!lamp.mac) {
        m_log.line("problem making integerTag for lamp:{}", description(lamp.toDictionary()));
        return 0;
    }
    return std::bit_cast<std::int64_t>(*lamp.mac);
}

std::shared_ptr<Lamp> LampRegistry::lampForIntegerTag(std::int64_t tag) const
{
    return firstOf(
        m_lamps, [this, tag](const Lamp& lamp) { return integerTagForLamp(lamp) == tag; });
}

std::shared_ptr<Group> LampRegistry::groupForIntegerTag(std::int64_t tag) const
{
    return firstOf(
        m_groups, [tag](const Group& group) { return integerTagForGroup(group) == tag; });
}

std::shared_ptr<Location> LampRegistry::locationForIntegerTag(std::int64_t tag) const
{
    return firstOf(m_locations,
        [tag](const Location& location) { return integerTagForLocation(location) == tag; });
}

std::shared_ptr<const Tag> LampRegistry::tagForIntegerTag(std::int64_t tag) const
{
    return firstOf(m_tags, [tag](const Tag& known) { return integerTagForTag(known) == tag; });
}

std::optional<std::string> LampRegistry::stripStyleIDforIntTag(std::int64_t tag) const
{
    if (tag == 0)
        return std::string(kAllLampsId);
    const auto idOf
        = [this](const auto& record, std::string_view kind) -> std::optional<std::string> {
        if (!record)
            return {};
        if (record->id.empty()) {
            m_log.line("{} {} doesn't have an id!", kind, description(record->toDictionary()));
            return {};
        }
        return record->id;
    };
    if (auto id = idOf(lampForIntegerTag(tag), "lamp"))
        return id;
    if (auto id = idOf(groupForIntegerTag(tag), "group"))
        return id;
    if (auto id = idOf(locationForIntegerTag(tag), "location"))
        return id;
    return idOf(tagForIntegerTag(tag), "tag");
}

} // namespace lumeroom
