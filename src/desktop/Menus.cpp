#include "desktop/Menus.h"

#include "app/Undo.h"
#include "app/ui/MenuMirror.h"
#include "app/ui/PanelLayouts.h"
#include "base/DefaultsKeys.h"
#include "desktop/Version.h"
#include "strips/MenuModel.h"
#include "strips/ui/MenuEntry.h"

#include <QActionGroup>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>

namespace lumeroom {

namespace {

void showAbout(QWidget* parent)
{
    QMessageBox::about(parent, QObject::tr("About Lumeroom"),
        QObject::tr("<h3>Lumeroom %1</h3><p>Controls LIFX smart lamps directly over the local "
                    "network: no hub, no cloud.</p><p>Free software under the MIT licence.</p>")
            .arg(QString::fromStdString(bundleVersionNumber())));
}

void add(QMenu& menu, const QString& title, const QKeySequence& keys, std::function<void()> action)
{
    if (!action)
        return;
    QAction* entry = menu.addAction(title);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(entry, &QAction::triggered, &menu, std::move(action));
}

/// A submenu that shows what there is to choose from.
void addChoices(QMenu& menu, const QString& title, const MenuModel* model, RunLoop& runLoop)
{
    if (!model)
        return;
    QMenu* choices = menu.addMenu(title);
    (new MenuMirror(*model, *choices, runLoop))->setParent(choices);
}

struct Choice {
    QString title;
    int value;
};

/// One of the entries is ticked, unless `current` gives the value of none.
void addExclusive(QMenu& menu, const std::vector<Choice>& choices, std::function<int()> current,
    std::function<void(int)> choose, const std::function<bool()>& canChoose = {})
{
    auto* group = new QActionGroup(&menu);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const Choice& choice : choices) {
        QAction* entry = group->addAction(choice.title);
        entry->setCheckable(true);
        entry->setData(choice.value);
        menu.addAction(entry);
    }
    const auto tickCurrent = [group, current = std::move(current), canChoose] {
        group->setEnabled(!canChoose || canChoose());
        for (QAction* entry : group->actions())
            entry->setChecked(current && entry->data().toInt() == current());
    };
    tickCurrent();
    QObject::connect(&menu, &QMenu::aboutToShow, group, tickCurrent);
    QObject::connect(group, &QActionGroup::triggered, &menu,
        [tickCurrent, choose = std::move(choose)](const QAction* entry) {
            choose(entry->data().toInt());
            tickCurrent();
        });
}

void addLayouts(QMenu& menu, const MenuActions& actions)
{
    if (!actions.switchTheme)
        return;
    std::vector<Choice> layouts;
    for (const PanelLayout& layout : panelLayouts())
        layouts.push_back({layout.title, layout.theme});
    addExclusive(menu, layouts, actions.currentTheme, actions.switchTheme, actions.canSwitchTheme);
    menu.addSeparator();
}

void addAppearance(QMenu& menu, const MenuActions& actions)
{
    if (!actions.setAppearance)
        return;
    addExclusive(*menu.addMenu(QObject::tr("&Appearance")),
        {{QObject::tr("&System"), keys::kAppearanceSystem},
            {QObject::tr("&Light"), keys::kAppearanceLight},
            {QObject::tr("&Dark"), keys::kAppearanceDark}},
        actions.appearance, actions.setAppearance);
    menu.addSeparator();
}

void addFile(QMenu& menu, const MenuActions& actions)
{
    // Not QKeySequence::Preferences, which few desktops give a key.
    add(menu, QObject::tr("&Settings..."), QKeySequence(QStringLiteral("Ctrl+,")),
        actions.showSettings);
    menu.addSeparator();
    add(menu, QObject::tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), actions.quit);
}

/// One step, which says what it would take back or make again.
void addUndo(QMenu& menu, Undo& undo)
{
    const auto addStep = [&](const QKeySequence& keys, void (Undo::*step)()) {
        QAction* entry = menu.addAction(QString());
        entry->setShortcut(keys);
        entry->setShortcutContext(Qt::WindowShortcut); // elsewhere the lamps are out of sight
        QObject::connect(entry, &QAction::triggered, &menu, [&undo, step] { (undo.*step)(); });
        return entry;
    };
    QAction* back = addStep(QKeySequence::Undo, &Undo::undo);
    QAction* again = addStep(QKeySequence::Redo, &Undo::redo);
    const auto show = [back, again, &undo] {
        back->setEnabled(undo.canUndo());
        back->setText(undo.canUndo() ? QObject::tr("&Undo %1").arg(menuTitle(undo.undoTitle()))
                                     : QObject::tr("&Undo"));
        again->setEnabled(undo.canRedo());
        again->setText(undo.canRedo() ? QObject::tr("&Redo %1").arg(menuTitle(undo.redoTitle()))
                                      : QObject::tr("&Redo"));
    };
    auto subscription = undo.listen(show);
    // The connection holds it, and goes with the menu.
    QObject::connect(&menu, &QObject::destroyed, [held = std::move(subscription)] {});
    show();
}

