#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <optional>

#include "desktop/Conversions.h"
#include "tests/desktop/AnsweredWindow.h"
#include "tests/desktop/mixed_pictures.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/slow_renderer.h"

// Whole folders as a user runs them: from the menu, with the dialogs that really
// open, over files on the disk.

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr int kSide = 256;
constexpr const char* kSuffixes[] = {"_batch1.bmp", "_batch2.bmp", "_batch3.bmp"};
// 54 bytes of headers, 24 bits a pixel, rows of whole 32-bit words.
constexpr std::uintmax_t kPanelBytes = 54 + 3 * 256 * 256;
constexpr std::uintmax_t kMontageBytes = 54 + 3 * 772 * 258;

/// The filter of the dialog, from 1.
enum class Types { All = 1, Jpg, Gif, Bmp };

class BatchInTheWindow : public AnsweredWindow {
protected:
    std::string lab(const std::string& name) { return toLabPath(toQString(folder.file(name))); }

    /// Chooses a sample of the folder in the dialog, by hand.
    void nextSample(const std::string& sample, Types types) {
        answers.next<QFileDialog>([=, this](QFileDialog& box) {
            EXPECT_EQ(toBytes(box.windowTitle()),
                      "Select File Type and 1 Image for FT Batch Processing");
            EXPECT_EQ(toLabPath(box.directory().path()) + "\\", form().lab.folders.ImagePath);
            auto& filters = *box.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            for (int i = 1; i < static_cast<int>(types); ++i)
                QTest::keyClick(&filters, Qt::Key_Down);
            auto& name = *box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name.setText(toQString(folder.file(sample)));
            QTest::keyClick(&name, Qt::Key_Return);
        });
    }
    /// Answers the question; `before` happens while it is on show.
    void nextQuestion(
        std::size_t files, QMessageBox::StandardButton button,
        std::function<void()> before = [] {}) {
        answers.nextMessage("Start creating FT images for " + std::to_string(files) +
                                " files? \n\n(interrupt with ESC key)",
                            "Batch Processing", QMessageBox::Question, button, std::move(before));
    }
    void nextCount(
        std::size_t images, std::function<void()> before = [] {}) {
        answers.nextMessage(std::to_string(images) + " images processed.", "Batch Processing",
                            QMessageBox::Information, QMessageBox::Ok, std::move(before));
    }
    /// The menu, with whatever answers are queued. Calls `act` again and again
    /// while the run lets events run.
    void runFromTheMenu(std::function<void()> act = [] {}) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            if (form().fr1.Caption.get() == "Batch Processing ...")
                act();
        });
        timer.start(0);
        choose("mnuFile", "itmFile(3)");
        EXPECT_TRUE(answers.empty());
    }

    /// The strip of the spectrum's frame that holds its caption.
    QRect captionStrip() { return {0, 0, widget("fr2").width(), widget("pb2").y()}; }
    /// That strip as it stands on the screen now.
    QImage stripOnScreen() {
        const QPoint corner = widget("fr2").mapTo(&window(), QPoint(0, 0));
        return window()
            .screen()
            ->grabWindow(window().winId(), corner.x(), corner.y(), captionStrip().width(),
                         captionStrip().height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    /// That strip as it is when it has been painted.
    QImage stripPainted() {
        return widget("fr2").grab(captionStrip()).toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// A bitmap of the folder, read without the lab.
    Bitmap written(const std::string& name) {
        return toBitmap(QImage(toQString(folder.file(name)), "BMP"));
    }
    static Bitmap part(const Bitmap& montage, int left) {
        Bitmap panel(kSide, kSide);
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                panel.at(x, y) = montage.at(left + x, 1 + y);
        return panel;
    }
    std::ptrdiff_t entries() const {
        return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
    }
    void expectOutputs(const std::string& name) {
        std::error_code ignored;
        for (const char* suffix : kSuffixes)
            EXPECT_EQ(fs::file_size(folder.path() / (name + suffix), ignored),
                      suffix == kSuffixes[2] ? kMontageBytes : kPanelBytes)
                << name << suffix;
    }
    void expectLikeTheSlowRenderer(const std::string& name);
    void expectWindowAsBefore() {
        EXPECT_EQ(form().fr1.Caption.get(), "Original Image");
        EXPECT_EQ(form().fr2.Caption.get(), "Fourier Transform");
        EXPECT_EQ(form().fr3.Caption.get(), "Reconstruction");
        EXPECT_EQ(stripOnScreen(), stripPainted());
        EXPECT_EQ(form().pb3.Tag, "!");
        EXPECT_FALSE(form().lab.channel1.bBatch);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        const RecordingShell::Call view{"explorer.exe", form().lab.folders.ImagePath, "0"};
        ASSERT_FALSE(recording.shell.calls.empty());
        EXPECT_EQ(recording.shell.calls.back(), view);
    }

    TemporaryFolder folder;
};

/// The three outputs are those of the picture that the montage shows at its left.
void BatchInTheWindow::expectLikeTheSlowRenderer(const std::string& name) {
    const Bitmap montage = written(name + "_batch3.bmp");
    ASSERT_EQ(montage.width, 772);
    ASSERT_EQ(montage.height, 258);
    ChannelUnderTest bench;
    bench.pb1.setPicture(part(montage, 1));
    bench.channel.runFOURN(1, 0);
    const slow::Drawing drawing = slow::drawSpectrum(
        bench.channel.spectrum(), kSide, kSide, slow::lookOf(bench.channel, 1), slow::makeTables());
    Bitmap spectrum(kSide, kSide, toPixelWord(form().pb2.BackColor()));
    // Of a black picture there is nothing to draw.
    if (drawing.drawn)
        std::ranges::transform(drawing.pix, spectrum.words.begin(),
                               [](Long pixel) { return pixel & 0xFFFFFF; });
    bench.pb3.setBackColor(form().pb3.BackColor());
    const Bitmap relief = slow::reliefOn(bench.pb3, bench.channel);
    EXPECT_EQ(written(name + "_batch1.bmp"), spectrum) << name;
    EXPECT_EQ(written(name + "_batch2.bmp"), relief) << name;
    EXPECT_EQ(part(montage, 258), spectrum) << name;
    EXPECT_EQ(part(montage, 515), relief) << name;
    const PixelWord ground = toPixelWord(form().pb3.BackColor());
    for (int y = 0; y < montage.height; ++y)
        for (const int x : {0, 257, 514, 771})
            EXPECT_EQ(montage.at(x, y), ground) << name << " " << x << ", " << y;
    for (int x = 0; x < montage.width; ++x)
        for (const int y : {0, 257})
            EXPECT_EQ(montage.at(x, y), ground) << name << " " << x << ", " << y;
}

TEST_F(BatchInTheWindow, TurnsTwoHundredMixedPicturesIntoThreeBitmapsEach) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 200);
    nextSample(pictures[7].name, Types::All);
    nextQuestion(200, QMessageBox::Yes);
    nextCount(200);
    std::vector<std::string> order;
    std::vector<std::string> seen;
    runFromTheMenu([&] {
        const std::string& caption = form().fr2.Caption.get();
        if (order.empty() || order.back() != form().lab.channel1.file)
            order.push_back(form().lab.channel1.file);
        if ((seen.empty() || seen.back() != caption) && stripOnScreen() == stripPainted())
            seen.push_back(caption);
    });
    expectWindowAsBefore();
    EXPECT_EQ(entries(), 4 * 200) << "the sources and three bitmaps of each, nothing else";
    ASSERT_EQ(order.size(), 200U);
    ASSERT_EQ(seen.size(), 200U) << "every caption was on the screen while its image was worked on";

    // A file that is no picture gets the outputs of the one before it; before the
    // first picture that is the bare ground.
    Bitmap image(kSide, kSide, toPixelWord(form().pb1.BackColor()));
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto& [name, whole] = pictures[i];
        SCOPED_TRACE(name);
        EXPECT_EQ(order[i], lab(name));
        EXPECT_EQ(seen[i], "Image " + std::to_string(i + 1) + " of 200 ...");
        expectOutputs(name);
        if (whole) {
            PictureBox panel("panel", kSide, kSide);
            panel.setAutoRedraw(true);
            panel.PaintPictureStretched(services.pictures.load(lab(name)), {0, 0, kSide, kSide});
            image = panel.Image();
        } else if (i > 0) {
            for (const char* suffix : kSuffixes)
                EXPECT_TRUE(folder.read(name + suffix) ==
                            folder.read(pictures[i - 1].name + suffix))
                    << suffix;
        }
        EXPECT_TRUE(part(written(name + "_batch3.bmp"), 1) == image);
    }
    for (const std::size_t i : {0U, 1U, 56U, 112U, 199U})
        expectLikeTheSlowRenderer(pictures[i].name);
    EXPECT_EQ(form().lab.channel1.file, lab(pictures.back().name));
    EXPECT_EQ(form().pb1.Image(), image);
}

