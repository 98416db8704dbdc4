#include "ControllerHarness.h"

namespace lumeroom::test {

namespace {

/// One kind of grouping, of which there is one with the first two lamps.
struct Kind {
    StripType type;
    std::string name;
    std::function<void(GroupWorkflows&)> make;
    std::function<MenuModel&(GroupWorkflows&)> editMenu;
    std::function<MenuModel&(GroupWorkflows&)> deleteMenu;
    ButtonModel NavigationModel::*shown;
    std::string making, editing, deleting, removed; ///< the texts
};

} // namespace

/// Lamps 1 to 3 in a group "Den", a location "Home" and with a tag "Warm": the first two of them in
/// each.
struct Workflows : Controller {
    Workflows()
    {
        for (unsigned n = 1; n <= 3; ++n)
            addNamed(n, "Lamp " + std::to_string(n));
        receive(stateTagLabels(1, 1, "Warm"));
        for (unsigned n = 1; n <= 2; ++n) {
            receive(stateGrouping(53, n, 0xA1, "Den"));
            receive(stateGrouping(50, n, 0xB2, "Home"));
            receive(stateTags(n, 1));
        }
        panel.rowSize = {200, 350};
        launch();
        navigation().tags.press();
    }
    std::vector<Kind> kinds()
    {
        const auto id = [](const auto& records) { return records.at(0)->id; };
        return {
            {StripType::Group, "Den", &GroupWorkflows::makeGroupStep1,
                &GroupWorkflows::editGroupMenu, &GroupWorkflows::deleteGroupMenu,
                &NavigationModel::groups, "Making new group", "Editing lights in group: Den",
                "the group: Den", "remove group " + id(engine().registry().groupsArray())},
            {StripType::Location, "Home", &GroupWorkflows::makeLocationStep1,
                &GroupWorkflows::editLocationMenu, &GroupWorkflows::deleteLocationMenu,
                &NavigationModel::locations, "Making new location",
                "Editing lights in location: Home", "the location: Home",
                "remove group " + id(engine().registry().locationssArray())},
            {StripType::Tag, "Warm", &GroupWorkflows::makeTagStep1, &GroupWorkflows::editTagMenu,
                &GroupWorkflows::deleteTagMenu, &NavigationModel::tags, "Making new Tag",
                "Editing lights tagged: Warm", "the tag: Warm", "remove tag Warm"},
        };
    }
    /// The names of the lamps in it.
    Names members(StripType type, const std::string& name)
    {
        Lamps lamps;
        if (type == StripType::Group)
            lamps = engine().registry().lightsArrayForGroup(
                engine().registry().IDForGroupNamed(name).value_or("none"));
        else if (type == StripType::Location)
            lamps = engine().registry().lightsArrayForLocation(
                engine().registry().IDForLocationNamed(name).value_or("none"));
        else
            lamps = engine().registry().lightsArrayForTag(name);
        Names list;
        for (const auto& lamp : lamps)
            list.push_back(lamp->label);
        return list;
    }
    /// The user's choice of lamps, in place of those selected, by their place on the panel.
    void select(const std::vector<std::size_t>& places)
    {
        for (FakeRow* row : panel.rows) {
            EXPECT_FALSE(row->strip.getSelectedButton().isHidden());
            row->strip.setSelected(false);
        }
        for (const std::size_t place : places)
            panel.strip(place).getSelectedButton().press();
    }
    Names selected() const
    {
        Names list;
        for (const FakeRow* row : panel.rows) {
            if (row->strip.isSelected())
                list.push_back(row->strip.label().text());
        }
        return list;
    }
    void press(int tag, const std::string& name)
    {
        const auto popover = panel.workflow.value(); // as a view would, which goes with the popover
        popover.close(tag, name);
        EXPECT_FALSE(panel.workflow);
        EXPECT_FALSE(navigation().filter);
        for (const FakeRow* row : panel.rows)
            EXPECT_TRUE(row->strip.getSelectedButton().isHidden());
    }
    /// The menu may be filled anew while its entry acts.
    void choose(MenuModel& menu, const std::string& name) { menu.itemWithTitle(name)->choose(); }

