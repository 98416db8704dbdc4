#include "desktop/StatusMenuMirror.h"

#include "strips/ui/Painting.h"

#include <QPainter>

namespace lumeroom {

namespace {

/// At twice its size as well, for dense displays.
QIcon iconOf(const MenuImage& image)
{
    QIcon icon;
    for (const int scale : {1, 2}) {
        const int side = static_cast<int>(image.side) * scale;
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::gray, scale));
        painter.setBrush(qColor(image.oval));
        const double inset = scale;
        painter.drawEllipse(QRectF(pixmap.rect()).adjusted(inset, inset, -inset, -inset));
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

StatusMenuMirror::StatusMenuMirror(MenuModel& model, QMenu& menu, bool overTheBus)
    : m_model(model)
    , m_menu(menu)
    , m_overTheBus(overTheBus)
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

void StatusMenuMirror::fill()
{
    m_pictured.clear();
    m_mirrors.clear();
    m_menu.clear();
    m_submenus.clear();
    for (const auto& item : m_model.items())
        add(item);
    drawImages();
}

void StatusMenuMirror::add(const std::shared_ptr<MenuItemModel>& item)
{
    if (item->isSeparator()) {
        m_menu.addSeparator();
        return;
    }
    if (const auto& submenu = item->submenu()) {
        m_submenus.push_back(std::make_unique<QMenu>(title(item->title())));
        m_mirrors.push_back(
            std::make_unique<StatusMenuMirror>(*submenu, *m_submenus.back(), m_overTheBus));
        m_menu.addMenu(m_submenus.back().get());
        return;
    }
    QAction* action = m_menu.addAction(title(item->title()));
    action->setEnabled(item->isEnabled());
    connect(action, &QAction::triggered, &m_menu, [item] { item->choose(); });
    if (item->hasImage()) {
        action->setIconVisibleInMenu(true);
        m_pictured.emplace_back(action, item);
    }
}

void StatusMenuMirror::drawImages()
{
    for (const auto& [action, item] : m_pictured)
        action->setIcon(iconOf(item->image()));
}

QString StatusMenuMirror::title(const std::string& text) const
{
    QString escaped = QString::fromStdString(text).replace(u'&', QStringLiteral("&&"));
    if (m_overTheBus)
        escaped.replace(u'_', QStringLiteral("__"));
    return escaped;
}

} // namespace lumeroom
