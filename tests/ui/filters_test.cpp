#include <initializer_list>

#include "tests/support/CommandFixture.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

constexpr PixelWord kMaskBlue = 0x0000FF;

class Filters : public CommandFixture {
protected:
    Integer id(Channel which) { return which == Channel::One ? 2 : 5; }

    /// What the panel shows under the dark surround of a low-pass, the slow way:
    /// a pixel keeps its colour where its centre lies inside the circle.
    static Bitmap darkened(Bitmap picture, int r) {
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x) {
                const double dx = x + 0.5 - 128.5;
                const double dy = y + 0.5 - 128.5;
                if (dx * dx + dy * dy >= (r - 0.5) * (r - 0.5))
                    picture.at(x, y) = 0;
            }
        return picture;
    }
};

// --- Masks

TEST_F(Filters, MasksAreBlueOutlinesOnThePicture) {
    for (const Channel which : kBoth) {
        channel(which).SetFilterFT(4);
        channel(which).AddMask(40, 60, 20, 30);
        const Bitmap before = spectrum(which).Image();
        form.DrawMasks(1);
        Bitmap expected = before;
        for (int x = 20; x <= 40; ++x)
            expected.at(x, 30) = expected.at(x, 60) = kMaskBlue;
        for (int y = 30; y <= 60; ++y)
            expected.at(20, y) = expected.at(40, y) = kMaskBlue;
        EXPECT_EQ(spectrum(which).Image(), expected);
    }
}

TEST_F(Filters, WhateverTheArgumentTheMasksOfBothChannelsAreDrawn) {
    for (const Integer argument : std::initializer_list<Integer>{1, 2, 5, -1, 0, 99}) {
        for (const Channel which : kBoth) {
            channel(which).SetFilterFT(4);
            channel(which).AddMask(10, 10, 12, 12);
            spectrum(which).setBackColor(kWhite);
        }
        form.DrawMasks(argument);
        EXPECT_EQ(form.pb2.Image().at(10, 10), kMaskBlue) << argument;
        EXPECT_EQ(form.pb5.Image().at(10, 10), kMaskBlue) << argument;
    }
}

TEST_F(Filters, AChannelWithoutCustomMasksGetsNoneDrawn) {
    for (const Channel which : kBoth)
        channel(which).AddMask(10, 10, 12, 12);
    form.lab.channel2.bMask = true;
    const Bitmap before = form.pb2.Image();
    form.DrawMasks(1);
    EXPECT_EQ(form.lab.channel1.nmask, 1);
    EXPECT_EQ(form.pb2.Image(), before);
    EXPECT_EQ(form.pb5.Image().at(10, 10), kMaskBlue);
}

TEST_F(Filters, AllThousandMasksAreDrawnAndNoneBeyondTheCount) {
    clComplexImage& c = form.lab.channel1;
    c.SetFilterFT(4);
    for (Integer i = 0; i < 1000; ++i)
        c.AddMask(static_cast<Integer>(i % 250), static_cast<Integer>(i / 250),
                  static_cast<Integer>(i % 250), static_cast<Integer>(i / 250));
    form.pb2.setBackColor(kWhite);
    form.pb2.setPicture({});
    form.DrawMasks(2);
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(form.pb2.Image().at(i % 250, i / 250), kMaskBlue) << i;
    EXPECT_EQ(form.pb2.Image().at(0, 4), 0xFFFFFF);
    c.nmask = 1;
    form.pb2.setPicture({});
    form.DrawMasks(2);
    EXPECT_EQ(form.pb2.Image().at(1, 0), 0xFFFFFF);
}

TEST_F(Filters, MasksStayOnThePictureThroughEveryRedraw) {
    form.mnuFT1a(12);
    form.lab.channel1.AddMask(10, 10, 30, 30);
    form.lab.channel1.RedrawFT(1, 0);
    EXPECT_EQ(form.pb2.Image().at(10, 10), kMaskBlue);
    form.lab.channel1.SetFTView(2, 0);
    EXPECT_EQ(form.pb2.Image().at(30, 30), kMaskBlue);
}

// --- The choice of a filter

TEST_F(Filters, IdsBelowFourMeanTheUpperChannel) {
    for (Integer panel = 0; panel <= 7; ++panel) {
        form.lab.channel1.NoFilterFT();
        form.lab.channel2.NoFilterFT();
        form.ApplyFilterChoice(panel, 3);
        EXPECT_EQ(form.lab.channel1.bHighpass, panel < 4) << panel;
        EXPECT_EQ(form.lab.channel2.bHighpass, panel >= 4) << panel;
    }
}

