#include "app/StripCollection.h"

#include "base/Log.h"
#include "base/StoredList.h"

#include <algorithm>
#include <set>

namespace lumeroom {

namespace {

template <typename ByID> typename ByID::mapped_type find(const ByID& strips, std::string_view id)
{
    const auto found = strips.find(id);
    return found == strips.end() ? nullptr : found->second;
}

} // namespace

/// An entry of the stored order.
struct StripCollection::Place {
    std::string id;
    bool isGroup = false;
    std::int64_t index = 0;

    static constexpr std::string_view kID = "ID";
    static constexpr std::string_view kGroup = "group";
    static constexpr std::string_view kSortOrder = "sortOrder";

    static std::optional<Place> read(const Value::Dictionary& stored)
    {
        const auto id = stored.find(kID);
        const auto group = stored.find(kGroup);
        auto text = id == stored.end() ? std::nullopt : shownText(&id->second);
        if (!text)
            return {};
        return Place{std::move(*text), group != stored.end() && group->second.boolValue()};
    }
    void write(Value::Dictionary& stored) const
    {
        stored.insert_or_assign(std::string(kID), id);
        stored.insert_or_assign(std::string(kGroup), isGroup);
        stored.insert_or_assign(std::string(kSortOrder), index);
    }
    std::pair<bool, std::string> identity() const { return {isGroup, id}; }
};

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
    for (const auto& lamp : lamps) {
        if (auto strip = getStripWithID(lamp->id))
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
    std::vector<Place> order;
    for (auto& item : StoredList<Place>::read(m_defaults, keys::kSortOrder))
        order.push_back(std::move(item.entry));
    Strips sorted;
    sorted.reserve(m_strips.size());
    std::set<StripTarget> placed; // each once, however often it was made or stored
    for (std::size_t position = 0; position < m_strips.size(); ++position) {
        auto strip = getStripAtSortedPosition(order, position);
        if (strip && placed.insert(strip->target()).second)
            sorted.push_back(std::move(strip));
    }
    for (const auto& strip : m_strips) {
        if (placed.insert(strip->target()).second)
            sorted.push_back(strip);
    }
    m_strips = std::move(sorted);
    indexAnew();
}

std::shared_ptr<LampControlStrip> StripCollection::getStripAtSortedPosition(
    const std::vector<Place>& order, std::size_t position) const
{
    if (position >= order.size()) {
        m_log.line("getStripAtSortedPosition: returning nil because requested position {} is "
                   "greater than the number of items in sortedArray",
            position);
        return nullptr;
    }
    const Place& place = order[position];
    if (auto strip = find(place.isGroup ? m_groups : m_lampsAndZones, place.id))
        return strip;
    m_log.line("unable to find strip with ID '{}' in sortedArray", place.id);
    return nullptr;
}

void StripCollection::saveStripOrder()
{
    std::vector<Place> order;
    for (const auto& strip : m_strips)
        order.push_back(
            {strip->getID(), strip->isGroup(), static_cast<std::int64_t>(order.size())});
    m_log.line("saving sortOrder to defaults. It has {} items", order.size());
    StoredList<Place>(m_defaults, keys::kSortOrder).assign(order);
}

} // namespace lumeroom
