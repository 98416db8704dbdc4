#include "app/ui/NavigationButton.h"

#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QPainter>

namespace lumeroom {

namespace {

constexpr int kHeight = 34;
constexpr int kMargin = 8;
constexpr int kIcon = 18;
constexpr double kRadius = 6;

} // namespace

NavigationButton::NavigationButton(const QString& text, Icon icon, QWidget* parent)
    : QAbstractButton(parent)
    , m_icon(icon)
{
    setText(text);
    setAccessibleName(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

NavigationButton::NavigationButton(
    ButtonModel& model, const QString& text, Icon icon, QWidget* parent)
    : NavigationButton(text, icon, parent)
{
    setCheckable(true);
    m_model = &model;
    connect(this, &QAbstractButton::clicked, this, [this] { m_model->press(); });
    followModel(model, this, &NavigationButton::mirror);
}

void NavigationButton::mirror()
{
    setChecked(m_model->state());
}

QSize NavigationButton::sizeHint() const
{
    return {2 * kMargin + kIcon + kMargin + fontMetrics().horizontalAdvance(text()), kHeight};
}

void NavigationButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool dark = isDark(*this);
    const QRectF ground = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(qColor(buttonBackground(isChecked())));
    painter.drawRoundedRect(ground, kRadius, kRadius);
    if (isChecked()) {
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(
            QRectF(ground.left(), ground.top() + 8, 3, ground.height() - 16), 1.5, 1.5);
    }
    if (isDown() || underMouse()) {
        QColor veil(dark ? Qt::white : Qt::black);
        veil.setAlphaF(isDown() ? 0.15F : 0.05F);
        painter.setBrush(veil);
        painter.drawRoundedRect(ground, kRadius, kRadius);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(ground, kRadius, kRadius);
    }
    if (isCheckable() && !isChecked())
        painter.setOpacity(0.65);
    const QRect picture(kMargin, (height() - kIcon) / 2, kIcon, kIcon);
    lumeroom::icon(m_icon, palette()).paint(&painter, picture);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect room = rect().adjusted(picture.right() + kMargin, 0, -4, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
        fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

} // namespace lumeroom
