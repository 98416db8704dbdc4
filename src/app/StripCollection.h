#pragma once

#include "strips/LampControlStrip.h"

namespace lumeroom {

class Log;
class UserDefaults;

using Strips = std::vector<std::shared_ptr<LampControlStrip>>;

/// The strips on the panel in the order in which they show, and the order that is stored.
class StripCollection {
public:
    StripCollection(UserDefaults& defaults, Log& log);

    const Strips& strips() const { return m_strips; }
    void add(std::shared_ptr<LampControlStrip> strip);
    void clear();

    /// The first strip with this ID that is no group's; null if there is none.
    std::shared_ptr<LampControlStrip> getStripWithID(std::string_view id) const;

    /// Puts the strips in the stored order; those that it does not name go to the end.
    void applySortOrder();
    void saveStripOrder();

private:
    std::shared_ptr<LampControlStrip> getStripAtSortedPosition(
        const Value::Array& order, std::size_t position) const;

    UserDefaults& m_defaults;
    Log& m_log;
    Strips m_strips;
    std::map<std::string, std::shared_ptr<LampControlStrip>, std::less<>> m_byID;
};

} // namespace lumeroom
