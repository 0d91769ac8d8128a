#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"
#include "engine/mHSBRGB.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/slow_renderer.h"

namespace quillon {
namespace {

constexpr PixelWord word(Long red, Long green, Long blue) {
    return toPixelWord(RGB(red, green, blue));
}

struct TellingEntry {
    std::size_t i;
    PixelWord hue;
    PixelWord positiveReal;
    PixelWord negativeReal;
    PixelWord positiveImaginary;
    PixelWord negativeImaginary;
};

constexpr PixelWord kUntold = -1;

constexpr TellingEntry kTellingEntries[] = {
    {0, word(255, 18, 18), word(0, 0, 0), word(0, 0, 0), word(0, 0, 0), word(0, 0, 0)},
    {64, word(135, 255, 18), word(137, 0, 0), word(0, 135, 137), word(0, 137, 35),
     word(137, 0, 103)},
    {128, word(18, 252, 255), word(255, 18, 18), word(18, 252, 255), word(18, 255, 80),
     word(255, 18, 197)},
    {200, kUntold, word(255, 172, 172), word(172, 254, 255), word(172, 255, 193),
     word(255, 172, 234)},
    {255, word(255, 18, 18), word(255, 255, 255), word(255, 255, 255), word(255, 255, 255),
     word(255, 255, 255)},
};

TEST(ColourTables, TheTellingEntriesAreExact) {
    const ChannelUnderTest lab;
    for (const TellingEntry& entry : kTellingEntries) {
        SCOPED_TRACE(entry.i);
        if (entry.hue != kUntold) {
            EXPECT_EQ(lab.channel.hueTable()[entry.i], entry.hue);
        }
        EXPECT_EQ(lab.channel.realTable()[255 + entry.i], entry.positiveReal);
        EXPECT_EQ(lab.channel.realTable()[255 - entry.i], entry.negativeReal);
        EXPECT_EQ(lab.channel.imaginaryTable()[255 + entry.i], entry.positiveImaginary);
        EXPECT_EQ(lab.channel.imaginaryTable()[255 - entry.i], entry.negativeImaginary);
    }
}

TEST(ColourTables, EveryEntryIsTheColourModelStepByStep) {
    const ChannelUnderTest lab;
    const slow::Tables tables = slow::makeTables();
    EXPECT_EQ(lab.channel.grayTable(), tables.gray);
    EXPECT_EQ(lab.channel.hueTable(), tables.hue);
    EXPECT_EQ(lab.channel.realTable(), tables.re);
    EXPECT_EQ(lab.channel.imaginaryTable(), tables.im);
}

TEST(ColourTables, TheGreyTableIsTheExactRamp) {
    const ChannelUnderTest lab;
    for (Long i = 0; i < 256; ++i)
        EXPECT_EQ(lab.channel.grayTable()[static_cast<std::size_t>(i)], i * 0x010101);
}

TEST(ColourTables, TheSignedTablesAreBlackAtZeroAndWhiteAtBothEnds) {
    const ChannelUnderTest lab;
    EXPECT_EQ(lab.channel.realTable()[255], 0);
    EXPECT_EQ(lab.channel.imaginaryTable()[255], 0);
    EXPECT_EQ(lab.channel.realTable()[510], 0xFFFFFF);
    EXPECT_EQ(lab.channel.realTable()[0], 0xFFFFFF);
    EXPECT_EQ(lab.channel.imaginaryTable()[510], 0xFFFFFF);
    EXPECT_EQ(lab.channel.imaginaryTable()[0], 0xFFFFFF);
}

TEST(ColourTables, NoWordHasATopByte) {
    const ChannelUnderTest lab;
    const auto clean = [](const auto& table) {
        for (const Long entry : table)
            EXPECT_EQ(entry & ~0xFFFFFF, 0) << entry;
    };
    clean(lab.channel.grayTable());
    clean(lab.channel.hueTable());
    clean(lab.channel.realTable());
    clean(lab.channel.imaginaryTable());
}

TEST(ColourModel, ATintWithoutSaturationIsGrey) {
    EXPECT_EQ(HSBtoRGB(0, 0, 120, 0), 0x808080);
    EXPECT_EQ(HSBtoRGB(77, 0, 120, 1), 0x808080);
}

TEST(ColourModel, TheSwapExchangesRedAndBlue) {
    EXPECT_EQ(HSBtoRGB(0, 239, 128, 0), 255 | 18 << 8 | 18 << 16);
    EXPECT_EQ(HSBtoRGB(0, 239, 128, 1), 18 | 18 << 8 | 255 << 16);
    EXPECT_EQ(HSBtoRGB(0, 239, 128, -1), HSBtoRGB(0, 239, 128, 1));
    for (Integer hue = 0; hue < 240; ++hue)
        EXPECT_EQ(HSBtoRGB(hue, 200, 90, 0), exchangeRedAndBlue(HSBtoRGB(hue, 200, 90, 1)));
}

TEST(ColourModel, EveryHueSaturationAndBrightnessIsTheModelInSingles) {
    for (Integer hue = 0; hue < 240; ++hue)
        for (Integer brightness = 0; brightness < 256; ++brightness)
            for (const Integer saturation :
                 std::initializer_list<Integer>{0, 1, 60, 119, 120, 200, 239})
                ASSERT_EQ(HSBtoRGB(hue, saturation, brightness, 0),
                          slow::hsbToRgb(hue, saturation, brightness, 0))
                    << hue << " " << saturation << " " << brightness;
}

// These few come out one step different where a step is done in Doubles.
TEST(ColourModel, TheColoursThatTellSinglesFromDoublesAreThoseOfSingles) {
    EXPECT_EQ(HSBtoRGB(40, 239, 183, 1), word(254, 255, 136));
    EXPECT_EQ(HSBtoRGB(41, 239, 231, 1), word(254, 255, 238));
    EXPECT_EQ(HSBtoRGB(159, 239, 28, 1), word(0, 1, 60));
    EXPECT_EQ(HSBtoRGB(159, 239, 84, 1), word(0, 2, 179));
    EXPECT_EQ(HSBtoRGB(198, 239, 231, 1), word(254, 238, 255));
    EXPECT_EQ(HSBtoRGB(238, 239, 28, 1), word(60, 0, 2));
    EXPECT_EQ(HSBtoRGB(238, 239, 84, 1), word(179, 0, 5));
}

TEST(ColourBytes, AreNamedForColourValuesSoThatOnAPixelWordRedGivesBlue) {
    constexpr PixelWord kOrange = word(250, 120, 3);
    EXPECT_EQ(RedByte(kOrange), 3);
    EXPECT_EQ(GreenByte(kOrange), 120);
    EXPECT_EQ(BlueByte(kOrange), 250);
    EXPECT_EQ(RedByte(RGB(250, 120, 3).value), 250);
}

TEST(ColourBytes, TheRemainderTakesTheSignOfTheWord) {
    EXPECT_EQ(RedByte(-1), -1);
    EXPECT_EQ(RedByte(-257), -1);
    EXPECT_EQ(GreenByte(-1), 255);
    EXPECT_EQ(BlueByte(-1), 255);
}

TEST(ColourBytes, TheGreyOfAColourIsTheMeanOfItsBytes) {
    EXPECT_EQ(GrayOfColor(word(10, 20, 31)), 20);
    EXPECT_EQ(GrayOfColor(word(10, 20, 32)), 21);
    EXPECT_EQ(GrayOfColor(0xFFFFFF), 255);
}

TEST(ColourBytes, AComponentAbove255CountsAs255) {
    EXPECT_EQ(RGB(256, 7, 32767).value, RGB(255, 7, 255).value);
    EXPECT_EQ(RGB(0, 300, 0).value, 255 << 8);
}

TEST(SmallerAndLarger, KeepTheFirstOnATie) {
    EXPECT_EQ(MinOf(3, 5), 3);
    EXPECT_EQ(MinOf(5, 3), 3);
    EXPECT_EQ(MaxOf(3, 5), 5);
    EXPECT_EQ(MaxOf(5, 3), 5);
    EXPECT_TRUE(std::signbit(MinOf(-0.0F, 0.0F)));
    EXPECT_FALSE(std::signbit(MinOf(0.0F, -0.0F)));
    EXPECT_TRUE(std::signbit(MaxOf(-0.0F, 0.0F)));
    EXPECT_FALSE(std::signbit(MaxOf(0.0F, -0.0F)));
}

class TableSetting : public testing::Test {
protected:
    /// A new channel, whose table in force is still empty.
    TableSetting() { channel.SetDimensionFFT(256); }

