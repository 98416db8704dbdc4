#include "app/ui/ConsoleWindow.h"
#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "desktop/CommandLine.h"
#include "desktop/Demonstration.h"
#include "desktop/QtRunLoop.h"
#include "desktop/QuitSignals.h"
#include "desktop/Snapshot.h"
#include "desktop/StandardErrorPipe.h"
#include "strips/LayoutManager.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ControlStripView.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SliderView.h"
#include "support/FakeOwner.h"
#include "support/ManualRunLoop.h"
#include "support/QtTestInput.h"

#include <QApplication>

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace lumeroom {

using test::key;
using test::mouse;
using test::workUntil;

TEST(QtRunLoop, runsPostedWorkInOrderFromAnyThread)
{
    QtRunLoop loop;
    std::vector<int> order;
    std::thread([&] {
        for (int i = 0; i < 3; ++i)
            loop.post([&order, i] { order.push_back(i); });
    }).join();
    const Timer timer = loop.after(Seconds(0.01), [&] { order.push_back(9); });
    const Timer dropped = [&] { return loop.after(Seconds(0.001), [&] { order.push_back(7); }); }();
    Timer gone = loop.after(Seconds(0.001), [&] { order.push_back(8); });
    gone.cancel();
    EXPECT_TRUE(workUntil([&] { return order.size() >= 5; }));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 7, 9}));
}

TEST(CommandLine, isReadOrRefusedInWords)
{
    const struct {
        std::vector<std::string> arguments;
        std::string error; ///< a part of it
    } cases[] = {
        {{"--nope"}, "not expected: --nope"},
        {{"--demo=3"}, "demo was given"},
        {{"file"}, "not expected: file"},
        {{"--defaults="}, "--defaults: 1 required"},
        {{"--appearance", "pink"}, "--appearance: pink not in {dark,light}"},
        {{"--demo-lamps", "201"}, "--demo-lamps: Value 201 not in range 1 to 200"},
    };
    for (const auto& c : cases)
        EXPECT_NE(parseCommandLine(c.arguments, "").error.find(c.error), std::string::npos)
            << c.error;
    const CommandLine line = parseCommandLine(
        {"--defaults=a b", "--snapshot", "y", "--demo-lamps", "200", "--appearance=light"}, "");
    EXPECT_EQ(line.defaultsFile, "a b");
    EXPECT_EQ(line.snapshotFile, "y");
    EXPECT_EQ(line.appearance, CommandLine::Appearance::Light);
    EXPECT_TRUE(line.demo);
    EXPECT_EQ(line.demoLamps, 200U);
}

TEST(StandardErrorPipe, handsOverWholeCharactersAndEndsThoughItIsHeldOpen)
{
    ManualRunLoop loop;
    std::string text;
    const std::string lamp = "玄関\n";
    int kept = -1; // as by a program that is started from here
    {
        StandardErrorPipe pipe(loop, [&](const std::string& chunk) {
            EXPECT_EQ(QString::fromStdString(chunk).toStdString(), chunk);
            text += chunk;
        });
        for (const char byte : lamp) { // each byte in a write of its own
            ASSERT_EQ(::write(STDERR_FILENO, &byte, 1), 1);
            loop.runUntil([] { return true; });
        }
        EXPECT_TRUE(loop.runUntil([&] { return text == lamp; })) << text;
        kept = ::dup(STDERR_FILENO);
    }
    ::close(kept);
    ASSERT_EQ(::write(STDERR_FILENO, "", 0), 0); // the stream is back
}

TEST(QuitSignals, leaveAStartedProgramAlone)
{
    std::signal(SIGHUP, SIG_IGN); // as nohup starts programs
    bool quits = false;
    {
        QuitSignals quitSignals;
        quitSignals.setHandler([&quits] { quits = true; });
        ASSERT_EQ(::raise(SIGHUP), 0);
        QCoreApplication::processEvents();
        EXPECT_FALSE(quits);
        ASSERT_EQ(::raise(SIGINT), 0);
        EXPECT_TRUE(workUntil([&quits] { return quits; }));
    }
    std::signal(SIGHUP, SIG_DFL);
    ASSERT_EQ(::raise(SIGTERM), 0); // none listens any more, and it ends nothing
}

