#include "ui/ControlTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

// Name, parent, left, top, width, height. An index stands in brackets.
constexpr const char* kDesign = R"(
mem       Form1   480  4500   1245   630
img       Form1    30  4905    495   525
frLUT     Form1  3120   105   4170  1620
Label1    frLUT  3780    75    270   210
Label2(0) frLUT   135    90   1725   210
stb       Form1    30  9180  13140   285
lbSTB(0)  stb       0     0   4350   300
lbSTB(1)  stb    4335     0   2295   300
lbSTB(2)  stb    6615     0   5940   300
frt1      Form1   795   630  12345  8535
pbh       frt1   7350  5835   3855  1740
lbHIS     pbh    3615     0    180   210
LHIST     pbh      30     0    510   210
fr1       frt1      0     0   4095  4230
fr2       frt1   4125     0   4095  4230
fr3       frt1   8250     0   4095  4230
fr4       frt1      0  4305   4095  4230
fr5       frt1   4125  4305   4095  4230
fr6       frt1   8250  4305   4095  4230
pb1       fr1     105   240   3870  3870
pb2       fr2     105   240   3870  3870
pb3       fr3     105   240   3870  3870
pb4       fr4     105   240   3870  3870
pb5       fr5     105   240   3870  3870
pb6       fr6     105   240   3870  3870
lbBR1(0)  fr2    3585     0    180   210
lbBR1(1)  fr2    3765     0    210   210
lbBR2(0)  fr5    3585     0    180   210
lbBR2(1)  fr5    3765     0    210   210
File1     pb4     390   450   2295  2760
ie5       Form1    90   480   2640  3345
btLUT     Form1  2790    90    270   270
lbTAB(0)  Form1    90    90   1290   270
lbTAB(1)  Form1  1440    90   1290   270
lbTAB(2)  Form1  2790    90   1290   270
imgDIM    Form1  8565   135    165   165
hand      Form1 13005    30    480   480
)";

// Controls whose place the design leaves open: name and parent.
constexpr const char* kUnplaced = R"(
pbLUT    frLUT
imgLUT   pb2
Timer1   pb2
Line1(0) pb2
shp1(0)  pb2
Line1(1) pb5
shp1(1)  pb5
)";

std::string nameOf(const ControlRow& row) {
    return row.index < 0 ? row.name : std::string(row.name) + "(" + std::to_string(row.index) + ")";
}

const ControlRow& rowNamed(const std::string& name) {
    const auto rows = controlTable();
    const auto found =
        std::ranges::find_if(rows, [&](const ControlRow& row) { return nameOf(row) == name; });
    if (found == rows.end())
        throw std::runtime_error("no control " + name);
    return *found;
}

TEST(ControlTable, EveryControlStandsWhereTheDesignPutsIt) {
    std::istringstream design(kDesign);
    std::string name;
    std::string parent;
    Single left = 0;
    Single top = 0;
    Single width = 0;
    Single height = 0;
    int controls = 0;
    while (design >> name >> parent >> left >> top >> width >> height) {
        const ControlRow& row = rowNamed(name);
        EXPECT_EQ(row.parent, parent) << name;
        EXPECT_EQ(row.left, left) << name;
        EXPECT_EQ(row.top, top) << name;
        EXPECT_EQ(row.width, width) << name;
        EXPECT_EQ(row.height, height) << name;
        ++controls;
    }
    EXPECT_EQ(controls, 37);
    std::istringstream unplaced(kUnplaced);
    while (unplaced >> name >> parent) {
        EXPECT_EQ(rowNamed(name).parent, parent) << name;
        ++controls;
    }
    EXPECT_EQ(controlTable().size(), static_cast<std::size_t>(controls))
        << "there is a control that the design does not know";
}

TEST(ControlTable, ParentsComeBeforeTheirChildrenAndNoNameTwice) {
    std::set<std::string> seen = {"Form1"};
    for (const ControlRow& row : controlTable()) {
        EXPECT_TRUE(seen.contains(row.parent)) << nameOf(row);
        EXPECT_TRUE(seen.insert(nameOf(row)).second) << nameOf(row);
    }
}

