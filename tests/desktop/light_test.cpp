#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <vector>

#include "desktop/Conversions.h"
#include "desktop/DarkMeans.h"
#include "desktop/DimWindow.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

TEST(DarkMeans, AreTheWindowsOwnOpacityOnlyWhereMaskAndOpacityBothWork) {
    using enum Compositor;
    EXPECT_EQ(darkMeansOf(QStringLiteral("windows"), None), DarkMeans::WindowOpacity);
    EXPECT_EQ(darkMeansOf(QStringLiteral("xcb"), Running), DarkMeans::WindowOpacity);
    EXPECT_EQ(darkMeansOf(QStringLiteral("xcb"), None), DarkMeans::PaintedScreen);
    for (const char* platform : {"wayland", "wayland-egl", "offscreen", "cocoa", ""})
        for (const Compositor compositor : {Running, None})
            EXPECT_EQ(darkMeansOf(QString::fromLatin1(platform), compositor),
                      DarkMeans::PaintedChild)
                << platform;
}

/// The real window in the dark. The fade's timer is stopped and its ticks are
/// made by hand, so that no test waits.
class LightInTheWindow : public OpenedWindow {
protected:
    void lightOff(DarkMeans means) {
        window().setDarkMeans(means);
        click(widget("imgDIM"));
        ASSERT_TRUE(form().dim.isLoaded());
    }
    void fadeIn() {
        for (int i = 0; i < 13 && form().dim.fadeAlpha < 255; ++i)
            form().dim.Timer1_Timer();
        settle();
    }
    void fadeOut() {
        form().dim.unload();
        for (int i = 0; i < 7; ++i)
            form().dim.Timer1_Timer();
        EXPECT_FALSE(form().dim.isLoaded());
        settle();
    }
    DimWindow* dark() {
        for (QWidget* child : window().findChildren<QWidget*>(QStringLiteral("frmDIM")))
            if (!child->isHidden())
                return dynamic_cast<DimWindow*>(child);
        return nullptr;
    }
    QLabel& label(int i) { return *dark()->findChild<QLabel*>(QStringLiteral("lb(%1)").arg(i)); }
    /// The hole on the screen, in pixels.
    QRect hole() {
        const HoleRect& hole = form().holeRect;
        return {toPixels(hole.Left), toPixels(hole.Top), toPixels(hole.Width),
                toPixels(hole.Height)};
    }
    /// The same as it is cut: each edge is rounded by itself, ties to the even pixel.
    QRect cut() {
        const HoleRect& hole = form().holeRect;
        const auto edge = [](double twips) {
            return static_cast<int>(std::nearbyint(twips / kTwipsPerPixel));
        };
        return {QPoint(edge(hole.Left), edge(hole.Top)),
                QPoint(edge(hole.Left + hole.Width) - 1, edge(hole.Top + hole.Height) - 1)};
    }
    /// That of the window's frame. It counts above the hole too.
    int lowerBorder() { return window().frameGeometry().bottom() - window().geometry().bottom(); }
    /// A press and a release where the window system finds the window.
    void clickOn(QWidget& top, QPoint global, Qt::MouseButton button) {
        QTest::mouseClick(top.windowHandle(), button, {}, top.mapFromGlobal(global));
        settle();
    }
    /// After all that the window system and the window have to say to each other.
    bool hasKeyboardBack() {
        for (int i = 0; i < 5; ++i)
            settle();
        return QApplication::focusWidget() == dark();
    }
    QPoint middleOf(QWidget& widget) { return widget.mapToGlobal(widget.rect().center()); }
    static constexpr DarkMeans kAll[] = {DarkMeans::WindowOpacity, DarkMeans::PaintedScreen,
                                         DarkMeans::PaintedChild};
};

TEST_F(LightInTheWindow, TheHoleShowsThePanelsAndTheirMarginOfThreePixels) {
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        QWidget& block = widget("frt1");
        const QRect panels(block.mapToGlobal(QPoint(0, 0)), block.size());
        EXPECT_EQ(hole(), panels.adjusted(-3, -3, 3, 3).translated(0, lowerBorder()));
        const QPoint origin = dark()->mapToGlobal(QPoint(0, 0));
        EXPECT_EQ(dark()->mask(), QRegion(dark()->rect()) - cut().translated(-origin));
        EXPECT_EQ(QRect(origin, dark()->size()), window().screen()->geometry());
        fadeOut();
        EXPECT_EQ(dark(), nullptr);
    }
}

