#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "desktop/DesktopApplication.h"
#include "desktop/OffscreenPlatform.h"

// The tests run without a screen and in a home of their own, so that they leave
// the user's settings and folders alone.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_CACHE_HOME", home.filePath(QStringLiteral("cache")).toUtf8());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toUtf8());
    const quillon::OffscreenPlatform platform;
    const quillon::DesktopApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
