#include <array>
#include <cmath>
#include <initializer_list>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

constexpr PixelWord kMaskBlue = 0x0000FF;

/// The mouse on the FT panels of both channels.
class FilterEditing : public CommandFixture {
protected:
    void press(Channel which, Single x, Single y, Integer button = kLeftButton) {
        form.MouseDown(spectrum(which), button, 0, x, y);
    }
    void move(Channel which, Single x, Single y, Integer button = kLeftButton) {
        form.MouseMove(spectrum(which), button, 0, x, y);
    }
    void release(Channel which, Single x, Single y, Integer button = kLeftButton) {
        form.MouseUp(spectrum(which), button, 0, x, y);
    }
    void calculateByHand() {
        form.itmOpt(4);
        desktop.log.clear();
    }
    std::array<Single, 4> mask(Channel which, Integer i) {
        std::array<Single, 4> corners{};
        channel(which).GetMask(i, corners);
        return corners;
    }
    using Corners = std::array<Single, 4>;
};

// --- Rings

TEST_F(FilterEditing, ADraggedRingFollowsThePointerWithTheRadiusAsComputed) {
    for (const Channel which : kBoth)
        for (const Integer entry : std::initializer_list<Integer>{10, 11}) {
            clickFilter(which, entry);
            press(which, 150, 128);
            move(which, 158, 168);
            const auto r = static_cast<Single>(std::sqrt(30.0 * 30 + 40.0 * 40));
            EXPECT_EQ(channel(which).filter_rad, r);
            EXPECT_EQ(channel(which).filter_xm, 127.5F);
            const Shape& ring = form.ring(which);
            // A diameter of 100 is even, so it grows to 101.
            EXPECT_EQ(ring.Width, 101);
            EXPECT_EQ(ring.Height, 101);
            EXPECT_EQ(ring.Left, 127.5F - r);
            EXPECT_EQ(ring.Top, 127.5F - r);
            EXPECT_EQ(ring.Tag, "50.5");
            release(which, 158, 168);
        }
}

TEST_F(FilterEditing, TheDiameterIsTestedAsItRoundsToAWholeNumber) {
    const struct {
        Single x;
        Single width;
        const char* tag;
    } cases[] = {
        {128, 1, "0.5"},          // 0 is even
        {128.25F, 1.5F, "0.75"},  // 0.5 rounds to 0
        {128.5F, 1, "0.5"},       // 1 is odd
        {128.75F, 2.5F, "1.25"},  // 1.5 rounds to 2, so it grows
        {129.25F, 3.5F, "1.75"},  // 2.5 rounds to 2, so it grows
        {138, 21, "10.5"},       {138.5F, 21, "10.5"},
    };
    clickFilter(Channel::One, 11);
    press(Channel::One, 128, 128);
    for (const auto& [x, width, tag] : cases) {
        move(Channel::One, x, 128);
        EXPECT_EQ(form.shp1(0).Width, width) << x;
        EXPECT_EQ(form.shp1(0).Height, width) << x;
        EXPECT_EQ(form.shp1(0).Tag, tag) << x;
        EXPECT_EQ(form.lab.channel1.filter_rad, x - 128) << x;
    }
}

TEST_F(FilterEditing, EachStepOfALowPassPaintsTheSurroundOfItsRadius) {
    for (const Channel which : kBoth) {
        clickFilter(which, 10);
        press(which, 128, 128);
        for (const int x : {138, 178, 148}) {
            move(which, static_cast<Single>(x), 128);
            const int r = x - 128;
            EXPECT_TRUE(spectrum(which).hasScreenLayer());
            // On the row through its centre the circle reaches r - 1 pixels each way.
            EXPECT_EQ(spectrum(which).shown().at(128 - r, 128), 0);
            EXPECT_EQ(spectrum(which).shown().at(128 - r + 1, 128),
                      spectrum(which).Image().at(128 - r + 1, 128));
            EXPECT_EQ(spectrum(which).shown().at(128 + r, 128), 0);
        }
        release(which, 148, 128);
        EXPECT_EQ(form.mem.Tag, "");
        EXPECT_TRUE(spectrum(which).hasScreenLayer()) << "the last surround stays";
    }
}

