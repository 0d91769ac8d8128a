#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <array>
#include <functional>
#include <string>
#include <utility>

#include "desktop/DimWindow.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/support/slow_drawing.h"

// A key that is held is released once, whatever takes the keyboard meanwhile.

namespace quillon {
namespace {

using slow::rolled;

class HeldKeys : public OpenedWindow {
protected:
    void SetUp() override {
        OpenedWindow::SetUp();
        for (Integer id = 1; id <= 6; ++id)
            before[at(id)] = form().lab.panel(id).shown();
    }
    // Keys as the window system sends them: to the window, whichever widget of
    // the program then gets them.
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyPress(window().windowHandle(), key, modifiers);
        settle();
    }
    void releaseKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyRelease(window().windowHandle(), key, modifiers);
        settle();
    }
    void altDown() { pressKey(Qt::Key_Alt, Qt::AltModifier); }
    void altUp() { releaseKey(Qt::Key_Alt); }
    void moveOver(const char* name, int x, int y, Qt::KeyboardModifiers modifiers) {
        move(panel(name), pixel(panel(name), x, y), modifiers);
    }
    /// Alt down and the pointer over the upper spectrum: profile, patch and line.
    void showProfile() {
        altDown();
        // The toolkit drops a move that leads nowhere.
        moveOver("pb2", 50, 80, Qt::AltModifier);
        moveOver("pb2", 60, 90, Qt::AltModifier);
        ASSERT_EQ(changed(), "13");
        ASSERT_TRUE(form().Line1(0).Visible);
    }
    /// The numbers of the panels that show something else than at the start.
    std::string changed() {
        std::string found;
        for (Integer id = 1; id <= 6; ++id)
            if (form().lab.panel(id).shown() != before[at(id)])
                found += std::to_string(id);
        return found;
    }
    void expectNoProfile(const char* when) {
        EXPECT_EQ(changed(), "") << when;
        EXPECT_FALSE(form().Line1(0).Visible) << when;
        EXPECT_FALSE(form().Line1(1).Visible) << when;
    }
    /// Leaves a mark that every release of Alt paints over.
    void markReconstruction() { form().pb3.Box(10, 10, 30, 30, kRed, BoxStyle::Filled); }
    bool reconstructionIsMarked() { return form().pb3.shown().at(20, 20) == toPixelWord(kRed); }
    /// Calls `act` while a menu is open the next time. What is held is released
    /// first, and that lets events run.
    void whenOpen(const char* title, std::function<void()> act) {
        QMenu* opened = &menu(title);
        const auto look = [this, opened, act = std::move(act)] {
            EXPECT_EQ(QApplication::activePopupWidget(), opened);
            act();
            opened->close();
            seen = true;
        };
        QObject::connect(
            opened, &QMenu::aboutToShow, opened,
            [opened, look] { QTimer::singleShot(0, opened, look); }, Qt::SingleShotConnection);
    }
    void closeMenus() {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        QTest::keyClick(&bar(), Qt::Key_Escape);
        settle();
    }
    static std::size_t at(Integer id) { return static_cast<std::size_t>(id - 1); }

    std::array<Bitmap, 6> before;
    /// The menu that was waited for has been open.
    bool seen = false;
};

TEST_F(HeldKeys, AltAndALetterLeaveNoProfileAndEnterTransformsTheTrueImage) {
    for (const Qt::Key letter : {Qt::Key_S, Qt::Key_O, Qt::Key_H}) {
        SCOPED_TRACE(static_cast<char>(letter));
        showProfile();
        pressKey(letter, Qt::AltModifier);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        expectNoProfile("as soon as the menu is open");
        releaseKey(letter, Qt::AltModifier);
        altUp();
        QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        settle();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        expectNoProfile("after the menu");
        closeMenus();
        form().pb3.Tag = "3D";
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        settle();
        EXPECT_EQ(form().pb3.Tag, "!") << "Enter is the lab's again";
        expectNoProfile("after Enter");
    }
}

