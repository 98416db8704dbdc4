#pragma once

#include "app/PanelNotice.h"
#include "base/RunLoop.h"
#include "strips/StripTarget.h"

#include <optional>

namespace lumeroom {

class EngineRoom;
class PanelSetUp;
class PanelView;

/// Decides what a panel without rows says. While no lamp is known it turns the throbber, and after
/// some seconds tells what was tried; an empty page tells at once how it comes to have rows.
class EmptyPanel {
public:
    /// What a notice offers. Where a member is null, so is the offer.
    struct Offers {
        std::function<void()> makeGroup;
        std::function<void()> makeLocation;
        std::function<void()> makeTag;
        std::function<void(StripType type, const std::string& name)> edit;
        std::function<void()> back;
        std::function<void()> showLampAddresses;
        std::function<void()> showDemonstration;
    };
    struct Environment {
        RunLoop& runLoop;
        EngineRoom& engineRoom;
        PanelView& panel;
        PanelSetUp& panelSetUp;
        std::function<bool()> popoverIsOpen;
        /// The lamps have not had the time yet to tell what they are in.
        std::function<bool()> asksForGroupings;
    };
    explicit EmptyPanel(Environment environment);

    Offers& offers() { return m_offers; }

    /// What a page begins with while none of this kind, a group, a location or a tag, is known.
    std::string titleWithout(StripType type) const;

    /// A pass over the lamps has found none; the next is to come.
    void foundNoLamps();
    /// The panel was built, with or without rows.
    void wasBuilt();
    /// Other rows show than before.
    void wasPlaced();

private:
    void lookAgain();
    void beginToWait();
    /// The user picks lamps for something: what is on the panel is not the page's own.
    bool isBusy() const;
    void showNoLamps();
    PanelNotice noLamps();
    PanelNotice emptyPage() const;
    PanelNotice emptyFilter() const;
    PanelNotice emptyGrouping(const StripTarget& grouping) const;
    PanelNotice foundNothing(const std::string& sought) const;
    void show(std::optional<PanelNotice> notice);

    Environment m_environment;
    Offers m_offers;
    Timer m_patience;
    bool m_waiting = false; ///< for the first lamp
    std::optional<PanelNotice> m_shown;
};

} // namespace lumeroom
