// The open window: from a mouse event of the window system to the painted panels
// where a filter's ring is dragged, a held intensity control, the relief, the
// histogram, and an export through the real file and clipboard.

#include <QTest>
#include <QWindow>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "analysis/data_export.h"
#include "bench/desktop/BenchWindow.h"
#include "bench/interleaved.h"
#include "bench/yardstick.h"
#include "desktop/DesktopApplication.h"

namespace quillon {
namespace {

constexpr std::size_t kRounds = 500;
constexpr std::size_t kExportEvery = 10;
constexpr Integer kNoFilter = 1;
constexpr Integer kLowPass = 2;
constexpr Integer kHighPass = 3;
constexpr int kMiddle = 127;
constexpr int kLeastRadius = 10;
constexpr int kLargestRadius = 110;

/// An export dialog that is answered at once: magnitudes as whole numbers.
class AnsweredPrompt : public ExportPrompt {
public:
    AnsweredPrompt() { m = bi = bs = 1; }
    void RemoteStart() override { ok = true; }
};

/// Counts how often a widget is painted.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    int count() const { return count_; }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++count_;
        return false;
    }

private:
    int count_ = 0;
};

class WindowBench {
public:
    void run() {
        bench_.add(kYardstickName, [this] { yardstick_.run(); });
        addDrag("a ring dragged, low-pass", kLowPass);
        addDrag("a ring dragged, high-pass", kHighPass);
        for (Integer view = 0; view < 5; ++view)
            bench_.add(
                "intensity held, view " + std::to_string(view),
                [this] { painted(spectrumPaints_, [this] { tick(); }); },
                [this, view] { setUp(kNoFilter, view); });
        bench_.add(
            "relief",
            [this] { painted(picturePaints_, [this] { window_.form().lab.channel1.draw3DFT(); }); },
            [this] { setUp(kNoFilter, 0); });
        bench_.add(
            "histogram", [this] { window_.form().getHistogram(window_.form().pb1); },
            [this] { setUp(kNoFilter, 0); });
        bench_.add(
            "export, integer magnitudes",
            [this] { window_.form().lab.channel1.CopyData(prompt_, 0); },
            [this] { setUp(kNoFilter, 0); }, kExportEvery);
        bench_.measure(kRounds);
        std::printf("%s\n", processorName().c_str());
        bench_.print();
        if (!window_.dialogs.lastMessage.starts_with("Data copied"))
            throw std::runtime_error("a step failed, so the figures mean nothing");
        for (const char* name : {"a ring dragged, low-pass", "a ring dragged, high-pass"})
            std::printf("%s: %.0f steps a second\n", name, 1e6 / bench_.median(name));
    }

private:
    void addDrag(const char* name, Integer filter) {
        bench_.add(
            name, [this] { painted(picturePaints_, [this] { drag(); }); },
            [this, filter] { setUp(filter, 0); });
    }

    /// A step only counts once its panel is painted.
    template <class Step>
    void painted(const PaintCount& paints, Step step) {
        const int before = paints.count();
        step();
        BenchWindow::settle();
        if (paints.count() == before)
            throw std::runtime_error("a step painted nothing, so the figures mean nothing");
    }

    /// The ring grows by two pixels a step, then begins anew.
    void drag() {
        radius_ = radius_ >= kLargestRadius ? kLeastRadius : radius_ + 2;
        QTest::mouseMove(window_.window().windowHandle(), at(radius_));
    }

    void tick() {
        clComplexImage& channel = window_.form().lab.channel1;
        brighter_ = !brighter_;
        channel.ChangeBrightness(brighter_ ? 1 : -1);
    }

    QPoint at(int radius) { return window_.place(spectrum_, {kMiddle + radius, kMiddle}); }

    void setUp(Integer filter, Integer view) {
        Form1& form = window_.form();
        if (view != view_) {
            form.lab.channel1.SetFTView(view, 0);
            view_ = view;
        }
        if (filter == filter_)
            return;
        QWindow* surface = window_.window().windowHandle();
        if (filter_ != kNoFilter)
            QTest::mouseRelease(surface, Qt::LeftButton, {}, at(radius_));
        form.ApplyFilterChoice(2, filter);
        if (filter != kNoFilter)
            QTest::mousePress(surface, Qt::LeftButton, {}, at(radius_));
        filter_ = filter;
        BenchWindow::settle();
    }

    BenchWindow window_;
    PanelWidget& spectrum_ = window_.panel("pb2");
    PaintCount spectrumPaints_{spectrum_};
    PaintCount picturePaints_{window_.panel("pb3")};
    AnsweredPrompt prompt_;
    Yardstick yardstick_;
    Interleaved bench_;
    Integer filter_ = kNoFilter;
    Integer view_ = 0;
    int radius_ = kLeastRadius;
    bool brighter_ = false;
};

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    const quillon::BenchHome home;
    const quillon::DesktopApplication application(argc, argv);
    quillon::WindowBench().run();
}
