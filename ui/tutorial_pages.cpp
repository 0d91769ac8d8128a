#include "ui/tutorial_pages.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

/// What a language is called in the pages' addresses, and its start page.
struct PagesOfLanguage {
    std::string_view name;
    std::string_view startPage;
};

constexpr std::array<PagesOfLanguage, 2> kPages{{
    {"en", "summary.htm"},
    {"fr", "sommaire.htm"},
}};

const PagesOfLanguage& pagesOf(Language language) {
    return kPages[static_cast<std::size_t>(language)];
}

/// The pages of the language that a folder or a place is named for; the end of the
/// table where it is none.
auto languageNamed(std::string_view name) {
    return std::ranges::find(kPages, name, &PagesOfLanguage::name);
}

bool isPageName(const std::string& file) {
    const std::string upper = upperCased(file);
    return upper.ends_with(".HTM") || upper.ends_with(".HTML");
}

/// Only looks: a page is the program's own file, whose permissions stay.
bool isThere(Files& files, const std::string& file) {
    try {
        return files.length(file) > 0;
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace

PageAddress pageAddress(const std::string& address) {
    const auto mark = address.rfind('#');
    if (mark == std::string::npos || !isPageName(address.substr(0, mark)))
        return {address, ""};
    return {address.substr(0, mark), address.substr(mark + 1)};
}

std::string startPage(const std::string& programFolder, Language language) {
    const PagesOfLanguage& pages = pagesOf(language);
    return programFolder + "\\doc\\" + std::string(pages.name) + "\\" +
           std::string(pages.startPage);
}

std::string helpPage(const std::string& helpFile, Language language) {
    return helpFile + "::/" + std::string(pagesOf(language).name) + "/index.html";
}

std::string interactivePage(const std::string& libPath, int number, Language language) {
    return PageAddress{libPath + "Ondine" + std::to_string(number) + ".html",
                       std::string(pagesOf(language).name)}
        .text();
}

std::string sameInLanguage(Files& files, const std::string& page, Language language) {
    const PagesOfLanguage& wanted = pagesOf(language);
    PageAddress address = pageAddress(page);
    if (languageNamed(address.place) != kPages.end())
        return PageAddress{address.file, std::string(wanted.name)}.text();

    const std::string folder = FolderPart(address.file);
    std::string name = FileNamePart(address.file);
    if (!folder.ends_with('\\'))
        return {};
    const std::string above = FolderPart(folder.substr(0, folder.size() - 1));
    const std::string last = folder.substr(above.size(), folder.size() - above.size() - 1);
    const auto* now = languageNamed(last);
    if (now == kPages.end())
        return {};
    if (name == now->startPage)
        name = wanted.startPage;
    address.file = above + std::string(wanted.name) + "\\" + name;
    return isThere(files, address.file) ? address.text() : std::string();
}

}  // namespace quillon
