#include "engine/ArpOutput.h"
#include "engine/JSONText.h"
#include "engine/LabelText.h"
#include "engine/ProductCatalogue.h"
#include "engine/SystemArpTable.h"

#include "base/Log.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <sstream>

namespace lumeroom {

struct Text : ::testing::Test {
    Log log{[](std::string_view) {}};
};

TEST_F(Text, labelsAreUtf8UpToTheirFirstZero)
{
    const std::string full(32, 'x');
    using namespace std::string_literals;
    const struct {
        std::string field;
        std::optional<std::string> text;
    } cases[] = {
        {"Desk\0\0\0"s, "Desk"},
        {"Desk\0rubbish\xff"s, "Desk"},
        {"\0"s, ""},
        {full, full},
        {"玄関"s, "玄関"},
        {"bad\xff\0\0"s, std::nullopt},
        {"cut\xe7\x8e"s, std::nullopt},
    };
    for (const auto& c : cases) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(c.field.data());
        EXPECT_EQ(stringFromData({bytes, c.field.size()}), c.text) << c.field;
    }
    EXPECT_EQ(dataFromString("Küche", log), "Küche");
    EXPECT_EQ(dataFromString("\xff", log), "");
}

TEST_F(Text, jsonScanners)
{
    // As the sunrise service answers.
    const auto reply = dictionaryOfDictionariesFromJSON(
        R"({"results":{"sunrise":"2026-11-21T07:31:05+00:00","list":[1,2],"n": 5},"status":"OK"})");
    EXPECT_EQ(reply,
        (Value::Dictionary{{"status", "OK"},
            {"results",
                Value::Dictionary{
                    {"sunrise", "2026-11-21T07:31:05+00:00"}, {"list", "[1,2]"}, {"n", "5"}}}}));
    EXPECT_EQ(dictionaryFromJSON(R"([{"a":"1,5", "b" : true, nothing}])"),
        (Value::Dictionary{{"a", "1,5"}, {"b", "true"}}));
    EXPECT_EQ(arrayOfDictionariesFromJSON(R"({"a":"1","b":"3"},{"a":"2"})"),
        (Value::Array{Value::Dictionary{{"a", "1"}, {"b", "3"}}, Value::Dictionary{{"a", "2"}}}));
    const std::string hostile = "{\"a\":" + std::string(100000, '{') + "\"b\":1";
    EXPECT_FALSE(dictionaryOfDictionariesFromJSON(hostile).empty());
}

TEST(ProductCatalogue, readsTheResourceAndForgivesABadOne)
{
    ProductCatalogue shipped([] {
        std::ifstream file(LUMEROOM_SOURCE_DIR "/resources/products.json");
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    });
    EXPECT_EQ(shipped.productDescriptionFromProductID(27), "LIFX A19");
    EXPECT_TRUE(shipped.ProductIDHasMultizone(32));
    int variable = 0;
    for (std::uint32_t product = 0; product < 1000; ++product)
        variable += shipped.capabilitiesOfProductID(product) == 6;
    EXPECT_EQ(variable, 15);

    for (const char* text : {"", "rubbish", "[]", "{}", "[5]", R"([{"products":5}])",
             R"([{"products":[{"pid":"1"},{"pid":1,"name":5,"features":[]}]}])",
             R"([{"products":[{"pid":1,"features":{"temperature_range":[1,2,3]}}]}])",
             R"([{"products":[{"pid":1,"features":{"temperature_range":[null,5]}}]}])",
             R"([{"products":[]},{"products":[{"pid":1,"name":"second list"}]}])"}) {
        ProductCatalogue catalogue([text] { return std::string(text); });
        EXPECT_EQ(catalogue.productDescriptionFromProductID(1), "Unknown") << text;
        EXPECT_EQ(catalogue.capabilitiesOfProductID(1), 2) << text;
    }
}

struct SystemArp : ::testing::Test {
    SystemArp() { std::filesystem::create_directories(folder); }
    ~SystemArp() override { std::filesystem::remove_all(folder); }
    std::string script(const std::string& text)
    {
        const auto path = folder / "arp";
        std::ofstream(path) << "#!/bin/sh\n" << text;
        ::chmod(path.c_str(), 0755);
        return path;
    }
    std::optional<ArpTable::Result> read(SystemArpTable::Sources sources)
    {
        SystemArpTable table(loop, std::move(sources));
        std::optional<ArpTable::Result> result;
        table.read([&](const ArpTable::Result& done) { result = done; });
        loop.runUntil([&] { return result.has_value(); });
        return result;
    }
    const std::filesystem::path folder
        = std::filesystem::temp_directory_path() / ("lumeroom-arp-" + std::to_string(::getpid()));
    ManualRunLoop loop;
};

TEST_F(SystemArp, readsTheCommandOrWithoutItTheKernelsTable)
{
    const auto result = read({{script("echo \"$1: lifx (127.0.0.9)\"; exit 3")}, "", {}});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->exitStatus, 3);
    EXPECT_EQ(result->output, "-a: lifx (127.0.0.9)\n");

    std::ofstream(folder / "table")
        << "IP address       HW type     Flags       HW address            Mask     Device\n"
        << "10.0.0.7         0x1         0x2         d0:73:d5:00:00:01     *        eth0\n"
        << "10.0.0.8         0x1         0x0         00:00:00:00:00:00     *        eth0\n";
    const auto table = read({{"/no/such/arp"}, folder / "table",
        [](const std::string& address) { return address == "10.0.0.7" ? "lifx-desk" : ""; }});
    ASSERT_TRUE(table);
    EXPECT_EQ(table->output,
        "lifx-desk (10.0.0.7) at d0:73:d5:00:00:01 [ether] on eth0\n"
        "? (10.0.0.8) at <incomplete> on eth0\n");
    EXPECT_EQ(lifxAddresses(table->output + "my.LIFX (10.0.0.4) (x)\nLIFX (10.0.0.3)\n)lifx(\n"),
        (std::vector<std::string>{"10.0.0.7"}));
    EXPECT_TRUE(lifxAddresses("lifx (10.0.0.1)\n\xff").empty());
}

TEST_F(SystemArp, oneReadingServesAllAndNobodyWaitsForOneThatIsDropped)
{
    std::ofstream(folder / "table") << "titles\n10.0.0.7 0x1 0x2 d0:73:d5:00:00:01 * eth0\n";
    std::promise<void> nameServerSpeaks;
    const auto spoken = nameServerSpeaks.get_future().share();
    std::atomic<int> asked = 0;
    int called = 0;
    const auto count = [&](const ArpTable::Result&) { ++called; };
    const auto readTwice = [&](SystemArpTable& table) {
        table.read(count);
        table.read(count);
    };
    {
        SystemArpTable command(loop, {{script("exec sleep 600")}, "", {}});
        SystemArpTable kernel(loop, {{}, folder / "table", [&, spoken](const std::string&) {
                                         ++asked;
                                         spoken.wait();
                                         return std::string();
                                     }});
        readTwice(command);
        readTwice(kernel);
        EXPECT_TRUE(loop.runUntil([&] { return asked > 0; }));
    }
    loop.runPosted();
    EXPECT_EQ(called, 0);
    EXPECT_EQ(asked, 1);
    nameServerSpeaks.set_value();

    SystemArpTable kernel(loop, {{}, folder / "table", [](const auto&) { return "lamp"; }});
    readTwice(kernel);
    EXPECT_TRUE(loop.runUntil([&] { return called == 2; }));
    readTwice(kernel);
    EXPECT_TRUE(loop.runUntil([&] { return called == 4; }));
}

} // namespace lumeroom
