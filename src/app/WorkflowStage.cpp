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

void WorkflowStage::showNew(const StripTarget& target)
{
    m_panelSetUp.navigation().showNew(target);
}

void WorkflowStage::showWorkflowPopover(WorkflowPopover popover)
{
    m_popover = std::move(popover);
    if (onPopover)
        onPopover(true);
    m_panel.showWorkflowPopover(*m_popover);
    m_panelSetUp.fitContainer();
    watchSelection();
}

void WorkflowStage::watchSelection()
{
    m_picks.clear();
    for (const auto& strip : m_panelSetUp.collection().strips()) {
        m_picks.push_back(
            strip->getSelectedButton().listen([this] { m_panel.updateWorkflowPopover(); }));
    }
}

void WorkflowStage::panelWasBuilt()
{
    if (!m_popover)
        return;
    m_selection.showAllLampSelectionButtons();
    watchSelection();
    m_panel.updateWorkflowPopover();
}

void WorkflowStage::bringWorkflowPopoverToFront()
{
    m_panel.bringWorkflowPopoverToFront();
}

void WorkflowStage::closeWorkflowPopover()
{
    m_picks.clear();
    m_popover.reset();
    m_panel.closeWorkflowPopover();
    if (onPopover)
        onPopover(false);
}

bool WorkflowStage::cancelWorkflow()
{
    if (!m_popover)
        return false;
    const auto close = m_popover->close; // it goes with the popover
    close(WorkflowPopover::kCancelTag, m_popover->name);
    return true;
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