TEST_F(Filters, ALowPassStartsAtTwentyUnderADarkSurround) {
    for (const Channel which : kBoth) {
        const Bitmap before = spectrum(which).Image();
        Shape& ring = form.ring(which);
        ring.Visible = true;
        ring.FillStyle = 0;
        ring.FillColor = kRed;
        form.ApplyFilterChoice(id(which), 2);
        EXPECT_EQ(channel(which).filter_rad, 20.0F);
        EXPECT_EQ(channel(which).filter_xm, 127.5F);
        EXPECT_EQ(channel(which).filter_ym, 127.5F);
        EXPECT_FALSE(ring.Visible);
        EXPECT_EQ(ring.FillStyle.get(), 1);
        EXPECT_EQ(ring.FillColor.get(), kBlack);
        EXPECT_EQ(form.mem.Tag, "low");
        EXPECT_FALSE(spectrum(which).AutoRedraw());
        EXPECT_EQ(spectrum(which).Image(), before);
        EXPECT_EQ(differingPixels(spectrum(which).shown(), darkened(before, 20)), 0);
    }
    EXPECT_EQ(transforms(), 0) << "the caller reconstructs";
}

TEST_F(Filters, AHighPassStartsAtTwentyUnderADiscOfTheCutsSize) {
    for (const Channel which : kBoth) {
        Shape& ring = form.ring(which);
        ring.FillColor = kRed;
        form.ApplyFilterChoice(id(which), 3);
        EXPECT_EQ(channel(which).filter_rad, 20.0F);
        EXPECT_TRUE(ring.Visible);
        EXPECT_EQ(ring.FillStyle.get(), 0);
        EXPECT_EQ(ring.FillColor.get(), kBlack);
        EXPECT_EQ(ring.Width, 41);
        EXPECT_EQ(ring.Height, 41);
        EXPECT_EQ(ring.Left, 107.5F);
        EXPECT_EQ(ring.Top, 107.5F);
        EXPECT_TRUE(spectrum(which).AutoRedraw());
        EXPECT_FALSE(spectrum(which).hasScreenLayer());
    }
}

TEST_F(Filters, EnteringACircularModeAgainSetsTheRadiusBack) {
    for (const Integer mode : std::initializer_list<Integer>{2, 3}) {
        form.lab.channel1.SetFilterRad(77);
        form.ApplyFilterChoice(2, mode);
        EXPECT_EQ(form.lab.channel1.filter_rad, 20.0F) << mode;
    }
}

TEST_F(Filters, NoFilterAndCustomMasksHideTheDiscAndKeepTheRadius) {
    for (const Channel which : kBoth)
        for (const Integer mode : std::initializer_list<Integer>{1, 4}) {
            form.ApplyFilterChoice(id(which), 3);
            channel(which).SetFilterRad(33);
            form.ApplyFilterChoice(id(which), mode);
            EXPECT_FALSE(form.ring(which).Visible) << mode;
            EXPECT_EQ(channel(which).filter_rad, 33.0F) << mode;
        }
}

TEST_F(Filters, LeavingALowPassTakesOnlyTheSurroundAway) {
    for (const Integer mode : std::initializer_list<Integer>{1, 3, 4}) {
        form.ApplyFilterChoice(2, 2);
        // A picture committed long ago must not come back.
        const Bitmap shown = form.pb2.Image();
        ASSERT_NE(form.pb2.Picture(), shown);
        form.ApplyFilterChoice(2, mode);
        EXPECT_TRUE(form.pb2.AutoRedraw()) << mode;
        EXPECT_FALSE(form.pb2.hasScreenLayer()) << mode;
        EXPECT_EQ(form.pb2.Image(), shown) << mode;
    }
}

TEST_F(Filters, AModeThatDoesNotExistSwitchesAllFiltersOff) {
    for (const Integer mode : std::initializer_list<Integer>{0, 5, 7, -1}) {
        form.ApplyFilterChoice(2, 4);
        form.lab.channel1.AddMask(1, 1, 2, 2);
        form.ApplyFilterChoice(2, mode);
        EXPECT_FALSE(form.lab.channel1.bFilter) << mode;
        EXPECT_FALSE(form.lab.channel1.bMask) << mode;
        EXPECT_EQ(form.lab.channel1.nmask, 0);
        EXPECT_EQ(form.pb2.MousePointer.get(), kPointerArrow);
    }
}

