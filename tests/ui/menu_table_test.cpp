#include "ui/MenuTable.h"

#include <string>
#include <vector>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

using enum MenuArray;

std::vector<std::string> captionsOf(MenuArray array) {
    std::vector<std::string> captions;
    for (const MenuEntryRow& row : menuEntries(array))
        captions.emplace_back(row.caption);
    return captions;
}

using Captions = std::vector<std::string>;

TEST(MenuTable, TheImageMenusOfferPicturesDrawingAndConvolution) {
    const Captions image = {
        "Reload Image", "-",           "Load Image",  "New Image",    "-",         "Copy Image",
        "Save Image",   "Paste Image", "-",           "Invert Image", "Histogram", "-",
        "Drawing",      "-",           "Convolution", "Deconvolution"};
    EXPECT_EQ(captionsOf(mnuImg1a), image);
    EXPECT_EQ(captionsOf(mnuImg2a), image);
    const Captions drawing = {"Freehand", "Lattice", "None (Shift)", "Grid Pattern"};
    EXPECT_EQ(captionsOf(mnuImg1b), drawing);
    EXPECT_EQ(captionsOf(mnuImg2b), drawing);
}

TEST(MenuTable, TheFtMenusOfferFiltersScalesAndExport) {
    const Captions spectrum = {"Fourier Transform", "-",           "Copy Image",
                               "Save Image",        "Print Image", "-",
                               "Invert Image",      "Histogram",   "-",
                               "No Filter",         "Low-Pass",    "High-Pass",
                               "Custom Masks",      "-",           "Linear Scale",
                               "Sqrt Scale",        "-",           "Export Data"};
    EXPECT_EQ(captionsOf(mnuFT1a), spectrum);
    EXPECT_EQ(captionsOf(mnuFT2a), spectrum);
}

TEST(MenuTable, TheIftMenusOfferTheInverseTheShiftAndTheSurface) {
    const Captions reconstruction = {
        "Inverse FT",   "-",         "Copy Image", "Save Image",      "Print Image",    "-",
        "Invert Image", "Histogram", "-",          "Shift [1/2,1/2]", "View FT Surface"};
    EXPECT_EQ(captionsOf(mnuNew1a), reconstruction);
    EXPECT_EQ(captionsOf(mnuNew2a), reconstruction);
}

TEST(MenuTable, TheCommonMenusOfferFilesScriptsOptionsAndHelp) {
    EXPECT_EQ(captionsOf(itmFile), (Captions{"View Image Folder", "View Scripts Folder", "-",
                                             "Batch Processing", "-", "Exit"}));
    EXPECT_EQ(captionsOf(itmSCR), (Captions{"Load Script", "Save as Script", "Edit Script"}));
    EXPECT_EQ(captionsOf(itmOpt),
              (Captions{"GUI Colors", "Tutorial", "-", "Recalculate All [Enter-key]",
                        "Auto-Calculate", "-", "1 - Swap Phase Sets", "2 - Randomize Phases",
                        "3 - Randomize Magnitudes", "4 - Discard Phases", "5 - Discard Magnitudes",
                        "-", "View FT Magnitudes", "View FT Mag. + Phases", "View FT Phases",
                        "View FT Real Part", "View FT Imag Part"}));
    EXPECT_EQ(captionsOf(itmOpt0),
              (Captions{"Blue", "Violet", "White", "Light Grey", "Dark Grey"}));
    EXPECT_EQ(captionsOf(itmOpt1), (Captions{"English",
                                             "Fran\xC3\xA7"
                                             "ais"}));
    EXPECT_EQ(captionsOf(itm10), (Captions{"Contents", "Check for Update", "Links", "-", "About"}));
    const Captions links = captionsOf(itm10a);
    ASSERT_EQ(links.size(), 10U);
    EXPECT_EQ(links[0], "Brindlewood");
    EXPECT_EQ(links[1], "Co-author (images)");
    EXPECT_EQ(links[2], "Co-author (tutorial)");
    EXPECT_EQ(links[3], "-");
    EXPECT_EQ(links[4], "Applet Ondine1");
    EXPECT_EQ(links[5], "Applet Ondine2");
    EXPECT_EQ(links[6], "Applet Ondine3");
    EXPECT_EQ(links[7], "-");
    EXPECT_EQ(links[8], "Wren Journal Paper");
    EXPECT_EQ(links[9], "Wren Journal Reference");
}

TEST(MenuTable, TheBarHoldsItsTitlesInOrderWithThreeDividers) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"mnuFile", "File"}, {"mnuDUM1", "|"}, {"mnuImg1", "Image"},   {"mnuFT1", "FT"},
        {"mnuNew1", "iFT"},  {"mnuDUM2", "|"}, {"mnuImg2", "Image"},   {"mnuFT2", "FT"},
        {"mnuNew2", "iFT"},  {"mnuDUM3", "|"}, {"mnuSCR", "&Scripts"}, {"mnuOpt", "&Options"},
        {"mnu10", "&Help"}};
    std::vector<std::pair<std::string, std::string>> found;
    for (const MenuTitleRow& row : menuTitles())
        found.emplace_back(row.name, row.caption);
    EXPECT_EQ(found, expected);
}

TEST(MenuTable, EachTitleOpensItsArray) {
    const std::vector<int> expected = {
        static_cast<int>(itmFile),  -1, static_cast<int>(mnuImg1a), static_cast<int>(mnuFT1a),
        static_cast<int>(mnuNew1a), -1, static_cast<int>(mnuImg2a), static_cast<int>(mnuFT2a),
        static_cast<int>(mnuNew2a), -1, static_cast<int>(itmSCR),   static_cast<int>(itmOpt),
        static_cast<int>(itm10)};
    std::vector<int> found;
    for (const MenuTitleRow& row : menuTitles())
        found.push_back(row.array);
    EXPECT_EQ(found, expected);
}

