// What the drawing tools and the probes cost beside the yardstick, on plain
// panels and a desktop where nothing happens.

#include <algorithm>
#include <array>
#include <cstdio>

#include "analysis/grid_pattern.h"
#include "analysis/lattice_points.h"
#include "bench/interleaved.h"
#include "bench/yardstick.h"
#include "engine/clComplexImage.h"
#include "fuzz/NullLab.h"

namespace quillon {
namespace {

constexpr std::size_t kRounds = 1000;

class DrawingBench {
public:
    DrawingBench() {
        panel_.setAutoRedraw(true);
        panel_.ForeColor = kWhite;
        lab_.channel1.SetFTView(0, 1);
        lab_.panels[0].setPicture(panel_.Image());
        lab_.channel1.CalculateAll();
        bench_.add(
            kYardstickName, [this] { yardstick_.run(); },
            [this] { std::fill_n(yardstick_.data(), 2 * 256 * 256, 100.0F); });
    }

    void run() {
        // 26 million candidates by the plain loop, so this is the one to be feared.
        addLattice("lattice, a step of one pixel", {{128, 128}, {129, 128}, {128, 129}});
        addLattice("lattice, a step of 16 pixels", {{20, 30}, {36, 33}, {17, 46}});
        bench_.add("grid pattern 10.2.1.1",
                   [this] { DrawGridPattern(lab_.desktop, panel_, "10.2.1.1"); });
        bench_.add("profile of a row with its patch", [this] {
            std::array<Single, 256> values{};
            Single highest = 0;
            lab_.channel1.GetProfile(values, highest, 100, 100, kWhite);
        });
        bench_.add("value under the pointer", [this] { text_ = lab_.channel1.getVXY(100, 100); });
        bench_.measure(kRounds);
        std::printf("%s\n", processorName().c_str());
        bench_.print();
    }

private:
    void addLattice(const char* name, const LatticeBasis& basis) {
        bench_.add(
            name, [this, basis] { plotLattice(panel_, basis); },
            [this] { panel_.setBackColor(kBlack); });
    }

    NullLab lab_;
    PictureBox panel_{"panel", 256, 256};
    std::string text_;
    Yardstick yardstick_;
    Interleaved bench_;
};

}  // namespace
}  // namespace quillon

int main() {
    quillon::DrawingBench().run();
}
