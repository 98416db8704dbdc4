#pragma once

#include "strips/ColourConversions.h"

#include <string>
#include <string_view>

/// What the controls of a strip show, in words.
namespace lumeroom {

class SliderModel;

/// Of a colour that shows and was not sent.
inline constexpr std::string_view kHowToSend
    = "The lamp has not been sent this colour. Press the ring round the well, or Return on the "
      "colour slider, to send it.";

/// "79 %". What is not quite nothing is at least 1 %, and what a lamp makes of the most is 100 %.
std::string percentText(float value, float maximum);
std::string kelvinText(int kelvin);
/// "orange", "pale orange" or, for a white, "3500 K". Empty for a lamp of one white.
std::string colourText(const SliderValues& sliders, int capabilities);

/// What the slider sets: "Brightness", "Colour", "Whiteness" or "Warmth".
std::string sliderName(const SliderModel& slider);
/// Where it stands: "79 %", "orange", "3500 K".
std::string sliderText(const SliderModel& slider);
/// "Brightness 79 %".
std::string sliderNameAndText(const SliderModel& slider);

} // namespace lumeroom
