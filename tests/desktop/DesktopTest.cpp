#include "app/ui/ConsoleWindow.h"
#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "desktop/CommandLine.h"
#include "desktop/Demonstration.h"
#include "desktop/QtRunLoop.h"
#include "desktop/QuitSignals.h"
#include "desktop/Snapshot.h"
#include "desktop/StandardErrorPipe.h"
#include "support/ManualRunLoop.h"
#include "support/QtTestInput.h"

#include <QApplication>

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace lumeroom {

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
        {{"--defaults="}, "--defaults: 1 required"},
        {{"--demo-lamps", "201"}, "--demo-lamps: Value 201 not in range 1 to 200"},
    };
    for (const auto& c : cases)
        EXPECT_NE(parseCommandLine(c.arguments, "").error.find(c.error), std::string::npos)
            << c.error;
    const CommandLine line = parseCommandLine(
        {"--defaults=a b", "--snapshot", "y", "--demo-lamps", "200", "--appearance=light"}, "");
    EXPECT_EQ(line.defaultsFile, "a b");
    EXPECT_EQ(line.snapshotFile, "y");
    EXPECT_EQ(line.isDark, false);
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

TEST(ConsoleWindow, keepsTheNewestLines)
{
    ConsoleWindow console;
    QString many;
    for (int line = 1; line <= 10'001; ++line)
        many += QStringLiteral("line %1\n").arg(line);
    console.append(many);
    EXPECT_TRUE(console.text().startsWith("line 2\n"));
    EXPECT_TRUE(console.text().endsWith("line 10001\n"));
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
