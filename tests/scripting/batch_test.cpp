#include "scripting/batch.h"

#include <gtest/gtest.h>

#include <functional>

#include "engine/RunTimeError.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

const std::string kFolder = "C:\\Pictures\\";
const std::string kFilter =
    "Images (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg|JPG Images (*.jpg)|*.jpg|"
    "GIF Images (*.gif)|*.gif|BMP Images (*.bmp)|*.bmp";
constexpr int kInside = 256;

/// A host that saves as the window does, on a bench whose panels have borders.
class BatchHost : public RecordingScriptHost {
public:
    explicit BatchHost(ScriptBench& bench)
        : RecordingScriptHost(bench.desktop.calls, bench.lab), bench_(bench) {}
    void SavePanelImage(Integer panel, const std::string& file) override {
        RecordingScriptHost::SavePanelImage(panel, file);
        try {
            bench_.desktop.pictures.save(bench_.lab.panel(panel).Image(), file);
        } catch (const RunTimeError&) {
            // Silent, as there.
        }
    }

private:
    ScriptBench& bench_;
};

class Batch : public ::testing::Test {
protected:
    Batch() {
        for (PictureBox* panel : {&bench.pb1, &bench.lab.pb2, &bench.pb3}) {
            panel->BorderStyle = 1;
            panel->Move(0, 0, 258 * 15, 258 * 15);
        }
        fr1.Caption = "Image 1";
        fr2.Caption = "FT 1";
        fr3.Caption = "iFT 1";
        File1.Path = kFolder;
        File1.Pattern = "*.bmp;*.gif;*.jpg";
        files.addFolder(kFolder);
    }

    void addPicture(const std::string& name, int grey) {
        pictures.add(kFolder + name, Bitmap(20, 10, grey * 0x10101));
    }
    void run() {
        bench.desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
        bench.desktop.log.clear();
        RunBatch(bench.lab, host, window, kFolder);
    }
    Bitmap output(const std::string& name) {
        const RecordingFiles::File* file = files.find(kFolder + name);
        return file == nullptr || !file->picture.has_value() ? Bitmap{} : *file->picture;
    }
    /// How many images the closing dialog says.
    std::string told() { return bench.desktop.dialogs.messages.back().text; }
    std::vector<std::string> linesOf(const std::vector<std::string>& prefixes) {
        return bench.desktop.calls.of(prefixes);
    }

    ScriptBench bench;
    BatchHost host{bench};
    RecordingFiles& files = bench.desktop.files;
    RecordingPictures& pictures = bench.desktop.pictures;
    FileListBox File1{"File1"};
    Control fr1{"fr1"};
    Control fr2{"fr2"};
    Control fr3{"fr3"};
    bool bStopBatch = false;
    bool running = false;
    BatchWindow window{File1, fr1, fr2, fr3, bStopBatch, running};
};

TEST_F(Batch, AsksFirstAndAnythingButYesEndsIt) {
    addPicture("a.bmp", 50);
    bench.desktop.dialogs.messageAnswers.push_back(MessageAnswer::No);
    RunBatch(bench.lab, host, window, kFolder);
    EXPECT_EQ(bench.desktop.dialogs.messages,
              (std::vector<RecordingDialogs::Message>{
                  {"Start creating FT images for 1 files? \n\n(interrupt with ESC key)",
                   "Batch Processing", MessageIcon::Question, MessageButtons::YesNo}}));
    EXPECT_TRUE(pictures.saved.empty());
    EXPECT_EQ(bench.channel1.file, "");
}

