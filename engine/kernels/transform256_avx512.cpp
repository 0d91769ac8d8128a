// The vector headers of GCC 12 read a variable of their own before they set it,
// on purpose.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

#include "engine/kernels/transform256_sweeps.h"
#include "engine/kernels/vectors_avx512.h"

namespace quillon::kernels {

constinit const Transform256Level kAvx512Level = Sweeps<Avx512Vectors>::level("AVX-512");

}  // namespace quillon::kernels
