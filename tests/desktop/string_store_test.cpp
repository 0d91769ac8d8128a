#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "desktop/QtStringStore.h"
#include "tests/desktop/EnvironmentVariable.h"

namespace quillon {
namespace {

const std::string kKey = "Software\\Brindlewood\\Quillon";

class StringStoreFile : public ::testing::Test {
protected:
    QTemporaryDir folder;
    EnvironmentVariable settingsFolder{"XDG_CONFIG_HOME", folder.path()};
    QtStringStore store;
    QString file() const { return folder.filePath(QStringLiteral("Brindlewood/Quillon.conf")); }
};

TEST_F(StringStoreFile, WhatIsAbsentReadsAsTheEmptyString) {
    EXPECT_EQ(store.read(kKey, "PATH"), "");
    store.write(kKey, "PATH", "x");
    EXPECT_EQ(store.read(kKey, "GUIC"), "");
    EXPECT_EQ(store.read("Software\\Brindlewood\\Sorrel", "EXE"), "");
}

TEST_F(StringStoreFile, ValuesComeBackAsTheyWereWritten) {
    for (const std::string value :
         {"", "2", "-75.5 30 12900 10500 0", "\\home\\u\\a b\\quillon.exe", "one, two;three",
          "@ % \" = [x] # \xC3\xA9", " blanks around "}) {
        store.write(kKey, "VALUE", value);
        EXPECT_EQ(store.read(kKey, "VALUE"), value);
        EXPECT_EQ(QtStringStore().read(kKey, "VALUE"), value);
    }
}

TEST_F(StringStoreFile, TheFileLiesInTheSettingsFolderUnderTheKeysLastTwoNames) {
    store.write(kKey, "GUIC", "3");
    ASSERT_TRUE(QFile::exists(file()));
    QFile written(file());
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.readAll().contains("GUIC=3"));
}

TEST_F(StringStoreFile, ADeletedFileIsAnEmptyStore) {
    store.write(kKey, "GUIC", "3");
    ASSERT_TRUE(QFile::remove(file()));
    EXPECT_EQ(store.read(kKey, "GUIC"), "");
}

TEST_F(StringStoreFile, AHandWrittenListIsOneText) {
    QDir(folder.path()).mkdir(QStringLiteral("Brindlewood"));
    QFile typed(file());
    ASSERT_TRUE(typed.open(QIODevice::WriteOnly));
    typed.write("[General]\nWNDO=1,2,3\n");
    typed.close();
    EXPECT_EQ(store.read(kKey, "WNDO"), "1, 2, 3");
}

TEST_F(StringStoreFile, ANumberThatAnotherProgramHasStoredReadsAsItsText) {
    QSettings settings(file(), QSettings::NativeFormat);
    settings.setValue(QStringLiteral("LUT"), 5);
    settings.setValue(QStringLiteral("LOW"), -2147483647 - 1);
    EXPECT_EQ(store.read(kKey, "LUT"), "5");
    EXPECT_EQ(store.read(kKey, "LOW"), "-2147483648");
}

TEST_F(StringStoreFile, GarbageInTheFileIsNoError) {
    QDir(folder.path()).mkdir(QStringLiteral("Brindlewood"));
    QFile typed(file());
    ASSERT_TRUE(typed.open(QIODevice::WriteOnly));
    typed.write(QByteArray("\x00\xFF[[[=\n\n%%%\x01GUIC", 16));
    typed.close();
    EXPECT_EQ(store.read(kKey, "GUIC"), "");
}

TEST_F(StringStoreFile, AStoreThatCannotBeWrittenRemembersNothing) {
    // A file stands where the folder would have to be.
    QFile obstacle(folder.filePath(QStringLiteral("Brindlewood")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    EXPECT_NO_THROW(store.write(kKey, "GUIC", "3"));
    EXPECT_EQ(store.read(kKey, "GUIC"), "");
}

}  // namespace
}  // namespace quillon
