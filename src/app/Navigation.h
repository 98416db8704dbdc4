#pragma once

#include "app/NavigationModel.h"
#include "app/StripCollection.h"

#include <array>
#include <utility>

namespace lumeroom {

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
        /// Ends a workflow as its own cancel button does; false if none is open.
        std::function<bool()> cancelWorkflow;
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
    /// Switches this kind on and the others off.
    void showOnly(ButtonModel& kind);
    /// The first of these strips that is of the kind which was switched on last, if one was since
    /// this was last asked, or the one that is new; else null.
    std::shared_ptr<LampControlStrip> takeStripToReveal(const Strips& strips);
    /// Switches its kind on, without building, and reveals this one.
    void showNew(const StripTarget& target);

    void navigateLampsInTypeID(
        const std::string& description, StripType type, const std::string& id);
    void navigateToZones(const LampControlStrip& strip);
    void navigateToGroup(const LampControlStrip& strip);
    void navigateToLocation(const LampControlStrip& strip);
    void navigateToTag(const LampControlStrip& strip);
    void unNavigate();
    /// The user's way back: where a workflow is open, it ends with nothing done.
    void goBack();

private:
    void setFilter(std::optional<NavigationFilter> filter);
    std::array<ButtonModel*, 5> switches();
    void wasSwitched(const ButtonModel& kind);
    const ButtonModel* switchFor(const StripTarget& target) const;

    Actions m_actions;
    NavigationModel m_model;
    std::vector<const ButtonModel*> m_switchedOn; ///< since the last rebuild, the latest at the end
    std::optional<StripTarget> m_newToReveal; ///< in place of those
};

} // namespace lumeroom
