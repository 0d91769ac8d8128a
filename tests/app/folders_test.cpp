#include "app/Folders.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

TEST(Folders, TheUsersRootLiesBesideTheApplicationDataFolder) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "C:\\Users\\a\\AppData\\Roaming";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "C:\\Users\\a\\AppData\\Quillon\\");
}

TEST(Folders, TheOtherFoldersHangOnTheRootAndOnTheProgramsFolder) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "C:\\Users\\a\\AppData\\Roaming";
    desktop.environment.program = "D:\\Lab\\Quillon";
    const Folders folders = deriveFolders(desktop.environment);
    EXPECT_EQ(folders.ImagePath, "C:\\Users\\a\\AppData\\Quillon\\Images\\");
    EXPECT_EQ(folders.ScriptPath, "C:\\Users\\a\\AppData\\Quillon\\Scripts\\");
    EXPECT_EQ(folders.DocPath, "D:\\Lab\\Quillon\\Doc\\");
    EXPECT_EQ(folders.LibPath, "D:\\Lab\\Quillon\\Lib\\");
    EXPECT_EQ(folders.LibPath2, "D:\\Lab\\Quillon\\Lib\\");
}

TEST(Folders, ASettingsFolderWithAPointStillGivesAVisibleRoot) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "\\home\\ada\\.config";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "\\home\\ada\\Quillon\\");
}

TEST(Folders, OuterBlanksOfTheApplicationDataFolderAreDropped) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "  C:\\my data\\Roaming   ";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "C:\\my data\\Quillon\\");
}

TEST(Folders, WhatFollowsTheLastBackslashIsCutOff) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "C:\\Users\\a\\Roaming\x01 rubbish";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "C:\\Users\\a\\Quillon\\");
}

TEST(Folders, AnApplicationDataFolderWithoutABackslashBecomesTheParentItself) {
    RecordingDesktop desktop;
    desktop.environment.dataFolder = "Roaming";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "Roaming\\Quillon\\");
    desktop.environment.dataFolder = "";
    EXPECT_EQ(deriveFolders(desktop.environment).UserRoot, "\\Quillon\\");
}

}  // namespace
}  // namespace quillon
