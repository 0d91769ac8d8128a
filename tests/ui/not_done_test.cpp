#include <functional>
#include <string>

#include "tests/support/CommandFixture.h"

// What the strip says where a command could not do its work, as the user reaches
// the commands. No dialog opens for any of it.

namespace quillon {
namespace {

class WordsOfTheStrip : public CommandFixture {
protected:
    WordsOfTheStrip() {
        form.ShowStatus(2, "before");
        desktop.dialogs.messages.clear();
    }
    ~WordsOfTheStrip() override { EXPECT_TRUE(desktop.dialogs.messages.empty()); }

    void expectWord(const std::string& word, const std::function<void()>& command) {
        command();
        EXPECT_EQ(status(2), word);
    }
    void write(const std::string& name, const std::string& lines) {
        desktop.files.addFile(folders.ScriptPath + name, lines);
    }
    void load(const std::string& name) {
        desktop.dialogs.answerOpen(folders.ScriptPath + name);
        form.click(MenuArray::itmSCR, 0);
    }

    const std::string images = "C:/Users/Student/Quillon/Images/";
};

TEST_F(WordsOfTheStrip, ALoadThatFailsSaysWhatTheFileIs) {
    desktop.pictures.addUndecodable("C:\\x.png");
    const Bitmap before = form.pb1.Image();
    for (const auto& [file, word] : {std::pair{"C:\\x.png", "not a picture: x.png"},
                                     std::pair{"C:\\gone.bmp", "file not found: gone.bmp"}}) {
        desktop.dialogs.answerOpen(file);
        expectWord(word, [&] { form.click(MenuArray::mnuImg1a, 2); });
    }
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(form.lab.channel1.file, sample1);
}

TEST_F(WordsOfTheStrip, ASaveThatFailsSaysWhy) {
    desktop.pictures.failingSaves.insert("C:\\locked.bmp");
    desktop.dialogs.answerSave("C:\\locked.bmp");
    expectWord("not saved: no right to write here", [&] { form.click(MenuArray::mnuFT1a, 3); });
    desktop.files.diskFull = true;
    desktop.dialogs.answerSave("C:\\full.bmp");
    expectWord("not saved: the disk is full", [&] { form.click(MenuArray::mnuNew2a, 3); });
    desktop.dialogs.answerSave("C:\\x.ftscr");
    desktop.dialogs.answerInput("title");
    expectWord("not saved: the disk is full", [&] { form.click(MenuArray::itmSCR, 1); });
}

TEST_F(WordsOfTheStrip, AReloadWithoutAFileSaysSoAndEndsNothing) {
    form.lab.channel2.file.clear();
    const Bitmap before = form.pb4.Image();
    expectWord("no file to reload", [&] { form.click(MenuArray::mnuImg2a, 0); });
    EXPECT_EQ(form.pb4.Image(), before);
}

TEST_F(WordsOfTheStrip, AReloadOfAFileThatIsGoneSaysSoAndKeepsThePicture) {
    const Bitmap before = form.pb1.Image();
    desktop.files.remove(sample1);
    expectWord("file not found: Halvard-Image1.jpg", [&] { form.click(MenuArray::mnuImg1a, 0); });
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(form.lab.channel1.file, sample1);
}

TEST_F(WordsOfTheStrip, ACancelledDialogSaysNothing) {
    for (const Integer entry : {Integer{0}, Integer{2}}) {
        desktop.dialogs.cancelOpen();
        expectWord("before", [&] { form.click(MenuArray::itmSCR, entry); });
    }
    desktop.dialogs.cancelOpen();
    expectWord("before", [&] { form.click(MenuArray::mnuImg1a, 2); });
    desktop.dialogs.cancelOpen();
    expectWord("before", [&] { form.click(MenuArray::itmFile, 3); });
    desktop.dialogs.cancelSave();
    expectWord("before", [&] { form.click(MenuArray::itmSCR, 1); });
    desktop.dialogs.cancelSave();
    expectWord("before", [&] { form.click(MenuArray::mnuImg1a, 6); });
}

TEST_F(WordsOfTheStrip, ADropThatFailsSaysWhatTheFileIs) {
    desktop.pictures.addUndecodable("C:\\broken.jpg");
    expectWord("not a picture: broken.jpg",
               [&] { form.OLEDragDrop(form.pb1, {"C:\\broken.jpg"}); });
    expectWord("file not found: gone.bmp", [&] { form.OLEDragDrop(form.pb4, {"C:\\gone.bmp"}); });
}

TEST_F(WordsOfTheStrip, WhatOpensOutsideSaysWhereItIsNotThere) {
    desktop.shell.outcomes = {{"explorer.exe", Opening::Missing},
                              {"hh.exe", Opening::Missing},
                              {"notepad.exe", Opening::Missing},
                              {folders.DocPath + "Halvard_2007c.pdf", Opening::Missing}};
    expectWord("folder not found: " + images, [&] { form.click(MenuArray::itmFile, 0); });
    expectWord("folder not found: C:/Users/Student/Quillon/Scripts/",
               [&] { form.click(MenuArray::itmFile, 1); });
    expectWord("the help is not here", [&] { form.click(MenuArray::itm10, 0); });
    expectWord("the paper is not here", [&] { form.click(MenuArray::itm10a, 8); });
    desktop.dialogs.answerOpen(folders.ScriptPath + "gone.ftscr");
    expectWord("file not found: gone.ftscr", [&] { form.click(MenuArray::itmSCR, 2); });
}

TEST_F(WordsOfTheStrip, WhatOpensOutsideSaysWhereNothingOpensIt) {
    desktop.shell.outcomes = {
        {"explorer.exe", Opening::NoProgram},
        {"hh.exe", Opening::NoProgram},
        {"notepad.exe", Opening::NoProgram},
        {folders.DocPath + "Halvard_2007c.pdf", Opening::NoProgram},
        {"https://www.brindlewood.example/products/Quillon", Opening::NoProgram}};
    for (const Integer entry : {Integer{0}, Integer{1}})
        expectWord("no program shows folders", [&] { form.click(MenuArray::itmFile, entry); });
    expectWord("no program shows the help", [&] { form.click(MenuArray::itm10, 0); });
    expectWord("no browser opens the page", [&] { form.click(MenuArray::itm10, 1); });
    expectWord("no program shows the paper", [&] { form.click(MenuArray::itm10a, 8); });
    desktop.dialogs.answerOpen(folders.ScriptPath + "s.ftscr");
    expectWord("no program opens the script", [&] { form.click(MenuArray::itmSCR, 2); });
}

TEST_F(WordsOfTheStrip, ASaveOfAScriptThatFailsOutlastsTheScriptsTransforms) {
    desktop.files.makeFolderReadOnly(folders.ImagePath);
    write("save.ftscr", "SAVE1 out.bmp\r\nLOWPASS 20\r\n");
    expectWord("not saved: no right to write here", [&] { load("save.ftscr"); });
    write("pointless.ftscr", "SAVE2 spectrum\r\n");
    expectWord("not saved: the name has no point", [&] { load("pointless.ftscr"); });
}

TEST_F(WordsOfTheStrip, AScriptThatSavesAllLeavesTheTextOfItsTransforms) {
    write("save.ftscr", "TITLE Two slits\r\nSAVE1 out.bmp\r\nLOWPASS 20\r\n");
    expectWord("", [&] { load("save.ftscr"); });
    EXPECT_EQ(desktop.pictures.saved.size(), 1U);
}

TEST_F(WordsOfTheStrip, AnExportThatFailsSaysWhy) {
    host.onShowModal = [](dlgARRAY& dialog) { dialog.Click(dialog.OKButton); };
    desktop.files.diskFull = true;
    expectWord("not exported: the disk is full", [&] { form.click(MenuArray::mnuFT1a, 17); });
}

TEST_F(WordsOfTheStrip, TheNextCommandTakesTheWordAway) {
    const std::vector<std::function<void()>> commands = {
        [&] { form.click(MenuArray::mnuImg1a, 5); },
        [&] { form.click(MenuArray::itmOpt, 4); },
        [&] { form.KeyDown(39, 1); },
        [&] { form.KeyPress('L'); },
        [&] { form.OLEDragDrop(form.pb1, {"C:\\notes.txt"}); },
    };
    for (const auto& command : commands) {
        form.lab.channel1.file.clear();
        expectWord("no file to reload", [&] { form.click(MenuArray::mnuImg1a, 0); });
        expectWord("before", command);
    }
    expectWord("no file to reload", [&] { form.click(MenuArray::mnuImg1a, 0); });
    expectWord("", [&] { form.KeyPress(13); });
    expectWord("no file to reload", [&] { form.click(MenuArray::mnuImg1a, 0); });
    expectWord("", [&] { form.DblClick(form.pb2); });
}

TEST_F(WordsOfTheStrip, KeysThatRunNoCommandLeaveTheWord) {
    form.lab.channel1.file.clear();
    form.click(MenuArray::mnuImg1a, 0);
    form.KeyPress('x');
    form.KeyDown(39, 0);
    form.KeyUp(39, 0);
    EXPECT_EQ(status(2), "no file to reload");
}

/// The batch over three files, the second of which is no picture.
class WordsOfABatch : public CommandFixture {
protected:
    WordsOfABatch() {
        for (const char* name : {"C:\\P\\a.bmp", "C:\\P\\c.bmp"})
            desktop.pictures.add(name, squaresPicture());
        desktop.pictures.addUndecodable("C:\\P\\b.bmp");
        desktop.dialogs.answerOpen("C:\\P\\a.bmp", 4);
    }
    void run() {
        desktop.dialogs.messageAnswers.push_back(MessageAnswer::Yes);
        form.click(MenuArray::itmFile, 3);
    }
};

TEST_F(WordsOfABatch, NameTheFileThatWasNoPicture) {
    run();
    EXPECT_EQ(desktop.dialogs.messages.back().text, "3 images processed.");
    EXPECT_EQ(status(2), "not a picture: b.bmp");
}

TEST_F(WordsOfABatch, SayWhyItsPicturesWereNotWritten) {
    desktop.pictures.failingSaves.insert("C:\\P\\c.bmp_batch3.bmp");
    run();
    EXPECT_EQ(status(2), "not saved: no right to write here");
    EXPECT_EQ(desktop.pictures.saved.size(), 8U);
}

TEST_F(WordsOfABatch, SayThatItsFolderIsGone) {
    desktop.dialogs.openAnswers.clear();
    desktop.dialogs.answerOpen("C:\\Gone\\a.bmp", 4);
    form.click(MenuArray::itmFile, 3);
    EXPECT_EQ(status(2), "folder not found: C:/Gone/");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

/// A start with a script on the command line.
class WordsOfTheStart : public FormFixture {};

TEST_F(WordsOfTheStart, SayWhatTheStartScriptCouldNotSave) {
    desktop.files.addFile("C:\\s.ftscr", "SAVE1 spectrum\r\nLOAD1 Halvard-Image1.jpg\r\n");
    desktop.environment.arguments = "C:\\s.ftscr";
    form.Form_Load();
    EXPECT_EQ(status(2), "not saved: the name has no point");
}

}  // namespace
}  // namespace quillon
