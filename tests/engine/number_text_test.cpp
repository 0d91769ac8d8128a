#include "engine/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace quillon {
namespace {

constexpr unsigned kSeed = 20240611;

/// The format done by hand: all digits of the binary value, cut behind the last
/// decimal, and one added to the last digit kept where the first one cut is 5 or more.
std::string slowFixedText(double value, int decimals) {
    std::string text(1500, '\0');
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::fixed, 1080);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    const std::size_t kept = text.find('.') + 1 + static_cast<std::size_t>(decimals);
    const bool up = text[kept] >= '5';
    text.resize(kept);
    bool carry = up;
    for (std::size_t i = text.size(); carry && i-- > 0;) {
        if (text[i] == '.')
            continue;
        carry = text[i] == '9';
        text[i] = carry ? '0' : static_cast<char>(text[i] + 1);
    }
    if (carry)
        text.insert(0, 1, '1');
    const bool zero = text.find_first_of("123456789") == std::string::npos;
    return (std::signbit(value) && !zero ? "-" : "") + text;
}

TEST(NumberText, ASingleIsWrittenInItsShortestForm) {
    EXPECT_EQ(shortestText(5.0F), "5");
    EXPECT_EQ(shortestText(12.5F), "12.5");
    EXPECT_EQ(shortestText(0.1F), "0.1");
    EXPECT_EQ(shortestText(20.5F), "20.5");
    EXPECT_EQ(shortestText(-255.0F), "-255");
    EXPECT_EQ(shortestText(12900.0F), "12900");
}

TEST(NumberText, ASingleBelowOneKeepsItsLeadingZero) {
    EXPECT_EQ(shortestText(0.5F), "0.5");
    EXPECT_EQ(shortestText(-0.5F), "-0.5");
}

TEST(NumberText, ZeroHasNoMinusSign) {
    EXPECT_EQ(shortestText(0.0F), "0");
    EXPECT_EQ(shortestText(-0.0F), "0");
}

TEST(NumberText, ASingleThatNeedsMoreThanSevenDigitsIsRoundedToSeven) {
    EXPECT_EQ(shortestText(1.0F / 3.0F), "0.3333333");
    EXPECT_EQ(shortestText(16777216.0F), "1.677722E+07");
    EXPECT_EQ(shortestText(8.0F / 3.0F), "2.666667");
    // 1.00000012 and 0.99999994 lie beside 1.
    EXPECT_EQ(shortestText(std::nextafter(1.0F, 2.0F)), "1");
    EXPECT_EQ(shortestText(std::nextafter(1.0F, 0.0F)), "0.9999999");
}

TEST(NumberText, TheEighthDigitOfATieRoundsAwayFromZero) {
    EXPECT_EQ(shortestText(1048576.5F), "1048577");
    EXPECT_EQ(shortestText(1048577.5F), "1048578");
    EXPECT_EQ(shortestText(-1048576.5F), "-1048577");
    EXPECT_EQ(shortestText(10000005.0F), "1.000001E+07");
    EXPECT_EQ(shortestText(12345675.0F), "1.234568E+07");
}

TEST(NumberText, PlainDecimalsReachFromATenThousandthToSevenDigits) {
    EXPECT_EQ(shortestText(9999999.0F), "9999999");
    EXPECT_EQ(shortestText(1000000.0F), "1000000");
    EXPECT_EQ(shortestText(10000000.0F), "1E+07");
    EXPECT_EQ(shortestText(1e10F), "1E+10");
    EXPECT_EQ(shortestText(0.0001F), "0.0001");
    EXPECT_EQ(shortestText(0.0001234567F), "0.0001234567");
    EXPECT_EQ(shortestText(0.00001F), "1E-05");
    EXPECT_EQ(shortestText(0.000015F), "1.5E-05");
    EXPECT_EQ(shortestText(-2.5e-7F), "-2.5E-07");
    EXPECT_EQ(shortestText(std::numeric_limits<float>::max()), "3.402823E+38");
    EXPECT_EQ(shortestText(std::numeric_limits<float>::denorm_min()), "1E-45");
}

TEST(NumberText, SevenDigitsAreWrittenAsTheyStand) {
    EXPECT_EQ(shortestText(123.4567F), "123.4567");
    EXPECT_EQ(shortestText(1234567.0F), "1234567");
    EXPECT_EQ(shortestText(0.7654321F), "0.7654321");
}

TEST(NumberText, EverySingleOfSixDigitsReadsBackAsItself) {
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::uniform_int_distribution<int> digits(1, 999999);
    std::uniform_int_distribution<int> power(-12, 12);
    for (int i = 0; i < 20000; ++i) {
        const float value =
            std::stof(std::to_string(digits(random)) + "e" + std::to_string(power(random)));
        ASSERT_EQ(leadingSingle(shortestText(value)), value) << shortestText(value);
        ASSERT_EQ(leadingSingle(shortestText(-value)), -value) << shortestText(-value);
    }
}

TEST(NumberText, AnySingleReadsBackWithinHalfAUnitOfItsSeventhDigit) {
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    for (int i = 0; i < 50000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isnormal(value))
            continue;
        const std::string text = shortestText(value);
        const std::string digits = text.substr(0, text.find('E'));
        const std::size_t first = digits.find_first_of("123456789");
        std::size_t count = 0;
        for (std::size_t k = first; k < digits.size(); ++k)
            count += digits[k] >= '0' && digits[k] <= '9' ? 1 : 0;
        ASSERT_LE(count, 7U) << text;
        // Half a unit of the seventh digit, or the half step of Singles where
        // the shorter text is one that reads back exactly.
        const double size = std::fabs(static_cast<double>(value));
        const double unit = std::pow(10.0, std::floor(std::log10(size)) - 6);
        const double step = std::nextafter(std::fabs(value), HUGE_VALF) - size;
        ASSERT_LE(std::fabs(leadingNumber(text) - value), 0.5 * std::max(unit, step) * (1 + 1e-9))
            << text;
    }
}

