#include "engine/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

namespace quillon {

namespace {

constexpr int kMostDigits = 7;

std::string textOfNoNumber(Double value) {
    if (std::isnan(value))
        return "NAN";
    return value < 0 ? "-INF" : "INF";
}

/// Whether the value lies exactly between two neighbours of so many decimals. A
/// binary fraction does so only where one more than that many halvings leave an
/// odd number, so the question has an exact answer.
bool isTie(Double value, int decimals) {
    Double whole = 0;
    const Double halves = std::ldexp(std::modf(std::fabs(value), &whole), decimals + 1);
    return halves == std::floor(halves) && std::fmod(halves, 2.0) == 1.0;
}

/// One more in the last digit of a number in plain decimal.
void raiseLastDigit(std::string& text) {
    for (std::size_t i = text.size(); i-- > 0;) {
        if (text[i] >= '0' && text[i] < '9') {
            ++text[i];
            return;
        }
        if (text[i] == '9')
            text[i] = '0';
    }
    text.insert(text.find_first_of("0123456789"), 1, '1');
}

std::string withoutMinusBeforeZero(std::string text) {
    if (text.find_first_of("123456789") == std::string::npos && text.starts_with('-'))
        text.erase(0, 1);
    return text;
}

/// A number as its digits: 0.digits times ten to the power of `point`. The
/// digits neither begin nor end with 0; zero has none.
struct Decimal {
    std::string digits;
    int point = 0;
};

/// From the text "d.ddde±xx" without a sign.
Decimal decimalOf(std::string_view scientific) {
    const std::size_t mark = scientific.find('e');
    const char sign = scientific[mark + 1];
    Decimal decimal;
    int exponent = 0;
    std::from_chars(scientific.data() + mark + 2, scientific.data() + scientific.size(), exponent);
    decimal.point = (sign == '-' ? -exponent : exponent) + 1;
    decimal.digits = scientific.substr(0, mark);
    std::erase(decimal.digits, '.');
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    return decimal;
}

/// The shortest digits of a finite value of 0 or more, seven at most.
Decimal shortestDecimal(Single value) {
    // The exact digits of a Single are 112 at most.
    char buffer[160];
    const auto write = [&buffer](Single number, auto... precision) {
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, number,
                                       std::chars_format::scientific, precision...);
        return decimalOf({buffer, end.ptr});
    };
    Decimal decimal = write(value);
    if (decimal.digits.size() <= kMostDigits)
        return decimal;
    // The conversion rounds ties to even; the eighth and last digit of a tie is 5.
    decimal = write(value, 120);
    if (decimal.digits.size() != kMostDigits + 1 || decimal.digits.back() != '5')
        return write(value, kMostDigits - 1);
    decimal.digits.pop_back();
    // Nothing is carried beyond the first digit: 99999995 has more bits than a Single.
    raiseLastDigit(decimal.digits);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    return decimal;
}

std::string plainDecimal(const Decimal& decimal) {
    const int count = static_cast<int>(decimal.digits.size());
    if (decimal.point <= 0)
        return "0." + std::string(static_cast<std::size_t>(-decimal.point), '0') + decimal.digits;
    if (decimal.point >= count)
        return decimal.digits + std::string(static_cast<std::size_t>(decimal.point - count), '0');
    std::string text = decimal.digits;
    text.insert(static_cast<std::size_t>(decimal.point), 1, '.');
    return text;
}

std::string exponentDecimal(const Decimal& decimal) {
    std::string text = decimal.digits;
    if (text.size() > 1)
        text.insert(1, 1, '.');
    const int exponent = decimal.point - 1;
    const std::string size = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

}  // namespace

std::string shortestText(Single value) {
    if (!std::isfinite(value))
        return textOfNoNumber(value);
    if (value == 0)
        return "0";
    const Decimal decimal = shortestDecimal(std::fabs(value));
    const bool plain = decimal.point > -4 && decimal.point <= kMostDigits;
    return (value < 0 ? "-" : "") + (plain ? plainDecimal(decimal) : exponentDecimal(decimal));
}

std::string plainText(Long value) {
    return std::to_string(value);
}

std::string fixedText(Double value, int decimals) {
    if (!std::isfinite(value))
        return textOfNoNumber(value);
    // The conversion is exact but rounds ties to even, so a tie is written whole,
    // with one decimal more, and rounded here.
    const bool tie = isTie(value, decimals);
    const int written = decimals + (tie ? 1 : 0);
    std::string text(
        static_cast<std::size_t>(std::numeric_limits<Double>::max_exponent10 + 4 + written), '\0');
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, written);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    if (tie) {
        text.pop_back();
        raiseLastDigit(text);
    }
    return withoutMinusBeforeZero(std::move(text));
}

