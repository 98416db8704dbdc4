#include "app/GroupWorkflows.h"

#include "ControllerHarness.h"
#include "app/StripSelection.h"
#include "support/EngineHarness.h"

namespace lumeroom::test {

namespace {

using Lines = std::vector<std::string>;

/// Shows every lamp of the engine once it is navigated, and keeps what it is asked for.
struct FakeWorkflowPanel : WorkflowPanel {
    FakeWorkflowPanel(EngineHarness& test)
        : harness(test)
    {
    }
    void navigateLampsInTypeID(
        const std::string& description, StripType type, const std::string& id) override
    {
        calls.push_back(fmt::format("navigate {} {} {}", description, static_cast<int>(type), id));
        strips.clear();
        for (const auto& lamp : harness.engine().registry().lightsArray())
            strips.add(std::make_shared<LampControlStrip>(lamp->id, StripType::Lamp, harness.loop));
        onRebuild();
    }
    void unNavigate() override { calls.emplace_back("unNavigate"); }
    void rebuild() override
    {
        calls.emplace_back("rebuild");
        onRebuild();
    }
    void saveWindowState() override { calls.emplace_back("saveWindowState"); }
    bool isShown(GroupingKind kind) const override { return shown == kind; }
    std::shared_ptr<LampControlStrip> getStripWithID(std::string_view id) const override
    {
        return strips.getStripWithID(id);
    }
    void deselectAndShowAllLampSelectionButtons() override
    {
        selection.deselectAndShowAllLampSelectionButtons();
    }
    void setSelectedLampStripsAndShow(const Strips& selected) override
    {
        selection.setSelectedLampStripsAndShow(selected);
    }
    void hideAllSelectionButtons() override { selection.hideAllSelectionButtons(); }
    Strips getSelectedLampStrips() const override { return selection.getSelectedLampStrips(); }
    Rectangle popoverRectangle() const override { return {7, 8, 9, 10}; }
    void showWorkflowPopover(const WorkflowPopover& popover) override { open = popover; }
    void bringWorkflowPopoverToFront() override { calls.emplace_back("to front"); }
    void closeWorkflowPopover() override
    {
        calls.emplace_back("close");
        open.reset();
    }
    int runModal(const Alert& alert) override
    {
        alerts.push_back(alert);
        return answer;
    }
    void popUpMenu(MenuModel& menu, Point at) override
    {
        poppedUp = &menu;
        poppedUpAt = at;
    }

    /// The user's choice of the lamps with these numbers, in place of those selected.
    void select(const std::vector<unsigned>& lamps)
    {
        for (const auto& strip : strips.strips())
            strip->setSelected(false);
        for (const unsigned n : lamps)
            getStripWithID(lampID(n))->setSelected(true);
    }
    bool buttonsShown() const
    {
        return std::all_of(strips.strips().begin(), strips.strips().end(),
            [](const auto& strip) { return !strip->getSelectedButton().isHidden(); });
    }
    void press(int tag, const std::string& name)
    {
        const auto popover = open.value(); // as a view would, which goes with the popover
        popover.close(tag, name);
    }
    Lines takeCalls() { return std::exchange(calls, {}); }

    EngineHarness& harness;
    std::function<void()> onRebuild = [] {};
    StripCollection strips{harness.defaults, harness.log};
    StripSelection selection{strips};
    std::optional<GroupingKind> shown;
    std::optional<WorkflowPopover> open;
    int answer = 0;
    std::vector<Alert> alerts;
    MenuModel* poppedUp = nullptr;
    Point poppedUpAt;
    Lines calls;
};

Lines titles(const MenuModel& menu)
{
    Lines list;
    for (const auto& item : menu.items())
        list.push_back(item->title());
    return list;
}

} // namespace

/// Lamps 1 to 3 in a group "Den", a location "Home" and with a tag "Warm": the first two of them in
/// each.
struct Workflows : EngineHarness {
    Workflows()
    {
        for (unsigned n = 1; n <= 3; ++n)
            addLamp(n, {.label = "Lamp " + std::to_string(n)});
        receive(stateTagLabels(1, 1, "Warm"));
        for (unsigned n = 1; n <= 2; ++n) {
            receive(stateGrouping(53, n, 0xA1, "Den"));
            receive(stateGrouping(50, n, 0xB2, "Home"));
            receive(stateTags(n, 1));
        }
        panel.onRebuild = [this] { workflows.fillMenus(true); };
        panel.onRebuild();
    }
    Lines members(GroupingKind kind, const std::string& name)
    {
        Lamps lamps;
        if (kind == GroupingKind::Group)
            lamps = engine().registry().lightsArrayForGroup(
                engine().registry().IDForGroupNamed(name).value_or("none"));
        else if (kind == GroupingKind::Location)
            lamps = engine().registry().lightsArrayForLocation(
                engine().registry().IDForLocationNamed(name).value_or("none"));
        else
            lamps = engine().registry().lightsArrayForTag(name);
        Lines list;
        for (const auto& lamp : lamps)
            list.push_back(lamp->label);
        return list;
    }
    MenuModel& editMenu(GroupingKind kind)
    {
        return kind == GroupingKind::Group   ? workflows.editGroupMenu()
            : kind == GroupingKind::Location ? workflows.editLocationMenu()
                                             : workflows.editTagMenu();
    }
    MenuModel& deleteMenu(GroupingKind kind)
    {
        return kind == GroupingKind::Group   ? workflows.deleteGroupMenu()
            : kind == GroupingKind::Location ? workflows.deleteLocationMenu()
                                             : workflows.deleteTagMenu();
    }
    void beginToMake(GroupingKind kind)
    {
        if (kind == GroupingKind::Group)
            workflows.makeGroupStep1();
        else if (kind == GroupingKind::Location)
            workflows.makeLocationStep1();
        else
            workflows.makeTagStep1();
    }

