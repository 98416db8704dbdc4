#pragma once

#include "app/StripCollection.h"
#include "app/StripRecord.h"

#include <map>

namespace lumeroom {

class EngineRoom;
class LayoutManager;
class Navigation;
class PanelView;

/// Makes the strips of the panel, and keeps those that were there before for reuse: a strip that
/// comes back keeps its row.
class StripFactory {
public:
    struct Environment {
        StripSurroundings surroundings;
        EngineRoom& engineRoom;
        PanelView& panel;
        const LayoutManager& layoutManager;
        Navigation& navigation;
    };
    explicit StripFactory(const Environment& environment);

    /// A strip in use that shows what the record says, with its row in the panel.
    std::shared_ptr<LampControlStrip> makeControlStripForLamp(
        const StripRecord& record, StripType type);
    /// What a lamp that turns out to have zones shows of them.
    void showZones(LampControlStrip& strip, std::size_t zones) const;
    /// Where the button of a group leads.
    void showLampCount(LampControlStrip& strip) const;

    void recycleStrip(const std::shared_ptr<LampControlStrip>& strip);
    void forgetRecycled() { m_recycler.clear(); }
    /// Of what the engine has forgotten.
    void forgetUnknown();

private:
    std::shared_ptr<LampControlStrip> recycledStripForID(const std::string& id, StripType type);
    void setUpBadge(LampControlStrip& strip) const;
    void setUpNavigationButton(LampControlStrip& strip) const;

    Environment m_environment;
    std::map<StripTarget, std::shared_ptr<LampControlStrip>> m_recycler;
};

} // namespace lumeroom
