#pragma once

#include "app/StripCollection.h"

namespace lumeroom {

/// The selection buttons of the strips on the panel, with which lamps are picked in place.
class StripSelection {
public:
    explicit StripSelection(const StripCollection& collection);

    void deselectAndShowAllLampSelectionButtons();
    void showAllLampSelectionButtons() { show(false); }
    void deselectAndShowAllGroupSelectionButtons();
    /// Selects just these, and shows the buttons of all strips but the groups.
    void setSelectedLampStripsAndShow(const Strips& strips);
    /// What is selected stays so.
    void hideAllSelectionButtons();
    /// In the order of the panel, without groups.
    Strips getSelectedLampStrips() const;

    /// The one farthest to the right when buttons were last shown, or that of the strip made since;
    /// null if there is none.
    ButtonModel* rightmostSelectionButton() const;
    void setRightmostSelectionButtonOf(const std::shared_ptr<LampControlStrip>& strip);

private:
    void show(bool groups);

    const StripCollection& m_collection;
    std::weak_ptr<LampControlStrip> m_rightmost;
};

} // namespace lumeroom
