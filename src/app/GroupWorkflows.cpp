#include "app/GroupWorkflows.h"

#include "app/WorkflowStage.h"
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

GroupWorkflows::GroupWorkflows(EngineRoom& engineRoom, Log& log, WorkflowStage& stage)
    : m_engineRoom(engineRoom)
    , m_log(log)
    , m_stage(stage)
{
}

bool GroupWorkflows::anotherIsOpen() const
{
    if (!m_stage.popoverIsOpen())
        return false;
    m_stage.bringWorkflowPopoverToFront();
    return true;
}

void GroupWorkflows::makeStep1(GroupingKind kind)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(kind);
    m_stage.navigateToAllLamps(std::string(family.makeDescription));
    m_stage.selection().deselectAndShowAllLampSelectionButtons();
    m_stage.showWorkflowPopover({.title = std::string(family.makeTitle),
        .name = {},
        .confirm = std::string(family.makeConfirm),
        .contentSize = kMakeSize,
        .pointsAt = {},
        .endsWithTheView = false,
        .close
        = [this, kind](int tag, const std::string& name) { makePopoverClose(kind, tag, name); }});
}

void GroupWorkflows::makePopoverClose(GroupingKind kind, int tag, const std::string& name)
{
    m_stage.closeWorkflowPopover();
    m_stage.selection().hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag)
        make(kind, m_stage.selection().getSelectedLampStrips(), name);
    m_stage.unNavigate();
}

// The name is taken as it is, an empty one too.
void GroupWorkflows::make(GroupingKind kind, const Strips& strips, const std::string& name)
{
    if (strips.empty())
        return;
    m_stage.saveWindowState();
    groupingFamily(kind).make(m_engineRoom, referencesTo(strips), name);
    if (m_stage.isShown(groupingFamily(kind).type))
        m_stage.rebuild();
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
    m_stage.navigateToAllLamps(std::string(family.editDescription) + name);
    select(lamps, name);
    // One of a tag stays open when the panel goes back by itself.
    m_stage.showWorkflowPopover({.title = std::string(family.editTitle),
        .name = name,
        .confirm = "Save",
        .contentSize = kEditSize,
        .pointsAt = {},
        .endsWithTheView = kind != GroupingKind::Tag,
        .close
        = [this, kind](int tag, const std::string& text) { editPopoverClose(kind, tag, text); }});
}

void GroupWorkflows::select(const Lamps& lamps, const std::string& name)
{
    if (m_log.shows(2)) {
        m_log.line("lamps inclued in {}:", name);
        for (const auto& lamp : lamps)
            m_log.line("{}, {}", lamp->id, lamp->label);
    }
    m_stage.selection().setSelectedLampStripsAndShow(m_stage.stripsOfLamps(lamps));
}

// The name in the field is a key, by which the group is found again, and no new name for it: with
// another text in it the edit is dropped, or goes to the group that has that name.
void GroupWorkflows::editPopoverClose(GroupingKind kind, int tag, const std::string& name)
{
    m_stage.closeWorkflowPopover();
    m_stage.selection().hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag) {
        const GroupingFamily& family = groupingFamily(kind);
        if (const auto id = family.idForName(m_engineRoom.registry(), name))
            family.edit(
                m_engineRoom, *id, referencesTo(m_stage.selection().getSelectedLampStrips()));
        else
            m_log.line("unable to find ID for {}", name);
    }
    m_stage.unNavigate();
}

void GroupWorkflows::remove(GroupingKind kind, const std::string& name)
{
    const GroupingFamily& family = groupingFamily(kind);
    m_stage.saveWindowState();
    const int pressed = m_stage.runModal(
        {"Are you sure?", std::string(family.deleteText) + name, {"Delete", "Cancel"}});
    if (pressed != 0)
        return;
    if (const auto id = family.idForName(m_engineRoom.registry(), name))
        family.remove(m_engineRoom, *id);
    m_stage.rebuild();
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
    m_stage.popUpMenu(menu, {button.x, button.y + kBelowTheTop});
}

} // namespace lumeroom
