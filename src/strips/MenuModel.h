#pragma once

#include "strips/ControlPainting.h"
#include "strips/Controls.h"

#include <memory>
#include <vector>

namespace lumeroom {

class MenuModel;

/// An entry of a menu. Its picture and its check mark are asked for each time the menu shows.
class MenuItemModel : public ControlModel {
public:
    MenuItemModel(int tag, std::string title)
        : ControlModel(tag)
        , m_title(std::move(title))
    {
    }
    const std::string& title() const { return m_title; }
    /// A number that goes with the entry; wider than a control's tag.
    std::int64_t representedTag() const { return m_representedTag; }
    void setRepresentedTag(std::int64_t tag) { m_representedTag = tag; }
    /// What the entry stands for, where it is more than its title; titles may be alike.
    const std::string& identity() const { return m_identity; }
    void setIdentity(std::string identity) { m_identity = std::move(identity); }
    /// Whether this is the other entry, made anew.
    bool standsFor(const MenuItemModel& other) const;
    bool isSeparator() const { return m_separator; }
    static std::shared_ptr<MenuItemModel> separator();

    void setTarget(ControlTarget* target) { m_target = target; }
    /// In place of a target.
    void setAction(std::function<void()> action) { m_action = std::move(action); }
    void setSubmenu(std::shared_ptr<MenuModel> menu) { m_submenu = std::move(menu); }
    const std::shared_ptr<MenuModel>& submenu() const { return m_submenu; }
    void setImage(std::function<MenuImage()> image) { m_image = std::move(image); }
    /// Empty for an entry without one.
    bool hasImage() const { return static_cast<bool>(m_image); }
    MenuImage image() const { return m_image ? m_image() : MenuImage(); }
    void setCheck(std::function<bool()> check) { m_check = std::move(check); }
    /// Whether there is a place for a check mark.
    bool hasCheck() const { return static_cast<bool>(m_check); }
    bool isChecked() const { return m_check && m_check(); }

    /// The user chose it.
    void choose() const;

private:
    std::string m_title;
    std::string m_identity;
    std::int64_t m_representedTag = 0;
    bool m_separator = false;
    ControlTarget* m_target = nullptr;
    std::function<void()> m_action;
    std::shared_ptr<MenuModel> m_submenu;
    std::function<MenuImage()> m_image;
    std::function<bool()> m_check;
};

/// A menu as a plain list that a view mirrors.
class MenuModel {
public:
    explicit MenuModel(std::string title = {})
        : m_title(std::move(title))
    {
    }
    MenuModel(const MenuModel&) = delete;
    MenuModel& operator=(const MenuModel&) = delete;

    const std::string& title() const { return m_title; }
    const std::vector<std::shared_ptr<MenuItemModel>>& items() const { return m_items; }
    void removeAllItems();
    void addItem(std::shared_ptr<MenuItemModel> item);
    /// In front of so many from the end.
    void insertItem(std::size_t fromEnd, std::shared_ptr<MenuItemModel> item);
    void addItem(const std::string& title, std::function<void()> action);
    void addSeparator();
    /// The first with this title; null if there is none.
    std::shared_ptr<MenuItemModel> itemWithTitle(std::string_view title) const;
    /// The user chose this entry in a view of the menu. Where the menu has been filled anew since
    /// the view showed it, the entry that stands for the same is meant; without one nothing
    /// happens.
    void choose(const std::shared_ptr<MenuItemModel>& item) const;

    /// Each entry that comes is a change, and so is the going of all.
    [[nodiscard]] Subscription listen(std::function<void()> changed) const
    {
        return m_listeners.add(std::move(changed));
    }

private:
    std::string m_title;
    std::vector<std::shared_ptr<MenuItemModel>> m_items;
    mutable Listeners m_listeners; ///< looking on does not change a menu
};

} // namespace lumeroom
