#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

class Menus : public OpenedWindow {};

TEST_F(Menus, TheBarHoldsItsTitlesInOrderWithThreeDisabledBarsBetween) {
    QStringList titles;
    for (const QAction* action : bar().actions()) {
        titles << action->text();
        EXPECT_EQ(action->isEnabled(), action->text() != QStringLiteral("|"));
    }
    EXPECT_EQ(titles.join(u' '), QStringLiteral("File | Image FT iFT | Image FT iFT | "
                                                "&Scripts &Options &Help"));
}

TEST_F(Menus, InTheTutorialNoBarPartsNothing) {
    const auto seen = [&] {
        QStringList titles;
        for (const QAction* action : bar().actions())
            if (action->isVisible())
                titles << action->text();
        return toBytes(titles.join(u' '));
    };
    click(widget("lbTAB(1)"));
    EXPECT_EQ(seen(), "File &Scripts &Options &Help");
    click(widget("lbTAB(0)"));
    EXPECT_EQ(seen(), "File | Image FT iFT | Image FT iFT | &Scripts &Options &Help");
}

TEST_F(Menus, EveryEntryOfTheTablesIsThereUnderItsName) {
    for (int i = 0; i < kMenuArrayCount; ++i) {
        const auto array = static_cast<MenuArray>(i);
        Integer index = 0;
        for (const MenuEntryRow& row : menuEntries(array)) {
            const std::string name = menuArrayName(array) + ("(" + std::to_string(index) + ")");
            const QAction& action = entry(name.c_str());
            const MenuItem& item = form().menu(array, index);
            EXPECT_EQ(action.isSeparator(), item.separator()) << name;
            EXPECT_EQ(action.text(), item.separator() ? QString() : toQString(row.caption)) << name;
            EXPECT_EQ(action.isVisible(), item.Visible.get()) << name;
            EXPECT_EQ(action.isChecked(), item.Checked.get()) << name;
            EXPECT_EQ(action.menu() != nullptr, row.submenu >= 0) << name;
            ++index;
        }
    }
}

TEST_F(Menus, MarksSightAndEnablingFollowTheEntryAtAllTimes) {
    MenuItem& item = form().menu(MenuArray::itmOpt, 1);
    item.Enabled = false;
    EXPECT_FALSE(entry("itmOpt(1)").isEnabled());
    item.Enabled = true;
    EXPECT_TRUE(entry("itmOpt(1)").isEnabled());
    form().menu(MenuArray::mnuFT1a, 7).Visible = true;
    EXPECT_TRUE(entry("mnuFT1a(7)").isVisible());
    form().menu(MenuArray::itmOpt, 7).Checked = true;
    EXPECT_TRUE(entry("itmOpt(7)").isChecked());
    form().menuTitle("mnuImg1").Visible = false;
    EXPECT_FALSE(menu("mnuImg1").menuAction()->isVisible());
}

TEST_F(Menus, AChoiceWithTheMouseRunsTheEntry) {
    ASSERT_TRUE(form().lab.autoCalculate);
    choose("mnuOpt", "itmOpt(4)");
    EXPECT_FALSE(form().lab.autoCalculate);
    EXPECT_FALSE(entry("itmOpt(4)").isChecked());
    choose("mnuOpt", "itmOpt(4)");
    EXPECT_TRUE(form().lab.autoCalculate);
    EXPECT_TRUE(entry("itmOpt(4)").isChecked());
}

TEST_F(Menus, AMarkThatAChoiceDoesNotChangeStaysWhatItWas) {
    // No Filter is marked already; the toolkit would turn its mark over.
    choose("mnuFT1", "mnuFT1a(9)");
    EXPECT_TRUE(form().menu(MenuArray::mnuFT1a, 9).Checked);
    EXPECT_TRUE(entry("mnuFT1a(9)").isChecked());
}

TEST_F(Menus, ChannelsHaveTheirOwnMenus) {
    choose("mnuFT2", "mnuFT2a(14)");
    EXPECT_TRUE(form().menu(MenuArray::mnuFT2a, 14).Checked);
    EXPECT_FALSE(form().menu(MenuArray::mnuFT1a, 14).Checked);
    EXPECT_TRUE(entry("mnuFT2a(14)").isChecked());
    EXPECT_FALSE(entry("mnuFT2a(15)").isChecked());
}