std::string trimmedText(Double value, int mostDecimals) {
    std::string text = fixedText(value, mostDecimals);
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return text;
    const std::size_t last = std::max(text.find_last_not_of('0'), point + 1);
    text.erase(last + 1);
    return text;
}

std::string sqrtFactorText(Single value) {
    return fixedText(value, 2) + " (sqrt)";
}

std::string linearFactorText(Single value) {
    return fixedText(value, 1) + " (linear)";
}

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::size_t skipDigits(std::string_view word, std::size_t from) {
    while (from < word.size() && isDigit(word[from]))
        ++from;
    return from;
}

std::size_t skipSign(std::string_view word, std::size_t from) {
    return from < word.size() && (word[from] == '+' || word[from] == '-') ? from + 1 : from;
}

/// The parts of a number that a text begins with.
struct NumberParts {
    bool negative = false;
    /// Digits with an optional point among them; empty where there is no number.
    std::string_view mantissa;
    /// What stands behind the exponent's letter; empty where there is none.
    std::string_view exponent;
};

NumberParts leadingParts(std::string_view word) {
    NumberParts parts;
    word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
    parts.negative = word.starts_with('-');
    word.remove_prefix(skipSign(word, 0));
    std::size_t end = skipDigits(word, 0);
    std::size_t digits = end;
    if (end < word.size() && word[end] == '.') {
        const std::size_t behind = skipDigits(word, end + 1);
        digits += behind - end - 1;
        end = behind;
    }
    if (digits == 0)
        return parts;
    parts.mantissa = word.substr(0, end);
    // An exponent's letter without digits behind it does not belong to the number.
    if (end < word.size() && (word[end] == 'e' || word[end] == 'E')) {
        const std::size_t first = skipSign(word, end + 1);
        const std::size_t last = skipDigits(word, first);
        if (last > first)
            parts.exponent = word.substr(end + 1, last - end - 1);
    }
    return parts;
}

/// The power of ten of the leading digit of a mantissa other than zero.
Double leadingPower(std::string_view mantissa) {
    const auto point = static_cast<Double>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<Double>(mantissa.find_first_of("123456789"));
    return first < point ? point - first - 1 : point - first;
}

}  // namespace

Double leadingNumber(std::string_view word) {
    const NumberParts parts = leadingParts(word);
    if (parts.mantissa.find_first_of("123456789") == std::string_view::npos)
        return 0;
    const char* last = parts.mantissa.data() + parts.mantissa.size() +
                       (parts.exponent.empty() ? 0 : parts.exponent.size() + 1);
    Double size = 0;
    const auto result = std::from_chars(parts.mantissa.data(), last, size);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large or too small: the mantissa may be as long as a file, so the
        // exponent's sign alone does not tell.
        Double power = 0;
        const std::size_t sign = parts.exponent.starts_with('+') ? 1 : 0;
        const std::string_view exponent = parts.exponent.substr(sign);
        if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec ==
            std::errc::result_out_of_range)
            power = exponent.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
        size = power + leadingPower(parts.mantissa) > 0 ? std::numeric_limits<Double>::max() : 0;
    }
    return parts.negative ? -size : size;
}

Single leadingSingle(std::string_view word) {
    const Double number = leadingNumber(word);
    const auto single = static_cast<Single>(number);
    if (std::isinf(single))
        return std::copysign(std::numeric_limits<Single>::max(), single);
    return single;
}

}  // namespace quillon
