#include "tests/support/reference_transform.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace quillon {

namespace {

using Complex = std::complex<double>;

/// Transforms n values that lie `stride` apart.
void transformLine(std::vector<Complex>& f, std::size_t start, std::size_t stride,
                   const std::vector<Complex>& roots) {
    const std::size_t n = roots.size();
    std::vector<Complex> line(n);
    for (std::size_t u = 0; u < n; ++u) {
        Complex sum = 0;
        for (std::size_t x = 0; x < n; ++x)
            sum += f[start + x * stride] * roots[u * x % n];
        line[u] = sum;
    }
    for (std::size_t u = 0; u < n; ++u)
        f[start + u * stride] = line[u];
}

}  // namespace

std::vector<Complex> referenceTransform(std::vector<Complex> f, int n, int sign) {
    const auto side = static_cast<std::size_t>(n);
    std::vector<Complex> roots(side);
    for (int k = 0; k < n; ++k)
        roots[static_cast<std::size_t>(k)] = std::polar(1.0, sign * 2 * std::numbers::pi * k / n);
    for (std::size_t k = 0; k < side; ++k)
        transformLine(f, k * side, 1, roots);
    for (std::size_t k = 0; k < side; ++k)
        transformLine(f, k, side, roots);
    return f;
}

double rootMeanSquare(const std::vector<Complex>& values) {
    double sum = 0;
    for (const Complex& value : values)
        sum += std::norm(value);
    return std::sqrt(sum / static_cast<double>(values.size()));
}

double transformTolerance(int n, double rootMeanSquareOfResult) {
    return std::numeric_limits<Single>::epsilon() * std::log2(static_cast<double>(n) * n) *
           rootMeanSquareOfResult;
}

}  // namespace quillon
