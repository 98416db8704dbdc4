#include "strips/ui/SelectionBox.h"

#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace lumeroom {

SelectionBox::SelectionBox(ButtonModel& model, QWidget* parent)
    : QCheckBox(parent)
    , m_model(model)
{
    setAccessibleName(tr("selected"));
    connect(this, &QCheckBox::clicked, this, [this] { m_model.press(); });
    followModel(m_model, this, &SelectionBox::mirror);
}

void SelectionBox::mirror()
{
    mirrorControl(*this, m_model);
    setChecked(m_model.state());
}

// On a dark ground the outline that styles draw is hard to see.
void SelectionBox::paintEvent(QPaintEvent* event)
{
    QCheckBox::paintEvent(event);
    if (!isDark(*this))
        return;
    QStyleOptionButton option;
    initStyleOption(&option);
    QRectF box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    QColor outline = palette().color(QPalette::WindowText);
    outline.setAlphaF(0.4F);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

} // namespace lumeroom
