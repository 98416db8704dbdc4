#pragma once

#include "engine/Records.h"

namespace lumeroom {

/// What a strip shows or is to show: settings, with the target's name and a preset's transition.
struct StripSettings : Settings {
    std::optional<std::string> label;
    std::optional<double> transition; ///< seconds
    std::optional<std::uint64_t> reports; ///< of the lamp that these come from, counted

    static StripSettings fromDictionary(const Value::Dictionary& dictionary);
    /// Power alone.
    static StripSettings power(bool on);

    bool operator==(const StripSettings&) const = default;
};

} // namespace lumeroom
