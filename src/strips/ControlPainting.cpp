#include "strips/ControlPainting.h"

namespace lumeroom {

namespace {

Rgba white(float level, float alpha = 1)
{
    return {level, level, level, alpha};
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

} // namespace

SliderBar whitenessSliderBar(const Rectangle& inside, float saturatedHueComponent, bool dark)
{
    return bar(inside, dark, {pureHue(saturatedHueComponent), white(1)});
}

SliderBar brightnessSliderBar(const Rectangle& inside, bool dark)
{
    return bar(inside, dark, {white(1, 0), white(1)});
}

SliderBar warmthSliderBar(const Rectangle& inside, bool dark)
{
    return bar(inside, dark, {kWarmthColours.begin(), kWarmthColours.end()});
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
    Colour lit = look.wellColour;
    lit.saturation *= kPale;
    lit.alpha = lit.brightness;
    lit.brightness = look.highlighted ? kHighlightedBrightness : 1;
    paint.fills.push_back(rgbaFrom(lit));
    return paint;
}

Rgba buttonBackground(bool coloured)
{
    return coloured ? Rgba{0.4F, 0.4F, 0.4F, 0.095F} : Rgba{0, 0, 0, 0};
}

Rgba swatchFill(const Colour& colour)
{
    Colour fill = colour;
    fill.alpha = colour.brightness;
    fill.brightness = 1;
    return rgbaFrom(fill);
}

MenuImage menuImage(bool on, const Colour& wellColour)
{
    MenuImage image;
    if (on)
        image.oval = swatchFill(wellColour);
    return image;
}

} // namespace lumeroom
