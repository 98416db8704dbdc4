#pragma once

#include "app/GroupingFamily.h"
#include "app/StripCollection.h"
#include "strips/MenuModel.h"

#include <map>
#include <set>

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

    void makeGroupStep1() { makeStep1(StripType::Group); }
    void makeLocationStep1() { makeStep1(StripType::Location); }
    void makeTagStep1() { makeStep1(StripType::Tag); }
    void editGroupStep1(const std::string& name) { edit(StripType::Group, name); }
    void editLocationStep1(const std::string& name) { edit(StripType::Location, name); }
    void editTagStep1(const std::string& name) { edit(StripType::Tag, name); }
    /// One of these three.
    void edit(StripType type, const std::string& name);
    void removeGroup(const std::string& name) { remove(StripType::Group, name); }
    void removeLocation(const std::string& name) { remove(StripType::Location, name); }
    void removeTag(const std::string& name) { remove(StripType::Tag, name); }

    // The menus hold what there was when they were last filled
    MenuModel& editGroupMenu() { return menus(StripType::Group).edit; }
    MenuModel& deleteGroupMenu() { return menus(StripType::Group).remove; }
    MenuModel& editLocationMenu() { return menus(StripType::Location).edit; }
    MenuModel& deleteLocationMenu() { return menus(StripType::Location).remove; }
    MenuModel& editTagMenu() { return menus(StripType::Tag).edit; }
    MenuModel& deleteTagMenu() { return menus(StripType::Tag).remove; }
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

    void fillMenusOf(StripType type);
    void makeStep1(StripType type);
    void makePopoverClose(StripType type, int tag, const std::string& name);
    void make(StripType type, const Strips& strips, const std::string& name);
    void editPopoverClose(StripType type, int tag, const std::string& name);
    void remove(StripType type, const std::string& name);
    void save(const StripTarget& edited);
    Lamps pickedLamps() const;
    Lamps membersWithoutRow(const StripTarget& edited) const;
    Lamps lampsToStay(const StripTarget& edited) const;
    void selectMembers(const StripTarget& target, const std::string& name);
    void tickNewMembers(const StripTarget& target);
    void popUpOver(const Rectangle& button, MenuModel& menu);
    Menus& menus(StripType type) { return m_menus[type]; }

    EngineRoom& m_engineRoom;
    Log& m_log;
    WorkflowStage& m_stage;
    std::map<StripType, Menus> m_menus;
    std::set<std::string> m_ticked; ///< members of what is edited: a later no is the user's
};

} // namespace lumeroom
