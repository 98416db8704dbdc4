#pragma once

#include "strips/Colour.h"

#include <string>

/// What a light is like, in words and numbers for people.
namespace lumeroom {

/// 0 to 100. What is not quite nothing is at least 1, and what a lamp makes of the most is 100.
int percentOf(float value, float maximum);
/// Whether the eye hardly tells it from white.
bool isWhite(const Colour& colour);
/// "orange" or "pale orange".
std::string colourName(const Colour& colour);

} // namespace lumeroom
