#include "app/WorkflowStage.h"

#include "app/PanelSetUp.h"

#include <utility>

namespace lumeroom {

WorkflowStage::WorkflowStage(PanelSetUp& panelSetUp, PanelView& panel)
    : m_panelSetUp(panelSetUp)
    , m_panel(panel)
    , m_selection(panelSetUp.collection())
{
}

// The panel may have to wait, for a row in the user's hand or for a movement that is to be sent.
void WorkflowStage::begin(const std::string& description, WorkflowPopover popover,
    std::function<void()> select, std::function<void()> follow)
{
    popover.state = [this, state = std::move(popover.state)](const std::string& name) {
        return awaitsLamps() ? WorkflowState{false, "Waiting for the lamps"} : state(name);
    };
    m_popover = std::move(popover);
    m_select = std::move(select);
    m_follow = std::move(follow);
    if (onPopover)
        onPopover(true);
    m_panelSetUp.navigation().navigateLampsInTypeID(
        description, StripType::None, std::string(kAllLampsId));
    m_panel.showWorkflowPopover(*m_popover);
    m_panelSetUp.fitContainer();
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

bool WorkflowStage::hasRow(const Lamp& lamp) const
{
    return m_panelSetUp.collection().getStripWithID(lamp.id) != nullptr;
}

void WorkflowStage::showNew(const StripTarget& target)
{
    m_panelSetUp.navigation().showNew(target);
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
    const auto select = std::exchange(m_select, nullptr);
    if (select)
        select();
    else
        m_selection.showAllLampSelectionButtons();
    watchSelection();
    m_panel.updateWorkflowPopover();
    if (select)
        bringWorkflowPopoverToFront(); // the first of its lamps is another row now
}

void WorkflowStage::lampsHaveChanged()
{
    if (!m_popover)
        return;
    if (m_follow && !awaitsLamps())
        m_follow();
    m_panel.updateWorkflowPopover();
}

void WorkflowStage::bringWorkflowPopoverToFront()
{
    m_panel.bringWorkflowPopoverToFront();
}

void WorkflowStage::closeWorkflowPopover()
{
    m_picks.clear();
    m_select = nullptr;
    m_popover.reset();
    m_panel.closeWorkflowPopover();
    m_panelSetUp.fitContainer();
    if (onPopover)
        onPopover(false);
}

bool WorkflowStage::cancelWorkflow()
{
    if (!m_popover)
        return false;
    const WorkflowPopover popover = *m_popover; // which goes as it closes
    popover.close(WorkflowPopover::kCancelTag, popover.name);
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
