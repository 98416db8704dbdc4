#include "strips/ControlPainting.h"

#include <algorithm>
#include <array>

namespace lumeroom {

namespace {

constexpr Rgba kWhite{1, 1, 1, 1};

Rgba white(float level)
{
    return {level, level, level, 1};
}

SliderBar bar(const Rectangle& inside, bool dark, std::vector<Rgba> colours)
{
    constexpr float kThickness = 4;
    constexpr float kAlphaInDark = 0.75F;
    SliderBar result;
    result.rectangle = inside;
    if (inside.width > inside.height) {
        result.rectangle.height = kThickness;
        result.rectangle.y += (inside.height - kThickness) / 2;
    } else {
        result.rectangle.width = kThickness;
        result.rectangle.x += (inside.width - kThickness) / 2;
        result.degrees = 270;
    }
    result.colours = std::move(colours);
    result.alpha = dark ? kAlphaInDark : 1;
    return result;
}

Rgba pureHue(float hue)
{
    return rgbaFrom({hue, 1, 1, 1, {}});
}

/// `part` of `b`, and the rest of `a`.
Rgba mixed(const Rgba& a, const Rgba& b, float part)
{
    const auto between = [part](float x, float y) { return x + (y - x) * part; };
    return {between(a.red, b.red), between(a.green, b.green), between(a.blue, b.blue),
        between(a.alpha, b.alpha)};
}

} // namespace

Rgba whiteOf(int kelvin)
{
    struct Stop {
        float kelvin;
        Rgba white;
    };
    static constexpr std::array<Stop, 3> kStops{{{2500, {1, 0.73F, 0.4F, 1}},
        {4800, {1, 0.957F, 0.91F, 1}}, {9000, {0.745F, 0.87F, 1, 1}}}};
    const auto wanted = static_cast<float>(kelvin);
    const auto& above = wanted < kStops[1].kelvin ? kStops[1] : kStops[2];
    const auto& below = wanted < kStops[1].kelvin ? kStops[0] : kStops[1];
    const float part = (wanted - below.kelvin) / (above.kelvin - below.kelvin);
    return mixed(below.white, above.white, std::clamp(part, 0.0F, 1.0F));
}

Rgba whiteLightOf(const Colour& colour)
{
    const auto kelvin = usableKelvin(colour);
    return kelvin ? whiteOf(*kelvin) : kWhite;
}

Rgba lightOf(const Colour& colour)
{
    return mixed(whiteLightOf(colour), pureHue(colour.hue), colour.saturation);
}

bool isPale(const Rgba& ground)
{
    constexpr float kMiddle = 0.5F;
    return 0.3F * ground.red + 0.59F * ground.green + 0.11F * ground.blue > kMiddle;
}

SliderBar whitenessSliderBar(const Rectangle& inside, float saturatedHueComponent, bool dark)
{
    return bar(inside, dark, {pureHue(saturatedHueComponent), kWhite});
}

SliderBar brightnessSliderBar(const Rectangle& inside, const Rgba& light, bool dark)
{
    constexpr float kFaint = 0.55F;
    SliderBar result
        = bar(inside, dark, {{light.red, light.green, light.blue, light.alpha * kFaint}, light});
    result.alpha = 1;
    result.filledToKnob = true;
    return result;
}

SliderBar warmthSliderBar(const Rectangle& inside, bool dark)
{
    return bar(inside, dark, {{0.717F, 0.921F, 0.996F, 1}, kWhite, {0.996F, 0.808F, 0.565F, 1}});
}

SliderBar colourSliderBar(const Rectangle& inside, bool dark)
{
    constexpr int kStops = 7;
    std::vector<Rgba> hues;
    hues.reserve(kStops);
    for (int i = 0; i < kStops; ++i)
        hues.push_back(pureHue(static_cast<float>(i) / (kStops - 1)));
    return bar(inside, dark, std::move(hues));
}

OnOffButtonPaint onOffButtonPaint(const Rectangle& bounds, const OnOffButtonLook& look)
{
    constexpr float kOffWhite = 0.6F;
    constexpr float kOffDark = 0.25F;
    constexpr float kUnderLitInDark = 0.66F;
    constexpr float kPale = 0.33F;
    constexpr float kHighlightedBrightness = 0.6F;

    OnOffButtonPaint paint;
    paint.oval = {bounds.x + bounds.width / 5, bounds.y + bounds.height / 5, bounds.width * 3 / 5,
        bounds.height * 3 / 5};
    if (!look.on) {
        paint.fills = {white(look.dark && !look.highlighted ? kOffDark : kOffWhite)};
        return paint;
    }
    if (look.dark)
        paint.fills.push_back(white(kUnderLitInDark));
    const Colour& colour = look.wellColour;
    const float level = look.highlighted ? kHighlightedBrightness : 1;
    // The kelvin tints whites alone: among pale colours it would pass for another hue.
    const Rgba tinted = mixed(whiteLightOf(colour), kWhite, colour.saturation);
    const Rgba lit = mixed(tinted, pureHue(colour.hue), colour.saturation * kPale);
    paint.fills.push_back(
        {lit.red * level, lit.green * level, lit.blue * level, colour.brightness});
    return paint;
}

Rgba swatchFill(const Colour& colour)
{
    Rgba fill = lightOf(colour);
    fill.alpha = colour.brightness;
    return fill;
}

MenuImage menuImage(bool on, const Colour& wellColour)
{
    MenuImage image;
    if (on)
        image.oval = swatchFill(wellColour);
    return image;
}

} // namespace lumeroom
