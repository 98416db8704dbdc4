#include "strips/StripEmbargo.h"

namespace lumeroom {

namespace {

constexpr Seconds kEmbargo(5.0);
constexpr Seconds kFirstLook(5.1);
constexpr Seconds kNextLook(2.0);

} // namespace

void StripEmbargo::imposeTemporaryEmbargo()
{
    m_until = m_runLoop.elapsed() + kEmbargo;
    if (m_set)
        return;
    m_set = true;
    m_timer = m_runLoop.after(kFirstLook, [this] { removeEmbargo(); });
}

// A strip that has gone out of use meanwhile set the flag too, to silence its controls. It may be
// lifted all the same: without an engine the controls do nothing, and nobody reports to the strip.
void StripEmbargo::removeEmbargo()
{
    if (m_runLoop.elapsed() <= m_until) {
        m_timer = m_runLoop.after(kNextLook, [this] { removeEmbargo(); });
        return;
    }
    m_set = false;
    m_lifted();
}

} // namespace lumeroom
