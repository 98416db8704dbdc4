#include "app/ui/MenuMirror.h"

#include "strips/MenuModel.h"
#include "strips/ui/MenuEntry.h"

#include <QMenu>

namespace lumeroom {

namespace {

void mirror(QMenu& menu, const Menu& model);

void fill(QMenu& menu, const Menu& model)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (const auto& item : model->items()) {
        QAction* action = addMenuEntry(menu, model, item);
        if (const auto& submenu = item->submenu()) {
            mirror(*action->menu(), submenu);
            action->setEnabled(item->isEnabled() && !submenu->items().empty());
        }
    }
}

void mirror(QMenu& menu, const Menu& model)
{
    fill(menu, model);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, model] { fill(menu, model); });
}

} // namespace

void mirrorMenu(QMenu& menu, const MenuModel& model)
{
    mirror(menu, borrowed(model)); // submenus are owned, this one is not
}

} // namespace lumeroom
