#include "engine/PollingEmbargo.h"

namespace lumeroom {

namespace {
constexpr Seconds kEmbargo(15.0);
}

void PollingEmbargo::imposeTemporaryEmbargo()
{
    m_set = true;
    std::erase_if(m_lifts, [](const Timer& timer) { return !timer.isPending(); });
    m_lifts.push_back(m_runLoop.after(kEmbargo, [this] { liftEmbargoOnGroupsAndLocations(); }));
}

} // namespace lumeroom
