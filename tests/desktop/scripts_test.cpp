#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTimer>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/support/slow_edits.h"

// Scripts and the commands of spectrum surgery, as a user reaches them, with the
// files on the disk.

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

class ScriptsOfTheWindow : public OpenedWindow {
protected:
    QString pathOf(const char* name) {
        return home.filePath(QStringLiteral("Quillon/Scripts/%1").arg(QString::fromUtf8(name)));
    }
    void write(const char* name, const QByteArray& bytes) {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::string read(const char* name) {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll().toStdString();
    }
    /// What the strip's cell for messages shows on the screen.
    std::string message() {
        return toBytes(dynamic_cast<QLabel&>(widget("lbSTB(2)")).text().trimmed());
    }
    void loadFromMenu(const char* name) {
        recording.dialogs.messages.clear();
        recording.dialogs.answerOpen(toLabPath(pathOf(name)));
        choose("mnuSCR", "itmSCR(0)");
    }
    const Spectrum& one() { return form().lab.channel1.spectrum(); }
    const Spectrum& two() { return form().lab.channel2.spectrum(); }
};

const QByteArray kLesson =
    "TITLE Two filters\r\nLOWPASS 11,5\r\nBOTTOM\r\nMASK rings.ftmsk\r\nINVERT2\r\n";

TEST_F(ScriptsOfTheWindow, ALoadedScriptSetsUpBothChannelsAndTheMenusShowIt) {
    write("lesson.ftscr", kLesson);
    write("rings.ftmsk", "' two masks\r\n10 20 30 40\r\n\r\n50\t60\t70\t80\r\n");
    const Bitmap before = form().pb3.Image();
    loadFromMenu("lesson.ftscr");
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_TRUE(entry("mnuFT1a(10)").isChecked());
    EXPECT_TRUE(entry("mnuFT2a(12)").isChecked());
    EXPECT_TRUE(entry("mnuFT2a(6)").isChecked());
    EXPECT_FALSE(entry("mnuFT1a(6)").isChecked());
    EXPECT_EQ(form().lab.channel1.filter_rad, 11.5F);
    EXPECT_EQ(form().lab.channel2.nmask, 2);
    EXPECT_NE(form().pb3.Image(), before);
}

TEST_F(ScriptsOfTheWindow, AScriptDroppedOnEitherImageRuns) {
    write("lesson.ftscr", "LOWPASS 7");
    for (const char* name : {"pb1", "pb4"}) {
        form().ResetForScript();
        EXPECT_TRUE(drop(panel(name), {QUrl::fromLocalFile(pathOf("lesson.ftscr"))}));
        EXPECT_TRUE(entry("mnuFT1a(10)").isChecked()) << name;
        EXPECT_TRUE(entry("mnuFT2a(9)").isChecked()) << name;
    }
    write("rings.ftmsk", "10 20 30 40");
    drop(panel("pb1"), {QUrl::fromLocalFile(pathOf("rings.ftmsk"))});
    EXPECT_EQ(form().lab.channel1.nmask, 0);
}

TEST_F(ScriptsOfTheWindow, ASavedScriptBringsItsSetUpBack) {
    choose("mnuFT1", "mnuFT1a(11)");
    choose("mnuNew2", "mnuNew2a(6)");
    recording.dialogs.answerSave(toLabPath(pathOf("mine.ftscr")));
    recording.dialogs.answerInput("High pass");
    choose("mnuSCR", "itmSCR(1)");
    const std::string images = toLabPath(home.filePath(QStringLiteral("Quillon/Images/")));
    const std::string text = "TITLE\tHigh pass\r\nLOAD1\t" + images +
                             "Halvard-Image1.jpg\r\nHIGHPASS\t20\r\nBOTTOM\r\nLOAD1\t" + images +
                             "Halvard-Image2.jpg\r\nINVERT3\r\n";
    EXPECT_EQ(read("mine.ftscr"), text);
    choose("mnuFT1", "mnuFT1a(9)");
    choose("mnuNew2", "mnuNew2a(6)");
    loadFromMenu("mine.ftscr");
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_TRUE(entry("mnuFT1a(11)").isChecked());
    EXPECT_TRUE(entry("mnuNew2a(6)").isChecked());
}

TEST_F(ScriptsOfTheWindow, EditingOpensTheEditorOnTheChosenScript) {
    write("lesson.ftscr", kLesson);
    recording.dialogs.answerOpen(toLabPath(pathOf("lesson.ftscr")));
    choose("mnuSCR", "itmSCR(2)");
    const std::string scripts = toLabPath(home.filePath(QStringLiteral("Quillon/Scripts/")));
    EXPECT_EQ(recording.shell.calls,
              (std::vector<RecordingShell::Call>{
                  {"notepad.exe", toLabPath(pathOf("lesson.ftscr")), scripts}}));
}

TEST_F(ScriptsOfTheWindow, ADrawnImageComesBackFromTheScriptOfTheLastSession) {
    choose("mnuImg1", "mnuImg1a(3)");
    form().lab.channel1.file.clear();
    // A stroke, and the transform that follows it.
    press(panel("pb1"), pixel(panel("pb1"), 60, 60));
    move(panel("pb1"), pixel(panel("pb1"), 90, 120));
    release(panel("pb1"), pixel(panel("pb1"), 90, 120));
    settle();
    const Bitmap drawn = form().pb1.Image();
    ASSERT_NE(drawn, Bitmap(256, 256, 0));
    window().close();
    QDir images(home.filePath(QStringLiteral("Quillon/Images")));
    const QStringList companions = images.entryList({QStringLiteral("??????_????t.bmp")});
    ASSERT_EQ(companions.size(), 1);
    EXPECT_EQ(read("last.ftscr")
                  .find("TITLE\tLast Images\r\nLOAD1\t" +
                        toLabPath(images.filePath(companions[0])) + "\r\n"),
              0U);

    open();
    EXPECT_NE(form().pb1.Image(), drawn) << "only the user brings it back";
    loadFromMenu("last.ftscr");
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_EQ(form().pb1.Image(), drawn);
}

TEST_F(ScriptsOfTheWindow, AScriptWithExitEndsTheProgramAfterItsSaves) {
    write(
        "end.ftscr",
        "EXIT\r\nSAVE1 saved.jpg\r\nBOTTOM\r\nSAVE2 spectrum.bmp\r\nHIGHPASS 30\r\nCONVOLVE1\r\n");
    bool quit = false;
    const auto connection =
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, [&] { quit = true; });
    QMetaObject::invokeMethod(
        qApp, [this] { loadFromMenu("end.ftscr"); }, Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    QObject::disconnect(connection);
    EXPECT_TRUE(quit);
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_FALSE(window().isVisible());
    const QDir images(home.filePath(QStringLiteral("Quillon/Images")));
    EXPECT_TRUE(images.exists(QStringLiteral("saved.bmp")));
    EXPECT_TRUE(images.exists(QStringLiteral("spectrum.bmp")));
    EXPECT_NE(read("last.ftscr").find("HIGHPASS\t30\r\n"), std::string::npos);
}

TEST_F(ScriptsOfTheWindow, AFailureBehindExitCanBeReadBeforeTheProgramEnds) {
    write("end.ftscr", "EXIT\r\nBOTTOM\r\nNEW1\r\nDECONVOLVE1\r\n");
    bool stayed = false;
    recording.dialogs.onMessage = [&](const RecordingDialogs::Message& message) {
        // Whatever ends the program is taken before the timer.
        QTimer::singleShot(0, qApp, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            stayed = dialog != nullptr;
            if (stayed)
                dialog->close();
        });
        services.dialogs.messageBox(message.text, message.title, message.icon, message.buttons);
    };
    QMetaObject::invokeMethod(
        qApp, [this] { loadFromMenu("end.ftscr"); }, Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(stayed);
    EXPECT_TRUE(form().isUnloaded());
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text,
              "Error in Read Script: [DECONVOLVE1]Division by zero");
}

