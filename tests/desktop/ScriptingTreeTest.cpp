#include "desktop/dbus/ScriptingTree.h"

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "desktop/SettingsFile.h"
#include "desktop/dbus/ProgramIdentity.h"
#include "desktop/dbus/StripProperties.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom {

struct ScriptingTreeTest : ::testing::Test {
    void addStrip(const std::string& id, StripType type)
    {
        collection.add(std::make_shared<LampControlStrip>(id, type, loop));
    }
    Log log{[](std::string_view) {}};
    ManualRunLoop loop;
    UserDefaults defaults;
    StripCollection collection{defaults, log};
    Scripting scripting{collection, log,
        {.stripsInGroup = [this](const std::string&) { return Strips{collection.strips().at(0)}; },
            .allOn = {},
            .allOff = {},
            .allBlink = {},
            .presetPullDown = {},
            .implementPreset = {}}};
    ScriptingTree tree{scripting, {QStringLiteral("1"), {}}};
};

TEST_F(ScriptingTreeTest, groupsStandBesideLampsOfTheSameID)
{
    addStrip("d073d5", StripType::Lamp);
    addStrip("d073d5-0", StripType::Zone);
    addStrip("d073d5", StripType::Group);
    addStrip("Grün", StripType::Tag);
    addStrip("0", StripType::Group);
    const QString root = bus::kRootPath;
    const auto objects = tree.objects();
    EXPECT_EQ(objects.keys(),
        (QStringList{root, root + "/groups/0", root + "/groups/Gr_c3_bcn", root + "/groups/d073d5",
            root + "/lamps/d073d5", root + "/lamps/d073d5_2d0"}));
    const auto lampsOf = [&](const QString& path) {
        QStringList paths;
        for (const auto& lamp : objects[path].properties["Lamps"].value<QList<QDBusObjectPath>>())
            paths.append(lamp.path());
        return paths;
    };
    EXPECT_EQ(lampsOf(root + "/groups/d073d5"), QStringList{root + "/lamps/d073d5"});
    EXPECT_EQ(lampsOf(root + "/groups/0").size(), 2);
    EXPECT_TRUE(tree.introspect(root + "/groups/0").contains("Lumeroom.Group\""));
    EXPECT_TRUE(tree.introspect(root + "/groups").contains("<node name=\"Gr_c3_bcn\"/>"));
    EXPECT_TRUE(tree.introspect(root + "/groups/none").isEmpty());
}

TEST_F(ScriptingTreeTest, valuesAreTakenWithinTheirRangeOnly)
{
    const auto accepted = [](const char* property, const QVariant& value) {
        ScriptSettings settings;
        return readInto(settings, property, value).isEmpty();
    };
    EXPECT_TRUE(accepted("Hue", 257));
    EXPECT_FALSE(accepted("Hue", 258));
    EXPECT_FALSE(accepted("Hue", -1));
    EXPECT_TRUE(accepted("Whiteness", 255U));
    EXPECT_FALSE(accepted("Brightness", 256));
    EXPECT_FALSE(accepted("Brightness", 1.0));
    EXPECT_FALSE(accepted("Brightness", std::numeric_limits<qulonglong>::max()));
    EXPECT_FALSE(accepted("Brightness", true));
    EXPECT_FALSE(accepted("State", 1));
    EXPECT_FALSE(accepted("Label", "x"));
}

TEST(ProgramIdentity, eachSettingsFileMakesAProgramOfItsOwn)
{
    const QString usual = serviceName(settingsFile(false, {}));
    EXPECT_EQ(usual, "com.tanagerworks.Lumeroom");
    EXPECT_EQ(serviceName(settingsFile(true, {})), "com.tanagerworks.Lumeroom.Demo");
    const QString other = serviceName("/tmp/a.plist");
    EXPECT_EQ(other, serviceName("/tmp/../tmp/a.plist"));
    EXPECT_NE(other, serviceName("/tmp/b.plist"));
    EXPECT_NE(other, usual);
}

} // namespace lumeroom
