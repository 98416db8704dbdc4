#include "base/DefaultsFile.h"
#include "base/Log.h"
#include "base/PropertyList.h"
#include "base/StoredList.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <thread>

namespace lumeroom {

namespace fs = std::filesystem;

namespace {

constexpr keys::Integer kA{"a"};
constexpr keys::Integer kB{"b"};

/// An entry of a stored list that is known by its name.
struct Named {
    std::string name;
    int number = 0;
    static std::optional<Named> read(const Value::Dictionary& stored)
    {
        const auto name = stored.find("name");
        auto text = name == stored.end() ? std::nullopt : shownText(&name->second);
        return text ? std::optional(Named{*text}) : std::nullopt;
    }
    void write(Value::Dictionary& stored) const
    {
        stored.insert_or_assign("name", name);
        stored.insert_or_assign("number", number);
    }
    const std::string& identity() const { return name; }
};

} // namespace

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
        std::vector<fs::path> found{fs::directory_iterator(folder), {}};
        std::erase_if(found, [](const fs::path& path) {
            return path.string().find(".unreadable-") == std::string::npos;
        });
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

TEST_F(UserDefaultsFile, changesAreWrittenOnceShortlyAfterwardsOrAtTheEnd)
{
    write(propertylist::toXml(Value::Dictionary{{"unknown", Value::Array{1}}, {"a", 1}}));
    const fs::path deeper = folder / "new" / "folder" / "settings.plist";
    UserDefaults(deeper, loop, log).setObject("a", 1);
    UserDefaults defaults(file, loop, log);
    defaults.setObject("a", 2);
    defaults.setObject("b", "1.5");
    loop.advance(Seconds(0.4)); // where the pending write of the first finds nobody
    EXPECT_TRUE(fs::exists(deeper));
    EXPECT_EQ(*stored()->find("a"), Value(1));
    loop.advance(Seconds(0.2));
    EXPECT_EQ(
        stored(), Value(Value::Dictionary{{"unknown", Value::Array{1}}, {"a", 2}, {"b", "1.5"}}));
    EXPECT_TRUE(lines.empty());
}

TEST(DefaultsKeys, bringWhatIsStoredIntoTheirRange)
{
    UserDefaults defaults;
    EXPECT_EQ(defaults.get(keys::kDefaultTransition), 0.4);
    EXPECT_FALSE(defaults.objectForKey(keys::kDefaultTransition)); // while nothing is stored
    defaults.setObject(keys::kPresets, "none"); // of another type
    EXPECT_EQ(defaults.get(keys::kPresets), Value::Array());
    const std::pair<Value, double> speeds[] = {{-3, 1}, {"nan", 0}, {"fast", 0}, {"2.5", 2.5}};
    for (const auto& [value, speed] : speeds) {
        defaults.setObject(keys::kHeartbeatSpeed, value);
        EXPECT_EQ(defaults.get(keys::kHeartbeatSpeed), speed) << description(value);
    }
    const std::pair<Value, int> levels[] = {{9, 3}, {-4, 0}, {"2", 2}, {1.9, 1}, {true, 1}};
    for (const auto& [value, level] : levels) {
        defaults.setObject(keys::kVerbosity, value);
        EXPECT_EQ(defaults.get(keys::kVerbosity), level) << description(value);
    }
}

TEST_F(UserDefaultsFile, whatIsOverriddenStaysAndIsNeverWritten)
{
    write(propertylist::toXml(Value::Dictionary{{"a", 1}}));
    UserDefaults defaults(file, loop, log);
    int told = 0;
    const auto observation = defaults.observe(loop, {kA}, [&] { ++told; });
    defaults.overrideDefaults({{"a", 5}});
    loop.runPosted();
    defaults.setObject("a", 2);
    loop.runPosted();
    defaults.removeObject("a");
    defaults.setObject("c", 3);
    loop.advance(Seconds(1));
    EXPECT_EQ(told, 3); // what shows it has to show it again
    EXPECT_EQ(defaults.get(kA), 5);
    EXPECT_EQ(stored(), Value(Value::Dictionary{{"a", 1}, {"c", 3}}));
}

TEST_F(UserDefaultsFile, whatCannotBeReadIsKeptAside)
{
    const std::string contents[]
        = {"<plist><dict><key>a</key>", "", "rubbish", propertylist::toXml(Value::Array{1})};
    std::size_t kept = 0;
    for (const std::string& text : contents) {
        write(text);
        {
            UserDefaults defaults(file, loop, log);
            EXPECT_FALSE(defaults.objectForKey("a"));
            defaults.setObject("b", 1);
        }
        EXPECT_EQ(setAside().size(), ++kept);
        EXPECT_EQ(*stored()->find("b"), Value(1));
        ASSERT_EQ(lines.size(), kept);
        EXPECT_NE(lines.back().find("cannot be read"), std::string::npos);
    }
    EXPECT_TRUE(std::ranges::any_of(setAside(),
        [&](const fs::path& path) { return fs::file_size(path) == contents[0].size(); }));
}

TEST_F(UserDefaultsFile, whatIsNoFileIsLeftAlone)
{
    const auto refused = [&](const std::string& reason) {
        EXPECT_EQ(DefaultsFile::reasonToRefuse(file), reason);
        lines.clear();
        UserDefaults(file, loop, log).setObject("b", 1);
        EXPECT_EQ(lines.size(), 1U);
        EXPECT_NE(lines.at(0).find("will not be stored"), std::string::npos);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1); // nor is it renamed
    };
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); // whose reading would never end
    refused("it is a pipe");
    fs::remove(file);
    fs::create_symlink("/dev/zero", file);
    refused("it is a device");
    fs::remove(file);
    EXPECT_EQ(DefaultsFile::reasonToRefuse(file), "");
}

