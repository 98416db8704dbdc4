#include "strips/ui/CaptionView.h"

#include "strips/ControlPainting.h"
#include "strips/ui/CardLook.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr double kSmaller = 0.9;
constexpr int kGap = 6;
constexpr int kBadge = 14;
constexpr int kBadgeGap = 4;
constexpr int kHintPadding = 4;
constexpr int kHintRadius = 5;
constexpr int kLight = 10; // across
constexpr int kLightStep = 7; // they overlap

} // namespace

CaptionView::CaptionView(CaptionModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    QFont smaller = font();
    smaller.setPointSizeF(smaller.pointSizeF() * kSmaller);
    setFont(smaller);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    followModel(m_model, this, &CaptionView::mirror);
}

void CaptionView::setBadge(QWidget& badge)
{
    m_badge = &badge;
    badge.setFixedSize(kBadge, kBadge);
    badge.installEventFilter(this);
    fit();
}

void CaptionView::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    fit();
}

bool CaptionView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_badge
        && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        fit();
    return QWidget::eventFilter(watched, event);
}

void CaptionView::resizeEvent(QResizeEvent*)
{
    fit();
}

int CaptionView::badgeWidth() const
{
    return m_badge && !m_badge->isHidden() ? kBadge + kBadgeGap : 0;
}

/// Places what there is, in the middle or at the left.
void CaptionView::fit()
{
    const int beside = badgeWidth() + hintWidth() + lightsWidth();
    m_shown = fontMetrics().elidedText(m_text, Qt::ElideRight, std::max(0, width() - beside));
    const int whole = beside + fontMetrics().horizontalAdvance(m_shown);
    const int left = m_alignment.testFlag(Qt::AlignHCenter) ? (width() - whole) / 2 : 0;
    m_textAt = left + badgeWidth();
    if (m_badge)
        m_badge->move(left, (height() - kBadge) / 2);
    update();
}

QSize CaptionView::sizeHint() const
{
    return {badgeWidth() + fontMetrics().horizontalAdvance(m_text) + hintWidth() + lightsWidth(),
        fontMetrics().height() + 2};
}

QSize CaptionView::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void CaptionView::mirror()
{
    const Caption& caption = m_model.caption();
    m_text = QString::fromStdString(caption.text).simplified(); // an effect's name may hold breaks
    m_hint = QString::fromStdString(caption.hint);
    setToolTip(plainToolTip(QString::fromStdString(caption.toolTip)));
    setAccessibleName(m_hint.isEmpty() ? m_text : m_text + QStringLiteral(", ") + m_hint);
    setAccessibleDescription(QString::fromStdString(caption.toolTip));
    fit();
}

int CaptionView::hintWidth() const
{
    return m_hint.isEmpty() ? 0 : kGap + 2 * kHintPadding + fontMetrics().horizontalAdvance(m_hint);
}

int CaptionView::lightsWidth() const
{
    const auto count = static_cast<int>(m_model.caption().lights.size());
    return count == 0 ? 0 : kGap + kLight + (count - 1) * kLightStep;
}

void CaptionView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Caption& caption = m_model.caption();
    const int text = fontMetrics().horizontalAdvance(m_shown);
    painter.setPen(caption.isWarning ? warningText(*this) : softText(*this));
    painter.drawText(QRect(m_textAt, 0, text + 1, height()),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_shown);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHint(painter, m_textAt + text);
    paintLights(painter, m_textAt + text + hintWidth());
}

void CaptionView::paintHint(QPainter& painter, int x) const
{
    if (m_hint.isEmpty())
        return;
    const QRectF chip(x + kGap, 1, hintWidth() - kGap, height() - 2);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(chip.adjusted(0.5, 0.5, -0.5, -0.5), kHintRadius, kHintRadius);
    painter.drawText(chip, Qt::AlignCenter, m_hint);
}

void CaptionView::paintLights(QPainter& painter, int x) const
{
    painter.setPen(QPen(cardGround(*this), 1));
    double left = x + kGap;
    for (const Colour& light : m_model.caption().lights) {
        painter.setBrush(qColor(lightOf(light)));
        painter.drawEllipse(QRectF(left, (height() - kLight) / 2.0, kLight, kLight));
        left += kLightStep;
    }
}

} // namespace lumeroom
