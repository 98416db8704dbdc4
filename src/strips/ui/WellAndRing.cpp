#include "strips/ui/WellAndRing.h"

#include "strips/ui/ColourWellView.h"
#include "strips/ui/FocusRing.h"
#include "strips/ui/Mirror.h"

#include <QKeyEvent>
#include <QPainter>

namespace lumeroom {

SendRing::SendRing(ButtonModel& model, QWidget* parent)
    : QAbstractButton(parent)
    , m_model(model)
{
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("send colour"));
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, [this] { m_model.press(); });
    followModel(m_model, this, &SendRing::mirror);
}

void SendRing::mirror()
{
    mirrorControl(*this, m_model);
}

bool SendRing::hitButton(const QPoint& place) const
{
    return rect().contains(place);
}

void SendRing::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void SendRing::paintEvent(QPaintEvent*)
{
    constexpr double kWidth = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(palette().color(QPalette::Highlight), showsFocusRing(*this) ? kWidth * 1.5 : kWidth);
    pen.setDashPattern({3, 1.8});
    painter.setPen(pen);
    painter.drawEllipse(QRectF(rect()).adjusted(kWidth, kWidth, -kWidth, -kWidth));
}

WellAndRing::WellAndRing(ButtonModel& sendButton, QWidget* parent)
    : QWidget(parent)
    , m_ring(new SendRing(sendButton, this))
{
}

void WellAndRing::setWell(ColourWellView& well)
{
    m_well = &well;
    well.installEventFilter(this);
}

/// Where the wells are left out, there is no room for one either.
bool WellAndRing::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_well
        && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        setHidden(m_well->isHidden());
    return QWidget::eventFilter(watched, event);
}

void WellAndRing::setWellSize(int side)
{
    m_well->setFixedSize(side, side);
    setFixedSize(side + 2 * kRing, side + 2 * kRing);
}

void WellAndRing::resizeEvent(QResizeEvent*)
{
    m_ring->setGeometry(rect());
    m_well->move(rect().center() - m_well->rect().center());
}

} // namespace lumeroom
