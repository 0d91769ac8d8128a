#include <array>
#include <functional>
#include <string>

#include "engine/stretch.h"
#include "tests/support/CommandFixture.h"

// What a session leaves behind brings its panels back: images that no file holds
// are kept beside the session's script.

namespace quillon {
namespace {

constexpr Integer kInvertEntry = 9;
constexpr Integer kLeft = 1;

class NextSession : public CommandFixture {
protected:
    using Panels = std::array<Bitmap, 6>;

    NextSession() { desktop.environment.time = {2026, 11, 15, 1, 12}; }

    static Panels panelsOf(Form1& of) {
        Panels panels;
        for (Integer id = 1; id <= 6; ++id)
            panels[static_cast<std::size_t>(id - 1)] = of.lab.panel(id).Image();
        return panels;
    }
    void drag(Control& on, Single x1, Single y1, Single x2, Single y2) {
        form.MouseDown(on, kLeft, 0, x1, y1);
        form.MouseMove(on, kLeft, 0, x2, y2);
        form.MouseUp(on, kLeft, 0, x2, y2);
    }
    void draw(Channel which) { drag(image(which), 30, 40, 200, 90); }
    void clickImage(Channel which, Integer index) {
        form.click(which == Channel::One ? MenuArray::mnuImg1a : MenuArray::mnuImg2a, index);
    }
    void chooseTool(Channel which, Integer index) {
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, index);
    }
    std::string last() { return desktop.files.bytesOf(folders.ScriptPath + "last.ftscr"); }
    std::string kept(const std::string& name) { return folders.ImagePath + name; }

