#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/Conversions.h"
#include "desktop/QtDialogs.h"
#include "engine/RunTimeError.h"
#include "tests/desktop/when_modal.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

class DialogService : public ::testing::Test {
protected:
    QtDialogs dialogs{FileDialogStyle::Toolkit};
    QTemporaryDir folder;

    std::string make(const char* name) const {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return toLabPath(path);
    }
};

TEST_F(DialogService, AMessageShowsItsTextTitleAndIcon) {
    whenModal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("The <b>first</b> line\nand the second"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Folder Setup"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.messageBox("The <b>first</b> line\nand the second", "Folder Setup",
                                 MessageIcon::Information, MessageButtons::Ok),
              MessageAnswer::Ok);
}

TEST_F(DialogService, EachIconIsTheDesktopsOwn) {
    const std::pair<MessageIcon, QMessageBox::Icon> pairs[] = {
        {MessageIcon::None, QMessageBox::NoIcon},
        {MessageIcon::Critical, QMessageBox::Critical},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Exclamation, QMessageBox::Warning},
    };
    for (const auto& [asked, shown] : pairs) {
        whenModal<QMessageBox>([shown = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), shown);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Quillon"));
            box.accept();
        });
        dialogs.messageBox("text", "", asked, MessageButtons::Ok);
    }
}

TEST_F(DialogService, AQuestionIsAnsweredByYesOrNoAndEscapeMeansNo) {
    whenModal<QMessageBox>(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
    EXPECT_EQ(dialogs.messageBox("?", "", MessageIcon::Question, MessageButtons::YesNo),
              MessageAnswer::Yes);
    whenModal<QMessageBox>(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); });
    EXPECT_EQ(dialogs.messageBox("?", "", MessageIcon::Question, MessageButtons::YesNo),
              MessageAnswer::No);
    whenModal<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.messageBox("?", "", MessageIcon::Question, MessageButtons::YesNo),
              MessageAnswer::No);
}

TEST_F(DialogService, AnInputBoxOffersItsPresetAndGivesWhatIsTyped) {
    whenModal<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Adjust FT Brightness"));
        EXPECT_EQ(box.labelText(), QStringLiteral("first\nsecond"));
        EXPECT_EQ(box.textValue(), QStringLiteral("100"));
        auto* edit = box.findChild<QLineEdit*>();
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("2.5x"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.inputBox("first\nsecond", "Adjust FT Brightness", "100"), "2.5x");
}

/// The title is bold; an icon and three buttons of some 20 pixels stand beside it.
void expectRoomForTitle(const QDialog& dialog) {
    QFont bold = dialog.font();
    bold.setBold(true);
    EXPECT_GE(dialog.width(), QFontMetrics(bold).horizontalAdvance(dialog.windowTitle()) + 4 * 20);
}

TEST_F(DialogService, ABoxIsWideEnoughForItsTitleWhateverItsText) {
    const std::string title = "A Title Of Several Words That Is Far Longer Than Its Text";
    whenModal<QInputDialog>([](QInputDialog& box) {
        expectRoomForTitle(box);
        box.reject();
    });
    dialogs.inputBox("?", title, "");
    for (const MessageButtons buttons : {MessageButtons::Ok, MessageButtons::YesNo}) {
        whenModal<QMessageBox>([](QMessageBox& box) {
            expectRoomForTitle(box);
            box.reject();
        });
        dialogs.messageBox("?", title, MessageIcon::Information, buttons);
    }
}

TEST_F(DialogService, ACancelledInputBoxGivesNothingAndAnEmptyOneTheEmptyText) {
    whenModal<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.inputBox("prompt", "title", "preset"), std::nullopt);
    whenModal<QInputDialog>([](QInputDialog& box) {
        box.setTextValue(QString());
        box.accept();
    });
    EXPECT_EQ(dialogs.inputBox("prompt", "title", "preset"), "");
}

