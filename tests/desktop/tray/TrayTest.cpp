#include "base/PropertyList.h"
#include "support/EngineAndLamps.h"
#include "support/QtTestInput.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

/// The program on a desktop whose tray this test plays: it needs a display and a session bus of its
/// own.
namespace lumeroom {

using test::Time;
using test::VirtualLamp;
using test::workUntil;

namespace {

const QString kMenuInterface = QStringLiteral("com.canonical.dbusmenu");

/// An entry of a menu as it comes over the bus.
struct Entry {
    int id = 0;
    QVariantMap properties;
    std::vector<Entry> children;

    QString label() const { return properties.value(QStringLiteral("label")).toString(); }
    QByteArray icon() const { return properties.value(QStringLiteral("icon-data")).toByteArray(); }
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Entry& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QVariant child;
        argument >> child;
        Entry inner;
        child.value<QDBusArgument>() >> inner;
        entry.children.push_back(std::move(inner));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

} // namespace

/// The desktop's side: where status items register, and where the dock hears of badges.
class Desktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hostIsThere)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    Desktop()
    {
        bus.registerObject("/StatusNotifierWatcher", this,
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        bus.connect({}, {}, "com.canonical.Unity.LauncherEntry", "Update", this,
            SLOT(update(QString, QVariantMap)));
        isThere = bus.registerService("org.kde.StatusNotifierWatcher");
    }
    bool hostIsThere() const { return true; }
    int protocolVersion() const { return 0; }

    QDBusMessage call(const QString& path, const QString& interface, const QString& method,
        const QVariantList& arguments) const
    {
        auto message = QDBusMessage::createMethodCall(item, path, interface, method);
        message.setArguments(arguments);
        return bus.call(message);
    }
    QString menuPath() const
    {
        const auto reply = call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
            {"org.kde.StatusNotifierItem", "Menu"});
        const QVariant menu = reply.arguments().value(0).value<QDBusVariant>().variant();
        return menu.value<QDBusObjectPath>().path();
    }
    /// The left mouse button on the item.
    void click() const
    {
        call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", {0, 0});
    }
    /// The item's menu, as a host opens it.
    Entry openMenu() const
    {
        const QString path = menuPath();
        call(path, kMenuInterface, "AboutToShow", {0});
        const auto layout = call(path, kMenuInterface, "GetLayout", {0, -1, QStringList()});
        Entry root;
        if (layout.arguments().size() == 2)
            layout.arguments()[1].value<QDBusArgument>() >> root;
        return root;
    }
    void choose(int entry) const
    {
        call(menuPath(), kMenuInterface, "Event",
            {entry, "clicked", QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    QDBusConnection bus = QDBusConnection::sessionBus();
    bool isThere = false;
    QString item; ///< the name on the bus under which the status item can be asked
    QString program;
    QVariantMap badge;

public slots:
    void RegisterStatusNotifierItem(const QString& service) { item = service; }
    void update(const QString& uri, const QVariantMap& properties)
    {
        program = uri;
        badge = properties;
    }
};

struct Tray : test::EngineAndLamps {
    Tray()
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("XDG_CONFIG_HOME", folder.path());
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedChannels);
    }
    ~Tray() override
    {
        program.terminate();
        program.waitForFinished(10000);
    }
    /// Starts the program with these settings, told of the three lamps.
    void start(Value::Dictionary settings)
    {
        const std::string file = folder.filePath("settings.plist").toStdString();
        settings["manualIPAddresses"] = defaults.get(keys::kManualIPAddresses);
        settings["heartbeatSpeed"] = 4;
        std::ofstream(file) << propertylist::toXml(settings);
        program.start(LUMEROOM_PROGRAM, {"--log", "--defaults", QString::fromStdString(file)});
        ASSERT_TRUE(program.waitForStarted());
        ASSERT_TRUE(workUntil([&] { return !desktop.item.isEmpty(); }));
    }
    static const Entry* entry(const Entry& menu, const QString& label)
    {
        const auto found = std::ranges::find(menu.children, label, &Entry::label);
        return found == menu.children.end() ? nullptr : &*found;
    }
    static QByteArray xwininfo()
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start("xwininfo", {"-name", "Lumeroom manual control panel"});
        process.waitForFinished();
        return process.readAllStandardOutput();
    }
    static bool panelIsInSight() { return xwininfo().contains("IsViewable"); }
    /// As a window manager does for its close button. False where the window was not in sight.
    static bool closePanel()
    {
        const QRegularExpression id("Window id: 0x([0-9a-f]+)");
        const QString window = id.match(QString::fromLatin1(xwininfo())).captured(1);
        if (window.isEmpty())
            return false;
        xcb_connection_t* x = xcb_connect(nullptr, nullptr);
        const auto atom = [x](const char* name) {
            const auto length = static_cast<std::uint16_t>(std::strlen(name));
            const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
                xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, length, name), nullptr), &std::free);
            return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
        };
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window.toUInt(nullptr, 16);
        event.type = atom("WM_PROTOCOLS");
        event.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(x, 0, event.window, 0, reinterpret_cast<const char*>(&event));
        // The answer says that the message was taken.
        std::free(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
        xcb_disconnect(x);
        return true;
    }

    QTemporaryDir folder;
    Desktop desktop;
    QProcess program;
};