TEST_F(Filters, ThePointerTellsWhatADragWillDo) {
    for (const Channel which : kBoth) {
        PictureBox& panel = spectrum(which);
        for (const Integer mode : std::initializer_list<Integer>{2, 3}) {
            form.ApplyFilterChoice(id(which), mode);
            EXPECT_EQ(panel.MousePointer.get(), 99);
            EXPECT_EQ(panel.MouseIcon.get(), 5);
        }
        form.ApplyFilterChoice(id(which), 4);
        EXPECT_EQ(panel.MousePointer.get(), 99);
        EXPECT_EQ(panel.MouseIcon.get(), 4);
        form.ApplyFilterChoice(id(which), 1);
        EXPECT_EQ(panel.MousePointer.get(), 1);
    }
}

// --- The dark surround

TEST_F(Filters, TheSurroundLeavesACircleOfTheRoundedRadius) {
    const struct {
        Single radius;
        int rounded;
    } cases[] = {{1, 1},     {2, 2},     {5, 5},       {12.5F, 12}, {13.5F, 14}, {20.4F, 20},
                 {64, 64},   {127, 127}, {128, 128},   {150, 150},  {181, 181},  {182, 182},
                 {255, 255}, {256, 256}, {30000, 300}, {32767, 300}};
    form.pb2.setPicture(randomPicture(256, 256, 31));
    const Bitmap before = form.pb2.Image();
    for (const auto& [radius, rounded] : cases) {
        form.lab.channel1.SetFilterRad(radius);
        form.mem.Tag = "low";
        form.DrawLowPassMask(2, form.pb2);
        EXPECT_EQ(differingPixels(form.pb2.shown(), darkened(before, rounded)), 0) << radius;
        EXPECT_EQ(form.pb2.Image(), before);
    }
}

TEST_F(Filters, WithoutItsMarkNoSurroundIsPainted) {
    for (const char* tag : {"", "LOW", "lower"}) {
        form.mem.Tag = tag;
        form.DrawLowPassMask(2, form.pb2);
        EXPECT_FALSE(form.pb2.hasScreenLayer()) << tag;
        EXPECT_TRUE(form.pb2.AutoRedraw()) << tag;
    }
}

TEST_F(Filters, TheIdTellsWhoseRadiusThePanelGets) {
    form.lab.channel1.SetFilterRad(10);
    form.lab.channel2.SetFilterRad(90);
    form.mem.Tag = "low";
    const Bitmap white(256, 256, 0xFFFFFF);
    for (const Integer which : std::initializer_list<Integer>{1, 2, 3, 4, 5, 6}) {
        form.pb5.setPicture(white);
        form.DrawLowPassMask(which, form.pb5);
        EXPECT_EQ(differingPixels(form.pb5.shown(), darkened(white, which < 4 ? 10 : 90)), 0)
            << which;
    }
}

TEST_F(Filters, TheSurroundIsInNoCopyAndNoSave) {
    form.mnuFT1a(10);
    ASSERT_TRUE(form.pb2.hasScreenLayer());
    form.CopyPanelImage(2);
    EXPECT_EQ(desktop.clipboard.content, form.pb2.Image());
    EXPECT_NE(*desktop.clipboard.content, form.pb2.shown());
}

TEST_F(Filters, ARefreshOrARedrawTakesTheSurroundAway) {
    form.mnuFT1a(10);
    form.pb2.Refresh();
    EXPECT_FALSE(form.pb2.hasScreenLayer());
    form.DrawLowPassMask(2, form.pb2);
    ASSERT_TRUE(form.pb2.hasScreenLayer());
    form.lab.channel1.RedrawFT(1, 0);
    EXPECT_FALSE(form.pb2.hasScreenLayer());
}

TEST_F(Filters, ARadiusThatNoIntegerHoldsOverflows) {
    form.lab.channel1.SetFilterRad(40000);
    form.mem.Tag = "low";
    EXPECT_EQ(errorOf([&] { form.DrawLowPassMask(2, form.pb2); }), ErrorNumber::Overflow);
}

}  // namespace
}  // namespace quillon
