#include <string>

#include "tests/support/CommandFixture.h"

// The batch in the window.

namespace quillon {
namespace {

class WindowBatch : public CommandFixture {
protected:
    WindowBatch() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            desktop.pictures.add(std::string("C:\\P\\") + name, squaresPicture());
        desktop.dialogs.answerOpen("C:\\P\\a.bmp", 4);
        desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
    }
    std::string told() { return desktop.dialogs.messages.back().text; }
};

TEST_F(WindowBatch, IsStoppedByEscapeDuringTheFirstImage) {
    bool pressed = false;
    desktop.screen.onYield = [&] {
        if (!pressed && form.fr2.Caption.get() == "Image 1 of 3 ...") {
            pressed = true;
            form.KeyDown(27, 0);
        }
    };
    form.itmFile(3);
    EXPECT_EQ(told(), "1 images processed.");
    EXPECT_EQ(desktop.pictures.saved.size(), 3U);
    EXPECT_EQ(form.lab.channel1.file, "C:\\P\\a.bmp");
    EXPECT_EQ(desktop.shell.calls,
              (std::vector<RecordingShell::Call>{{"explorer.exe", folders.ImagePath, "0"}}))
        << "the image folder shows, although the batch ran in another";
}

TEST_F(WindowBatch, MakesTheMontageOfItsPanelsAndLeavesTheReconstruction) {
    form.itmFile(3);
    EXPECT_EQ(told(), "3 images processed.");
    ASSERT_EQ(desktop.pictures.saved.size(), 9U);
    const Bitmap& montage = desktop.pictures.saved[8].second;
    EXPECT_EQ(montage.width, 772);
    EXPECT_EQ(montage.height, 258);
    EXPECT_EQ(montage.at(1 + 40, 1 + 50), squaresPicture().at(40, 50));
    EXPECT_EQ(montage.at(0, 0), toPixelWord(form.pb3.BackColor()));
    const Bitmap after = form.pb3.Image();
    form.lab.channel1.runFOURN(0, 0);
    EXPECT_EQ(form.pb3.Image(), after);
    EXPECT_EQ(form.pb1.Image(), squaresPicture());
    form.pb1.Cls();
    EXPECT_EQ(form.pb1.Image(), squaresPicture()) << "the last image outlives a cleared panel";
}

TEST_F(WindowBatch, RefusesASecondOneWithAWordThatStaysDuringTheRun) {
    desktop.pictures.add("C:\\Q\\z.bmp", discPicture());
    std::vector<std::string> words;
    bool asked = false;
    desktop.screen.onYield = [&] {
        if (form.fr1.Caption.get() != "Batch Processing ...")
            return;
        if (asked) {
            words.push_back(status(2));
            return;
        }
        asked = true;
        desktop.dialogs.answerOpen("C:\\Q\\z.bmp", 4);
        desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
        form.click(MenuArray::itmFile, 3);
        EXPECT_EQ(status(2), "not begun: one batch at a time");
        form.RunBatch("C:\\Q\\");
        desktop.dialogs.messageAnswers.clear();
    };
    form.itmFile(3);
    EXPECT_TRUE(asked);
    EXPECT_EQ(told(), "3 images processed.");
    EXPECT_EQ(desktop.dialogs.opens.size(), 1U) << "the second one asks for nothing";
    EXPECT_EQ(desktop.dialogs.messages.size(), 2U) << "the question and the count of the first";
    EXPECT_EQ(form.File1.Path, "C:\\P\\");
    ASSERT_EQ(desktop.pictures.saved.size(), 9U);
    for (const auto& [path, picture] : desktop.pictures.saved)
        EXPECT_TRUE(path.starts_with("C:\\P\\")) << path;
    EXPECT_EQ(words, std::vector<std::string>(8, "not begun: one batch at a time"));
}

TEST_F(WindowBatch, CanBeginAgainWhenOneHasEndedHoweverItEnded) {
    form.itmFile(3);
    desktop.dialogs.cancelOpen();
    form.itmFile(3);
    desktop.dialogs.answerOpen("C:\\P\\a.bmp", 4);
    desktop.dialogs.messageAnswers.push_back(MessageAnswer::No);
    form.itmFile(3);
    desktop.dialogs.answerOpen("C:\\P\\a.bmp", 4);
    desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
    form.itmFile(3);
    // The outputs of the first run are bitmaps too.
    EXPECT_EQ(told(), "12 images processed.");
    EXPECT_NE(status(2), "not begun: one batch at a time");
}

TEST_F(WindowBatch, EndsWithItsImageWhenTheWindowIsClosed) {
    desktop.screen.onYield = [&] {
        if (form.fr2.Caption.get() == "Image 2 of 3 ...")
            form.unload();
    };
    form.itmFile(3);
    EXPECT_EQ(told(), "2 images processed.");
    EXPECT_EQ(host.unloads, 1);
    EXPECT_TRUE(desktop.shell.calls.empty()) << "no folder opens behind a closed window";
}

}  // namespace
}  // namespace quillon
