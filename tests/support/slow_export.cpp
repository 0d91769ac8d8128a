#include "tests/support/slow_export.h"

#include <cmath>
#include <cstdio>

namespace quillon::slow {

namespace {

/// A number with at most three decimals, from all its digits, halves away from zero.
std::string trimmed(double value) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.160f", std::fabs(value));
    std::string digits = buffer;
    const std::size_t point = digits.find('.');
    const bool up = digits[point + 4] >= '5';
    digits.resize(point + 4);
    for (std::size_t i = digits.size(); up && i-- > 0;) {
        if (digits[i] == '.')
            continue;
        digits[i] = digits[i] == '9' ? '0' : static_cast<char>(digits[i] + 1);
        if (digits[i] != '0')
            break;
        if (i == 0)
            digits.insert(0, "1");
    }
    while (digits.back() == '0' && digits[digits.size() - 2] != '.')
        digits.pop_back();
    const bool zero = digits.find_first_of("123456789") == std::string::npos;
    return (std::signbit(value) && !zero ? "-" : "") + digits;
}

std::string valueText(double value, Integer bi) {
    return bi == 0 ? trimmed(value) : std::to_string(static_cast<long>(std::nearbyint(value)));
}

std::string fieldText(const ComplexCell& cell, const ExportOptions& options) {
    const double re = cell.re;
    const double im = cell.im;
    switch (options.m) {
        case 0:
            return valueText(re, options.bi) + ", " + valueText(im, options.bi);
        case 1:
            return valueText(std::sqrt(im * im + re * re), options.bi);
        case 2:
            return valueText(PhaseDeg(cell.re, cell.im), options.bi);
        case 3:
            return valueText(re, options.bi);
        default:
            return valueText(im, options.bi);
    }
}

}  // namespace

std::string exportText(const ComplexGrid& f, const ExportOptions& options) {
    std::string text;
    for (Long i = 0; i < 256; ++i) {
        for (Long j = 0; j < 256; ++j) {
            const Long a = options.bs != 0 ? (128 + i) % 256 : i;
            const Long b = options.bs != 0 ? (128 + j) % 256 : j;
            const std::string field = fieldText(f(a, b), options);
            if (options.b3 != 0)
                text += " " + std::to_string(i) + "  " + std::to_string(j) + " " + field + "\t\r\n";
            else
                text += field + "\t";
        }
        if (options.b3 == 0)
            text += "\r\n";
    }
    return text;
}

}  // namespace quillon::slow
