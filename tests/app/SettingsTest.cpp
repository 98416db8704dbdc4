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

} // namespace lumeroom
