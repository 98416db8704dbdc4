#include "base/DefaultsKeys.h"

#include <algorithm>
#include <cmath>

namespace lumeroom::keys {

double asSpeed(double stored)
{
    return stored >= 0 ? std::abs(stored) : 1.0;
}

std::int64_t asVerbosity(std::int64_t stored)
{
    return std::clamp<std::int64_t>(stored, 0, 3);
}

std::int64_t asAppearance(std::int64_t stored)
{
    return stored == kAppearanceLight || stored == kAppearanceDark ? stored : kAppearanceSystem;
}

} // namespace lumeroom::keys
