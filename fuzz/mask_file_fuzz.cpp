#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/NullLab.h"
#include "fuzz/require.h"
#include "scripting/ReadMaskFile.h"

// Any bytes as a mask file: they end in a list of proper rectangles, or in one of
// the two errors that a bad row has.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillon;
    static NullLab nothing;
    nothing.files.bytes.assign(reinterpret_cast<const char*>(data), size);
    nothing.dialogs.messages = 0;
    nothing.channel2.SetFilterFT(4);
    bool failed = false;
    try {
        ReadMaskFile(nothing.lab, 4, "C:\\m.ftmsk");
    } catch (const RunTimeError& error) {
        failed = true;
        require(error.number() == ErrorNumber::SubscriptOutOfRange ||
                    error.number() == ErrorNumber::Overflow,
                "a mask file fails by a bad row or one too many");
    }
    require(nothing.dialogs.messages == (size == 0 ? 1 : 0), "only an empty file has a dialog");
    require(nothing.channel1.nmask == 0, "the other channel is left alone");
    require(nothing.channel2.nmask >= 0 && nothing.channel2.nmask <= kMaskLimit,
            "the list holds a thousand");
    require(failed || static_cast<std::size_t>(nothing.channel2.nmask) <= (size + 7) / 7,
            "a row has seven bytes or more");
    std::array<Single, 4> mask{};
    for (Integer i = 0; i < nothing.channel2.nmask; ++i) {
        nothing.channel2.GetMask(i, mask);
        require(mask[0] <= mask[2] && mask[1] <= mask[3], "corners are in order");
    }
    return 0;
}