TEST_F(Menus, ASubMenuOpensBesideItsEntry) {
    whenPopup([this](QMenu& options) {
        whenPopup([this](QMenu& colors) {
            EXPECT_EQ(colors.objectName(), QStringLiteral("itmOpt0"));
            QTest::mouseClick(&colors, Qt::LeftButton, {},
                              colors.actionGeometry(&entry("itmOpt0(4)")).center());
        });
        // A key opens a sub-menu at once, the mouse after a while.
        options.setActiveAction(&entry("itmOpt(0)"));
        QTest::keyClick(&options, Qt::Key_Right);
        QCoreApplication::processEvents();
    });
    QTest::mouseClick(&bar(), Qt::LeftButton, {},
                      bar().actionGeometry(menu("mnuOpt").menuAction()).center());
    settle();
    EXPECT_EQ(form().guiColorIndex, 4);
    EXPECT_TRUE(entry("itmOpt0(4)").isChecked());
}

TEST_F(Menus, AltWithALetterOpensAMenuByItsAccessKey) {
    const std::pair<Qt::Key, const char*> pairs[] = {
        {Qt::Key_S, "mnuSCR"}, {Qt::Key_O, "mnuOpt"}, {Qt::Key_H, "mnu10"}};
    for (const auto& [key, title] : pairs) {
        QTest::keyClick(window().windowHandle(), key, Qt::AltModifier);
        settle();
        QWidget* opened = QApplication::activePopupWidget();
        ASSERT_NE(opened, nullptr) << title;
        EXPECT_EQ(opened->objectName(), QString::fromLatin1(title));
        QTest::keyClick(opened, Qt::Key_Escape);
        QTest::keyClick(&bar(), Qt::Key_Escape);
        settle();
    }
}

TEST_F(Menus, ARightPressOnAPanelPopsItsMenuUpAtThePointer) {
    const std::pair<const char*, const char*> pairs[] = {
        {"pb1", "mnuImg1"}, {"pb2", "mnuFT1"}, {"pb3", "mnuNew1"},
        {"pb4", "mnuImg2"}, {"pb5", "mnuFT2"}, {"pb6", "mnuNew2"},
    };
    for (const auto& [panelName, title] : pairs) {
        QString opened;
        whenPopup([&](QMenu& shown) { opened = shown.objectName(); });
        press(panel(panelName), {100, 100}, Qt::RightButton);
        release(panel(panelName), {100, 100}, Qt::RightButton);
        settle();
        EXPECT_EQ(opened, QString::fromLatin1(title)) << panelName;
    }
}

TEST_F(Menus, AChoiceFromAPopUpRunsTheSameEntry) {
    chooseOn("pb2", "mnuFT1a(10)");
    EXPECT_TRUE(form().menu(MenuArray::mnuFT1a, 10).Checked);
    EXPECT_TRUE(entry("mnuFT1a(10)").isChecked());
    EXPECT_TRUE(form().lab.channel1.bLowpass);
}

TEST_F(Menus, TheReleaseAfterAPressThatOpenedAMenuIsEaten) {
    form().click(MenuArray::mnuFT1a, 12);
    ASSERT_TRUE(form().lab.channel1.bMask);
    whenPopup([](QMenu&) {});
    press(panel("pb2"), {100, 100}, Qt::RightButton);
    release(panel("pb2"), {100, 100}, Qt::RightButton);
    settle();
    // A release on this panel adds two masks; this one belongs to the menu.
    EXPECT_EQ(form().lab.channel1.nmask, 0);
}

TEST_F(Menus, ARightPressWithAnotherButtonDownOpensNoMenu) {
    bool opened = false;
    press(panel("pb3"), {100, 100}, Qt::LeftButton);
    QTimer::singleShot(0, qApp, [&] { opened = QApplication::activePopupWidget() != nullptr; });
    press(panel("pb3"), {100, 100}, Qt::RightButton);
    settle();
    EXPECT_FALSE(opened);
    release(panel("pb3"), {100, 100}, Qt::RightButton);
    release(panel("pb3"), {100, 100}, Qt::LeftButton);
}

}  // namespace
}  // namespace quillon
