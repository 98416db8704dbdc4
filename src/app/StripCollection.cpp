#include "app/StripCollection.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"

#include <algorithm>
#include <set>

namespace lumeroom {

namespace {

// An entry of the stored order.
constexpr std::string_view kEntryID = "ID";
constexpr std::string_view kEntryGroup = "group";
constexpr std::string_view kEntrySortOrder = "sortOrder";

template <typename ByID> typename ByID::mapped_type find(const ByID& strips, std::string_view id)
{
    const auto found = strips.find(id);
    return found == strips.end() ? nullptr : found->second;
}

} // namespace

StripCollection::StripCollection(UserDefaults& defaults, Log& log)
    : m_defaults(defaults)
    , m_log(log)
{
}

void StripCollection::add(std::shared_ptr<LampControlStrip> strip)
{
    indexStrip(strip);
    m_strips.push_back(std::move(strip));
}

/// The first with its ID is the one that is found.
void StripCollection::indexStrip(const std::shared_ptr<LampControlStrip>& strip)
{
    (strip->isGroup() ? m_groups : m_lampsAndZones).emplace(strip->getID(), strip);
}

/// In the order of now.
void StripCollection::indexAnew()
{
    m_lampsAndZones.clear();
    m_groups.clear();
    for (const auto& strip : m_strips)
        indexStrip(strip);
}

void StripCollection::clear()
{
    m_strips.clear();
    m_lampsAndZones.clear();
    m_groups.clear();
}

std::shared_ptr<LampControlStrip> StripCollection::getStripWithID(std::string_view id) const
{
    return find(m_lampsAndZones, id);
}

std::shared_ptr<LampControlStrip> StripCollection::getGroupStripWithID(std::string_view id) const
{
    return find(m_groups, id);
}

Strips StripCollection::stripsOfLamps(const std::vector<std::shared_ptr<Lamp>>& lamps) const
{
    Strips strips;
    std::set<const LampControlStrip*> given; // a lamp can have a record for each of two addresses
    for (const auto& lamp : lamps) {
        auto strip = getStripWithID(lamp->id);
        if (strip && given.insert(strip.get()).second)
            strips.push_back(std::move(strip));
    }
    return strips;
}

int StripCollection::sortedPositionOfStrip(const LampControlStrip& strip) const
{
    const auto found = std::find_if(m_strips.begin(), m_strips.end(),
        [&](const auto& candidate) { return candidate.get() == &strip; });
    return found == m_strips.end() ? -1 : static_cast<int>(found - m_strips.begin());
}

int StripCollection::positionForPoint(Point point, const LampControlStrip& excluded) const
{
    const auto found = std::find_if(m_strips.begin(), m_strips.end(), [&](const auto& strip) {
        const auto* view = strip->getControlStripView();
        return strip.get() != &excluded && view && view->hitTest(point);
    });
    return found == m_strips.end() ? -1 : static_cast<int>(found - m_strips.begin());
}

void StripCollection::insertStripIntoPosition(const LampControlStrip& strip, int position)
{
    const int present = sortedPositionOfStrip(strip);
    if (present < 0 || position < 0 || position >= static_cast<int>(m_strips.size()))
        return;
    const auto moved = m_strips[static_cast<std::size_t>(present)];
    m_strips.erase(m_strips.begin() + present);
    m_strips.insert(m_strips.begin() + position, moved);
    indexAnew();
}

void StripCollection::applySortOrder()
{
    const auto order = m_defaults.arrayForKey(keys::kSortOrder).value_or(Value::Array());
    Strips sorted;
    sorted.reserve(m_strips.size());
    std::set<const LampControlStrip*> placed;
    for (std::size_t position = 0; position < m_strips.size(); ++position) {
        if (auto strip = getStripAtSortedPosition(order, position)) {
            placed.insert(strip.get());
            sorted.push_back(std::move(strip));
        }
    }
    if (sorted.size() != m_strips.size()) {
        for (const auto& strip : m_strips) {
            if (placed.insert(strip.get()).second)
                sorted.push_back(strip);
        }
    }
    m_strips = std::move(sorted);
    indexAnew();
}

std::shared_ptr<LampControlStrip> StripCollection::getStripAtSortedPosition(
    const Value::Array& order, std::size_t position) const
{
    if (position >= order.size()) {
        m_log.line("getStripAtSortedPosition: returning nil because requested position {} is "
                   "greater than the number of items in sortedArray",
            position);
        return nullptr;
    }
    const Value* id = order[position].find(kEntryID);
    const Value* group = order[position].find(kEntryGroup);
    const std::string wanted = id ? id->stringValue() : std::string();
    const bool isGroup = group && group->boolValue();
    if (auto strip = find(isGroup ? m_groups : m_lampsAndZones, wanted))
        return strip;
    m_log.line("unable to find strip with ID '{}' in sortedArray", wanted);
    return nullptr;
}

void StripCollection::saveStripOrder()
{
    Value::Array order;
    for (const auto& strip : m_strips) {
        order.emplace_back(Value::Dictionary{
            {std::string(kEntryID), strip->getID()},
            {std::string(kEntryGroup), strip->isGroup()},
            {std::string(kEntrySortOrder), static_cast<std::int64_t>(order.size())},
        });
    }
    m_log.line("saving sortOrder to defaults. It has {} items", order.size());
    m_defaults.setObject(keys::kSortOrder, std::move(order));
}

} // namespace lumeroom
