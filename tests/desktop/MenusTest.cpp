#include "desktop/Menus.h"
#include "app/ui/MenuMirror.h"
#include "desktop/MakerSite.h"
#include "desktop/Version.h"
#include "strips/MenuModel.h"

#include <QAction>
#include <QDesktopServices>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QUrl>

#include <gtest/gtest.h>

#include <set>

namespace lumeroom {

namespace {

/// The menu's entries as a reader sees them; "-" for a line between them.
QStringList texts(const QMenu& menu)
{
    QStringList list;
    for (const QAction* action : menu.actions()) {
        if (action->isVisible())
            list << (action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    return list;
}

QMenu* menuNamed(const QMainWindow& window, const QString& title)
{
    for (const QAction* action : window.menuBar()->actions()) {
        if (action->text() == title)
            return action->menu();
    }
    return nullptr;
}

} // namespace

TEST(MenuMirror, showsTheModelAsItIsWhenItOpens)
{
    MenuModel model;
    std::string chosen;
    model.addItem("A & B\tCtrl+Q", [&] { chosen = "A"; });
    model.addSeparator();
    auto more = std::make_shared<MenuItemModel>(0, "More");
    auto submenu = std::make_shared<MenuModel>();
    more->setSubmenu(submenu);
    more->setImage([] { return MenuImage{16, {1, 0, 0, 1}}; });
    model.addItem(more);
    auto hidden = std::make_shared<MenuItemModel>(0, "Hidden");
    hidden->setHidden(true);
    model.addItem(hidden);

    QMenu menu;
    mirrorMenu(menu, model);
    EXPECT_EQ(texts(menu), (QStringList{"A && B Ctrl+Q", "-", "More"}));
    EXPECT_FALSE(menu.actions()[2]->isEnabled()); // there is nothing in it yet
    EXPECT_EQ(menu.actions()[2]->icon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
    menu.actions()[0]->trigger();
    EXPECT_EQ(chosen, "A");

    submenu->addItem("Below", [&] { chosen = "Below"; });
    for (int i = 0; i < 3; ++i)
        emit menu.aboutToShow();
    ASSERT_TRUE(menu.actions()[2]->isEnabled());
    EXPECT_EQ(menu.findChildren<QMenu*>().size(), 1); // the old ones are gone
    menu.actions()[2]->menu()->actions()[0]->trigger();
    EXPECT_EQ(chosen, "Below");

    // An entry that the model has dropped since does nothing, nor does its submenu.
    QMenu* open = menu.actions()[2]->menu();
    model.removeAllItems();
    more.reset();
    submenu.reset();
    menu.actions()[0]->trigger();
    EXPECT_EQ(chosen, "Below");
    emit open->aboutToShow();
    EXPECT_EQ(texts(*open), QStringList{"Below"});
    emit menu.aboutToShow();
    EXPECT_TRUE(menu.isEmpty());
}

TEST(Menus, leaveOutWhatCannotBeDone)
{
    QMainWindow window;
    MenuActions actions;
    actions.quit = [] {};
    addMenus(window, actions);
    EXPECT_EQ(texts(*menuNamed(window, "&File")), QStringList({"-", "&Quit"}));
    for (const char* title : {"&View", "&Lamps", "&Groups"})
        EXPECT_FALSE(menuNamed(window, title)) << title;
    EXPECT_TRUE(menuNamed(window, "&Help"));
}

struct FullMenus : ::testing::Test {
    FullMenus()
    {
        const auto nothing = [] {};
        MenuActions actions;
        for (auto* member : {&actions.showSettings, &actions.quit, &actions.showConsole,
                 &actions.showExplorer, &actions.allOn, &actions.allOff, &actions.showManualControl,
                 &actions.visitHelp, &actions.visitLumeroomHome})
            *member = nothing;
        actions.switchTheme = [this](int number) { themes.push_back(theme = number); };
        actions.currentTheme = [this] { return theme; };
        for (auto* kind : {&actions.groups, &actions.locations, &actions.tags})
            *kind = {nothing, &model, &model};
        addMenus(window, actions);
    }
    QStringList ticked() const
    {
        QStringList list;
        for (const QAction* action : menuNamed(window, "&View")->actions()) {
            if (action->isChecked())
                list << action->text();
        }
        return list;
    }

    MenuModel model;
    int theme = 1;
    std::vector<int> themes;
    QMainWindow window;
};

TEST_F(FullMenus, tickTheLayoutThatIsShown)
{
    QMenu& view = *menuNamed(window, "&View");
    EXPECT_EQ(ticked(), QStringList{"&Rows"});
    view.actions()[3]->trigger();
    EXPECT_EQ(ticked(), QStringList{"&Slim rows"});
    view.actions()[3]->trigger(); // is shown already, and stays ticked
    EXPECT_EQ(ticked(), QStringList{"&Slim rows"});
    EXPECT_EQ(themes, std::vector{3});
    theme = 0;
    emit view.aboutToShow();
    EXPECT_EQ(ticked(), QStringList{"&Upright"});
    theme = 17;
    emit view.aboutToShow();
    EXPECT_EQ(ticked(), QStringList{});
}

TEST_F(FullMenus, offerTheGroupsThatExist)
{
    QMenu& groups = *menuNamed(window, "&Groups");
    const QAction* edit = groups.actions()[1];
    EXPECT_FALSE(edit->isEnabled());
    model.addItem("Study", [] {});
    emit groups.aboutToShow();
    EXPECT_TRUE(edit->isEnabled());
    emit edit->menu()->aboutToShow();
    EXPECT_EQ(texts(*edit->menu()), QStringList{"Study"});
}

TEST_F(FullMenus, haveMnemonicsAndShortcutsOfTheirOwn)
{
    std::set<QString> shortcuts;
    const auto check = [&](const QList<QAction*>& entries) {
        std::set<QChar> mnemonics;
        for (const QAction* entry : entries) {
            if (entry->isSeparator())
                continue;
            const qsizetype mark = entry->text().indexOf('&');
            ASSERT_GE(mark, 0) << entry->text().toStdString();
            EXPECT_TRUE(mnemonics.insert(entry->text()[mark + 1].toLower()).second)
                << entry->text().toStdString();
            if (!entry->shortcut().isEmpty()) {
                EXPECT_TRUE(shortcuts.insert(entry->shortcut().toString()).second)
                    << entry->text().toStdString();
            }
        }
    };
    check(window.menuBar()->actions());
    for (const QAction* entry : window.menuBar()->actions())
        check(entry->menu()->actions());
}

struct Browser : QObject {
    Q_OBJECT

public:
    QStringList visited;
public slots:
    void visit(const QUrl& url) { visited << url.toString(); }
};

TEST(MakerSite, opensTheMakersPages)
{
    Browser browser;
    QDesktopServices::setUrlHandler("https", &browser, "visit");
    visitHelp();
    visitLumeroomHome();
    QDesktopServices::unsetUrlHandler("https");
    EXPECT_EQ(browser.visited,
        (QStringList{"https://www.tanagerworks.com/mac/Lumeroom/manual/index.html",
            "https://www.tanagerworks.com/mac/Lumeroom/"}));
}

} // namespace lumeroom

#include "MenusTest.moc"
