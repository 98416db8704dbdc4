#include "base/LocalTime.h"
#include "strips/StripHarness.h"

namespace lumeroom::test {

using LampStrip = StripHarness;

TEST_F(LampStrip, whatEachControlSends)
{
    const auto strip = makeLampStrip({.hue = 1000, .saturation = 65535, .brightness = 65535});
    const struct {
        std::function<void()> touch;
        Lines sent;
    } cases[] = {
        // One slider sends its own property alone: the lamp's record fills up the rest.
        {[&] { strip->brightnessSlider().moveTo(100.9F); }, {"colour 1: 1000 65025 25500 3500"}},
        {[&] { strip->satSlider().moveTo(55.5F); }, {"colour 1: 1000 51000 25500 3500"}},
        {[&] { strip->warmthSlider().moveTo(9999); }, {"colour 1: 1000 51000 25500 2500"}},
        {[&] { strip->colourSlider().moveTo(32768); }, {}},
        {[&] { strip->onOffButton().press(); }, {"power 1 on", "colour 1: 32768 51000 25500 2500"}},
        {[&] { strip->onOffButton().press(); }, {"power 1 off"}},
        {[&] {
             strip->colourWell().userHasPickedColour({0.5F, 1, 0.2F, 1, 4000});
         },
            {"colour 1: 32767 65025 13005 4000"}},
    };
    for (const auto& c : cases) {
        strip->reactivateWithEngineRoom(&engine());
        c.touch();
        loop.advance(Seconds(0.1));
        EXPECT_EQ(sent(), c.sent);
        EXPECT_TRUE(strip->embargo());
    }
}

TEST_F(LampStrip, aDragSendsTenASecondAndItsLastValue)
{
    const auto strip = makeLampStrip({.hue = 1000, .saturation = 65535});
    for (int i = 0; i < 100; ++i) {
        strip->brightnessSlider().moveTo(static_cast<float>(i));
        EXPECT_FLOAT_EQ(strip->colourWell().colour().brightness, static_cast<float>(i) / 255);
        loop.advance(Seconds(0.01));
    }
    loop.advance(Seconds(0.2));
    const Lines commands = sent();
    EXPECT_LE(commands.size(), 11U);
    ASSERT_GE(commands.size(), 9U);
    EXPECT_EQ(commands.back(), "colour 1: 1000 65025 25245 3500");
}

TEST_F(LampStrip, theCaptionSaysWhatTheTargetIsAndDoes)
{
    using Contact = StripCondition::Contact;
    const auto strip = makeLampStrip();
    const auto captionOf = [](LampControlStrip& of, StripCondition condition,
                               const Value::Dictionary& settings, int capabilities = 7) {
        of.setCapabilities(capabilities);
        of.setCondition(condition);
        report(of, settings);
        return of.caption().caption().text;
    };
    const Value::Dictionary white{
        {"onoff", true}, {"brightness", 202}, {"saturation", 255}, {"warmth", 5500}, {"colour", 0}};
    const Value::Dictionary orange{
        {"onoff", true}, {"brightness", 1}, {"saturation", 60}, {"colour", 5461}};
    EXPECT_EQ(captionOf(*strip, {}, white), "79 % · 3500 K");
    EXPECT_EQ(captionOf(*strip, {}, orange), "1 % · orange");
    EXPECT_EQ(captionOf(*strip, {}, orange, 4), "1 % · 3500 K");
    EXPECT_EQ(captionOf(*strip, {}, orange, 2), "1 %");
    EXPECT_EQ(
        captionOf(*strip, {Contact::Waiting, {}, 0, 0, {}, false}, orange), "Waiting for the lamp");
    EXPECT_FALSE(strip->brightnessSlider().isEnabled() || strip->onOffButton().isEnabled()
        || strip->colourWell().isEnabled());
    strip->implementEffect("Fire");
    EXPECT_EQ(captionOf(*strip, {}, orange), "1 % · Fire");
    EXPECT_TRUE(strip->brightnessSlider().isEnabled() && strip->onOffButton().isEnabled());
    strip->stopEffect();
    EXPECT_EQ(captionOf(*strip, {}, {{"onoff", false}}), "Off");
    const TimePoint heard = loop.now();
    const std::string moment = momentText(heard, heard);
    for (const auto& [silence, words] : {std::pair(Seconds(0), "Last heard " + moment),
             std::pair(Seconds(86400), "Last heard yesterday " + moment)}) {
        loop.advance(silence);
        EXPECT_EQ(
            captionOf(*strip, {Contact::Silent, heard, 0, 0, {}, false}, {}), "Not answering");
        EXPECT_EQ(strip->caption().caption().toolTip.find(words + ". It may"), 0U) << words;
    }
    EXPECT_EQ(strip->state(), StripState::NotAnswering);
    EXPECT_FALSE(strip->brightnessSlider().isEnabled()); // it has never told a state

    const auto group = makeStrip("0", StripType::Group);
    EXPECT_EQ(
        captionOf(*group, {Contact::Answering, {}, 3, 2, {}, true}, white), "2 of 3 on · 79 %");
    EXPECT_EQ(captionOf(*group, {Contact::Answering, {}, 3, 3, {}, true}, white), "3 on · 79 %");
    const Value::Dictionary off{{"onoff", false}};
    EXPECT_EQ(captionOf(*group, {Contact::Answering, {}, 3, 1, {}, true}, off), "1 of 3 on · 79 %");
    EXPECT_EQ(captionOf(*group, {}, off), "No lamps");
}

TEST_F(LampStrip, aColourThatTheSliderShowsIsSaidToBeUnsentUntilItIsSent)
{
    const auto strip = makeLampStrip({.hue = 1000, .saturation = 65535});
    const auto choose = [&](float colour) {
        strip->colourSlider().moveTo(colour);
        loop.advance(Seconds(0.2));
        return strip->caption().caption().hint;
    };
    float colour = 2000;
    const std::function<void()> waysToSend[] = {[&] { strip->colourSlider().confirm(); },
        [&] { strip->sendButton().press(); }, [&] { strip->switchOn(); },
        [&] {
            strip->implementSettingsFromDictionaryWithTransitionTime(
                StripSettings::fromDictionary({{"colour", colour}, {"transition", 3}}));
        }};
    EXPECT_FALSE(strip->colourSlider().confirm()); // nothing waits
    EXPECT_TRUE(sent().empty());
    for (const auto& send : waysToSend) {
        EXPECT_EQ(choose(++colour), "not sent");
        EXPECT_FALSE(strip->sendButton().isHidden());
        strip->brightnessSlider().moveTo(100 + colour / 100); // sends no colour
        loop.advance(Seconds(0.2));
        EXPECT_TRUE(strip->showsUnsentColour());
        sent();
        send();
        EXPECT_NE(
            sent().back().find(fmt::format(": {} ", static_cast<int>(colour))), std::string::npos);
        EXPECT_TRUE(strip->sendButton().isHidden() && !strip->showsUnsentColour());
    }
    StripSettings told = StripSettings::fromDictionary({{"colour", 1000}});
    told.reports = 7;
    loop.advance(Seconds(10));
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
    EXPECT_EQ(choose(5000), "not sent");
    loop.advance(Seconds(10));
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told); // another's news
    EXPECT_TRUE(strip->showsUnsentColour());
    ++*told.reports; // the lamp's colour shows again
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
    EXPECT_EQ(strip->colourSlider().value(), 1000);
    EXPECT_FALSE(strip->showsUnsentColour());
    EXPECT_EQ(choose(2004.4F), ""); // which the lamp was last sent