TEST(ControlTable, TheClientAreaIsDesignedAt901By631Pixels) {
    EXPECT_EQ(kDesignWidth, 13515);
    EXPECT_EQ(kDesignHeight, 9465);
}

TEST(ControlTable, TheFramesLieThirtyTwipsApartAcrossAndSeventyFiveDown) {
    const ControlRow& first = rowNamed("fr1");
    EXPECT_EQ(rowNamed("fr2").left - (first.left + first.width), 30);
    EXPECT_EQ(rowNamed("fr3").left - (rowNamed("fr2").left + first.width), 30);
    EXPECT_EQ(rowNamed("fr4").top - (first.top + first.height), 75);
}

TEST(ControlTable, TheStripAndTheSelectorLieAboveTheBlockOfPanels) {
    const auto place = [](const char* name) { return &rowNamed(name) - controlTable().data(); };
    EXPECT_LT(place("frt1"), place("stb"));
    EXPECT_LT(place("frt1"), place("frLUT"));
    EXPECT_LT(place("fr6"), place("pbh")) << "the histogram box lies above the frames";
}

TEST(ControlTable, CaptionsAreAsTheUserReadsThem) {
    const std::pair<const char*, const char*> captions[] = {
        {"fr1", "Original Image"},
        {"fr2", "Fourier Transform"},
        {"fr3", "Reconstruction"},
        {"fr4", "Original Image"},
        {"fr5", "Fourier Transform"},
        {"fr6", "Reconstruction"},
        {"lbBR1(0)", "[-]"},
        {"lbBR1(1)", "[+]"},
        {"lbBR2(0)", "[-]"},
        {"lbBR2(1)", "[+]"},
        {"lbHIS", "[x]"},
        {"Label1", " [x] "},
        {"Label2(0)", "Select Color Scheme"},
        {"lbTAB(0)", "Lab"},
        {"lbTAB(1)", "Tutorial"},
        {"lbTAB(2)", "TOC"},
    };
    for (const auto& [name, caption] : captions)
        EXPECT_STREQ(rowNamed(name).caption, caption) << name;
}

TEST(ControlTable, HintsAreThere) {
    const std::pair<const char*, const char*> hints[] = {
        {"pbLUT", "Click to change color scheme"},
        {"Label1", "Close LUT Selector"},
        {"lbHIS", "Close Histogram"},
        {"lbBR1(0)", "Decrease Intensity Factor (Right-Click for Input)"},
        {"lbBR1(1)", "Increase Intensity Factor (Right-Click for Input)"},
        {"lbBR2(0)", "Decrease Intensity Factor (Right-Click for Input)"},
        {"lbBR2(1)", "Increase Intensity Factor (Right-Click for Input)"},
        {"btLUT", "LUT Selector for FT Magnitudes"},
        {"lbTAB(0)", "FFT Image Processing"},
        {"lbTAB(1)", "HTML Documents"},
        {"lbTAB(2)", "Table of Contents"},
        {"imgDIM", "Turn Light Off (also L-Key)"},
    };
    std::size_t hinted = 0;
    for (const auto& [name, hint] : hints)
        EXPECT_STREQ(rowNamed(name).toolTip, hint) << name;
    for (const ControlRow& row : controlTable())
        hinted += *row.toolTip == '\0' ? 0U : 1U;
    EXPECT_EQ(hinted, std::size(hints));
}

TEST(ControlTable, WhatShowsNoTextOfItsOwnHasANameForAScreenReader) {
    for (const ControlRow& row : controlTable()) {
        const bool seen = row.kind == ControlKind::PictureBox || row.kind == ControlKind::Label ||
                          row.kind == ControlKind::Browser || row.kind == ControlKind::Shape ||
                          row.kind == ControlKind::Line;
        const std::string name = row.name;
        if (!seen || name == "mem" || name == "img" || name == "stb")
            continue;
        EXPECT_TRUE(*row.accessibleName != '\0' || *row.caption != '\0') << nameOf(row);
    }
}

