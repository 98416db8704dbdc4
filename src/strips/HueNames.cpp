#include "strips/HueNames.h"

#include <algorithm>
#include <array>

namespace lumeroom {

namespace {

struct HueName {
    float upTo; ///< degrees
    std::string_view name;
};
constexpr std::array<HueName, 9> kHueNames{
    {{15, "red"}, {45, "orange"}, {70, "yellow"}, {160, "green"}, {200, "turquoise"}, {250, "blue"},
        {300, "violet"}, {345, "pink"}, {360, "red"}}};

} // namespace

std::string_view hueName(float degrees)
{
    const auto* found = std::find_if(kHueNames.begin(), kHueNames.end(),
        [degrees](const HueName& entry) { return degrees < entry.upTo; });
    return found == kHueNames.end() ? kHueNames.back().name : found->name;
}

} // namespace lumeroom
