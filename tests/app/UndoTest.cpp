#include "ControllerHarness.h"
#include "engine/LampUnits.h"

#include <cmath>

namespace lumeroom::test {

/// Two lamps that report what they are sent, and a light strip that keeps silent.
struct UndoInPanel : Controller {
    UndoInPanel()
    {
        says = {{1, {.hue = 500, .saturation = 65535, .brightness = 50000, .power = 0}}, {2, {}}};
        says[2].brightness = 65025;
        for (const auto& [n, state] : says)
            addLamp(n, state);
        addStrip(3, 8);
        launch();
        drainQueue();
        navigation().all.press();
        loop.advance(Seconds(1));
        sockets.take();
    }
    void lampsReport()
    {
        loop.advance(Seconds(0.2));
        for (const auto& sent : sockets.take()) {
            for (auto& [n, state] : says) {
                if (sent.host != lampAddress(n))
                    continue;
                if (sent.type() == 117)
                    state.power = sent.u16(36);
                if (sent.type() == 102) {
                    state.hue = sent.u16(37);
                    state.saturation = sent.u16(39);
                    state.brightness = sent.u16(41);
                    state.kelvin = sent.u16(43);
                }
                receive(lightState(n, state), lampAddress(n));
            }
        }
    }
    std::shared_ptr<Lamp> lamp(unsigned n) { return engine().registry().lampWithID(lampID(n)); }
    std::shared_ptr<LampControlStrip> strip(unsigned n)
    {
        const StripTarget all{std::string(kAllLampsId), StripType::Group};
        return controller.stripFinder().stripFor(
            n == 0 ? all : StripTarget{lampID(n), StripType::Lamp});
    }
    std::string state()
    {
        lampsReport();
        std::string text;
        for (const unsigned n : {1U, 2U, 3U})
            text += fmt::format("{} {} ", *lamp(n)->expectedPower(), integerPart(*lamp(n)->colour));
        for (const unsigned n : {1U, 2U})
            text += fmt::format("{} ", integerPart(*lamp(n)->brightness));
        text += fmt::format("{}:", std::lround(*lamp(3)->brightness / 20)); // without reports
        for (const Zone& zone : lamp(3)->ownZones())
            text += fmt::format(" {}", integerPart(*zone.expectedColour().colour));
        return text;
    }
    void drag(unsigned n, std::initializer_list<float> values, double pause = 0.5)
    {
        for (const float value : values) {
            strip(n)->brightnessSlider().moveTo(value);
            loop.advance(Seconds(pause));
        }
    }
    static constexpr Colour kPicked{0.5F, 1, 0.5F, 1, 4000};

