#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextBrowser>

#include "desktop/QtEnvironment.h"
#include "tests/desktop/PaneWindow.h"

namespace quillon {
namespace {

/// A link of the page on show: where it leads, and a place in the page's text.
struct PlacedLink {
    QUrl target;
    int position;
};

/// The ways from page to page, in the plain reader, which shows a page at once.
class PageLinks : public PaneWindow, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        openWith(PaneKind::Reader);
        showTutorial();
    }
    QTextBrowser& reader() { return dynamic_cast<QTextBrowser&>(pane()); }
    void show(const QUrl& page) {
        form().ie5.Navigate2(toBytes(page.toLocalFile()));
        ASSERT_EQ(pageShown(), page);
    }
    QList<PlacedLink> linksToPages() {
        QList<PlacedLink> links;
        for (QTextBlock block = reader().document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QString named = part.fragment().charFormat().anchorHref();
                if (named.endsWith(QStringLiteral(".htm")) ||
                    named.endsWith(QStringLiteral(".html")))
                    links << PlacedLink{pageShown().resolved(QUrl(named)),
                                        part.fragment().position() + 1};
            }
        return links;
    }
    void click(const PlacedLink& link) {
        QTextCursor place(reader().document());
        place.setPosition(link.position);
        reader().setTextCursor(place);
        reader().ensureCursorVisible();
        settle();
        const QPoint middle = reader().cursorRect(place).center();
        press(*reader().viewport(), middle);
        release(*reader().viewport(), middle);
        settle();
    }
};

INSTANTIATE_TEST_SUITE_P(
    StartPages, PageLinks,
    ::testing::Values("doc/en/summary.htm", "doc/fr/sommaire.htm", "doc/help/index.html"),
    [](const auto& page) {
        return QFileInfo(QString::fromLatin1(page.param)).completeBaseName().toStdString();
    });

TEST_P(PageLinks, EachIsFollowedByAClickAndReachesEveryPage) {
    const QDir program(toNativePath(QtEnvironment().programFolder()));
    const QUrl start = QUrl::fromLocalFile(program.filePath(QString::fromLatin1(GetParam())));
    const bool isHelp = start.path().contains(QStringLiteral("/help/"));
    const QString folder = QFileInfo(start.toLocalFile()).path() + u'/';
    QList<QUrl> toVisit{start};
    for (qsizetype i = 0; i < toVisit.size(); ++i) {
        SCOPED_TRACE(toVisit[i].toString().toStdString());
        show(toVisit[i]);
        const QList<PlacedLink> links = linksToPages();
        EXPECT_FALSE(links.isEmpty()) << "every page leads on or back";
        for (const PlacedLink& link : links) {
            show(toVisit[i]);
            click(link);
            EXPECT_EQ(pageShown(), link.target);
            EXPECT_FALSE(titleShown().isEmpty()) << link.target.toString().toStdString();
            // The help leads to the tutorial, which has its own turn.
            if (link.target.toLocalFile().startsWith(folder) && !toVisit.contains(link.target))
                toVisit << link.target;
        }
    }
    EXPECT_EQ(toVisit.size(), isHelp ? 3 : 16 + 1) << "no page stands apart";
}

}  // namespace
}  // namespace quillon