    GroupWorkflows& workflows{controller.workflows()};
};

TEST_F(Workflows, making)
{
    for (const Kind& kind : kinds()) {
        SCOPED_TRACE(kind.making);
        const auto begin = [&] {
            kind.make(workflows);
            EXPECT_EQ(navigation().filter.value().description, kind.making);
            EXPECT_EQ(panel.names(), (Names{"Lamp 1", "Lamp 2", "Lamp 3"}));
            EXPECT_TRUE(panel.workflow.value().asksForName);
        };
        begin();
        select({1, 2});
        press(WorkflowPopover::kCancelTag, "Attic");
        begin();
        press(WorkflowPopover::kConfirmTag, "Attic"); // without lamps
        EXPECT_EQ(kind.editMenu(workflows).items().size(), 1U);
        const bool wasShown = (navigation().*kind.shown).state();
        EXPECT_EQ(wasShown, kind.type == StripType::Tag);

        begin();
        select({1, 2});
        const int builds = panel.builds;
        press(WorkflowPopover::kConfirmTag, "At\ntic"); // as pasted
        EXPECT_EQ(panel.builds, builds + (wasShown ? 2 : 1));
        EXPECT_TRUE((navigation().*kind.shown).state());
        EXPECT_EQ(panel.revealed.back(), "At tic");
        if (kind.type != StripType::Tag) { // a lamp tells of its tags itself
            EXPECT_EQ(members(kind.type, "At tic"), (Names{"Lamp 2", "Lamp 3"}));
        }
        EXPECT_TRUE(kind.editMenu(workflows).itemWithTitle("At tic"));
        begin();
        select({0});
        press(WorkflowPopover::kConfirmTag, ""); // no name is no hindrance
        EXPECT_TRUE(kind.deleteMenu(workflows).itemWithTitle(""));
    }
    workflows.makeGroupStep1();
    select({0});
    press(WorkflowPopover::kConfirmTag, "At tic"); // another one
    EXPECT_EQ(panel.revealedTarget.id, engine().registry().groupsArray().back()->id);
    const auto seen = panel.revealed.size();
    workflows.makeGroupStep1();
    press(WorkflowPopover::kCancelTag, "");
    EXPECT_EQ(panel.revealed.size(), seen);
}

TEST_F(Workflows, thePopoverSaysWhatWouldHappen)
{
    receive(stateGrouping(53, 3, 0xC3, "Stu\ndy"));
    const auto make = [](auto step) { return [step](GroupWorkflows& w) { (w.*step)(); }; };
    const auto edit = [](auto step, const char* name) {
        return [step, name](GroupWorkflows& w) { (w.*step)(name); };
    };
    const struct {
        std::function<void(GroupWorkflows&)> begin;
        std::string name;
        std::vector<std::size_t> picked;
        std::string summary;
        bool canConfirm;
    } cases[] = {
        {make(&GroupWorkflows::makeGroupStep1), "Attic", {}, "Pick the lamps", false},
        {{}, "", {}, "Pick the lamps\nGive it a name", false},
        {{}, "Attic", {2}, "1 lamp, 1 moved from Stu dy", true},
        {{}, " \xE3\x80\x80\xE2\x80\x8B", {0}, "1 lamp, 1 moved from Den\nGive it a name", false},
        {{}, "De\tn", {0}, "1 lamp, 1 moved from Den", true},
        {{}, "Attic", {0, 1, 2}, "3 lamps, 3 moved from other groups", true},
        {{}, "Den", {0}, "1 lamp, 1 moved from Den\nA group called Den is there already", true},
        {make(&GroupWorkflows::makeLocationStep1), "Den", {1, 2}, "2 lamps, 1 moved from Home",
            true},
        {make(&GroupWorkflows::makeTagStep1), "Den", {0, 1}, "2 lamps", true},
        {edit(&GroupWorkflows::editGroupStep1, "Den"), "", {0}, "1 lamp, 1 leaves", true},
        {{}, "", {0, 2}, "2 lamps, 1 moved from Stu dy, 1 leaves", true},
        {{}, "", {2}, "1 lamp, 1 moved from Stu dy, 2 leave", true},
        {{}, "", {}, "No lamps: the group stays until Lumeroom ends", true},
        {edit(&GroupWorkflows::editTagStep1, "Warm"), "", {2}, "1 lamp, 2 leave", true},
        {{}, "", {}, "No lamps: the tag stays", true},
    };
    for (const auto& c : cases) {
        if (c.begin) {
            navigation().back.press();
            c.begin(workflows);
        }
        panel.named = c.name;
        panel.updateWorkflowPopover(); // as after each letter
        select(c.picked);
        EXPECT_EQ(panel.workflowState.summary, c.summary);
        EXPECT_EQ(panel.workflowState.canConfirm, c.canConfirm) << c.name;
    }
}

TEST_F(Workflows, editing)
{
    for (const Kind& kind : kinds()) {
        SCOPED_TRACE(kind.name);
        MenuModel& menu = kind.editMenu(workflows);
        defaults.setObject("verbosity", 2);
        lines.clear();
        choose(menu, kind.name);
        EXPECT_EQ(navigation().filter.value().description, kind.editing);
        EXPECT_EQ(panel.workflow.value().name, kind.name);
        EXPECT_EQ(linesWith("lamps inclued in " + kind.name + ":"), 1);
        EXPECT_EQ(linesWith(lampID(2) + ", Lamp 2"), 1);
        EXPECT_EQ(selected(), (Names{"Lamp 1", "Lamp 2"}));
        select({});
        press(WorkflowPopover::kCancelTag, kind.name);
        EXPECT_EQ(members(kind.type, kind.name).size(), 2U);

        panel.alerts.clear();
        choose(menu, kind.name);
        select({1, 2});
        press(WorkflowPopover::kConfirmTag, kind.name);
        EXPECT_EQ(panel.alerts.size(), 1U); // the engine says that it is done
        if (kind.type == StripType::Tag)
            continue;
        EXPECT_EQ(members(kind.type, kind.name), (Names{"Lamp 2", "Lamp 3"}));

        // The name is a key, and names none when it is another.
        choose(menu, kind.name);
        select({0});
        lines.clear();
        press(WorkflowPopover::kConfirmTag, "");
        EXPECT_EQ(linesWith("unable to find ID for "), 1);
        EXPECT_EQ(members(kind.type, kind.name), (Names{"Lamp 2", "Lamp 3"}));

        choose(menu, kind.name);
        select({}); // nobody is an answer too
        press(WorkflowPopover::kConfirmTag, kind.name);
        EXPECT_EQ(members(kind.type, kind.name), Names{});
    }
    lines.clear();
    workflows.editGroupStep1("Nowhere");
    workflows.editLocationStep1("Nowhere");
    EXPECT_EQ(lines,
        (Names{"Unable to find ID for group Nowhere:", "Unable to find ID for location Nowhere:"}));
    EXPECT_FALSE(panel.workflow);
    workflows.editTagStep1("Nowhere"); // a tag's name is its ID, so this one opens, with no lamp
    EXPECT_EQ(selected(), Names{});
}

TEST_F(Workflows, whatIsEditedCanGetAnotherNameOrGo)
{
    const std::string id = engine().registry().groupsArray().at(0)->id;
    workflows.editGroupStep1("Den");
    workflows.removeGroup("Den"); // not from under the popover
    EXPECT_TRUE(panel.alerts.empty());
    EXPECT_EQ(panel.broughtToFront, 1);
    const auto says = [this](const std::string& summary) {
        controller.lampStatesChanged();
        loop.runPosted();
        EXPECT_EQ(panel.workflowState.summary, summary);
        EXPECT_FALSE(panel.workflowState.canConfirm);
    };
    engine().groupings().renameGroupNewName(id, "La\nir");
    says("The group is called La ir now");
    engine().groupings().removeGroupWithID(id);
    says("The group is gone");
}

TEST_F(Workflows, removing)
{
    defaults.setObject("verbosity", 3);
    for (const Kind& kind : kinds()) {
        SCOPED_TRACE(kind.name);
        MenuModel& menu = kind.deleteMenu(workflows);
        lines.clear();
        panel.alerts.clear();
        panel.answer = 1;
        choose(menu, kind.name);
        EXPECT_EQ(linesWith("instructed"), 0);
        panel.answer = 0;
        panel.rows.at(0)->dragged = true; // the rebuild has to wait
        choose(menu, kind.name);
        EXPECT_EQ(linesWith(kind.removed), 1);
        ASSERT_GE(panel.alerts.size(), 2U);
        EXPECT_EQ(panel.alerts[0].title, "Are you sure?");
        EXPECT_EQ(panel.alerts[0].text, "Are you sure you want to delete " + kind.deleting);
        EXPECT_EQ(panel.alerts[0].buttons, (Names{"Delete", "Cancel"}));
        // A location goes the way of a group, and so it stays.
        EXPECT_EQ(menu.items().empty(), kind.type != StripType::Location);
        panel.rows.at(0)->dragged = false;
        loop.advance(Seconds(6));
    }
    EXPECT_FALSE(navigation().editGroup.isEnabled());
}

TEST_F(Workflows, nothingIsConfirmedBeforeTheLampsAreOnThePanel)
{
    const auto begin = [this](FakeRow& row, bool held) {
        row.popover = held;
        controller.panelSetUp().refreshSetUpUsingRecycling(true); // for which a held row has time
        row.strip.brightnessSlider().moveTo(held ? 20 : 30);
        workflows.editGroupStep1("Den");
        panel.updateWorkflowPopover();
        EXPECT_FALSE(panel.workflowState.canConfirm);
        EXPECT_EQ(panel.workflowState.summary, "Waiting for the lamps");
        loop.advance(Seconds(1));
        EXPECT_EQ(panel.workflowState.canConfirm, !held);
        row.popover = false;
        loop.advance(Seconds(0.25));
    };
    for (const bool held : {false, true}) {
        navigation().showOnly(navigation().groups);
        ASSERT_EQ(panel.names(), Names{"Den"});
        const int brought = panel.broughtToFront;
        begin(*panel.rows.at(0), held);
        EXPECT_EQ(selected(), (Names{"Lamp 1", "Lamp 2"}));
        EXPECT_EQ(panel.broughtToFront, brought + 1); // to the row that is the first now
        panel.rows.at(2)->strip.getSelectedButton().press();
        EXPECT_EQ(panel.workflowState.summary, "3 lamps");
        const int builds = panel.builds;
        controller.panelSetUp().refreshSetUpUsingRecycling(true);
        loop.advance(Seconds(6));
        EXPECT_EQ(panel.builds, builds);
        press(WorkflowPopover::kCancelTag, "Den");
    }
    // One that comes later has no row, and stays.
    workflows.editGroupStep1("Den");
    addNamed(4, "Late");
    receive(stateGrouping(53, 4, 0xA1, "Den"));
    select({2});
    EXPECT_EQ(panel.workflowState.summary, "2 lamps, 2 leave");
    press(WorkflowPopover::kConfirmTag, "Den");
    EXPECT_EQ(members(StripType::Group, "Den"), (Names{"Lamp 3", "Late"}));
}

TEST_F(Workflows, whoTellsLateOfBeingInItIsNotPutOutUnlessTheUserSaysSo)
{
    addNamed(4, "Lamp 4");
    loop.advance(Seconds(2));
    workflows.editGroupStep1("Den");
    panel.strip(0).getSelectedButton().press(); // leaves
    receive(stateGrouping(53, 3, 0xA1, "Den"));
    controller.lampStatesChanged();
    loop.runPosted();
    EXPECT_EQ(selected(), (Names{"Lamp 2", "Lamp 3"}));
    EXPECT_EQ(panel.workflowState.summary, "2 lamps, 1 leaves");
    panel.strip(2).getSelectedButton().press();
    controller.lampStatesChanged();
    loop.runPosted();
    EXPECT_EQ(selected(), Names{"Lamp 2"});
    receive(stateGrouping(53, 4, 0xA1, "Den"));
    press(WorkflowPopover::kConfirmTag, "Den"); // at the same time
    EXPECT_EQ(members(StripType::Group, "Den"), (Names{"Lamp 2", "Lamp 4"}));
    workflows.editGroupStep1("Den"); // not as it was left the last time
    EXPECT_EQ(selected(), (Names{"Lamp 2", "Lamp 4"}));
}

TEST_F(Workflows, oneAtATimeAndTheWayBackEndsIt)
{
    receive(stateGrouping(53, 3, 0xC3, "Den"));
    workflows.fillMenus(false);
    workflows.editGroupMenu().items().back()->choose(); // of two with one name it is the first
    EXPECT_EQ(selected(), (Names{"Lamp 1", "Lamp 2"}));
    Navigation& way = controller.panelSetUp().navigation();
    way.unNavigate(); // as nobody did by hand
    EXPECT_FALSE(panel.workflow);
    workflows.editLocationStep1("Home");
    way.unNavigate();
    EXPECT_FALSE(panel.workflow);
    std::string heard;
    controller.workflowStage().onPopover = [&](bool open) { heard += open ? "open " : "closed "; };
    workflows.editTagStep1("Warm");
    way.unNavigate();
    EXPECT_TRUE(panel.workflow); // also what follows stays open
    select({2});
    const int before = panel.builds;
    panel.navigation->back.press();
    EXPECT_EQ(panel.builds, before + 1);
    EXPECT_FALSE(panel.workflow);
    EXPECT_EQ(heard, "open closed ");
    EXPECT_EQ(members(StripType::Tag, "Warm"), (Names{"Lamp 1", "Lamp 2"}));
    EXPECT_FALSE(navigation().filter);
    for (const FakeRow* row : panel.rows)
        EXPECT_TRUE(row->strip.getSelectedButton().isHidden());

    panel.actions.makeGroup();
    select({0, 2});
    const int builds = panel.builds;
    addNamed(4, "Late"); // must not take the selection away
    loop.advance(Seconds(12));
    workflows.makeLocationStep1();
    workflows.editTagStep1("Warm");
    EXPECT_EQ(panel.broughtToFront, 2);
    EXPECT_EQ(panel.builds, builds);
    ASSERT_EQ(panel.workflow.value().confirm, "Make Group");
    press(WorkflowPopover::kConfirmTag, "Attic");
    EXPECT_EQ(members(StripType::Group, "Attic"), (Names{"Lamp 1", "Lamp 3"}));

    panel.actions.editGroup({20, 300, 60, 40});
    EXPECT_EQ(panel.poppedUp, &workflows.editGroupMenu());
    EXPECT_EQ(panel.poppedUpAt, (Point{20, 330}));
    panel.actions.deleteGroup({});
    EXPECT_EQ(panel.poppedUp, &workflows.deleteGroupMenu());
}

} // namespace lumeroom::test
