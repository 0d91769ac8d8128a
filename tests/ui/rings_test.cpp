#include <gtest/gtest.h>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

class FilterRings : public OpenForm {};

TEST_F(FilterRings, BothRingsStartWithADiameterOfElevenAndARadiusOfFiveAndAHalf) {
    for (Integer i = 0; i <= 1; ++i) {
        EXPECT_EQ(form.shp1(i).Height, 11);
        EXPECT_EQ(form.shp1(i).Width, 11);
        EXPECT_EQ(form.shp1(i).Tag, "5.5");
        EXPECT_FALSE(form.shp1(i).Visible);
    }
    EXPECT_EQ(form.lab.channel1.filter_rad, 5.5F);
    EXPECT_EQ(form.lab.channel2.filter_rad, 5.5F);
}

TEST_F(FilterRings, TheCornerIsPlacedByTheRadiusAskedForNotByTheOneReached) {
    form.SetFilterRings(5);
    EXPECT_EQ(form.shp1(0).Top, 122.5F);
    EXPECT_EQ(form.shp1(0).Left, 122.5F);
    EXPECT_EQ(form.shp1(1).Top, 122.5F);
    EXPECT_EQ(form.shp1(1).Left, 122.5F);
}

TEST_F(FilterRings, RadiiAreRoundedUpToTheNextHalf) {
    struct {
        Single asked, height, radius;
        const char* tag;
    } const cases[] = {
        {10, 21, 10.5F, "10.5"},         {20, 41, 20.5F, "20.5"},
        {12.5F, 25, 12.5F, "12.5"},      {0, 1, 0.5F, "0.5"},
        {0.5F, 1, 0.5F, "0.5"},          {127, 255, 127.5F, "127.5"},
        {1000, 2001, 1000.5F, "1000.5"},
    };
    for (const auto& [asked, height, radius, tag] : cases) {
        form.SetFilterRing(0, asked);
        EXPECT_EQ(form.shp1(0).Height, height) << asked;
        EXPECT_EQ(form.shp1(0).Width, height) << asked;
        EXPECT_EQ(form.shp1(0).Top, 127.5F - asked) << asked;
        EXPECT_EQ(form.shp1(0).Left, 127.5F - asked) << asked;
        EXPECT_EQ(form.shp1(0).Tag, tag) << asked;
        EXPECT_EQ(form.lab.channel1.filter_rad, radius) << asked;
    }
}

TEST_F(FilterRings, OddnessIsJudgedByTheWholeNumberPartOfTheHeight) {
    // 2 * 5.3 is 10.6, whose whole part is even, so 1 is added; 2 * 5.8 is 11.6
    // and stays, a fraction and all.
    form.SetFilterRing(0, 5.3F);
    EXPECT_EQ(form.shp1(0).Height, 10.6F + 1);
    form.SetFilterRing(0, 5.8F);
    EXPECT_EQ(form.shp1(0).Height, 11.6F);
    EXPECT_EQ(form.shp1(0).Tag, "5.8");
}

TEST_F(FilterRings, ZeroIsChannelOneAndAnythingElseChannelTwo) {
    form.SetFilterRing(0, 30);
    EXPECT_EQ(form.lab.channel1.filter_rad, 30.5F);
    EXPECT_EQ(form.lab.channel2.filter_rad, 5.5F);
    for (const Integer c : {Integer{1}, Integer{2}, Integer{-1}}) {
        form.SetFilterRings(5);
        form.SetFilterRing(c, 40);
        EXPECT_EQ(form.lab.channel1.filter_rad, 5.5F) << c;
        EXPECT_EQ(form.lab.channel2.filter_rad, 40.5F) << c;
        EXPECT_EQ(form.shp1(0).Height, 11) << c;
        EXPECT_EQ(form.shp1(1).Height, 81) << c;
    }
}

}  // namespace
}  // namespace quillon
