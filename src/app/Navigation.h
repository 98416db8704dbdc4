#pragma once

#include "app/NavigationModel.h"

namespace lumeroom {

class LampControlStrip;

/// What is on the panel: the kinds of strips that the five buttons choose, or what the user has
/// drilled down to.
class Navigation {
public:
    struct Actions {
        std::function<void()> saveWindowState;
        /// Builds the panel anew, keeping strips.
        std::function<void()> rebuild;
        /// The workflows' edit popover closes on the way back.
        std::function<void()> closeEditPopovers;
    };
    explicit Navigation(Actions actions);

    NavigationModel& model() { return m_model; }
    const NavigationModel& model() const { return m_model; }
    const std::optional<NavigationFilter>& filter() const { return m_model.filter; }
    /// Of the filter; `None` without one.
    StripType filterType() const { return filter() ? filter()->type : StripType::None; }
    /// Whether strips of this kind show at the main level.
    bool shows(StripType type) const;
    /// With no button on, the panel shows lamps.
    void turnSomethingOn();

    void navigateLampsInTypeID(
        const std::string& description, StripType type, const std::string& id);
    void navigateToZones(const LampControlStrip& strip);
    void navigateToGroup(const LampControlStrip& strip);
    void navigateToLocation(const LampControlStrip& strip);
    void navigateToTag(const LampControlStrip& strip);
    void unNavigate();

private:
    void setFilter(std::optional<NavigationFilter> filter);

    Actions m_actions;
    NavigationModel m_model;
};

} // namespace lumeroom
