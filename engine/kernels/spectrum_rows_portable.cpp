#include "engine/kernels/spectrum_rows_loops.h"

namespace quillon::kernels {

constinit const SpectrumRows kPortableSpectrumRows = rowsNamed("portable");

}  // namespace quillon::kernels
