#pragma once

#include "engine/Records.h"
#include "strips/Colour.h"

namespace lumeroom {

/// The four sliders of a strip, in lamp units.
struct SliderValues {
    float brightness = 0; ///< 0 to 255
    float colour = 0; ///< 0 to 65535
    float saturation = 0; ///< 0 to 255; 0 is full colour, 255 white
    float warmth = 0; ///< 0 to 6500: 9000 minus kelvin

    bool operator==(const SliderValues&) const = default;
};

Colour colourFromSliders(const SliderValues& sliders);

/// What the sliders show for a colour. The warmth slider stays where it is unless the target can
/// vary its white and the colour's kelvin is usable.
SliderValues slidersFromColour(const Colour& colour, const SliderValues& present, int capabilities);

/// An effect's colour as settings for a lamp; nearly black counts as off.
Settings settingsFromEffectColour(const Colour& colour);

/// The picker's knob: degrees clockwise from the top, and the distance from the centre, 0 to 1.
struct KnobPlace {
    float degrees = 0;
    float distance = 0;
};

/// In whites mode the horizontal place is the temperature: -1 (left) is 9000 K, 1 (right) 2500 K.
int kelvinFromKnob(float xOffset);
KnobPlace knobFromKelvin(int kelvin);

/// In colours mode the angle is the hue and the distance the saturation.
Colour colourFromKnob(const KnobPlace& knob, float brightness);
KnobPlace knobFromColour(const Colour& colour);

} // namespace lumeroom
