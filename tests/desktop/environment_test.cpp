#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "desktop/Conversions.h"
#include "desktop/QtEnvironment.h"
#include "tests/desktop/EnvironmentVariable.h"

namespace quillon {
namespace {

TEST(EnvironmentService, TmpIsTakenAsSetInTheFormOfALabPath) {
    const EnvironmentVariable tmp("TMP", QStringLiteral("/var/tmp/"));
    EXPECT_EQ(QtEnvironment().variable("TMP"), "\\var\\tmp");
}

TEST(EnvironmentService, WithoutTmpThereIsAPrivateFolderAmongTheCaches) {
    const QTemporaryDir caches;
    const EnvironmentVariable tmp("TMP");
    const EnvironmentVariable home("XDG_CACHE_HOME", caches.path());
    const std::string folder = QtEnvironment().variable("TMP");
    EXPECT_EQ(toNativePath(folder), caches.filePath(QStringLiteral("quillon")));
    const QFileInfo made(toNativePath(folder));
    ASSERT_TRUE(made.isDir());
    EXPECT_FALSE(made.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                       QFile::ReadOther | QFile::WriteOther | QFile::ExeOther));
    EXPECT_TRUE(made.isWritable());
}

TEST(EnvironmentService, OtherVariablesReadAsTheyAreAndEmptyWhereUnset) {
    const EnvironmentVariable one("QUILLON_TEST_ONE", QStringLiteral("/a/b"));
    EXPECT_EQ(QtEnvironment().variable("QUILLON_TEST_ONE"), "/a/b");
    EXPECT_EQ(QtEnvironment().variable("QUILLON_TEST_NOWHERE"), "");
}

TEST(EnvironmentService, TheApplicationDataFolderIsTheSettingsFolderAndIsMade) {
    const QTemporaryDir folder;
    const EnvironmentVariable settings("XDG_CONFIG_HOME",
                                       folder.filePath(QStringLiteral("new/settings")));
    const std::string path = QtEnvironment().applicationDataFolder();
    EXPECT_EQ(path, toLabPath(folder.filePath(QStringLiteral("new/settings"))));
    EXPECT_TRUE(QDir(folder.filePath(QStringLiteral("new/settings"))).exists());
}

TEST(EnvironmentService, TheProgramsFolderHoldsTheSamplePictures) {
    const QDir folder(toNativePath(QtEnvironment().programFolder()));
    EXPECT_TRUE(folder.exists(QStringLiteral("Images/Halvard-Image1.jpg")))
        << folder.path().toStdString();
}

TEST(EnvironmentService, TheExecutablesNameHasNoExtension) {
    EXPECT_EQ(QtEnvironment().executableName(), "desktop_tests");
}

TEST(EnvironmentService, NowIsLocalTime) {
    const QDateTime before = QDateTime::currentDateTime();
    const LocalTime now = QtEnvironment().now();
    const QDateTime told(QDate(now.year, now.month, now.day), QTime(now.hour, now.minute));
    EXPECT_LE(told, QDateTime::currentDateTime());
    EXPECT_GE(told.secsTo(before), 0);
    EXPECT_LT(told.secsTo(before), 61);
}

}  // namespace
}  // namespace quillon
