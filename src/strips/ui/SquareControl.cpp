#include "strips/ui/StripLayouts.h"

#include "strips/ui/BadgeView.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/RowLayout.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"

#include <QBoxLayout>

namespace lumeroom {

void layOutSquareControl(QWidget& row, const StripWidgets& widgets)
{
    row.setFixedSize(260, 170);
    widgets.handle->setFixedSize(18, 26);
    widgets.kindBadge->setFixedSize(20, 20);
    widgets.onOffButton->setFixedSize(72, 72);
    widgets.well->setFixedSize(40, 40);
    setButtonSize(widgets, 28, 18);
    showNameInBold(widgets);

    auto* head = new QHBoxLayout;
    head->setSpacing(5);
    head->addWidget(widgets.handle);
    head->addWidget(widgets.kindBadge);
    head->addWidget(widgets.label, 1);
    head->addWidget(widgets.rename);
    head->addWidget(widgets.selected);

    auto* left = new QVBoxLayout;
    left->setSpacing(2);
    left->addWidget(widgets.onOffButton, 0, Qt::AlignHCenter);
    left->addWidget(widgets.well, 0, Qt::AlignHCenter);
    left->addStretch(1);

    auto* middle = new QVBoxLayout;
    middle->setSpacing(2);
    for (SliderView* slider : widgets.sliders())
        middle->addWidget(slider);

    auto* right = new QVBoxLayout;
    right->addWidget(widgets.effect);
    right->addStretch(1);
    right->addWidget(widgets.navigation);

    auto* body = new QHBoxLayout;
    body->setSpacing(4);
    body->addLayout(left);
    body->addLayout(middle, 1);
    body->addLayout(right);

    auto* card = new QVBoxLayout(&row);
    card->setContentsMargins(6, 6, 8, 9);
    card->setSpacing(2);
    card->addLayout(head);
    card->addLayout(body, 1);
}

} // namespace lumeroom