TEST_F(UserDefaultsFile, oneProgramAtATimeStoresInAFile)
{
    write("rubbish");
    fs::create_symlink("settings.plist", folder / "link");
    auto first = std::make_unique<UserDefaults>(file, loop, log);
    first->setObject("a", 1);
    first->synchronize();
    EXPECT_TRUE(DefaultsFile::isInUse(folder / "link"));
    {
        UserDefaults second(folder / "link", loop, log);
        EXPECT_EQ(second.get(kA), 1);
        second.setObject("a", 2);
        EXPECT_FALSE(second.synchronize());
        write("rubbish");
        UserDefaults(file, loop, log).synchronize();
    }
    EXPECT_EQ(setAside().size(), 1U); // by the first
    first.reset();
    EXPECT_FALSE(DefaultsFile::isInUse(file));
}

TEST_F(UserDefaultsFile, theTemporaryFilesOfDeadProgramsGo)
{
    const pid_t dead = ::fork();
    if (dead == 0)
        ::_exit(0);
    ::waitpid(dead, nullptr, 0);
    const std::string number = std::to_string(dead);
    const std::string names[] = {"settings.plist.new-" + std::to_string(::getppid()),
        "settings.plist.new-" + number + "x", "other.new-" + number,
        "settings.plist.new-" + number};
    for (const std::string& name : names)
        std::ofstream(folder / name) << "x";
    const UserDefaults defaults(file, loop, log);
    for (const std::string& name : names)
        EXPECT_EQ(fs::exists(folder / name), name != names[3]) << name;
}

TEST_F(UserDefaultsFile, aFailedWriteKeepsTheOldFileAndIsTriedAgain)
{
    write(propertylist::toXml(Value::Dictionary{{"a", 1}}));
    UserDefaults defaults(file, loop, log);
    // Something that cannot be replaced stands where the temporary file would be.
    const fs::path obstacle = file.string() + ".new-" + std::to_string(::getpid());
    fs::create_directory(obstacle);
    for (const int number : {2, 3}) {
        defaults.setObject("a", number);
        EXPECT_FALSE(defaults.synchronize());
    }
    EXPECT_EQ(*stored()->find("a"), Value(1));
    EXPECT_EQ(lines.size(), 1U); // said once
    fs::remove(obstacle);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(*stored()->find("a"), Value(3));
}

