#pragma once

#include "strips/Controls.h"

#include <memory>
#include <vector>

namespace lumeroom {

/// Check boxes that stand for lamps by their tags.
class LampSelectionView {
public:
    void addCheckbox(std::shared_ptr<ButtonModel> checkbox)
    {
        m_checkboxes.push_back(std::move(checkbox));
    }
    /// The tags of those that are checked, in their order on the view.
    std::vector<int> getSelectedIDs() const;
    /// What is selected then: nothing.
    std::vector<int> deselectAll();
    /// The first with this tag, or none.
    std::shared_ptr<ButtonModel> checkboxWithTag(int tag) const;

private:
    std::vector<std::shared_ptr<ButtonModel>> m_checkboxes;
};

} // namespace lumeroom