    FakeWorkflowPanel panel{*this};
    GroupWorkflows workflows{engine(), log, panel};
};

TEST_F(Workflows, making)
{
    const struct {
        GroupingKind kind;
        std::string description;
    } cases[] = {{GroupingKind::Group, "Making new group"},
        {GroupingKind::Location, "Making new location"}, {GroupingKind::Tag, "Making new Tag"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.description);
        beginToMake(c.kind);
        EXPECT_EQ(panel.takeCalls(), (Lines{"navigate " + c.description + " 0 0"}));
        EXPECT_TRUE(panel.buttonsShown());
        EXPECT_EQ(panel.open.value().name, "");
        EXPECT_EQ(panel.open->pointsAt, (Rectangle{7, 8, 9, 10}));
        panel.select({2, 3});
        panel.press(0, "Attic"); // cancelled
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "unNavigate"}));
        EXPECT_FALSE(panel.buttonsShown());

        beginToMake(c.kind);
        panel.takeCalls();
        panel.press(1, "Attic"); // without lamps
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "unNavigate"}));
        EXPECT_EQ(members(c.kind, "Attic"), Lines{});
        EXPECT_EQ(titles(editMenu(c.kind)).size(), 1U);

        // Where the kind is not shown there is no rebuild but the one of the way back.
        beginToMake(c.kind);
        panel.select({2, 3});
        panel.takeCalls();
        panel.press(1, "Attic");
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "saveWindowState", "unNavigate"}));
        if (c.kind != GroupingKind::Tag) { // a lamp tells of its tags itself
            EXPECT_EQ(members(c.kind, "Attic"), (Lines{"Lamp 2", "Lamp 3"}));
        }

        panel.shown = c.kind;
        beginToMake(c.kind);
        panel.select({1});
        panel.takeCalls();
        panel.press(1, ""); // no name is no hindrance
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "saveWindowState", "rebuild", "unNavigate"}));
        EXPECT_EQ(titles(editMenu(c.kind)).back(), "");
    }
}

