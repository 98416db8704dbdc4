#pragma once

#include "app/FindModel.h"
#include "app/PanelNotice.h"
#include "app/WorkflowPopover.h"
#include "engine/QVLIFXEngineDelegate.h"
#include "strips/LampControlStrip.h"
#include "strips/LayoutManager.h"

#include <optional>

namespace lumeroom {

struct NavigationActions;
struct NavigationModel;

/// The control panel's window, as its controller sees it.
class PanelView : public PanelGeometry {
public:
    virtual void setTitle(const std::string& title) = 0;
    /// Brings the window to the front with the keyboard focus.
    virtual void makeKeyAndFront() = 0;
    /// Shows the alert and returns, once it is dismissed, the index of the button pressed.
    virtual int runModal(const Alert& alert) = 0;
    /// The model and the actions last longer than the view's use of them.
    virtual void setNavigation(NavigationModel& navigation, NavigationActions actions) = 0;
    /// Called when the user has let go of the window's edge.
    virtual void setDidEndLiveResize(std::function<void()> action) = 0;

    /// The search indication in the middle of the panel.
    virtual void startThrobber() = 0;
    virtual void stopThrobber() = 0;

    /// Words in the middle of the panel, or none.
    virtual void showNotice(const std::optional<PanelNotice>& notice) = 0;

    /// The actions last longer than the view's use of them.
    virtual void setFind(FindActions actions) = 0;
    /// The field for a name: open with this count, or closed.
    virtual void showFind(const std::optional<FoundCount>& count) = 0;

    /// A row for the strip in the container; null for a theme that does not exist.
    virtual std::unique_ptr<LampControlStripView> newControlStripView(
        LampControlStrip& strip, int theme)
        = 0;
    virtual Size scrollViewSize() const = 0;
    virtual void setContainerSize(Size size) = 0;
    virtual void setContentSize(Size size) = 0;
    virtual void setContentMinSize(Size size) = 0;
    virtual void setContentMaxSize(Size size) = 0;
    virtual void setScrollers(bool horizontal, bool vertical) = 0;
    /// Scrolls the row into sight.
    virtual void reveal(const LampControlStripView& row) = 0;
    /// Before the rows are made anew: the keyboard comes back to where it is now, if it can.
    virtual void keepFocus() = 0;
    /// The rows in the order in which the keyboard goes through them.
    virtual void setKeyboardOrder(const std::vector<LampControlStripView*>& rows) = 0;

    /// Pops the menu up as a context menu at this point of the window.
    virtual void popUpMenu(MenuModel& menu, Point at) = 0;
    virtual void showWorkflowPopover(const WorkflowPopover& popover) = 0;
    /// What is picked has changed: the state of the popover is to be looked at.
    virtual void updateWorkflowPopover() = 0;
    /// Where a popover is open, it has the keyboard again: in its name field or, where it has none,
    /// at the first lamp to pick.
    virtual void bringWorkflowPopoverToFront() = 0;
    virtual void closeWorkflowPopover() = 0;
};

} // namespace lumeroom
