#pragma once

#include <array>

class QWidget;

namespace lumeroom {

class CaptionView;
class ColourPickerPopover;
class ColourWellView;
class DragHandle;
class ElidedLabel;
class IconButton;
class LampControlStrip;
class OnOffButtonView;
class SelectionBox;
class SliderView;
class WellAndRing;

/// The controls of one strip, each mirroring its model and known by its tag in the property "tag".
/// A layout gives them their places. They belong to the row, and the keyboard goes through them in
/// the order of the fields.
struct StripWidgets {
    StripWidgets(LampControlStrip& strip, ColourPickerPopover& picker, QWidget* row);

    DragHandle* handle;
    SelectionBox* selected;
    OnOffButtonView* onOffButton;
    ElidedLabel* label;
    CaptionView* caption;
    IconButton* rename;
    SliderView* brightness;
    SliderView* colour;
    SliderView* saturation;
    SliderView* warmth;
    WellAndRing* wellAndRing;
    ColourWellView* well; ///< within its ring
    IconButton* effect;
    IconButton* navigation;

    std::array<SliderView*, 4> sliders() const { return {brightness, colour, saturation, warmth}; }
};

} // namespace lumeroom