TEST(NumberText, WholeNumbersHaveNoLeadingBlank) {
    EXPECT_EQ(plainText(0), "0");
    EXPECT_EQ(plainText(65536), "65536");
    EXPECT_EQ(plainText(-7), "-7");
    EXPECT_EQ(plainText(std::numeric_limits<Long>::min()), "-2147483648");
}

TEST(NumberText, FixedTextsHaveExactlyTheirDecimals) {
    EXPECT_EQ(fixedText(5, 1), "5.0");
    EXPECT_EQ(fixedText(90, 2), "90.00");
    EXPECT_EQ(fixedText(0.049, 1), "0.0");
    EXPECT_EQ(fixedText(-12.345, 2), "-12.35");
    EXPECT_EQ(fixedText(999.96, 1), "1000.0");
}

TEST(NumberText, TiesRoundAwayFromZeroOnTheBinaryValue) {
    EXPECT_EQ(fixedText(0.125, 2), "0.13");
    EXPECT_EQ(fixedText(-0.125, 2), "-0.13");
    EXPECT_EQ(fixedText(0.25, 1), "0.3");
    EXPECT_EQ(fixedText(0.75, 1), "0.8");
    EXPECT_EQ(fixedText(8192.0625, 3), "8192.063");
    EXPECT_EQ(fixedText(0.5, 1), "0.5");
    EXPECT_EQ(fixedText(-9.75, 1), "-9.8");
    EXPECT_EQ(fixedText(99.95, 1), "100.0");
    EXPECT_EQ(fixedText(752006311525489.625, 2), "752006311525489.63");
    // What is written as a tie is none where the binary value lies beside it.
    EXPECT_EQ(fixedText(2.675, 2), "2.67");
    EXPECT_EQ(fixedText(2.675F, 2), "2.67");
    EXPECT_EQ(fixedText(1.005F, 2), "1.00");
    EXPECT_EQ(fixedText(0.35, 1), "0.3");
    EXPECT_EQ(fixedText(0.45, 1), "0.5");
}

TEST(NumberText, AValueThatFormatsToZeroHasNoMinusSign) {
    EXPECT_EQ(fixedText(-0.004, 2), "0.00");
    EXPECT_EQ(fixedText(-0.005, 2), "-0.01");
    EXPECT_EQ(fixedText(-0.0, 1), "0.0");
    EXPECT_EQ(trimmedText(-0.0004, 3), "0.0");
    EXPECT_EQ(trimmedText(-0.0, 2), "0.0");
}

TEST(NumberText, AHugeSingleShowsAllItsDigits) {
    EXPECT_EQ(fixedText(1e38F, 1), "99999996802856924650656260769173209088.0");
    EXPECT_EQ(trimmedText(std::numeric_limits<float>::max(), 2),
              "340282346638528859811704183484516925440.0");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 1).size(), 311U);
}

TEST(NumberText, TrimmedTextsKeepOneDecimalAndDropClosingZeros) {
    EXPECT_EQ(trimmedText(2, 2), "2.0");
    EXPECT_EQ(trimmedText(2.1234, 2), "2.12");
    EXPECT_EQ(trimmedText(2.1234, 3), "2.123");
    EXPECT_EQ(trimmedText(2.5, 2), "2.5");
    EXPECT_EQ(trimmedText(2.999, 2), "3.0");
    EXPECT_EQ(trimmedText(-2.10, 3), "-2.1");
    EXPECT_EQ(trimmedText(100, 3), "100.0");
    EXPECT_EQ(trimmedText(0.0625, 3), "0.063");
    EXPECT_EQ(trimmedText(0, 2), "0.0");
}

TEST(NumberText, TheFactorTextsNameTheirScale) {
    EXPECT_EQ(sqrtFactorText(1.0F), "1.00 (sqrt)");
    EXPECT_EQ(sqrtFactorText(0.9F), "0.90 (sqrt)");
    EXPECT_EQ(sqrtFactorText(0.05F), "0.05 (sqrt)");
    EXPECT_EQ(linearFactorText(100.0F), "100.0 (linear)");
    EXPECT_EQ(linearFactorText(0.05F), "0.1 (linear)");
}

TEST(NumberText, TextsOfNoNumberSaySo) {
    EXPECT_EQ(fixedText(HUGE_VAL, 1), "INF");
    EXPECT_EQ(trimmedText(-HUGE_VAL, 2), "-INF");
    EXPECT_EQ(shortestText(HUGE_VALF), "INF");
    EXPECT_EQ(shortestText(std::nanf("")), "NAN");
}

TEST(NumberText, FixedTextsAgreeWithRoundingByHandOnTiesAndOnAnyValue) {
    std::mt19937_64 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::uniform_int_distribution<int> eighths(-80000, 80000);
    for (int i = 0; i < 20000; ++i) {
        const int decimals = 1 + static_cast<int>(random() % 3);
        // Multiples of a sixteenth are full of ties; the rest is any value.
        const double fromTies = eighths(random) / 16.0;
        const auto any = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        const double value = i % 2 == 0 || !std::isfinite(any) ? fromTies : any;
        ASSERT_EQ(fixedText(value, decimals), slowFixedText(value, decimals))
            << value << " with " << decimals;
    }
}

}  // namespace
}  // namespace quillon
