#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "desktop/Conversions.h"
#include "desktop/ExportDialog.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/desktop/when_modal.h"

namespace quillon {
namespace {

class TheExportDialog : public OpenedWindow {
protected:
    template <class Button>
    static Button& button(ExportDialog& dialog, const char* name) {
        auto* found = dialog.findChild<Button*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::invalid_argument(name);
        return *found;
    }
    /// Exports channel 1 and does `act` in the dialog. Not by the menu: its first
    /// step lets pending events run, and `act` is one of them.
    void ask(std::function<void(ExportDialog&)> act) {
        whenModal<QDialog>(
            [act = std::move(act)](QDialog& dialog) { act(dynamic_cast<ExportDialog&>(dialog)); });
        form().lab.channel1.CopyData(state());
    }
    dlgARRAY& state() { return form().exportDialog; }
};

TEST_F(TheExportDialog, ShowsEveryChoiceInItsLettersAndColours) {
    form().itmOpt0(0);
    window().setWindowIcon(QIcon(QPixmap(16, 16)));
    ask([this](ExportDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("FT Data Export"));
        EXPECT_EQ(dialog.windowIcon().cacheKey(), window().windowIcon().cacheKey());
        EXPECT_TRUE(dialog.isModal());
        QFont bold = dialog.font();
        bold.setBold(true);
        // An icon and three buttons of some 20 pixels stand beside the title.
        EXPECT_GE(dialog.width(),
                  QFontMetrics(bold).horizontalAdvance(dialog.windowTitle()) + 4 * 20);
        EXPECT_EQ(dialog.palette().color(QPalette::Window), toQColor(form().lab.guiColors[0]));
        const auto expectShown = [&](QAbstractButton& shown, const Control& control) {
            EXPECT_EQ(shown.text(), toQString(control.Caption.get()));
            EXPECT_EQ(shown.accessibleName(), shown.text());
            EXPECT_EQ(shown.font(), toQFont(Font::Arial, control.FontSize, control.FontBold));
            EXPECT_EQ(shown.palette().color(shown.foregroundRole()),
                      toQColor(form().lab.guiColors[1]));
            EXPECT_EQ(shown.palette().color(QPalette::Button), toQColor(form().lab.guiColors[0]));
            EXPECT_TRUE(shown.isVisible());
        };
        for (Integer i = 0; i < 5; ++i) {
            auto& shown = button<QRadioButton>(dialog, state().op(i).Name.c_str());
            expectShown(shown, state().op(i));
            EXPECT_TRUE(shown.font().bold());
            EXPECT_EQ(shown.isChecked(), i == 1);
        }
        for (Integer i = 0; i < 3; ++i) {
            auto& shown = button<QCheckBox>(dialog, state().Check1(i).Name.c_str());
            expectShown(shown, state().Check1(i));
            EXPECT_FALSE(shown.font().bold());
            EXPECT_EQ(shown.isChecked(), i < 2);
        }
        expectShown(button<QPushButton>(dialog, "OKButton"), state().OKButton);
        dialog.close();
    });
}

TEST_F(TheExportDialog, ExportsWhatWasChosenWithTheMouse) {
    ask([](ExportDialog& dialog) {
        const auto click = [&](QAbstractButton& shown) {
            QTest::mouseClick(&shown, Qt::LeftButton, {}, QPoint(8, shown.height() / 2));
        };
        click(button<QRadioButton>(dialog, "op(3)"));
        click(button<QCheckBox>(dialog, "Check1(0)"));
        click(button<QCheckBox>(dialog, "Check1(2)"));
        click(button<QPushButton>(dialog, "OKButton"));
    });
    EXPECT_TRUE(state().ok);
    EXPECT_EQ(state().m, 3);
    EXPECT_EQ(state().bi, 0);
    EXPECT_EQ(state().bs, 1);
    EXPECT_EQ(state().b3, 1);
    ASSERT_FALSE(recording.dialogs.messages.empty());
    EXPECT_EQ(recording.dialogs.messages.back().text, "Data copied to clipboard.");
    // The next opening begins with these choices.
    ask([](ExportDialog& dialog) {
        EXPECT_TRUE(button<QRadioButton>(dialog, "op(3)").isChecked());
        EXPECT_FALSE(button<QCheckBox>(dialog, "Check1(0)").isChecked());
        EXPECT_TRUE(button<QCheckBox>(dialog, "Check1(2)").isChecked());
        dialog.close();
    });
}

TEST_F(TheExportDialog, TakesEnterOnEveryControlForOk) {
    for (const char* name : {"op(0)", "op(4)", "Check1(1)", "OKButton"})
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            ask([=](ExportDialog& dialog) {
                auto& shown = button<QAbstractButton>(dialog, name);
                shown.setFocus();
                QTest::keyClick(&shown, key);
            });
            EXPECT_TRUE(state().ok) << name;
            // The key confirms; it does not press the control that has it.
            EXPECT_EQ(state().m, 1) << name;
            EXPECT_EQ(state().bs, 1) << name;
        }
}

TEST_F(TheExportDialog, ClosedWithoutOkExportsNothing) {
    services.clipboard.setText("kept");
    recording.dialogs.messages.clear();
    ask([](ExportDialog& dialog) { dialog.close(); });
    EXPECT_FALSE(state().ok);
    ask([](ExportDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(state().ok);
    EXPECT_FALSE(state().Visible);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("kept"));
    EXPECT_TRUE(recording.dialogs.messages.empty());
}

}  // namespace
}  // namespace quillon
