#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

constexpr ColorValue kGround{0x010203};
constexpr ColorValue kStrong{0x0A0B0C};
constexpr ColorValue kSpare{0x111111};
constexpr ColorValue kDimGround{0x222222};
constexpr ColorValue kDimFore{0x333333};

class GuiColors : public FormFixture {
protected:
    void apply() { form.ApplyGuiColors(kGround, kStrong, kSpare, kDimGround, kDimFore); }
    std::vector<Control*> all(std::initializer_list<const char*> names) {
        std::vector<Control*> found;
        for (const char* name : names)
            for (Control* control : form.controls())
                if (control->Name == name)
                    found.push_back(control);
        EXPECT_EQ(found.size(), names.size());
        return found;
    }
};

struct SchemeCase {
    Integer index;
    const char* caption;
    ColorValue ground, strong, spare;
};

const SchemeCase kSchemes[] = {
    {0, "Blue", RGB(151, 190, 223), RGB(48, 108, 160), RGB(48, 108, 160)},
    {1, "Violet", ColorValue{0xFFC0C0}, ColorValue{0xFF8080}, ColorValue{0x400000}},
    {2, "White", ColorValue{0xFFFFFF}, RGB(80, 140, 192), RGB(48, 108, 160)},
    {3, "Light Grey", RGB(240, 240, 240), RGB(160, 160, 160), RGB(160, 160, 160)},
    {4, "Dark Grey", RGB(33, 33, 33), RGB(93, 93, 93), RGB(48, 108, 160)},
};

TEST_F(GuiColors, EachSchemeHasItsFiveColours) {
    for (const SchemeCase& scheme : kSchemes) {
        form.itmOpt0(scheme.index);
        const auto& colors = form.lab.guiColors;
        EXPECT_EQ(form.menu(MenuArray::itmOpt0, scheme.index).Caption.get(), scheme.caption);
        EXPECT_EQ(colors[0], scheme.ground) << scheme.caption;
        EXPECT_EQ(colors[1], scheme.strong) << scheme.caption;
        EXPECT_EQ(colors[2], scheme.spare) << scheme.caption;
        EXPECT_EQ(colors[3], RGB(33, 33, 33)) << scheme.caption;
        EXPECT_EQ(colors[4], RGB(93, 93, 93)) << scheme.caption;
        EXPECT_EQ(form.BackColor(), scheme.ground) << scheme.caption;
    }
}

TEST_F(GuiColors, LightGreyFollowsTheDesktopsPalette) {
    desktop.screen.colors[SystemColor::ButtonFace] = RGB(1, 2, 3);
    desktop.screen.colors[SystemColor::ButtonShadow] = RGB(4, 5, 6);
    form.itmOpt0(3);
    EXPECT_EQ(form.lab.guiColors[0], RGB(1, 2, 3));
    EXPECT_EQ(form.lab.guiColors[1], RGB(4, 5, 6));
    EXPECT_EQ(form.lab.guiColors[2], RGB(4, 5, 6));
}

TEST_F(GuiColors, ExactlyTheChosenSchemeIsChecked) {
    for (Integer chosen = 0; chosen <= 4; ++chosen) {
        form.itmOpt0(chosen);
        for (Integer i = 0; i <= 4; ++i)
            EXPECT_EQ(form.menu(MenuArray::itmOpt0, i).Checked, i == chosen) << chosen << " " << i;
        EXPECT_EQ(form.guiColorIndex, chosen);
    }
}

TEST_F(GuiColors, TheChoiceIsStoredAsPlainText) {
    for (Integer chosen = 0; chosen <= 4; ++chosen) {
        form.itmOpt0(chosen);
        EXPECT_EQ(stored("GUIC"), std::to_string(chosen));
    }
}

TEST_F(GuiColors, DarkGreyTakesTheFramesBordersAway) {
    for (const Integer chosen : {Integer{4}, Integer{3}, Integer{4}, Integer{0}}) {
        form.itmOpt0(chosen);
        for (Integer panel = 1; panel <= 6; ++panel)
            EXPECT_EQ(form.frame(panel).BorderStyle, chosen == 4 ? 0 : 1) << chosen;
    }
}

TEST_F(GuiColors, TheStrongColourPaintsTabsStripBoxesAndTitles) {
    apply();
    for (const Control* control :
         all({"lbTAB(0)", "lbTAB(1)", "lbTAB(2)", "lbSTB(0)", "lbSTB(1)", "lbSTB(2)", "stb", "pbh",
              "pb2", "pb3", "pb5", "pb6", "frLUT"}))
        EXPECT_EQ(control->BackColor(), kStrong) << control->Name;
    for (const Control* control : all({"lbBR1(0)", "lbBR1(1)", "lbBR2(0)", "lbBR2(1)", "fr1", "fr2",
                                       "fr3", "fr4", "fr5", "fr6"}))
        EXPECT_EQ(control->ForeColor, kStrong) << control->Name;
}