    static std::array<Long, 256> ramp(Long factor) {
        std::array<Long, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = static_cast<Long>(i) * factor;
        return table;
    }

    ChannelUnderTest lab;
    clComplexImage channel{lab.desktop.desktop(), lab.masks, lab.rnd};
};

TEST_F(TableSetting, NoTableIsInForceBeforeTheFirstSetting) {
    EXPECT_EQ(channel.activeTable(), (std::array<Long, 256>{}));
}

TEST_F(TableSetting, OneFillsTheGreyTableAndTwoTheHueTable) {
    const auto first = ramp(3);
    const auto second = ramp(7);
    channel.SetLUT(1, first, 1);
    channel.SetLUT(2, second, 1);
    EXPECT_EQ(channel.grayTable(), first);
    EXPECT_EQ(channel.hueTable(), second);
    EXPECT_EQ(channel.activeTable(), first);
}

TEST_F(TableSetting, AnyOtherNumberCopiesNothingButBringsTheViewsTableIntoForce) {
    const auto gray = channel.grayTable();
    const auto hue = channel.hueTable();
    channel.SetLUT(3, {}, 1);
    EXPECT_EQ(channel.grayTable(), gray);
    EXPECT_EQ(channel.hueTable(), hue);
    EXPECT_EQ(channel.activeTable(), gray);
}

TEST_F(TableSetting, TheTableInForceFollowsTheView) {
    const auto table = ramp(5);
    channel.mView = 1;
    channel.SetLUT(1, table, 1);
    EXPECT_EQ(channel.activeTable(), table);
    channel.mView = 2;
    channel.SetLUT(1, ramp(6), 1);
    EXPECT_EQ(channel.activeTable(), channel.hueTable());
    for (const Integer view : std::initializer_list<Integer>{3, 4, 5, -1}) {
        channel.mView = view;
        channel.SetLUT(2, ramp(9), 1);
        EXPECT_EQ(channel.activeTable(), slow::makeTables().hue);
    }
}

TEST_F(TableSetting, AShorterTableIsASubscriptErrorAndItsWordsStay) {
    const auto before = channel.grayTable();
    const std::vector<Long> shorter(100, 0x123456);
    try {
        channel.SetLUT(1, shorter, 1);
        FAIL() << "the shorter table was taken";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::SubscriptOutOfRange);
    }
    EXPECT_EQ(channel.grayTable()[99], 0x123456);
    EXPECT_EQ(channel.grayTable()[100], before[100]);
    EXPECT_EQ(channel.activeTable(), (std::array<Long, 256>{}));
}

TEST_F(TableSetting, ALongerTableGivesItsFirstWords) {
    std::vector<Long> longer(300, 0x111111);
    longer[256] = 0x222222;
    channel.SetLUT(2, longer, 1);
    EXPECT_EQ(channel.hueTable()[255], 0x111111);
}

TEST(TableOfALiveChannel, ASchemeIsShownAtOnceOrNotAtAll) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.CalculateAll();
    std::array<Long, 256> reds{};
    for (std::size_t i = 0; i < reds.size(); ++i)
        reds[i] = static_cast<Long>(i) << 16;
    const Bitmap before = lab.pb2.Image();
    lab.log.clear();
    lab.channel.SetLUT(1, reds, 1);
    EXPECT_EQ(lab.pb2.Image(), before);
    EXPECT_TRUE(lab.calls().empty());
    lab.channel.SetLUT(1, reds, 0);
    EXPECT_EQ(lab.pb2.Image().at(127, 127), 0xFF0000);
    EXPECT_EQ(lab.calls(), (std::vector<std::string>{"showNow pb2", "DrawMasks(-1)"}));
}

