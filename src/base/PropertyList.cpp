#include "base/PropertyList.h"

#include "base/PropertyListLimits.h"
#include "base/PropertyListNodes.h"

#include <clocale>
#include <utility>

namespace lumeroom::propertylist {

namespace {

/// Numbers with a point for as long as it lives, on this thread: the library reads and writes
/// reals the way of the user's language, where 0.5 may be "0,5".
class PlainNumbers {
public:
    PlainNumbers()
        : m_plain(::newlocale(LC_ALL_MASK, "C", nullptr))
        , m_before(::uselocale(m_plain))
    {
    }
    ~PlainNumbers()
    {
        ::uselocale(m_before);
        if (m_plain)
            ::freelocale(m_plain);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    locale_t m_plain;
    locale_t m_before;
};

} // namespace

std::optional<Value> parse(std::span<const std::uint8_t> bytes, std::string* error)
{
    const auto fail = [error](std::string_view reason) -> std::optional<Value> {
        if (error)
            *error = reason;
        return {};
    };
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.empty())
        return fail("it is empty");
    if (const auto reason = reasonToRefuse(bytes); !reason.empty())
        return fail(reason);

    const PlainNumbers plainNumbers;
    plist_t root = nullptr;
    const bool binary = text.starts_with("bplist");
    if (!binary && text.starts_with("\xEF\xBB\xBF")) // some editors put a byte order mark first
        text.remove_prefix(3);
    const auto length = static_cast<std::uint32_t>(text.size());
    if (binary)
        plist_from_bin(text.data(), length, &root);
    else
        plist_from_xml(text.data(), length, &root);
    const Node owner(root);
    auto value = root ? valueOf(root) : std::nullopt;
    if (!value)
        return fail(binary ? "it is not a well-formed binary property list"
                           : "it is not a well-formed XML property list");
    return value;
}

std::string toXml(const Value& value)
{
    const PlainNumbers plainNumbers;
    const Node node = nodeOf(value);
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &text, &length);
    const Owned<char> owner(text);
    return text ? std::string(text, length) : std::string();
}

Value::Data toBinary(const Value& value)
{
    const Node node = nodeOf(value);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node.get(), &bytes, &length);
    const Owned<char> owner(bytes);
    return bytes ? Value::Data(bytes, bytes + length) : Value::Data();
}

} // namespace lumeroom::propertylist