    defaults.setObject(keys::kColourSliderActsAtOnce, true);
    strip->colourSlider().moveTo(6000);
    strip->colourSlider().moveTo(7000);
    EXPECT_TRUE(sent().empty() && strip->hasPendingAction());
    loop.advance(Seconds(0.2));
    ASSERT_EQ(sent().size(), 1U);
    EXPECT_EQ(*engine().registry().lampWithID(lampID(1))->colour, 7000);
    EXPECT_FALSE(strip->showsUnsentColour());
}

TEST_F(LampStrip, powerOnLeavesColoursAloneThatAreZonesOrUnknown)
{
    const auto strip = makeLampStrip();
    receive(stateZone(1, 8, 0, 5));
    sockets.take();
    strip->switchOff();
    strip->switchOn();
    receive(stateService(2), lampAddress(2)); // nothing is known of its colour yet
    makeStrip(lampID(2), StripType::Lamp)->switchOn();
    EXPECT_EQ(sent(), (Lines{"power 1 off", "power 1 on", "power 2 on"}));
}

TEST_F(LampStrip, aDeactivatedStripIsDeaf)
{
    const auto strip = makeLampStrip();
    strip->deactivate();
    strip->onOffButton().press();
    strip->brightnessSlider().moveTo(1);
    loop.advance(Seconds(10));
    report(*strip, {{"colour", 5}});
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(strip->colourSlider().value(), 0);
    strip->reactivateWithEngineRoom(&engine());
    report(*strip, {{"colour", 5}});
    EXPECT_EQ(strip->colourSlider().value(), 5);
}

