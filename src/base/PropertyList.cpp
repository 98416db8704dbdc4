#include "base/PropertyList.h"

#include "base/PropertyListDepth.h"
#include "base/Utf8.h"

#include <plist/plist.h>

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

namespace lumeroom::propertylist {

namespace {

// No file of ours nests nearly as deep; beyond it lies the end of the stack.
constexpr int kDeepestNesting = 128;
constexpr std::int64_t kPlistEpochSeconds = 978307200; // 2001-01-01, counted from 1970

struct Free {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, Free>;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using Owned = std::unique_ptr<T, FreeMemory>;

Value fromNode(plist_t node);

Value textOf(plist_t node)
{
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return text ? std::string(text, length) : std::string();
}

Value dateOf(plist_t node)
{
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return TimePoint(std::chrono::seconds(seconds + kPlistEpochSeconds)
        + std::chrono::microseconds(microseconds));
}

Value integerOf(plist_t node)
{
    std::uint64_t number = 0;
    plist_get_uint_val(node, &number);
    return static_cast<std::int64_t>(number); // negative ones are held as their two's complement
}

Value arrayOf(plist_t node)
{
    Value::Array array;
    for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i)
        array.push_back(fromNode(plist_array_get_item(node, i)));
    return array;
}

Value dictionaryOf(plist_t node)
{
    Value::Dictionary dictionary;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Owned<void> iterator(position);
    for (;;) {
        char* key = nullptr;
        plist_t child = nullptr;
        plist_dict_next_item(node, position, &key, &child);
        const Owned<char> keyText(key);
        if (!child)
            return dictionary;
        dictionary.insert_or_assign(key ? key : "", fromNode(child));
    }
}

Value fromNode(plist_t node)
{
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
    case PLIST_STRING:
        return textOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_DATA: {
        std::uint64_t length = 0;
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
        return Value("");
    }
}

plist_t toNode(const Value& value);

plist_t toNode(const Value::Array& array)
{
    plist_t node = plist_new_array();
    for (const Value& item : array)
        plist_array_append_item(node, toNode(item));
    return node;
}

plist_t toNode(const Value::Dictionary& dictionary)
{
    plist_t node = plist_new_dict();
    for (const auto& [key, item] : dictionary)
        plist_dict_set_item(node, wellFormedUtf8(key).c_str(), toNode(item));
    return node;
}

plist_t toNode(TimePoint date)
{
    using namespace std::chrono;
    const auto microsecondsSince2001
        = floor<microseconds>(date).time_since_epoch() - seconds(kPlistEpochSeconds);
    const auto whole = floor<seconds>(microsecondsSince2001);
    constexpr std::int64_t kFurthest = std::numeric_limits<std::int32_t>::max();
    return plist_new_date(
        static_cast<std::int32_t>(std::clamp<std::int64_t>(whole.count(), -kFurthest, kFurthest)),
        static_cast<std::int32_t>((microsecondsSince2001 - whole).count()));
}

plist_t toNode(const Value& value)
{
    if (const auto* truth = value.as<bool>())
        return plist_new_bool(*truth ? 1 : 0);
    if (const auto* integer = value.as<std::int64_t>())
        return plist_new_uint(static_cast<std::uint64_t>(*integer));
    if (const auto* number = value.as<double>())
        return plist_new_real(*number);
    if (const auto* text = value.as<std::string>())
        return plist_new_string(wellFormedUtf8(*text).c_str());
    if (const auto* data = value.as<Value::Data>())
        return plist_new_data(reinterpret_cast<const char*>(data->data()), data->size());
    if (const auto* date = value.as<TimePoint>())
        return toNode(*date);
    if (const auto* uid = value.as<Value::Uid>())
        return plist_new_uid(uid->index);
    if (const auto* array = value.as<Value::Array>())
        return toNode(*array);
    return toNode(*value.as<Value::Dictionary>());
}

} // namespace

std::optional<Value> parse(std::span<const std::uint8_t> bytes, std::string* error)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const bool binary = text.starts_with("bplist");
    const auto fail = [error](std::string_view reason) -> std::optional<Value> {
        if (error)
            *error = reason;
        return {};
    };
    if (text.empty())
        return fail("it is empty");
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        return fail("it is too large");
    if (nestsDeeperThan(kDeepestNesting, bytes))
        return fail("it nests too deep");

    plist_t root = nullptr;
    const auto length = static_cast<std::uint32_t>(text.size());
    if (binary)
        plist_from_bin(text.data(), length, &root);
    else
        plist_from_xml(text.data(), length, &root);
    const Node owner(root);
    if (!root)
        return fail(binary ? "it is not a well-formed binary property list"
                           : "it is not a well-formed XML property list");
    return fromNode(root);
}

std::string toXml(const Value& value)
{
    const Node node(toNode(value));
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &text, &length);
    const Owned<char> owner(text);
    return text ? std::string(text, length) : std::string();
}

Value::Data toBinary(const Value& value)
{
    const Node node(toNode(value));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node.get(), &bytes, &length);
    const Owned<char> owner(bytes);
    return bytes ? Value::Data(bytes, bytes + length) : Value::Data();
}

} // namespace lumeroom::propertylist