TEST_F(Batch, WritesThreeBitmapsBesideEachImageInTheOrderOfTheNames) {
    addPicture("b.JPG", 80);
    addPicture("a.bmp", 50);
    pictures.add(kFolder + "c.png", Bitmap(3, 3, 0xFFFFFF));
    run();
    std::vector<std::string> paths;
    for (const auto& [path, picture] : pictures.saved)
        paths.push_back(path.substr(kFolder.size()));
    EXPECT_EQ(paths, (std::vector<std::string>{"a.bmp_batch1.bmp", "a.bmp_batch2.bmp",
                                               "a.bmp_batch3.bmp", "b.JPG_batch1.bmp",
                                               "b.JPG_batch2.bmp", "b.JPG_batch3.bmp"}));
    EXPECT_EQ(told(), "2 images processed.");
    EXPECT_EQ(bench.channel1.file, kFolder + "b.JPG") << "the last image stays";
    EXPECT_EQ(bench.pb1.Image(), Bitmap(kInside, kInside, 0x505050)) << "stretched to the panel";
    EXPECT_EQ(bench.state(Channel::Two), "") << "channel 2 takes no part";
}

TEST_F(Batch, MakesAMontageOfTheThreePanels) {
    bench.pb3.setBackColor(kRed);
    addPicture("a.bmp", 50);
    run();
    const Bitmap montage = output("a.bmp_batch3.bmp");
    ASSERT_EQ(montage.width, 772);
    ASSERT_EQ(montage.height, 258);
    const Bitmap spectrum = output("a.bmp_batch1.bmp");
    const Bitmap surface = output("a.bmp_batch2.bmp");
    ASSERT_EQ(spectrum.width, kInside);
    ASSERT_EQ(surface.width, kInside);
    const Bitmap image(kInside, kInside, 0x323232);
    Bitmap expected(772, 258, toPixelWord(kRed));
    for (int y = 0; y < kInside; ++y)
        for (int x = 0; x < kInside; ++x) {
            expected.at(1 + x, 1 + y) = image.at(x, y);
            expected.at(258 + x, 1 + y) = spectrum.at(x, y);
            expected.at(515 + x, 1 + y) = surface.at(x, y);
        }
    EXPECT_EQ(montage, expected);
    EXPECT_NE(spectrum, surface);
}

TEST_F(Batch, ShowsTheSurfaceThenTheReconstructionOfTheLastImage) {
    addPicture("a.bmp", 50);
    run();
    EXPECT_NE(bench.pb3.Image(), output("a.bmp_batch2.bmp"));
    EXPECT_EQ(bench.pb3.Tag, "!");
    const Bitmap after = bench.pb3.Image();
    bench.channel1.runFOURN(0, 0);
    EXPECT_EQ(bench.pb3.Image(), after);
}

TEST_F(Batch, GoesThroughItsStepsInOrder) {
    addPicture("a.bmp", 50);
    bench.desktop.screen.onYield = [&] {
        bench.desktop.calls.add("captions " + fr1.Caption.get() + "|" + fr2.Caption.get() + "|" +
                                fr3.Caption.get());
    };
    run();
    const std::string yield = "screen.pendingEvents()";
    const std::string captions = "captions Batch Processing ...|Image 1 of 1 ...|FT Surface";
    const std::string wait = "screen.setMousePointer(11)";
    const std::string arrow = "screen.setMousePointer(0)";
    const std::vector<std::string> expected{
        "files.list(C:\\Pictures\\, *.bmp;*.gif;*.jpg)",
        "dialogs.messageBox(Start creating FT images for 1 files? \n\n(interrupt with ESC key), "
        "Batch Processing, 32, YesNo)",
        wait,
        "pictures.load(C:\\Pictures\\a.bmp)",
        yield,
        captions,
        wait,
        "transform 1",
        arrow,
        yield,
        captions,
        "save(2, C:\\Pictures\\a.bmp_batch1.bmp)",
        "pictures.save(256x256, C:\\Pictures\\a.bmp_batch1.bmp)",
        "save(3, C:\\Pictures\\a.bmp_batch2.bmp)",
        "pictures.save(256x256, C:\\Pictures\\a.bmp_batch2.bmp)",
        "pictures.save(772x258, C:\\Pictures\\a.bmp_batch3.bmp)",
        yield,
        captions,
        arrow,
        "dialogs.messageBox(1 images processed., Batch Processing, 64, Ok)",
        wait,
        arrow,
        "file(0)"};
    EXPECT_EQ(linesOf({"files.list", "pictures", "screen.", "captions", "transform", "save(",
                       "dialogs.messageBox", "file("}),
              expected);
    EXPECT_EQ(fr1.Caption.get(), "Image 1");
    EXPECT_EQ(fr2.Caption.get(), "FT 1");
    EXPECT_EQ(fr3.Caption.get(), "iFT 1");
    EXPECT_FALSE(bench.channel1.bBatch);
    EXPECT_EQ(bench.lab.img.Width.get(), 15);
    EXPECT_EQ(bench.lab.img.Height.get(), 15);
    EXPECT_EQ(bench.lab.img.Left.get(), 0);
    EXPECT_EQ(bench.lab.img.Top.get(), 0);
    EXPECT_TRUE(bench.lab.img.Picture().empty());
}

