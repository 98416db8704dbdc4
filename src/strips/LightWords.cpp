#include "strips/LightWords.h"

#include <algorithm>
#include <array>
#include <cmath>

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

int percentOf(float value, float maximum)
{
    constexpr float kReportedLess = 2; // by a lamp that was told the most
    if (value <= 0)
        return 0;
    if (value >= maximum - kReportedLess)
        return 100;
    return std::max(static_cast<int>(std::lround(100 * value / maximum)), 1);
}

bool isWhite(const Colour& colour)
{
    constexpr float kWhitest = 0.05F;
    return colour.saturation < kWhitest;
}

std::string_view hueName(float hue)
{
    const float degrees = hue * 360;
    const auto* found = std::find_if(kHueNames.begin(), kHueNames.end(),
        [degrees](const HueName& entry) { return degrees < entry.upTo; });
    return found == kHueNames.end() ? kHueNames.back().name : found->name;
}

std::string colourName(const Colour& colour)
{
    constexpr float kPalest = 0.35F;
    const std::string name(hueName(colour.hue));
    return colour.saturation < kPalest ? "pale " + name : name;
}

} // namespace lumeroom
