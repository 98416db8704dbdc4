#pragma once

#include "app/GroupingFamily.h"
#include "app/StripCollection.h"
#include "strips/MenuModel.h"

#include <array>

namespace lumeroom {

class Log;
class WorkflowStage;

/// Making, editing and deleting groups, locations and tags: the panel goes over to all lamps, the
/// user picks some in place and confirms in a popover, and the panel goes back. While one popover
/// is open, no other begins. Menus hand over the name alone: of two with one name, the first that
/// the engine finds is meant.
class GroupWorkflows {
public:
    GroupWorkflows(EngineRoom& engineRoom, Log& log, WorkflowStage& stage);
    GroupWorkflows(const GroupWorkflows&) = delete;
    GroupWorkflows& operator=(const GroupWorkflows&) = delete;

    void makeGroupStep1() { makeStep1(GroupingKind::Group); }
    void makeLocationStep1() { makeStep1(GroupingKind::Location); }
    void makeTagStep1() { makeStep1(GroupingKind::Tag); }
    void editGroupStep1(const std::string& name) { editStep1(GroupingKind::Group, name); }
    void editLocationStep1(const std::string& name) { editStep1(GroupingKind::Location, name); }
    void editTagStep1(const std::string& name) { editStep1(GroupingKind::Tag, name); }
    void removeGroup(const std::string& name) { remove(GroupingKind::Group, name); }
    void removeLocation(const std::string& name) { remove(GroupingKind::Location, name); }
    void removeTag(const std::string& name) { remove(GroupingKind::Tag, name); }

    // The menus hold what there was when they were last filled
    MenuModel& editGroupMenu() { return menus(GroupingKind::Group).edit; }
    MenuModel& deleteGroupMenu() { return menus(GroupingKind::Group).remove; }
    MenuModel& editLocationMenu() { return menus(GroupingKind::Location).edit; }
    MenuModel& deleteLocationMenu() { return menus(GroupingKind::Location).remove; }
    MenuModel& editTagMenu() { return menus(GroupingKind::Tag).edit; }
    MenuModel& deleteTagMenu() { return menus(GroupingKind::Tag).remove; }
    /// Fills the menus with the names that the engine knows; those of tags only on demand.
    void fillMenus(bool withTags);
    /// Pops the menu up over the button, whose frame is in window coordinates.
    void editGroupActionButton(const Rectangle& button);
    void deleteGroupActionButton(const Rectangle& button);

private:
    /// Brings a popover that is open to the front; it stays until one of its buttons is pressed.
    bool anotherIsOpen() const;

    struct Menus {
        MenuModel edit;
        MenuModel remove;
    };

    void fillMenusOf(GroupingKind kind);
    void makeStep1(GroupingKind kind);
    void makePopoverClose(GroupingKind kind, int tag, const std::string& name);
    void make(GroupingKind kind, const Strips& strips, const std::string& name);
    void editStep1(GroupingKind kind, const std::string& name);
    void editPopoverClose(GroupingKind kind, int tag, const std::string& name);
    void remove(GroupingKind kind, const std::string& name);
    void select(const Lamps& lamps, const std::string& name);
    void popUpOver(const Rectangle& button, MenuModel& menu);
    Menus& menus(GroupingKind kind) { return m_menus.at(static_cast<std::size_t>(kind)); }

    EngineRoom& m_engineRoom;
    Log& m_log;
    WorkflowStage& m_stage;
    std::array<Menus, 3> m_menus;
};

} // namespace lumeroom
