#include "engine/NumberText.h"
#include "ui/Form1.h"

// The box that shows how often each grey level stands on a panel. One box for
// all panels: it keeps what it shows until the next request.

namespace quillon {

void Form1::getHistogram(PictureBox& pb) {
    histogram_ = countGrays(pb);
    LHIST.Caption =
        "grayrange: " + plainText(histogram_.grayMin) + " to " + plainText(histogram_.grayMax);
    LHIST.Refresh();
    histogram_.scale();
    DrawHistogram();
    pbh.Visible = true;
}

void Form1::DrawHistogram() {
    pbh.Cls();
    drawBars(histogram_, pbh, BackColor());
    pbh.Refresh();
}

void Form1::histogramMouseMove(Single X, Single Y) {
    // A column is a grey level, a pixel of height a percent.
    pbh.ToolTipText = shortestText(X) + " , " + shortestText(pbh.ScaleHeight() - Y) + "%";
}

}  // namespace quillon
