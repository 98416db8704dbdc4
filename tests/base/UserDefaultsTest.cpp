#include "base/UserDefaults.h"
#include "base/Log.h"
#include "base/PropertyList.h"
#include "base/RegisteredDefaults.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <thread>

namespace lumeroom {

namespace fs = std::filesystem;

struct UserDefaultsFile : ::testing::Test {
    UserDefaultsFile() { fs::create_directories(folder); }
    ~UserDefaultsFile() override { fs::remove_all(folder); }

    void write(const std::string& text) { std::ofstream(file) << text; }
    std::optional<Value> stored() const
    {
        std::ifstream in(file);
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        return propertylist::parse(
            {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }
    std::vector<fs::path> setAside() const
    {
        std::vector<fs::path> found;
        for (const auto& entry : fs::directory_iterator(folder)) {
            if (entry.path().string().find(".unreadable-") != std::string::npos)
                found.push_back(entry.path());
        }
        return found;
    }

    const fs::path folder = fs::temp_directory_path()
        / ("lumeroom-test-" + std::to_string(::getpid()) + "-"
            + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    const fs::path file = folder / "settings.plist";
    std::vector<std::string> lines;
    Log log{[this](std::string_view line) { lines.emplace_back(line); }};
    ManualRunLoop loop;
};

TEST_F(UserDefaultsFile, changesAreWrittenOnceShortlyAfterwards)
{
    write(propertylist::toXml(Value::Dictionary{{"unknown", Value::Array{1}}, {"a", 1}}));
    UserDefaults defaults(file, loop, log);
    defaults.registerDefaults(registeredDefaults());
    EXPECT_EQ(defaults.integerForKey("a"), 1);
    EXPECT_FLOAT_EQ(defaults.floatForKey("defaultTransition"), 0.4F);
    EXPECT_EQ(defaults.stringForKey("transitionMins"), "30");
    EXPECT_FALSE(defaults.objectForKey("verbosity"));

    defaults.setObject("a", 2);
    defaults.setObject("defaultTransition", "1.5");
    loop.advance(Seconds(0.4));
    EXPECT_EQ(*stored()->find("a"), Value(1));
    loop.advance(Seconds(0.2));
    EXPECT_EQ(stored(),
        Value(Value::Dictionary{
            {"unknown", Value::Array{1}}, {"a", 2}, {"defaultTransition", "1.5"}}));
    EXPECT_FLOAT_EQ(defaults.floatForKey("defaultTransition"), 1.5F);
    defaults.removeObject("defaultTransition");
    EXPECT_FLOAT_EQ(defaults.floatForKey("defaultTransition"), 0.4F);
    EXPECT_TRUE(lines.empty());
}

TEST_F(UserDefaultsFile, whatIsOverriddenStaysAndIsNeverWritten)
{
    write(propertylist::toXml(Value::Dictionary{{"a", 1}}));
    UserDefaults defaults(file, loop, log);
    defaults.overrideDefaults({{"a", 5}, {"b", 6}});
    int told = 0;
    const auto observation = defaults.observe(loop, [&] { ++told; });
    for (const char* key : {"a", "b"}) {
        defaults.setObject(key, 2);
        loop.runPosted();
        defaults.removeObject(key);
        loop.runPosted();
    }
    EXPECT_EQ(told, 4); // what shows it has to show it again
    EXPECT_EQ(defaults.integerForKey("a"), 5);
    EXPECT_EQ(defaults.integerForKey("b"), 6);
    defaults.setObject("c", 3);
    loop.advance(Seconds(1));
    EXPECT_EQ(stored(), Value(Value::Dictionary{{"a", 1}, {"c", 3}}));
}

TEST_F(UserDefaultsFile, theLastChangesAreWrittenAtTheEnd)
{
    const fs::path deeper = folder / "new" / "folder" / "settings.plist";
    {
        UserDefaults defaults(deeper, loop, log);
        defaults.setObject("a", 1);
    }
    loop.advance(Seconds(5)); // the pending write finds nobody
    EXPECT_TRUE(fs::exists(deeper));
}

TEST_F(UserDefaultsFile, whatCannotBeReadIsKeptAside)
{
    const std::string contents[]
        = {"<plist><dict><key>a</key>", "", "rubbish", propertylist::toXml(Value::Array{1})};
    std::size_t kept = 0;
    for (const std::string& text : contents) {
        write(text);
        lines.clear();
        {
            UserDefaults defaults(file, loop, log);
            EXPECT_FALSE(defaults.objectForKey("a"));
            defaults.setObject("b", 1);
        }
        EXPECT_EQ(setAside().size(), ++kept);
        EXPECT_EQ(*stored()->find("b"), Value(1));
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_NE(lines[0].find("cannot be read"), std::string::npos);
    }
    bool found = false;
    for (const fs::path& path : setAside()) {
        std::ifstream in(path);
        found = found || std::string(std::istreambuf_iterator<char>(in), {}) == contents[0];
    }
    EXPECT_TRUE(found);
}

TEST_F(UserDefaultsFile, whatIsNoFileIsKeptAside)
{
    fs::create_directory(file);
    std::ofstream(file / "inside") << "x";
    UserDefaults(file, loop, log).setObject("b", 1);
    ASSERT_EQ(setAside().size(), 1U);
    EXPECT_TRUE(fs::exists(setAside()[0] / "inside"));
    EXPECT_EQ(*stored()->find("b"), Value(1));

    fs::remove_all(setAside()[0]);
    fs::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); // whose reading would never end
    UserDefaults(file, loop, log).setObject("b", 2);
    ASSERT_EQ(setAside().size(), 1U);
    EXPECT_TRUE(fs::is_fifo(setAside()[0]));
    EXPECT_EQ(*stored()->find("b"), Value(2));
}

TEST_F(UserDefaultsFile, aFailedWriteKeepsTheOldFileAndIsTriedAgain)
{
    write(propertylist::toXml(Value::Dictionary{{"a", 1}}));
    UserDefaults defaults(file, loop, log);
    // Something that cannot be replaced stands where the temporary file would be.
    const fs::path obstacle = file.string() + ".new-" + std::to_string(::getpid());
    fs::create_directory(obstacle);
    defaults.setObject("a", 2);
    EXPECT_FALSE(defaults.synchronize());
    defaults.setObject("a", 3);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(*stored()->find("a"), Value(1));
    EXPECT_EQ(lines.size(), 1U); // said once
    fs::remove(obstacle);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(*stored()->find("a"), Value(3));
    EXPECT_EQ(lines.size(), 2U);
}

TEST_F(UserDefaultsFile, aLinkStaysALinkEvenToNothingYet)
{
    fs::create_symlink("elsewhere.plist", file);
    for (const int number : {1, 2}) {
        UserDefaults defaults(file, loop, log);
        EXPECT_EQ(defaults.integerForKey("a"), number - 1);
        defaults.setObject("a", number);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_EQ(*stored()->find("a"), Value(number));
    }
}

TEST_F(UserDefaultsFile, observersHearOfABurstOnceOnTheMainThread)
{
    UserDefaults defaults(file, loop, log);
    int first = 0;
    int second = 0;
    auto observation = defaults.observe(loop, [&] { ++first; });
    auto dropped = defaults.observe(loop, [&] { ++second; });
    std::thread([&] {
        defaults.setObject("a", 1);
        defaults.setObject("a", 2);
    }).join();
    EXPECT_EQ(first, 0); // not on the thread that wrote
    dropped = {}; // with a call on its way
    loop.runPosted();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);

    defaults.setObject("a", 2); // the same value is no news
    loop.runPosted();
    EXPECT_EQ(first, 1);
    defaults.removeObject("a");
    loop.runPosted();
    defaults.registerDefaults({{"a", 3}});
    loop.runPosted();
    EXPECT_EQ(first, 3);

    // One that writes in its turn hears of that too, and may end itself.
    observation = defaults.observe(loop, [&] {
        if (defaults.integerForKey("b") < 3)
            defaults.setObject("b", defaults.integerForKey("b") + 1);
        else
            observation = {};
    });
    defaults.setObject("b", 1);
    loop.runPosted();
    EXPECT_EQ(defaults.integerForKey("b"), 3);
    defaults.setObject("b", 0);
    loop.runPosted();
    EXPECT_EQ(defaults.integerForKey("b"), 0);
}

TEST_F(UserDefaultsFile, anyThreadMayReadAndWrite)
{
    UserDefaults defaults(file, loop, log);
    const auto observation = defaults.observe(loop, [&] { defaults.setObject("seen", true); });
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back([&defaults, n] {
            for (int i = 0; i < 200; ++i) {
                defaults.setObject("key " + std::to_string(n), i);
                defaults.boolForKey("key 0");
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    loop.advance(Seconds(1));
    EXPECT_EQ(*stored()->find("key 3"), Value(199));
    EXPECT_EQ(*stored()->find("seen"), Value(true));
}

} // namespace lumeroom
