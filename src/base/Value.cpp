#include "base/Value.h"

#include <fmt/core.h>

#include <charconv>
#include <cmath>
#include <limits>

namespace lumeroom {

namespace {

std::string_view withoutLeadingBlanks(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\n\r\v\f");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

/// The text from its first number on, in the form that std::from_chars takes: without a plus.
std::string_view numberText(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    return text;
}

double leadingNumber(std::string_view text)
{
    text = numberText(text);
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    // Words such as "inf" and "nan" are no numbers to a person.
    return result.ec == std::errc() && std::isfinite(number) ? number : 0;
}

std::int64_t saturatedInteger(double number)
{
    constexpr double kLimit = 9223372036854775808.0; // 2 to the power 63
    if (std::isnan(number))
        return 0;
    if (number >= kLimit)
        return std::numeric_limits<std::int64_t>::max();
    if (number <= -kLimit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

std::int64_t leadingInteger(std::string_view text)
{
    text = numberText(text);
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : saturatedInteger(leadingNumber(text));
}

bool readsAsTrue(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    while (text.starts_with('0'))
        text.remove_prefix(1);
    return !text.empty()
        && std::string_view("YyTt123456789").find(text[0]) != std::string_view::npos;
}

std::string hexText(const Value::Data& data)
{
    constexpr std::size_t kShown = 64;
    std::string text = "<";
    for (std::size_t i = 0; i < data.size() && i < kShown; ++i)
        text += fmt::format("{:02x}", data[i]);
    return text + (data.size() > kShown ? "...>" : ">");
}

/// In quotes, and on one line whatever it holds.
std::string quotedText(std::string_view text)
{
    std::string result = "\"";
    for (const char c : text) {
        if (c == '\n')
            result += "\\n";
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            result += fmt::format("\\x{:02x}", static_cast<unsigned char>(c));
        else
            result += c;
    }
    return result + "\"";
}

} // namespace

bool Value::boolValue() const
{
    if (const auto* text = as<std::string>())
        return readsAsTrue(*text);
    return doubleValue() != 0;
}

std::int64_t Value::integerValue() const
{
    if (const auto* integer = as<std::int64_t>())
        return *integer;
    if (const auto* text = as<std::string>())
        return leadingInteger(*text);
    return saturatedInteger(doubleValue());
}

double Value::doubleValue() const
{
    if (const auto* number = as<double>())
        return *number;
    if (const auto* integer = as<std::int64_t>())
        return static_cast<double>(*integer);
    if (const auto* large = as<LargeInteger>())
        return static_cast<double>(large->number);
    if (const auto* truth = as<bool>())
        return *truth ? 1 : 0;
    if (const auto* text = as<std::string>())
        return leadingNumber(*text);
    return 0;
}

std::string Value::stringValue() const
{
    if (const auto* text = as<std::string>())
        return *text;
    if (const auto* integer = as<std::int64_t>())
        return fmt::format("{}", *integer);
    if (const auto* large = as<LargeInteger>())
        return fmt::format("{}", large->number);
    if (const auto* number = as<double>())
        return fmt::format("{}", *number);
    if (const auto* truth = as<bool>())
        return *truth ? "1" : "0";
    return {};
}

const Value* Value::find(std::string_view key) const
{
    const auto* dictionary = as<Dictionary>();
    if (!dictionary)
        return nullptr;
    const auto found = dictionary->find(key);
    return found == dictionary->end() ? nullptr : &found->second;
}

std::string description(const Value& value)
{
    if (const auto* truth = value.as<bool>())
        return *truth ? "true" : "false";
    if (const auto* text = value.as<std::string>())
        return quotedText(*text);
    if (const auto* data = value.as<Value::Data>())
        return hexText(*data);
    if (const auto* date = value.as<TimePoint>()) {
        return fmt::format("{} s after 1970",
            std::chrono::duration_cast<std::chrono::seconds>(date->time_since_epoch()).count());
    }
    if (const auto* date = value.as<Value::FarDate>())
        return fmt::format("{} s after 2001", date->seconds);
    if (const auto* uid = value.as<Value::Uid>())
        return fmt::format("uid {}", uid->index);
    if (const auto* array = value.as<Value::Array>()) {
        std::string text;
        for (const Value& item : *array)
            text += (text.empty() ? "" : ", ") + description(item);
        return "(" + text + ")";
    }
    if (const auto* dictionary = value.as<Value::Dictionary>()) {
        std::string text;
        for (const auto& [key, item] : *dictionary)
            text += fmt::format("{}{} = {}", text.empty() ? "" : "; ", key, description(item));
        return "{" + text + "}";
    }
    return value.stringValue();
}

} // namespace lumeroom
