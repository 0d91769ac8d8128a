#include <array>

#include "engine/NumberText.h"
#include "ui/Form1.h"

// The line profile: with the Alt key held, the magnitudes of the row under the
// pointer on the reconstruction panel.

namespace quillon {

namespace {

constexpr std::size_t kColumns = 256;
constexpr Double kPlotHeight = 240;
constexpr int kLabelTop = 2;

}  // namespace

void Form1::ShowProfile(Integer panel, Single x, Single y) {
    const Channel which = channelOfPanel(panel);
    LineControl& line = Line1(which == Channel::One ? 0 : 1);
    line.Y1 = y;
    line.Y2 = y;
    line.Visible = true;
    line.Refresh();

    std::array<Single, kColumns> magnitudes{};
    Single vmax = 0;
    lab.channel(which).GetProfile(magnitudes, vmax, x, y, lab.guiColors[1]);
    const auto scale = static_cast<Single>(kPlotHeight / static_cast<Double>(vmax));

    PictureBox& plot = lab.reconstructionPanel(which);
    std::array<PanelPoint, kColumns> points;
    for (std::size_t i = 0; i < kColumns; ++i)
        points[i] = {static_cast<Long>(i), toLong(plot.ScaleHeight() - scale * magnitudes[i])};
    plot.setBackColor(lab.guiColors[1]);
    plot.ForeColor = lab.guiColors[0];
    plot.Cls();
    // The last point is computed and left out of the line.
    plot.Polyline(std::span(points).first(kColumns - 1));

    const std::string text = "Max: " + trimmedText(vmax, 2);
    const int width = desktop.text.width(text, plot.FontName, plot.FontSize);
    plot.TextOut(desktop.text, toLong((255 - width) / 2.0), kLabelTop, text);
    plot.Refresh();
}

}  // namespace quillon
