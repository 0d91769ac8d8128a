#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <filesystem>
#include <optional>

#include "desktop/Conversions.h"
#include "desktop/ExportDialog.h"
#include "tests/desktop/AnsweredWindow.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/slow_export.h"

// The numbers of a spectrum on the real clipboard, from the menu, by way of the
// real dialog and a real temporary file.

namespace quillon {
namespace {

namespace fs = std::filesystem;

class ExportFromTheWindow : public AnsweredWindow {
protected:
    static void click(QAbstractButton& button) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    static QAbstractButton& button(QDialog& dialog, const std::string& name) {
        return *dialog.findChild<QAbstractButton*>(toQString(name));
    }
    static ExportOptions shown(QDialog& dialog) {
        ExportOptions options;
        for (int i = 0; i < 5; ++i)
            if (button(dialog, "op(" + std::to_string(i) + ")").isChecked())
                options.m = static_cast<Integer>(i);
        const auto checked = [&](const char* name) {
            return static_cast<Integer>(button(dialog, name).isChecked() ? 1 : 0);
        };
        options.bi = checked("Check1(0)");
        options.bs = checked("Check1(1)");
        options.b3 = checked("Check1(2)");
        return options;
    }
    /// The dialog opens with `before`, and is brought to `wanted` with the mouse.
    void nextDialog(
        const ExportOptions& before, const ExportOptions& wanted,
        std::function<void()> act = [] {}) {
        answers.next<ExportDialog>([=](ExportDialog& dialog) {
            const ExportOptions found = shown(dialog);
            EXPECT_EQ(found.m, before.m);
            EXPECT_EQ(found.bi, before.bi);
            EXPECT_EQ(found.bs, before.bs);
            EXPECT_EQ(found.b3, before.b3);
            click(button(dialog, "op(" + std::to_string(wanted.m) + ")"));
            if (found.bi != wanted.bi)
                click(button(dialog, "Check1(0)"));
            if (found.bs != wanted.bs)
                click(button(dialog, "Check1(1)"));
            if (found.b3 != wanted.b3)
                click(button(dialog, "Check1(2)"));
            act();
            click(button(dialog, "OKButton"));
        });
    }
    void nextDone(std::function<void()> look = [] {}) {
        answers.nextMessage("Data copied to clipboard.", "FT Export", QMessageBox::Information,
                            QMessageBox::Ok, std::move(look));
    }
    void exportFirst() {
        chooseOn("pb2", "mnuFT1a(17)");
        EXPECT_TRUE(answers.empty());
    }
    void exportSecond() {
        chooseOn("pb5", "mnuFT2a(17)");
        EXPECT_TRUE(answers.empty());
    }
    static std::string clipboard() {
        return QApplication::clipboard()
            ->mimeData()
            ->data(QStringLiteral("text/plain"))
            .toStdString();
    }
    void fileIn(const TemporaryFolder& folder) {
        place.emplace("TMP", toQString(folder.path().string()));
    }
    /// An export with the defaults that leaves the clipboard as it was and says nothing.
    void expectSilence(std::function<void()> act = [] {}) {
        QApplication::clipboard()->setText(QStringLiteral("kept"));
        nextDialog(kDefault, kDefault, std::move(act));
        exportFirst();
        EXPECT_EQ(clipboard(), "kept");
    }
    /// An export with the defaults; `look` while it says that it is done.
    void expectExport(std::function<void()> look = [] {}) {
        nextDialog(kDefault, kDefault);
        nextDone(std::move(look));
        exportFirst();
        EXPECT_TRUE(clipboard() == slow::exportText(form().lab.channel1.spectrum(), kDefault));
    }
    static std::ptrdiff_t entries(const TemporaryFolder& folder) {
        return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
    }