TEST_F(LightInTheWindow, TheHoleShowsTheBrowserInTheTutorialView) {
    form().Click(form().lbTAB(1));
    settle();
    for (const DarkMeans means : kAll) {
        lightOff(means);
        QWidget& pane = widget("ie5");
        settle();
        const QPoint corner = pane.mapToGlobal(QPoint(0, lowerBorder()));
        EXPECT_EQ(hole(), QRect(corner, pane.size() - QSize(0, 3)));
        fadeOut();
    }
}

TEST_F(LightInTheWindow, IsOneWindowAboveTheMainOneOrAChildOverAllOfIt) {
    const QSize before = window().size();
    lightOff(DarkMeans::WindowOpacity);
    EXPECT_TRUE(dark()->isWindow());
    EXPECT_TRUE(dark()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(dark()->windowHandle()->transientParent(), window().windowHandle());
    EXPECT_FALSE(dark()->isModal());
    EXPECT_EQ(window().size(), before);
    fadeOut();
    lightOff(DarkMeans::PaintedChild);
    EXPECT_FALSE(dark()->isWindow());
    EXPECT_TRUE(window().isFullScreen()) << "what lies beside the window is dark too";
    EXPECT_EQ(dark()->geometry(), window().rect());
    EXPECT_EQ(window().children().last(), dark());
    EXPECT_EQ(form().WindowState, kWindowNormal) << "the whole screen is no state to keep";
    fadeOut();
    EXPECT_FALSE(window().isFullScreen());
    EXPECT_EQ(window().size(), before);
    EXPECT_TRUE(window().updatesEnabled());
}

TEST_F(LightInTheWindow, FadesByTheWindowsOpacity) {
    lightOff(DarkMeans::WindowOpacity);
    form().dim.Timer1.Enabled = false;
    while (form().dim.fadeAlpha > 0 && form().dim.fadeAlpha < 100)
        form().dim.Timer1_Timer();
    const double shown = static_cast<double>(std::min<Long>(255, form().dim.fadeAlpha));
    EXPECT_NEAR(dark()->windowOpacity(), shown / 255, 0.003);
    fadeIn();
    EXPECT_EQ(dark()->windowOpacity(), 1);
    EXPECT_EQ(dark()->grab().toImage().pixel(5, 5) & 0xFFFFFFU, 0U);
    fadeOut();
}

TEST_F(LightInTheWindow, ShowsEveryStepOfBothFades) {
    const std::vector<int> in = {20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 255};
    const std::vector<int> out = {215, 175, 135, 95, 55, 15};
    const auto step = [this] {
        form().dim.Timer1_Timer();
        // The child paints its black, here over the menu bar's corner.
        if (dark()->isWindow())
            return qRound(dark()->windowOpacity() * 255);
        QImage corner(1, 1, QImage::Format_ARGB32_Premultiplied);
        corner.fill(Qt::transparent);
        dark()->render(&corner, QPoint(), QRegion(2, 2, 1, 1), QWidget::RenderFlags());
        return corner.pixelColor(0, 0).alpha();
    };
    for (const DarkMeans means : {DarkMeans::WindowOpacity, DarkMeans::PaintedChild}) {
        window().setDarkMeans(means);
        form().Click(form().imgDIM);
        form().dim.Timer1.Enabled = false;
        for (const int shown : in)
            EXPECT_EQ(step(), shown);
        form().dim.unload();
        form().dim.Timer1.Enabled = false;
        for (const int shown : out)
            EXPECT_EQ(step(), shown);
        form().dim.Timer1_Timer();
        EXPECT_EQ(dark(), nullptr) << "its seventh step is the end";
    }
}

TEST_F(LightInTheWindow, TheHoleStaysOnTheScreenWhereTheDarkDoesNotBeginAtItsCorner) {
    lightOff(DarkMeans::WindowOpacity);
    fadeIn();
    dark()->setGeometry(40, 30, 1200, 900);
    settle();
    ASSERT_EQ(dark()->pos(), QPoint(40, 30));
    const HoleRect& cut = form().holeRect;
    // Each edge is rounded by itself, halves to the even pixel.
    const auto pixels = [](Single twips) { return toLong(twips / kTwipsPerPixel); };
    const QRect onScreen(
        QPoint(pixels(cut.Left), pixels(cut.Top)),
        QPoint(pixels(cut.Left + cut.Width) - 1, pixels(cut.Top + cut.Height) - 1));
    EXPECT_EQ(dark()->mask(), QRegion(dark()->rect()) - onScreen.translated(-40, -30));
    const QWidget& menu = *dark()->findChild<QWidget*>(QStringLiteral("fr"));
    EXPECT_EQ(menu.pos() + QPoint(40, 30), onScreen.topLeft() - QPoint(0, 30));
    fadeOut();
}

TEST_F(LightInTheWindow, ShowsNothingBeforeItsFirstTick) {
    window().setDarkMeans(DarkMeans::WindowOpacity);
    // No event runs between the click and the look.
    form().Click(form().imgDIM);
    ASSERT_EQ(form().dim.fadeAlpha, 0);
    EXPECT_EQ(dark()->windowOpacity(), 0);
    fadeOut();
}

TEST_F(LightInTheWindow, PaintsItsOpacityOverTheWholeWindowButTheHole) {
    lightOff(DarkMeans::PaintedChild);
    form().dim.Timer1.Enabled = false;
    form().dim.fadeAlpha = 80;
    form().dim.Timer1_Timer();
    settle();
    const QImage half = window().grab().toImage();
    fadeIn();
    const QImage black = window().grab().toImage();
    fadeOut();
    // The ground of the dimmed window under 100 of 255 parts of black.
    const QPoint corner(4, black.height() - 5);
    EXPECT_NEAR(half.pixelColor(corner).red(), 33 * 155 / 255.0, 1);
    EXPECT_EQ(half.pixelColor(corner).red(), half.pixelColor(corner).blue());
    EXPECT_EQ(black.pixel(corner) & 0xFFFFFFU, 0U);
    EXPECT_EQ(black.pixel(5, 5) & 0xFFFFFFU, 0U) << "the menu bar";
}

TEST_F(LightInTheWindow, TheHoleLetsThePanelsBeSeenAsTheyAre) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    const QImage shown = window().grab().toImage();
    PanelWidget& first = panel("pb1");
    for (const QPoint at : {QPoint(20, 0), QPoint(255, 255), QPoint(100, 37)})
        EXPECT_EQ(shown.pixel(first.mapTo(&window(), at + QPoint(1, 1))) & 0xFFFFFFU,
                  static_cast<unsigned>(form().pb1.Image().at(at.x(), at.y())));
    fadeOut();
}