TEST_F(BatchInTheWindow, EscapeFinishesTheImageInProgressAndCountsIt) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 12);
    nextSample(pictures[0].name, Types::All);
    nextQuestion(12, QMessageBox::Yes);
    nextCount(5);
    bool pressed = false;
    runFromTheMenu([&] {
        if (pressed || form().fr2.Caption.get() != "Image 5 of 12 ...")
            return;
        pressed = true;
        QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
    });
    EXPECT_TRUE(pressed);
    expectWindowAsBefore();
    EXPECT_EQ(entries(), 12 + 3 * 5);
    expectOutputs(pictures[4].name);
    EXPECT_EQ(form().lab.channel1.file, lab(pictures[4].name));
    EXPECT_FALSE(form().bStopBatch);

    // The outputs are bitmaps too, so the next run takes them with the others.
    nextSample(pictures[0].name, Types::All);
    nextQuestion(12 + 3 * 5, QMessageBox::No);
    runFromTheMenu();
    EXPECT_EQ(entries(), 12 + 3 * 5);
}

TEST_F(BatchInTheWindow, EscapeInTheDarkEndsTheBatchAndTheNextOneTurnsTheLightOn) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 6);
    nextSample(pictures[0].name, Types::All);
    nextQuestion(6, QMessageBox::Yes);
    nextCount(4);
    window().setDarkMeans(DarkMeans::PaintedChild);
    bool dark = false;
    bool pressed = false;
    runFromTheMenu([&] {
        const std::string& caption = form().fr2.Caption.get();
        if (!dark && caption == "Image 2 of 6 ...") {
            dark = true;
            QTest::keyClick(window().windowHandle(), Qt::Key_L);
            EXPECT_EQ(form().Tag, "DIM");
        }
        if (!pressed && caption == "Image 4 of 6 ...") {
            pressed = true;
            QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
            EXPECT_EQ(form().dim.fadeDirection, 1) << "the light stays off";
        }
    });
    EXPECT_TRUE(pressed);
    EXPECT_EQ(entries(), 6 + 3 * 4);
    EXPECT_EQ(form().Tag, "DIM");
    EXPECT_EQ(form().dim.fadeDirection, 1);
    // A quick batch may end before the first tick of the fade, and what is not yet
    // dark goes without a fade.
    while (form().dim.fadeAlpha < 255)
        form().dim.Timer1_Timer();
    settle();
    QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(form().dim.fadeDirection, 2);
}

