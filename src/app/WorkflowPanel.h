#pragma once

#include "app/PanelView.h"
#include "app/StripCollection.h"
#include "strips/MenuModel.h"

namespace lumeroom {

/// What lamps can be gathered in.
enum class GroupingKind { Group, Location, Tag };

/// What the workflows that pick lamps on the panel ask of its controller.
class WorkflowPanel {
public:
    virtual ~WorkflowPanel() = default;

    /// Filters the panel under a description. Type `None` with ID "0" shows all lamps.
    virtual void navigateLampsInTypeID(
        const std::string& description, StripType type, const std::string& id)
        = 0;
    virtual void unNavigate() = 0;
    /// Builds the panel anew, with the strips that there are.
    virtual void rebuild() = 0;
    virtual void saveWindowState() = 0;
    /// Whether the navigation's switch for strips of this kind is on.
    virtual bool isShown(GroupingKind kind) const = 0;

    // The strips and their selection buttons
    virtual std::shared_ptr<LampControlStrip> getStripWithID(std::string_view id) const = 0;
    virtual void deselectAndShowAllLampSelectionButtons() = 0;
    virtual void setSelectedLampStripsAndShow(const Strips& strips) = 0;
    virtual void hideAllSelectionButtons() = 0;
    virtual Strips getSelectedLampStrips() const = 0;

    /// What a popover points at, in the container of the strips.
    virtual Rectangle popoverRectangle() const = 0;
    virtual void showWorkflowPopover(const WorkflowPopover& popover) = 0;
    virtual void bringWorkflowPopoverToFront() = 0;
    virtual void closeWorkflowPopover() = 0;
    virtual int runModal(const Alert& alert) = 0;
    /// Pops the menu up as a context menu at this point of the window.
    virtual void popUpMenu(MenuModel& menu, Point at) = 0;
};

} // namespace lumeroom