TEST_F(LampStrip, aBrightnessThatComesBackOneLowerIsIgnored)
{
    const auto strip = makeLampStrip();
    strip->setObjectForKey(200, "brightness");
    const struct {
        int reported;
        float shown;
    } cases[] = {{199, 200}, {198, 198}, {199, 199}};
    for (const auto& c : cases) {
        report(*strip, {{"brightness", c.reported}});
        EXPECT_EQ(strip->brightnessSlider().value(), c.shown);
    }
    strip->setObjectForKey(2, "saturation");
    report(*strip, {{"saturation", 1}}); // this tolerance is brightness's alone
    EXPECT_EQ(strip->satSlider().value(), 1);
}

TEST_F(LampStrip, reportsWaitUntilTheHandHasRested)
{
    const struct {
        std::vector<double> touches; ///< seconds
        double stillDeaf;
        double hearsAgain;
    } cases[] = {
        {{0}, 5.05, 5.15},
        {{0, 0.05}, 5.05, 5.15}, // over by the first look
        {{0, 1}, 7.05, 7.15},
        {{0, 3}, 9.05, 9.15},
        {{0, 2, 4, 6}, 11.05, 11.15},
    };
    const auto strip = makeLampStrip();
    int brightness = 10;
    for (const auto& c : cases) {
        double now = 0;
        const auto advanceTo = [&](double then) {
            loop.advance(Seconds(then - now));
            now = then;
        };
        for (const double touch : c.touches) {
            advanceTo(touch);
            strip->onOffButton().press();
        }
        loop.setNow(loop.now() - std::chrono::hours(1)); // the length of the rest does not change
        const float before = strip->brightnessSlider().value();
        brightness += 10;
        advanceTo(c.stillDeaf);
        strip->implementSettingsFromDictionaryWithoutActing({}); // leaves the embargo as it is
        report(*strip, {{"brightness", brightness}, {"onoff", true}});
        EXPECT_EQ(strip->brightnessSlider().value(), before) << c.stillDeaf;
        advanceTo(c.hearsAgain);
        sockets.take();
        report(*strip, {{"brightness", brightness}, {"onoff", true}, {"label", "Desk"}});
        EXPECT_EQ(strip->brightnessSlider().integerValue(), brightness) << c.hearsAgain;
        EXPECT_TRUE(strip->onOffButton().state());
        EXPECT_EQ(strip->label().text(), "Desk");
        EXPECT_TRUE(sent().empty()); // a report goes nowhere
        EXPECT_FALSE(strip->embargo());
    }
}

TEST_F(LampStrip, aReportDoesNotUndoAMovementAndOnlyNewsIsMissed)
{
    const auto strip = makeLampStrip();
    StripSettings told = StripSettings::fromDictionary({{"brightness", 50}});
    told.reports = 7;
    for (const bool isNews : {false, true}) {
        strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
        strip->brightnessSlider().moveTo(200);
        *told.reports += isNews ? 1 : 0;
        strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
        loop.advance(Seconds(10));
        EXPECT_EQ(strip->brightnessSlider().value(), 200);
        EXPECT_EQ(owner.takeCalls(), isNews ? Lines{"missed"} : Lines{});
    }
    // A zone does not count: what it was before may be what it is again.
    told.reports.reset();
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
    strip->brightnessSlider().moveTo(210);
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
    loop.advance(Seconds(10));
    EXPECT_EQ(owner.takeCalls(), Lines{"missed"});
    // What a rebuild has shown is not news to an unsent colour.
    told = StripSettings::fromDictionary({{"colour", 50}});
    told.reports = 20;
    strip->implementSettingsFromDictionaryWithoutActing(told);
    strip->colourSlider().moveTo(3000);
    loop.advance(Seconds(10));
    strip->implementSettingsFromDictionaryWithoutActingObservingEmbargo(told);
    EXPECT_TRUE(strip->showsUnsentColour());
}

