#pragma once

#include <complex>
#include <functional>
#include <vector>

#include "engine/Numbers.h"

namespace quillon {

/// The two-dimensional transform of side n straight from its sum, in Doubles:
/// F(u, v) = sum over x, y of f(x, y) exp(sign 2 pi i (u x + v y) / n), element
/// (u, v) at v * n + u.
std::vector<std::complex<double>> referenceTransform(std::vector<std::complex<double>> f, int n,
                                                     int sign);

/// Root of the mean square of the sizes.
double rootMeanSquare(const std::vector<std::complex<double>>& values);

/// What the rounding to Singles may add to a transform of side n, as a root mean
/// square: each of the log2(n * n) passes rounds at most about once more than
/// its twiddles, by half an epsilon each.
double transformTolerance(int n, double rootMeanSquareOfResult);

}  // namespace quillon
