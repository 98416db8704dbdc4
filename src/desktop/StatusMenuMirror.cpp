#include "desktop/StatusMenuMirror.h"

#include "strips/MenuModel.h"

namespace lumeroom {

StatusMenuMirror::StatusMenuMirror(MenuModel& model, QMenu& menu, MenuReader reader)
    : m_model(model)
    , m_menu(menu)
    , m_reader(reader)
{
    // The model changes entry by entry: the menu follows once, after the last. Nor may it lose its
    // entries while it is open, or while one of them is at work.
    m_fillSoon.setSingleShot(true);
    m_fillSoon.setInterval(0);
    connect(&m_fillSoon, &QTimer::timeout, this, [this] {
        if (!m_menu.isVisible())
            fill();
    });
    connect(&m_menu, &QMenu::aboutToHide, &m_fillSoon, qOverload<>(&QTimer::start));
    connect(&m_menu, &QMenu::aboutToShow, this, &StatusMenuMirror::drawImages);
    m_model.onChange = [this] { m_fillSoon.start(); };
    fill();
}

StatusMenuMirror::~StatusMenuMirror()
{
    m_model.onChange = nullptr;
}

bool StatusMenuMirror::Entry::canShow(const MenuItemModel& other) const
{
    return item->isSeparator() == other.isSeparator() && item->submenu() == other.submenu()
        && item->title() == other.title();
}

// What is the same from the top stays: over the bus a menu may be open without a word of it here,
// and what the user chooses from it must still be there.
void StatusMenuMirror::fill()
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
}

void StatusMenuMirror::add(const MenuItem& item)
{
    QAction* action = addMenuEntry(m_menu, borrowed(m_model), item, m_reader);
    m_entries.push_back({action, item, nullptr});
    if (item->submenu())
        m_entries.back().below
            = std::make_unique<StatusMenuMirror>(*item->submenu(), *action->menu(), m_reader);
}

// It may be the one that is at work.
void StatusMenuMirror::removeLast()
{
    Entry& last = m_entries.back();
    m_menu.removeAction(last.action);
    QObject* gone = last.item->submenu() ? static_cast<QObject*>(last.action->menu()) : last.action;
    gone->deleteLater();
    m_entries.pop_back();
}

void StatusMenuMirror::drawImages()
{
    for (const Entry& entry : m_entries) {
        if (entry.item->hasImage())
            entry.action->setIcon(menuIcon(entry.item->image()));
    }
}

} // namespace lumeroom