TEST_F(LightInTheWindow, PaintsTheScreenOfBeforeUnderItsBlack) {
    lightOff(DarkMeans::PaintedScreen);
    EXPECT_EQ(dark()->windowOpacity(), 1);
    form().dim.Timer1.Enabled = false;
    fadeIn();
    EXPECT_EQ(dark()->grab().toImage().pixel(5, 5) & 0xFFFFFFU, 0U);
    fadeOut();
}

TEST_F(LightInTheWindow, ClicksInTheHoleReachThePanels) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    PanelWidget& image = panel("pb1");
    const Bitmap before = form().pb1.Image();
    press(image, pixel(image, 60, 60));
    move(image, pixel(image, 90, 60));
    release(image, pixel(image, 90, 60));
    settle();
    EXPECT_NE(form().pb1.Image(), before) << "a stroke through the hole";
    QString opened;
    whenPopup([&](QMenu& shown) { opened = shown.objectName(); });
    press(panel("pb5"), pixel(panel("pb5"), 100, 100), Qt::RightButton);
    release(panel("pb5"), pixel(panel("pb5"), 100, 100), Qt::RightButton);
    settle();
    EXPECT_EQ(opened, QStringLiteral("mnuFT2"));
    EXPECT_TRUE(form().dim.fr.Visible) << "the dark has seen none of them";
    fadeOut();
}

TEST_F(LightInTheWindow, ClicksBesideTheHoleDoNotReachTheWindow) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    form().dim.MouseDown(kRightButton);
    const Integer view = form().lab.viewTab;
    clickOn(window(), middleOf(widget("lbTAB(1)")), Qt::RightButton);
    EXPECT_EQ(form().lab.viewTab, view);
    EXPECT_TRUE(form().dim.fr.Visible) << "it was a press on the dark";
    // A title of the menu bar below.
    clickOn(window(), window().mapToGlobal(QPoint(15, 8)), Qt::LeftButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    fadeOut();
}

