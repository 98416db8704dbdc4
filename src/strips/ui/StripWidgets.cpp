#include "strips/ui/StripWidgets.h"

#include "strips/LampControlStrip.h"
#include "strips/ui/BadgeView.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"

namespace lumeroom {

namespace {

template <typename View> View* tagged(int tag, View* view)
{
    view->setProperty("tag", tag);
    return view;
}

/// A control that comes and goes keeps its room, so that the others stay where they are.
template <typename View> View* keepingItsRoom(View* view)
{
    QSizePolicy policy = view->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    view->setSizePolicy(policy);
    return view;
}

QString text(const char* source)
{
    return QObject::tr(source);
}

} // namespace

StripWidgets::StripWidgets(LampControlStrip& strip, ColourPickerPopover& picker, QWidget* row)
{
    namespace ct = controltag;
    handle = tagged(ct::kDragHandle, new DragHandle(row));
    selected = keepingItsRoom(
        tagged(ct::kSelectionButton, new SelectionBox(strip.getSelectedButton(), row)));
    onOffButton = tagged(
        ct::kOnOffButton, new OnOffButtonView(strip.onOffButton(), strip.colourWell(), row));
    kindBadge = keepingItsRoom(tagged(ct::kKindBadge, new BadgeView(strip.kindBadge(), row)));
    label = tagged(ct::kLabel, new ElidedLabel(strip.label(), row));
    rename = keepingItsRoom(tagged(ct::kRenameButton,
        new IconButton(Icon::Rename, text("rename"), strip.renameButton(), row)));

    const auto slider = [row](SliderModel& model, const char* name, SliderView::MakeBar bar) {
        return tagged(model.tag(), new SliderView(model, std::move(bar), text(name), row));
    };
    brightness = slider(strip.brightnessSlider(), "brightness", brightnessSliderBar);
    colour = slider(strip.colourSlider(), "colour", colourSliderBar);
    saturation
        = slider(strip.satSlider(), "saturation", [&strip](const Rectangle& inside, bool dark) {
              return whitenessSliderBar(inside, strip.saturatedHueComponent(), dark);
          });
    warmth = slider(strip.warmthSlider(), "warmth", warmthSliderBar);

    well = new ColourWellView(strip.colourWell(), picker, row);
    effect = tagged(ct::kEffectButton,
        new IconButton(Icon::Effect, text("effects"), strip.effectButton(), row));
    navigation = keepingItsRoom(tagged(ct::kNavigationButton,
        new IconButton(Icon::NavForward, text("view contents"), strip.navigationButton(), row)));
}

} // namespace lumeroom