TEST_F(ScriptsOfTheWindow, TheEditsOfTheOptionsMenuChangeBothSpectraAndSaySo) {
    struct Choice {
        const char* name;
        const char* text;
    };
    for (const Choice& choice : {Choice{"itmOpt(6)", "FT Phase Sets Swapped"},
                                 {"itmOpt(7)", "FT Phases Randomized"},
                                 {"itmOpt(8)", "FT Magnitudes Randomized"},
                                 {"itmOpt(9)", "FT Phases Discarded"},
                                 {"itmOpt(10)", "FT Magnitudes Discarded"}}) {
        choose("mnuOpt", "itmOpt(3)");
        const Spectrum first = one();
        const Spectrum second = two();
        const Bitmap shown[] = {form().pb3.Image(), form().pb6.Image()};
        choose("mnuOpt", choice.name);
        EXPECT_EQ(message(), choice.text);
        EXPECT_GT(differingCells(one(), first), 60000) << choice.name;
        EXPECT_GT(differingCells(two(), second), 60000) << choice.name;
        EXPECT_NE(form().pb3.Image(), shown[0]) << choice.name;
        EXPECT_NE(form().pb6.Image(), shown[1]) << choice.name;
    }
}

TEST_F(ScriptsOfTheWindow, ConvolutionGoesIntoTheChannelOfItsMenu) {
    const Spectrum product = slow::convolve(one(), two());
    choose("mnuImg1", "mnuImg1a(14)");
    EXPECT_EQ(message(), "Convolution Performed");
    EXPECT_EQ(differingCells(one(), product), 0);
    choose("mnuOpt", "itmOpt(3)");
    choose("mnuImg2", "mnuImg2a(14)");
    EXPECT_EQ(differingCells(two(), product), 0);
    EXPECT_FALSE(entry("mnuImg1a(15)").isVisible()) << "deconvolution is left to scripts";
    EXPECT_FALSE(entry("mnuImg2a(15)").isVisible());
}

TEST_F(ScriptsOfTheWindow, DeconvolutionComesByAScript) {
    for (const char* command : {"DECONVOLVE1", "DECONVOLVE2"}) {
        form().itmOpt(3);
        const Spectrum quotient = command[10] == '1' ? slow::deconvolveIntoChannel1(one(), two())
                                                     : slow::deconvolveIntoChannel2(one(), two());
        write("quotient.ftscr", command);
        loadFromMenu("quotient.ftscr");
        EXPECT_TRUE(recording.dialogs.messages.empty()) << command;
        EXPECT_EQ(message(), "Deconvolution Performed");
        EXPECT_EQ(differingCells(command[10] == '1' ? one() : two(), quotient), 0) << command;
    }
}

}  // namespace
}  // namespace quillon