TEST_F(LightInTheWindow, ARightClickOnTheDarkTurnsTheMiniMenuOver) {
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        QWidget& top = *dark()->window();
        QWidget& menu = *dark()->findChild<QWidget*>(QStringLiteral("fr"));
        const QPoint beside = window().screen()->geometry().topLeft() + QPoint(3, 3);
        EXPECT_TRUE(menu.isVisible());
        EXPECT_EQ(dark()->cursor().shape(), Qt::ArrowCursor);
        clickOn(top, beside, Qt::LeftButton);
        EXPECT_EQ(form().dim.fadeDirection, 1) << "the menu protects from leaving";
        clickOn(top, beside, Qt::RightButton);
        EXPECT_FALSE(menu.isVisible());
        EXPECT_EQ(dark()->cursor().shape(), Qt::PointingHandCursor);
        clickOn(top, beside, Qt::RightButton);
        EXPECT_TRUE(menu.isVisible());
        EXPECT_EQ(dark()->cursor().shape(), Qt::ArrowCursor);
        clickOn(top, beside, Qt::RightButton);
        clickOn(top, beside, Qt::LeftButton);
        EXPECT_EQ(form().dim.fadeDirection, 2);
        fadeOut();
    }
}

TEST_F(LightInTheWindow, TheMiniMenuStandsAboveTheHoleWithHintsAndNames) {
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        const QWidget& menu = *dark()->findChild<QWidget*>(QStringLiteral("fr"));
        EXPECT_EQ(menu.mapToGlobal(QPoint(0, 0)), hole().topLeft() - QPoint(0, 30));
        const char* const texts[] = {"Scripts", "Options", "Help", "[x]"};
        const char* const hints[] = {"Scripts Menu", "Options Menu", "Help Menu", "Light On"};
        const char* const names[] = {"Scripts menu", "Options menu", "Help menu", "Light on"};
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(label(i).text(), QString::fromLatin1(texts[i]));
            EXPECT_EQ(label(i).toolTip(), QString::fromLatin1(hints[i]));
            EXPECT_EQ(label(i).accessibleName(), QString::fromLatin1(names[i]));
            EXPECT_EQ(label(i).cursor().shape(), Qt::PointingHandCursor);
            EXPECT_TRUE(label(i).font().bold());
            EXPECT_EQ(label(i).palette().color(QPalette::WindowText), QColor(64, 64, 64));
            EXPECT_GE(label(i).width(), label(i).sizeHint().width()) << "read whole";
            if (i > 0) {
                EXPECT_LT(label(i - 1).geometry().right(), label(i).x());
            }
        }
        fadeOut();
    }
}

TEST_F(LightInTheWindow, ALabelShowsAMenuOfTheWindow) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    const char* const titles[] = {"mnuSCR", "mnuOpt", "mnu10"};
    for (int i = 0; i < 3; ++i) {
        QString opened;
        whenPopup([&](QMenu& shown) {
            opened = shown.objectName();
            EXPECT_FALSE(window().findChild<QAction*>(QStringLiteral("itmOpt(0)"))->isEnabled());
            EXPECT_TRUE(window().findChild<QAction*>(QStringLiteral("itmOpt(3)"))->isEnabled());
        });
        clickOn(window(), middleOf(label(i)), Qt::LeftButton);
        EXPECT_EQ(opened, QString::fromLatin1(titles[i]));
    }
    EXPECT_TRUE(window().findChild<QAction*>(QStringLiteral("itmOpt(0)"))->isEnabled());
    EXPECT_TRUE(form().dim.fr.Visible);
    clickOn(window(), middleOf(label(3)), Qt::LeftButton);
    EXPECT_EQ(form().dim.fadeDirection, 2);
    fadeOut();
}

TEST_F(LightInTheWindow, APressBetweenTheLabelsIsNoneOnTheDark) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    clickOn(window(), (middleOf(label(2)) + middleOf(label(3))) / 2, Qt::RightButton);
    clickOn(window(), middleOf(label(1)), Qt::RightButton);
    EXPECT_TRUE(form().dim.fr.Visible);
    fadeOut();
}

