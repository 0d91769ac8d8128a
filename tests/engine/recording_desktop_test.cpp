#include "tests/support/RecordingDesktop.h"

#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "tests/support/RecordingWatcher.h"

namespace quillon {
namespace {

template <class Action>
ErrorNumber errorOf(Action action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no run-time error was raised";
    return ErrorNumber{};
}

TEST(RecordingDesktop, AllServicesWriteOneOrderedLog) {
    RecordingDesktop double_;
    Desktop& desktop = double_.desktop();
    desktop.screen.setMousePointer(kPointerWait);
    desktop.dialogs.messageBox("Text", "Title", MessageIcon::Exclamation, MessageButtons::Ok);
    desktop.printer.box(1, 2.5F, 3, 4);
    desktop.store.write("key", "name", "value");
    EXPECT_EQ(double_.log,
              (std::vector<std::string>{
                  "screen.setMousePointer(11)", "dialogs.messageBox(Text, Title, 48, Ok)",
                  "printer.box(1, 2.5, 3, 4)", "store.write(key, name, value)"}));
    EXPECT_EQ(double_.calls.of({"screen.", "store."}).size(), 2U);
}

TEST(RecordingDesktop, DialogsTakeQueuedAnswersAndCanBeCancelled) {
    RecordingDesktop double_;
    Desktop& desktop = double_.desktop();
    double_.dialogs.messageAnswers = {MessageAnswer::Yes};
    EXPECT_EQ(desktop.dialogs.messageBox("Sure?", "", MessageIcon::Question, MessageButtons::YesNo),
              MessageAnswer::Yes);
    double_.dialogs.answerInput("12");
    double_.dialogs.cancelInput();
    EXPECT_EQ(desktop.dialogs.inputBox("p", "t", "d"), "12");
    EXPECT_EQ(desktop.dialogs.inputBox("p", "t", "d"), std::nullopt);

    FileDialog dialog;
    dialog.FileName = "old";
    double_.dialogs.cancelOpen();
    EXPECT_EQ(errorOf([&] { desktop.dialogs.showOpen(dialog); }), ErrorNumber::DialogCancelled);
    EXPECT_EQ(dialog.FileName, "old");
    double_.dialogs.answerSave("C:\\new.bmp", 2);
    desktop.dialogs.showSave(dialog);
    EXPECT_EQ(dialog.FileName, "C:\\new.bmp");
    EXPECT_EQ(dialog.FilterIndex, 2);
    EXPECT_EQ(double_.dialogs.saves.at(0).FileName, "old");
}

TEST(RecordingDesktop, PicturesAreFilesThatCanBeSavedAndLoadedAgain) {
    RecordingDesktop double_;
    Desktop& desktop = double_.desktop();
    EXPECT_EQ(errorOf([&] { desktop.pictures.load("C:\\a.bmp"); }), ErrorNumber::FileNotFound);
    double_.pictures.addUndecodable("C:\\a.bmp");
    EXPECT_EQ(errorOf([&] { desktop.pictures.load("C:\\a.bmp"); }), ErrorNumber::InvalidPicture);

    const Bitmap picture(3, 2, 0x123456);
    desktop.pictures.save(picture, "C:\\Temp\\b.bmp");
    EXPECT_EQ(desktop.pictures.load("c:\\temp\\B.BMP"), picture);
    EXPECT_GT(desktop.files.length("C:\\Temp\\b.bmp"), 0U);
    desktop.files.copy("C:\\Temp\\b.bmp", "C:\\c.bmp");
    EXPECT_EQ(desktop.pictures.load("C:\\c.bmp"), picture);

    double_.pictures.failingSaves = {"C:\\d.bmp"};
    EXPECT_EQ(errorOf([&] { desktop.pictures.save(picture, "C:\\d.bmp"); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_EQ(double_.pictures.saved.size(), 1U);
}

TEST(RecordingDesktop, FilesLieInFoldersAndAreFoundInAnyCase) {
    RecordingDesktop double_;
    Files& files = double_.desktop().files;
    EXPECT_EQ(errorOf([&] { files.write("C:\\Data\\a.txt", "1"); }), ErrorNumber::PathNotFound);
    files.createFolder("C:\\Data\\");
    files.write("C:\\Data\\a.txt", "1");
    files.writePrivately("C:\\Data\\B.TXT", "22");
    files.write("C:\\Data\\c.bmp", "");
    EXPECT_TRUE(files.isFolder("c:\\data"));
    EXPECT_EQ(files.read("C:\\DATA\\A.TXT"), "1");
    EXPECT_EQ(files.list("C:\\Data", "*.txt;*.gif"), (std::vector<std::string>{"B.TXT", "a.txt"}));
    EXPECT_EQ(files.list("C:\\Data", "*.*").size(), 3U);
    EXPECT_TRUE(double_.files.find("C:\\Data\\b.txt")->privately);
    files.remove("C:\\Data\\a.txt");
    EXPECT_EQ(errorOf([&] { files.read("C:\\Data\\a.txt"); }), ErrorNumber::FileNotFound);
}

TEST(RecordingDesktop, FilesFailOnDemand) {
    RecordingDesktop double_;
    Files& files = double_.desktop().files;
    double_.files.addFile("C:\\Locked\\a.txt", "old");
    double_.files.makeFolderReadOnly("C:\\Locked");
    EXPECT_EQ(errorOf([&] { files.write("C:\\Locked\\a.txt", "new"); }),
              ErrorNumber::PathFileAccessError);
    double_.files.diskFull = true;
    EXPECT_EQ(errorOf([&] { files.write("C:\\Temp\\a.txt", "new"); }), ErrorNumber::DiskFull);
    EXPECT_EQ(double_.files.bytesOf("C:\\Locked\\a.txt"), "old");
    EXPECT_FALSE(double_.files.exists("C:\\Temp\\a.txt"));
}

TEST(RecordingDesktop, AYieldRunsTheEventThatWaitsForIt) {
    RecordingDesktop double_;
    int events = 0;
    double_.screen.nextYields = {nullptr, [&] { events += 10; }};
    double_.screen.onYield = [&] { ++events; };
    for (int i = 0; i < 3; ++i)
        double_.desktop().screen.pendingEvents();
    EXPECT_EQ(events, 13);
    EXPECT_EQ(double_.screen.yields, 3);
}

TEST(RecordingDesktop, AStoreThatCannotBeWrittenRemembersNothing) {
    RecordingDesktop double_;
    StringStore& store = double_.desktop().store;
    store.write("k", "n", "1");
    double_.store.writable = false;
    store.write("k", "n", "2");
    EXPECT_EQ(store.read("k", "n"), "1");
    EXPECT_EQ(store.read("k", "absent"), "");
}

TEST(RecordingWatcher, RecordsWhatControlsTell) {
    RecordingDesktop double_;
    RecordingWatcher watcher(double_.log);
    Label label("lbSTB(2)");
    label.watch(&watcher);
    label.Caption = "text";
    label.Caption = "text";
    label.Refresh();
    EXPECT_EQ(double_.log, (std::vector<std::string>{"stale lbSTB(2)", "showNow lbSTB(2)"}));
}

}  // namespace
}  // namespace quillon
