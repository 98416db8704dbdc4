#include "strips/ActionFilter.h"

namespace lumeroom {

namespace {
constexpr Seconds kInterval(0.1);
}

void ActionFilter::controlDidChange()
{
    if (isPending())
        return;
    m_timer = m_runLoop.after(kInterval, [this, firing = m_firing] {
        *firing = true;
        m_fireFilteredAction();
        *firing = false;
    });
}

} // namespace lumeroom
