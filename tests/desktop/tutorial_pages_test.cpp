#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>

#include "desktop/Conversions.h"
#include "desktop/QtEnvironment.h"

namespace quillon {
namespace {

QDir docFolder() {
    return QDir(toNativePath(QtEnvironment().programFolder()) + QStringLiteral("/doc"));
}

QString textOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// All that a page's attributes href or src name, in their order.
QStringList namedIn(const QString& page, const char* attribute) {
    const QRegularExpression pattern(QLatin1Char(' ') + QLatin1String(attribute) +
                                     QStringLiteral("=\"([^\"]*)\""));
    QStringList names;
    for (const auto& found : pattern.globalMatch(page))
        names.append(found.captured(1));
    return names;
}

/// True where each step of the path is a name of its folder, letter by letter,
/// also on a system that takes capital and small letters for the same.
bool isExactPath(const QDir& from, const QString& relative) {
    QDir folder = from;
    const QStringList steps = relative.split(u'/');
    for (const QString& step : steps.mid(0, steps.size() - 1)) {
        if (step != QLatin1String("..") && !folder.entryList(QDir::Dirs).contains(step))
            return false;
        if (!folder.cd(step))
            return false;
    }
    return folder.entryList(QDir::Files).contains(steps.last());
}

struct Language {
    const char* folder;
    const char* start;
    const char* question;
    const char* answer;
};

class TutorialPages : public testing::TestWithParam<Language> {
protected:
    const QDir folder{docFolder().filePath(QLatin1String(GetParam().folder))};
    const QString start = QLatin1String(GetParam().start);
    const QStringList chapters =
        folder.entryList({QStringLiteral("[0-9][0-9]-*.htm")}, QDir::Files, QDir::Name);
    QString page(const QString& name) const { return textOf(folder.filePath(name)); }
};

TEST_P(TutorialPages, EveryLinkAndPictureLeadsToAFileOfThatVeryName) {
    for (const QString& name : chapters + QStringList{start})
        for (const char* attribute : {"href", "src"})
            for (const QString& named : namedIn(page(name), attribute))
                EXPECT_TRUE(isExactPath(folder, named.section(u'#', 0, 0)))
                    << name.toStdString() << " names " << named.toStdString();
}

TEST_P(TutorialPages, NothingIsFetchedFromElsewhere) {
    const QRegularExpression outside(QStringLiteral("https?:|<script|@import"));
    for (const QString& name : chapters + QStringList{start})
        EXPECT_FALSE(page(name).contains(outside)) << name.toStdString();
}

TEST_P(TutorialPages, EveryPictureHasItsOwnSizeAndIsDescribed) {
    const QRegularExpression tag(QStringLiteral("<img [^>]*>"));
    for (const QString& name : chapters + QStringList{start})
        for (const auto& found : tag.globalMatch(page(name))) {
            const QString image = found.captured();
            const QString file = namedIn(image, "src").value(0);
            const QSize size = QImageReader(folder.filePath(file)).size();
            EXPECT_EQ(namedIn(image, "width").value(0).toInt(), size.width()) << file.toStdString();
            EXPECT_EQ(namedIn(image, "height").value(0).toInt(), size.height())
                << file.toStdString();
            EXPECT_GT(namedIn(image, "alt").value(0).size(), 15) << file.toStdString();
        }
}

TEST_P(TutorialPages, EveryChapterIsTheLessonThatItsNumberSays) {
    ASSERT_EQ(chapters.size(), 16);
    for (qsizetype i = 0; i < chapters.size(); ++i) {
        SCOPED_TRACE(chapters[i].toStdString());
        const QString text = page(chapters[i]);
        EXPECT_EQ(chapters[i].left(3), QStringLiteral("%1-").arg(i + 1, 2, 10, QLatin1Char('0')));
        EXPECT_TRUE(text.contains(QStringLiteral("<h1>%1. ").arg(i + 1)));
        EXPECT_TRUE(text.contains(QStringLiteral("<title>%1. ").arg(i + 1)));
        EXPECT_TRUE(text.contains(
            QStringLiteral("<html lang=\"%1\">").arg(QLatin1String(GetParam().folder))));
        EXPECT_TRUE(text.contains(
            QStringLiteral("<h2>%1</h2>").arg(QString::fromUtf8(GetParam().question))));
        EXPECT_TRUE(text.contains(
            QStringLiteral("<summary>%1</summary>").arg(QString::fromUtf8(GetParam().answer))));
        EXPECT_TRUE(
            namedIn(text, "href")
                .contains(QStringLiteral("../../Scripts/%1.ftscr").arg(chapters[i].chopped(4))));
    }
}

TEST_P(TutorialPages, TheChaptersLeadOnAndBackAndToTheContents) {
    for (qsizetype i = 0; i < chapters.size(); ++i) {
        const QStringList links = namedIn(page(chapters[i]), "href");
        EXPECT_TRUE(links.contains(start)) << chapters[i].toStdString();
        for (const qsizetype neighbour : {i - 1, i + 1}) {
            if (neighbour < 0 || neighbour == chapters.size())
                continue;
            EXPECT_TRUE(links.contains(chapters[neighbour])) << chapters[i].toStdString();
        }
    }
}

TEST_P(TutorialPages, TheContentsNameEveryChapterByItsTitle) {
    const QString contents = page(start);
    const QRegularExpression heading(QStringLiteral("<h1>\\d+\\. (.*)</h1>"));
    for (const QString& name : chapters) {
        const QString title = heading.match(page(name)).captured(1);
        EXPECT_TRUE(contents.contains(QStringLiteral("<a href=\"%1\">%2</a>").arg(name, title)))
            << name.toStdString() << " " << title.toStdString();
    }
}

TEST_P(TutorialPages, EveryElementThatIsOpenedIsClosed) {
    const QRegularExpression tag(QStringLiteral("<(/?)([a-z0-9]+)[^>]*>"));
    const QStringList empty = {"meta", "link", "img", "br"};
    for (const QString& name : chapters + QStringList{start}) {
        QStringList open;
        for (const auto& found : tag.globalMatch(page(name))) {
            if (empty.contains(found.captured(2)))
                continue;
            if (found.captured(1).isEmpty())
                open.append(found.captured(2));
            else if (open.isEmpty() || open.takeLast() != found.captured(2))
                FAIL() << name.toStdString() << ": " << found.captured().toStdString();
        }
        EXPECT_TRUE(open.isEmpty()) << name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(In, TutorialPages,
                         testing::Values(Language{"en", "summary.htm", "Question", "Answer"},
                                         Language{"fr", "sommaire.htm", "Question",
                                                  "R\xC3\xA9ponse"}),
                         [](const auto& info) { return std::string(info.param.folder); });

TEST(TutorialLanguages, ShowTheSamePicturesAndSetUpTheSameExperiments) {
    const QDir english(docFolder().filePath(QStringLiteral("en")));
    const QDir french(docFolder().filePath(QStringLiteral("fr")));
    const QStringList pattern = {QStringLiteral("[0-9][0-9]-*.htm")};
    ASSERT_EQ(english.entryList(pattern), french.entryList(pattern));
    for (const QString& name : english.entryList(pattern)) {
        const QString one = textOf(english.filePath(name));
        const QString other = textOf(french.filePath(name));
        EXPECT_EQ(namedIn(one, "src"), namedIn(other, "src")) << name.toStdString();
        QStringList links = namedIn(other, "href");
        links.replaceInStrings(QStringLiteral("sommaire.htm"), QStringLiteral("summary.htm"));
        EXPECT_EQ(namedIn(one, "href"), links) << name.toStdString();
    }
}

TEST(TutorialLanguages, UseEveryPictureAndEveryScript) {
    const QDir english(docFolder().filePath(QStringLiteral("en")));
    QSet<QString> named;
    for (const QString& name : english.entryList({QStringLiteral("*.htm")}))
        for (const char* attribute : {"href", "src"})
            for (const QString& each : namedIn(textOf(english.filePath(name)), attribute))
                named.insert(each);
    for (const QString& picture :
         QDir(docFolder().filePath(QStringLiteral("pictures"))).entryList(QDir::Files))
        EXPECT_TRUE(named.contains(QStringLiteral("../pictures/") + picture))
            << picture.toStdString();
    for (const QString& script : QDir(docFolder().filePath(QStringLiteral("../Scripts")))
                                     .entryList({QStringLiteral("*.ftscr")}))
        EXPECT_TRUE(named.contains(QStringLiteral("../../Scripts/") + script))
            << script.toStdString();
}

}  // namespace
}  // namespace quillon
