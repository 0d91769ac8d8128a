#include "engine/kernels/transform256_sweeps.h"
#include "engine/kernels/vectors_avx2.h"

namespace quillon::kernels {

constinit const Transform256Level kAvx2Level = Sweeps<Avx2Vectors>::level("AVX2 and FMA");

}  // namespace quillon::kernels
