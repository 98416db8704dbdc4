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

constexpr QSize kSize{300, 178};
constexpr QSize kHandle{16, 22};

QLayout* head(const StripWidgets& widgets)
{
    setButtonSize(widgets, 26, 16);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addWidget(widgets.label);
    lines->addWidget(widgets.caption);
    auto* line = new QHBoxLayout;
    line->setSpacing(2);
    line->addLayout(handleOrBox(widgets, kHandle), 0);
    line->addLayout(lines, 1);
    for (IconButton* button : {widgets.rename, widgets.effect, widgets.navigation})
        line->addWidget(button, 0, Qt::AlignTop);
    return line;
}

QLayout* light(const StripWidgets& widgets)
{
    widgets.onOffButton->setFixedSize(72, 72);
    widgets.wellAndRing->setWellSize(30);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(widgets.onOffButton, 0, Qt::AlignHCenter);
    column->addWidget(widgets.wellAndRing, 0, Qt::AlignHCenter);
    column->addStretch(1);
    return column;
}

} // namespace

void layOutSquareControl(QWidget& row, const StripWidgets& widgets)
{
    makeCard(row, kSize);
    showNameInBold(widgets);
    auto* sliders = new QVBoxLayout;
    sliders->setSpacing(0);
    for (SliderView* slider : widgets.sliders())
        sliders->addWidget(slider);

    auto* body = new QHBoxLayout;
    body->setContentsMargins(8, 0, 4, 0);
    body->setSpacing(6);
    body->addLayout(light(widgets));
    body->addLayout(sliders, 1);

    auto* card = new QVBoxLayout(&row);
    card->setContentsMargins(6, 6, 6, 6);
    card->setSpacing(2);
    card->addLayout(head(widgets));
    card->addLayout(body, 1);
}

} // namespace lumeroom
