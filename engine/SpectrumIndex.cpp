#include "engine/SpectrumIndex.h"

#include <algorithm>

namespace quillon {

std::vector<Integer> centredPositions(Long length) {
    std::vector<Integer> positions;
    positions.reserve(static_cast<std::size_t>(length));
    for (Long i = 0; i < length; ++i)
        positions.push_back(static_cast<Integer>(2 * i > length ? halved(2 * i - length - 2)
                                                                : halved(2 * i + length - 2)));
    return positions;
}

std::vector<SpectrumIndex::Sources> SpectrumIndex::sourcesOf(Long length) {
    std::vector<Sources> sources(static_cast<std::size_t>(length) + 1, Sources{-1, -1});
    const std::vector<Integer> positions = centredPositions(length);
    for (Long i = 0; i < length; ++i) {
        Sources& at = sources[static_cast<std::size_t>(positions[static_cast<std::size_t>(i)])];
        at = {i, at[0]};
    }
    return sources;
}

void SpectrumIndex::allocate(Long w, Long h) {
    noted_ = 0;
    if (w == xBound_ && h == yBound_)
        return;
    xBound_ = w;
    yBound_ = h;
    columns_ = sourcesOf(w);
    rows_ = sourcesOf(h);
}

FtIndexCell SpectrumIndex::operator()(Long x, Long y) const noexcept {
    for (const Long u : columns_[static_cast<std::size_t>(x)])
        for (const Long v : rows_[static_cast<std::size_t>(y)])
            if (u >= 0 && v >= 0 && u * yBound_ + v < noted_)
                return {static_cast<Integer>(u), static_cast<Integer>(v)};
    return {};
}

void SpectrumIndex::note(Long cells) noexcept {
    noted_ = std::max(noted_, cells);
}

}  // namespace quillon