TEST_F(HeldKeys, AMenuBehindItsLetterGetsTheReleaseAndTheWindowNoSecondOne) {
    showProfile();
    pressKey(Qt::Key_O, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    expectNoProfile("the menu is open");
    markReconstruction();
    releaseKey(Qt::Key_O, Qt::AltModifier);
    altUp();
    EXPECT_TRUE(reconstructionIsMarked());
    closeMenus();
    EXPECT_TRUE(reconstructionIsMarked()) << "a second release would have painted it over";
}

TEST_F(HeldKeys, APanelsMenuReleasesThemBeforeItOpens) {
    showProfile();
    whenOpen("mnuFT1", [this] { expectNoProfile("the panel's menu is open"); });
    press(panel("pb2"), pixel(panel("pb2"), 60, 90), Qt::RightButton, Qt::AltModifier);
    release(panel("pb2"), pixel(panel("pb2"), 60, 90), Qt::RightButton, Qt::AltModifier);
    settle();
    EXPECT_TRUE(seen);
    markReconstruction();
    altUp();
    EXPECT_TRUE(reconstructionIsMarked()) << "the release has been delivered already";
}

TEST_F(HeldKeys, APanelsMenuEndsARollByKeysBeforeItOpens) {
    pressKey(Qt::Key_Right, Qt::ShiftModifier);
    ASSERT_EQ(form().pendingShiftPanel, 1);
    whenOpen("mnuImg2", [this] {
        EXPECT_EQ(form().pendingShiftPanel, 0);
        EXPECT_EQ(form().pb1.Picture(), rolled(before[0], 1, 0));
    });
    press(panel("pb4"), pixel(panel("pb4"), 60, 90), Qt::RightButton, Qt::ShiftModifier);
    release(panel("pb4"), pixel(panel("pb4"), 60, 90), Qt::RightButton, Qt::ShiftModifier);
    settle();
    EXPECT_TRUE(seen);
    releaseKey(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(form().pb1.Image(), rolled(before[0], 1, 0));
}

TEST_F(HeldKeys, TheMiniMenuOfTheDarkTakesTheProfileOffBeforeItOpens) {
    window().setDarkMeans(DarkMeans::PaintedChild);
    click(widget("imgDIM"));
    while (form().dim.fadeAlpha < 255)
        form().dim.Timer1_Timer();
    settle();
    for (Integer id = 1; id <= 6; ++id)
        before[at(id)] = form().lab.panel(id).shown();
    moveOver("pb2", 60, 90, Qt::AltModifier);
    ASSERT_EQ(changed(), "13");
    QWidget& options = widget("lb(1)");
    whenOpen("mnuOpt", [this] { expectNoProfile("the mini menu's menu is open"); });
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, Qt::AltModifier,
                      options.mapTo(&window(), options.rect().center()));
    settle();
    EXPECT_TRUE(seen);
}

TEST_F(HeldKeys, TheReleaseArrivesWhicheverWidgetHasTheKeyboard) {
    QDialog dialog;
    QMenu menu;
    QLabel other;
    for (QWidget* keeper : {static_cast<QWidget*>(&dialog), static_cast<QWidget*>(&menu),
                            static_cast<QWidget*>(&other)}) {
        showProfile();
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QApplication::sendEvent(keeper, &up);
        settle();
        expectNoProfile(keeper->metaObject()->className());
    }
}

TEST_F(HeldKeys, TheReleaseArrivesWhileThePageHasTheKeyboard) {
    form().Click(form().lbTAB(1));
    settle();
    widget("ie5").setFocus();
    altDown();
    ASSERT_TRUE(form().Line1(0).Visible);
    altUp();
    expectNoProfile("after the release over the page");
}

TEST_F(HeldKeys, ADialogTakesTheProfileOff) {
    showProfile();
    QDialog dialog(&window());
    dialog.open();
    settle();
    expectNoProfile("a dialog is open");
    markReconstruction();
    QTest::keyRelease(dialog.windowHandle(), Qt::Key_Alt);
    dialog.close();
    settle();
    EXPECT_TRUE(reconstructionIsMarked()) << "released once";
}

TEST_F(HeldKeys, AltThatIsHeldBeyondItsMenuShowsTheProfileAgainAndItsReleaseTakesItOff) {
    showProfile();
    pressKey(Qt::Key_S, Qt::AltModifier);
    releaseKey(Qt::Key_S, Qt::AltModifier);
    closeMenus();
    moveOver("pb5", 100, 40, Qt::AltModifier);
    EXPECT_EQ(changed(), "46");
    altUp();
    expectNoProfile("after Alt");
}

TEST_F(HeldKeys, AProfileWhoseAltWasReleasedElsewhereGoesWithTheNextMoveKeyOrPress) {
    const auto strayProfile = [this] {
        // No press of the key: another program has the keyboard.
        moveOver("pb2", 50, 80, Qt::AltModifier);
        moveOver("pb2", 60, 90, Qt::AltModifier);
        ASSERT_EQ(changed(), "13");
    };
    strayProfile();
    moveOver("pb1", 10, 10, {});
    expectNoProfile("a move without Alt");
    strayProfile();
    QTest::keyClick(window().windowHandle(), Qt::Key_Return);
    settle();
    expectNoProfile("Enter has transformed the true image");
    strayProfile();
    whenOpen("mnuFile", [this] { expectNoProfile("a press on the menu bar"); });
    QTest::mouseClick(&bar(), Qt::LeftButton, {},
                      bar().actionGeometry(menu("mnuFile").menuAction()).center());
    settle();
    EXPECT_TRUE(seen);
}

TEST_F(HeldKeys, TheDarkReleasesThemAndHandsNoSecondReleaseOn) {
    for (const DarkMeans means :
         {DarkMeans::WindowOpacity, DarkMeans::PaintedScreen, DarkMeans::PaintedChild}) {
        window().setDarkMeans(means);
        showProfile();
        press(widget("imgDIM"), {5, 5}, Qt::LeftButton, Qt::AltModifier);
        release(widget("imgDIM"), {5, 5}, Qt::LeftButton, Qt::AltModifier);
        settle();
        ASSERT_EQ(form().Tag, "DIM");
        EXPECT_FALSE(form().Line1(0).Visible);
        EXPECT_FALSE(form().Line1(1).Visible);
        EXPECT_EQ(form().pb1.shown(), before[0]);
        markReconstruction();
        auto* dark = window().findChild<DimWindow*>();
        QTest::keyRelease(dark->window()->windowHandle(), Qt::Key_Alt);
        settle();
        EXPECT_TRUE(reconstructionIsMarked()) << static_cast<int>(means);
        form().dim.fadeAlpha = 0;
        form().dim.unload();
        // The deferred end of the dark, so that the next one is found alone.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        settle();
        form().lab.channel1.RedrawFT(0, 0);
    }
}

}  // namespace
}  // namespace quillon