TEST_F(Batch, BeginsEachImageWithClearPanelsAFileAndNoMarks) {
    for (const char* name : {"a.bmp", "b.bmp"})
        addPicture(name, 50);
    bench.pb3.setBackColor(kRed);
    bench.lab.img.Move(300, 400, 495, 525);
    std::vector<std::string> files;
    const auto look = [&] {
        files.push_back(bench.channel1.file);
        EXPECT_EQ(bench.pb1.Image(), Bitmap(kInside, kInside, 0x323232));
        EXPECT_EQ(bench.lab.pb2.Image(), Bitmap(kInside, kInside));
        EXPECT_EQ(bench.pb3.Image(), Bitmap(kInside, kInside, toPixelWord(kRed)));
        EXPECT_EQ(bench.channel1.nmask, 0);
        for (const PictureBox* panel : {&bench.pb1, &bench.lab.pb2, &bench.pb3})
            EXPECT_EQ(panel->Tag, "") << panel->Name;
        EXPECT_TRUE(bench.channel1.bBatch);
        // What the user does while events run is undone for the next image.
        bench.channel1.AddMask(1, 2, 3, 4);
    };
    bench.channel1.AddMask(1, 2, 3, 4);
    for (PictureBox* panel : {&bench.pb1, &bench.lab.pb2, &bench.pb3, &bench.lab.pb4})
        panel->Tag = "!";
    bench.desktop.screen.nextYields = {look, [] {}, [] {}, look};
    run();
    EXPECT_EQ(files, (std::vector<std::string>{kFolder + "a.bmp", kFolder + "b.bmp"}));
    EXPECT_EQ(bench.lab.pb4.Tag, "!") << "channel 2 keeps its marks";
}

TEST_F(Batch, ShowsBareGroundsForTheSpectrumOfABlackImage) {
    addPicture("a.bmp", 50);
    addPicture("b.bmp", 0);
    bench.lab.pb2.setBackColor(kRed);
    bench.pb3.setBackColor(RGB(1, 2, 3));
    run();
    EXPECT_EQ(output("b.bmp_batch1.bmp"), Bitmap(kInside, kInside, toPixelWord(kRed)));
    EXPECT_EQ(output("b.bmp_batch2.bmp"), Bitmap(kInside, kInside, toPixelWord(RGB(1, 2, 3))));
    EXPECT_EQ(told(), "2 images processed.");
}

TEST_F(Batch, TellsItsCountWithEverythingPutBackButTheSurface) {
    addPicture("a.bmp", 50);
    bool seen = false;
    bench.desktop.dialogs.onMessage = [&](const RecordingDialogs::Message& message) {
        if (message.icon != MessageIcon::Information)
            return;
        seen = true;
        EXPECT_EQ(fr1.Caption.get() + fr2.Caption.get() + fr3.Caption.get(), "Image 1FT 1iFT 1");
        EXPECT_FALSE(bench.channel1.bBatch);
        EXPECT_EQ(bench.lab.img.Width.get(), 15);
        EXPECT_EQ(bench.pb3.Image(), output("a.bmp_batch2.bmp"));
        EXPECT_EQ(bench.pb3.Tag, "3D");
    };
    run();
    EXPECT_TRUE(seen);
    EXPECT_EQ(bench.pb3.Tag, "!");
}

