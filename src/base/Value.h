#pragma once

#include "base/RunLoop.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace lumeroom {

/// A property-list value.
class Value {
public:
    using Data = std::vector<std::uint8_t>;
    using Array = std::vector<Value>;
    using Dictionary = std::map<std::string, Value, std::less<>>;
    /// A reference within a keyed archive; only binary property lists carry it.
    struct Uid {
        std::uint64_t index;
        bool operator==(const Uid&) const = default;
    };
    /// One above 2^63-1, which is written again as it was read.
    struct LargeInteger {
        std::uint64_t number;
        bool operator==(const LargeInteger&) const = default;
    };
    /// A date that a `TimePoint` cannot hold, from about 1747 to 2254: in seconds since 2001.
    struct FarDate {
        double seconds;
        bool operator==(const FarDate&) const = default;
    };

    Value()
        : m_value(false)
    {
    }
    Value(bool v)
        : m_value(v)
    {
    }
    Value(int v)
        : m_value(std::int64_t(v))
    {
    }
    Value(std::int64_t v)
        : m_value(v)
    {
    }
    Value(double v)
        : m_value(v)
    {
    }
    Value(const char* v)
        : m_value(std::string(v))
    {
    }
    Value(std::string v)
        : m_value(std::move(v))
    {
    }
    Value(std::string_view v)
        : m_value(std::string(v))
    {
    }
    Value(Data v)
        : m_value(std::move(v))
    {
    }
    Value(TimePoint v)
        : m_value(v)
    {
    }
    Value(Array v)
        : m_value(std::move(v))
    {
    }
    Value(Dictionary v)
        : m_value(std::move(v))
    {
    }
    Value(Uid v)
        : m_value(v)
    {
    }
    Value(LargeInteger v)
        : m_value(v)
    {
    }
    Value(FarDate v)
        : m_value(v)
    {
    }

    /// The value if it is of this very type, else null.
    template <typename T> const T* as() const { return std::get_if<T>(&m_value); }
    template <typename T> T* as() { return std::get_if<T>(&m_value); }
    template <typename T> bool is() const { return as<T>() != nullptr; }

    // The platform's coercions. A string reads as its leading number ("0.5 s" as 0.5, "abc" as 0),
    // for a Boolean also as true when it begins with Y, y, T, t or a digit other than 0 behind
    // blanks, sign and zeros; a number reads as true when not 0; every other type as 0 or false.
    // Integers saturate; they truncate fractions.
    bool boolValue() const;
    std::int64_t integerValue() const;
    double doubleValue() const;
    float floatValue() const { return static_cast<float>(doubleValue()); }
    /// The text of a string or number, else empty.
    std::string stringValue() const;

    /// An entry of a dictionary; null when this is none or it has no such key.
    const Value* find(std::string_view key) const;

    bool operator==(const Value&) const = default;

private:
    std::variant<bool, std::int64_t, double, std::string, Data, TimePoint, Array, Dictionary, Uid,
        LargeInteger, FarDate>
        m_value;
};

/// The value as a T: by the coercions where T is a Boolean, number or text; else as it is if it is
/// of this type, or empty.
template <typename T> T coerced(const Value& value)
{
    if constexpr (std::is_same_v<T, bool>)
        return value.boolValue();
    else if constexpr (std::is_same_v<T, std::int64_t>)
        return value.integerValue();
    else if constexpr (std::is_same_v<T, double>)
        return value.doubleValue();
    else if constexpr (std::is_same_v<T, std::string>)
        return value.stringValue();
    else
        return value.as<T>() ? *value.as<T>() : T();
}

/// One line of text for the log, nested values included.
std::string description(const Value& value);

} // namespace lumeroom
