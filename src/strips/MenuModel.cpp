#include "strips/MenuModel.h"

#include <algorithm>

namespace lumeroom {

std::shared_ptr<MenuItemModel> MenuItemModel::separator()
{
    auto item = std::make_shared<MenuItemModel>(0, std::string());
    item->m_separator = true;
    return item;
}

bool MenuItemModel::standsFor(const MenuItemModel& other) const
{
    if (m_separator || other.m_separator || m_identity != other.m_identity)
        return false;
    return !m_identity.empty() || m_title == other.m_title;
}

void MenuItemModel::choose() const
{
    // What is chosen may fill the menu anew, and this entry goes with the old ones.
    if (const auto action = m_action)
        action();
    else if (m_target)
        m_target->handleControl(*this);
}

void MenuModel::removeAllItems()
{
    m_items.clear();
    m_listeners.tell();
}

void MenuModel::addItem(std::shared_ptr<MenuItemModel> item)
{
    insertItem(0, std::move(item));
}

void MenuModel::insertItem(std::size_t fromEnd, std::shared_ptr<MenuItemModel> item)
{
    m_items.insert(m_items.end() - static_cast<std::ptrdiff_t>(fromEnd), std::move(item));
    m_listeners.tell();
}

void MenuModel::addItem(const std::string& title, std::function<void()> action)
{
    auto item = std::make_shared<MenuItemModel>(0, title);
    item->setAction(std::move(action));
    addItem(std::move(item));
}

void MenuModel::addSeparator()
{
    addItem(MenuItemModel::separator());
}

std::shared_ptr<MenuItemModel> MenuModel::itemWithTitle(std::string_view title) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
        [title](const auto& item) { return !item->isSeparator() && item->title() == title; });
    return found == m_items.end() ? nullptr : *found;
}

void MenuModel::choose(const std::shared_ptr<MenuItemModel>& item) const
{
    auto meant = std::find(m_items.begin(), m_items.end(), item);
    if (meant == m_items.end()) {
        meant = std::find_if(m_items.begin(), m_items.end(),
            [&](const auto& present) { return present->standsFor(*item); });
    }
    if (meant != m_items.end())
        (*meant)->choose();
}

} // namespace lumeroom