TEST_F(Batch, SavesTheInverseOfEachImage) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        addPicture(name, 50);
    bool batch = false;
    bench.desktop.screen.nextYields.push_back([&] { batch = bench.channel1.bBatch; });
    run();
    EXPECT_TRUE(batch);
    // One wait for the run, one for each forward transform, one for the inverse at the end.
    EXPECT_EQ(std::ranges::count(bench.desktop.screen.pointers, Integer{11}), 1 + 3 + 1);
}

TEST_F(Batch, WritesItsPicturesQuicklyAndEveryOtherFileCarefully) {
    addPicture("a.bmp", 50);
    bench.desktop.screen.onYield = [&] {
        EXPECT_EQ(files.writeManner, WriteManner::Careful) << "the user may save something now";
    };
    run();
    EXPECT_EQ(pictures.manners, std::vector(3, WriteManner::Quick));
    EXPECT_EQ(files.writeManner, WriteManner::Careful);
    files.makeFolderReadOnly(kFolder);
    run();
    EXPECT_EQ(files.writeManner, WriteManner::Careful) << "also where the files cannot be written";
}

TEST_F(Batch, DropsTheMasksButKeepsTheFilterFields) {
    addPicture("a.bmp", 50);
    bench.channel1.SetFilterFT(4);
    bench.channel1.AddMask(1, 2, 3, 4);
    bench.channel1.filter_rad = 7;
    run();
    EXPECT_EQ(bench.channel1.nmask, 0);
    EXPECT_TRUE(bench.channel1.bMask);
    EXPECT_TRUE(bench.channel1.bFilter);
    EXPECT_EQ(bench.channel1.filter_rad, 7);
}

TEST_F(Batch, StopsBehindTheImageInProgress) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        addPicture(name, 50);
    bench.desktop.screen.nextYields.push_back([&] { bStopBatch = true; });
    run();
    EXPECT_EQ(pictures.saved.size(), 3U);
    EXPECT_EQ(told(), "1 images processed.");
    EXPECT_FALSE(bStopBatch);
}

TEST_F(Batch, ForgetsAnEscapeFromBeforeItsLoop) {
    addPicture("a.bmp", 50);
    addPicture("b.bmp", 50);
    bStopBatch = true;
    run();
    EXPECT_EQ(told(), "2 images processed.");
}

TEST_F(Batch, OfAnEmptyListStillAsksCountsAndShowsTheFolder) {
    run();
    EXPECT_EQ(bench.desktop.dialogs.messages[0].text,
              "Start creating FT images for 0 files? \n\n(interrupt with ESC key)");
    EXPECT_EQ(told(), "0 images processed.");
    EXPECT_EQ(bench.desktop.dialogs.messages.back().icon, MessageIcon::Information);
    EXPECT_EQ(bench.desktop.dialogs.messages.back().title, "Batch Processing");
    EXPECT_EQ(linesOf({"file("}), (std::vector<std::string>{"file(0)"}));
    // The inverse runs although there was no image.
    EXPECT_EQ(std::ranges::count(bench.desktop.screen.pointers, Integer{11}), 2);
}

TEST_F(Batch, TakesTheLastPictureForABadFileAndCountsIt) {
    addPicture("a.bmp", 50);
    pictures.addUndecodable(kFolder + "b.bmp");
    addPicture("c.bmp", 90);
    run();
    EXPECT_EQ(told(), "3 images processed.");
    for (const char* suffix : {"_batch1.bmp", "_batch2.bmp", "_batch3.bmp"})
        EXPECT_EQ(output(std::string("b.bmp") + suffix), output(std::string("a.bmp") + suffix));
    EXPECT_EQ(output("c.bmp_batch3.bmp").at(1, 1), 0x5A5A5A);
}

