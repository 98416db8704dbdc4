#include "strips/LampSelectionView.h"

#include <algorithm>

namespace lumeroom {

std::vector<int> LampSelectionView::getSelectedIDs() const
{
    std::vector<int> ids;
    for (const auto& checkbox : m_checkboxes) {
        if (checkbox->state())
            ids.push_back(checkbox->tag());
    }
    return ids;
}

std::vector<int> LampSelectionView::deselectAll()
{
    for (const auto& checkbox : m_checkboxes)
        checkbox->setState(false);
    return {};
}

std::shared_ptr<ButtonModel> LampSelectionView::checkboxWithTag(int tag) const
{
    const auto found = std::find_if(m_checkboxes.begin(), m_checkboxes.end(),
        [tag](const auto& checkbox) { return checkbox->tag() == tag; });
    return found == m_checkboxes.end() ? nullptr : *found;
}

} // namespace lumeroom
