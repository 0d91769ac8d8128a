#pragma once

#include <string>

#include "engine/Desktop.h"

namespace quillon {

// Where the pages of the course, of the help and the interactive ones lie, and
// which of them belong together.

enum class Language { English, French };

/// The address of a page: its file, and the place in it behind a "#".
struct PageAddress {
    std::string file;
    std::string place;

    std::string text() const { return place.empty() ? file : file + "#" + place; }
};

/// The parts of an address. Only behind the name of a page does a "#" part them:
/// folders may have one in their names.
PageAddress pageAddress(const std::string& address);

/// The start page of the course.
std::string startPage(const std::string& programFolder, Language language);

/// The help's first page, as its viewer is asked for it: the compiled help, and
/// behind "::/" the page in it. The pages in doc/help have the same places.
std::string helpPage(const std::string& helpFile, Language language);

/// One of the interactive pages, 1 to 3. Each speaks both languages; the place in
/// its address says which.
std::string interactivePage(const std::string& libPath, int number, Language language);

/// The same page in a language; empty where there is none. Pages of a language lie
/// in a folder of its name, under the same file names but for the start page. The
/// place in the page stays.
std::string sameInLanguage(Files& files, const std::string& page, Language language);

}  // namespace quillon
