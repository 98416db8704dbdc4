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

void layOutSingleControl(QWidget& row, const StripWidgets& widgets)
{
    constexpr int kScrollBar = 16;
    row.setFixedSize(200, 350);
    widgets.handle->setFixedSize(18, 26);
    widgets.kindBadge->setFixedSize(22, 22);
    widgets.onOffButton->setFixedSize(88, 88);
    widgets.well->setFixedSize(44, 44);
    setButtonSize(widgets, 30, 20);
    showNameInBold(widgets);
    widgets.label->setAlignment(Qt::AlignHCenter);

    auto* head = new QHBoxLayout;
    head->setSpacing(6);
    head->addWidget(widgets.handle);
    head->addWidget(widgets.label, 1);
    head->addWidget(widgets.selected);

    auto* light = new QHBoxLayout;
    light->setSpacing(2);
    light->addStretch(1);
    light->addWidget(widgets.onOffButton);
    light->addWidget(widgets.well);
    light->addStretch(1);

    auto* sliders = new QHBoxLayout;
    sliders->setContentsMargins(14, 0, 14, 0);
    for (SliderView* slider : widgets.sliders()) {
        slider->setOrientation(Qt::Vertical);
        sliders->addWidget(slider);
    }

    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(14, 0, 14, 0);
    foot->addWidget(widgets.kindBadge);
    foot->addStretch(1);
    foot->addWidget(widgets.rename);
    foot->addWidget(widgets.effect);
    foot->addWidget(widgets.navigation);

    auto* panel = new QVBoxLayout(&row);
    panel->setContentsMargins(6, 8, 6, 8 + kScrollBar);
    panel->setSpacing(6);
    panel->addLayout(head);
    panel->addLayout(light);
    panel->addLayout(sliders, 1);
    panel->addLayout(foot);
}

} // namespace lumeroom
