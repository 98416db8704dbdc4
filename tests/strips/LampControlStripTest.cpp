#include "strips/LampControlStrip.h"

#include "support/EngineHarness.h"

namespace lumeroom::test {

struct Strip : EngineHarness {
    Strip()
    {
        record = addLamp(1,
            {.hue = 1000,
                .saturation = 65535,
                .brightness = 51400,
                .kelvin = 3500,
                .label = "Desk"});
        drainQueue();
        strip.reactivateWithEngineRoom(&engine());
        show({{"brightness", 200}, {"colour", 1000}, {"saturation", 0}, {"warmth", 5500},
            {"onoff", true}, {"label", "Desk"}});
    }
    void show(const Value::Dictionary& settings)
    {
        strip.implementSettingsFromDictionaryWithoutActing(StripSettings::fromDictionary(settings));
    }
    void report(const Value::Dictionary& settings)
    {
        strip.implementSettingsFromDictionaryWithoutActingObservingEmbargo(
            StripSettings::fromDictionary(settings));
    }
    std::vector<unsigned> sentTypes()
    {
        std::vector<unsigned> types;
        for (const auto& datagram : sockets.take())
            types.push_back(datagram.type());
        return types;
    }
    using Types = std::vector<unsigned>;

    std::shared_ptr<Lamp> record;
    LampControlStrip strip{lampID(1), StripType::Lamp, loop};
};

TEST_F(Strip, aDragSendsTenASecondAndItsLastValue)
{
    for (int i = 0; i < 100; ++i) {
        strip.brightnessSlider().moveTo(static_cast<float>(i));
        EXPECT_FLOAT_EQ(strip.colourWell().colour().brightness, static_cast<float>(i) / 255);
        loop.advance(Seconds(0.01));
    }
    loop.advance(Seconds(0.2));
    const auto sent = sockets.take();
    EXPECT_LE(sent.size(), 11U);
    EXPECT_GE(sent.size(), 9U);
    EXPECT_EQ(record->brightness, 99);
    EXPECT_EQ(record->saturation, 0); // only what was moved
}

TEST_F(Strip, oneMovementIsOneActionATenthLater)
{
    strip.satSlider().moveTo(100);
    EXPECT_TRUE(sentTypes().empty());
    loop.advance(Seconds(0.09));
    EXPECT_TRUE(sentTypes().empty());
    loop.advance(Seconds(0.02));
    EXPECT_EQ(sentTypes(), Types{102});
    EXPECT_EQ(record->saturation, 100);
    strip.warmthSlider().moveTo(3000.7F);
    loop.advance(Seconds(0.1));
    EXPECT_EQ(record->warmth, 3000);
}

TEST_F(Strip, theColourSliderMovesTheWellAlone)
{
    strip.colourSlider().moveTo(32767);
    loop.advance(Seconds(1));
    EXPECT_TRUE(sentTypes().empty());
    EXPECT_NEAR(strip.colourWell().colour().hue, 0.5, 0.001);
    EXPECT_TRUE(strip.embargo());
}

TEST_F(Strip, powerOnBringsWhatTheStripShows)
{
    strip.onOffButton().press(); // off
    EXPECT_EQ(sentTypes(), Types{117});
    strip.onOffButton().press();
    EXPECT_EQ(sentTypes(), (Types{117, 102}));
    EXPECT_EQ(record->brightness, 200);

    // A multizone lamp keeps its zones' colours.
    receive(stateZone(1, 8, 0, 5));
    sockets.take();
    strip.switchOff();
    strip.switchOn();
    EXPECT_EQ(sentTypes(), (Types{117, 117}));

    const ControlModel menuItem(controltag::kStatusMenuItem);
    strip.handleControl(menuItem); // toggles
    EXPECT_FALSE(strip.onOffButton().state());
}

TEST_F(Strip, reportsAreHeldOffForAWhileAfterATouch)
{
    strip.brightnessSlider().moveTo(50);
    loop.advance(Seconds(0.1));
    for (int i = 0; i < 4; ++i) {
        report({{"brightness", 240}});
        EXPECT_EQ(strip.brightnessSlider().value(), 50);
        loop.advance(Seconds(1.2));
    }
    strip.brightnessSlider().moveTo(60); // 4.8 seconds after the first touch
    loop.advance(Seconds(0.1));
    loop.advance(Seconds(4.9));
    report({{"brightness", 240}});
    EXPECT_EQ(strip.brightnessSlider().value(), 60);
    loop.advance(Seconds(2.1)); // at most seven seconds after the last
    report({{"brightness", 240}});
    EXPECT_EQ(strip.brightnessSlider().value(), 240);
    sockets.take();
    report({{"colour", 9}, {"onoff", false}, {"label", "New"}});
    EXPECT_TRUE(sentTypes().empty()); // a report is never sent back
    EXPECT_EQ(strip.colourSlider().value(), 9);
    EXPECT_FALSE(strip.onOffButton().state());
    EXPECT_EQ(strip.label().text(), "New");
    EXPECT_FALSE(strip.embargo());
}

TEST_F(Strip, aBrightnessThatComesBackOneLowerIsIgnored)
{
    report({{"brightness", 199}});
    EXPECT_EQ(strip.brightnessSlider().value(), 200);
    report({{"brightness", 198}});
    EXPECT_EQ(strip.brightnessSlider().value(), 198);
    report({{"brightness", 199}});
    EXPECT_EQ(strip.brightnessSlider().value(), 199);
    report({{"saturation", 1}}); // this tolerance is brightness's alone
    EXPECT_EQ(strip.satSlider().value(), 1);
}

TEST_F(Strip, settingsCanBeActedOn)
{
    strip.implementSettingsFromDictionary(StripSettings::fromDictionary({{"brightness", 10}}));
    EXPECT_EQ(sentTypes(), Types{102});
    // The touch put the strip under embargo, so what follows is shown and not sent.
    strip.implementSettingsFromDictionary(StripSettings::fromDictionary({{"brightness", 90}}));
    EXPECT_TRUE(sentTypes().empty());
    EXPECT_EQ(strip.brightnessSlider().value(), 90);
}

TEST_F(Strip, transitions)
{
    strip.implementSettingsFromDictionaryWithTransitionTime(
        StripSettings::fromDictionary({{"brightness", 10}, {"onoff", false}, {"transition", 0.5}}));
    EXPECT_EQ(sentTypes(), (Types{117, 102}));
    EXPECT_EQ(strip.brightnessSlider().value(), 10);
    strip.implementSettingsFromDictionaryWithTransitionTime(
        StripSettings::fromDictionary({{"brightness", 99}, {"transition", 1}}));
    EXPECT_EQ(sentTypes(), Types{102});
    EXPECT_EQ(strip.brightnessSlider().value(), 10); // the reports will move it
    EXPECT_FALSE(strip.embargo());
}

TEST_F(Strip, aDeactivatedStripIsDeaf)
{
    strip.deactivate();
    strip.onOffButton().press();
    strip.brightnessSlider().moveTo(1);
    loop.advance(Seconds(10));
    report({{"colour", 5}});
    EXPECT_TRUE(sentTypes().empty());
    EXPECT_EQ(strip.colourSlider().value(), 1000);
    strip.reactivateWithEngineRoom(&engine());
    report({{"colour", 5}});
    EXPECT_EQ(strip.colourSlider().value(), 5);
}

TEST_F(Strip, aWellMovesTheSliders)
{
    strip.colourWell().setColour({0.25F, 0.5F, 0.8F, 1, 9100});
    strip.handleControl(strip.colourWell());
    EXPECT_NEAR(strip.colourSlider().value(), 16383.75, 0.1);
    EXPECT_NEAR(strip.satSlider().value(), 127.5, 0.01);
    EXPECT_NEAR(strip.brightnessSlider().value(), 204, 0.01);
    EXPECT_EQ(strip.warmthSlider().value(), 5500); // no slider shows 9100 K
    EXPECT_EQ(sentTypes(), Types{102});
    EXPECT_FLOAT_EQ(strip.saturatedHueComponent(), 0.25F);
    strip.colourWell().setColour({0.25F, 0.5F, 0.8F, 1, 2700});
    strip.handleControl(strip.colourWell());
    EXPECT_EQ(strip.warmthSlider().value(), 6300);
}

TEST_F(Strip, capabilities)
{
    strip.setCapabilities(kCapabilitiesWhiteLamp);
    EXPECT_FALSE(strip.satSlider().isEnabled());
    EXPECT_FALSE(strip.warmthSlider().isEnabled());
    EXPECT_TRUE(strip.brightnessSlider().isEnabled());
    strip.satSlider().moveTo(77); // a disabled control does nothing
    loop.advance(Seconds(1));
    EXPECT_TRUE(sentTypes().empty());
    strip.colourWell().setColour({0.5F, 1, 0.6F, 1, 2700});
    EXPECT_EQ(strip.colourWell().colour().saturation, 0);
    EXPECT_EQ(strip.colourWell().colour().kelvin, 2700);
    strip.handleControl(strip.colourWell());
    EXPECT_EQ(strip.warmthSlider().value(), 5500);
}

TEST_F(Strip, keysAndNames)
{
    strip.setObjectForKey(12.5, "brightness");
    strip.setObjectForKey(2000.9, "warmth");
    EXPECT_EQ(strip.getDictionary(),
        (Value::Dictionary{{"label", "Desk"}, {"onoff", true}, {"brightness", 12.5},
            {"colour", 1000.0}, {"saturation", 0.0}, {"warmth", 2000}, {"id", lampID(1)}}));
    EXPECT_EQ(strip.objectForKey("id"), Value(""));
    strip.setObjectForKey(1e9, "brightness"); // a control keeps within its range
    EXPECT_EQ(strip.brightnessSlider().value(), 255);
    EXPECT_TRUE(sentTypes().empty());

    strip.popoverShouldClose("");
    strip.popoverShouldClose("Desk");
    EXPECT_TRUE(sentTypes().empty());
    strip.popoverShouldClose("Table");
    EXPECT_EQ(sentTypes(), Types{24});
    EXPECT_EQ(strip.label().text(), "Table");
}

} // namespace lumeroom::test
