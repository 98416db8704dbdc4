#include "ControllerHarness.h"

#include <cerrno>

namespace lumeroom::test {

struct EmptyPanelNotice : Controller {
    std::string title() const { return panel.notice ? panel.notice->title : ""; }
    bool says(std::string_view words) const
    {
        return panel.notice && panel.notice->text.find(words) != std::string::npos;
    }
    Names offers() const
    {
        Names list;
        for (const auto& action : panel.notice.value().actions)
            list.push_back(action.title);
        return list;
    }
    void choose(const std::string& offer)
    {
        const auto actions = panel.notice.value().actions;
        for (const auto& action : actions) {
            if (action.title == offer)
                return action.act();
        }
        FAIL() << offer;
    }
    void leaveOn(ButtonModel& kind) { navigation().showOnly(kind); }
};

TEST_F(EmptyPanelNotice, withoutALampItTellsAfterAWhileWhatWasTried)
{
    controller.emptyPanel().offers().showLampAddresses = [] {};
    launch();
    controller.viewDidFinishDragging(); // of a row that has just gone
    EXPECT_FALSE(panel.notice);
    loop.advance(Seconds(7.9));
    EXPECT_TRUE(panel.throbbing);
    EXPECT_FALSE(panel.notice);
    loop.advance(Seconds(0.2));
    EXPECT_FALSE(panel.throbbing);
    EXPECT_TRUE(says("Everybody on the local network"));
    EXPECT_EQ(offers(), (Names{"Lamp addresses...", "Look again"}));
    const int shown = panel.noticesShown;
    loop.advance(Seconds(6));
    EXPECT_EQ(panel.noticesShown, shown); // a button under the hand stays

    complaints.failed("255.255.255.255", ENETUNREACH);
    loop.advance(Seconds(2));
    EXPECT_TRUE(says("This computer is not connected to a network."));
    defaults.setObject("noBroadcastSupport", true);
    loop.advance(Seconds(2));
    EXPECT_TRUE(says("no lamp's address is known"));
    EXPECT_FALSE(says("not connected")); // that was when everybody was asked
    defaults.setObject("manualIPAddresses", "127.0.0.1 127.0.0.2 127.0.0.3");
    loop.advance(Seconds(2));
    EXPECT_TRUE(says("127.0.0.1, 127.0.0.2 and 127.0.0.3."));
    defaults.setObject("manualIPAddresses", "127.0.0.1 127.0.0.2 127.0.0.3 127.0.0.4 127.0.0.5");
    loop.advance(Seconds(2));
    EXPECT_TRUE(says("127.0.0.1, 127.0.0.2, 127.0.0.3 and 2 more."));
}

TEST_F(EmptyPanelNotice, lookingAgainAsksNowAndALampEndsIt)
{
    defaults.setObject("heartbeatSpeed", 0.01);
    launch();
    loop.advance(Seconds(9));
    controller.workflows().makeGroupStep1();
    EXPECT_FALSE(panel.notice);
    EXPECT_TRUE(panel.throbbing);
    loop.advance(Seconds(9));
    EXPECT_FALSE(panel.notice);
    controller.panelSetUp().navigation().unNavigate(); // the popover stays
    loop.advance(Seconds(2));
    EXPECT_FALSE(panel.notice);
    std::exchange(panel.workflow, {}).value().close(WorkflowPopover::kCancelTag, "");
    ASSERT_TRUE(panel.notice);

    drainQueue();
    choose("Look again");
    EXPECT_FALSE(panel.notice);
    EXPECT_TRUE(panel.throbbing);
    loop.advance(Seconds(0.2));
    EXPECT_EQ(sockets.takeOfType(2).size(), 1U);
    loop.advance(Seconds(7));
    EXPECT_FALSE(panel.notice);
    loop.advance(Seconds(1));
    EXPECT_TRUE(panel.notice);
    addNamed(1, "Desk");
    loop.advance(Seconds(1.5));
    EXPECT_FALSE(panel.notice);
    EXPECT_FALSE(panel.throbbing);
}

TEST_F(EmptyPanelNotice, aWorkflowThatWasBegunTooEarlyOffersTheLampsThatCome)
{
    launch();
    controller.workflows().makeGroupStep1();
    addNamed(1, "Desk");
    loop.advance(Seconds(2));
    EXPECT_FALSE(panel.strip(0).getSelectedButton().isHidden());
    panel.strip(0).getSelectedButton().press();
    EXPECT_EQ(panel.workflowState.summary, "1 lamp\nGive it a name");
}

TEST_F(EmptyPanelNotice, aPageIsNotCalledEmptyBeforeTheLampsCouldTell)
{
    launch();
    loop.advance(Seconds(20));
    addNamed(1, "Desk");
    loop.advance(Seconds(2));
    leaveOn(navigation().groups);
    EXPECT_EQ(title(), "Asking the lamps for their groups");
    EXPECT_EQ(navigation().tags.toolTip(), "Asking the lamps for their tags");
    navigation().tags.press();
    EXPECT_EQ(title(), "Asking the lamps");
    addNamed(2, "Shelf"); // which has just as long as the first
    loop.advance(Seconds(12.9));
    EXPECT_EQ(title(), "Asking the lamps");
    loop.advance(Seconds(0.2));
    EXPECT_EQ(title(), "Nothing here yet");
    EXPECT_EQ(navigation().tags.toolTip(), "No tags yet");
}

TEST_F(EmptyPanelNotice, anEmptyPageTellsAtOnceHowToFillIt)
{
    addNamed(1, "Desk");
    launch();
    EXPECT_FALSE(panel.notice);
    const Size before = panel.content;
    leaveOn(navigation().groups);
    EXPECT_EQ(panel.content, before); // though there is no row to fit
    EXPECT_EQ(title(), "No groups yet");
    EXPECT_EQ(offers(), Names{"Make group..."});
    leaveOn(navigation().locations);
    EXPECT_EQ(offers(), Names{"Make location..."});
    leaveOn(navigation().tags);
    EXPECT_TRUE(says("an older kind of group"));
    navigation().groups.press();
    EXPECT_EQ(title(), "Nothing here yet");
    EXPECT_EQ(offers(), (Names{"Make group...", "Make tag..."}));
    choose("Make tag...");
    EXPECT_EQ(panel.workflow.value().confirm, "Make Tag");
    EXPECT_FALSE(panel.notice);
    std::exchange(panel.workflow, {}).value().close(WorkflowPopover::kCancelTag, "");
    EXPECT_TRUE(panel.notice);
    navigation().all.press();
    EXPECT_FALSE(panel.notice);

    navigation().lights.press();
    EXPECT_EQ(navigation().groups.toolTip(), "No groups yet");
    receive(stateGrouping(kStateGroup, 1, 7, "Study"));
    leaveOn(navigation().groups);
    EXPECT_EQ(navigation().groups.toolTip(), "");
    EXPECT_EQ(navigation().locations.toolTip(), "No locations yet");
    EXPECT_FALSE(panel.notice);
    const auto loseTheLampOf = [this](std::size_t group) {
        panel.strip(group).navigationButton().press();
        engine().registry().lampWithID(lampID(1))->group.reset();
        controller.panelSetUp().refreshSetUpUsingRecycling(true);
        EXPECT_EQ(title(), "No lamps here any more");
    };
    loseTheLampOf(0);
    choose("Edit group...");
    EXPECT_EQ(panel.workflow.value().name, "Study");
    std::exchange(panel.workflow, {}).value().close(WorkflowPopover::kCancelTag, "");
    receive(stateGrouping(kStateGroup, 1, 8, "Study")); // another, to which the name does not lead
    loop.advance(Seconds(2));
    loseTheLampOf(1);
    EXPECT_EQ(offers(), Names{"Back"});
    choose("Back");
    EXPECT_FALSE(navigation().filter);
    EXPECT_EQ(panel.names(), (Names{"Study", "Study"}));
    panel.strip(0).navigationButton().press();
    controller.workflows().removeGroup("Study");
    EXPECT_EQ(title(), "This group is gone");
    EXPECT_EQ(panel.notice->text, "");
    EXPECT_EQ(offers(), Names{"Back"});
}

} // namespace lumeroom::test
