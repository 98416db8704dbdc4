#include "app/ui/Throbber.h"

#include <QPainter>

namespace lumeroom {

namespace {
constexpr int kSize = 48;
constexpr int kDots = 12;
constexpr int kMillisecondsPerStep = 90;
} // namespace

Throbber::Throbber(QWidget* parent)
    : QWidget(parent)
{
    resize(sizeHint());
    setAccessibleName(tr("searching for lamps"));
    m_timer.setInterval(kMillisecondsPerStep);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % kDots;
        update();
    });
    hide();
}

void Throbber::start()
{
    show();
    raise();
    if (!m_timer.isActive())
        m_timer.start();
}

void Throbber::stop()
{
    m_timer.stop();
    hide();
}

QSize Throbber::sizeHint() const
{
    return {kSize, kSize};
}

void Throbber::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center());
    painter.setPen(Qt::NoPen);
    for (int dot = 0; dot < kDots; ++dot) {
        QColor colour = palette().color(QPalette::WindowText);
        const int behind = (m_step - dot + kDots) % kDots;
        colour.setAlphaF(0.85F - 0.75F * static_cast<float>(behind) / kDots);
        painter.setBrush(colour);
        painter.save();
        painter.rotate(360.0 * dot / kDots);
        painter.drawEllipse(QPointF(0, -kSize * 0.36), kSize * 0.06, kSize * 0.06);
        painter.restore();
    }
}

} // namespace lumeroom