void addEdit(QMenu& menu, const MenuActions& actions)
{
    if (actions.undo)
        addUndo(menu, *actions.undo);
    menu.addSeparator();
    add(menu, QObject::tr("&Find a lamp"), QKeySequence::Find, actions.find);
}

void addView(QMenu& menu, const MenuActions& actions)
{
    addLayouts(menu, actions);
    addAppearance(menu, actions);
    add(menu, QObject::tr("&Console"), QKeySequence(QStringLiteral("Ctrl+2")), actions.showConsole);
    add(menu, QObject::tr("&Lamp data explorer"), QKeySequence(QStringLiteral("Ctrl+3")),
        actions.showExplorer);
}

void addLamps(QMenu& menu, const MenuActions& actions)
{
    add(menu, QObject::tr("All &on"), QKeySequence(QStringLiteral("Ctrl+Shift+O")), actions.allOn);
    add(menu, QObject::tr("All o&ff"), QKeySequence(QStringLiteral("Ctrl+Shift+F")),
        actions.allOff);
}

void addGroups(QMenu& menu, const MenuActions& actions, RunLoop& runLoop)
{
    add(menu, QObject::tr("Make g&roup..."), {}, actions.groups.make);
    addChoices(menu, QObject::tr("&Edit group"), actions.groups.edit, runLoop);
    addChoices(menu, QObject::tr("&Delete group"), actions.groups.remove, runLoop);
    menu.addSeparator();
    add(menu, QObject::tr("Make &location..."), {}, actions.locations.make);
    addChoices(menu, QObject::tr("Ed&it location"), actions.locations.edit, runLoop);
    addChoices(menu, QObject::tr("Dele&te location"), actions.locations.remove, runLoop);
    menu.addSeparator();
    add(menu, QObject::tr("&Make tag..."), {}, actions.tags.make);
    addChoices(menu, QObject::tr("Edit t&ag"), actions.tags.edit, runLoop);
    addChoices(menu, QObject::tr("Delete ta&g"), actions.tags.remove, runLoop);
}

void addWindow(QMenu& menu, const MenuActions& actions)
{
    add(menu, QObject::tr("Show &manual control"), QKeySequence(QStringLiteral("Ctrl+1")),
        actions.showManualControl);
    add(menu, QObject::tr("Mi&nimise"), QKeySequence(QStringLiteral("Ctrl+M")), [] {
        if (QWidget* window = QApplication::activeWindow())
            window->showMinimized();
    });
}

void addHelp(QMenu& menu, const MenuActions& actions, QWidget* window)
{
    add(menu, QObject::tr("Lumeroom &Help"), QKeySequence::HelpContents, actions.visitHelp);
    add(menu, QObject::tr("Lumeroom Home &Page"), {}, actions.visitLumeroomHome);
    menu.addSeparator();
    add(menu, QObject::tr("&About Lumeroom"), {}, [window] { showAbout(window); });
}

} // namespace

void addMenus(QMainWindow& window, const MenuActions& actions, RunLoop& runLoop)
{
    QMenuBar* bar = window.menuBar();
    const auto menu = [bar](const QString& title, const auto& fill) {
        auto* made = new QMenu(title, bar);
        fill(*made);
        if (!made->isEmpty())
            bar->addMenu(made);
    };
    menu(QObject::tr("&File"), [&](QMenu& m) { addFile(m, actions); });
    menu(QObject::tr("&Edit"), [&](QMenu& m) { addEdit(m, actions); });
    menu(QObject::tr("&View"), [&](QMenu& m) { addView(m, actions); });
    menu(QObject::tr("&Lamps"), [&](QMenu& m) { addLamps(m, actions); });
    menu(QObject::tr("&Groups"), [&](QMenu& m) { addGroups(m, actions, runLoop); });
    menu(QObject::tr("&Window"), [&](QMenu& m) { addWindow(m, actions); });
    menu(QObject::tr("&Help"), [&](QMenu& m) { addHelp(m, actions, &window); });
}

// A shortcut works through any widget in sight that has the entry, or the menu that it is in.
void putMenuBarAway(QMainWindow& window)
{
    window.addActions(window.menuBar()->actions());
    window.setContextMenuPolicy(Qt::ActionsContextMenu);
    window.menuBar()->hide();
}

} // namespace lumeroom