class BuiltForm : public FormFixture {
protected:
    std::set<std::string> hidden() {
        std::set<std::string> names;
        for (const Control* control : form.controls())
            if (!control->Visible)
                names.insert(control->Name);
        return names;
    }
};

TEST_F(BuiltForm, HiddenAtTheStartIsWhatIsAskedForLater) {
    EXPECT_EQ(hidden(),
              (std::set<std::string>{"mem", "img", "frLUT", "pbh", "imgLUT", "Line1(0)", "Line1(1)",
                                     "shp1(0)", "shp1(1)", "File1", "ie5", "lbTAB(2)", "hand"}));
}

TEST_F(BuiltForm, PanelsAre256PixelsWithinABorderOfOne) {
    for (PictureBox* panel : {&form.pb1, &form.pb2, &form.pb3, &form.pb4, &form.pb5, &form.pb6}) {
        EXPECT_EQ(panel->ScaleWidth(), 256) << panel->Name;
        EXPECT_EQ(panel->ScaleHeight(), 256) << panel->Name;
        EXPECT_EQ(panel->BorderStyle, 1) << panel->Name;
    }
}

TEST_F(BuiltForm, TheHistogramBoxHasRoomFor256Columns) {
    EXPECT_GE(form.pbh.ScaleWidth(), 256);
    EXPECT_EQ(form.pbh.FontName, Font::ArialNarrow);
}

TEST_F(BuiltForm, WorkSurfacesDrawForGood) {
    EXPECT_TRUE(form.mem.AutoRedraw());
    EXPECT_TRUE(form.img.AutoRedraw());
    EXPECT_EQ(form.img.BackColor(), kRed);
}

TEST_F(BuiltForm, RingsAreRedAndProfileLinesWhiteOnTheirRows) {
    for (Integer i = 0; i <= 1; ++i) {
        EXPECT_EQ(form.shp1(i).BorderColor, kRed);
        EXPECT_EQ(form.Line1(i).BorderColor, kWhite);
        EXPECT_EQ(form.Line1(i).X1, 0);
        EXPECT_EQ(form.Line1(i).X2, 256);
        EXPECT_EQ(form.Line1(i).Y1, form.Line1(i).Y2);
    }
    EXPECT_EQ(form.Line1(0).Y1 * kTwipsPerPixel, 2910);
    EXPECT_EQ(form.Line1(1).Y1 * kTwipsPerPixel, 255);
}

TEST_F(BuiltForm, TheTimerTicksEveryTenMillisecondsOnceItIsSwitchedOn) {
    EXPECT_EQ(form.Timer1.Interval, 10);
    EXPECT_FALSE(form.Timer1.Enabled);
}

TEST_F(BuiltForm, TheBatchListKnowsThreeKindsOfPicture) {
    EXPECT_EQ(form.File1.Pattern, "*.bmp;*.gif;*.jpg");
}

TEST_F(BuiltForm, TheSelectorsTitleIsBoldArial) {
    EXPECT_TRUE(form.Label2(0).FontBold);
    EXPECT_EQ(form.Label2(0).FontName, Font::Arial);
}

TEST_F(BuiltForm, LabelsOnColouredBoxesLieOnTheGroundOfTheirBox) {
    for (const Label* label : {&form.Label1, &form.Label2(0), &form.LHIST, &form.lbHIS})
        EXPECT_EQ(label->BackStyle, 0) << label->Name;
    for (Integer i = 0; i <= 2; ++i)
        EXPECT_EQ(form.lbTAB(i).BackStyle, 1);
}

TEST_F(BuiltForm, FramesOfPanelsHaveABorderAndTheBlockHasNone) {
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.frame(panel).BorderStyle, 1);
    EXPECT_EQ(form.frt1.BorderStyle, 0);
}

}  // namespace
}  // namespace quillon
