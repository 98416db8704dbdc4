#pragma once

#include "strips/LampControlStrip.h"

#include <map>

namespace lumeroom {

class Log;
class UserDefaults;

using Strips = std::vector<std::shared_ptr<LampControlStrip>>;

/// The strips on the panel in the order in which they show, and the order that is stored. A lamp
/// and a group may have the same ID, so that looking up asks for one kind or the other.
class StripCollection {
public:
    StripCollection(UserDefaults& defaults, Log& log);

    const Strips& strips() const { return m_strips; }
    void add(std::shared_ptr<LampControlStrip> strip);
    void clear();

    /// The first strip with this ID that is no group's; null if there is none.
    std::shared_ptr<LampControlStrip> getStripWithID(std::string_view id) const;
    /// The first with this ID that is one's.
    std::shared_ptr<LampControlStrip> getGroupStripWithID(std::string_view id) const;
    /// The strips of these lamps, as far as they have one.
    Strips stripsOfLamps(const std::vector<std::shared_ptr<Lamp>>& lamps) const;

    // Places, from 0; -1 for none
    int sortedPositionOfStrip(const LampControlStrip& strip) const;
    /// Of the first other strip whose row lies at the point.
    int positionForPoint(Point point, const LampControlStrip& excluded) const;
    void insertStripIntoPosition(const LampControlStrip& strip, int position);

    /// Puts the strips in the stored order; those that it does not name go to the end. Of two
    /// strips with one target the first stays.
    void applySortOrder();
    /// Stores the order of what is on the panel now, which replaces all that was stored.
    void saveStripOrder();

private:
    using ByID = std::map<std::string, std::shared_ptr<LampControlStrip>, std::less<>>;

    struct Place;

    void indexStrip(const std::shared_ptr<LampControlStrip>& strip);
    void indexAnew();
    std::shared_ptr<LampControlStrip> getStripAtSortedPosition(
        const std::vector<Place>& order, std::size_t position) const;

    UserDefaults& m_defaults;
    Log& m_log;
    Strips m_strips;
    ByID m_lampsAndZones;
    ByID m_groups;
};

} // namespace lumeroom
