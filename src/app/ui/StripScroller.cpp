#include "app/ui/StripScroller.h"

#include "strips/ui/CardLook.h"

#include <QPainter>

namespace lumeroom {

StripScroller::StripScroller(QWidget* cards, QWidget* parent)
    : QScrollArea(parent)
{
    setWidget(cards);
    cards->setAutoFillBackground(false); // nor is there a seam where the cards end
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

void StripScroller::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), panelGround(*this));
}

} // namespace lumeroom