    /// Ends the session and begins the next one with its script.
    Panels nextPanels() {
        form.unload();
        desktop.dialogs.messages.clear();
        desktop.environment.arguments = folders.ScriptPath + "last.ftscr";
        Form1 next{desktop.desktop(), folders};
        next.Form_Load();
        EXPECT_TRUE(desktop.dialogs.messages.empty());
        return panelsOf(next);
    }
    void expectTheSameInTheNextSession() {
        const Panels before = panelsOf(form);
        const Panels after = nextPanels();
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ(differingPixels(before[i], after[i]), 0) << "pb" << i + 1 << "\n" << last();
    }
};

TEST_F(NextSession, ShowsWhatWasDrawnOnBothImages) {
    draw(Channel::One);
    draw(Channel::Two);
    expectTheSameInTheNextSession();
    EXPECT_EQ(last(), "TITLE\tLast Images\r\nLOAD1\t" + kept("111526_0112t.bmp") +
                          "\r\nBOTTOM\r\nLOAD1\t" + kept("111526_0112b.bmp") + "\r\n");
}

TEST_F(NextSession, ShowsADrawingUnderItsFilters) {
    draw(Channel::One);
    draw(Channel::Two);
    form.mnuFT1a(10);
    form.SetFilterRing(0, 20);
    form.lab.channel1.runFOURN(0, 0);
    form.mnuFT2a(12);
    form.lab.channel2.AddMask(100, 100, 120, 130);
    form.lab.channel2.runFOURN(1, 0);
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsARolledImage) {
    for (const Channel which : kBoth) {
        chooseTool(which, 2);
        drag(image(which), 100, 100, 117, 60);
    }
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsAnImageRolledByArrowKeys) {
    form.KeyDown(37, kShiftKey);
    form.KeyUp(37, kShiftKey);
    form.KeyDown(40, kCtrlKey);
    form.KeyDown(40, kCtrlKey);
    form.KeyUp(40, kCtrlKey);
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsAPastedImageThoughAnotherPasteFollows) {
    desktop.files.addFolder("C:\\Temp");
    desktop.clipboard.content = stretched(discPicture(), 100, 90);
    clickImage(Channel::One, 7);
    desktop.clipboard.content = squaresPicture();
    clickImage(Channel::Two, 7);
    const Panels before = panelsOf(form);
    desktop.pictures.add("C:\\Temp\\clipboard.bmp", Bitmap(9, 9, 0x404040));
    EXPECT_EQ(nextPanels(), before) << last();
}

TEST_F(NextSession, ShowsAGridPattern) {
    desktop.files.addFolder("C:\\Temp");
    desktop.dialogs.answerInput("10.2.1.0");
    chooseTool(Channel::Two, 3);
    const Panels before = panelsOf(form);
    desktop.pictures.add("C:\\Temp\\clipboard.bmp", Bitmap(9, 9, 0x404040));
    EXPECT_EQ(nextPanels(), before) << last();
}

TEST_F(NextSession, ShowsALattice) {
    for (const Channel which : kBoth) {
        chooseTool(which, 1);
        drag(image(which), 100, 80, 109, 83);
        drag(image(which), 200, 20, 97, 92);
    }
    // The dot of the upper lattice on the spectrum is no part of any picture.
    form.itmOpt(3);
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsANewImage) {
    clickImage(Channel::One, 3);
    clickImage(Channel::Two, kInvertEntry);
    clickImage(Channel::Two, 3);
    form.itmOpt(3);
    expectTheSameInTheNextSession();
    EXPECT_EQ(desktop.pictures.saved.size(), 2U);
}

TEST_F(NextSession, ShowsAnInvertedFileWithoutACopy) {
    clickImage(Channel::One, kInvertEntry);
    clickImage(Channel::Two, kInvertEntry);
    clickImage(Channel::Two, kInvertEntry);
    expectTheSameInTheNextSession();
    EXPECT_EQ(last(), "TITLE\tLast Images\r\nLOAD1\t" + sample1 +
                          "\r\nINVERT1\r\nBOTTOM\r\nLOAD1\t" + sample2 + "\r\n");
    EXPECT_TRUE(desktop.pictures.saved.empty());
}

TEST_F(NextSession, ShowsADrawingOnAnInvertedImageAsItWasSeen) {
    clickImage(Channel::One, kInvertEntry);
    draw(Channel::One);
    draw(Channel::Two);
    form.lab.channel1.SetInvert(2, true);
    form.lab.channel1.RedrawFT(0, 0);
    expectTheSameInTheNextSession();
    EXPECT_EQ(last().find("INVERT1"), std::string::npos) << last();
    EXPECT_NE(last().find("INVERT3"), std::string::npos) << last();
}

TEST_F(NextSession, ShowsADrawingThatWasInvertedAfterwards) {
    draw(Channel::One);
    clickImage(Channel::One, kInvertEntry);
    form.itmOpt(3);
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsAFileThatWasLoadedIntoAnInvertedImage) {
    clickImage(Channel::One, kInvertEntry);
    form.LoadPanelImage(1, sample2);
    expectTheSameInTheNextSession();
    EXPECT_TRUE(desktop.pictures.saved.empty()) << "its file shows it";
}

TEST_F(NextSession, ShowsAnImageWhoseFlagWasResetBelowIt) {
    clickImage(Channel::One, kInvertEntry);
    form.ResetForScript();
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsADrawingThatWasNeverTransformedOnAChannelWithoutAFile) {
    desktop.files.addFile("C:\\top.ftscr", "LOAD1 " + sample1);
    desktop.environment.arguments = "C:\\top.ftscr";
    Form1 one{desktop.desktop(), folders};
    one.Form_Load();
    ASSERT_EQ(one.lab.channel2.file, "");
    one.lab.autoCalculate = false;
    one.MouseDown(one.pb4, kLeft, 0, 20, 30);
    one.MouseMove(one.pb4, kLeft, 0, 90, 80);
    one.MouseUp(one.pb4, kLeft, 0, 90, 80);
    ASSERT_EQ(one.pb4.Tag, "");
    const Bitmap drawn = one.pb4.Image();
    one.unload();
    EXPECT_NE(last().find("BOTTOM\r\nLOAD1\t" + kept("111526_0112b.bmp")), std::string::npos)
        << last();
    EXPECT_EQ(desktop.pictures.load(kept("111526_0112b.bmp")), drawn);
}

TEST_F(NextSession, WritesNothingOfAChannelThatWasLeftEmpty) {
    desktop.files.addFile("C:\\top.ftscr", "LOAD1 " + sample1);
    desktop.environment.arguments = "C:\\top.ftscr";
    Form1 one{desktop.desktop(), folders};
    one.Form_Load();
    one.unload();
    EXPECT_EQ(last(), "TITLE\tLast Images\r\nLOAD1\t" + sample1 + "\r\n");
}

TEST_F(NextSession, NamesTheFileThatAReloadedImageShows) {
    draw(Channel::One);
    clickImage(Channel::One, 0);
    draw(Channel::Two);
    clickImage(Channel::Two, kInvertEntry);
    clickImage(Channel::Two, 0);
    form.unload();
    EXPECT_TRUE(desktop.pictures.saved.empty());
    EXPECT_EQ(last(), "TITLE\tLast Images\r\nLOAD1\t" + sample1 + "\r\nBOTTOM\r\nLOAD1\t" +
                          sample2 + "\r\nINVERT1\r\n");
}

TEST_F(NextSession, NamesTheFileThatAnImageWasSavedOver) {
    draw(Channel::One);
    const std::string mine = "C:\\mine.bmp";
    form.SavePanelImage(1, mine);
    form.LoadPanelImage(4, mine);
    draw(Channel::Two);
    form.SavePanelImage(4, mine);
    desktop.pictures.saved.clear();
    const Bitmap drawn = form.pb4.Image();
    form.unload();
    EXPECT_NE(last().find("BOTTOM\r\nLOAD1\t" + mine + "\r\n"), std::string::npos) << last();
    EXPECT_EQ(desktop.pictures.load(mine), drawn);
    EXPECT_EQ(desktop.pictures.saved.size(), 1U) << "of channel 1 alone";
}

TEST_F(NextSession, ShowsAnImageWhoseFileWasRemovedOrWrittenOver) {
    desktop.pictures.add("C:\\a.bmp", squaresPicture());
    desktop.pictures.add("C:\\b.bmp", discPicture());
    form.LoadPanelImage(1, "C:\\a.bmp");
    form.LoadPanelImage(4, "C:\\b.bmp");
    desktop.files.remove("C:\\a.bmp");
    desktop.pictures.add("C:\\b.bmp", squaresPicture());
    expectTheSameInTheNextSession();
}

TEST_F(NextSession, ShowsTheLastImageOfABatchWhateverFileItBears) {
    desktop.pictures.add("C:\\P\\a.bmp", squaresPicture());
    desktop.pictures.addUndecodable("C:\\P\\b.bmp");
    form.File1.Path = "C:\\P\\";
    desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
    form.RunBatch("C:\\P\\");
    ASSERT_EQ(form.lab.channel1.file, "C:\\P\\b.bmp");
    expectTheSameInTheNextSession();
    EXPECT_NE(last().find("LOAD1\t" + kept("111526_0112t.bmp")), std::string::npos) << last();
}

TEST_F(NextSession, NamesTheFileOfABatch) {
    desktop.pictures.add("C:\\P\\a.bmp", squaresPicture());
    form.File1.Path = "C:\\P\\";
    desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
    form.RunBatch("C:\\P\\");
    expectTheSameInTheNextSession();
    EXPECT_NE(last().find("LOAD1\tC:\\P\\a.bmp\r\n"), std::string::npos) << last();
}

TEST_F(NextSession, ShowsTheImageAndNotThePatchOfALineProfile) {
    const Bitmap image = form.pb1.Image();
    form.KeyDown(kKeyAlt, kAltKey);
    form.MouseMove(form.pb2, 0, kAltKey, 120, 130);
    ASSERT_NE(form.pb1.Image(), image) << "the patch lies on it";
    form.unload();
    EXPECT_TRUE(desktop.pictures.saved.empty());
    EXPECT_NE(last().find("LOAD1\t" + sample1 + "\r\n"), std::string::npos) << last();
}

TEST_F(NextSession, StillReloadsWhatTheUserHadLoaded) {
    draw(Channel::One);
    form.WriteScript(folders.ScriptPath + "mine.ftscr", "Mine");
    EXPECT_EQ(form.lab.channel1.file, sample1);
    clickImage(Channel::One, 0);
    EXPECT_EQ(form.pb1.Image(), discPicture());
}

TEST_F(NextSession, CanBeReachedInAFolderWithACommaInItsName) {
    desktop.environment.dataFolder = "C:\\Users\\Doe, Jane\\Data";
    const Folders comma = deriveFolders(desktop.environment);
    desktop.files.addFolder(comma.ScriptPath);
    desktop.pictures.add(comma.ImagePath + "Halvard-Image1.jpg", discPicture());
    desktop.pictures.add(comma.ImagePath + "Halvard-Image2.jpg", squaresPicture());
    Form1 jane{desktop.desktop(), comma};
    jane.Form_Load();
    jane.MouseDown(jane.pb4, kLeft, 0, 20, 30);
    jane.MouseMove(jane.pb4, kLeft, 0, 90, 80);
    jane.MouseUp(jane.pb4, kLeft, 0, 90, 80);
    const Panels before = panelsOf(jane);
    jane.unload();
    EXPECT_EQ(desktop.files.bytesOf(comma.ScriptPath + "last.ftscr"),
              "TITLE\tLast Images\r\nLOAD1\tHalvard-Image1.jpg\r\nBOTTOM\r\nLOAD1\t"
              "111526_0112b.bmp\r\n");
    desktop.environment.arguments = comma.ScriptPath + "last.ftscr";
    desktop.dialogs.messages.clear();
    Form1 next{desktop.desktop(), comma};
    next.Form_Load();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(panelsOf(next), before);
}

}  // namespace
}  // namespace quillon
