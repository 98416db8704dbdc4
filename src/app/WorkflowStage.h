#pragma once

#include "app/PanelView.h"
#include "app/StripSelection.h"

#include <optional>

namespace lumeroom {

class MenuModel;
class PanelSetUp;

/// The panel as the workflows use it that pick lamps in place, and the one popover that can be open
/// over it.
class WorkflowStage {
public:
    WorkflowStage(PanelSetUp& panelSetUp, PanelView& panel);

    StripSelection& selection() { return m_selection; }

    /// Narrows the panel down to all lamps, under a description, and opens the popover, which can
    /// be confirmed from when the lamps are on the panel. Then `select` shows what is picked, and
    /// `follow`, if there is one, what is heard of the lamps from there on.
    void begin(const std::string& description, WorkflowPopover popover,
        std::function<void()> select, std::function<void()> follow = {});
    void unNavigate();
    /// Builds the panel anew, with the strips that there are.
    void rebuild();
    void saveWindowState();
    /// Whether the navigation's switch for strips of this kind is on.
    bool isShown(StripType type) const;
    /// Lets the strip of this new target come into sight with the next build.
    void showNew(const StripTarget& target);
    bool hasRow(const Lamp& lamp) const;
    /// The strips of these lamps, as far as they are on the panel.
    Strips stripsOfLamps(const Lamps& lamps) const;

    bool popoverIsOpen() const { return m_popover.has_value(); }
    /// The popover is open, and its lamps are not on the panel yet.
    bool awaitsLamps() const { return m_select != nullptr; }
    /// Told when one opens, and when it closes.
    std::function<void(bool open)> onPopover;
    void bringWorkflowPopoverToFront();
    void closeWorkflowPopover();
    /// As if its cancel button were pressed; false if none is open.
    bool cancelWorkflow();
    /// The panel has other rows.
    void panelWasBuilt();
    /// What the popover says may be another by what was heard of the lamps.
    void lampsHaveChanged();
    /// The panel goes back by itself: what may end with that is dropped.
    void closeEditPopovers();
    int runModal(const Alert& alert);
    /// Pops the menu up as a context menu at this point of the window.
    void popUpMenu(MenuModel& menu, Point at);

private:
    void watchSelection();

    PanelSetUp& m_panelSetUp;
    PanelView& m_panel;
    StripSelection m_selection;
    std::optional<WorkflowPopover> m_popover;
    std::function<void()> m_select; ///< null once it is done
    std::function<void()> m_follow;
    std::vector<Subscription> m_picks;
};

} // namespace lumeroom
