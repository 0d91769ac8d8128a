#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include "desktop/Conversions.h"
#include "desktop/QtEnvironment.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

QDir programFolder(const char* name) {
    return QDir(toNativePath(QtEnvironment().programFolder()) + u'/' + QLatin1String(name));
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList namesOf(const QDir& folder) {
    return folder.entryList(QDir::Files, QDir::Name);
}

/// What is delivered, as the program finds it after a first start.
class Demonstrations : public OpenedWindow {
protected:
    const QDir images = programFolder("Images");
    const QDir scripts = programFolder("Scripts");
    const QStringList scriptNames = scripts.entryList({QStringLiteral("*.ftscr")}, QDir::Files);
    const QStringList maskNames = scripts.entryList({QStringLiteral("*.ftmsk")}, QDir::Files);
};

TEST_F(Demonstrations, TheFirstStartGivesTheUserAllOfThem) {
    const QDir user(home.filePath(QStringLiteral("Quillon")));
    EXPECT_EQ(namesOf(QDir(user.filePath(QStringLiteral("Images")))), namesOf(images));
    EXPECT_EQ(namesOf(QDir(user.filePath(QStringLiteral("Scripts")))), namesOf(scripts));
}

TEST_F(Demonstrations, EveryPictureIsGreyAndAsLargeAsAPanel) {
    for (const QString& name : namesOf(images)) {
        const QImage picture(images.filePath(name));
        EXPECT_EQ(picture.size(), QSize(256, 256)) << name.toStdString();
        EXPECT_TRUE(picture.allGray()) << name.toStdString();
    }
}

TEST_F(Demonstrations, EveryScriptReplaysWithoutADialogAndShowsBothChannels) {
    ASSERT_GE(scriptNames.size(), 16);
    recording.dialogs.messages.clear();
    for (const QString& name : scriptNames) {
        SCOPED_TRACE(name.toStdString());
        form().ReadScript(toLabPath(scripts.filePath(name)));
        settle();
        EXPECT_TRUE(recording.dialogs.messages.empty())
            << (recording.dialogs.messages.empty() ? "" : recording.dialogs.messages[0].text);
        recording.dialogs.messages.clear();
        for (const Channel which : {Channel::One, Channel::Two}) {
            EXPECT_FALSE(form().lab.channel(which).file.empty());
            EXPECT_EQ(form().lab.spectrumPanel(which).Tag, "!");
            EXPECT_EQ(form().lab.reconstructionPanel(which).Tag, "!");
        }
    }
}

TEST_F(Demonstrations, EveryScriptNamesThePicturesOfBothChannels) {
    // What a channel showed before would be a part of the lesson otherwise.
    for (const QString& name : scriptNames) {
        const QByteArray text = bytesOf(scripts.filePath(name));
        EXPECT_EQ(text.count("LOAD1 "), 2) << name.toStdString();
        EXPECT_EQ(text.count("BOTTOM\r\n"), 1) << name.toStdString();
    }
}

TEST_F(Demonstrations, EveryWordThatAScriptBeginsALineWithIsACommand) {
    // The reader passes over words that it doesn't know, also misspelt ones.
    const QStringList commands = {
        "TOP",       "BOTTOM",    "TITLE",       "LOAD1",       "NEW1",      "LOWPASS",  "HIGHPASS",
        "MASK",      "SAVE1",     "SAVE2",       "SAVE3",       "INVERT1",   "INVERT2",  "INVERT3",
        "CONVOLVE1", "CONVOLVE2", "DECONVOLVE1", "DECONVOLVE2", "RNDPHASES", "RNDMODULI"};
    const QRegularExpression row(QStringLiteral(R"(^\s*\d+ \d+ \d+ \d+$)"));
    for (const QString& name : scriptNames)
        for (const QByteArray& line : bytesOf(scripts.filePath(name)).split('\n')) {
            const QString text = QString::fromUtf8(line).trimmed();
            if (text.isEmpty() || text.startsWith(u'\'') || row.match(text).hasMatch())
                continue;
            EXPECT_TRUE(commands.contains(text.section(u' ', 0, 0)))
                << name.toStdString() << ": " << line.toStdString();
        }
}

TEST_F(Demonstrations, ScriptsAndMaskFilesSayWhatTheyShowAndEndTheirLinesWithCrLf) {
    for (const QString& name : scriptNames + maskNames) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray text = bytesOf(scripts.filePath(name));
        EXPECT_TRUE(text.startsWith("' "));
        EXPECT_TRUE(text.endsWith("\r\n"));
        EXPECT_EQ(text.count('\n'), text.count("\r\n"));
        EXPECT_EQ(text.count('\r'), text.count("\r\n"));
        EXPECT_EQ(text.count("TITLE "), name.endsWith(QLatin1String(".ftscr")) ? 1 : 0);
    }
}

TEST_F(Demonstrations, NoMaskFilesNameBeginsWithADigit) {
    // A script would take such a name for the number of rows that follow.
    ASSERT_FALSE(maskNames.isEmpty());
    for (const QString& name : maskNames)
        EXPECT_FALSE(name[0].isDigit()) << name.toStdString();
}

TEST_F(Demonstrations, TwoWavesWithMasksOnOneGiveTheOther) {
    form().ReadScript(toLabPath(scripts.filePath(QStringLiteral("04-adding-waves-mask.ftscr"))));
    const auto grey = [](const Bitmap& picture, int x, int y) {
        return static_cast<int>(picture.at(x, y) & 0xFF);
    };
    // The picture holds whole greys, so its waves are true within a few of them.
    constexpr int kSteps = 3;
    // An upright wave of 8 periods is the same in all rows and after 32 pixels.
    const Bitmap& upright = form().pb3.shown();
    // The oblique one of 12 periods down comes back after 64 pixels, which are 3.
    const Bitmap& oblique = form().pb6.shown();
    for (int x = 0; x < 224; ++x) {
        EXPECT_NEAR(grey(upright, x, 10), grey(upright, x, 200), kSteps);
        EXPECT_NEAR(grey(upright, x, 10), grey(upright, x + 32, 10), kSteps);
        EXPECT_NEAR(grey(oblique, x, 10), grey(oblique, x, 74), kSteps);
    }
    EXPECT_GT(grey(upright, 0, 0), grey(upright, 16, 0) + 100) << "crest and trough";
    EXPECT_GT(grey(oblique, 0, 0), grey(oblique, 8, 0) + 100) << "crest and trough";
}

}  // namespace
}  // namespace quillon
