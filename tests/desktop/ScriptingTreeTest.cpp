#include "desktop/dbus/ScriptingTree.h"

#include "app/ControllerHarness.h"
#include "desktop/dbus/ObjectPaths.h"

namespace lumeroom::test {

struct ScriptingTreeTest : Controller {
    /// "Member path" of the signals, and of changed properties their names.
    std::string told()
    {
        QStringList list;
        for (const QDBusMessage& signal : tree.changes()) {
            const QVariantList arguments = signal.arguments();
            const bool changed = signal.member() == "PropertiesChanged";
            list.append(signal.member() + " "
                + (changed ? signal.path() : arguments[0].value<QDBusObjectPath>().path())
                      .mid(QString(bus::kRootPath).size())
                + (changed ? " " + arguments[1].toMap().keys().join(',') : QString()));
        }
        list.sort();
        return list.join("; ").toStdString();
    }
    ScriptingTree tree{
        controller.scripting(), {QStringLiteral("1"), {}, [] { return std::string(); }}};
};

TEST_F(ScriptingTreeTest, theBusIsToldOfWhatComesChangesAndGoes)
{
    launch();
    addNamed(1, "Desk");
    receive(stateGrouping(53, 1, 7, "Kitchen"));
    loop.advance(Seconds(8));
    const QString lamp = pathOf({lampID(1), StripType::Lamp}).mid(bus::kRootPath.size());
    const std::string group = engine().registry().groupsArray().at(0)->id;
    const QString kitchen = pathOf({group, StripType::Group}).mid(bus::kRootPath.size());
    EXPECT_EQ(told(),
        ("InterfacesAdded " + kitchen + "; InterfacesAdded " + lamp
            + "; PropertiesChanged  Lamps; "
              "PropertiesChanged /groups/0 Brightness,Lamps,State,Warmth,Whiteness")
            .toStdString());
    EXPECT_EQ(told(), "");

    int changes = 0;
    controller.scripting().onChange = [&changes] { ++changes; };
    receive(lightState(1, {.brightness = 25700, .label = "Desk"}));
    loop.runPosted();
    EXPECT_GT(changes, 0);
    EXPECT_EQ(told(),
        ("PropertiesChanged /groups/0 Brightness; PropertiesChanged " + kitchen
            + " Brightness; PropertiesChanged " + lamp + " Brightness")
            .toStdString());
    engine().groupings().removeGroupWithID(group);
    EXPECT_EQ(told(), ("InterfacesRemoved " + kitchen).toStdString());

    changes = 0;
    loop.advance(Seconds(60)); // and it says nothing more
    EXPECT_GT(changes, 0);
    EXPECT_EQ(told(),
        ("PropertiesChanged /groups/0 Contact; PropertiesChanged " + lamp + " Contact")
            .toStdString());

    EXPECT_TRUE(tree.introspect(bus::kRootPath + lamp).contains("Lumeroom.Lamp\""));
    EXPECT_TRUE(tree.introspect(bus::kRootPath + "/groups").contains("<node name=\"0\"/>"));
    EXPECT_TRUE(tree.introspect(bus::kRootPath + kitchen).isEmpty());
}

TEST(ObjectPaths, nameEachThingOnce)
{
    const StripTarget things[] = {{"d073d5-0", StripType::Zone}, {"Grün_1", StripType::Tag},
        {"", StripType::Tag}, {"0", StripType::Group}};
    for (const StripTarget& thing : things)
        EXPECT_EQ(targetAt(pathOf(thing)), thing);
    EXPECT_EQ(pathOf(things[1]), bus::kRootPath + "/tags/Gr_c3_bcn_5f1");
    for (const char* path : {"/tags/_5F", "/tags/_", "/tags/_61", "/tags/_6", "/tags", "/x/1", ""})
        EXPECT_EQ(targetAt(bus::kRootPath + path).has_value(), path == std::string("/tags/_"))
            << path;
}

} // namespace lumeroom::test
