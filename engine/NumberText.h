#pragma once

#include <string>
#include <string_view>

#include "engine/Numbers.h"

namespace quillon {

// Numbers as text and back. The point is the decimal mark everywhere, whatever
// the locale. In the fixed formats ties round half away from zero on the exact
// binary value, and a value that formats to zero has no minus sign. An infinite
// value reads "INF" or "-INF", one that is not a number "NAN".

/// Shortest decimal form of a Single: the fewest digits that read back as the
/// same Single or, where that takes more than seven, the value rounded to seven
/// digits without closing zeros. 5 reads "5", 12.5 "12.5", 0.5 "0.5". From 0.0001
/// to 9999999 in plain decimal, beyond that with an exponent of two digits:
/// "1E+10", "1.5E-05".
std::string shortestText(Single value);

/// A whole number in plain decimal, without a leading blank.
std::string plainText(Long value);

/// With exactly `decimals` decimals, at least 1: format strings "0.0" and
/// "0.00". All digits before the point are told, also the 39 of a huge Single.
std::string fixedText(Double value, int decimals);

/// With at least one and at most `mostDecimals` decimals: format strings "0.0#"
/// (2) and "0.0##" (3); 2 reads "2.0", 2.1234 reads "2.12" or "2.123".
std::string trimmedText(Double value, int mostDecimals);

/// "0.00 (sqrt)": two decimals and the name of the square-root scale.
std::string sqrtFactorText(Single value);

/// "0.0 (linear)": one decimal and the name of the linear scale.
std::string linearFactorText(Single value);

/// The leading-number rule: optional sign, digits, optional point and digits,
/// optional exponent; reading stops at the first character that cannot continue
/// the number, and a word that does not begin with a number gives 0. Leading
/// blanks are skipped. ".5", "5.", "+5" and "1e5" are numbers; "1d5" is 1 and
/// "&H10" is 0. A number too large for a Double gives the largest Double of its
/// sign, one too small gives 0.
Double leadingNumber(std::string_view word);

/// leadingNumber as a Single. A number too large for a Single gives the largest
/// Single of its sign.
Single leadingSingle(std::string_view word);

}  // namespace quillon