TEST_F(BatchInTheWindow, LetsTheUsersOtherCommandsThroughWhileItRuns) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 6);
    nextSample(pictures[0].name, Types::All);
    nextQuestion(6, QMessageBox::Yes);
    bool chosen = false;
    runFromTheMenu([&] {
        if (chosen || form().fr2.Caption.get() != "Image 3 of 6 ...")
            return;
        chosen = true;
        choose("mnuOpt", "itmOpt(14)");
        EXPECT_TRUE(form().lab.channel1.bBatch) << "the run is still under way";
        // A second batch does not begin and asks for nothing.
        nextCount(6);
        choose("mnuFile", "itmFile(3)");
        EXPECT_EQ(form().lbSTB(2).Caption.get(), "not begun: one batch at a time");
    });
    EXPECT_TRUE(chosen);
    expectWindowAsBefore();
    EXPECT_EQ(form().lab.channel1.mView, 2);
    EXPECT_EQ(entries(), 6 + 3 * 6);
    for (const MixedPicture& picture : pictures)
        expectOutputs(picture.name);
    // From there on the phases are written.
    EXPECT_EQ(written(pictures[5].name + "_batch1.bmp"), form().pb2.Image());
}

TEST_F(BatchInTheWindow, TakesTheTypeThatTheDialogShowsAtTheEnd) {
    makeMixedPictures(folder, 12);
    // Two of each ending, and every one in capitals or not.
    for (const Types types : {Types::Jpg, Types::Gif, Types::Bmp}) {
        form().lab.ComFile.FilterIndex = 1;
        nextSample("p000.bmp", types);
        nextQuestion(4, QMessageBox::No);
        runFromTheMenu();
    }
    EXPECT_EQ(entries(), 12);
}

