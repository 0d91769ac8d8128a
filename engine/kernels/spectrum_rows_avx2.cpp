#include "engine/kernels/spectrum_rows_loops.h"

namespace quillon::kernels {

constinit const SpectrumRows kAvx2SpectrumRows = rowsNamed("AVX2");

}  // namespace quillon::kernels
