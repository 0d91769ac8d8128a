#include "engine/kernels/greys_kernel.h"

namespace quillon::kernels {

void greysPortable(const float* parts, std::size_t count, const GreyScale& scale,
                   std::int32_t* words) noexcept {
    GreysKernel<4>::run(parts, count, scale, words);
}

}  // namespace quillon::kernels