TEST_F(FilterEditing, APressInALowPassMarksTheSurroundAndHidesTheRing) {
    for (const Channel which : kBoth) {
        clickFilter(which, 10);
        form.mem.Tag.clear();
        form.ring(which).Visible = true;
        press(which, 10, 10, kMiddleButton);
        EXPECT_EQ(form.mem.Tag, "low");
        EXPECT_FALSE(form.ring(which).Visible);
        release(which, 10, 10, kMiddleButton);
    }
}

TEST_F(FilterEditing, APressInAHighPassLeavesTheDiscVisible) {
    clickFilter(Channel::Two, 11);
    press(Channel::Two, 10, 10);
    EXPECT_TRUE(form.shp1(1).Visible);
    EXPECT_EQ(form.mem.Tag, "");
}

TEST_F(FilterEditing, WithAutoCalculateTheReconstructionFollowsEachStep) {
    for (const Channel which : kBoth) {
        clickFilter(which, 10);
        press(which, 128, 128);
        desktop.log.clear();
        for (int step = 1; step <= 5; ++step) {
            move(which, 128.0F + 10 * static_cast<Single>(step), 128);
            EXPECT_EQ(transforms(), step) << "one inverse for each move";
            EXPECT_EQ(shown(reconstruction(which)), step) << "one draw for each move";
        }
        EXPECT_EQ(shown(spectrum(which)), 0) << "the spectrum is not drawn again";
        EXPECT_EQ(status(2), " (Low-pass filter r=50)");
        release(which, 178, 128);
        EXPECT_EQ(transforms(), 6);
    }
}

TEST_F(FilterEditing, WithAutoCalculateOffOnlyTheReleaseReconstructs) {
    for (const Channel which : kBoth) {
        clickFilter(which, 10);
        form.lab.autoCalculate = false;
        const Bitmap before = reconstruction(which).Image();
        desktop.log.clear();
        press(which, 128, 128);
        for (const int x : {140, 150, 168}) {
            move(which, static_cast<Single>(x), 128);
            EXPECT_EQ(channel(which).filter_rad, static_cast<Single>(x - 128));
            EXPECT_EQ(reconstruction(which).Image(), before);
        }
        EXPECT_EQ(transforms(), 0);
        release(which, 168, 128);
        EXPECT_EQ(transforms(), 1);
        EXPECT_NE(reconstruction(which).Image(), before);
    }
}

TEST_F(FilterEditing, AStepReconstructsWithTheNewRadiusUnderTheOldSpectrum) {
    clickFilter(Channel::One, 11);
    press(Channel::One, 128, 128);
    move(Channel::One, 188, 128);
    const Bitmap dragged = form.pb3.Image();
    release(Channel::One, 188, 128);
    EXPECT_EQ(form.pb3.Image(), dragged);
    form.lab.channel1.SetFilterRad(60);
    form.lab.channel1.runFOURN(0);
    EXPECT_EQ(form.pb3.Image(), dragged);
}

TEST_F(FilterEditing, OnlyTheLeftButtonAloneDrags) {
    clickFilter(Channel::One, 10);
    for (const Integer button : std::initializer_list<Integer>{0, 2, 3, 4, 5}) {
        desktop.log.clear();
        move(Channel::One, 200, 200, button);
        EXPECT_EQ(form.lab.channel1.filter_rad, 20.0F) << button;
        EXPECT_EQ(transforms(), 0) << button;
    }
}

TEST_F(FilterEditing, TheInkIsRedForRingsAndBlueOtherwise) {
    for (const Channel which : kBoth) {
        clickFilter(which, 11);
        move(which, 100, 100);
        EXPECT_EQ(spectrum(which).ForeColor.get(), kRed);
        clickFilter(which, 12);
        press(which, 100, 100);
        move(which, 110, 110);
        EXPECT_EQ(spectrum(which).ForeColor.get(), kBlue);
        clickFilter(which, 11);
        move(which, 100, 100);
        clickFilter(which, 9);
        move(which, 100, 100);
        EXPECT_EQ(spectrum(which).ForeColor.get(), kBlue);
    }
}