TEST_F(BatchInTheWindow, ACancelledDialogSaysNothing) {
    const Bitmap before = form().pb1.Image();
    recording.shell.calls.clear();
    answers.next<QFileDialog>([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    runFromTheMenu();
    EXPECT_EQ(form().pb1.Image(), before);
    EXPECT_TRUE(recording.shell.calls.empty());
}

TEST_F(BatchInTheWindow, GoesThroughAFolderWhereItMayNotWrite) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 12);
    const std::string earlier = pictures[2].name + "_batch1.bmp";
    folder.write(earlier, "of an earlier run");
    std::optional<OrdinaryUser> user;
    bool bound = false;
    nextSample(pictures[0].name, Types::Jpg);
    nextQuestion(4, QMessageBox::Yes, [&] {
        user.emplace(folder);
        bound = user->isBound();
        EXPECT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    });
    nextCount(4, [&] {
        user.reset();
        EXPECT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    });
    runFromTheMenu();
    if (!bound)
        GTEST_SKIP() << "permissions do not bind this user";
    expectWindowAsBefore();
    EXPECT_EQ(entries(), 12 + 1);
    EXPECT_EQ(folder.read(earlier), "of an earlier run");
    EXPECT_EQ(form().lab.channel1.file, lab(pictures[11].name));
}

TEST_F(BatchInTheWindow, LosesNothingOnAFullDisk) {
    const std::vector<MixedPicture> pictures = makeMixedPictures(folder, 12);
    const std::string earlier = pictures[2].name + "_batch3.bmp";
    folder.write(earlier, "of an earlier run");
    std::optional<SmallDisk> disk;
    nextSample(pictures[0].name, Types::Jpg);
    // Room for a panel, not for the montage.
    nextQuestion(4, QMessageBox::Yes, [&] { disk.emplace(kPanelBytes + 100); });
    nextCount(4, [&] { disk.reset(); });
    runFromTheMenu();
    expectWindowAsBefore();
    EXPECT_EQ(entries(), 12 + 1 + 2 * 4) << "nothing half written is left";
    EXPECT_EQ(folder.read(earlier), "of an earlier run");
    for (const int i : {2, 5, 8, 11})
        for (const char* suffix : {kSuffixes[0], kSuffixes[1]})
            EXPECT_EQ(fs::file_size(folder.path() /
                                    (pictures[static_cast<std::size_t>(i)].name + suffix)),
                      kPanelBytes);
}

}  // namespace
}  // namespace quillon
