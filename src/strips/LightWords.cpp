#include "strips/LightWords.h"

#include "strips/HueNames.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

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

std::string colourName(const Colour& colour)
{
    constexpr float kPalest = 0.35F;
    constexpr float kDegrees = 360;
    const std::string name(hueName(colour.hue * kDegrees));
    return colour.saturation < kPalest ? "pale " + name : name;
}

} // namespace lumeroom
