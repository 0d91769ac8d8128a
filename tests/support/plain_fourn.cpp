#include "tests/support/plain_fourn.h"

#include <cmath>
#include <utility>

#include "engine/kernels/twiddles.h"

namespace quillon {

void plainFourn(std::span<Single> span, std::span<const Long> nn, Integer ndim, Integer isign) {
    Single* const data = span.data();
    Long ntot = 1;
    for (Integer idim = 1; idim <= ndim; ++idim)
        ntot *= nn[static_cast<std::size_t>(idim)];
    Long nprev = 1;
    for (Integer idim = 1; idim <= ndim; ++idim) {
        const Long n = nn[static_cast<std::size_t>(idim)];
        const Long nrem = ntot / (n * nprev);
        const Long ip1 = 2 * nprev;
        const Long ip2 = ip1 * n;
        const Long ip3 = ip2 * nrem;

        Long i2rev = 1;
        for (Long i2 = 1; i2 <= ip2; i2 += ip1) {
            if (i2 < i2rev) {
                for (Long i1 = i2; i1 <= i2 + ip1 - 2; i1 += 2) {
                    for (Long i3 = i1; i3 <= ip3; i3 += ip2) {
                        const Long i3rev = i2rev + i3 - i2;
                        std::swap(data[i3], data[i3rev]);
                        std::swap(data[i3 + 1], data[i3rev + 1]);
                    }
                }
            }
            Long ibit = ip2 / 2;
            while (ibit >= ip1 && i2rev > ibit) {
                i2rev -= ibit;
                ibit /= 2;
            }
            i2rev += ibit;
        }

        int pass = 0;
        for (Long step1 = ip1; step1 < ip2; step1 *= 2) {
            const Long step2 = 2 * step1;
            const kernels::TwiddleStep step = kernels::twiddleStep(pass++, isign);
            kernels::Twiddle twiddle;
            for (Long i3 = 1; i3 <= step1; i3 += ip1) {
                const auto wr = static_cast<Single>(twiddle.wr);
                const auto wi = static_cast<Single>(twiddle.wi);
                for (Long i1 = i3; i1 <= i3 + ip1 - 2; i1 += 2) {
                    for (Long i2 = i1; i2 <= ip3; i2 += step2) {
                        const Long k1 = i2;
                        const Long k2 = k1 + step1;
                        const Single tempr = std::fma(-wi, data[k2 + 1], wr * data[k2]);
                        const Single tempi = std::fma(wi, data[k2], wr * data[k2 + 1]);
                        data[k2] = data[k1] - tempr;
                        data[k2 + 1] = data[k1 + 1] - tempi;
                        data[k1] = data[k1] + tempr;
                        data[k1 + 1] = data[k1 + 1] + tempi;
                    }
                }
                twiddle.advance(step);
            }
        }
        nprev *= n;
    }
}

}  // namespace quillon
