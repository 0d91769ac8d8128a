#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/not_done.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

class NotDoneReasons : public ::testing::Test {
protected:
    NotDoneReasons() { desktop.files.addFolder("C:\\Images\\album.bmp"); }

    std::string notSaved(ErrorNumber number, const std::string& path = "C:\\Images\\cat.bmp") {
        return whyNotSaved(desktop.files, path, RunTimeError(number));
    }
    std::string notLoaded(ErrorNumber number, const std::string& path = "C:\\Images\\cat.png") {
        return whyNotLoaded(desktop.files, path, RunTimeError(number));
    }

    RecordingDesktop desktop;
};

TEST_F(NotDoneReasons, AFileThatCannotBeWrittenHasItsReason) {
    const std::vector<std::pair<ErrorNumber, std::string>> reasons = {
        {ErrorNumber::PathFileAccessError, "not saved: no right to write here"},
        {ErrorNumber::PermissionDenied, "not saved: no right to write here"},
        {ErrorNumber::DiskFull, "not saved: the disk is full"},
        {ErrorNumber::PathNotFound, "not saved: folder not found: C:/Images/"},
        {ErrorNumber::DeviceIoError, "not saved: the disk does not answer"},
        {ErrorNumber::Overflow, "not saved: a number is too large"},
        {ErrorNumber::TypeMismatch, "not saved: Type mismatch"},
    };
    for (const auto& [number, reason] : reasons)
        EXPECT_EQ(notSaved(number), reason);
    EXPECT_EQ(whyNotSaved(desktop.files, "x", std::runtime_error("out of luck")),
              "not saved: out of luck");
    EXPECT_EQ(whyNotSaved(desktop.files, "x", RunTimeError(ErrorNumber::DiskFull), "not exported"),
              "not exported: the disk is full");
}

TEST_F(NotDoneReasons, ARefusalThatIsNoMatterOfRightsIsNotCalledOne) {
    EXPECT_EQ(notSaved(ErrorNumber::PathFileAccessError, "C:\\Images\\album.bmp"),
              "not saved: a folder has this name");
    EXPECT_EQ(
        notSaved(ErrorNumber::PathFileAccessError, "C:\\Images\\" + std::string(256, 'a') + ".bmp"),
        "not saved: the name is too long");
    EXPECT_EQ(notLoaded(ErrorNumber::PathFileAccessError, "C:\\Images\\album.bmp"),
              "not a file: album.bmp");
}

TEST_F(NotDoneReasons, AFileThatCannotBeLoadedHasItsReasonAndItsNameAlone) {
    const std::vector<std::pair<ErrorNumber, std::string>> reasons = {
        {ErrorNumber::InvalidPicture, "not a picture: cat.png"},
        {ErrorNumber::FileNotFound, "file not found: cat.png"},
        {ErrorNumber::PathNotFound, "folder not found: C:/Images/"},
        {ErrorNumber::PathFileAccessError, "no right to read: cat.png"},
        {ErrorNumber::DeviceIoError, "the disk does not answer: cat.png"},
        {ErrorNumber::Overflow, "not loaded: Overflow"},
    };
    for (const auto& [number, reason] : reasons)
        EXPECT_EQ(notLoaded(number), reason);
    EXPECT_EQ(notLoaded(ErrorNumber::InvalidPicture, "/home/ada/x.png"), "not a picture: x.png");
}

TEST_F(NotDoneReasons, AFolderThatCannotBeListedIsNamedWhole) {
    const auto why = [](ErrorNumber number) {
        return whyNotListed("C:\\Images\\", RunTimeError(number));
    };
    EXPECT_EQ(why(ErrorNumber::PathNotFound), "folder not found: C:/Images/");
    EXPECT_EQ(why(ErrorNumber::PathFileAccessError), "no right to read: C:/Images/");
    EXPECT_EQ(why(ErrorNumber::Overflow), "no batch: Overflow");
}

TEST_F(NotDoneReasons, ACancelledDialogIsNoFailure) {
    EXPECT_TRUE(isCancelled(RunTimeError(ErrorNumber::DialogCancelled)));
    EXPECT_FALSE(isCancelled(RunTimeError(ErrorNumber::FileNotFound)));
    EXPECT_FALSE(isCancelled(std::runtime_error("cancelled")));
}

}  // namespace
}  // namespace quillon
