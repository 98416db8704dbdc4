#include "strips/ActionFilter.h"

namespace lumeroom {

namespace {
constexpr Seconds kInterval(0.1);
}

void ActionFilter::controlDidChange()
{
    if (m_timer.isPending())
        return;
    m_timer = m_runLoop.after(kInterval, [this] { m_fireFilteredAction(); });
}

} // namespace lumeroom