TEST_F(Batch, TakesTheEmptyPictureForABadFirstFile) {
    bench.pb1.setPicture(Bitmap(kInside, kInside, 0x777777));
    pictures.addUndecodable(kFolder + "a.bmp");
    run();
    EXPECT_EQ(told(), "1 images processed.");
    EXPECT_EQ(output("a.bmp_batch3.bmp").at(100, 100), toPixelWord(bench.pb1.BackColor()));
    EXPECT_EQ(bench.channel1.file, kFolder + "a.bmp");
}

TEST_F(Batch, TakesItsOwnOutputsInASecondRun) {
    addPicture("cat.jpg", 50);
    run();
    File1.Pattern = "*.bmp";
    run();
    EXPECT_TRUE(files.exists(kFolder + "cat.jpg_batch1.bmp_batch1.bmp"));
    EXPECT_TRUE(files.exists(kFolder + "cat.jpg_batch3.bmp_batch3.bmp"));
    EXPECT_EQ(told(), "3 images processed.") << "the list was fixed at the start";
}

TEST_F(Batch, GoesOnInAReadOnlyFolderAndOnAFullDisk) {
    addPicture("a.bmp", 50);
    addPicture("b.bmp", 60);
    files.makeFolderReadOnly(kFolder);
    run();
    EXPECT_EQ(told(), "2 images processed.");
    EXPECT_TRUE(pictures.saved.empty());
    files.diskFull = true;
    run();
    EXPECT_EQ(told(), "2 images processed.");
    EXPECT_EQ(fr1.Caption.get(), "Image 1");
}

TEST_F(Batch, SkipsAFailingYieldOrCommand) {
    addPicture("a.bmp", 50);
    bench.desktop.screen.onYield = [] { throw RunTimeError(ErrorNumber::Overflow); };
    host.failing = "file(0)";
    run();
    EXPECT_EQ(pictures.saved.size(), 3U);
    EXPECT_FALSE(bench.channel1.bBatch);
}

TEST_F(Batch, CommandAsksForASampleOfAFolderAndAType) {
    const char* patterns[] = {"*.xyz", "*.bmp;*.gif;*.jpg", "*.jpg", "*.gif", "*.bmp", "*.xyz"};
    for (const Integer index : std::initializer_list<Integer>{0, 1, 2, 3, 4, 5}) {
        bench.desktop.dialogs.opens.clear();
        bench.lab.ComFile.FileName = "C:\\last.bmp";
        File1.Path.clear();
        File1.Pattern = "*.xyz";
        bench.desktop.dialogs.answerOpen(kFolder + "sample.txt", index);
        bench.desktop.dialogs.messageAnswers.push_back(MessageAnswer::No);
        BatchCommand(bench.lab, host, window);
        ASSERT_EQ(bench.desktop.dialogs.opens.size(), 1U);
        const FileDialog& asked = bench.desktop.dialogs.opens[0];
        EXPECT_EQ(asked.DialogTitle, "Select File Type and 1 Image for FT Batch Processing");
        EXPECT_EQ(asked.FileName, "");
        EXPECT_EQ(asked.InitDir, bench.lab.folders.ImagePath);
        EXPECT_EQ(asked.Filter, kFilter);
        EXPECT_EQ(File1.Path, kFolder);
        EXPECT_EQ(File1.Pattern, patterns[index]) << index;
    }
}

TEST_F(Batch, DoesNotBeginWhileOneIsUnderWay) {
    addPicture("a.bmp", 50);
    running = true;
    RunBatch(bench.lab, host, window, kFolder);
    BatchCommand(bench.lab, host, window);
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
    EXPECT_TRUE(bench.desktop.dialogs.opens.empty());
    EXPECT_EQ(bench.lab.notDone.report, "not begun: one batch at a time");
    EXPECT_TRUE(running) << "the first one goes on";
}

