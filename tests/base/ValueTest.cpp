#include "base/PropertyList.h"
#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace lumeroom {

namespace {

std::span<const std::uint8_t> bytes(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

TEST(Value, readsAsThePlatformCoerces)
{
    const struct {
        Value value;
        bool truth;
        std::int64_t integer;
        double number;
    } cases[] = {
        {"0.5", false, 0, 0.5},
        {"  +30 minutes", true, 30, 30},
        {"-7", true, -7, -7},
        {"YES", true, 0, 0},
        {"true", true, 0, 0},
        {"NO", false, 0, 0},
        {"nan", false, 0, 0},
        {"99999999999999999999", true, INT64_MAX, 1e20},
        {Value::LargeInteger{UINT64_MAX}, true, INT64_MAX, 18446744073709551615.0},
        {2.9, true, 2, 2.9},
        {-1e300, true, INT64_MIN, -1e300},
        {Value::Array{1}, false, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.boolValue(), c.truth) << description(c.value);
        EXPECT_EQ(c.value.integerValue(), c.integer) << description(c.value);
        EXPECT_EQ(c.value.doubleValue(), c.number) << description(c.value);
    }
    EXPECT_EQ(Value(3).stringValue(), "3");
    EXPECT_EQ(Value(Value::Array()).stringValue(), "");
}

TEST(PropertyList, bothFormsKeepEveryType)
{
    const Value all = Value::Dictionary{
        {"truth", true},
        {"integer", std::int64_t(-5)},
        {"large", INT64_MAX},
        {"larger", Value::LargeInteger{UINT64_MAX}},
        {"distant past", Value::FarDate{-63113904000}}, // in the year 1
        {"distant future", Value::FarDate{252423993599}}, // at the end of 9999
        {"sum", 0.1 + 0.2},
        {"tiny", 5e-324},
        {"control", "bell \n"},
        {"early", TimePoint(std::chrono::seconds(-86400))},
        {"text", "Küche <&> 玄関"},
        {"empty", ""},
        {"data", Value::Data{0, 1, 255}},
        {"array", Value::Array{1, "two", Value::Dictionary{{"three", 3.5}}}},
    };
    const std::string xml = propertylist::toXml(all);
    EXPECT_EQ(propertylist::parse(bytes(xml)), all);
    EXPECT_EQ(propertylist::parse(propertylist::toBinary(all)), all);
    const Value references = Value::Array{Value::Uid{1}, Value::Uid{70000}};
    EXPECT_EQ(propertylist::parse(propertylist::toBinary(references)), references);
    const Value broken = Value::Array{"good", std::string("bad \xff text")};
    EXPECT_EQ(propertylist::parse(bytes(propertylist::toXml(broken))),
        Value(Value::Array{"good", "bad \xEF\xBF\xBD text"}));
}

/// A binary list of a few bytes that stands for 2 to the power of `levels` texts: each array holds
/// the next one twice.
Value::Data listThatUnfolds(std::uint8_t levels)
{
    Value::Data list = {'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    for (std::uint8_t level = 1; level <= levels; ++level)
        list.insert(list.end(), {0xA2, level, level});
    list.insert(list.end(), {0x51, 'x'});
    const auto table = static_cast<std::uint8_t>(list.size());
    for (std::uint8_t object = 0; object <= levels; ++object)
        list.push_back(static_cast<std::uint8_t>(8 + 3 * object));
    list.insert(list.end(), {0, 0, 0, 0, 0, 0, 1, 1}); // sizes of an offset and a reference
    for (const std::uint8_t number : {std::uint8_t(levels + 1), std::uint8_t(0), table})
        list.insert(list.end(), {0, 0, 0, 0, 0, 0, 0, number});
    return list;
}

TEST(PropertyList, hostileListsAreRefusedInWords)
{
    std::string deep = "<plist version=\"1.0\">";
    for (int i = 0; i < 100000; ++i)
        deep += "<array>";
    Value nested = 1;
    for (int i = 0; i < 1000; ++i)
        nested = Value::Array{nested};
    const Value::Data deepBinary = propertylist::toBinary(nested);
    const Value::Data sharing = listThatUnfolds(40);
    const struct {
        std::span<const std::uint8_t> list;
        std::string reason;
    } cases[] = {
        {bytes("not a list"), "it is not a well-formed XML property list"},
        {bytes("bplist00rubbish"), "it is not well-formed"},
        {sharing, "it is too large"},
        {bytes(deep), "it nests too deep"},
        {deepBinary, "it nests too deep"},
        {bytes("<!DOCTYPE plist [<!ENTITY a \"aaaa\">]><plist><string>&a;</string></plist>"),
            "it is not well-formed"},
    };
    for (const auto& c : cases) {
        std::string reason;
        EXPECT_FALSE(propertylist::parse(c.list, &reason)) << c.reason;
        EXPECT_EQ(reason, c.reason);
    }
}

TEST(Utf8, aCharacterCutShort)
{
    EXPECT_EQ(incompleteTail("ab\xE7\x8E"), 2U);
    EXPECT_EQ(incompleteTail("ab\xF0"), 1U);
    EXPECT_EQ(incompleteTail("ab玄"), 0U);
    EXPECT_EQ(incompleteTail("ab\x80\x80\x80\x80"), 0U);
}

} // namespace lumeroom
