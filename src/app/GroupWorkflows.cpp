#include "app/GroupWorkflows.h"

#include "app/GroupingFamily.h"
#include "base/Log.h"

namespace lumeroom {

namespace {

constexpr Size kMakeSize{220, 133};
constexpr Size kEditSize{226, 97};

LampReferences referencesTo(const Strips& strips)
{
    LampReferences references;
    references.reserve(strips.size());
    for (const auto& strip : strips)
        references.push_back(strip.get());
    return references;
}

} // namespace

GroupWorkflows::GroupWorkflows(EngineRoom& engineRoom, Log& log, WorkflowPanel& panel)
    : m_engineRoom(engineRoom)
    , m_log(log)
    , m_panel(panel)
{
}

bool GroupWorkflows::anotherIsOpen() const
{
    if (m_open)
        m_panel.bringWorkflowPopoverToFront();
    return m_open.has_value();
}

void GroupWorkflows::makeStep1(GroupingKind kind)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(kind);
    m_panel.navigateLampsInTypeID(
        std::string(family.makeDescription), StripType::None, std::string(kAllLampsId));
    m_panel.deselectAndShowAllLampSelectionButtons();
    showPopover({Step::Make, kind},
        {.title = std::string(family.makeTitle),
            .name = {},
            .confirm = std::string(family.makeConfirm),
            .contentSize = kMakeSize,
            .pointsAt = {},
            .close = [this, kind](
                         int tag, const std::string& name) { makePopoverClose(kind, tag, name); }});
}

void GroupWorkflows::makePopoverClose(GroupingKind kind, int tag, const std::string& name)
{
    closePopover();
    m_panel.hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag)
        make(kind, m_panel.getSelectedLampStrips(), name);
    m_panel.unNavigate();
}

// The name is taken as it is, an empty one too.
void GroupWorkflows::make(GroupingKind kind, const Strips& strips, const std::string& name)
{
    if (strips.empty())
        return;
    m_panel.saveWindowState();
    groupingFamily(kind).make(m_engineRoom, referencesTo(strips), name);
    if (m_panel.isShown(kind))
        m_panel.rebuild();
}

void GroupWorkflows::editStep1(GroupingKind kind, const std::string& name)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(kind);
    const auto id = family.idForName(m_engineRoom.registry(), name);
    if (!id) {
        if (m_log.shows(1))
            m_log.line("{}{}:", family.notFound, name);
        return;
    }
    const Lamps lamps = (m_engineRoom.registry().*family.lamps)(*id);
    m_panel.navigateLampsInTypeID(
        std::string(family.editDescription) + name, StripType::None, std::string(kAllLampsId));
    m_panel.setSelectedLampStripsAndShow(stripsOf(lamps, name));
    showPopover({Step::Edit, kind},
        {.title = std::string(family.editTitle),
            .name = name,
            .confirm = "Save",
            .contentSize = kEditSize,
            .pointsAt = {},
            .close = [this, kind](
                         int tag, const std::string& text) { editPopoverClose(kind, tag, text); }});
}

Strips GroupWorkflows::stripsOf(const Lamps& lamps, const std::string& name) const
{
    const bool details = m_log.shows(2);
    if (details)
        m_log.line("lamps inclued in {}:", name);
    Strips strips;
    for (const auto& lamp : lamps) {
        if (details)
            m_log.line("{}, {}", lamp->id, lamp->label);
        if (auto strip = m_panel.getStripWithID(lamp->id))
            strips.push_back(std::move(strip));
    }
    return strips;
}

// The name in the field is a key, by which the group is found again, and no new name for it: with
// another text in it the edit is dropped, or goes to the group that has that name.
void GroupWorkflows::editPopoverClose(GroupingKind kind, int tag, const std::string& name)
{
    closePopover();
    m_panel.hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag) {
        const GroupingFamily& family = groupingFamily(kind);
        if (const auto id = family.idForName(m_engineRoom.registry(), name))
            family.edit(m_engineRoom, *id, referencesTo(m_panel.getSelectedLampStrips()));
        else
            m_log.line("unable to find ID for {}", name);
    }
    m_panel.unNavigate();
}

void GroupWorkflows::remove(GroupingKind kind, const std::string& name)
{
    const GroupingFamily& family = groupingFamily(kind);
    m_panel.saveWindowState();
    const int pressed = m_panel.runModal(
        {"Are you sure?", std::string(family.deleteText) + name, {"Delete", "Cancel"}});
    if (pressed != 0)
        return;
    if (const auto id = family.idForName(m_engineRoom.registry(), name))
        family.remove(m_engineRoom, *id);
    m_panel.rebuild();
}

void GroupWorkflows::fillMenus(bool withTags)
{
    fillMenusOf(GroupingKind::Group);
    fillMenusOf(GroupingKind::Location);
    if (withTags)
        fillMenusOf(GroupingKind::Tag);
}

void GroupWorkflows::fillMenusOf(GroupingKind kind)
{
    Menus& filled = menus(kind);
    filled.edit.removeAllItems();
    filled.remove.removeAllItems();
    for (const std::string& name : groupingFamily(kind).names(m_engineRoom.registry())) {
        filled.edit.addItem(name, [this, kind, name] { editStep1(kind, name); });
        filled.remove.addItem(name, [this, kind, name] { remove(kind, name); });
    }
}

void GroupWorkflows::editGroupActionButton(const Rectangle& button)
{
    popUpOver(button, editGroupMenu());
}

void GroupWorkflows::deleteGroupActionButton(const Rectangle& button)
{
    popUpOver(button, deleteGroupMenu());
}

void GroupWorkflows::popUpOver(const Rectangle& button, MenuModel& menu)
{
    constexpr float kBelowTheTop = 30;
    m_panel.popUpMenu(menu, {button.x, button.y + kBelowTheTop});
}

void GroupWorkflows::closeEditPopovers()
{
    if (m_open == Open{Step::Edit, GroupingKind::Group}
        || m_open == Open{Step::Edit, GroupingKind::Location})
        closePopover();
}

void GroupWorkflows::showPopover(Open open, WorkflowPopover popover)
{
    popover.pointsAt = m_panel.popoverRectangle();
    m_open = open;
    m_panel.showWorkflowPopover(popover);
}

void GroupWorkflows::closePopover()
{
    m_open.reset();
    m_panel.closeWorkflowPopover();
}

} // namespace lumeroom