TEST_F(FilterEditing, WithoutAFilterADragAndItsReleaseDoNothing) {
    for (const Channel which : kBoth) {
        const Bitmap before = spectrum(which).Image();
        form.mem.Tag = "low";
        desktop.log.clear();
        press(which, 100, 100);
        move(which, 120, 130);
        release(which, 120, 130);
        EXPECT_EQ(spectrum(which).Image(), before);
        EXPECT_EQ(transforms(), 0);
        EXPECT_EQ(channel(which).nmask, 0);
        EXPECT_EQ(form.mem.Tag, "low");
    }
}

// --- Masks

TEST_F(FilterEditing, APressUnderMasksStartsTheBandAndCommitsThePicture) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        ASSERT_NE(spectrum(which).Picture(), spectrum(which).Image());
        press(which, 33, 44);
        EXPECT_EQ(form.bandStartX, 33);
        EXPECT_EQ(form.bandStartY, 44);
        EXPECT_EQ(spectrum(which).Picture(), spectrum(which).Image());
    }
}

TEST_F(FilterEditing, TheBandIsOneBlueBoxThatFollowsThePointer) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        const Bitmap before = spectrum(which).Image();
        press(which, 30, 40);
        move(which, 90, 100);
        move(which, 50, 20);
        EXPECT_EQ(form.bandX, 50);
        EXPECT_EQ(form.bandY, 20);
        Bitmap expected = before;
        for (int x = 30; x <= 50; ++x)
            expected.at(x, 20) = expected.at(x, 40) = kMaskBlue;
        for (int y = 20; y <= 40; ++y)
            expected.at(30, y) = expected.at(50, y) = kMaskBlue;
        EXPECT_EQ(differingPixels(spectrum(which).Image(), expected), 0);
        EXPECT_EQ(transforms(), 0) << "nothing is reconstructed before the release";
    }
}

TEST_F(FilterEditing, ABandDraggedPastTheEdgeEndsAtTheEdge) {
    clickFilter(Channel::One, 12);
    press(Channel::One, 100, 100);
    move(Channel::One, 400, -25);
    EXPECT_EQ(form.bandX, 256);
    EXPECT_EQ(form.bandY, 0);
    move(Channel::One, -3, 300);
    EXPECT_EQ(form.bandX, 0);
    EXPECT_EQ(form.bandY, 256);
}

TEST_F(FilterEditing, ADragAddsItsRectangleAndTheMirrorImage) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        press(which, 60, 90);
        move(which, 20, 40);
        release(which, 20, 40);
        ASSERT_EQ(channel(which).nmask, 2);
        EXPECT_EQ(mask(which, 0), (Corners{20, 40, 60, 90}));
        // Mirrored through 128: 256 - 60 = 196, 256 - 90 = 166, and so on.
        EXPECT_EQ(mask(which, 1), (Corners{196, 166, 236, 216}));
        for (const auto& [x, y] : {std::pair{20, 40}, {60, 90}, {196, 166}, {236, 216}})
            EXPECT_EQ(spectrum(which).Image().at(x, y), kMaskBlue);
    }
}

TEST_F(FilterEditing, AClickAddsTwoSquaresOfSevenBySeven) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        press(which, 50, 70);
        release(which, 50, 70);
        ASSERT_EQ(channel(which).nmask, 2);
        EXPECT_EQ(mask(which, 0), (Corners{47, 67, 53, 73}));
        EXPECT_EQ(mask(which, 1), (Corners{203, 183, 209, 189}));
    }
}

TEST_F(FilterEditing, ADragAlongOneAxisIsNoClick) {
    clickFilter(Channel::One, 12);
    press(Channel::One, 50, 70);
    release(Channel::One, 58, 70);
    EXPECT_EQ(mask(Channel::One, 0), (Corners{50, 70, 58, 70}));
    EXPECT_EQ(mask(Channel::One, 1), (Corners{198, 186, 206, 186}));
}

TEST_F(FilterEditing, TheReleaseUsesItsOwnPointAlsoOffThePanel) {
    clickFilter(Channel::One, 12);
    press(Channel::One, 10, 10);
    move(Channel::One, -20, 300);
    release(Channel::One, -20, 300);
    EXPECT_EQ(mask(Channel::One, 0), (Corners{-20, 10, 10, 300}));
    EXPECT_EQ(mask(Channel::One, 1), (Corners{246, -44, 276, 246}));
}

