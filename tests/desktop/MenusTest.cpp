#include "desktop/Menus.h"
#include "app/ui/MenuMirror.h"
#include "strips/MenuModel.h"
#include "support/ManualRunLoop.h"
#include "support/QtTestInput.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

namespace lumeroom {

namespace {

using Names = std::vector<std::string>;

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

struct MirroredMenu : ::testing::Test {
    /// Anew, as the program fills its menus: what is chosen from it leaves its title and the round.
    void fill(const std::string& round, const Names& titles)
    {
        model.removeAllItems();
        for (const std::string& title : titles)
            model.addItem(title, [this, title, round] { chosen.push_back(title + round); });
        auto presets = std::make_shared<MenuItemModel>(0, "Presets");
        presets->setSubmenu(submenu);
        presets->setCheck([this] { return picture > 0; });
        presets->setImage([this] { return MenuImage{16, {picture, 0, 0, 1}}; });
        model.addItem(presets);
    }
    QStringList shown()
    {
        loop.runPosted();
        return texts(menu);
    }

    ManualRunLoop loop;
    MenuModel model;
    const std::shared_ptr<MenuModel> submenu = std::make_shared<MenuModel>();
    float picture = 0;
    Names chosen;
    QMenu menu;
    MenuMirror mirror{model, menu, loop, MenuReader::SessionBus};
};

TEST_F(MirroredMenu, keepsWhatStaysWhileTheTrayHasItOpen)
{
    QMenu elsewhere;
    const MenuMirror another(model, elsewhere, loop);
    fill("1", {"Lamp", "Lamp", "Desk_1", "A & B\tCtrl+Q"});
    EXPECT_EQ(shown(), (QStringList{"Lamp", "Lamp", "Desk__1", "A && B Ctrl+Q", "Presets"}));
    EXPECT_EQ(texts(elsewhere)[2], "Desk_1");
    const auto before = menu.actions();

    // A strip that comes back has a new entry: one that shows already chooses it, at any time.
    fill("2", {"Lamp", "Lamp", "Shelf"});
    before[0]->trigger();
    before[2]->trigger(); // is gone
    EXPECT_EQ(shown(), (QStringList{"Lamp", "Lamp", "Shelf", "Presets"}));
    EXPECT_EQ(menu.actions()[0], before[0]);
    EXPECT_EQ(menu.actions()[1], before[1]);
    before[1]->trigger(); // of two with one title, the one in this place
    menu.actions()[2]->trigger();
    EXPECT_EQ(chosen, (Names{"Lamp2", "Lamp2", "Shelf2"}));
    model.removeAllItems();
    EXPECT_EQ(shown(), QStringList{});
    EXPECT_FALSE(menu.menuAction()->isEnabled());
}

TEST_F(MirroredMenu, followsOnceItIsClosedAndDrawsPicturesAnew)
{
    fill("1", {"Lamp"});
    const auto hidden = std::make_shared<MenuItemModel>(0, "Hidden");
    hidden->setHidden(true);
    model.addItem(hidden);
    ASSERT_EQ(shown(), (QStringList{"Lamp", "Presets"}));
    QAction& presets = *menu.actions()[1];
    EXPECT_FALSE(presets.isEnabled()); // there is nothing in it yet
    submenu->addItem("Evening", [this] { chosen = {"Evening"}; });
    loop.runPosted();
    ASSERT_TRUE(presets.isEnabled());
    presets.menu()->actions()[0]->trigger();
    EXPECT_EQ(chosen, Names{"Evening"});

    picture = 1;
    menu.popup(QPoint());
    EXPECT_TRUE(presets.isChecked());
    EXPECT_EQ(presets.icon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
    fill("2", {"Desk"});
    EXPECT_EQ(shown(), (QStringList{"Lamp", "Presets"}));
    menu.close();
    EXPECT_EQ(shown(), (QStringList{"Desk", "Presets"}));
}

struct FullMenus : ::testing::Test {
    FullMenus()
    {
        MenuActions actions;
        actions.switchTheme = [this](int number) { themes.push_back(theme = number); };
        actions.currentTheme = [this] { return theme; };
        actions.canSwitchTheme = [this] { return canSwitch; };
        actions.setAppearance = [this](int value) { appearance = value; };
        actions.appearance = [this] { return appearance; };
        actions.quit = [this] { ++quits; };
        actions.groups = {[] {}, &model, &model};
        addMenus(window, actions, loop);
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

    ManualRunLoop loop;
    MenuModel model;
    int quits = 0;
    int theme = 1;
    bool canSwitch = true;
    int appearance = 0;
    std::vector<int> themes;
    QMainWindow window;
};

TEST_F(FullMenus, followTheLayoutAndTheGroupsThatExist)
{
    QMenu& view = *menuNamed(window, "&View");
    EXPECT_EQ(ticked(), QStringList{"&Rows"});
    view.actions()[3]->trigger();
    view.actions()[3]->trigger(); // is shown already, and stays ticked
    EXPECT_EQ(ticked(), QStringList{"&Slim rows"});
    EXPECT_EQ(themes, (std::vector{3, 3})); // but is asked for again
    theme = 0;
    emit view.aboutToShow();
    EXPECT_EQ(ticked(), QStringList{"&Upright strips"});
    canSwitch = false;
    emit view.aboutToShow();
    EXPECT_FALSE(view.actions()[2]->isEnabled());

    const QMenu& appearances = *view.actions()[5]->menu();
    EXPECT_EQ(texts(appearances), (QStringList{"&System", "&Light", "&Dark"}));
    EXPECT_TRUE(appearances.actions()[0]->isChecked());
    appearances.actions()[2]->trigger();
    EXPECT_EQ(appearance, 2);
    EXPECT_FALSE(appearances.actions()[0]->isChecked());

    const QMenu& groups = *menuNamed(window, "&Groups");
    const QAction* edit = groups.actions()[1];
    EXPECT_FALSE(edit->isEnabled());
    model.addItem("Study", [] {});
    loop.runPosted();
    EXPECT_TRUE(edit->isEnabled());
    EXPECT_EQ(texts(*edit->menu()), QStringList{"Study"});
    EXPECT_EQ(texts(*groups.actions()[2]->menu()), QStringList{"Study"}); // shown twice
}

TEST_F(FullMenus, workWithoutTheBar)
{
    putMenuBarAway(window);
    window.show();
    window.activateWindow();
    EXPECT_FALSE(window.menuBar()->isVisible());
    EXPECT_TRUE(test::workUntil([&] { return window.isActiveWindow(); }));
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits, 1);
}

} // namespace lumeroom
