#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTest>

#include "desktop/AboutBox.h"
#include "desktop/Conversions.h"
#include "engine/Version.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/desktop/when_modal.h"

namespace quillon {
namespace {

class About : public OpenedWindow {
protected:
    /// Opens the box by its entry and does `act` in it.
    void ask(std::function<void(AboutBox&)> act) {
        whenModal<QDialog>(
            [act = std::move(act)](QDialog& dialog) { act(dynamic_cast<AboutBox&>(dialog)); });
        auto* entry = window().findChild<QAction*>(QStringLiteral("itm10(4)"));
        ASSERT_NE(entry, nullptr);
        entry->trigger();
    }
    template <class Widget>
    static Widget& part(AboutBox& box, const char* name) {
        auto* found = box.findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::invalid_argument(name);
        return *found;
    }
};

TEST_F(About, IsAFixedModalBoxInTheMiddleOfItsOwner) {
    window().setWindowIcon(QIcon(QPixmap(16, 16)));
    window().move(100, 50);
    settle();
    ask([this](AboutBox& box) {
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(box.parentWidget(), &window());
        EXPECT_EQ(box.windowTitle(), QStringLiteral("About Quillon"));
        EXPECT_EQ(box.accessibleName(), QStringLiteral("About Quillon"));
        EXPECT_EQ(box.windowIcon().cacheKey(), window().windowIcon().cacheKey());
        EXPECT_EQ(box.size(), QSize(387, 214));
        EXPECT_EQ(box.minimumSize(), box.maximumSize());
        EXPECT_EQ(box.frameGeometry().center(), window().frameGeometry().center());
        box.close();
    });
}

TEST_F(About, ShowsItsTextsInTheirPlaces) {
    ask([](AboutBox& box) {
        const auto& version = part<QLabel>(box, "lblVersion");
        EXPECT_EQ(version.text(), QStringLiteral("Version ") + QString::fromLatin1(kVersionText));
        EXPECT_EQ(version.pos(), QPoint(40, 88));
        EXPECT_GE(version.width(), version.sizeHint().width()) << "the version is seen whole";
        EXPECT_GE(version.height(), version.sizeHint().height());
        const auto& title = part<QLabel>(box, "lblTitle");
        EXPECT_EQ(title.text(), QStringLiteral("Quillon - Classroom Edition"));
        EXPECT_EQ(title.geometry(), QRect(11, 135, 369, 24));
        EXPECT_EQ(title.font(), toQFont(Font::TimesNewRoman, 14.25F, true));
        EXPECT_LE(title.sizeHint().width(), title.width());
        EXPECT_LE(title.sizeHint().height(), title.height());
        const auto& credits = part<QLabel>(box, "lblDescription");
        EXPECT_EQ(credits.geometry(), QRect(10, 175, 363, 47));
        EXPECT_EQ(credits.accessibleName(), credits.text());
        const auto& button = part<QPushButton>(box, "cmdOK");
        EXPECT_EQ(button.text(), QStringLiteral("OK"));
        EXPECT_EQ(button.toolTip(), QStringLiteral("Close About Box"));
        EXPECT_EQ(button.geometry(), QRect(334, 181, 41, 23));
        EXPECT_LE(credits.x() + credits.sizeHint().width(), button.x())
            << "the button hides nothing";
        box.close();
    });
}

TEST_F(About, HasItsPictureOnAWhiteGround) {
    ask([](AboutBox& box) {
        const QImage shown = box.grab().toImage();
        const auto at = [&](int x, int y) {
            return shown.pixelColor(QPoint(x, y) * shown.devicePixelRatio());
        };
        EXPECT_EQ(at(5, 209), QColor(Qt::white));
        EXPECT_LT(at(320, 43).lightness(), 100) << "the zero frequency of the spectrum";
        EXPECT_GT(at(320, 60).lightness(), 230);
        box.close();
    });
    // The file is a JPEG with pixels for a screen of twice the grain.
    EXPECT_EQ(QPixmap(QStringLiteral(":/about.jpg"), "JPG").size(), QSize(774, 428));
}

TEST_F(About, IsDraggedByItsGroundAndItsLabelsUnderFourArrows) {
    for (const char* name : {"", "lblVersion", "lblTitle", "lblDescription"})
        ask([name](AboutBox& box) {
            QWidget& where = *name == '\0' ? static_cast<QWidget&>(box) : part<QLabel>(box, name);
            const QPoint at = *name == '\0' ? QPoint(200, 110) : where.mapTo(&box, QPoint(3, 3));
            const QPoint before = box.pos();
            EXPECT_EQ(box.cursor().shape(), Qt::ArrowCursor);
            QTest::mousePress(box.windowHandle(), Qt::LeftButton, {}, at);
            EXPECT_EQ(box.cursor().shape(), Qt::SizeAllCursor) << name;
            QTest::mouseMove(box.windowHandle(), at + QPoint(40, 25));
            EXPECT_EQ(box.pos(), before + QPoint(40, 25)) << name;
            QTest::mouseRelease(box.windowHandle(), Qt::LeftButton, {}, at);
            QTest::mouseMove(box.windowHandle(), at + QPoint(9, 9));
            EXPECT_EQ(box.pos(), before + QPoint(40, 25)) << "the button is up";
            EXPECT_EQ(box.cursor().shape(), Qt::SizeAllCursor) << "the pointer stays";
            box.close();
        });
}

TEST_F(About, IsDraggedNoFurtherOnceTheMouseIsTakenAway) {
    for (const QEvent::Type taken :
         {QEvent::WindowDeactivate, QEvent::WindowBlocked, QEvent::UngrabMouse})
        ask([taken](AboutBox& box) {
            QTest::mousePress(box.windowHandle(), Qt::LeftButton, {}, {200, 110});
            QTest::mouseMove(box.windowHandle(), {210, 115});
            const QPoint place = box.pos();
            QEvent event(taken);
            QCoreApplication::sendEvent(&box, &event);
            QTest::mouseMove(box.windowHandle(), {230, 120});
            EXPECT_EQ(box.pos(), place) << taken;
            QTest::mouseRelease(box.windowHandle(), Qt::LeftButton, {}, {230, 120});
            EXPECT_EQ(box.pos(), place) << taken;
            box.close();
        });
}

TEST_F(About, IsNotDraggedByAnotherButtonNorUnderAModifier) {
    ask([](AboutBox& box) {
        const QPoint before = box.pos();
        for (const auto& [button, modifier] : {std::pair(Qt::RightButton, Qt::NoModifier),
                                               std::pair(Qt::LeftButton, Qt::ShiftModifier)}) {
            QTest::mousePress(box.windowHandle(), button, modifier, {200, 110});
            QTest::mouseMove(box.windowHandle(), {230, 120});
            EXPECT_EQ(box.pos(), before);
            EXPECT_EQ(box.cursor().shape(), Qt::SizeAllCursor);
            QTest::mouseRelease(box.windowHandle(), button, modifier, {230, 120});
        }
        box.close();
    });
}

TEST_F(About, EndsWithItsButtonByMouseAndByKeyboard) {
    int results = 0;
    ask([&](AboutBox& box) {
        QObject::connect(&box, &QDialog::accepted, [&] { ++results; });
        auto& button = part<QPushButton>(box, "cmdOK");
        QTest::mouseClick(box.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    });
    EXPECT_EQ(results, 1);
    ask([&](AboutBox& box) {
        QObject::connect(&box, &QDialog::accepted, [&] { ++results; });
        QTest::keyClick(box.windowHandle(), Qt::Key_Return);
    });
    EXPECT_EQ(results, 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(window().isVisible());
}

}  // namespace
}  // namespace quillon
