#include "engine/PersistentDrawing.h"
#include "ui/Form1.h"

// The wrap-around shift of a panel's picture.

namespace quillon {

void Form1::ShiftPanel(Single dx, Single dy, PictureBox& pb) {
    // Every roll counts, by mouse, keys or menu, also where an abandoned lattice
    // has left the panel drawing on its screen layer.
    const PersistentDrawing drawing(pb);
    const Single w = pb.ScaleWidth();
    const Single h = pb.ScaleHeight();
    // The tiles of the 3 by 3 neighbourhood cover the panel whatever the offset;
    // the one in place comes last.
    const struct {
        Single x;
        Single y;
    } tiles[] = {{dx - w, dy + h}, {dx + w, dy},     {dx - w, dy},     {dx, dy + h}, {dx, dy - h},
                 {dx + w, dy + h}, {dx - w, dy - h}, {dx + w, dy - h}, {dx, dy}};
    // The size passed exceeds the picture; its own edge limits each copy.
    const int width = toLong(pb.Width);
    const int height = toLong(pb.Height);
    for (const auto& tile : tiles)
        pb.BitBlt({toLong(tile.x), toLong(tile.y), width, height}, mem.Image(), 0, 0);
    pb.Refresh();
}

}  // namespace quillon