TEST_F(DialogService, TheOpenDialogStartsWhereItIsToldAndGivesTheFileInLabForm) {
    const std::string path = make("Cat 1.jpg");
    FileDialog dialog;
    dialog.DialogTitle = "Choose";
    dialog.InitDir = toLabPath(folder.path()) + "\\";
    dialog.Filter = "Images (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg";
    whenModal<QFileDialog>([&](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Choose"));
        EXPECT_EQ(box.directory().path(), folder.path());
        EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(box.nameFilters(), QStringList{QStringLiteral("Images (*.bmp *.gif *.jpg)")});
        box.selectFile(QStringLiteral("Cat 1.jpg"));
        static_cast<QDialog&>(box).accept();
    });
    dialogs.showOpen(dialog);
    EXPECT_EQ(dialog.FileName, path);
    EXPECT_EQ(dialog.FilterIndex, 1);
}

TEST_F(DialogService, TheFilterInForceAtTheEndIsTold) {
    const std::string path = make("masks.ftmsk");
    FileDialog dialog;
    dialog.InitDir = toLabPath(folder.path());
    dialog.Filter = "First (*.a)|*.a|Second (*.b)|*.b|All (*.*)|*.*";
    dialog.FilterIndex = 2;
    whenModal<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.selectedNameFilter(), QStringLiteral("Second (*.b)"));
        box.selectNameFilter(QStringLiteral("All (*.*)"));
        box.selectFile(QStringLiteral("masks.ftmsk"));
        static_cast<QDialog&>(box).accept();
    });
    dialogs.showOpen(dialog);
    EXPECT_EQ(dialog.FileName, path);
    EXPECT_EQ(dialog.FilterIndex, 3);
}

TEST_F(DialogService, TheSaveDialogOffersTheLastNameAndKeepsATypedSuffix) {
    FileDialog dialog;
    dialog.InitDir = toLabPath(folder.path());
    dialog.FileName = toLabPath(folder.filePath(QStringLiteral("last.bmp")));
    dialog.Filter = "Windows Bitmap (*.bmp)|*.bmp";
    whenModal<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
        auto* edit = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        EXPECT_EQ(edit->text(), QStringLiteral("last.bmp"));
        edit->setText(QStringLiteral("new.name"));
        static_cast<QDialog&>(box).accept();
    });
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, toLabPath(folder.filePath(QStringLiteral("new.name"))));
}

/// A save dialog for bitmaps in a folder that holds "a.bmp".
class SaveDialog : public DialogService {
protected:
    SaveDialog() {
        make("a.bmp");
        dialog.InitDir = toLabPath(folder.path());
        dialog.Filter = "Windows Bitmap (*.bmp)|*.bmp";
    }
    /// Types a name into the next file dialog and presses Enter, then does what is next.
    void type(
        const char* name, std::function<void()> next = [] {}) {
        whenModal<QFileDialog>([name, next = std::move(next)](QFileDialog& box) {
            auto* edit = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(QString::fromLatin1(name));
            next();
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    /// Answers the question whether "a.bmp" is to be replaced.
    void answer(
        QMessageBox::StandardButton button, std::function<void()> next = [] {}) {
        whenModal<QMessageBox>([button, next = std::move(next)](QMessageBox& box) {
            EXPECT_EQ(box.text(),
                      QStringLiteral("a.bmp already exists.\nDo you want to replace it?"));
            next();
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
    }
    std::string pathOf(const char* name) const {
        return toLabPath(folder.filePath(QString::fromLatin1(name)));
    }

    FileDialog dialog;
};

TEST_F(SaveDialog, AddsTheSuffixOfTheFilterWhereNoneWasTyped) {
    type("new");
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("new.bmp"));
}

TEST_F(SaveDialog, NamesABitmapAsABitmapAlsoWhereAJpegsNameWasTyped) {
    type("cat.jpg");
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("cat.bmp"));
}

TEST_F(SaveDialog, AsksAboutTheNameWithItsSuffix) {
    type("a", [this] { answer(QMessageBox::Yes); });
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("a.bmp"));
}

TEST_F(SaveDialog, AsksOnceAboutANameTypedWhole) {
    type("a.bmp", [this] { answer(QMessageBox::Yes); });
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("a.bmp"));
}

TEST_F(SaveDialog, AsksAboutTheFileThatTheLabWouldReplaceInOtherLetters) {
    type("A", [this] { answer(QMessageBox::Yes); });
    dialogs.showSave(dialog);
}

TEST_F(SaveDialog, DoesNotAskAboutAFileThatStaysAsItIs) {
    make("new");
    type("new");
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("new.bmp"));
}

