#include "app/ui/NavigationSwitch.h"

#include "app/NavigationModel.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>

namespace lumeroom {

namespace {

constexpr int kCheck = 14;

} // namespace

NavigationSwitch::NavigationSwitch(
    NavigationModel& navigation, ButtonModel& kind, const QString& text, QWidget* parent)
    : NavigationButton(text, Icon::Check, parent)
    , m_navigation(navigation)
    , m_kind(kind)
{
    setCheckable(true);
    connect(this, &QAbstractButton::clicked, this, [this] { act(); });
    followModel(m_kind, this, &NavigationSwitch::mirror);
}

void NavigationSwitch::mirror()
{
    setChecked(m_kind.state());
}

void NavigationSwitch::act()
{
    if (QGuiApplication::keyboardModifiers() & Qt::ControlModifier)
        return m_navigation.showOnly(m_kind);
    m_kind.press();
}

// A third quick click would take back what the two before it asked for.
void NavigationSwitch::mousePressEvent(QMouseEvent* event)
{
    if (!m_sameClicks.hasExpired())
        return;
    m_secondClick.setRemainingTime(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    NavigationButton::mousePressEvent(event);
}

/// The first of the two clicks may have been on what stood here before.
void NavigationSwitch::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_secondClick.hasExpired())
        return;
    m_sameClicks.setRemainingTime(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_navigation.showOnly(m_kind);
}

QSize NavigationSwitch::sizeHint() const
{
    QFont bold = font();
    bold.setBold(true);
    return {3 * kMargin + QFontMetrics(bold).horizontalAdvance(text()) + kCheck,
        NavigationButton::sizeHint().height()};
}

void NavigationSwitch::paintGround(QPainter& painter, const QRectF& ground) const
{
    if (!isChecked())
        return;
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.1F);
    painter.setPen(line);
    painter.setBrush(
        isDark(*this) ? palette().color(QPalette::Window).lighter(150) : QColor(Qt::white));
    painter.drawRoundedRect(ground, kRadius, kRadius);
}

void NavigationSwitch::paintContent(QPainter& painter) const
{
    QFont written = font();
    written.setBold(isChecked());
    painter.setFont(written);
    const QRect check(width() - kMargin - kCheck, (height() - kCheck) / 2, kCheck, kCheck);
    paintText(painter, rect().adjusted(kMargin, 0, check.left() - width(), 0));
    if (!isChecked())
        return;
    QPalette accent = palette();
    accent.setColor(QPalette::Active, QPalette::WindowText, palette().color(QPalette::Highlight));
    lumeroom::icon(Icon::Check, accent).paint(&painter, check);
}

} // namespace lumeroom
