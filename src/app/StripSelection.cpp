#include "app/StripSelection.h"

namespace lumeroom {

StripSelection::StripSelection(const StripCollection& collection)
    : m_collection(collection)
{
}

void StripSelection::deselectAndShowAllLampSelectionButtons()
{
    for (const auto& strip : m_collection.strips()) {
        if (!strip->isGroup())
            strip->setSelected(false);
    }
    show(false);
}

void StripSelection::deselectAndShowAllGroupSelectionButtons()
{
    for (const auto& strip : m_collection.strips()) {
        if (strip->isGroup())
            strip->setSelected(false);
    }
    show(true);
}

void StripSelection::setSelectedLampStripsAndShow(const Strips& strips)
{
    for (const auto& strip : m_collection.strips())
        strip->setSelected(false);
    for (const auto& strip : strips) {
        if (strip)
            strip->setSelected(true);
    }
    show(false);
}

void StripSelection::hideAllSelectionButtons()
{
    for (const auto& strip : m_collection.strips())
        strip->showSelectedButton(false);
}

Strips StripSelection::getSelectedLampStrips() const
{
    Strips selected;
    for (const auto& strip : m_collection.strips()) {
        if (!strip->isGroup() && strip->isSelected())
            selected.push_back(strip);
    }
    return selected;
}

ButtonModel* StripSelection::rightmostSelectionButton() const
{
    const auto strip = m_rightmost.lock();
    return strip ? &strip->getSelectedButton() : nullptr;
}

void StripSelection::setRightmostSelectionButtonOf(const std::shared_ptr<LampControlStrip>& strip)
{
    m_rightmost = strip;
}

// In one column all rows begin at 0, and none of them is farther right than that: the button that
// was the rightmost stays it.
void StripSelection::show(bool groups)
{
    float farthest = 0;
    for (const auto& strip : m_collection.strips()) {
        if (strip->isGroup() != groups)
            continue;
        strip->showSelectedButton(true);
        const auto* view = strip->getControlStripView();
        if (view && view->origin().x > farthest) {
            farthest = view->origin().x;
            m_rightmost = strip;
        }
    }
}

} // namespace lumeroom