TEST_F(FilterEditing, CornersRoundHalfToEven) {
    clickFilter(Channel::Two, 12);
    press(Channel::Two, 10.5F, 11.5F);
    release(Channel::Two, 20.5F, 21.5F);
    EXPECT_EQ(mask(Channel::Two, 0), (Corners{10, 12, 20, 22}));
    EXPECT_EQ(mask(Channel::Two, 1), (Corners{236, 234, 246, 244}));
}

TEST_F(FilterEditing, EveryGestureAddsTwoAndRepaintsTheWholeList) {
    clickFilter(Channel::One, 12);
    for (int i = 0; i < 3; ++i) {
        const auto at = static_cast<Single>(20 + 20 * i);
        press(Channel::One, at, at);
        move(Channel::One, at + 8, at + 8);
        release(Channel::One, at + 8, at + 8);
    }
    EXPECT_EQ(form.lab.channel1.nmask, 6);
    for (Integer i = 0; i < 6; ++i) {
        const Corners corners = mask(Channel::One, i);
        EXPECT_EQ(form.pb2.GetPixel(static_cast<Long>(corners[0]), static_cast<Long>(corners[1])),
                  kBlue.value)
            << i;
    }
}

TEST_F(FilterEditing, AClickDrawsItsSquaresAlsoWithoutAutoCalculate) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        form.lab.autoCalculate = false;
        press(which, 50, 70);
        release(which, 50, 70);
        for (const auto& [x, y] : {std::pair{47, 67}, {53, 73}, {203, 183}, {209, 189}})
            EXPECT_EQ(spectrum(which).Image().at(x, y), kMaskBlue) << x << ", " << y;
        form.lab.autoCalculate = true;
    }
}

TEST_F(FilterEditing, ANewMaskIsShownThenReconstructsWithAutoCalculateAlone) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        desktop.log.clear();
        press(which, 50, 70);
        release(which, 60, 80);
        EXPECT_EQ(transforms(), 1);
        EXPECT_LT(placeOf("showNow " + spectrum(which).Name),
                  placeOf("screen.setMousePointer(11)"));
        EXPECT_EQ(status(2), " (Custom filter)");
        form.lab.autoCalculate = false;
        desktop.log.clear();
        press(which, 90, 70);
        release(which, 99, 80);
        EXPECT_EQ(transforms(), 0);
        EXPECT_EQ(channel(which).nmask, 4);
        form.lab.autoCalculate = true;
    }
}

TEST_F(FilterEditing, AMaskOverTheZeroFrequencyTakesTheMeanAway) {
    clickFilter(Channel::One, 12);
    press(Channel::One, 125, 125);
    release(Channel::One, 130, 130);
    double sum = 0;
    double range = 0;
    for (Long y = 0; y < 256; ++y)
        for (Long x = 0; x < 256; ++x) {
            const double value = form.lab.channel1.reconstruction()(x, y).re;
            sum += value;
            range = std::max(range, std::abs(value));
        }
    EXPECT_GT(range, 1.0);
    EXPECT_LT(std::abs(sum / 65536), 1e-4 * range);
}

TEST_F(FilterEditing, TheThousandAndFirstMaskFailsAtTheRelease) {
    clickFilter(Channel::One, 12);
    for (int i = 0; i < 500; ++i) {
        press(Channel::One, 20, 20);
        form.lab.autoCalculate = false;
        release(Channel::One, 30, 30);
    }
    EXPECT_EQ(form.lab.channel1.nmask, 1000);
    press(Channel::One, 40, 40);
    EXPECT_EQ(errorOf([&] { release(Channel::One, 50, 50); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(form.lab.channel1.nmask, 1000);
    EXPECT_EQ(mask(Channel::One, 999), (Corners{226, 226, 236, 236})) << "the list stays as it is";
}

TEST_F(FilterEditing, WithNineHundredNinetyNineMasksTheMirrorFails) {
    clickFilter(Channel::One, 12);
    for (int i = 0; i < 999; ++i)
        form.lab.channel1.AddMask(1, 1, 2, 2);
    press(Channel::One, 40, 40);
    EXPECT_EQ(errorOf([&] { release(Channel::One, 50, 50); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(form.lab.channel1.nmask, 1000);
    EXPECT_EQ(mask(Channel::One, 999), (Corners{40, 40, 50, 50}));
}

}  // namespace
}  // namespace quillon
