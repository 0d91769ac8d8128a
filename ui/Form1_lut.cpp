#include <array>

#include "app/mREGISTRY.h"
#include "engine/NumberText.h"
#include "engine/lut_selector.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"
#include "ui/setting_names.h"

namespace quillon {

void Form1::SelectLutRow(Integer row) {
    takeLutRow(row, LutRedraw::No);
}

void Form1::takeLutRow(Integer row, LutRedraw redraw) {
    // There is no colour to read off the picture: the tables stay as they are.
    if (row < 0 || row >= kLutSelectorRows)
        return;
    std::array<Long, 256> b{};
    if (row != 0) {
        std::array<Long, 256> a{};
        for (Long i = 0; i <= 255; ++i) {
            const auto index = static_cast<std::size_t>(i);
            a[index] = pbLUT.GetPixel(i, row * kLutSelectorBandHeight + 5);
            // Exchanged, so that the word has the bitmap's byte order.
            b[index] = RGB(BlueByte(a[index]), GreenByte(a[index]), RedByte(a[index])).value;
        }
        DrawLutButton(btLUT, a);
    } else {
        // The exact ramp, not the picture's band.
        for (Long i = 0; i <= 255; ++i)
            b[static_cast<std::size_t>(i)] = RGB(i, i, i).value;
        DrawLutButton(btLUT, b);
    }
    const Integer s = redraw == LutRedraw::Yes ? 0 : 1;
    lab.channel1.SetLUT(1, b, s);
    lab.channel2.SetLUT(1, b, s);
}

void Form1::DrawLutButton(PictureBox& pb, std::span<const Long> c) {
    for (int k = 0; k <= 15; ++k)
        pb.Line(static_cast<Single>(k), 0, static_cast<Single>(k), pb.ScaleHeight(),
                ColorValue{c[static_cast<std::size_t>(16 * k)]});
    pb.Refresh();
}

void Form1::selectorMouseUp(Single Y) {
    // Bands are 10 lines high; half-way lines go to the even row.
    const Integer row = toInteger((Double{Y} - 5) / 10);
    if (row < 0 || row >= kLutSelectorRows)
        return;
    takeLutRow(row, LutRedraw::Yes);
    SaveRegistryString(desktop.store, kSettingsKey, kLutSetting, plainText(row));
}

}  // namespace quillon
