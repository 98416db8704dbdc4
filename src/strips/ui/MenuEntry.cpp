#include "strips/ui/MenuEntry.h"

#include "strips/MenuModel.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QMenu>
#include <QPainter>

namespace lumeroom {

QString menuTitle(const std::string& text, MenuReader reader)
{
    QString title = QString::fromStdString(text);
    title.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'&', QLatin1String("&&"));
    if (reader == MenuReader::SessionBus)
        title.replace(u'_', QLatin1String("__"));
    return title;
}

QIcon menuIcon(const MenuImage& image)
{
    QIcon icon;
    for (const int scale : {1, 2}) {
        const int side = static_cast<int>(image.side) * scale;
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::gray, scale)); // white shows on a light ground, black on a dark one
        painter.setBrush(qColor(image.oval));
        const double inset = scale;
        painter.drawEllipse(QRectF(picture.rect()).adjusted(inset, inset, -inset, -inset));
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

QAction* addMenuEntry(QMenu& menu, const Menu& model, const MenuItem& item, MenuReader reader)
{
    if (item->isSeparator())
        return menu.addSeparator();
    const QString title = menuTitle(item->title(), reader);
    QAction* action = item->submenu() ? menu.addMenu(title)->menuAction() : menu.addAction(title);
    showMenuItem(*action, model, item);
    return action;
}

void showMenuItemState(QAction& action, const MenuItemModel& item)
{
    if (item.hasImage()) {
        action.setIcon(menuIcon(item.image()));
        action.setIconVisibleInMenu(true);
    }
    action.setCheckable(item.hasCheck());
    action.setChecked(item.isChecked());
}

void showMenuItem(QAction& action, const Menu& model, const MenuItem& item)
{
    if (item->isSeparator())
        return;
    action.setVisible(!item->isHidden());
    action.setToolTip(plainToolTip(QString::fromStdString(item->toolTip())));
    showMenuItemState(action, *item);
    QObject::disconnect(&action, &QAction::triggered, &action, nullptr);
    if (!item->submenu()) { // else it depends on what there is in it
        action.setEnabled(item->isEnabled());
        QObject::connect(&action, &QAction::triggered, &action, [&action, model, item] {
            action.setChecked(item->isChecked()); // the model decides whether it changes
            model->choose(item);
        });
    }
}

Menu borrowed(const MenuModel& model)
{
    return {Menu(), &model};
}

} // namespace lumeroom