TEST_F(Workflows, editing)
{
    const struct {
        GroupingKind kind;
        std::string name;
        std::string description;
    } cases[] = {{GroupingKind::Group, "Den", "Editing lights in group: Den"},
        {GroupingKind::Location, "Home", "Editing lights in location: Home"},
        {GroupingKind::Tag, "Warm", "Editing lights tagged: Warm"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        lines.clear();
        panel.takeCalls();
        defaults.setObject("verbosity", 2);
        // The menu is filled anew while its entry acts.
        editMenu(c.kind).itemWithTitle(c.name)->choose();
        EXPECT_EQ(panel.takeCalls(), (Lines{"navigate " + c.description + " 0 0"}));
        EXPECT_EQ(panel.open.value().name, c.name);
        EXPECT_EQ(linesWith("lamps inclued in " + c.name + ":"), 1);
        EXPECT_EQ(linesWith(lampID(2) + ", Lamp 2"), 1);
        EXPECT_TRUE(panel.buttonsShown());
        EXPECT_EQ(panel.getSelectedLampStrips().size(), 2U);
        EXPECT_FALSE(panel.getStripWithID(lampID(3))->isSelected());
        panel.select({});
        panel.press(0, c.name);
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "unNavigate"}));
        EXPECT_FALSE(panel.buttonsShown());
        EXPECT_EQ(members(c.kind, c.name).size(), 2U);

        editMenu(c.kind).itemWithTitle(c.name)->choose();
        panel.select({2, 3});
        panel.takeCalls();
        delegate.alerts.clear();
        panel.press(1, c.name);
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "unNavigate"}));
        EXPECT_EQ(delegate.alerts.size(), 1U); // the engine says that it is done
        if (c.kind == GroupingKind::Tag)
            continue;
        EXPECT_EQ(members(c.kind, c.name), (Lines{"Lamp 2", "Lamp 3"}));

        // The name is a key, and names none when it is another.
        defaults.setObject("verbosity", 0);
        editMenu(c.kind).itemWithTitle(c.name)->choose();
        panel.select({1});
        panel.takeCalls();
        lines.clear();
        panel.press(1, "");
        EXPECT_EQ(panel.takeCalls(), (Lines{"close", "unNavigate"}));
        EXPECT_EQ(lines, (Lines{"unable to find ID for "}));
        EXPECT_EQ(members(c.kind, c.name), (Lines{"Lamp 2", "Lamp 3"}));

        // Nobody selected is an answer too: the engine gets it as it stands.
        editMenu(c.kind).itemWithTitle(c.name)->choose();
        panel.select({});
        panel.press(1, c.name);
        EXPECT_EQ(members(c.kind, c.name), Lines{});
    }
}

TEST_F(Workflows, editingWhatIsGone)
{
    workflows.editGroupStep1("Nowhere");
    EXPECT_TRUE(lines.empty());
    defaults.setObject("verbosity", 1);
    workflows.editGroupStep1("Nowhere");
    workflows.editLocationStep1("Nowhere");
    EXPECT_EQ(lines,
        (Lines{"Unable to find ID for group Nowhere:", "Unable to find ID for location Nowhere:"}));
    EXPECT_FALSE(panel.open);
    EXPECT_TRUE(panel.calls.empty());
    workflows.editTagStep1("Nowhere"); // a tag's name is its ID, so this one opens, with no lamp
    EXPECT_EQ(panel.open.value().name, "Nowhere");
    EXPECT_TRUE(panel.getSelectedLampStrips().empty());
}

TEST_F(Workflows, twoOfOneNameReachTheFirst)
{
    receive(stateGrouping(53, 3, 0xC3, "Den"));
    workflows.fillMenus(false);
    ASSERT_EQ(titles(workflows.editGroupMenu()), (Lines{"Den", "Den"}));
    workflows.editGroupMenu().items().back()->choose();
    EXPECT_EQ(panel.getSelectedLampStrips().size(), 2U);
    EXPECT_FALSE(panel.getStripWithID(lampID(3))->isSelected());
}

