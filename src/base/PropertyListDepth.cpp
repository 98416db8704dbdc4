#include "base/PropertyListDepth.h"

#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace lumeroom::propertylist {

namespace {

bool xmlNestsDeeperThan(int limit, std::string_view xml)
{
    int depth = 0;
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const auto rest = xml.substr(at);
        if (rest.starts_with("<array>") || rest.starts_with("<dict>"))
            ++depth;
        else if (rest.starts_with("</array") || rest.starts_with("</dict"))
            --depth;
        if (depth > limit)
            return true;
    }
    return false;
}

/// The object table of a binary property list ("bplist00"): a trailer of 32 bytes names the sizes
/// and the place of a table of offsets, one for each object.
class ObjectTable {
public:
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

    /// The objects that an array or dictionary refers to; none for other objects.
    std::vector<std::uint64_t> children(std::uint64_t object) const
    {
        constexpr std::uint8_t kArray = 0xA0;
        constexpr std::uint8_t kDictionary = 0xD0;
        if (object >= m_count || m_count > m_bytes.size())
            return {};
        const auto offset = integer(m_table + object * m_offsetSize, m_offsetSize);
        if (!offset || *offset >= m_bytes.size())
            return {};
        const auto kind = static_cast<std::uint8_t>(m_bytes[*offset] & 0xF0U);
        if (kind != kArray && kind != kDictionary)
            return {};
        std::uint64_t at = *offset + 1;
        std::uint64_t length = m_bytes[*offset] & 0x0FU;
        if (length == 0x0F) { // too long for the marker: an integer object follows
            const auto marker = integer(at, 1);
            const std::size_t width = std::size_t(1) << (marker.value_or(0) & 0x03U);
            length = integer(at + 1, width).value_or(0);
            at += 1 + width;
        }
        const std::uint64_t references = kind == kDictionary ? length * 2 : length;
        std::vector<std::uint64_t> result;
        for (std::uint64_t i = 0; i < references; ++i) {
            const auto child = integer(at + i * m_referenceSize, m_referenceSize);
            if (!child)
                break;
            result.push_back(*child);
        }
        return result;
    }

private:
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

bool binaryNestsDeeperThan(int limit, const ObjectTable& table)
{
    std::map<std::uint64_t, int> deepest;
    std::vector<std::pair<std::uint64_t, int>> open{{table.top(), 0}};
    while (!open.empty()) {
        const auto [object, depth] = open.back();
        open.pop_back();
        if (depth > limit)
            return true;
        const auto [entry, isNew] = deepest.emplace(object, depth);
        if (!isNew && entry->second >= depth)
            continue;
        entry->second = depth;
        for (const std::uint64_t child : table.children(object))
            open.emplace_back(child, depth + 1);
    }
    return false;
}

} // namespace

bool nestsDeeperThan(int limit, std::span<const std::uint8_t> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with("bplist"))
        return binaryNestsDeeperThan(limit, ObjectTable(bytes));
    return xmlNestsDeeperThan(limit, text);
}

} // namespace lumeroom::propertylist