TEST(MenuTable, ArraysBearTheirNames) {
    const std::vector<std::string> names = {"mnuImg1a", "mnuImg1b", "mnuFT1a", "mnuNew1a",
                                            "mnuImg2a", "mnuImg2b", "mnuFT2a", "mnuNew2a",
                                            "itmFile",  "itmSCR",   "itmOpt",  "itmOpt0",
                                            "itmOpt1",  "itm10",    "itm10a"};
    ASSERT_EQ(names.size(), static_cast<std::size_t>(kMenuArrayCount));
    for (int i = 0; i < kMenuArrayCount; ++i)
        EXPECT_EQ(menuArrayName(static_cast<MenuArray>(i)), names[static_cast<std::size_t>(i)]);
}

/// "mnuFT1a(9)" for each entry of which the question is true.
template <class Question>
std::vector<std::string> entriesWhere(const Question& question) {
    std::vector<std::string> found;
    for (int i = 0; i < kMenuArrayCount; ++i) {
        const auto array = static_cast<MenuArray>(i);
        int index = 0;
        for (const MenuEntryRow& row : menuEntries(array)) {
            if (question(row))
                found.push_back(std::string(menuArrayName(array)) + "(" + std::to_string(index) +
                                ")");
            ++index;
        }
    }
    return found;
}

const std::vector<std::string> kMarkedAtStart = {
    "mnuImg1b(0)", "mnuFT1a(9)", "mnuFT1a(15)", "mnuImg2b(0)", "mnuFT2a(9)",
    "mnuFT2a(15)", "itmOpt(4)",  "itmOpt(12)",  "itmOpt0(0)",  "itmOpt1(0)"};
const std::vector<std::string> kHiddenForGood = {"mnuImg1a(15)", "mnuFT1a(4)",   "mnuFT1a(7)",
                                                 "mnuNew1a(4)",  "mnuImg2a(15)", "mnuFT2a(4)",
                                                 "mnuFT2a(7)",   "mnuNew2a(4)"};

TEST(MenuTable, OnlyTheBuiltInChoicesAreCheckedAtStart) {
    EXPECT_EQ(entriesWhere([](const MenuEntryRow& row) { return row.mark == StartMark::Checked; }),
              kMarkedAtStart);
}

TEST(MenuTable, DeconvolutionPrintingAndTheSpectrumHistogramAreHidden) {
    EXPECT_EQ(entriesWhere([](const MenuEntryRow& row) { return row.sight == StartSight::Hidden; }),
              kHiddenForGood);
}

TEST(MenuTable, FiveEntriesOpenSubMenus) {
    EXPECT_EQ(entriesWhere([](const MenuEntryRow& row) { return row.submenu >= 0; }),
              (std::vector<std::string>{"mnuImg1a(12)", "mnuImg2a(12)", "itmOpt(0)", "itmOpt(1)",
                                        "itm10(2)"}));
    EXPECT_EQ(menuEntries(mnuImg1a)[12].submenu, static_cast<int>(mnuImg1b));
    EXPECT_EQ(menuEntries(mnuImg2a)[12].submenu, static_cast<int>(mnuImg2b));
    EXPECT_EQ(menuEntries(itmOpt)[0].submenu, static_cast<int>(itmOpt0));
    EXPECT_EQ(menuEntries(itmOpt)[1].submenu, static_cast<int>(itmOpt1));
    EXPECT_EQ(menuEntries(itm10)[2].submenu, static_cast<int>(itm10a));
}

class BuiltMenus : public FormFixture {
protected:
    template <class Question>
    std::vector<std::string> itemsWhere(const Question& question) {
        std::vector<std::string> found;
        for (int i = 0; i < kMenuArrayCount; ++i) {
            const auto array = static_cast<MenuArray>(i);
            for (std::size_t index = 0; index < menuEntries(array).size(); ++index) {
                const MenuItem& item = form.menu(array, static_cast<Integer>(index));
                if (question(item))
                    found.push_back(item.Name);
            }
        }
        return found;
    }
};

TEST_F(BuiltMenus, TheItemsStandAsTheTableSays) {
    EXPECT_EQ(itemsWhere([](const MenuItem& item) { return item.Checked.get(); }), kMarkedAtStart);
    EXPECT_EQ(itemsWhere([](const MenuItem& item) { return !item.Visible; }), kHiddenForGood);
    EXPECT_TRUE(itemsWhere([](const MenuItem& item) { return !item.Enabled; }).empty());
}

TEST_F(BuiltMenus, OnlyTheThreeDividersAreDisabled) {
    for (const MenuTitleRow& row : menuTitles()) {
        const bool divider = std::string_view(row.name).starts_with("mnuDUM");
        EXPECT_EQ(form.menuTitle(row.name).Enabled, !divider) << row.name;
        EXPECT_TRUE(form.menuTitle(row.name).Visible) << row.name;
    }
}

TEST_F(BuiltMenus, NothingMakesAHiddenEntryVisible) {
    open();
    form.Click(form.lbTAB(1));
    form.Click(form.lbTAB(0));
    form.mnuFT1a(12);
    form.mnuFT1a(9);
    form.itmOpt(3);
    EXPECT_EQ(itemsWhere([](const MenuItem& item) { return !item.Visible; }), kHiddenForGood);
}

}  // namespace
}  // namespace quillon