    std::map<unsigned, LightState> says;
    Undo& undo = controller.undo();
};

TEST_F(UndoInPanel, takesBackWhatTheLastGestureDidAndMakesItAgain)
{
    const auto held = [this](double pause) {
        strip(1)->brightnessSlider().setHeld(true);
        drag(1, {10, 20, 30}, pause);
        strip(1)->brightnessSlider().setHeld(false);
    };
    const std::function<void()> changes[] = {
        [&] {
            drag(2, {10, 20, 30}, 1.5);
        },
        [&] { held(5); },
        [&] { strip(1)->onOffButton().press(); },
        [&] { strip(3)->colourWell().userHasPickedColour(kPicked); },
        [&] {
            drag(0, {100, 120});
        },
        [&] { controller.allOff(); },
    };
    for (int round = 0; round < 2; ++round) {
        for (const auto& change : changes) {
            const std::string before = state();
            change();
            const std::string after = state();
            EXPECT_NE(after, before);
            EXPECT_TRUE(undo.canUndo() && !undo.canRedo());
            undo.undo();
            EXPECT_EQ(strip(3)->colourSlider().integerValue(), integerPart(*lamp(3)->colour));
            EXPECT_EQ(state(), before);
            EXPECT_EQ(strip(1)->onOffButton().state(), *lamp(1)->expectedPower());
            EXPECT_TRUE(!undo.canUndo() && undo.canRedo());
            undo.redo();
            EXPECT_EQ(state(), after);
            undo.undo();
        }
    }
    strip(2)->onOffButton().press();
    const bool power = *lamp(2)->expectedPower();
    strip(2)->onOffButton().press(); // at once, and yet another step
    EXPECT_NE(*lamp(2)->expectedPower(), power);
    undo.undo();
    EXPECT_EQ(*lamp(2)->expectedPower(), power);
}

TEST_F(UndoInPanel, leavesAloneWhatOthersDid)
{
    drag(2, {30});
    state();
    engine().commands().lampOn(lampID(2), false);
    Settings blue;
    blue.colour = 40000;
    engine().commands().sendSettingsToLamp(blue, lampID(2));
    state();
    undo.undo();
    state();
    EXPECT_FALSE(*lamp(2)->onoff);
    EXPECT_EQ(*lamp(2)->colour, 40000);
    EXPECT_EQ(*lamp(2)->brightness, 253); // as it was reported
    undo.redo();
    state();
    Settings dim;
    dim.brightness = 90;
    engine().commands().sendSettingsToLamp(dim, lampID(2));
    const std::string dimmed = state();
    undo.undo();
    EXPECT_EQ(state(), dimmed);
    EXPECT_FALSE(undo.canUndo() || undo.canRedo()); // nothing is left of the step
    drag(2, {150});
    undo.undo();
    dim.brightness = 40;
    engine().commands().sendSettingsToLamp(dim, lampID(2));
    undo.redo();
    EXPECT_FALSE(undo.canUndo() || undo.canRedo());

    addLamp(4, {.brightness = 30000}); // which turns out to be a light strip
    loop.advance(Seconds(3));
    drag(4, {20});
    receive(stateVersion(4, 31));
    receive(stateMultizone(4, 8, 0, 100));
    sockets.take();
    undo.undo();
    for (const auto& sent : sockets.take())
        EXPECT_TRUE(sent.type() != 102 && sent.type() != 501);
}

TEST_F(UndoInPanel, noStepIsWhatChangesNothingOrIsAScripts)
{
    drag(2, {30});
    controller.allOff();
    EXPECT_EQ(undo.undoTitle(), "All off");
    controller.allOff();
    EXPECT_TRUE(undo.canUndo());
    strip(2)->switchOn();
    defaults.setObject(keys::kColourSliderActsAtOnce, true);
    loop.advance(Seconds(10)); // after the embargo
    StripSettings hue;
    hue.colour = 7000;
    strip(2)->implementSettingsFromDictionary(hue);
    loop.advance(Seconds(1));
    EXPECT_EQ(*lamp(2)->colour, 7000);
    controller.scripting().allOn();
    EXPECT_EQ(undo.undoTitle(), "All off");
    defaults.setObject(keys::kColourSliderActsAtOnce, false);
    loop.advance(Seconds(10));
    hue.colour = 9000;
    strip(2)->implementSettingsFromDictionary(hue);
    EXPECT_TRUE(strip(2)->showsUnsentColour() && undo.undoTitle() == "All off");

    drag(2, {60});
    strip(2)->brightnessSlider().moveTo(80);
    undo.undo(); // before it is sent
    loop.advance(Seconds(1));
    EXPECT_TRUE(undo.canRedo());

    controller.allOff();
    undo.undo();
    const double colour = *lamp(2)->colour;
    strip(2)->colourSlider().moveTo(20000);
    EXPECT_TRUE(undo.canUndo());
    EXPECT_TRUE(undo.undoTitle() != "All off" && undo.redoTitle() == "All off");
    undo.undo();
    EXPECT_EQ(strip(2)->colourSlider().value(), colour);
    EXPECT_TRUE(!strip(2)->showsUnsentColour() && !undo.canUndo() && undo.canRedo());

    strip(2)->colourSlider().moveTo(20000);
    controller.switchTheme(1); // the strip goes, and its colour with it
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(UndoInPanel, tellsGesturesAndStripsApart)
{
    const double saturation = *lamp(2)->saturation;
    drag(2, {30});
    strip(2)->satSlider().moveTo(90);
    loop.advance(Seconds(10));
    undo.undo();
    EXPECT_TRUE(strip(2)->embargo()); // for reports of before
    state();
    EXPECT_NEAR(*lamp(2)->saturation, saturation, 2);
    EXPECT_NEAR(*lamp(2)->brightness, 30, 2);

    drag(1, {60});
    strip(1)->colourSlider().moveTo(20000);
    strip(2)->colourSlider().moveTo(20000);
    strip(1)->forgetUnsentColour();
    undo.undo();
    EXPECT_FALSE(strip(2)->showsUnsentColour());
    strip(2)->colourSlider().moveTo(20000);
    for (const auto& change : {std::function<void()>([&] { strip(1)->onOffButton().press(); }),
             std::function<void()>([&] { drag(2, {90}); })}) {
        change();
        const Colour unsent = strip(2)->colourWell().colour();
        undo.undo();
        EXPECT_TRUE(strip(2)->showsUnsentColour());
        EXPECT_EQ(strip(2)->colourWell().colour().hue, unsent.hue);
    }
    EXPECT_NEAR(strip(2)->brightnessSlider().value(), *lamp(2)->brightness, 1);
    undo.undo(); // and then the colour
    EXPECT_TRUE(!strip(2)->showsUnsentColour() && !undo.canUndo() && undo.canRedo());
}

TEST_F(UndoInPanel, escapeInThePickerTakesBackWhatWasPickedInIt)
{
    struct : ColourWellPopover {
        void showAtWell(Edge) override { }
    } popover;
    const auto picker = std::make_shared<ZTColourPicker>();
    for (const unsigned n : {0U, 3U}) {
        ColourWellModel& well = strip(n)->colourWell();
        well.setPopover(&popover);
        well.setColourPicker(picker);
        const std::string before = state();
        well.scrollWheel(-20);
        const std::string scrolled = state();
        EXPECT_NE(scrolled, before);
        const Colour shown = well.colour();
        well.showThePopover();
        for (const float brightness : {0.2F, 0.3F, 0.4F}) {
            picker->moveBrightnessTo(brightness);
            loop.advance(Seconds(5));
        }
        EXPECT_NE(state(), scrolled);
        picker->moveBrightnessTo(0.1F); // and not yet sent
        picker->cancel();
        EXPECT_EQ(state(), scrolled);
        EXPECT_NEAR(well.colour().brightness, shown.brightness, 0.01);

        well.showThePopover();
        well.setColour(kPicked); // by a report
        picker->cancel();
        EXPECT_EQ(state(), scrolled);
        well.setColourPicker(nullptr);
    }

    // A colour that had not been sent when the picker was opened is not sent again.
    const auto desk = strip(2);
    desk->colourWell().setPopover(&popover);
    desk->colourWell().setColourPicker(picker);
    const std::string before = state();
    desk->colourSlider().moveTo(20000);
    const Colour unsent = desk->colourWell().colour();
    desk->colourWell().showThePopover();
    picker->cancel(); // nothing was picked
    EXPECT_EQ(desk->colourWell().colour(), unsent);
    for (const double seconds : {0.0, 5.0}) { // not yet sent, and sent
        picker->moveBrightnessTo(0.2F);
        loop.advance(Seconds(seconds));
        EXPECT_EQ(desk->showsUnsentColour(), seconds == 0);
        picker->cancel();
        EXPECT_EQ(state(), before);
        EXPECT_EQ(desk->colourWell().colour().hue, unsent.hue);
        EXPECT_NEAR(desk->colourWell().colour().brightness, unsent.brightness, 0.01);
        EXPECT_TRUE(desk->showsUnsentColour() && undo.canUndo());
    }
    undo.undo();
    EXPECT_NE(desk->colourWell().colour().hue, unsent.hue);
    desk->colourWell().showThePopover();
    picker->moveBrightnessTo(0.2F);
    picker->cancel();
    EXPECT_FALSE(desk->showsUnsentColour());
    desk->colourWell().setColourPicker(nullptr);
}

} // namespace lumeroom::test
