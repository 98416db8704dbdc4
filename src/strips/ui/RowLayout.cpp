#include "strips/ui/RowLayout.h"

#include "strips/ui/BadgeView.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"

#include <QHBoxLayout>

namespace lumeroom {

void setButtonSize(const StripWidgets& widgets, int side, int picture)
{
    for (IconButton* button : {widgets.rename, widgets.effect, widgets.navigation}) {
        button->setFixedSize(side, side);
        button->setIconSize({picture, picture});
    }
}

void layOutInOneRow(QWidget& row, const StripWidgets& widgets, const RowMeasures& measures)
{
    row.setFixedSize(measures.size);
    widgets.handle->setFixedSize(measures.handle, measures.size.height() - 8);
    widgets.onOffButton->setFixedSize(measures.onOffButton, measures.onOffButton);
    widgets.kindBadge->setFixedSize(measures.badge, measures.badge);
    widgets.label->setFixedWidth(measures.name);
    widgets.well->setFixedSize(measures.well, measures.well);
    setButtonSize(widgets, measures.button, measures.buttonIcon);

    auto* line = new QHBoxLayout(&row);
    line->setContentsMargins(6, 0, 8, 1);
    line->setSpacing(measures.gap);
    line->addWidget(widgets.handle);
    line->addWidget(widgets.selected);
    line->addWidget(widgets.onOffButton);
    line->addWidget(widgets.kindBadge);
    line->addWidget(widgets.label);
    line->addWidget(widgets.rename);
    for (SliderView* slider : widgets.sliders())
        line->addWidget(slider, 1);
    line->addWidget(widgets.well);
    line->addWidget(widgets.effect);
    line->addWidget(widgets.navigation);
}

void showNameInBold(const StripWidgets& widgets)
{
    QFont bold = widgets.label->font();
    bold.setBold(true);
    widgets.label->setFont(bold);
}

} // namespace lumeroom
