#include "strips/ui/EdgeScroller.h"

#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kEdge = 28; // points
constexpr int kFastest = 24; // points a step
constexpr int kStepMilliseconds = 25;

/// Faster the nearer to the edge, or beyond it.
int speedAt(int place, int length)
{
    if (place < kEdge)
        return std::max(place - kEdge, -kFastest);
    return std::clamp(place - (length - kEdge), 0, kFastest);
}

bool scroll(QScrollBar& bar, int by)
{
    const int before = bar.value();
    bar.setValue(before + by);
    return bar.value() != before;
}

} // namespace

QScrollArea* areaAround(const QWidget& widget)
{
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent))
            return area;
    }
    return nullptr;
}

EdgeScroller::EdgeScroller(QWidget& widget, std::function<void(QPoint)> scrolled)
    : m_widget(widget)
    , m_scrolled(std::move(scrolled))
{
    m_timer.setInterval(kStepMilliseconds);
    m_timer.callOnTimeout([this] { step(); });
}

void EdgeScroller::mouseIsAt(QPoint globalMouse)
{
    m_mouse = globalMouse;
    if (!m_timer.isActive())
        m_timer.start();
}

void EdgeScroller::step()
{
    QScrollArea* area = areaAround(m_widget);
    if (!area)
        return;
    const QWidget& viewport = *area->viewport();
    const QPoint mouse = viewport.mapFromGlobal(m_mouse);
    const bool across = scroll(*area->horizontalScrollBar(), speedAt(mouse.x(), viewport.width()));
    const bool along = scroll(*area->verticalScrollBar(), speedAt(mouse.y(), viewport.height()));
    if (across || along)
        m_scrolled(m_mouse);
}

} // namespace lumeroom
