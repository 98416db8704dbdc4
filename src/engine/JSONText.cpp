#include "engine/JSONText.h"

#include "base/Log.h"
#include "base/Utf8.h"

#include <algorithm>

namespace lumeroom {

namespace {

// Deeper than any answer that is read here; beyond it text stays text.
constexpr int kDeepestNesting = 32;

constexpr char kSeparator = '|';

std::string_view trimmed(std::string_view text, std::string_view characters)
{
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::vector<std::string_view> split(std::string_view text)
{
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(kSeparator, start), text.size());
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

struct Entry {
    std::string_view key;
    std::string_view value;
};

/// The two sides of the first colon, without quotes and blanks; nothing without a colon.
std::optional<Entry> entryOf(std::string_view piece)
{
    constexpr std::string_view kQuotesAndBlanks = "\" ";
    const std::size_t colon = piece.find(':');
    if (colon == std::string_view::npos)
        return {};
    return Entry{trimmed(piece.substr(0, colon), kQuotesAndBlanks),
        trimmed(piece.substr(colon + 1), kQuotesAndBlanks)};
}

/// Where commas separate: outside quotes and arrays, or whatever a reader looks at.
struct Scanner {
    bool inQuotes = false;
    bool inArray = false;
    int depth = 0;

    void take(char character)
    {
        switch (character) {
        case '"':
            inQuotes = !inQuotes;
            break;
        case '[':
            inArray = true;
            break;
        case ']':
            inArray = false;
            break;
        case '{':
            ++depth;
            break;
        case '}':
            --depth;
            break;
        default:
            break;
        }
    }
};

Value::Dictionary readNested(std::string_view json, int level)
{
    std::string text(trimmed(json, "[{}]"));
    Scanner scanner;
    for (char& character : text) {
        scanner.take(character);
        if (character == ',' && !scanner.inQuotes && !scanner.inArray && scanner.depth < 1)
            character = kSeparator;
    }
    Value::Dictionary result;
    for (const std::string_view piece : split(text)) {
        const auto entry = entryOf(piece);
        if (!entry)
            continue;
        const bool isObject = entry->value.starts_with('{') && level < kDeepestNesting;
        result.insert_or_assign(std::string(entry->key),
            isObject ? Value(readNested(entry->value, level + 1)) : Value(entry->value));
    }
    return result;
}

/// The readers go byte by byte, so characters beyond ASCII do not survive; none of the keys and
/// times that are read has any.
std::string singleBytes(std::string_view json)
{
    std::string text(json);
    std::erase_if(
        text, [](char character) { return static_cast<unsigned char>(character) >= 0x80; });
    return text;
}

std::string written(const Value& value, Log& log)
{
    if (const auto* dictionary = value.as<Value::Dictionary>())
        return JSONFromDictionary(*dictionary, log);
    if (value.is<std::int64_t>() || value.is<Value::LargeInteger>() || value.is<double>()
        || value.is<bool>())
        return fmt::format("{:.2f}", value.doubleValue());
    std::string text = value.is<std::string>() ? value.stringValue() : description(value);
    if (text == "true" || text == "false" || text.starts_with('['))
        return text;
    return '"' + text + '"';
}

} // namespace

std::string JSONFromDictionary(const Value::Dictionary& dictionary, Log& log)
{
    std::string entries;
    for (const auto& [key, value] : dictionary) {
        if (log.shows(3))
            log.line("inside while loop C");
        entries += fmt::format("{}\"{}\":{}", entries.empty() ? "" : ",", key, written(value, log));
    }
    return '{' + entries + '}';
}

Value::Dictionary dictionaryFromJSON(std::string_view json)
{
    std::string text(trimmed(json, "[{}]"));
    bool inQuotes = false;
    for (char& character : text) {
        if (character == '"')
            inQuotes = !inQuotes;
        else if (character == ',' && !inQuotes)
            character = kSeparator;
    }
    const bool single = text.find('{') != std::string::npos;
    const auto pieces = single ? std::vector<std::string_view>{text} : split(text);
    Value::Dictionary result;
    for (const std::string_view piece : pieces) {
        if (const auto entry = entryOf(piece))
            result.insert_or_assign(std::string(entry->key), Value(entry->value));
    }
    return result;
}

Value::Dictionary dictionaryOfDictionariesFromJSON(std::string_view json)
{
    return readNested(singleBytes(json), 0);
}

Value::Array arrayOfDictionariesFromJSON(std::string_view json)
{
    std::string text = singleBytes(json);
    int depth = 0;
    for (char& character : text) {
        if (character == '{')
            ++depth;
        else if (character == '}')
            --depth;
        else if (character == ',' && depth < 1)
            character = kSeparator;
    }
    Value::Array result;
    for (const std::string_view piece : split(text))
        result.emplace_back(readNested(piece, 0));
    return result;
}

} // namespace lumeroom
