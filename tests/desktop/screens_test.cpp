#include <gtest/gtest.h>

#include <QRect>
#include <QSettings>
#include <string>
#include <vector>

#include "tests/desktop/ProgramRun.h"

// Where the real program opens its window on the screens that there are.

namespace quillon {
namespace {

class Screens : public ::testing::Test {
protected:
    /// Runs the program once on these screens, with the place of the session before,
    /// and returns the place that it stores at its end.
    std::string placeAfter(const char* stored, const std::vector<QRect>& screens) {
        QByteArray list;
        for (const QRect& screen : screens)
            list += QByteArray(list.isEmpty() ? "" : ", ") +
                    QStringLiteral(
                        "{\"name\": \"%1,%2\", \"x\": %1, \"y\": %2, \"width\": %3, "
                        "\"height\": %4, \"logicalDpi\": 96, "
                        "\"logicalBaseDpi\": 96, \"dpr\": 1}")
                        .arg(screen.x())
                        .arg(screen.y())
                        .arg(screen.width())
                        .arg(screen.height())
                        .toLatin1();
        program.write("screens.json", "{\"screens\": [" + list + "]}");
        program.platform = QStringLiteral("offscreen:configfile=") + program.path("screens.json");
        const QString file = program.path("config/Brindlewood/Quillon.conf");
        {
            QSettings settings(file, QSettings::NativeFormat);
            settings.setValue(QStringLiteral("WNDO"), QLatin1String(stored));
        }
        program.run();
        EXPECT_EQ(program.exitStatus, QProcess::NormalExit);
        const QSettings settings(file, QSettings::NativeFormat);
        return settings.value(QStringLiteral("WNDO")).toString().toStdString();
    }

    ProgramRun program;
    const QRect left{0, 0, 1920, 1200};
    const QRect right{1920, 0, 1280, 1024};
};

TEST_F(Screens, AWindowComesBackWhereItWasAsLongAsItsScreenIsThere) {
    EXPECT_EQ(placeAfter("30000 1500 12900 10500 0", {left, right}), "30000 1500 12900 10500 0");
}

TEST_F(Screens, AWindowOnAScreenThatIsGoneComesIntoTheNearest) {
    EXPECT_EQ(placeAfter("30000 1500 12900 10500 0", {left}), "15900 1500 12900 10500 0");
    EXPECT_EQ(placeAfter("-480000 -480000 2400 405 1", {left}), "0 0 12900 10500 0");
}

TEST_F(Screens, AWindowLargerThanItsScreenStartsMaximised) {
    const std::string place = placeAfter("1500 750 12900 10500 0", {QRect(0, 0, 800, 600)});
    EXPECT_TRUE(place.ends_with(" 2")) << place;
    EXPECT_TRUE(place.starts_with("0 0 ")) << place;
}

}  // namespace
}  // namespace quillon
