#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <tuple>

#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"

namespace quillon {
namespace {

class FilterState : public testing::Test {
protected:
    using Flags = std::tuple<bool, bool, bool, bool, bool>;

    Flags flags() const {
        return {channel.bFilter, channel.bRing, channel.bLowpass, channel.bHighpass, channel.bMask};
    }

    std::array<Single, 4> mask(Integer i) const {
        std::array<Single, 4> x{-1, -1, -1, -1};
        channel.GetMask(i, x);
        return x;
    }

    static ErrorNumber errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return ErrorNumber{};
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

constexpr std::tuple kOff{false, false, false, false, false};

TEST_F(FilterState, EachModeSetsItsFlags) {
    channel.SetFilterFT(2);
    EXPECT_EQ(flags(), Flags(true, true, true, false, false));
    channel.SetFilterFT(3);
    EXPECT_EQ(flags(), Flags(true, true, false, true, false));
    channel.SetFilterFT(4);
    EXPECT_EQ(flags(), Flags(true, false, false, false, true));
    channel.SetFilterFT(1);
    EXPECT_EQ(flags(), Flags(kOff));
}

TEST_F(FilterState, AModeThatDoesNotExistSwitchesAllOff) {
    for (const int mode : {7, 0, -1, 5}) {
        channel.SetFilterFT(3);
        channel.SetFilterFT(static_cast<Integer>(mode));
        EXPECT_EQ(flags(), Flags(kOff)) << mode;
    }
}

TEST_F(FilterState, EveryChangeOfModeForgetsTheMasks) {
    for (const int mode : {1, 2, 3, 4, 9}) {
        channel.SetFilterFT(4);
        channel.AddMask(1, 2, 3, 4);
        EXPECT_EQ(channel.nmask, 1);
        channel.SetFilterFT(static_cast<Integer>(mode));
        EXPECT_EQ(channel.nmask, 0) << mode;
    }
    channel.SetFilterFT(4);
    channel.AddMask(1, 2, 3, 4);
    channel.NoFilterFT();
    EXPECT_EQ(channel.nmask, 0);
    EXPECT_EQ(flags(), Flags(kOff));
}

TEST_F(FilterState, AChangeOfModeLeavesTheRadiusAndComputesNothing) {
    channel.SetFilterRad(33);
    lab.log.clear();
    channel.SetFilterFT(2);
    channel.SetFilterFT(1);
    EXPECT_EQ(channel.filter_rad, 33);
    EXPECT_TRUE(lab.log.empty());
}

TEST_F(FilterState, ARadiusPutsTheCentreBackWhateverItHeld) {
    channel.filter_xm = 3;
    channel.filter_ym = 4;
    channel.SetFilterRad(33);
    EXPECT_EQ(channel.filter_rad, 33);
    EXPECT_EQ(channel.filter_xm, 127.5F);
    EXPECT_EQ(channel.filter_ym, 127.5F);
}

TEST_F(FilterState, AMaskStoresItsCornersSorted) {
    channel.AddMask(10, 20, 5, 7);
    channel.AddMask(1, 9, 8, 2);
    EXPECT_EQ(channel.nmask, 2);
    EXPECT_EQ(mask(0), (std::array<Single, 4>{5, 7, 10, 20}));
    EXPECT_EQ(mask(1), (std::array<Single, 4>{1, 2, 8, 9}));
}

TEST_F(FilterState, MasksBeyondTheListReadAsTheyWereLeft) {
    EXPECT_EQ(mask(999), (std::array<Single, 4>{0, 0, 0, 0}));
    channel.AddMask(1, 2, 3, 4);
    channel.NoFilterFT();
    EXPECT_EQ(mask(0), (std::array<Single, 4>{1, 2, 3, 4}));
}

TEST_F(FilterState, AMaskThatDoesNotExistIsASubscriptError) {
    std::array<Single, 4> x{};
    EXPECT_EQ(errorOf([&] { channel.GetMask(-1, x); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { channel.GetMask(1000, x); }), ErrorNumber::SubscriptOutOfRange);
    std::array<Single, 3> shorter{};
    EXPECT_EQ(errorOf([&] { channel.GetMask(0, shorter); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(FilterState, TheThousandAndFirstMaskIsASubscriptErrorAndTheListStays) {
    for (int i = 0; i < 1000; ++i)
        channel.AddMask(static_cast<Integer>(i), 1, 2, 3);
    EXPECT_EQ(channel.nmask, 1000);
    EXPECT_EQ(errorOf([&] { channel.AddMask(7, 7, 7, 7); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(channel.nmask, 1000);
    EXPECT_EQ(mask(999), (std::array<Single, 4>{2, 1, 999, 3}));
}

}  // namespace
}  // namespace quillon