TEST_F(SaveDialog, ComesBackWithTheNameWhereTheFileIsToBeKept) {
    const auto another = [this] {
        whenModal<QFileDialog>([](QFileDialog& box) {
            auto* edit = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            EXPECT_EQ(edit->text(), QStringLiteral("a.bmp"));
            edit->setText(QStringLiteral("b"));
            QTest::keyClick(edit, Qt::Key_Return);
        });
    };
    type("a", [=, this] { answer(QMessageBox::No, another); });
    dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, pathOf("b.bmp"));
}

TEST_F(SaveDialog, CanBeCancelledAfterTheQuestion) {
    dialog.FileName = "\\before.bmp";
    const auto escape = [] {
        whenModal<QFileDialog>([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    };
    type("a", [=, this] { answer(QMessageBox::No, escape); });
    EXPECT_EQ(errorOf([this] { dialogs.showSave(dialog); }), ErrorNumber::DialogCancelled);
    EXPECT_EQ(dialog.FileName, "\\before.bmp");
}

TEST_F(DialogService, AFileDialogStartsInItsFolderWhereverTheLastFileLay) {
    QDir(folder.path()).mkdir(QStringLiteral("Scripts"));
    make("Scripts/cat.ftscr");
    make("elsewhere.ftscr");
    for (const char* last : {"elsewhere.ftscr", "Scripts/cat.ftscr", "gone/mouse.ftscr"}) {
        FileDialog dialog;
        dialog.InitDir = toLabPath(folder.filePath(QStringLiteral("Scripts"))) + "\\";
        dialog.FileName = toLabPath(folder.filePath(QString::fromLatin1(last)));
        dialog.Filter = "Script (*.ftscr)|*.ftscr";
        whenModal<QFileDialog>([&](QFileDialog& box) {
            EXPECT_EQ(box.directory().path(), folder.filePath(QStringLiteral("Scripts")));
            auto* edit = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            EXPECT_EQ(edit->text(), QFileInfo(QString::fromLatin1(last)).fileName());
            edit->setText(QStringLiteral("cat.ftscr"));
            static_cast<QDialog&>(box).accept();
        });
        dialogs.showOpen(dialog);
        EXPECT_EQ(dialog.FileName, toLabPath(folder.filePath(QStringLiteral("Scripts/cat.ftscr"))));
    }
}

TEST_F(DialogService, ACancelledFileDialogIsAnErrorAndKeepsTheName) {
    FileDialog dialog;
    dialog.FileName = "\\before.bmp";
    for (const bool opening : {true, false}) {
        whenModal<QFileDialog>([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        try {
            opening ? dialogs.showOpen(dialog) : dialogs.showSave(dialog);
            FAIL() << "the dialog was not cancelled";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::DialogCancelled);
        }
        EXPECT_EQ(dialog.FileName, "\\before.bmp");
    }
}

TEST(FileFilters, AreTakenApartAtTheBars) {
    EXPECT_EQ(toNameFilters(""), QStringList());
    EXPECT_EQ(toNameFilters("Script (*.ftscr)|*.ftscr"),
              QStringList{QStringLiteral("Script (*.ftscr)")});
    EXPECT_EQ(toNameFilters("A (*.a;*.b)|*.a;*.b|B|*.*"),
              (QStringList{QStringLiteral("A (*.a *.b)"), QStringLiteral("B (*.*)")}));
}

}  // namespace
}  // namespace quillon
