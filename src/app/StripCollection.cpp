#include "app/StripCollection.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"

#include <algorithm>

namespace lumeroom {

namespace {

// An entry of the stored order.
constexpr std::string_view kEntryID = "ID";
constexpr std::string_view kEntryGroup = "group";
constexpr std::string_view kEntrySortOrder = "sortOrder";

} // namespace

StripCollection::StripCollection(UserDefaults& defaults, Log& log)
    : m_defaults(defaults)
    , m_log(log)
{
}

void StripCollection::add(std::shared_ptr<LampControlStrip> strip)
{
    if (!strip->isGroup())
        m_byID.emplace(strip->getID(), strip);
    m_strips.push_back(std::move(strip));
}

void StripCollection::clear()
{
    m_strips.clear();
    m_byID.clear();
}

std::shared_ptr<LampControlStrip> StripCollection::getStripWithID(std::string_view id) const
{
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? nullptr : found->second;
}

void StripCollection::applySortOrder()
{
    const auto order = m_defaults.arrayForKey(keys::kSortOrder).value_or(Value::Array());
    Strips sorted;
    sorted.reserve(m_strips.size());
    for (std::size_t position = 0; position < m_strips.size(); ++position) {
        if (auto strip = getStripAtSortedPosition(order, position))
            sorted.push_back(std::move(strip));
    }
    if (sorted.size() != m_strips.size()) {
        for (const auto& strip : m_strips) {
            if (std::find(sorted.begin(), sorted.end(), strip) == sorted.end())
                sorted.push_back(strip);
        }
    }
    m_strips = std::move(sorted);
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
    const auto found = std::find_if(m_strips.begin(), m_strips.end(),
        [&](const auto& strip) { return strip->isGroup() == isGroup && strip->getID() == wanted; });
    if (found != m_strips.end())
        return *found;
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
