#pragma once

#include "strips/Colour.h"

#include <string>
#include <string_view>

/// What a light is like, in words and numbers for people.
namespace lumeroom {

/// 0 to 100. What is not quite nothing is at least 1, and what a lamp makes of the most is 100.
int percentOf(float value, float maximum);
/// Whether the eye hardly tells it from white.
bool isWhite(const Colour& colour);
/// "orange". Takes 0 to 1, once round the circle.
std::string_view hueName(float hue);
/// "orange" or "pale orange".
std::string colourName(const Colour& colour);

} // namespace lumeroom
