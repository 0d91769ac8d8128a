#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "ui/MenuTable.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

/// The help in a language ("en").
std::string helpIn(const std::string& language) {
    const std::filesystem::path page =
        std::filesystem::path(QUILLON_SOURCE_FOLDER) / "doc/help" / language / "index.html";
    std::ifstream file(page, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    // A line may end inside a name.
    std::ranges::replace(text, '\n', ' ');
    return text;
}

class HelpPages : public testing::TestWithParam<const char*> {};

TEST_P(HelpPages, TellOfEveryMenuEntryThatCanBeSeen) {
    const std::string help = helpIn(GetParam());
    for (int array = 0; array < kMenuArrayCount; ++array) {
        // The people behind the links bear the names of their roles, not of entries to explain.
        if (static_cast<MenuArray>(array) == MenuArray::itm10a)
            continue;
        for (const MenuEntryRow& row : menuEntries(static_cast<MenuArray>(array))) {
            const std::string caption = row.caption;
            if (caption == "-" || row.sight == StartSight::Hidden)
                continue;
            EXPECT_NE(help.find(caption), std::string::npos)
                << GetParam() << " says nothing of " << caption;
        }
    }
    for (const char* link : {"Applet Ondine1", "Applet Ondine2", "Applet Ondine3",
                             "Wren Journal Paper", "Wren Journal Reference"})
        EXPECT_NE(help.find(link), std::string::npos) << link;
}

TEST_P(HelpPages, TellOfEveryScriptCommand) {
    const std::string help = helpIn(GetParam());
    for (const char* command :
         {"TOP",       "BOTTOM",      "TITLE",       "LOAD1",     "NEW1",      "LOWPASS",
          "HIGHPASS",  "MASK n",      "MASK 0",      "INVERT1",   "INVERT2",   "INVERT3",
          "SAVE1",     "SAVE2",       "SAVE3",       "RNDPHASES", "RNDMODULI", "CONVOLVE1",
          "CONVOLVE2", "DECONVOLVE1", "DECONVOLVE2", "EXIT"})
        EXPECT_NE(help.find(command), std::string::npos) << command;
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, HelpPages, testing::Values("en", "fr"));

}  // namespace
}  // namespace quillon
