// What looks at a finished spectrum: the relief, the numbers for a spreadsheet,
// and the histogram of a panel.

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "analysis/data_export.h"
#include "analysis/histogram.h"
#include "bench/interleaved.h"
#include "bench/pictures.h"
#include "bench/yardstick.h"
#include "engine/clComplexImage.h"
#include "fuzz/NullLab.h"

namespace quillon {
namespace {

constexpr std::size_t kRounds = 300;
/// An export prints 65,536 numbers.
constexpr std::size_t kExportEvery = 10;

/// A dialog that is answered at once.
class AnsweredPrompt : public ExportPrompt {
public:
    void RemoteStart() override { ok = true; }
};

class AnalysisBench {
public:
    AnalysisBench() {
        lab_.panels[0].setPicture(pictureLike());
        // The export reads back what it has written; an empty file counts as missing.
        lab_.files.bytes = "text";
        channel_.SetFTView(0, 1);
        channel_.CalculateAll();
    }

    void run() {
        bench_.add(
            kYardstickName, [this] { yardstick_.run(); },
            [this] { std::fill_n(yardstick_.data(), 2 * 256 * 256, 100.0F); });
        for (Integer view = 0; view < 5; ++view)
            bench_.add(
                "relief, view " + std::to_string(view), [this] { channel_.draw3DFT(); },
                [this, view] { channel_.SetFTView(view, 1); });
        addExport("export, integer magnitudes", 1, 1);
        addExport("export, magnitudes with decimals", 1, 0);
        addExport("export, complex numbers with decimals", 0, 0);
        bench_.add("histogram of a panel", [this] {
            Histogram histogram = countGrays(lab_.panels[0]);
            histogram.scale();
            drawBars(histogram, lab_.panels[5], kBlack);
        });
        bench_.measure(kRounds);
        std::printf("%s\n", processorName().c_str());
        bench_.print();
        // The message that follows every export is the only one there may be.
        if (lab_.dialogs.lastMessage != "Data copied to clipboard.")
            throw std::runtime_error("a step failed, so the figures mean nothing");
    }

private:
    void addExport(const char* name, Integer quantity, Integer integers) {
        bench_.add(
            name, [this] { channel_.CopyData(prompt_, 0); },
            [this, quantity, integers] {
                prompt_.m = quantity;
                prompt_.bi = integers;
                prompt_.bs = 1;
            },
            kExportEvery);
    }

    NullLab lab_;
    clComplexImage& channel_ = lab_.channel1;
    AnsweredPrompt prompt_;
    Yardstick yardstick_;
    Interleaved bench_;
};

}  // namespace
}  // namespace quillon

int main() {
    quillon::AnalysisBench().run();
}