TEST_F(LampStrip, theFirstDifferenceActsAndItsEmbargoSilencesTheOthers)
{
    const auto strip = makeLampStrip({.hue = 1000, .saturation = 65535});
    strip->implementSettingsFromDictionary(StripSettings::fromDictionary(
        {{"brightness", 100}, {"warmth", 6500}, {"onoff", true}, {"colour", 0}}));
    EXPECT_EQ(sent(), (Lines{"colour 1: 1000 65025 25500 3500"}));
    EXPECT_EQ(strip->warmthSlider().value(), 6500);
    EXPECT_TRUE(strip->onOffButton().state());
    EXPECT_TRUE(strip->embargo());
}

TEST_F(LampStrip, aTransitionMovesTheControlsOnlyWhenItIsShort)
{
    const struct {
        Value::Dictionary extra;
        int shown;
    } cases[] = {{{}, 100}, {{{"transition", 0.99}}, 100}, {{{"transition", 1}}, 0}};
    for (const auto& c : cases) {
        const auto strip = makeLampStrip();
        Value::Dictionary settings{
            {"brightness", 100.5}, {"saturation", 5.5}, {"onoff", false}, {"duration", 60}};
        settings.insert(c.extra.begin(), c.extra.end());
        strip->implementSettingsFromDictionaryWithTransitionTime(
            StripSettings::fromDictionary(settings));
        const auto datagrams = sockets.sent();
        EXPECT_EQ(sent(), (Lines{"power 1 off", "colour 1: 0 63750 25500 3500"}));
        EXPECT_EQ(datagrams.at(1).u16(45), 400U);
        EXPECT_EQ(strip->brightnessSlider().integerValue(), c.shown);
        EXPECT_FALSE(strip->embargo());
    }
}

TEST_F(LampStrip, theWellMovesTheWarmthSliderOnlyWithinItsRange)
{
    const struct {
        std::optional<int> kelvin;
        int capabilities;
        float warmth;
        float saturation;
    } cases[] = {
        {2400, 7, 1000, 0}, {2500, 7, 6500, 0}, {9000, 7, 0, 0}, {9100, 7, 1000, 0},
        {{}, 7, 1000, 0}, {2700, 5, 6300, 0}, {2700, 1, 1000, 0},
        {2700, 2, 1000, 255}, // a white lamp: grey
    };
    const auto strip = makeLampStrip();
    for (const auto& c : cases) {
        strip->setCapabilities(c.capabilities);
        EXPECT_EQ(strip->satSlider().isEnabled(), c.capabilities != 2);
        EXPECT_EQ(strip->colourSlider().isEnabled(), c.capabilities != 2);
        EXPECT_EQ(strip->warmthSlider().isEnabled(), (c.capabilities & 4) != 0);
        strip->setObjectForKey(1000, "warmth");
        strip->colourWell().userHasPickedColour({0.5F, 1, 0.5F, 1, c.kelvin});
        loop.advance(Seconds(0.1));
        EXPECT_EQ(strip->warmthSlider().value(), c.warmth) << c.kelvin.value_or(0);
        EXPECT_EQ(strip->satSlider().value(), c.saturation);
        EXPECT_FLOAT_EQ(strip->brightnessSlider().value(), 127.5F);
        const float hue = strip->colourWell().colour().hue;
        EXPECT_FLOAT_EQ(strip->colourSlider().value(), hue * 65535);
        EXPECT_FLOAT_EQ(strip->saturatedHueComponent(), hue);
    }
    strip->satSlider().moveTo(77); // a disabled control does nothing
    EXPECT_EQ(strip->satSlider().value(), 255);
}

} // namespace lumeroom::test
