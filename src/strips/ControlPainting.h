#pragma once

#include "base/Geometry.h"
#include "strips/Colour.h"

#include <array>
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
};

/// `inside` is the room that the slider has for its bar.
SliderBar whitenessSliderBar(const Rectangle& inside, float saturatedHueComponent, bool dark);
SliderBar brightnessSliderBar(const Rectangle& inside, bool dark);
SliderBar warmthSliderBar(const Rectangle& inside, bool dark);
/// From the coolest white to the warmest, evenly.
inline constexpr std::array<Rgba, 3> kWarmthColours{
    {{0.717F, 0.921F, 0.996F, 1}, {1, 1, 1, 1}, {0.996F, 0.808F, 0.565F, 1}}};
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

/// The ground of a button that is on; clear under one that is off.
Rgba buttonBackground(bool coloured);

/// The swatch: its colour at full brightness, with the brightness as alpha, so that a dim colour is
/// pale.
Rgba swatchFill(const Colour& colour);

/// The square picture of a target in the status menu: an oval, clear while the target is off.
struct MenuImage {
    float side = 16;
    Rgba oval{0, 0, 0, 0};
};

MenuImage menuImage(bool on, const Colour& wellColour);

} // namespace lumeroom
