#include "app/ui/MenuMirror.h"

#include "strips/MenuModel.h"
#include "strips/ui/Painting.h"

#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace lumeroom {

namespace {

/// A title as plain text: neither mnemonic nor shortcut may be read out of a lamp's name.
QString titleOf(const MenuItemModel& item)
{
    QString title = QString::fromStdString(item.title());
    title.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'&', QLatin1String("&&"));
    return title;
}

QIcon iconOf(const MenuImage& image)
{
    constexpr double kPixelsPerPoint = 2; // sharp on any screen
    const int side = static_cast<int>(image.side * kPixelsPerPoint);
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(qColor(image.oval));
    painter.drawEllipse(QRectF(0, 0, side, side));
    painter.end();
    picture.setDevicePixelRatio(kPixelsPerPoint);
    return QIcon(picture);
}

using Model = std::shared_ptr<const MenuModel>;

void mirror(QMenu& menu, const Model& model);

void addItem(QMenu& menu, const Model& model, const std::shared_ptr<MenuItemModel>& item)
{
    if (item->isSeparator()) {
        menu.addSeparator();
        return;
    }
    QAction* action = nullptr;
    if (const auto& submenu = item->submenu()) {
        auto* below = menu.addMenu(titleOf(*item));
        mirror(*below, submenu);
        action = below->menuAction();
        action->setEnabled(item->isEnabled() && !submenu->items().empty());
    } else {
        action = menu.addAction(titleOf(*item));
        action->setEnabled(item->isEnabled());
        // The model may have dropped the entry while the menu was open.
        QObject::connect(action, &QAction::triggered, &menu, [model, item] {
            const auto& items = model->items();
            if (std::find(items.begin(), items.end(), item) != items.end())
                item->choose();
        });
    }
    action->setVisible(!item->isHidden());
    action->setToolTip(QString::fromStdString(item->toolTip()));
    if (item->hasImage()) {
        action->setIcon(iconOf(item->image()));
        action->setIconVisibleInMenu(true);
    }
}

void fill(QMenu& menu, const Model& model)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (const auto& item : model->items())
        addItem(menu, model, item);
}

void mirror(QMenu& menu, const Model& model)
{
    fill(menu, model);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, model] { fill(menu, model); });
}

} // namespace

void mirrorMenu(QMenu& menu, const MenuModel& model)
{
    mirror(menu, Model(Model(), &model)); // submenus are owned, this one is not
}

} // namespace lumeroom
