#include "strips/ui/StripWidgets.h"

#include "strips/LampControlStrip.h"
#include "strips/ui/BadgeView.h"
#include "strips/ui/CaptionView.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"
#include "strips/ui/WellAndRing.h"

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
    selected = tagged(ct::kSelectionButton, new SelectionBox(strip.getSelectedButton(), row));
    onOffButton = tagged(
        ct::kOnOffButton, new OnOffButtonView(strip.onOffButton(), strip.colourWell(), row));
    label = tagged(ct::kLabel, new ElidedLabel(strip.label(), row));
    caption = new CaptionView(strip.caption(), row);
    caption->setBadge(*tagged(ct::kKindBadge, new BadgeView(strip.kindBadge(), caption)));
    rename = keepingItsRoom(tagged(ct::kRenameButton,
        new IconButton(Icon::Rename, text("rename"), strip.renameButton(), row)));

    const auto slider = [row](SliderModel& model, Icon sign, const char* name,
                            SliderView::MakeBar bar) {
        auto* view = tagged(model.tag(), new SliderView(model, std::move(bar), text(name), row));
        view->setSign(sign);
        return view;
    };
    brightness = slider(strip.brightnessSlider(), Icon::Sun, "brightness",
        [&strip](const Rectangle& inside, bool dark) {
            return brightnessSliderBar(inside, lightOf(strip.colourWell().colour()), dark);
        });
    colour = slider(strip.colourSlider(), Icon::Hue, "colour", colourSliderBar);
    saturation = slider(
        strip.satSlider(), Icon::Drop, "whiteness", [&strip](const Rectangle& inside, bool dark) {
            return whitenessSliderBar(inside, strip.saturatedHueComponent(), dark);
        });
    warmth = slider(strip.warmthSlider(), Icon::Thermometer, "warmth", warmthSliderBar);

    wellAndRing = new WellAndRing(strip.sendButton(), row);
    well = new ColourWellView(strip.colourWell(), picker, wellAndRing);
    wellAndRing->setWell(*well);
    effect = tagged(ct::kEffectButton,
        new IconButton(Icon::Effect, text("effects"), strip.effectButton(), row));
    for (IconButton* button : {rename, effect})
        button->showOnDemand();
    navigation = keepingItsRoom(tagged(ct::kNavigationButton,
        new IconButton(Icon::NavForward, text("view contents"), strip.navigationButton(), row)));
}

} // namespace lumeroom
