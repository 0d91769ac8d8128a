// A channel at work: what a drag of the cut, a new image, a change of view and
// the relief cost beside the yardstick, on plain panels and a desktop where
// nothing happens. The overlay of the masks belongs to the window and is not in it.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/interleaved.h"
#include "bench/pictures.h"
#include "bench/yardstick.h"
#include "engine/clComplexImage.h"
#include "fuzz/NullLab.h"

namespace quillon {
namespace {

constexpr std::size_t kRounds = 1000;
constexpr Integer kNoFilter = 1;
constexpr Integer kLowPass = 2;
constexpr Integer kHighPass = 3;
constexpr Integer kMasks = 4;
constexpr const char* kOneMask = "runFOURN(0), 1 mask";
constexpr const char* kThousandMasks = "runFOURN(0), 1,000 masks";

/// Small rectangles anywhere on the panel, the same in every run.
void addMasks(clComplexImage& channel, int count) {
    std::mt19937 random(2);
    const auto below = [&random](unsigned limit) {
        return static_cast<Integer>(static_cast<std::uint32_t>(random()) % limit);
    };
    for (int i = 0; i < count; ++i) {
        const Integer left = below(244);
        const Integer top = below(244);
        channel.AddMask(left, top, static_cast<Integer>(left + below(12)),
                        static_cast<Integer>(top + below(12)));
    }
}

class ChannelBench {
public:
    ChannelBench() {
        lab_.panels[0].setPicture(pictureLike());
        channel_.SetFTView(0, 1);
        channel_.SetFilterRad(40);
        channel_.CalculateAll();
        bench_.add(
            kYardstickName, [this] { yardstick_.run(); },
            [this] { std::fill_n(yardstick_.data(), 2 * 256 * 256, 100.0F); });
    }

    void run() {
        addTransforms();
        addDraws();
        bench_.measure(kRounds);
        if (lab_.dialogs.messages != 0)
            throw std::runtime_error("a step failed, so the figures mean nothing");
        std::printf("%s\n", processorName().c_str());
        bench_.print();
        std::printf("\n1,000 masks take %.3f times as long as one\n",
                    bench_.median(kThousandMasks) / bench_.median(kOneMask));
    }

private:
    void addTransforms() {
        addFiltered("runFOURN(0), no filter", kNoFilter);
        addFiltered("runFOURN(0), low-pass, a step of a drag", kLowPass);
        addFiltered("runFOURN(0), high-pass, a step of a drag", kHighPass);
        addFiltered(kOneMask, kMasks, 1);
        addFiltered(kThousandMasks, kMasks, kMaskLimit);
        bench_.add(
            "CalculateAll, magnitudes", [this] { channel_.CalculateAll(); },
            [this] { setUp(0, kNoFilter, 0); });
    }

    void addDraws() {
        const char* const names[] = {"magnitudes", "magnitudes and phases", "phases", "real part",
                                     "imaginary part"};
        for (Integer view = 0; view < 5; ++view)
            bench_.add(
                std::string("spectrum drawn, ") + names[view], [this] { channel_.RedrawFT(1, 0); },
                [this, view] { setUp(view, kNoFilter, 0); });
        bench_.add(
            "reconstruction drawn", [this] { channel_.RedrawFT(0, 0); },
            [this] { setUp(0, kNoFilter, 0); });
        bench_.add(
            "relief drawn", [this] { channel_.draw3DFT(); }, [this] { setUp(0, kNoFilter, 0); });
    }

    void addFiltered(const std::string& name, Integer filter, int masks = 0) {
        bench_.add(
            name, [this] { channel_.runFOURN(0); },
            [this, filter, masks] { setUp(0, filter, masks); });
    }

    void setUp(Integer view, Integer filter, int masks) {
        channel_.SetFTView(view, 1);
        channel_.SetFilterFT(filter);
        addMasks(channel_, masks);
    }

    NullLab lab_;
    clComplexImage& channel_ = lab_.channel1;
    Yardstick yardstick_;
    Interleaved bench_;
};

}  // namespace
}  // namespace quillon

int main() {
    quillon::ChannelBench().run();
}
