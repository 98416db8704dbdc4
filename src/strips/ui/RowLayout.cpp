#include "strips/ui/RowLayout.h"

#include "strips/ui/CaptionView.h"
#include "strips/ui/CardLook.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"
#include "strips/ui/WellAndRing.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace lumeroom {

namespace {

/// The name and its caption, one over the other or side by side.
QLayout* nameAndCaption(const StripWidgets& widgets, const RowMeasures& measures)
{
    widgets.label->setFixedWidth(measures.name);
    if (measures.caption == 0) {
        auto* block = new QVBoxLayout;
        block->setSpacing(0);
        block->addStretch(1);
        block->addWidget(widgets.label);
        block->addWidget(widgets.caption);
        block->addStretch(1);
        return block;
    }
    auto* block = new QHBoxLayout;
    block->setSpacing(measures.gap);
    block->addWidget(widgets.label);
    block->addWidget(widgets.caption);
    return block;
}

} // namespace

void setButtonSize(const StripWidgets& widgets, int side, int picture)
{
    for (IconButton* button : {widgets.rename, widgets.effect, widgets.navigation}) {
        button->setFixedSize(side, side);
        button->setIconSize({picture, picture});
    }
}

void showNameInBold(const StripWidgets& widgets)
{
    QFont bold = widgets.label->font();
    bold.setWeight(QFont::DemiBold);
    widgets.label->setFont(bold);
}

QLayout* handleOrBox(const StripWidgets& widgets, QSize size)
{
    widgets.handle->setFixedSize(size);
    widgets.selected->setFixedSize(size);
    auto* place = new QGridLayout;
    place->setSpacing(0);
    place->addWidget(widgets.handle, 0, 0, Qt::AlignCenter);
    place->addWidget(widgets.selected, 0, 0, Qt::AlignCenter);
    place->setColumnMinimumWidth(0, size.width());
    return place;
}

void layOutInOneRow(QWidget& row, const StripWidgets& widgets, const RowMeasures& measures)
{
    constexpr int kEnd = 8; // from the card's edge
    makeCard(row, measures.size);
    widgets.onOffButton->setFixedSize(measures.onOffButton, measures.onOffButton);
    widgets.wellAndRing->setWellSize(measures.well);
    if (measures.caption > 0)
        widgets.caption->setFixedWidth(measures.caption);
    setButtonSize(widgets, measures.button, measures.buttonIcon);

    auto* line = new QHBoxLayout(&row);
    line->setContentsMargins(5, 0, kEnd, 0);
    line->setSpacing(measures.gap);
    line->addLayout(
        handleOrBox(widgets, {measures.handle, measures.size.height() - 2 * kCardMargin - 2}));
    line->addWidget(widgets.onOffButton);
    line->addLayout(nameAndCaption(widgets, measures));
    line->addWidget(widgets.rename);
    line->addWidget(widgets.brightness, 3); // what hands reach for
    for (SliderView* slider : {widgets.colour, widgets.saturation, widgets.warmth})
        line->addWidget(slider, 2);
    line->addWidget(widgets.wellAndRing);
    line->addWidget(widgets.effect);
    line->addWidget(widgets.navigation);
}

} // namespace lumeroom
