#include "base/PropertyListNodes.h"

#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace lumeroom::propertylist {

namespace {

constexpr std::chrono::seconds kPlistEpoch(978307200); // 2001-01-01, counted from 1970

constexpr std::uint8_t kSixteenByteInteger = 0x14;
constexpr std::uint8_t kDate = 0x33;

/// A number or date as the binary form holds it. The library's own getters hide whether a large
/// integer is negative, and round a date and drop its sign.
struct Scalar {
    std::uint8_t marker = 0;
    std::uint64_t bits = 0; // the last eight bytes
};

Scalar scalarOf(plist_t node)
{
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const Owned<char> owner(bytes);
    constexpr std::size_t kHeader = 8;
    Scalar scalar;
    if (length <= kHeader)
        return scalar;
    scalar.marker = static_cast<std::uint8_t>(bytes[kHeader]);
    const std::size_t width = std::size_t(1) << (scalar.marker & 0x0FU);
    for (std::size_t i = 0; i < width && kHeader + 1 + i < length; ++i)
        scalar.bits = scalar.bits << 8U | static_cast<std::uint8_t>(bytes[kHeader + 1 + i]);
    return scalar;
}

Value integerOf(plist_t node)
{
    std::uint64_t number = 0;
    plist_get_uint_val(node, &number);
    const auto integer = static_cast<std::int64_t>(number); // negative ones as two's complement
    if (integer < 0 && scalarOf(node).marker == kSixteenByteInteger)
        return std::numeric_limits<std::int64_t>::max();
    return integer;
}

Value dateOf(plist_t node)
{
    constexpr double kFurthestSeconds = 8e9; // what nanoseconds since 1970 can count to: to 2254
    const auto seconds = std::bit_cast<double>(scalarOf(node).bits);
    const double near = std::clamp(seconds, -kFurthestSeconds, kFurthestSeconds);
    const std::chrono::microseconds since2001(std::isnan(near) ? 0 : std::llround(near * 1e6));
    return TimePoint(kPlistEpoch + since2001);
}

Value arrayOf(plist_t node)
{
    Value::Array array;
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const Owned<void> iterator(position);
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, position, &item);
        if (!item)
            return array;
        if (auto value = valueOf(item))
            array.push_back(std::move(*value));
    }
}

Value dictionaryOf(plist_t node)
{
    Value::Dictionary dictionary;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Owned<void> iterator(position);
    for (;;) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, position, &key, &item);
        const Owned<char> keyText(key);
        if (!item)
            return dictionary;
        auto value = valueOf(item);
        if (key && value)
            dictionary.insert_or_assign(key, std::move(*value));
    }
}

std::string writableText(std::string_view text)
{
    std::string result;
    for (const char c : wellFormedUtf8(text)) {
        const bool allowed
            = static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r';
        result += allowed ? std::string_view(&c, 1) : std::string_view("\xEF\xBF\xBD");
    }
    return result;
}

/// By way of a binary list of this one date: the library's own constructor ends in 2069.
plist_t newDate(TimePoint date)
{
    const auto seconds = std::chrono::duration<double>(date.time_since_epoch() - kPlistEpoch);
    const auto bits = std::bit_cast<std::uint64_t>(seconds.count());
    std::array<char, 50> list = {'b', 'p', 'l', 'i', 's', 't', '0', '0', char(kDate)};
    for (unsigned i = 0; i < 8; ++i)
        list[9 + i] = static_cast<char>(bits >> (56 - 8 * i));
    list[17] = 8; // the table of offsets: the date lies behind the header
    list[24] = 1; // size of an offset
    list[25] = 1; // size of a reference
    list[33] = 1; // number of objects
    list[49] = 17; // where the table lies
    plist_t node = nullptr;
    plist_from_bin(list.data(), list.size(), &node);
    return node;
}

plist_t newNode(const Value& value);

plist_t newArray(const Value::Array& array)
{
    plist_t node = plist_new_array();
    for (const Value& item : array)
        plist_array_append_item(node, newNode(item));
    return node;
}

plist_t newDictionary(const Value::Dictionary& dictionary)
{
    plist_t node = plist_new_dict();
    for (const auto& [key, item] : dictionary)
        plist_dict_set_item(node, writableText(key).c_str(), newNode(item));
    return node;
}

plist_t newNode(const Value& value)
{
    if (const auto* truth = value.as<bool>())
        return plist_new_bool(*truth ? 1 : 0);
    if (const auto* integer = value.as<std::int64_t>())
        return plist_new_uint(static_cast<std::uint64_t>(*integer));
    if (const auto* number = value.as<double>())
        return plist_new_real(*number);
    if (const auto* text = value.as<std::string>())
        return plist_new_string(writableText(*text).c_str());
    if (const auto* data = value.as<Value::Data>())
        return plist_new_data(reinterpret_cast<const char*>(data->data()), data->size());
    if (const auto* date = value.as<TimePoint>())
        return newDate(*date);
    if (const auto* uid = value.as<Value::Uid>())
        return plist_new_uid(uid->index);
    if (const auto* array = value.as<Value::Array>())
        return newArray(*array);
    return newDictionary(*value.as<Value::Dictionary>());
}

} // namespace

std::optional<Value> valueOf(plist_t node)
{
    std::uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t truth = 0;
        plist_get_bool_val(node, &truth);
        return Value(truth != 0);
    }
    case PLIST_UINT:
        return integerOf(node);
    case PLIST_REAL: {
        double number = 0;
        plist_get_real_val(node, &number);
        return Value(number);
    }
    case PLIST_STRING: {
        const char* text = plist_get_string_ptr(node, &length);
        return Value(text ? std::string(text, length) : std::string());
    }
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_DATA: {
        const char* bytes = plist_get_data_ptr(node, &length);
        return Value(Value::Data(bytes, bytes + length));
    }
    case PLIST_UID: {
        std::uint64_t index = 0;
        plist_get_uid_val(node, &index);
        return Value(Value::Uid{index});
    }
    case PLIST_ARRAY:
        return arrayOf(node);
    case PLIST_DICT:
        return dictionaryOf(node);
    default:
        return {};
    }
}

Node nodeOf(const Value& value)
{
    return Node(newNode(value));
}

} // namespace lumeroom::propertylist