TEST(Demonstration, speaksToItsOwnLampsOnlyWhateverIsSet)
{
    UserDefaults defaults;
    CommandLine commandLine;
    commandLine.demo = true;
    commandLine.demoLamps = 2;
    const Demonstration demonstration(
        commandLine, defaults, [](const std::string& wrong) { FAIL() << wrong; });
    const std::string addresses = defaults.get(keys::kManualIPAddresses);
    EXPECT_EQ(addresses.find("127.0."), 0U);
    for (const char* text : {"", "192.168.1.20"}) {
        defaults.setObject(keys::kManualIPAddresses, text);
        EXPECT_EQ(defaults.get(keys::kManualIPAddresses), addresses);
    }
    defaults.removeObject(keys::kManualIPAddresses);
    EXPECT_EQ(defaults.get(keys::kManualIPAddresses), addresses);
}

TEST(ConsoleWindow, findsForwardBackwardAndAround)
{
    ConsoleWindow console;
    console.append("one lamp\ntwo ");
    console.append("lamps\n");
    console.setSearchText("lamp");
    EXPECT_TRUE(console.findNext());
    EXPECT_TRUE(console.findNext());
    EXPECT_TRUE(console.findNext()); // from the start again
    EXPECT_TRUE(console.findPrevious());
    console.setSearchText("nothing");
    EXPECT_FALSE(console.findNext());

    QString many; // of which the newest stay
    for (int line = 1; line <= 10'001; ++line)
        many += QStringLiteral("line %1\n").arg(line);
    console.append(many);
    EXPECT_TRUE(console.text().startsWith("line 2\n"));
    EXPECT_TRUE(console.text().endsWith("line 10001\n"));
}

struct StripViews : ::testing::Test {
    StripViews()
    {
        strip->label().setText("Desk <b>lamp</b>");
        view.show();
    }
    QWidget* named(const QString& role)
    {
        for (QWidget* child : view.findChildren<QWidget*>()) {
            if (child->property("role").toString() == role)
                return child;
        }
        return nullptr;
    }
    ManualRunLoop loop;
    UserDefaults defaults;
    Log log;
    test::FakeOwner owner;
    std::shared_ptr<LampControlStrip> strip = std::make_shared<LampControlStrip>(
        "1", StripType::Lamp, StripSurroundings{loop, defaults, log, owner});
    ColourPickerPopover picker;
    ControlStripView view{*strip, theme::kHorizontalControl, picker};
};

TEST_F(StripViews, controlsFollowTheHandTheKeysAndTheModel)
{
    auto* slider = qobject_cast<SliderView*>(named("brightness"));
    ASSERT_TRUE(slider);
    EXPECT_EQ(slider->accessibleName(), "Desk <b>lamp</b>, brightness");
    mouse(*slider, QEvent::MouseButtonPress, slider->width() / 2.0);
    mouse(*slider, QEvent::MouseMove, slider->width() + 50.0);
    mouse(*slider, QEvent::MouseButtonRelease, slider->width() + 50.0);
    EXPECT_EQ(strip->brightnessSlider().value(), 255);
    EXPECT_EQ(slider->accessibleDescription(), "100 percent");
    key(*slider, Qt::Key_Left);
    EXPECT_EQ(strip->brightnessSlider().value(), 250);
    auto* button = qobject_cast<OnOffButtonView*>(named("power"));
    button->click();
    EXPECT_TRUE(strip->onOffButton().state());
    EXPECT_EQ(button->accessibleDescription(), "on");
    strip->onOffButton().setState(false);
    EXPECT_FALSE(button->isChecked());
    strip->setCapabilities(kCapabilitiesWhiteLamp);
    EXPECT_FALSE(named("saturation")->isEnabled());
}

TEST(Snapshot, theTableLinesUp)
{
    auto lamp = std::make_shared<Lamp>();
    lamp->label = "玄関";
    lamp->address = "127.0.0.1";
    lamp->brightness = 255;
    lamp->onoff = true;
    auto rude = std::make_shared<Lamp>(*lamp);
    rude->label = "Ann’s\x1B[31m\u202E–\r"; // nothing in a name works the terminal
    EXPECT_EQ(lampTable({lamp, rude}),
        "Lamp           Product  Address    Power  Brightness\n"
        "玄関           -        127.0.0.1  on     100%\n"
        "Ann’s [31m –   -        127.0.0.1  on     100%\n");
}

} // namespace lumeroom

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
