#include "app/SettingsDescription.h"
#include "base/UserDefaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace lumeroom {

namespace {

const Setting& settingFor(std::string_view key)
{
    for (const Setting& setting : allSettings()) {
        if (setting.name() == key)
            return setting;
    }
    throw std::out_of_range(std::string(key));
}

} // namespace

TEST(SettingsTable, everyRegisteredValueCanBeEnteredAndIsStoredInItsForm)
{
    UserDefaults defaults;
    for (const Setting& setting : allSettings()) {
        SCOPED_TRACE(setting.name());
        if (setting.kind == Setting::Kind::Addresses)
            continue;
        const double number = numberFor(setting, defaults);
        if (setting.kind == Setting::Kind::Number) {
            EXPECT_GE(number, setting.range.minimum);
            EXPECT_LE(number, setting.range.maximum);
        }
        if (setting.kind == Setting::Kind::Choice) {
            EXPECT_TRUE(std::any_of(setting.choices.begin(), setting.choices.end(),
                [&](const auto& choice) { return choice.value == choiceFor(setting, defaults); }));
        }
        storeNumber(setting, number, defaults);
        EXPECT_EQ(*defaults.objectForKey(setting.name()),
            std::visit([](const auto& key) { return Value(key.registeredValue()); }, setting.key));
    }
}

TEST(SettingsTable, showsWhatTheProgramGoesBy)
{
    UserDefaults defaults;
    const Setting& fade = settingFor(keys::kDefaultTransition);
    storeNumber(fade, 0.1 + 0.2, defaults);
    EXPECT_EQ(*defaults.objectForKey(fade.name()), Value(0.3));
    defaults.setObject(fade.name(), -1);
    EXPECT_DOUBLE_EQ(numberFor(fade, defaults), 4294966.296);
    const Setting& wells = settingFor(keys::kColourPickerType);
    defaults.setObject(wells.name(), "YES"); // is 0 as a number
    EXPECT_FALSE(switchFor(wells, defaults));
    storeNumber(wells, 1, defaults);
    EXPECT_EQ(*defaults.objectForKey(wells.name()), Value(1));
    defaults.setObject(keys::kGroupPowerStateBasedOn, std::int64_t(1) << 40U);
    EXPECT_GT(choiceFor(settingFor(keys::kGroupPowerStateBasedOn), defaults), 2);
}

TEST(SettingsTable, aPageIsRestoredAlone)
{
    UserDefaults defaults;
    defaults.setObject(keys::kHeartbeatSpeed, 7.0);
    defaults.setObject(keys::kManualIPAddresses, "10.0.0.1");
    defaults.setObject(keys::kVerbosity, 1);
    restoreDefaults(settingFor(keys::kHeartbeatSpeed).page, defaults);
    EXPECT_EQ(defaults.get(keys::kHeartbeatSpeed), 1);
    EXPECT_FALSE(defaults.objectForKey(keys::kManualIPAddresses));
    EXPECT_EQ(defaults.get(keys::kVerbosity), 1);
}

TEST(AddressSummary, saysWhatWasUnderstood)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", "No address: the whole network is searched"},
        {" \n,\t", "No address: the whole network is searched"},
        {"10.0.0.1", "1 address"},
        {"10.0.0.1, 10.0.0.2\r\n10.0.0.1", "2 addresses"},
        {"10.0.0.1 lamp", "1 address; not understood: lamp"},
        {"desk lamp desk", "0 addresses; not understood: desk, lamp"},
    };
    for (const auto& [text, summary] : cases)
        EXPECT_EQ(addressListSummary(text), summary);
}

} // namespace lumeroom
