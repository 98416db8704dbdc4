#pragma once

#include "app/Navigation.h"
#include "app/PanelFind.h"
#include "app/StripFactory.h"
#include "base/CallSoon.h"
#include "base/RunLoop.h"
#include "strips/LayoutManager.h"

namespace lumeroom {

/// Builds the panel from what the engine knows, and builds it anew when that changes.
class PanelSetUp {
public:
    /// What else is made anew with the panel.
    struct Companions {
        /// While no pass has found lamps yet, each one begins with this.
        std::function<void()> populatePresetPullDown;
        /// Before the strips: the status menu is emptied.
        std::function<void()> begin;
        /// A strip was made, or made ready again.
        std::function<void(const std::shared_ptr<LampControlStrip>&)> made;
        /// A strip that is to have an entry in the status menu.
        std::function<void(const std::shared_ptr<LampControlStrip>&)> addToStatusMenu;
        /// The menus of groups, locations and tags. Those of tags change only with tags in view.
        std::function<void(bool withTags)> fillEditMenus;
        /// A pass has found no lamps.
        std::function<void()> foundNoLamps;
        /// The strips stand in their order.
        std::function<void()> finish;
        /// The rows were placed anew.
        std::function<void()> placed;
        /// The panel goes back from what it was navigated to.
        std::function<void()> closeEditPopovers;
        /// The user goes back. True if that ended a workflow, which has gone back itself.
        std::function<bool()> cancelWorkflow;
        /// While the user edits in a popover over the panel, it is not built anew...
        std::function<bool()> popoverIsOpen;
        /// ...but for the lamps that are to be picked from, which are on their way.
        std::function<bool()> awaitsLamps;
    };
    struct Environment {
        RunLoop& runLoop;
        UserDefaults& defaults;
        Log& log;
        EngineRoom& engineRoom;
        PanelView& panel;
        LampControlStripOwner& owner;
        Companions companions;
    };
    explicit PanelSetUp(Environment environment);

    StripCollection& collection() { return m_collection; }
    const StripCollection& collection() const { return m_collection; }
    Navigation& navigation() { return m_navigation; }
    LayoutManager& layoutManager() { return m_layoutManager; }
    const Navigation& navigation() const { return m_navigation; }
    const StripFactory& factory() const { return m_factory; }
    PanelFind& find() { return m_find; }
    const PanelFind& find() const { return m_find; }

    /// Builds the panel; while no lamp is known, tries again every 1.5 seconds.
    void setUp();
    /// Builds it anew, once no popover is open and no row is in the user's hand.
    void refreshSetUpUsingRecycling(bool recycling);
    /// The same, with all that becomes known in the next 1.5 seconds.
    void refreshSoon();
    /// That, if it is narrowed down to a group, location or tag that has other lamps by now.
    void followMembers();
    /// The lamp whose zones are on the panel; null in other views.
    std::shared_ptr<Lamp> lampOfZones() const;
    /// The container of the strips fills what it scrolls in, whose size has changed.
    void fitContainer();
    /// Places every strip that the user does not hold, and fits the window and its scroll bars.
    void recalculateControlStripPositions();
    /// Gives the window the size that is stored for the layout, which a grid wraps to.
    void restoreWindowSize();
    /// A pass has found lamps: there are rows and an order to remember.
    bool isSetUp() const { return m_setUp; }
    /// Only strips of this layout come back.
    void switchTheme(int theme);
    /// The same for a layout that was stored elsewhere; the window's present size is not kept.
    void showStoredTheme();

private:
    bool isInUse() const;
    bool anActionIsPending() const;
    void deferRefresh(Seconds delay, bool recycling);
    std::optional<Lamps> lampsToShow() const;
    void addLampStrips(const Lamps& lamps);
    void addGroupStrips();
    void addZoneStrips();
    void revealWhatIsNew();
    void fitWindow();
    void hideFormerRows();
    void dropFormerRows();
    void addStrip(const StripRecord& record, StripType type, int tag);

    Environment m_environment;
    LayoutManager m_layoutManager;
    Navigation m_navigation;
    StripCollection m_collection;
    StripFactory m_factory;
    PanelFind m_find;
    Strips m_former; ///< whose rows, if they may be reused, show until the new ones stand
    CallSoon m_letFormerGo;
    bool m_attemptedSetUp = false;
    bool m_setUp = false; ///< a pass has found lamps
    bool m_setUpBuffered = false; ///< a rebuild is coming and takes in whatever is new by then
    int m_nextTag = 0; ///< of the strips other than lamps'
    Timer m_retry;
    Timer m_setUpBuffer;
    Timer m_deferredRefresh;
    bool m_deferredRecycling = true; ///< of the refresh that waits
};

} // namespace lumeroom