TEST_F(GuiColors, TheGroundColourPaintsWindowFramesAndTheTextsOnTheStrongColour) {
    apply();
    EXPECT_EQ(form.BackColor(), kGround);
    for (const Control* control : all({"frt1", "fr1", "fr2", "fr3", "fr4", "fr5", "fr6", "lbBR1(0)",
                                       "lbBR1(1)", "lbBR2(0)", "lbBR2(1)"}))
        EXPECT_EQ(control->BackColor(), kGround) << control->Name;
    for (const Control* control : all({"lbTAB(0)", "lbTAB(1)", "lbTAB(2)", "lbSTB(0)", "lbSTB(1)",
                                       "lbSTB(2)", "pb3", "pb6", "LHIST", "Label2(0)", "Label1"}))
        EXPECT_EQ(control->ForeColor, kGround) << control->Name;
}

TEST_F(GuiColors, ImagePanelsAreLeftAlone) {
    form.pb1.PSet(10, 10, kGreen);
    const Bitmap before = form.pb1.Image();
    apply();
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(form.pb4.BackColor(), kBlack);
}

TEST_F(GuiColors, APanelThatShowsSomethingKeepsItsPictureAndItsGround) {
    form.itmOpt0(2);
    open();
    form.pb2.Tag = "!";
    form.pb3.Tag = "3D";
    form.pb5.Tag = "";
    form.pb6.Tag = "!";
    const Bitmap spectrum = form.pb2.Image();
    const ColorValue ground = form.pb2.BackColor();
    apply();
    EXPECT_EQ(form.pb2.Image(), spectrum);
    EXPECT_EQ(form.pb2.BackColor(), ground);
    EXPECT_EQ(form.pb3.BackColor(), ground);
    EXPECT_EQ(form.pb6.BackColor(), ground);
    EXPECT_EQ(form.pb5.BackColor(), kStrong);
    EXPECT_EQ(form.pb3.ForeColor, kGround) << "only the ground depends on the Tag";
}

TEST_F(GuiColors, ZeroForOneOfTheLastThreeKeepsTheStoredColour) {
    apply();
    form.ApplyGuiColors(kBlack, kBlack, kBlack, kBlack, kBlack);
    const std::array<ColorValue, 5> kept = {kBlack, kBlack, kSpare, kDimGround, kDimFore};
    EXPECT_EQ(form.lab.guiColors, kept);
    form.ApplyGuiColors(kWhite, kWhite, kRed, kBlack, kGreen);
    const std::array<ColorValue, 5> mixed = {kWhite, kWhite, kRed, kDimGround, kGreen};
    EXPECT_EQ(form.lab.guiColors, mixed);
}

TEST_F(GuiColors, PaintingFollowsItsOrder) {
    RecordingWatcher watcher;
    form.watch(&watcher);
    for (Control* control : form.controls())
        control->watch(&watcher);
    apply();
    std::vector<std::string> painted;
    for (const std::string& line : watcher.log)
        painted.push_back(line.substr(std::string("stale ").size()));
    const std::vector<std::string> order = {
        "lbTAB(0)", "lbTAB(1)", "lbTAB(2)",  "lbTAB(0)", "lbTAB(1)", "lbTAB(2)", "lbSTB(0)",
        "lbSTB(1)", "lbSTB(2)", "lbSTB(0)",  "lbSTB(1)", "lbSTB(2)", "lbBR1(0)", "lbBR1(1)",
        "lbBR2(0)", "lbBR2(1)", "lbBR1(0)",  "lbBR1(1)", "lbBR2(0)", "lbBR2(1)", "stb",
        "pbh",      "pb2",      "pb3",       "pb5",      "pb6",      "pb3",      "pb6",
        "fr1",      "fr2",      "fr3",       "fr4",      "fr5",      "fr6",      "LHIST",
        "Form1",    "frt1",     "fr1",       "fr2",      "fr3",      "fr4",      "fr5",
        "fr6",      "frLUT",    "Label2(0)", "Label1"};
    EXPECT_EQ(painted, order);
}

TEST_F(GuiColors, AnIndexWithoutAnEntryIsASubscriptError) {
    EXPECT_THROW(form.itmOpt0(5), RunTimeError);
    EXPECT_THROW(form.itmOpt0(-1), RunTimeError);
    EXPECT_EQ(stored("GUIC"), "2");
}

}  // namespace
}  // namespace quillon