    static constexpr ExportOptions kDefault{.ok = true, .m = 1, .bi = 1, .bs = 1, .b3 = 0};
    std::optional<EnvironmentVariable> place;
};

TEST_F(ExportFromTheWindow, PutsTheNumbersOnTheClipboardByteForByteInEveryLayout) {
    // Between them every quantity, and both states of every box.
    const ExportOptions choices[] = {
        kDefault,
        {.ok = true, .m = 0, .bi = 0, .bs = 0, .b3 = 0},
        {.ok = true, .m = 2, .bi = 0, .bs = 1, .b3 = 1},
        {.ok = true, .m = 3, .bi = 1, .bs = 0, .b3 = 1},
        {.ok = true, .m = 4, .bi = 0, .bs = 1, .b3 = 0},
    };
    ExportOptions before = kDefault;
    for (const ExportOptions& wanted : choices) {
        nextDialog(before, wanted);
        nextDone();
        exportFirst();
        // Too long to be shown where they differ.
        EXPECT_TRUE(clipboard() == slow::exportText(form().lab.channel1.spectrum(), wanted))
            << wanted.m;
        before = wanted;
    }
    // One dialog for both channels: its choices are kept from one to the other.
    nextDialog(before, before);
    nextDone();
    exportSecond();
    EXPECT_TRUE(clipboard() == slow::exportText(form().lab.channel2.spectrum(), before));
}

TEST_F(ExportFromTheWindow, GoesThroughAFileForTheUserAloneThatIsGoneAtTheEnd) {
    const fs::path file = fs::path(home.path().toStdString()) / ".cache/quillon/tmp";
    const auto rightsOf = [](const fs::path& path) {
        struct stat status {};
        return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
    };
    expectExport([&] {
        EXPECT_EQ(rightsOf(file), 0600U);
        EXPECT_EQ(rightsOf(file.parent_path()), 0700U);
        EXPECT_EQ(fs::file_size(file), clipboard().size());
    });
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(fs::is_empty(file.parent_path()));

    const TemporaryFolder own;
    fileIn(own);
    ASSERT_EQ(::chmod(own.path().c_str(), 0777), 0);
    expectExport([&] { EXPECT_EQ(rightsOf(own.path() / "tmp"), 0600U); });
    EXPECT_EQ(entries(own), 0);
}

TEST_F(ExportFromTheWindow, TakesThePlaceOfAFileThatALostRunHasLeft) {
    const TemporaryFolder own;
    fileIn(own);
    own.write("tmp", "left from the last time");
    expectExport();
    EXPECT_EQ(entries(own), 0);
}

TEST_F(ExportFromTheWindow, ClosedByItsCloseBoxWritesNothing) {
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    const TemporaryFolder own;
    fileIn(own);
    answers.next<ExportDialog>([](ExportDialog& dialog) {
        click(button(dialog, "op(4)"));
        dialog.close();
    });
    exportFirst();
    EXPECT_EQ(clipboard(), "kept");
    EXPECT_EQ(entries(own), 0);
}

TEST_F(ExportFromTheWindow, EndsSilentlyWithoutAFolder) {
    const TemporaryFolder own;
    place.emplace("TMP", toQString(own.file("nowhere")));
    expectSilence();
    EXPECT_EQ(entries(own), 0);
}

TEST_F(ExportFromTheWindow, EndsSilentlyWhereSomebodyHasPlantedALink) {
    const TemporaryFolder own;
    fileIn(own);
    own.write("victim", "precious");
    fs::create_symlink("victim", own.path() / "tmp");
    expectSilence();
    EXPECT_EQ(own.read("victim"), "precious");
    EXPECT_EQ(entries(own), 2);
}

TEST_F(ExportFromTheWindow, EndsSilentlyWhereItMayNotWrite) {
    const TemporaryFolder own;
    fileIn(own);
    std::optional<OrdinaryUser> user;
    bool bound = false;
    expectSilence([&] {
        user.emplace(own);
        bound = user->isBound();
        EXPECT_EQ(::chmod(own.path().c_str(), 0555), 0);
    });
    user.reset();
    ASSERT_EQ(::chmod(own.path().c_str(), 0755), 0);
    if (!bound)
        GTEST_SKIP() << "permissions do not bind this user";
    EXPECT_EQ(entries(own), 0);
}

TEST_F(ExportFromTheWindow, EndsSilentlyOnAFullDiskAndSucceedsWhenThereIsRoomAgain) {
    const TemporaryFolder own;
    fileIn(own);
    std::optional<SmallDisk> disk;
    expectSilence([&] { disk.emplace(8192); });
    disk.reset();
    EXPECT_EQ(entries(own), 0);
    expectExport();
}

}  // namespace
}  // namespace quillon
