#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTest>

#include "desktop/Conversions.h"
#include "desktop/input_codes.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/support/slow_drawing.h"

namespace quillon {
namespace {

using slow::rolled;

class Keys : public OpenedWindow {
protected:
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyPress(window().windowHandle(), key, modifiers);
        settle();
    }
    void releaseKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyRelease(window().windowHandle(), key, modifiers);
        settle();
    }
    void send(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers,
              bool repeated = false) {
        QKeyEvent event(type, key, modifiers, QString(), repeated);
        QApplication::sendEvent(&window(), &event);
    }
    /// Whether a recalculation of everything has taken a surface off a panel.
    bool recalculatesOn(Qt::Key key) {
        form().pb3.Tag = "3D";
        QTest::keyClick(&window(), key);
        settle();
        return form().pb3.Tag != "3D";
    }
};

TEST_F(Keys, ShiftWithAnArrowRollsTheFirstPictureAndCtrlTheSecond) {
    const Bitmap first = form().pb1.Image();
    const Bitmap second = form().pb4.Image();
    pressKey(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(form().pb1.Image(), rolled(first, 1, 0));
    EXPECT_EQ(form().pb4.Image(), second);
    releaseKey(Qt::Key_Right, Qt::ShiftModifier);
    pressKey(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(form().pb4.Image(), rolled(second, 1, 0));
    releaseKey(Qt::Key_Right, Qt::ControlModifier);
    pressKey(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(form().pb1.Image(), rolled(first, 1, 0)) << "both together are neither";
    releaseKey(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
}

TEST_F(Keys, AHeldKeyRepeatsItsPressAndTheReleasesInBetweenAreNone) {
    const Bitmap first = form().pb1.Image();
    send(QEvent::KeyPress, Qt::Key_Right, Qt::ShiftModifier);
    for (int i = 0; i < 3; ++i) {
        send(QEvent::KeyRelease, Qt::Key_Right, Qt::ShiftModifier, true);
        EXPECT_EQ(form().pendingShiftPanel, 1) << "an invented release has ended the roll";
        send(QEvent::KeyPress, Qt::Key_Right, Qt::ShiftModifier, true);
    }
    EXPECT_EQ(form().pb1.Image(), rolled(first, 4, 0));
    send(QEvent::KeyRelease, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(form().pendingShiftPanel, 0);
}

TEST_F(Keys, AltShowsTheProfileLinesWhileItIsHeldAndDoesNotGoToTheMenuBar) {
    pressKey(Qt::Key_Alt);
    EXPECT_TRUE(form().Line1(0).Visible);
    EXPECT_TRUE(form().Line1(1).Visible);
    releaseKey(Qt::Key_Alt);
    EXPECT_FALSE(form().Line1(0).Visible);
    EXPECT_FALSE(form().Line1(1).Visible);
    EXPECT_FALSE(window().findChild<QMenuBar*>()->hasFocus());
    EXPECT_EQ(window().findChild<QMenuBar*>()->activeAction(), nullptr);
    EXPECT_TRUE(recalculatesOn(Qt::Key_Return)) << "the next key is the lab's again";
}

TEST_F(Keys, HeldKeysAreReleasedWhenTheWindowLosesTheKeyboard) {
    pressKey(Qt::Key_Alt);
    ASSERT_TRUE(form().Line1(0).Visible);
    QEvent gone(QEvent::WindowDeactivate);
    QApplication::sendEvent(&window(), &gone);
    EXPECT_FALSE(form().Line1(0).Visible);
    EXPECT_FALSE(form().Line1(1).Visible);
}

TEST_F(Keys, EnterOnEitherPlaceAndSpaceRecalculate) {
    EXPECT_TRUE(recalculatesOn(Qt::Key_Return));
    EXPECT_TRUE(recalculatesOn(Qt::Key_Enter));
    EXPECT_TRUE(recalculatesOn(Qt::Key_Space));
    EXPECT_FALSE(recalculatesOn(Qt::Key_X));
}

TEST_F(Keys, InTheTutorialEnterSpaceAndRDoNothingToTheHiddenLab) {
    form().Click(form().lbTAB(1));
    settle();
    form().click(MenuArray::mnuFT2a, 11);
    for (QWidget* focus : {&widget("ie5"), static_cast<QWidget*>(&window())}) {
        focus->setFocus();
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_R}) {
            form().pb3.Tag = "3D";
            QTest::keyClick(window().windowHandle(), key);
            settle();
            EXPECT_EQ(form().pb3.Tag, "3D") << focus->objectName().toStdString() << " " << key;
            EXPECT_TRUE(form().lab.channel2.bHighpass) << key;
        }
    }
    form().Click(form().lbTAB(0));
    EXPECT_TRUE(recalculatesOn(Qt::Key_Space)) << "in the Lab it is the lab's";
}

TEST_F(Keys, EscapeAsksABatchToStop) {
    form().bStopBatch = false;
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(form().bStopBatch);
    releaseKey(Qt::Key_Escape);
}

QKeyEvent keyPress(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    return {QEvent::KeyPress, key, modifiers, text};
}

TEST(KeyCodes, AreThePlatformsNumbers) {
    const std::pair<int, Integer> pairs[] = {
        {Qt::Key_Escape, 27}, {Qt::Key_Left, 37},   {Qt::Key_Up, 38},      {Qt::Key_Right, 39},
        {Qt::Key_Down, 40},   {Qt::Key_Shift, 16},  {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
        {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},  {Qt::Key_Space, 32},   {Qt::Key_A, 65},
        {Qt::Key_Z, 90},      {Qt::Key_0, 48},      {Qt::Key_9, 57},       {Qt::Key_F1, 112},
        {Qt::Key_F12, 123},   {Qt::Key_Delete, 46}, {Qt::Key_Tab, 9},      {Qt::Key_AltGr, 0},
    };
    for (const auto& [key, code] : pairs)
        EXPECT_EQ(keyCode(keyPress(key)), code) << key;
}

TEST(ShiftState, IsOneForShiftTwoForCtrlFourForAlt) {
    EXPECT_EQ(shiftState(Qt::NoModifier), 0);
    EXPECT_EQ(shiftState(Qt::ShiftModifier), 1);
    EXPECT_EQ(shiftState(Qt::ControlModifier), 2);
    EXPECT_EQ(shiftState(Qt::AltModifier), 4);
    EXPECT_EQ(shiftState(Qt::ShiftModifier | Qt::AltModifier), 5);
    EXPECT_EQ(shiftState(Qt::KeypadModifier), 0);
}

TEST(ShiftState, CountsAKeyAtItsOwnPressAndNoLongerAtItsRelease) {
    for (const Qt::KeyboardModifiers told :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::AltModifier)}) {
        EXPECT_EQ(shiftState(QKeyEvent(QEvent::KeyPress, Qt::Key_Alt, told)), 4);
        EXPECT_EQ(shiftState(QKeyEvent(QEvent::KeyRelease, Qt::Key_Alt, told)), 0);
    }
    EXPECT_EQ(shiftState(QKeyEvent(QEvent::KeyPress, Qt::Key_Alt, Qt::ShiftModifier)), 5);
}

TEST(ButtonCodes, AreOneForLeftTwoForRightFourForMiddle) {
    EXPECT_EQ(buttonCodes(Qt::NoButton), 0);
    EXPECT_EQ(buttonCodes(Qt::LeftButton), 1);
    EXPECT_EQ(buttonCodes(Qt::RightButton), 2);
    EXPECT_EQ(buttonCodes(Qt::MiddleButton), 4);
    EXPECT_EQ(buttonCodes(Qt::LeftButton | Qt::RightButton), 3);
    EXPECT_EQ(buttonCodes(Qt::BackButton), 0);
}

TEST(TypedLetters, AreTheirCodes) {
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_R, {}, QStringLiteral("r"))), 114);
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_R, Qt::ShiftModifier, QStringLiteral("R"))), 82);
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_Return, {}, QStringLiteral("\r"))), 13);
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_Enter, {}, QStringLiteral("\n"))), 13);
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_Eacute, {}, QStringLiteral("é"))), 233);
}

TEST(TypedLetters, AreNoneForKeysWithoutAnyAndUnderAlt) {
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_Left)), std::nullopt);
    EXPECT_EQ(keyAscii(keyPress(Qt::Key_L, Qt::AltModifier, QStringLiteral("l"))), std::nullopt);
    EXPECT_EQ(keyAscii(keyPress(0, {}, QStringLiteral("漢"))), std::nullopt);
}

}  // namespace
}  // namespace quillon
