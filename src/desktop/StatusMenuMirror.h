#pragma once

#include "strips/MenuModel.h"

#include <QMenu>
#include <QTimer>

namespace lumeroom {

/// Shows a menu model, with its submenus, in the desktop's tray. The pictures are drawn anew each
/// time it opens.
class StatusMenuMirror : public QObject {
    Q_OBJECT

public:
    /// The model lasts longer than the mirror. Where the menu goes over the session bus, an
    /// underscore in a title would mark a key, and is doubled.
    StatusMenuMirror(MenuModel& model, QMenu& menu, bool overTheBus);
    ~StatusMenuMirror() override;

private:
    void fill();
    void add(const std::shared_ptr<MenuItemModel>& item);
    void drawImages();
    QString title(const std::string& text) const;

    MenuModel& m_model;
    QMenu& m_menu;
    bool m_overTheBus;
    QTimer m_fillSoon;
    std::vector<std::pair<QAction*, std::shared_ptr<MenuItemModel>>> m_pictured;
    std::vector<std::unique_ptr<QMenu>> m_submenus;
    std::vector<std::unique_ptr<StatusMenuMirror>> m_mirrors;
};

} // namespace lumeroom