TEST_F(LightInTheWindow, KeysReachTheDarkAndOnlyThreeOfThemTheWindow) {
    for (const DarkMeans means : kAll) {
        QTest::keyClick(window().windowHandle(), Qt::Key_L);
        fadeOut();
        window().setDarkMeans(means);
        QTest::keyClick(window().windowHandle(), Qt::Key_L);
        settle();
        fadeIn();
        ASSERT_NE(dark(), nullptr);
        QWindow* top = dark()->window()->windowHandle();
        const auto recalculatesOn = [&](Qt::Key key) {
            form().pb3.Tag = "3D";
            QTest::keyClick(top, key);
            settle();
            return form().pb3.Tag != "3D";
        };
        EXPECT_TRUE(recalculatesOn(Qt::Key_Return));
        EXPECT_TRUE(recalculatesOn(Qt::Key_Space));
        EXPECT_TRUE(recalculatesOn(Qt::Key_R));
        EXPECT_FALSE(recalculatesOn(Qt::Key_X));
        // No arrow rolls a picture, no menu opens.
        const Bitmap before = form().pb1.Image();
        QTest::keyClick(top, Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(form().pb1.Image(), before);
        QTest::keyClick(top, Qt::Key_O, Qt::AltModifier);
        settle();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(top, Qt::Key_L);
        EXPECT_EQ(form().dim.fadeDirection, 2);
        fadeOut();
        EXPECT_EQ(form().Tag, "");
    }
}

TEST_F(LightInTheWindow, EscapeTurnsTheLightOnInBothViews) {
    for (const Integer tab : {Integer{0}, Integer{1}}) {
        form().Click(form().lbTAB(tab));
        settle();
        for (const DarkMeans means : kAll) {
            lightOff(means);
            fadeIn();
            form().bStopBatch = false;
            QTest::keyClick(dark()->window()->windowHandle(), Qt::Key_Escape);
            EXPECT_EQ(form().dim.fadeDirection, 2);
            EXPECT_FALSE(form().bStopBatch) << "no batch is running";
            fadeOut();
            EXPECT_EQ(form().Tag, "");
        }
    }
}

TEST_F(LightInTheWindow, AMenuAndADialogInTheDarkKeepTheirEscape) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    whenPopup([this](QMenu& shown) {
        QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        EXPECT_FALSE(shown.isVisible());
    });
    clickOn(window(), middleOf(label(1)), Qt::LeftButton);
    EXPECT_EQ(form().dim.fadeDirection, 1) << "the menu has closed, no more";
    QDialog dialog(&window());
    dialog.open();
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(form().dim.fadeDirection, 1);
    // The key is still down: its repetitions belong to what it has closed.
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"), true);
    QApplication::sendEvent(dark(), &again);
    EXPECT_EQ(form().dim.fadeDirection, 1);
    fadeOut();
}

TEST_F(LightInTheWindow, ARunningScriptGetsTheFirstEscape) {
    QFile script(home.filePath(QStringLiteral("ring.ftscr")));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("TOP\nLOWPASS 30\n");
    script.close();
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        QWindow* top = dark()->window()->windowHandle();
        bool pressed = false;
        // The choice of the filter lets events run.
        QTimer::singleShot(0, &window(), [&] {
            pressed = true;
            QTest::keyClick(top, Qt::Key_Escape);
        });
        form().LoadScriptCommand(toLabPath(script.fileName()));
        EXPECT_TRUE(pressed);
        EXPECT_EQ(form().dim.fadeDirection, 1) << "the script had it";
        EXPECT_EQ(form().lab.channel1.filter_rad, 30.5F) << "and ran to its end";
        QTest::keyClick(top, Qt::Key_Escape);
        EXPECT_EQ(form().dim.fadeDirection, 2) << "the second one is the light's";
        fadeOut();
    }
}

TEST_F(LightInTheWindow, OverTheTutorialNoKeyReachesTheHiddenLab) {
    form().Click(form().lbTAB(1));
    settle();
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        form().pb3.Tag = "3D";
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_R}) {
            QTest::keyClick(dark()->window()->windowHandle(), key);
            settle();
            EXPECT_EQ(form().pb3.Tag, "3D") << key;
        }
        fadeOut();
    }
}

