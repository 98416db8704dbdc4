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

std::shared_ptr<Lamp> LampRegistry::addLamp(const std::string& address, const Target& target)
{
    if (lampAtAddress(address, target))
        return nullptr;
    auto lamp = std::make_shared<Lamp>();
    lamp->address = address;
    lamp->mac = target;
    lamp->id = getIDFromMAC(target);
    m_lamps.push_back(lamp);
    m_byAddress[address].push_back(lamp);
    const auto& first = m_byID.try_emplace(lamp->id, lamp).first->second;
    if (first != lamp) {
        first->elsewhere.push_back(lamp);
    } else {
        m_distinct.push_back(lamp);
        m_firstByTarget.emplace(integerOf(target), lamp.get());
    }
    return lamp;
}

void LampRegistry::remove(const std::shared_ptr<Lamp>& lamp)
{
    m_lastFound = {};
    std::erase(m_lamps, lamp);
    const auto there = m_byAddress.find(lamp->address);
    std::erase(there->second, lamp);
    if (there->second.empty())
        m_byAddress.erase(there);

    std::shared_ptr<Lamp>& first = m_byID.at(lamp->id);
    if (first != lamp) {
        std::erase(first->elsewhere, lamp);
    } else if (lamp->elsewhere.empty()) {
        std::erase(m_distinct, lamp);
        m_firstByTarget.erase(integerOf(*lamp->mac));
        m_byID.erase(lamp->id);
    } else {
        first = lamp->elsewhere.front();
        first->inherit(*lamp);
        first->elsewhere.erase(first->elsewhere.begin());
        std::replace(m_distinct.begin(), m_distinct.end(), lamp, first);
        m_firstByTarget.insert_or_assign(integerOf(*lamp->mac), first.get());
    }
}

const Lamps& LampRegistry::lampsAtAddress(const std::string& address) const
{
    static const Lamps kNone;
    const auto found = m_byAddress.find(address);
    return found == m_byAddress.end() ? kNone : found->second;
}

Lamp* LampRegistry::lampAtAddress(const std::string& address, const Target& target) const
{
    return firstOf(lampsAtAddress(address), [&target](const Lamp& lamp) {
        return lamp.mac == target;
    }).get();
}

Lamp* LampRegistry::lampWithTarget(const Target& target) const
{
    const std::uint64_t wanted = integerOf(target);
    if (m_lastFound.second && m_lastFound.first == wanted)
        return m_lastFound.second;
    const auto found = m_firstByTarget.find(wanted);
    m_lastFound = {wanted, found == m_firstByTarget.end() ? nullptr : found->second};
    return m_lastFound.second;
}

std::shared_ptr<Lamp> LampRegistry::lampWithID(std::string_view id) const
{
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? nullptr : found->second;
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
        return m_distinct;
    if (groupWithID(id)) {
        return lampsWhere(
            m_distinct, [id](const Lamp& lamp) { return lamp.group && lamp.group->id == id; });
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
        m_distinct, [id](const Lamp& lamp) { return lamp.location && lamp.location->id == id; });
}

Lamps LampRegistry::lightsArrayForTag(std::string_view id) const
{
    return lampsWhere(m_distinct, [id](const Lamp& lamp) {
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
