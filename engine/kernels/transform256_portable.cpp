#include "engine/kernels/transform256_sweeps.h"
#include "engine/kernels/vectors_portable.h"

namespace quillon::kernels {

constinit const Transform256Level kPortableLevel = Sweeps<PortableVectors>::level("portable");

}  // namespace quillon::kernels
