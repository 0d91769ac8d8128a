#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include "desktop/QtEnvironment.h"
#include "tests/desktop/BrowserWindow.h"

namespace quillon {
namespace {

QDir programFolder() {
    return QDir(toNativePath(QtEnvironment().programFolder()));
}

/// Lessons, help and interactive pages in the browser of the window.
class DeliveredPages : public BrowserWindow {
protected:
    void SetUp() override {
        BrowserWindow::SetUp();
        if (!IsSkipped())
            showTutorial();
    }
    static QStringList allPages() {
        QStringList pages;
        for (const char* folder : {"doc", "Lib"})
            for (QDirIterator walk(programFolder().filePath(QString::fromLatin1(folder)),
                                   {QStringLiteral("*.htm"), QStringLiteral("*.html")}, QDir::Files,
                                   QDirIterator::Subdirectories);
                 walk.hasNext();)
                pages << walk.next();
        pages.sort();
        return pages;
    }
};

TEST_F(DeliveredPages, AreShownWithAllTheirPicturesAndWithoutAnError) {
    const ConsoleCatcher console;
    const QStringList pages = allPages();
    ASSERT_EQ(pages.size(), 2 * (16 + 1) + 3 + 3)
        << "lessons and start page in two languages, help, interactive pages";
    for (const QString& page : pages) {
        SCOPED_TRACE(page.toStdString());
        ASSERT_TRUE(showFile(page));
        EXPECT_EQ(missingPictures(), QStringList());
        EXPECT_EQ(ask(QStringLiteral("document.styleSheets.length > 0")), true);
        EXPECT_EQ(ask(QStringLiteral("document.documentElement.scrollWidth <= innerWidth")), true)
            << "the window as it opens is wide enough";
    }
    EXPECT_EQ(ConsoleCatcher::lines(), QStringList());
}

TEST_F(DeliveredPages, TheFrequenciesAndTheirPictureStandSideBySide) {
    // The page speaks of the left one and the right one.
    ASSERT_TRUE(showFile(programFolder().filePath(QStringLiteral("Lib/Ondine1.html"))));
    EXPECT_EQ(ask(QStringLiteral("document.getElementById('map').offsetTop === "
                                 "document.getElementById('picture').offsetTop")),
              true);
}

TEST_F(DeliveredPages, APageWithFaultsWouldBeFound) {
    const ConsoleCatcher console;
    writePage("first.htm", "First", "none.htm", "<img src='lost.png'><script>lost();</script>");
    ASSERT_TRUE(showFile(pathOf("first.htm")));
    EXPECT_EQ(missingPictures(), QStringList{QUrl::fromLocalFile(pathOf("lost.png")).toString()});
    EXPECT_EQ(ConsoleCatcher::lines().filter(QStringLiteral("lost is not defined")).size(), 1);
}

TEST_F(DeliveredPages, TheEntriesOfTheInteractivePagesLeadToThemFromTheLab) {
    for (const int page : {1, 2, 3}) {
        click(widget("lbTAB(0)"));
        form().click(MenuArray::itm10a, static_cast<Integer>(page + 3));
        EXPECT_TRUE(
            waitForFile(programFolder().filePath(QStringLiteral("Lib/Ondine%1.html").arg(page))));
        EXPECT_TRUE(pane().isVisible());
    }
}

TEST_F(DeliveredPages, AnInteractivePageSpeaksTheLanguageOfItsAddressAndChangesIt) {
    const auto speaks = [&](const char* language) {
        return wait([&] {
            return ask(QStringLiteral("document.documentElement.lang + location.hash"))
                       .toString() == QStringLiteral("%1#%1").arg(QString::fromLatin1(language));
        });
    };
    for (const Integer entry : {Integer{4}, Integer{5}, Integer{6}}) {
        SCOPED_TRACE(entry);
        const QString page =
            programFolder().filePath(QStringLiteral("Lib/Ondine%1.html").arg(entry - 3));
        form().click(MenuArray::itmOpt1, 1);
        form().click(MenuArray::itm10a, entry);
        ASSERT_TRUE(waitForFile(page));
        ASSERT_TRUE(speaks("fr"));
        // What the student has done stays there.
        ask(QStringLiteral("document.title = 'Used'"));
        form().click(MenuArray::itmOpt1, 0);
        ASSERT_TRUE(speaks("en"));
        EXPECT_EQ(toBytes(ask(QStringLiteral("document.title")).toString()), "Used");
        // The page's own button counts as well.
        ask(QStringLiteral("document.getElementById('fr').click(), true"));
        ASSERT_TRUE(speaks("fr"));
        form().click(MenuArray::itmOpt1, 0);
        ASSERT_TRUE(speaks("en"));
        EXPECT_EQ(toBytes(ask(QStringLiteral("document.title")).toString()), "Used");
        form().click(MenuArray::itmOpt1, 0);
        ASSERT_TRUE(speaks("en"));
        key(Qt::Key_Left, Qt::AltModifier);
        EXPECT_TRUE(waitForFile(page)) << "back is the page in its former language";
    }
}

/// Lessons of a language.
class LessonLinks : public DeliveredPages, public ::testing::WithParamInterface<const char*> {
protected:
    const QDir folder{
        programFolder().filePath(QStringLiteral("doc/") + QString::fromLatin1(GetParam()))};
    const QStringList lessons =
        folder.entryList({QStringLiteral("[0-9][0-9]-*.htm")}, QDir::Files, QDir::Name);

