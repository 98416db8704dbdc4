#pragma once

#include "app/StripSelection.h"
#include "app/WorkflowPanel.h"

namespace lumeroom {

class PanelSetUp;

/// The panel as the workflows use it.
class WorkflowStage : public WorkflowPanel {
public:
    WorkflowStage(PanelSetUp& panelSetUp, PanelView& panel);

    StripSelection& selection() { return m_selection; }

    void navigateLampsInTypeID(
        const std::string& description, StripType type, const std::string& id) override;
    void unNavigate() override;
    void rebuild() override;
    void saveWindowState() override;
    bool isShown(GroupingKind kind) const override;
    std::shared_ptr<LampControlStrip> getStripWithID(std::string_view id) const override;
    void deselectAndShowAllLampSelectionButtons() override;
    void setSelectedLampStripsAndShow(const Strips& strips) override;
    void hideAllSelectionButtons() override;
    Strips getSelectedLampStrips() const override;
    Rectangle popoverRectangle() const override;
    void showWorkflowPopover(const WorkflowPopover& popover) override;
    void bringWorkflowPopoverToFront() override;
    void closeWorkflowPopover() override;
    int runModal(const Alert& alert) override;
    void popUpMenu(MenuModel& menu, Point at) override;

private:
    PanelSetUp& m_panelSetUp;
    PanelView& m_panel;
    StripSelection m_selection;
};

} // namespace lumeroom
