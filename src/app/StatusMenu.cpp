#include "app/StatusMenu.h"

#include "base/DefaultsKeys.h"
#include "base/UserDefaults.h"
#include "engine/LampRegistry.h"

#include <fmt/format.h>

#include <algorithm>

namespace lumeroom {

StatusMenu::StatusMenu(const LampRegistry& registry, const UserDefaults& defaults, Actions actions)
    : m_registry(registry)
    , m_defaults(defaults)
    , m_actions(std::move(actions))
    , m_statusPeresetSubMenu(std::make_shared<MenuModel>("Presets"))
{
}

void StatusMenu::populatePresetPullDown()
{
    m_statusPeresetSubMenu->removeAllItems();
    m_statusPeresetSubMenu->addItem("Turn all on", m_actions.allOn);
    m_statusPeresetSubMenu->addItem("Turn all off", m_actions.allOff);
}

void StatusMenu::begin()
{
    m_statusMenu.removeAllItems();
    m_statusMenu.addItem("Show manual control", m_actions.showManualControl);
    m_statusMenu.addSeparator();
    auto presets = std::make_shared<MenuItemModel>(0, m_statusPeresetSubMenu->title());
    presets->setSubmenu(m_statusPeresetSubMenu);
    m_statusMenu.addItem(std::move(presets));
    m_statusMenu.addSeparator();
    m_statusMenu.addItem("Quit", [this] {
        if (quit)
            quit();
    });
}

void StatusMenu::addStrip(LampControlStrip& strip)
{
    constexpr std::size_t kWithoutStrips = 5;
    if (m_statusMenu.items().size() == kWithoutStrips)
        m_statusMenu.insertItem(1, MenuItemModel::separator()); // before Quit
    m_statusMenu.insertItem(2, entryFor(strip));
}

std::shared_ptr<MenuItemModel> StatusMenu::entryFor(LampControlStrip& strip)
{
    auto item
        = std::make_shared<MenuItemModel>(controltag::kStatusMenuItem, strip.label().shownText());
    item->setIdentity(fmt::format("{} {}", static_cast<int>(strip.type()), strip.getID()));
    strip.setStatusBarMenuItem(item);
    return item;
}

// An entry keeps its title: the views of the menu tell by it, too, what has stayed.
void StatusMenu::renameStrip(LampControlStrip& strip)
{
    const auto entry = strip.statusBarMenuItem();
    const auto items = m_statusMenu.items();
    if (!entry)
        return;
    m_statusMenu.removeAllItems();
    for (const auto& item : items) {
        m_statusMenu.addItem(item == entry ? entryFor(strip) : item);
    }
}

void StatusMenu::countLampsLit()
{
    const Lamps& lamps = m_registry.distinctLamps();
    m_lightsOn = static_cast<int>(std::count_if(lamps.begin(), lamps.end(),
        [](const auto& lamp) { return lamp->expectedPower().value_or(false); }));
}

void StatusMenu::updateDockIcon()
{
    countLampsLit();
    const bool badge = m_defaults.get(keys::kBadgeIcon) && m_lightsOn > 0;
    if (setBadgeLabel)
        setBadgeLabel(badge ? std::optional(m_lightsOn) : std::nullopt);
}

bool StatusMenu::applicationShouldHandleReopen()
{
    m_actions.showManualControl();
    return false;
}

} // namespace lumeroom