TEST_F(Batch, ThatCannotListItsFolderIsNotUnderWay) {
    File1.Path = "C:\\no folder\\";
    EXPECT_NE(errorOf([&] { RunBatch(bench.lab, host, window, "C:\\no folder\\"); }),
              ErrorNumber{});
    EXPECT_FALSE(running);
}

TEST_F(Batch, CommandLetsEventsRunBetweenItsDialogAndItsQuestion) {
    addPicture("a.bmp", 50);
    bench.desktop.dialogs.answerOpen(kFolder + "a.bmp");
    bench.desktop.dialogs.messageAnswers.push_back(MessageAnswer::No);
    bench.desktop.log.clear();
    BatchCommand(bench.lab, host, window);
    const auto lines = linesOf({"dialogs.", "screen.", "files.list"});
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_TRUE(lines[0].starts_with("dialogs.showOpen(")) << lines[0];
    EXPECT_EQ(lines[1], "screen.pendingEvents()");
    EXPECT_TRUE(lines[2].starts_with("files.list(")) << lines[2];
    EXPECT_TRUE(lines[3].starts_with("dialogs.messageBox(Start ")) << lines[3];
}

TEST_F(Batch, CommandEndsWithAWordInTheStripWhereAnEventFails) {
    addPicture("a.bmp", 50);
    File1.Path = "C:\\Before\\";
    bench.desktop.dialogs.answerOpen(kFolder + "a.bmp");
    bench.desktop.screen.onYield = [] { throw RunTimeError(ErrorNumber::Overflow); };
    EXPECT_EQ(errorOf([&] { BatchCommand(bench.lab, host, window); }), ErrorNumber{});
    EXPECT_EQ(File1.Path, "C:\\Before\\");
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
    EXPECT_EQ(bench.message(), "no batch: Overflow");
}

TEST_F(Batch, CommandEndsSilentlyWhenCancelledAndWithAWordInTheStripWithoutAFolder) {
    bench.desktop.dialogs.cancelOpen();
    BatchCommand(bench.lab, host, window);
    EXPECT_EQ(bench.message(), "");
    bench.desktop.dialogs.answerOpen("C:\\no folder\\a.bmp");
    BatchCommand(bench.lab, host, window);
    EXPECT_EQ(bench.message(), "folder not found: C:/no folder/");
    bench.desktop.dialogs.answerOpen("a.bmp");
    BatchCommand(bench.lab, host, window);
    EXPECT_EQ(bench.message(), "folder not found: a.bmp");
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
}

TEST_F(Batch, RunsTwoHundredPicturesOfAnySizeAndDamage) {
    const char* extensions[] = {".bmp", ".GIF", ".jpg", ".Bmp"};
    for (int i = 0; i < 200; ++i) {
        const std::string name = "p" + std::to_string(1000 + i) + extensions[i % 4];
        if (i % 7 == 3)
            pictures.addUndecodable(kFolder + name);
        else
            pictures.add(kFolder + name, Bitmap(1 + i * 5, 1 + (199 - i) * 3, (i + 20) * 0x10101));
    }
    int images = 0;
    bench.desktop.screen.onYield = [&] {
        if (fr2.Caption.get() == "Image 120 of 200 ...")
            bStopBatch = true;
        images = std::max(images, static_cast<int>(pictures.saved.size()));
    };
    run();
    EXPECT_EQ(told(), "120 images processed.");
    EXPECT_EQ(pictures.saved.size(), 360U);
    EXPECT_TRUE(files.exists(kFolder + "p1119.Bmp_batch3.bmp"));
    EXPECT_FALSE(files.exists(kFolder + "p1120.bmp_batch1.bmp"));
    EXPECT_EQ(fr2.Caption.get(), "FT 1");
    EXPECT_EQ(output("p1010.jpg_batch1.bmp"), output("p1009.GIF_batch1.bmp"))
        << "a damaged file after a good one";
}

}  // namespace
}  // namespace quillon
