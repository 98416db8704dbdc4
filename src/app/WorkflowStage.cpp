#include "app/WorkflowStage.h"

#include "app/PanelSetUp.h"

namespace lumeroom {

WorkflowStage::WorkflowStage(PanelSetUp& panelSetUp, PanelView& panel)
    : m_panelSetUp(panelSetUp)
    , m_panel(panel)
    , m_selection(panelSetUp.collection())
{
}

void WorkflowStage::navigateToAllLamps(const std::string& description)
{
    m_panelSetUp.navigation().navigateLampsInTypeID(
        description, StripType::None, std::string(kAllLampsId));
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

bool WorkflowStage::isShown(StripType type) const
{
    return m_panelSetUp.navigation().shows(type);
}

Strips WorkflowStage::stripsOfLamps(const Lamps& lamps) const
{
    return m_panelSetUp.collection().stripsOfLamps(lamps);
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

void WorkflowStage::showWorkflowPopover(WorkflowPopover popover)
{
    popover.pointsAt = popoverRectangle();
    m_popover = std::move(popover);
    m_panel.showWorkflowPopover(*m_popover);
}

void WorkflowStage::bringWorkflowPopoverToFront()
{
    m_panel.bringWorkflowPopoverToFront();
}

void WorkflowStage::closeWorkflowPopover()
{
    m_popover.reset();
    m_panel.closeWorkflowPopover();
}

void WorkflowStage::closeEditPopovers()
{
    if (m_popover && m_popover->endsWithTheView)
        closeWorkflowPopover();
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
