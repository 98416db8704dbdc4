#include "app/WorkflowStage.h"

#include "app/GroupingFamily.h"
#include "app/PanelSetUp.h"

namespace lumeroom {

WorkflowStage::WorkflowStage(PanelSetUp& panelSetUp, PanelView& panel)
    : m_panelSetUp(panelSetUp)
    , m_panel(panel)
    , m_selection(panelSetUp.collection())
{
}

void WorkflowStage::navigateLampsInTypeID(
    const std::string& description, StripType type, const std::string& id)
{
    m_panelSetUp.navigation().navigateLampsInTypeID(description, type, id);
}

void WorkflowStage::unNavigate()
{
    m_panelSetUp.navigation().unNavigate();
}

void WorkflowStage::rebuild()
{
    m_panelSetUp.refreshSetUpUsingRecycling(true);
}

void WorkflowStage::saveWindowState()
{
    m_panelSetUp.layoutManager().saveWindowState();
}

bool WorkflowStage::isShown(GroupingKind kind) const
{
    return m_panelSetUp.navigation().shows(groupingFamily(kind).type);
}

std::shared_ptr<LampControlStrip> WorkflowStage::getStripWithID(std::string_view id) const
{
    return m_panelSetUp.collection().getStripWithID(id);
}

void WorkflowStage::deselectAndShowAllLampSelectionButtons()
{
    m_selection.deselectAndShowAllLampSelectionButtons();
}

void WorkflowStage::setSelectedLampStripsAndShow(const Strips& strips)
{
    m_selection.setSelectedLampStripsAndShow(strips);
}

void WorkflowStage::hideAllSelectionButtons()
{
    m_selection.hideAllSelectionButtons();
}

Strips WorkflowStage::getSelectedLampStrips() const
{
    return m_selection.getSelectedLampStrips();
}

Rectangle WorkflowStage::popoverRectangle() const
{
    const LayoutManager& layout = m_panelSetUp.layoutManager();
    const Size container = m_panelSetUp.containerSize();
    Rectangle rectangle = layout.getRectFormakeGroupPopover(container.width);
    if (!layout.isFlipped())
        rectangle.y = container.height - rectangle.y - rectangle.height;
    return rectangle;
}

void WorkflowStage::showWorkflowPopover(const WorkflowPopover& popover)
{
    m_panel.showWorkflowPopover(popover);
}

void WorkflowStage::bringWorkflowPopoverToFront()
{
    m_panel.bringWorkflowPopoverToFront();
}

void WorkflowStage::closeWorkflowPopover()
{
    m_panel.closeWorkflowPopover();
}

int WorkflowStage::runModal(const Alert& alert)
{
    return m_panel.runModal(alert);
}

void WorkflowStage::popUpMenu(MenuModel& menu, Point at)
{
    m_panel.popUpMenu(menu, at);
}

} // namespace lumeroom
