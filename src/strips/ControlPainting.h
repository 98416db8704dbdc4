#pragma once

#include "base/Geometry.h"
#include "strips/Colour.h"

#include <vector>

/// What the strips' controls look like, as data for a painter.
namespace lumeroom {

/// The bar of a slider: a rounded rectangle with an even gradient.
struct SliderBar {
    Rectangle rectangle;
    float cornerRadius = 2;
    float degrees = 0; ///< 0 runs from left to right, 270 from the bottom to the top
    std::vector<Rgba> colours;
    float alpha = 1;
    bool filledToKnob = false;
};

/// A white as the eye takes it beside others: the warm ones amber, the cool ones bluish.
Rgba whiteOf(int kelvin);
/// Of the colour's kelvin; plain without a usable one.
Rgba whiteLightOf(const Colour& colour);
/// The colour at full brightness. What it lacks in saturation is white of its kelvin.
Rgba lightOf(const Colour& colour);
/// Whether dark signs read better on it than white ones.
bool isPale(const Rgba& ground);

/// `inside` is the room that the slider has for its bar.
SliderBar whitenessSliderBar(const Rectangle& inside, float saturatedHueComponent, bool dark);
/// From faint to the full light of the lamp; it is filled up to the knob, over a ground.
SliderBar brightnessSliderBar(const Rectangle& inside, const Rgba& light, bool dark);
/// From the coolest white to the warmest.
SliderBar warmthSliderBar(const Rectangle& inside, bool dark);
/// Once around the hues.
SliderBar colourSliderBar(const Rectangle& inside, bool dark);

/// The on/off button: an oval within its bounds, with these layers of paint and a grey outline.
struct OnOffButtonPaint {
    Rectangle oval;
    std::vector<Rgba> fills; ///< in this order
    Rgba outline{0.5F, 0.5F, 0.5F, 1};
    float outlineWidth = 1;
};

struct OnOffButtonLook {
    bool on = false;
    bool highlighted = false;
    bool dark = false;
    Colour wellColour;
};

OnOffButtonPaint onOffButtonPaint(const Rectangle& bounds, const OnOffButtonLook& look);

/// The swatch: its light, with the brightness as alpha, so that a dim colour is pale.
Rgba swatchFill(const Colour& colour);

/// The square picture of a target in the status menu: an oval, clear while the target is off.
struct MenuImage {
    float side = 16;
    Rgba oval{0, 0, 0, 0};
};

MenuImage menuImage(bool on, const Colour& wellColour);

} // namespace lumeroom