TEST_F(Tray, theMenuOnTheBusSwitchesTheLamps)
{
    ASSERT_TRUE(desktop.isThere);
    start({{"badgeIcon", true}});
    Entry menu;
    ASSERT_TRUE(workUntil([&] {
        menu = desktop.openMenu();
        return menu.children.size() == 9;
    }));
    ASSERT_EQ(menu.children[2].children.size(), 2U); // all on, all off
    for (const char* name : {"Desk", "Ceiling", "Strip"})
        ASSERT_TRUE(entry(menu, name)) << name;
    EXPECT_TRUE(workUntil([&] { return desktop.badge.value("count") == 3; }));
    EXPECT_EQ(desktop.program, "application://com.tanagerworks.Lumeroom.desktop");
    const QByteArray lit = entry(menu, "Desk")->icon();
    EXPECT_FALSE(lit.isEmpty());
    const QString check = QStringLiteral("toggle-state");
    EXPECT_EQ(entry(menu, "Desk")->properties.value(check), 1);
    desktop.choose(entry(menu, "Desk")->id);
    EXPECT_TRUE(workUntil([&] { return !isOn(0); }));
    EXPECT_EQ(entry(desktop.openMenu(), "Desk")->properties.value(check), 0);
    EXPECT_TRUE(workUntil([&] { return desktop.badge.value("count") == 2; }));
    EXPECT_NE(entry(desktop.openMenu(), "Desk")->icon(), lit);
    desktop.choose(menu.children[2].children[0].id);
    EXPECT_TRUE(workUntil([&] { return isOn(0); }));
    desktop.choose(menu.children[2].children[1].id);
    EXPECT_TRUE(workUntil([&] { return desktop.badge.value("count-visible") == false; }));
    desktop.choose(entry(menu, "Quit")->id);
    EXPECT_TRUE(workUntil([&] { return program.state() == QProcess::NotRunning; }));
}

TEST_F(Tray, theProgramLivesOnInTheTrayWhenThePanelIsClosed)
{
    start({});
    Entry menu;
    ASSERT_TRUE(workUntil([&] {
        menu = desktop.openMenu();
        return entry(menu, "Desk");
    }));
    const std::function<void()> waysBack[] = {
        [&] { desktop.choose(entry(menu, "Show manual control")->id); }, [&] { desktop.click(); }};
    for (const auto& wayBack : waysBack) {
        ASSERT_TRUE(workUntil(panelIsInSight));
        ASSERT_TRUE(closePanel());
        ASSERT_TRUE(workUntil([] { return !panelIsInSight(); }));
        wayBack();
    }
    EXPECT_TRUE(workUntil(panelIsInSight));

    desktop.bus.unregisterService("org.kde.StatusNotifierWatcher"); // no way back any more
    ASSERT_TRUE(closePanel());
    EXPECT_TRUE(workUntil([&] { return program.state() == QProcess::NotRunning; }));
}

TEST_F(Tray, theHiddenDockIconKeepsTheWindowOffTheTaskBar)
{
    start({{"hideDockIcon", true}});
    QProcess xprop;
    ASSERT_TRUE(workUntil([&] {
        xprop.start("xprop", {"-name", "Lumeroom manual control panel", "_NET_WM_STATE"});
        return xprop.waitForFinished() && xprop.exitCode() == 0;
    }));
    EXPECT_TRUE(xprop.readAllStandardOutput().contains("_NET_WM_STATE_SKIP_TASKBAR"));
}

} // namespace lumeroom

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "TrayTest.moc"
