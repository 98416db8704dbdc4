#include "desktop/Application.h"
#include "base/PropertyList.h"
#include "desktop/dbus/ProgramName.h"
#include "support/EngineAndLamps.h"
#include "support/QtTestInput.h"

#include <QAbstractButton>
#include <QAction>
#include <QTemporaryDir>

namespace lumeroom::test {

/// The whole program in this process, told of three lamps.
struct WholeProgram : EngineAndLamps {
    bool allAre(bool on)
    {
        for (std::size_t i = 0; i < network.count(); ++i) {
            if (isOn(i) != on)
                return false;
        }
        return true;
    }
};

TEST_F(WholeProgram, itsMenuBarAndNavigationSwitchAllLampsAndItQuits)
{
    const QTemporaryDir folder;
    CommandLine commandLine;
    commandLine.defaultsFile = folder.filePath("settings.plist").toStdString();
    std::ofstream(commandLine.defaultsFile)
        << propertylist::toXml(Value::Dictionary{{std::string(keys::kDefaultTransition), 0},
               {std::string(keys::kAppearance), keys::kAppearanceLight},
               {std::string(keys::kManualIPAddresses), defaults.get(keys::kManualIPAddresses)}});
    const ProgramName noName{QString()};
    commandLine.isDark = true;
    Application application(commandLine, noName);
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 100);
    QTimer::singleShot(0, [this] {
        EXPECT_TRUE(workUntil([&] {
            choose<QAction>("All o&ff"); // until all are known
            return allAre(false);
        }));
        choose<QAction>("All &on");
        EXPECT_TRUE(workUntil([&] { return allAre(true); }));
        choose<QAbstractButton>("All off");
        EXPECT_TRUE(workUntil([&] { return allAre(false); }));
        choose<QAbstractButton>("All on");
        EXPECT_TRUE(workUntil([&] { return allAre(true); }));
        choose<QAction>("&Quit");
    });
    EXPECT_EQ(application.run(), 0);
}

} // namespace lumeroom::test
