#include "strips/StripSettings.h"

namespace lumeroom {

namespace {
constexpr std::string_view kTransition = "transition";
}

StripSettings StripSettings::fromDictionary(const Value::Dictionary& dictionary)
{
    StripSettings settings{Settings::fromDictionary(dictionary), {}, {}, {}};
    if (const auto found = dictionary.find(keys::kLabel); found != dictionary.end())
        settings.label = found->second.stringValue();
    if (const auto found = dictionary.find(kTransition); found != dictionary.end())
        settings.transition = found->second.floatValue();
    return settings;
}

StripSettings StripSettings::power(bool on)
{
    StripSettings settings;
    settings.onoff = on;
    return settings;
}

} // namespace lumeroom
