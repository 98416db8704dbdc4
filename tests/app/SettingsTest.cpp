#include "app/SettingsDescription.h"
#include "base/DefaultsKeys.h"
#include "base/RegisteredDefaults.h"
#include "base/UserDefaults.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace lumeroom {

namespace {

const Setting& settingFor(std::string_view key)
{
    for (const Setting& setting : allSettings()) {
        if (setting.key == key)
            return setting;
    }
    throw std::out_of_range(std::string(key));
}

} // namespace

struct SettingsTable : ::testing::Test {
    SettingsTable() { defaults.registerDefaults(registeredDefaults()); }
    UserDefaults defaults;
};

TEST_F(SettingsTable, everyRowKeepsTheRegisteredFormAndItsValueCanBeEntered)
{
    const auto registered = registeredDefaults();
    std::set<std::string_view> seen;
    for (const Setting& setting : allSettings()) {
        SCOPED_TRACE(setting.key);
        EXPECT_TRUE(seen.insert(setting.key).second);
        const auto found = registered.find(setting.key);
        if (setting.kind == Setting::Kind::Choice) {
            const int value = choiceFor(setting, defaults);
            EXPECT_TRUE(std::any_of(setting.choices.begin(), setting.choices.end(),
                [value](const auto& choice) { return choice.value == value; }));
        }
        if (found == registered.end() || setting.kind == Setting::Kind::Addresses)
            continue;
        const double number = setting.kind == Setting::Kind::Switch ? switchFor(setting, defaults)
                                                                    : numberFor(setting, defaults);
        if (setting.kind == Setting::Kind::Number) {
            EXPECT_GE(number, setting.range.minimum);
            EXPECT_LE(number, setting.range.maximum);
        }
        storeNumber(setting, number, defaults);
        EXPECT_EQ(*defaults.objectForKey(setting.key), found->second);
    }
}

TEST_F(SettingsTable, everyFormIsStoredAsItIsRead)
{
    using Kind = Setting::Kind;
    using Form = Setting::Form;
    const Setting real{.page = "",
        .key = "r",
        .kind = Kind::Number,
        .form = Form::Real,
        .label = "",
        .range = {0, 9, 0.1, 1}};
    storeNumber(real, 0.1 + 0.2, defaults);
    EXPECT_EQ(*defaults.objectForKey("r"), Value(0.3));
    const Setting integer{
        .page = "", .key = "i", .kind = Kind::Switch, .form = Form::Integer, .label = ""};
    defaults.setObject("i", "YES"); // is 0 as a number
    EXPECT_FALSE(switchFor(integer, defaults));
    storeNumber(integer, 1, defaults);
    EXPECT_EQ(*defaults.objectForKey("i"), Value(1));
}

TEST_F(SettingsTable, sillyValuesReadAsTheProgramTakesThem)
{
    const Setting& speed = settingFor(keys::kHeartbeatSpeed);
    const std::pair<Value, double> speeds[]
        = {{-3, 1}, {"fast", 0}, {"2.5", 2.5}, {5000, 5000}, {Value::Array{1}, 0}};
    for (const auto& [stored, number] : speeds) {
        defaults.setObject(speed.key, stored);
        EXPECT_EQ(numberFor(speed, defaults), number) << description(stored);
    }
    defaults.setObject(keys::kDefaultTransition, -1);
    EXPECT_DOUBLE_EQ(numberFor(settingFor(keys::kDefaultTransition), defaults), 4294966.296);

    const Setting& level = settingFor(keys::kVerbosity);
    const std::pair<Value, int> levels[] = {{9, 3}, {-4, 0}, {"2", 2}, {1.9, 1}, {true, 1}};
    for (const auto& [stored, number] : levels) {
        defaults.setObject(level.key, stored);
        EXPECT_EQ(choiceFor(level, defaults), number) << description(stored);
    }
    defaults.setObject(keys::kGroupPowerStateBasedOn, std::int64_t(1) << 40U);
    EXPECT_GT(choiceFor(settingFor(keys::kGroupPowerStateBasedOn), defaults), 2);
    defaults.setObject(keys::kManualIPAddresses, Value::Dictionary());
    EXPECT_EQ(textFor(settingFor(keys::kManualIPAddresses), defaults), "");
}

TEST_F(SettingsTable, aPageIsRestoredAlone)
{
    defaults.setObject(keys::kHeartbeatSpeed, 7.0);
    defaults.setObject(keys::kManualIPAddresses, "10.0.0.1");
    defaults.setObject(keys::kVerbosity, 1);
    restoreDefaults(settingFor(keys::kHeartbeatSpeed).page, defaults);
    EXPECT_EQ(defaults.floatForKey(keys::kHeartbeatSpeed), 1);
    EXPECT_FALSE(defaults.objectForKey(keys::kManualIPAddresses));
    EXPECT_EQ(defaults.integerForKey(keys::kVerbosity), 1);
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
