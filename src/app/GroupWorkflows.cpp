#include "app/GroupWorkflows.h"

#include "app/WorkflowStage.h"
#include "app/WorkflowSummary.h"
#include "base/Log.h"
#include "base/NameText.h"
#include "strips/GroupingAccess.h"

namespace lumeroom {

namespace {

LampReferences referencesTo(const Strips& strips)
{
    LampReferences references;
    references.reserve(strips.size());
    for (const auto& strip : strips)
        references.push_back(strip.get());
    return references;
}

/// A lamp for the engine that the panel does not show.
class LampWithoutRow : public LampReference {
public:
    explicit LampWithoutRow(const std::shared_ptr<Lamp>& lamp)
        : m_id(lamp->id)
    {
    }
    bool isGroup() const override { return false; }
    std::string getID() const override { return m_id; }
    void imposeTemporaryEmbargo() override { } // its reports show nowhere

private:
    std::string m_id;
};

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

void GroupWorkflows::makeStep1(StripType type)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(type);
    m_stage.begin(std::string(family.makeDescription),
        {.title = std::string(family.makeTitle),
            .name = {},
            .asksForName = true,
            .confirm = std::string(family.makeConfirm),
            .endsWithTheView = false,
            .state =
                [this, &family](const std::string& name) {
                    return stateOfMake(family, m_engineRoom.registry(), pickedLamps(), name);
                },
            .close = [this, type](
                         int tag, const std::string& name) { makePopoverClose(type, tag, name); }},
        [this] { m_stage.selection().deselectAndShowAllLampSelectionButtons(); });
}

void GroupWorkflows::makePopoverClose(StripType type, int tag, const std::string& name)
{
    m_stage.closeWorkflowPopover();
    m_stage.selection().hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag)
        make(type, m_stage.selection().getSelectedLampStrips(), nameOnOneLine(name));
    m_stage.unNavigate();
}

// An empty name is one, too.
void GroupWorkflows::make(StripType type, const Strips& strips, const std::string& name)
{
    if (strips.empty())
        return;
    m_stage.saveWindowState();
    groupingFamily(type).make(m_engineRoom, referencesTo(strips), name);
    if (m_stage.isShown(groupingFamily(type).type))
        m_stage.rebuild();
    if (const auto made = newestNamed(type, m_engineRoom.registry(), name))
        m_stage.showNew({*made, type});
}

Lamps GroupWorkflows::pickedLamps() const
{
    Lamps lamps;
    for (const auto& strip : m_stage.selection().getSelectedLampStrips()) {
        if (auto lamp = m_engineRoom.registry().lampWithID(strip->getID()))
            lamps.push_back(std::move(lamp));
    }
    return lamps;
}

void GroupWorkflows::edit(StripType type, const std::string& name)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(type);
    const auto id = family.idForName(m_engineRoom.registry(), name);
    if (!id) {
        if (m_log.shows(1))
            m_log.line("{}{}:", family.notFound, name);
        return;
    }
    const StripTarget target{*id, type};
    // The popover of a tag stays open when the panel goes back by itself.
    m_stage.begin(
        std::string(family.editDescription) + name,
        {.title = std::string(family.editTitle),
            .name = name,
            .asksForName = false,
            .confirm = "Save",
            .endsWithTheView = type != StripType::Tag,
            .state =
                [this, target, name](const std::string&) {
                    return stateOfEdit(target, m_engineRoom.registry(), lampsToStay(target), name);
                },
            .close = [this, type](
                         int tag, const std::string& text) { editPopoverClose(type, tag, text); }},
        [this, target, name] { selectMembers(target, name); },
        [this, target] { tickNewMembers(target); });
}

void GroupWorkflows::selectMembers(const StripTarget& target, const std::string& name)
{
    const Lamps lamps = target.lamps(m_engineRoom.registry());
    if (m_log.shows(2)) {
        m_log.line("lamps inclued in {}:", name);
        for (const auto& lamp : lamps)
            m_log.line("{}, {}", lamp->id, lamp->label);
    }
    m_stage.selection().setSelectedLampStripsAndShow({});
    m_ticked.clear();
    tickNewMembers(target);
}

/// Lamps tell one after the other what they are in, and none is to be put out that is not done yet.
void GroupWorkflows::tickNewMembers(const StripTarget& target)
{
    for (const auto& strip : m_stage.stripsOfLamps(target.lamps(m_engineRoom.registry()))) {
        if (m_ticked.insert(strip->getID()).second)
            strip->setSelected(true);
    }
}

// The name is a key, by which the group is found again: where it has another by now, the edit is
// dropped, or goes to the group that has that name.
void GroupWorkflows::editPopoverClose(StripType type, int tag, const std::string& name)
{
    m_stage.closeWorkflowPopover();
    m_stage.selection().hideAllSelectionButtons();
    if (tag != WorkflowPopover::kCancelTag) {
        if (const auto id = groupingFamily(type).idForName(m_engineRoom.registry(), name))
            save({*id, type});
        else
            m_log.line("unable to find ID for {}", name);
    }
    m_stage.unNavigate();
}

void GroupWorkflows::save(const StripTarget& edited)
{
    tickNewMembers(edited); // of a moment ago
    auto references = referencesTo(m_stage.selection().getSelectedLampStrips());
    const Lamps rowless = membersWithoutRow(edited);
    std::vector<LampWithoutRow> more(rowless.begin(), rowless.end());
    for (LampWithoutRow& lamp : more)
        references.push_back(&lamp);
    groupingFamily(edited.type).edit(m_engineRoom, edited.id, references);
}

/// They came since the panel was built, and nobody could leave them out.
Lamps GroupWorkflows::membersWithoutRow(const StripTarget& edited) const
{
    Lamps lamps = edited.lamps(m_engineRoom.registry());
    std::erase_if(lamps, [this](const auto& lamp) { return m_stage.hasRow(*lamp); });
    return lamps;
}

Lamps GroupWorkflows::lampsToStay(const StripTarget& edited) const
{
    Lamps lamps = pickedLamps();
    for (const auto& lamp : membersWithoutRow(edited))
        lamps.push_back(lamp);
    return lamps;
}

void GroupWorkflows::remove(StripType type, const std::string& name)
{
    if (anotherIsOpen())
        return;
    const GroupingFamily& family = groupingFamily(type);
    m_stage.saveWindowState();
    const int pressed = m_stage.runModal(
        {"Are you sure?", std::string(family.deleteText) + name, {"Delete", "Cancel"}});
    if (pressed != 0)
        return;
    if (const auto id = family.idForName(m_engineRoom.registry(), name))
        family.remove(m_engineRoom, *id);
    fillMenusOf(type); // a rebuild may have to wait
    m_stage.rebuild();
}

void GroupWorkflows::fillMenus(bool withTags)
{
    fillMenusOf(StripType::Group);
    fillMenusOf(StripType::Location);
    if (withTags)
        fillMenusOf(StripType::Tag);
}

void GroupWorkflows::fillMenusOf(StripType type)
{
    Menus& filled = menus(type);
    filled.edit.removeAllItems();
    filled.remove.removeAllItems();
    const auto add = [&](const std::string&, const std::string& name) {
        filled.edit.addItem(name, [this, type, name] { edit(type, name); });
        filled.remove.addItem(name, [this, type, name] { remove(type, name); });
    };
    groupingAccess(type)->forEach(m_engineRoom.registry(), add);
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