TEST_F(UserDefaultsFile, aLinkStaysALinkEvenToNothingYet)
{
    fs::create_symlink("elsewhere.plist", file);
    for (const int number : {1, 2}) {
        UserDefaults defaults(file, loop, log);
        EXPECT_EQ(defaults.get(kA), number - 1);
        defaults.setObject("a", number);
    }
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(UserDefaultsFile, observersHearOfABurstOnceOnTheMainThread)
{
    UserDefaults defaults;
    int first = 0;
    int second = 0;
    auto observation = defaults.observe(loop, {kA, kB}, [&] { ++first; });
    auto dropped = defaults.observe(loop, {kA}, [&] { ++second; });
    std::thread([&] {
        defaults.setObject("a", 1);
        defaults.setObject("b", 2);
    }).join();
    EXPECT_EQ(first, 0); // not on the thread that wrote
    dropped = {}; // with a call on its way
    loop.runPosted();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);

    defaults.setObject("b", 2); // the same value is no news
    defaults.setObject("another", 2);
    loop.runPosted();
    EXPECT_EQ(first, 1);
    defaults.removeObject("a");
    loop.runPosted();
    EXPECT_EQ(first, 2);

    // One that writes in its turn hears of that too, and may end itself.
    observation = defaults.observe(loop, {kB}, [&] {
        if (defaults.get(kB) < 3)
            defaults.setObject("b", defaults.get(kB) + 1);
        else
            observation = {};
    });
    defaults.setObject("b", 1);
    loop.runPosted();
    EXPECT_EQ(defaults.get(kB), 3);
}

TEST_F(UserDefaultsFile, anyThreadMayReadAndWrite)
{
    UserDefaults defaults(file, loop, log);
    const auto observation
        = defaults.observe(loop, {"key 1", "key 2"}, [&] { defaults.setObject("seen", true); });
    std::vector<std::jthread> threads;
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back([&defaults, n] {
            for (int i = 0; i < 200; ++i) {
                defaults.setObject("key " + std::to_string(n), i);
                defaults.get(keys::Switch{"key 0"});
            }
        });
    }
    threads.clear();
    loop.advance(Seconds(1));
    EXPECT_EQ(*stored()->find("key 3"), Value(199));
    EXPECT_EQ(*stored()->find("seen"), Value(true));
}

TEST(StoredList, keepsWhatItDoesNotKnowWhereItWas)
{
    constexpr keys::List kList{"list"};
    const auto entry = [](const char* name, int number) {
        return Value::Dictionary{{"name", name}, {"number", number}};
    };
    Value::Dictionary known = entry("x", 0);
    known.emplace("icon", "lamp");
    const Value endless = Value::Dictionary{{"name", std::string(2000, 'n')}};
    const Value::Array found{"odd", known, endless, entry("y", 0), Value::Dictionary{{"z", 1}}};
    UserDefaults defaults;
    defaults.setObject(kList, found);
    StoredList<Named> list(defaults, kList);
    ManualRunLoop loop;
    int told = 0;
    const auto observation = defaults.observe(loop, {kList}, [&] { ++told; });
    const auto items = list.items();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[1].entry.name, "y");
    EXPECT_EQ(items[1].place, 3U);

    list.assign({{"y", 1}, {"new", 2}, {"x", 3}});
    known["number"] = 3;
    EXPECT_EQ(defaults.get(kList),
        (Value::Array{"odd", entry("y", 1), endless, entry("new", 2), found[4], known}));
    list.replace(0, {"x", 4}); // is no entry
    list.remove(9);
    list.remove(3);
    list.append({"last", 5});
    EXPECT_EQ(defaults.get(kList),
        (Value::Array{"odd", entry("y", 1), endless, found[4], known, entry("last", 5)}));
    loop.runPosted();
    EXPECT_EQ(told, 1);

    defaults.setObject(kList, Value::Array(20'000, entry("x", 0)));
    EXPECT_EQ(list.items().size(), StoredList<Named>::kMostEntries);
    list.assign({});
    EXPECT_EQ(defaults.get(kList).size(), 10'000U);
}

} // namespace lumeroom