TEST_F(Workflows, removing)
{
    defaults.setObject("verbosity", 3);
    const struct {
        GroupingKind kind;
        std::string name;
        std::string text;
        std::string engineLine;
    } cases[] = {
        {GroupingKind::Group, "Den", "the group: Den",
            "remove group " + std::string(engine().registry().IDForGroupNamed("Den").value())},
        {GroupingKind::Location, "Home", "the location: Home",
            "remove group " + std::string(engine().registry().IDForLocationNamed("Home").value())},
        {GroupingKind::Tag, "Warm", "the tag: Warm", "remove tag Warm"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        lines.clear();
        panel.alerts.clear();
        panel.answer = 1;
        deleteMenu(c.kind).itemWithTitle(c.name)->choose();
        EXPECT_EQ(panel.takeCalls(), (Lines{"saveWindowState"}));
        EXPECT_EQ(linesWith("instructed"), 0);
        panel.answer = 0;
        deleteMenu(c.kind).itemWithTitle(c.name)->choose();
        EXPECT_EQ(panel.takeCalls(), (Lines{"saveWindowState", "rebuild"}));
        EXPECT_EQ(linesWith(c.engineLine), 1) << c.engineLine;
        ASSERT_EQ(panel.alerts.size(), 2U);
        EXPECT_EQ(panel.alerts[0].title, "Are you sure?");
        EXPECT_EQ(panel.alerts[0].text, "Are you sure you want to delete " + c.text);
        EXPECT_EQ(panel.alerts[0].buttons, (Lines{"Delete", "Cancel"}));
    }
    EXPECT_EQ(titles(workflows.deleteGroupMenu()), Lines{});
    EXPECT_EQ(titles(workflows.editLocationMenu()), Lines{"Home"}); // went the way of a group
    workflows.removeGroup("Nowhere");
    EXPECT_EQ(panel.takeCalls(), (Lines{"saveWindowState", "rebuild"}));
}

TEST_F(Workflows, theWayBackDropsOnlyEditsOfGroupsAndLocations)
{
    const struct {
        std::function<void()> begin;
        bool staysOpen;
    } cases[] = {
        {[this] { workflows.editGroupStep1("Den"); }, false},
        {[this] { workflows.editLocationStep1("Home"); }, false},
        {[this] { workflows.editTagStep1("Warm"); }, true},
        {[this] { workflows.makeGroupStep1(); }, true},
    };
    for (const auto& c : cases) {
        c.begin();
        workflows.closeEditPopovers();
        EXPECT_EQ(panel.open.has_value(), c.staysOpen);
        if (c.staysOpen)
            panel.press(0, "");
    }
    panel.takeCalls();
    workflows.closeEditPopovers(); // nothing is open
    EXPECT_TRUE(panel.takeCalls().empty());
}

TEST_F(Workflows, oneThatIsOpenIsNotReplaced)
{
    workflows.makeGroupStep1();
    panel.select({1, 3});
    panel.takeCalls();
    workflows.makeLocationStep1();
    workflows.editTagStep1("Warm");
    EXPECT_EQ(panel.takeCalls(), (Lines{"to front", "to front"}));
    panel.press(1, "Attic");
    EXPECT_EQ(members(GroupingKind::Group, "Attic"), (Lines{"Lamp 1", "Lamp 3"}));
    workflows.editTagStep1("Warm");
    EXPECT_EQ(panel.open.value().name, "Warm");
}

TEST_F(Workflows, theButtonsPopTheirMenusUp)
{
    workflows.editGroupActionButton({20, 300, 60, 40});
    EXPECT_EQ(panel.poppedUp, &workflows.editGroupMenu());
    EXPECT_EQ(panel.poppedUpAt, (Point{20, 330}));
    workflows.deleteGroupActionButton({20, 300, 60, 40});
    EXPECT_EQ(panel.poppedUp, &workflows.deleteGroupMenu());
}

/// The same with the real panel set-up.
TEST_F(Controller, aGroupIsMadeAndEditedOnThePanel)
{
    for (unsigned n = 1; n <= 3; ++n)
        addNamed(n, "Lamp " + std::to_string(n));
    panel.rowSize = {200, 350};
    launch();
    panel.navigation->groups.press();
    GroupWorkflows& workflows = controller.workflows();
    EXPECT_FALSE(panel.navigation->editGroup.isEnabled()); // there is none
    panel.actions.makeGroup();
    EXPECT_EQ(panel.navigation->description, "Making new group");
    ASSERT_EQ(panel.rows.size(), 3U);
    EXPECT_EQ(panel.workflow.value().pointsAt, (Rectangle{0, 300, 600, 50})); // at the bottom
    panel.strip(0).getSelectedButton().press();
    const int builds = panel.builds;
    addNamed(4, "Late"); // must not take the selection away
    loop.advance(Seconds(12));
    EXPECT_EQ(panel.builds, builds);
    panel.navigation->back.press(); // neither must the way back
    ASSERT_TRUE(panel.workflow);
    const auto press = [&](int tag, const std::string& name) {
        const auto popover = panel.workflow.value();
        popover.close(tag, name);
    };
    press(1, "Den");
    EXPECT_FALSE(panel.workflow);
    EXPECT_FALSE(panel.navigation->isFiltered);
    EXPECT_EQ(panel.names(), (Names{"Lamp 1", "Lamp 2", "Lamp 3", "Late", "Den"}));
    EXPECT_TRUE(panel.strip(0).getSelectedButton().isHidden());
    EXPECT_TRUE(panel.navigation->editGroup.isEnabled());
    EXPECT_TRUE(panel.navigation->deleteGroup.isEnabled());
    panel.actions.deleteGroup({});
    EXPECT_EQ(panel.poppedUp, &workflows.deleteGroupMenu());

    const auto entry = workflows.editGroupMenu().itemWithTitle("Den");
    ASSERT_TRUE(entry);
    entry->choose();
    EXPECT_TRUE(panel.strip(0).isSelected());
    EXPECT_FALSE(panel.strip(1).isSelected());
    panel.navigation->back.press();
    EXPECT_FALSE(panel.workflow);
    workflows.editGroupStep1("Den");
    panel.strip(1).setSelected(true);
    press(1, "Den");
    EXPECT_EQ(
        engine().registry().lightsArrayForGroup(*engine().registry().IDForGroupNamed("Den")).size(),
        2U);
}

} // namespace lumeroom::test
