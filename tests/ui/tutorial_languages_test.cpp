#include "ui/tutorial_pages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using enum MenuArray;

const std::string kDoc = "C:\\Quillon\\doc\\";

/// The language changed while a page is on show.
class LanguageOfThePage : public CommandFixture {
protected:
    LanguageOfThePage() {
        for (const char* folder : {"en\\", "fr\\", "help\\", "help\\en\\", "help\\fr\\"})
            desktop.files.addFolder(kDoc + folder);
        for (const char* page :
             {"en\\summary.htm", "fr\\sommaire.htm", "en\\05-edges.htm", "fr\\05-edges.htm",
              "help\\en\\index.html", "help\\fr\\index.html", "en\\alone.htm", "help\\index.html"})
            desktop.files.write(kDoc + page, "page");
    }
    /// Where a change of language leads from a page that links have led to.
    std::string from(const std::string& page, Language to) {
        form.ie5.Location = page;
        const Long requests = form.ie5.Requests;
        form.click(itmOpt1, static_cast<Integer>(to == Language::French ? 1 : 0));
        EXPECT_EQ(form.ie5.Requests, requests + 1);
        return form.ie5.Address;
    }
};

TEST_F(LanguageOfThePage, LeadsToTheSameLessonInTheOtherOne) {
    EXPECT_EQ(from(kDoc + "en\\05-edges.htm", Language::French), kDoc + "fr\\05-edges.htm");
    EXPECT_EQ(from(kDoc + "fr\\05-edges.htm", Language::English), kDoc + "en\\05-edges.htm");
    EXPECT_TRUE(desktop.calls.of({"files.clearAttributes"}).empty())
        << "it only looks for the page";
}

TEST_F(LanguageOfThePage, LeadsFromStartPageToStartPage) {
    EXPECT_EQ(from(kDoc + "en\\summary.htm", Language::French), kDoc + "fr\\sommaire.htm");
    EXPECT_EQ(from(kDoc + "fr\\sommaire.htm", Language::English), kDoc + "en\\summary.htm");
}

TEST_F(LanguageOfThePage, LeadsToTheSamePlaceOfTheHelp) {
    EXPECT_EQ(from(kDoc + "help\\en\\index.html#keys", Language::French),
              kDoc + "help\\fr\\index.html#keys");
    EXPECT_EQ(from(kDoc + "help\\fr\\index.html", Language::English),
              kDoc + "help\\en\\index.html");
}

TEST_F(LanguageOfThePage, ChangesTheLanguageOfAnInteractivePage) {
    form.click(itm10a, 5);
    EXPECT_EQ(from(form.ie5.Location, Language::French), "C:\\Quillon\\Lib\\Ondine2.html#fr");
    EXPECT_EQ(from(form.ie5.Location, Language::English), "C:\\Quillon\\Lib\\Ondine2.html#en");
}

TEST_F(LanguageOfThePage, LeadsToTheStartPageWhereThereIsNoOther) {
    for (const char* page : {"", "C:\\Quillon\\doc\\help\\index.html", "D:\\fr", "C:\\mine.htm",
                             "https://www.brindlewood.example/en/index.html", "mine.htm",
                             "en\\mine.htm", "C:\\Quillon\\Lib\\Ondine2.html"}) {
        EXPECT_EQ(from(page, Language::French), kDoc + "fr\\sommaire.htm") << page;
        EXPECT_EQ(from(page, Language::English), kDoc + "en\\summary.htm") << page;
    }
    const std::string alone = kDoc + "en\\alone.htm";
    EXPECT_EQ(from(alone, Language::French), kDoc + "fr\\sommaire.htm");
    EXPECT_EQ(from(alone, Language::English), alone) << "it is in that language";
}

TEST_F(LanguageOfThePage, AlreadyInForceLoadsItsPageAgain) {
    EXPECT_EQ(from(kDoc + "en\\05-edges.htm", Language::English), kDoc + "en\\05-edges.htm");
}

TEST_F(LanguageOfThePage, CountsWhereThePageIsInTheOtherOneThanTheLab) {
    // The help offers its other language by a link.
    ASSERT_FALSE(form.lab.frenchTutorial);
    EXPECT_EQ(from(kDoc + "help\\fr\\index.html", Language::French), kDoc + "help\\fr\\index.html");
}

TEST(PageAddress, HasAPlaceOnlyBehindThePagesName) {
    const auto parts = [](const char* address) {
        const PageAddress page = pageAddress(address);
        return page.file + "|" + page.place;
    };
    EXPECT_EQ(parts("C:\\a.htm#b"), "C:\\a.htm|b");
    EXPECT_EQ(parts("C:\\a.HTML#"), "C:\\a.HTML|");
    EXPECT_EQ(parts("C:\\a.htm"), "C:\\a.htm|");
    EXPECT_EQ(parts("C:\\C#\\a.htm"), "C:\\C#\\a.htm|");
    EXPECT_EQ(parts("C:\\C#\\a.htm#b"), "C:\\C#\\a.htm|b");
    EXPECT_EQ(parts("C:\\a#b.htm"), "C:\\a#b.htm|");
    EXPECT_EQ(parts(""), "|");
}

/// Every page of a folder of the tree, as the lab writes its path.
std::set<std::string> pagesIn(const char* folder) {
    std::set<std::string> pages;
    for (const auto& entry :
         fs::recursive_directory_iterator(fs::path(QUILLON_SOURCE_FOLDER) / folder))
        if (entry.path().extension() == ".htm" || entry.path().extension() == ".html")
            pages.insert(labPath(entry.path().string()));
    return pages;
}

TEST(DeliveredLanguages, HaveEveryPageInBothAndLeadBackToIt) {
    NativeFiles files;
    int pairs = 0;
    for (const std::string& page : pagesIn("doc"))
        for (const auto& [here, there] : {std::pair(Language::English, Language::French),
                                          std::pair(Language::French, Language::English)}) {
            if (page.find(here == Language::English ? "\\en\\" : "\\fr\\") == std::string::npos)
                continue;
            const std::string other = sameInLanguage(files, page, there);
            EXPECT_NE(other, "") << page;
            EXPECT_NE(other, page);
            EXPECT_EQ(sameInLanguage(files, other, here), page);
            EXPECT_EQ(sameInLanguage(files, page, here), page);
            ++pairs;
        }
    EXPECT_EQ(pairs, 2 * (16 + 1 + 1)) << "lessons, start page, help";
}

TEST(DeliveredLanguages, HaveTheSamePlacesInTheHelp) {
    const auto places = [](const char* language) {
        const fs::path page =
            fs::path(QUILLON_SOURCE_FOLDER) / "doc/help" / language / "index.html";
        std::ifstream file(page, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        std::set<std::string> found;
        for (auto at = text.find(" id=\""); at != std::string::npos;
             at = text.find(" id=\"", at + 1))
            found.insert(text.substr(at + 5, text.find('"', at + 5) - at - 5));
        return found;
    };
    EXPECT_GT(places("en").size(), 10U);
    EXPECT_EQ(places("en"), places("fr"));
}

}  // namespace
}  // namespace quillon
