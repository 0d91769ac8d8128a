#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <locale>
#include <random>
#include <regex>
#include <string>
#include <string_view>

#include "engine/NumberText.h"
#include "tests/support/TemporaryFolder.h"

namespace quillon {
namespace {

constexpr float kLargestSingle = std::numeric_limits<float>::max();
constexpr double kLargestDouble = std::numeric_limits<double>::max();

TEST(LeadingNumber, SignDigitsPointAndExponentAreRead) {
    EXPECT_EQ(leadingNumber("12"), 12);
    EXPECT_EQ(leadingNumber("-12.5"), -12.5);
    EXPECT_EQ(leadingNumber("+5"), 5);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("5."), 5);
    EXPECT_EQ(leadingNumber("-.25"), -0.25);
    EXPECT_EQ(leadingNumber("1e5"), 100000);
    EXPECT_EQ(leadingNumber("1E5"), 100000);
    EXPECT_EQ(leadingNumber("1.5e-2"), 0.015);
    EXPECT_EQ(leadingNumber("1e+2"), 100);
    EXPECT_EQ(leadingNumber("5.e1"), 50);
    EXPECT_EQ(leadingNumber("007"), 7);
}

TEST(LeadingNumber, ReadingStopsAtTheFirstCharacterThatCannotContinue) {
    EXPECT_EQ(leadingNumber("3rings.ftmsk"), 3);
    EXPECT_EQ(leadingNumber("12,5"), 12);
    EXPECT_EQ(leadingNumber("1.2.3"), 1.2);
    EXPECT_EQ(leadingNumber("5-3"), 5);
    EXPECT_EQ(leadingNumber("1d5"), 1);
    EXPECT_EQ(leadingNumber("1 2"), 1);
    EXPECT_EQ(leadingNumber("5\t6"), 5);
    EXPECT_EQ(leadingNumber("0x10"), 0);
    EXPECT_EQ(leadingNumber(std::string_view("7\0"
                                             "8",
                                             3)),
              7);
}

TEST(LeadingNumber, AnExponentWithoutDigitsIsNoneAtAll) {
    EXPECT_EQ(leadingNumber("1e"), 1);
    EXPECT_EQ(leadingNumber("2e+"), 2);
    EXPECT_EQ(leadingNumber("3e-x"), 3);
    EXPECT_EQ(leadingNumber("4e 5"), 4);
    EXPECT_EQ(leadingNumber("5e1.5"), 50);
}

TEST(LeadingNumber, AWordThatBeginsWithNoNumberGivesZero) {
    for (const char* word : {"", "abc", "&H10", ".", "-", "+", "-.", "e5", ".e5", "--5", "+-5",
                             "- 5", "inf", "nan", "infinity", "$5", "\xE9t5"})
        EXPECT_EQ(leadingNumber(word), 0) << word;
}

TEST(LeadingNumber, LeadingBlanksAreSkipped) {
    EXPECT_EQ(leadingNumber("   42"), 42);
    EXPECT_EQ(leadingNumber("   "), 0);
    // A blank is the character 32 only.
    EXPECT_EQ(leadingNumber("\t42"), 0);
}

TEST(LeadingNumber, ANumberTooLargeIsTheLargestOfItsSign) {
    EXPECT_EQ(leadingNumber("1e999"), kLargestDouble);
    EXPECT_EQ(leadingNumber("-1e999"), -kLargestDouble);
    EXPECT_EQ(leadingNumber("1e99999999999999999999"), kLargestDouble);
    EXPECT_EQ(leadingNumber("1e+99999999999999999999"), kLargestDouble);
    EXPECT_EQ(leadingNumber(std::string(5000, '9')), kLargestDouble);
    EXPECT_EQ(leadingNumber(std::string(5000, '9') + "e-10"), kLargestDouble);
    EXPECT_EQ(leadingSingle("1e39"), kLargestSingle);
    EXPECT_EQ(leadingSingle("-1e39"), -kLargestSingle);
    EXPECT_EQ(leadingSingle("3.5e38"), kLargestSingle);
    EXPECT_EQ(leadingSingle("1e999"), kLargestSingle);
    EXPECT_EQ(leadingSingle("1e38"), 1e38F);
}

TEST(LeadingNumber, ANumberTooSmallIsZero) {
    EXPECT_EQ(leadingNumber("1e-999"), 0);
    EXPECT_EQ(leadingNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(leadingNumber("." + std::string(5000, '0') + "1"), 0);
    EXPECT_EQ(leadingNumber("." + std::string(5000, '0') + "1e10"), 0);
    EXPECT_EQ(leadingNumber("0e99999999999999999999"), 0);
    EXPECT_EQ(leadingSingle("1e-60"), 0.0F);
}

TEST(LeadingNumber, ManyDigitsAndAnExponentMayCancel) {
    EXPECT_EQ(leadingNumber("." + std::string(399, '0') + "25e400"), 2.5);
    EXPECT_EQ(leadingNumber("1" + std::string(400, '0') + "e-400"), 1);
}

TEST(LeadingNumber, ALongMantissaIsRoundedOnce) {
    EXPECT_EQ(leadingNumber("0.1000000000000000055511151231257827021181583404541015625"), 0.1);
    EXPECT_EQ(leadingNumber("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(leadingNumber("9007199254740993.00000000000000000000000001"), 9007199254740994.0);
}

TEST(LeadingNumber, AnyDoubleReadsBackFromItsFullText) {
    constexpr unsigned kSeed = 77;
    std::mt19937_64 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> power(-300, 300);
    for (int i = 0; i < 20000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, power(random));
        char text[64];
        std::snprintf(text, sizeof text, "%.17gjunk", value);
        ASSERT_EQ(leadingNumber(text), value) << text;
    }
}

TEST(LeadingNumber, AnyMixtureOfCharactersReadsAsTheRuleSays) {
    constexpr unsigned kSeed = 1729;
    constexpr std::string_view kCharacters = "00123456789..++--eEdx, &";
    const std::regex rule(" *([+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?)");
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    for (int i = 0; i < 50000; ++i) {
        std::string word(random() % 7, ' ');
        for (char& character : word)
            character = kCharacters[random() % kCharacters.size()];
        std::smatch match;
        const bool begins =
            std::regex_search(word, match, rule, std::regex_constants::match_continuous);
        double expected = begins ? std::strtod(match.str(1).c_str(), nullptr) : 0;
        if (std::isinf(expected))
            expected = std::copysign(kLargestDouble, expected);
        ASSERT_EQ(leadingNumber(word), expected) << '"' << word << '"';
    }
}

/// Decimal comma and grouping for whatever asks the C++ locale.
struct CommaMark : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

void expectPointsEverywhere() {
    EXPECT_EQ(shortestText(12.5F), "12.5");
    EXPECT_EQ(fixedText(1234567.125, 2), "1234567.13");
    EXPECT_EQ(trimmedText(1.5, 3), "1.5");
    EXPECT_EQ(plainText(1234567), "1234567");
    EXPECT_EQ(leadingNumber("12.5"), 12.5);
    EXPECT_EQ(leadingNumber("12,5"), 12);
    EXPECT_EQ(leadingNumber("1e999"), kLargestDouble);
}

TEST(LeadingNumber, AStreamLocaleWithACommaChangesNothing) {
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaMark));
    expectPointsEverywhere();
    std::locale::global(before);
}

/// A locale with a decimal comma: one that is installed, or else one that is
/// compiled into `folder`. Returns false where neither can be had.
bool setCommaLocale(const std::filesystem::path& folder) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "fr_FR"})
        if (std::setlocale(LC_ALL, name) != nullptr)
            return true;
    const std::string command =
        "localedef -i fr_FR -f UTF-8 '" + (folder / "fr_FR.UTF-8").string() + "' > /dev/null 2>&1";
    if (std::system(command.c_str()) != 0)
        return false;
    ::setenv("LOCPATH", folder.c_str(), 1);
    const bool done = std::setlocale(LC_ALL, "fr_FR.UTF-8") != nullptr;
    ::unsetenv("LOCPATH");
    return done;
}

TEST(LeadingNumber, AUsersLocaleWithACommaChangesNothing) {
    const TemporaryFolder folder;
    const bool comma = setCommaLocale(folder.path());
    if (comma) {
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
        expectPointsEverywhere();
    }
    std::setlocale(LC_ALL, "C");
    if (!comma)
        GTEST_SKIP() << "no locale with a decimal comma, and none can be compiled";
}

}  // namespace
}  // namespace quillon