TEST_F(LightInTheWindow, ReleasesOfShiftCtrlAndAltReachTheWindow) {
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        QWindow* top = dark()->window()->windowHandle();
        for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt}) {
            form().pendingShiftPanel = 1;
            QTest::keyRelease(top, key);
            EXPECT_EQ(form().pendingShiftPanel, 0) << key;
        }
        form().pendingShiftPanel = 1;
        QTest::keyRelease(top, Qt::Key_Right);
        EXPECT_EQ(form().pendingShiftPanel, 1);
        form().pendingShiftPanel = 0;
        fadeOut();
    }
}

TEST_F(LightInTheWindow, TheDarkKeepsTheKeyboardThroughAClickInTheHole) {
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        // The press makes the window below the active one, as window systems do.
        window().activateWindow();
        clickOn(window(), middleOf(panel("pb5")), Qt::LeftButton);
        EXPECT_EQ(QApplication::activeWindow(), dark()->window());
        EXPECT_EQ(QApplication::focusWidget(), dark());
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_L);
        EXPECT_EQ(form().dim.fadeDirection, 2) << "one press turns the light on";
        fadeOut();
        EXPECT_EQ(QApplication::focusWidget(), &window());
    }
}

TEST_F(LightInTheWindow, TheDarkKeepsTheKeyboardThroughAClickInThePage) {
    form().Click(form().lbTAB(1));
    settle();
    for (const DarkMeans means : kAll) {
        lightOff(means);
        fadeIn();
        window().activateWindow();
        widget("ie5").setFocus(Qt::MouseFocusReason);
        EXPECT_TRUE(hasKeyboardBack());
        fadeOut();
    }
}

TEST_F(LightInTheWindow, ADialogInTheDarkHasTheKeyboardUntilItCloses) {
    for (const DarkMeans means : {DarkMeans::WindowOpacity, DarkMeans::PaintedScreen}) {
        lightOff(means);
        fadeIn();
        QDialog dialog(&window());
        dialog.open();
        window().activateWindow();
        EXPECT_FALSE(hasKeyboardBack());
        dialog.activateWindow();
        EXPECT_FALSE(hasKeyboardBack());
        dialog.close();
        window().activateWindow();
        EXPECT_TRUE(hasKeyboardBack());
        fadeOut();
    }
}

TEST_F(LightInTheWindow, TheWindowHasItsKeysBackWhenTheLightIsOn) {
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    fadeOut();
    form().bStopBatch = false;
    QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(form().bStopBatch);
    // And the next dark is shown as well as the first, though the old one may
    // not have been deleted yet.
    lightOff(DarkMeans::PaintedChild);
    fadeIn();
    form().dim.MouseDown(kRightButton);
    settle();
    EXPECT_FALSE(dark()->findChild<QWidget*>(QStringLiteral("fr"))->isVisible());
    fadeOut();
}

TEST_F(LightInTheWindow, ClosingTheDarkFadesItOut) {
    lightOff(DarkMeans::WindowOpacity);
    fadeIn();
    EXPECT_FALSE(dark()->close());
    EXPECT_TRUE(dark()->isVisible());
    EXPECT_EQ(form().dim.fadeDirection, 2);
    fadeOut();
}

TEST_F(LightInTheWindow, ClosingTheMainWindowTakesTheDarkAlong) {
    for (const DarkMeans means : {DarkMeans::WindowOpacity, DarkMeans::PaintedChild}) {
        lightOff(means);
        fadeIn();
        QWidget* shown = dark();
        window().close();
        EXPECT_TRUE(form().isUnloaded());
        EXPECT_TRUE(shown->isHidden());
        EXPECT_FALSE(window().isVisible());
        QCoreApplication::removePostedEvents(qApp);
        open();
    }
}

TEST_F(LightInTheWindow, TheFadeRunsByItsTimer) {
    lightOff(DarkMeans::PaintedChild);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form().dim.fadeAlpha == 260; }));
    EXPECT_FALSE(form().dim.Timer1.Enabled);
    QTest::keyClick(window().windowHandle(), Qt::Key_L);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form().dim.isLoaded(); }));
    EXPECT_EQ(form().Tag, "");
}

}  // namespace
}  // namespace quillon
