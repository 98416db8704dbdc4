#include "app/ui/MenuMirror.h"

#include "strips/MenuModel.h"

#include <QMenu>

namespace lumeroom {

// The model changes entry by entry: the menu follows once, after the last. Nor may it lose its
// entries while it is open, or while one of them is at work.
MenuMirror::MenuMirror(const MenuModel& model, QMenu& menu, RunLoop& runLoop, MenuReader reader)
    : m_model(model)
    , m_menu(menu)
    , m_runLoop(runLoop)
    , m_reader(reader)
    , m_fillSoon(runLoop,
          [this] {
              if (!m_menu.isVisible())
                  fill();
          })
    , m_subscription(model.listen([this] { m_fillSoon.request(); }))
{
    connect(&m_menu, &QMenu::aboutToHide, this, [this] { m_fillSoon.request(); });
    connect(&m_menu, &QMenu::aboutToShow, this, &MenuMirror::showStates);
    fill();
}

bool MenuMirror::Entry::canShow(const MenuItemModel& other) const
{
    return item->isSeparator() == other.isSeparator() && item->submenu() == other.submenu()
        && item->title() == other.title() && item->identity() == other.identity();
}

// What is the same from the top stays: over the bus a menu may be open without a word of it here,
// and what the user chooses from it must still be there.
void MenuMirror::fill()
{
    const auto& items = m_model.items();
    std::size_t kept = 0;
    for (; kept < m_entries.size() && kept < items.size(); ++kept) {
        Entry& entry = m_entries[kept];
        if (!entry.canShow(*items[kept]))
            break;
        entry.item = items[kept];
        showMenuItem(*entry.action, borrowed(m_model), entry.item);
    }
    while (m_entries.size() > kept)
        removeLast();
    for (; kept < items.size(); ++kept)
        add(items[kept]);
    m_menu.menuAction()->setEnabled(!items.empty());
}

void MenuMirror::add(const MenuItem& item)
{
    QAction* action = addMenuEntry(m_menu, borrowed(m_model), item, m_reader);
    m_entries.push_back({action, item, nullptr});
    if (item->submenu())
        m_entries.back().below
            = std::make_unique<MenuMirror>(*item->submenu(), *action->menu(), m_runLoop, m_reader);
}

// It may be the one that is at work.
void MenuMirror::removeLast()
{
    Entry& last = m_entries.back();
    m_menu.removeAction(last.action);
    QObject* gone = last.item->submenu() ? static_cast<QObject*>(last.action->menu()) : last.action;
    gone->deleteLater();
    m_entries.pop_back();
}

void MenuMirror::showStates()
{
    for (const Entry& entry : m_entries)
        showMenuItemState(*entry.action, *entry.item);
}

} // namespace lumeroom
