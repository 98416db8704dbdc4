#include "desktop/Menus.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>

namespace lumeroom {

namespace {

void showAbout(QWidget* parent)
{
    QMessageBox::about(parent, QObject::tr("About Lumeroom"),
        QObject::tr("<h3>Lumeroom %1</h3><p>Controls LIFX smart lamps straight over the local "
                    "network: no hub, no cloud.</p><p>Free software under the MIT licence.</p>")
            .arg(QApplication::applicationVersion()));
}

} // namespace

void addMenus(QMainWindow& window, const MenuActions& actions)
{
    const auto add = [](QMenu* menu, const QString& title, const QKeySequence& keys, auto action) {
        QAction* item = menu->addAction(title);
        item->setShortcut(keys);
        item->setShortcutContext(Qt::ApplicationShortcut);
        QObject::connect(item, &QAction::triggered, menu, action);
    };
    QMenuBar* bar = window.menuBar();
    QMenu* file = bar->addMenu(QObject::tr("&File"));
    add(file, QObject::tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), actions.quit);
    QMenu* lamps = bar->addMenu(QObject::tr("&Lamps"));
    add(lamps, QObject::tr("All &on"), QKeySequence(QStringLiteral("Ctrl+Shift+O")), actions.allOn);
    add(lamps, QObject::tr("All o&ff"), QKeySequence(QStringLiteral("Ctrl+Shift+F")),
        actions.allOff);
    QMenu* windows = bar->addMenu(QObject::tr("&Window"));
    add(windows, QObject::tr("Show &manual control"), QKeySequence(QStringLiteral("Ctrl+1")),
        actions.showManualControl);
    add(windows, QObject::tr("&Console"), QKeySequence(QStringLiteral("Ctrl+2")),
        actions.showConsole);
    QMenu* help = bar->addMenu(QObject::tr("&Help"));
    add(help, QObject::tr("&About Lumeroom"), QKeySequence(), [&window] { showAbout(&window); });
}

} // namespace lumeroom
