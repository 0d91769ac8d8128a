#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace quillon {
namespace {

namespace fs = std::filesystem;

const fs::path kHelp = fs::path(QUILLON_SOURCE_FOLDER) / "doc/help";

std::string textOf(const fs::path& page) {
    std::ifstream file(page, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// All that the first group of a pattern finds in a text.
std::vector<std::string> allOf(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator i(text.begin(), text.end(), expression), end; i != end; ++i)
        found.push_back((*i)[1]);
    return found;
}

class HelpLinks : public testing::TestWithParam<const char*> {
protected:
    const fs::path page = kHelp / GetParam();
    const std::string text = textOf(page);
};

INSTANTIATE_TEST_SUITE_P(Pages, HelpLinks,
                         testing::Values("index.html", "en/index.html", "fr/index.html"),
                         [](const auto& page) {
                             const std::string name = page.param;
                             return name.size() > 10 ? name.substr(0, 2) : std::string("start");
                         });

TEST_P(HelpLinks, LeadToPagesAndPlacesThatAreThere) {
    const std::vector<std::string> links = allOf(text, "(?:href|src)=\"([^\"]*)\"");
    ASSERT_GE(links.size(), 3U);
    for (const std::string& link : links) {
        const std::size_t mark = link.find('#');
        const fs::path target = mark == 0 ? page : page.parent_path() / link.substr(0, mark);
        EXPECT_TRUE(fs::is_regular_file(target)) << link;
        if (mark != std::string::npos) {
            EXPECT_NE(textOf(target).find("id=\"" + link.substr(mark + 1) + "\""),
                      std::string::npos)
                << link;
        }
    }
}

TEST_P(HelpLinks, FetchNothingFromElsewhereAndRunNoScript) {
    EXPECT_FALSE(std::regex_search(text, std::regex("https?:|src=\"//|<script|@import")));
}

struct Wording {
    const char* folder;
    /// Each stands with what it does.
    std::vector<std::string> keys;
    std::vector<std::string> gestures;
};

const Wording kEnglish{"en",
                       {"Enter", "Space", "r", "L", "Shift", "Ctrl", "Alt", "Esc"},
                       {"right click", "double click", "dragging", "dropping a file", "hovering",
                        "[-] and [+]", "[x]"}};
const Wording kFrench{"fr",
                      {"Entr\u00E9e", "Espace", "r", "L", "Maj", "Ctrl", "Alt", "\u00C9chap"},
                      {"clic droit", "double clic", "en tirant", "en d\u00E9posant un fichier",
                       "le pointeur lit", "[-] et [+]", "[x]"}};

class HelpWords : public testing::TestWithParam<Wording> {
protected:
    const std::string text = textOf(kHelp / GetParam().folder / "index.html");
    std::string chapter(const std::string& id) const {
        const std::size_t from = text.find("<h2 id=\"" + id + "\"");
        return from == std::string::npos ? ""
                                         : text.substr(from, text.find("<h2", from + 1) - from);
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, HelpWords, testing::Values(kEnglish, kFrench),
                         [](const auto& language) { return language.param.folder; });

TEST_P(HelpWords, TellOfEveryKey) {
    for (const std::string& key : GetParam().keys)
        EXPECT_NE(chapter("keys").find("<kbd>" + key + "</kbd>"), std::string::npos) << key;
}

TEST_P(HelpWords, TellOfEveryGesture) {
    for (const std::string& gesture : GetParam().gestures)
        EXPECT_NE(chapter("mouse").find(gesture), std::string::npos) << gesture;
}

TEST_P(HelpWords, TellOfEveryFileFormat) {
    for (const char* format : {"BMP", "GIF", "JPEG", "last.ftscr"})
        EXPECT_NE(chapter("files").find(format), std::string::npos) << format;
    EXPECT_NE(chapter("scripts").find("(.ftscr)"), std::string::npos);
    EXPECT_NE(chapter("masks").find("(.ftmsk)"), std::string::npos);
    for (const char* result : {"_batch1.bmp", "_batch2.bmp", "_batch3.bmp"})
        EXPECT_NE(chapter("batch").find(result), std::string::npos) << result;
}

}  // namespace
}  // namespace quillon