    int scriptLinks() {
        return ask(QStringLiteral("document.querySelectorAll('a[href$=\".ftscr\"]').length"))
            .toInt();
    }
    /// Brings a link to a script into sight and clicks it; says its script's path.
    QString clickScriptLink(int index) {
        const QVariantList found =
            ask(QStringLiteral("(() => {"
                               " const link = document.querySelectorAll('a[href$=\".ftscr\"]')[%1];"
                               " link.scrollIntoView({block: 'center'});"
                               " const place = link.getClientRects()[0];"
                               " return [place.left + place.width / 2,"
                               "  place.top + place.height / 2,"
                               "  decodeURIComponent(new URL(link.href).pathname)]; })()")
                    .arg(index))
                .toList();
        const QPointF middle(found.at(0).value<double>(), found.at(1).value<double>());
        press(pane(), middle);
        release(pane(), middle);
        return found.at(2).toString();
    }
    /// The pictures that a script loads, above and below.
    static QStringList picturesOf(const QString& script) {
        QFile file(script);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << script.toStdString();
        QStringList names;
        const QRegularExpression load(QStringLiteral("^LOAD1 (\\S+)"),
                                      QRegularExpression::MultilineOption);
        for (const auto& found : load.globalMatch(QString::fromUtf8(file.readAll())))
            names << found.captured(1);
        return names;
    }
    QString pictureOf(Channel which) {
        return QFileInfo(toNativePath(form().lab.channel(which).file)).fileName();
    }
    void followScriptLink(const QString& page, int index) {
        const QString script = clickScriptLink(index);
        SCOPED_TRACE(script.toStdString());
        ASSERT_TRUE(wait([&] { return form().lab.viewTab == 1; }));
        settle();
        EXPECT_TRUE(widget("frt1").isVisible());
        EXPECT_FALSE(pane().isVisible());
        EXPECT_TRUE(recording.dialogs.messages.empty());
        EXPECT_EQ((QStringList{pictureOf(Channel::One), pictureOf(Channel::Two)}),
                  picturesOf(script));
        showTutorial();
        EXPECT_TRUE(waitForFile(page)) << "the page that led there is there again";
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, LessonLinks, ::testing::Values("en", "fr"),
                         [](const auto& language) { return std::string(language.param); });

TEST_P(LessonLinks, EachSetsUpTheLabByOneClick) {
    ASSERT_EQ(lessons.size(), 16);
    recording.dialogs.messages.clear();
    for (const QString& lesson : lessons) {
        SCOPED_TRACE(lesson.toStdString());
        const QString page = folder.filePath(lesson);
        ASSERT_TRUE(showFile(page));
        const int count = scriptLinks();
        EXPECT_GE(count, 1);
        for (int i = 0; i < count; ++i)
            followScriptLink(page, i);
    }
}

}  // namespace
}  // namespace quillon
