#include "base/PropertyListNodes.h"

#include "base/Utf8.h"

#include <bit>
#include <cmath>
#include <cstdlib>

namespace lumeroom::propertylist {

namespace {

constexpr std::chrono::seconds kPlistEpoch(978307200); // 2001-01-01, counted from 1970

constexpr std::uint8_t kSixteenByteInteger = 0x14;
constexpr std::uint8_t kDate = 0x33;

/// A number or date as the binary form holds it. The library's own getters hide whether a large
/// integer is negative, and round a date and drop its sign; its own constructors make a large
/// integer negative, and a date of 2069 at most.
struct Scalar {
    std::uint8_t marker = 0; ///< the lower half is the width in bytes, as a power of two
    std::uint64_t bits = 0; ///< the last eight bytes
    std::size_t width() const { return std::size_t(1) << (marker & 0x0FU); }
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
    for (std::size_t i = 0; i < scalar.width() && kHeader + 1 + i < length; ++i)
        scalar.bits = scalar.bits << 8U | static_cast<std::uint8_t>(bytes[kHeader + 1 + i]);
    return scalar;
}

Value integerOf(plist_t node)
{
    std::uint64_t number = 0;
    plist_get_uint_val(node, &number);
    const auto integer = static_cast<std::int64_t>(number); // negative ones as two's complement
    if (integer < 0 && scalarOf(node).marker == kSixteenByteInteger)
        return Value::LargeInteger{number};
    return integer;
}

Value dateOf(plist_t node)
{
    constexpr double kFurthestSeconds = 8e9; // what nanoseconds since 1970 can count to: to 2254
    const auto seconds = std::bit_cast<double>(scalarOf(node).bits);
    if (!(std::abs(seconds) < kFurthestSeconds))
        return Value::FarDate{seconds};
    return TimePoint(kPlistEpoch + std::chrono::microseconds(std::llround(seconds * 1e6)));
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

/// By way of a binary list of this one value.
plist_t newScalar(const Scalar& scalar)
{
    const auto append = [](std::string& list, std::uint64_t number, std::size_t width) {
        for (std::size_t byte = width; byte-- > 0;)
            list += byte < 8 ? static_cast<char>(number >> (8 * byte)) : '\0';
    };
    std::string list = "bplist00";
    const std::size_t start = list.size();
    list += static_cast<char>(scalar.marker);
    append(list, scalar.bits, scalar.width());
    const std::size_t table = list.size();
    append(list, start, 1); // the table of offsets
    append(list, 0x0101, 8); // the sizes of an offset and of a reference
    append(list, 1, 8); // the number of objects
    append(list, 0, 8); // the first of them
    append(list, table, 8);
    plist_t node = nullptr;
    plist_from_bin(list.data(), static_cast<std::uint32_t>(list.size()), &node);
    return node;
}

plist_t newDate(double secondsSince2001)
{
    return newScalar({kDate, std::bit_cast<std::uint64_t>(secondsSince2001)});
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
        return newDate(
            std::chrono::duration<double>(date->time_since_epoch() - kPlistEpoch).count());
    if (const auto* far = value.as<Value::FarDate>())
        return newDate(far->seconds);
    if (const auto* large = value.as<Value::LargeInteger>())
        return newScalar({kSixteenByteInteger, large->number});
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
