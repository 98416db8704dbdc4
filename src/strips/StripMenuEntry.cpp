#include "strips/StripMenuEntry.h"

#include "strips/StripControls.h"

#include <utility>

namespace lumeroom {

void StripMenuEntry::setItem(std::shared_ptr<MenuItemModel> item)
{
    release();
    m_item = std::move(item);
    if (!m_item)
        return;
    m_item->setTarget(&m_target);
    m_item->setImage([&controls = m_controls] {
        return menuImage(controls.onOffButton.state(), controls.colourWell.colour());
    });
    m_item->setCheck([&controls = m_controls] { return controls.onOffButton.state(); });
}

// The item is left without target, picture and check mark.
void StripMenuEntry::release()
{
    if (!m_item)
        return;
    m_item->setTarget(nullptr);
    m_item->setImage(nullptr);
    m_item->setCheck(nullptr);
    m_item.reset();
}

} // namespace lumeroom