TEST(TableOfALiveChannel, ASchemeChosenInThePhaseViewRedrawsTheSamePicture) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.CalculateAll();
    lab.channel.SetFTView(2, 0);
    const Bitmap phases = lab.pb2.Image();
    std::array<Long, 256> reds{};
    reds.fill(0xFF0000);
    lab.log.clear();
    lab.channel.SetLUT(1, reds, 0);
    EXPECT_EQ(lab.pb2.Image(), phases);
    EXPECT_EQ(lab.count("showNow pb2"), 1);
    EXPECT_EQ(lab.channel.grayTable(), reds);

    lab.channel.SetFTView(0, 0);
    EXPECT_EQ(lab.pb2.Image().at(127, 127), 0xFF0000);
}

TEST(TableOfALiveChannel, ASchemeShowsInMagnitudesButNotInMagnitudesWithPhases) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.SetFTView(1, 1);
    lab.channel.CalculateAll();
    const Bitmap before = lab.pb2.Image();
    std::array<Long, 256> reds{};
    reds.fill(0xFF0000);
    lab.channel.SetLUT(1, reds, 0);
    EXPECT_EQ(lab.pb2.Image(), before);
    lab.channel.SetLUT(2, reds, 0);
    EXPECT_EQ(lab.pb2.Image(), before);
    lab.channel.SetFTView(2, 0);
    EXPECT_EQ(lab.pb2.Image().at(3, 5), 0xFF0000);
}

}  // namespace
}  // namespace quillon
