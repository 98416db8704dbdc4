#include "strips/ui/StripLayouts.h"

#include "strips/ui/CaptionView.h"
#include "strips/ui/CardLook.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/RowLayout.h"
#include "strips/ui/SliderView.h"
#include "strips/ui/WellAndRing.h"

#include <QBoxLayout>

namespace lumeroom {

namespace {

constexpr QSize kSize{186, 372};
constexpr QSize kHandle{16, 22};
constexpr int kScrollBar = 16;
constexpr int kPadding = 8; // within the card

QLayout* head(const StripWidgets& widgets)
{
    widgets.label->setAlignment(Qt::AlignHCenter);
    widgets.caption->setAlignment(Qt::AlignHCenter);
    auto* name = new QHBoxLayout;
    name->setSpacing(0);
    name->addLayout(handleOrBox(widgets, kHandle));
    name->addWidget(widgets.label, 1);
    name->addSpacing(kHandle.width()); // so that the name is in the middle
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addLayout(name);
    lines->addWidget(widgets.caption);
    return lines;
}

QLayout* light(const StripWidgets& widgets)
{
    widgets.onOffButton->setFixedSize(88, 88);
    widgets.wellAndRing->setWellSize(40);
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    line->addStretch(1);
    line->addWidget(widgets.onOffButton);
    line->addWidget(widgets.wellAndRing);
    line->addStretch(1);
    return line;
}

QLayout* foot(const StripWidgets& widgets)
{
    setButtonSize(widgets, 26, 16);
    auto* line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(widgets.rename);
    line->addWidget(widgets.effect);
    line->addWidget(widgets.navigation);
    line->addStretch(1);
    return line;
}

} // namespace

void layOutSingleControl(QWidget& row, const StripWidgets& widgets)
{
    makeCard(row, kSize, kScrollBar);
    showNameInBold(widgets);
    auto* sliders = new QHBoxLayout;
    for (SliderView* slider : widgets.sliders()) {
        slider->setOrientation(Qt::Vertical);
        sliders->addWidget(slider);
    }
    auto* panel = new QVBoxLayout(&row);
    panel->setContentsMargins(kPadding, kPadding, kPadding, kPadding - 2);
    panel->setSpacing(4);
    panel->addLayout(head(widgets));
    panel->addLayout(light(widgets));
    panel->addLayout(sliders, 1);
    panel->addLayout(foot(widgets));
}

} // namespace lumeroom
