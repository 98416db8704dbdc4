#include "desktop/QtRunLoop.h"

#include <QTimer>

namespace lumeroom {

void QtRunLoop::post(std::function<void()> work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void QtRunLoop::schedule(Seconds delay, std::function<void()> work)
{
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(std::max(delay, Seconds(0)));
    QTimer::singleShot(wait, Qt::PreciseTimer, &m_context, std::move(work));
}

} // namespace lumeroom
