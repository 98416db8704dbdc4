#include "base/PropertyListLimits.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lumeroom::propertylist {

namespace {

constexpr int kDeepestNesting = 128; // no file of ours nests nearly as deep
constexpr std::uint64_t kLargestUnfoldedBytes = std::uint64_t(64) * 1024 * 1024;

constexpr std::string_view kTooDeep = "it nests too deep";
constexpr std::string_view kTooLarge = "it is too large";
constexpr std::string_view kMalformed = "it is not well-formed";

/// The length of the tag at the front, up to and with its ">"; 0 unless that is beyond doubt.
std::size_t tagLength(std::string_view xml)
{
    char quote = 0;
    for (std::size_t i = 1; i < xml.size(); ++i) {
        const char c = xml[i];
        if (c == '<' || c == '[')
            return 0;
        if (c == '>')
            return quote ? 0 : i + 1;
        if (quote ? c == quote : c == '"' || c == '\'')
            quote = quote ? char(0) : c;
    }
    return 0;
}

/// What is neither a tag nor text: the length of a comment and its like, or 0.
std::size_t asideLength(std::string_view xml)
{
    constexpr std::pair<std::string_view, std::string_view> kAsides[]
        = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [start, end] : kAsides) {
        if (!xml.starts_with(start))
            continue;
        const std::size_t at = xml.find(end, start.size());
        return at == std::string_view::npos ? xml.size() : at + end.size();
    }
    return 0;
}

std::string_view reasonToRefuseXml(std::string_view xml)
{
    int depth = 0;
    for (;;) {
        const std::size_t start = xml.find('<');
        if (start == std::string_view::npos)
            return {};
        xml.remove_prefix(start);
        if (const std::size_t aside = asideLength(xml)) {
            xml.remove_prefix(aside);
            continue;
        }
        const std::size_t length = tagLength(xml);
        if (length == 0)
            return kMalformed;
        const std::string_view tag = xml.substr(1, length - 2);
        const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n"));
        if (name == "array" || name == "dict")
            ++depth;
        else if (name == "/array" || name == "/dict")
            depth = std::max(0, depth - 1);
        if (depth > kDeepestNesting)
            return kTooDeep;
        xml.remove_prefix(length);
    }
}

/// The object table of a binary property list ("bplist00"): a trailer of 32 bytes names the sizes
/// and the place of a table of offsets, one for each object.
class ObjectTable {
public:
    struct Object {
        std::uint64_t bytes = 0; // of a text or data
        std::vector<std::uint64_t> children; // what an array or dictionary refers to
    };

    explicit ObjectTable(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes)
    {
        constexpr std::size_t kTrailer = 32;
        if (bytes.size() < kTrailer)
            return;
        const std::size_t trailer = bytes.size() - kTrailer;
        m_offsetSize = bytes[trailer + 6];
        m_referenceSize = bytes[trailer + 7];
        m_count = integer(trailer + 8, 8).value_or(0);
        m_top = integer(trailer + 16, 8).value_or(0);
        m_table = integer(trailer + 24, 8).value_or(0);
    }

    std::uint64_t top() const { return m_top; }
    std::size_t size() const { return m_bytes.size(); }

    /// Nothing if the object lies, even in part, outside the bytes.
    std::optional<Object> object(std::uint64_t index) const
    {
        if (index >= m_count || m_count > m_bytes.size() || m_table > m_bytes.size())
            return {};
        const auto offset = integer(m_table + index * m_offsetSize, m_offsetSize);
        if (!offset || *offset >= m_bytes.size())
            return {};
        const auto kind = m_bytes[*offset] >> 4U;
        constexpr int kData = 0x4;
        constexpr int kUtf16 = 0x6;
        constexpr int kArray = 0xA;
        constexpr int kDictionary = 0xD;
        if (kind < kData || (kind > kUtf16 && kind < kArray))
            return Object{};

        std::uint64_t at = *offset + 1;
        std::uint64_t length = m_bytes[*offset] & 0x0FU;
        if (length == 0x0F) { // too long for the marker: an integer object follows
            const std::uint64_t marker = integer(at, 1).value_or(0);
            if (marker < 0x10 || marker > 0x13)
                return {};
            const std::size_t width = std::size_t(1) << (marker & 0x03U);
            length = integer(at + 1, width).value_or(m_bytes.size() + 1);
            at += 1 + width;
        }
        if (length > m_bytes.size())
            return {};
        if (kind < kArray)
            return Object{kind == kUtf16 ? length * 2 : length, {}};
        return container(at, kind == kDictionary ? length * 2 : length);
    }

private:
    std::optional<Object> container(std::uint64_t at, std::uint64_t references) const
    {
        Object result;
        for (std::uint64_t i = 0; i < references; ++i) {
            const auto child = integer(at + i * m_referenceSize, m_referenceSize);
            if (!child)
                return {};
            result.children.push_back(*child);
        }
        return result;
    }

    std::optional<std::uint64_t> integer(std::uint64_t at, std::size_t width) const
    {
        if (width == 0 || width > 8 || at > m_bytes.size() || width > m_bytes.size() - at)
            return {};
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < width; ++i)
            value = value << 8U | m_bytes[at + i];
        return value;
    }

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
    std::uint64_t m_count = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_table = 0;
};

/// Measures what a binary list unfolds to, looking at each of its objects once.
class Unfolding {
public:
    explicit Unfolding(const ObjectTable& table)
        : m_table(table)
    {
        measure(table.top(), 0);
    }

    std::string_view reasonToRefuse() const { return m_reason; }

private:
    struct Measure {
        int height = 0;
        std::uint64_t bytes = 0;
    };

    Measure measure(std::uint64_t index, int depth)
    {
        const auto known = m_known.find(index);
        const int height = known == m_known.end() ? 0 : known->second.height;
        if (depth + height > kDeepestNesting)
            m_reason = kTooDeep; // a circle ends here too
        if (!m_reason.empty())
            return {};
        if (known != m_known.end())
            return known->second;

        const auto object = m_table.object(index);
        // Every reference takes a byte or more, so more of them means objects lie over each other.
        m_references += object ? object->children.size() : 0;
        if (!object || m_references > m_table.size()) {
            m_reason = kMalformed;
            return {};
        }
        constexpr std::uint64_t kBytesOfAnObject = 64;
        Measure result{0, kBytesOfAnObject + object->bytes};
        for (const std::uint64_t child : object->children) {
            const Measure inner = measure(child, depth + 1);
            result.height = std::max(result.height, inner.height + 1);
            result.bytes += inner.bytes;
            if (m_reason.empty() && result.bytes > kLargestUnfoldedBytes)
                m_reason = kTooLarge;
            if (!m_reason.empty())
                return {};
        }
        m_known.emplace(index, result);
        return result;
    }

    const ObjectTable& m_table;
    std::map<std::uint64_t, Measure> m_known;
    std::uint64_t m_references = 0;
    std::string_view m_reason;
};

} // namespace

std::string_view reasonToRefuse(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() > kLargestBytes)
        return kTooLarge;
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with("bplist"))
        return Unfolding(ObjectTable(bytes)).reasonToRefuse();
    return reasonToRefuseXml(text);
}

} // namespace lumeroom::propertylist
