#pragma once

#include <functional>
#include <span>

#include "engine/Bitmap.h"
#include "engine/Control.h"
#include "engine/stretch.h"

namespace quillon {

struct Pen;
class TextPainter;

inline constexpr Single kTwipsPerPixel = 15.0F;

enum class RasterOperation {
    SourceCopy,     ///< SRCCOPY, 0xCC0020
    NotSourceCopy,  ///< NOTSRCCOPY, 0x330008: the complement of the three colour bytes
};

enum class BoxStyle { Outline, Filled };

// Pens, by the platform's numbers.
inline constexpr Integer kPenXor = 7;
inline constexpr Integer kPenCopy = 13;

/// A point of a polyline, in panel pixels.
struct PanelPoint {
    Long x = 0;
    Long y = 0;
    friend constexpr bool operator==(PanelPoint, PanelPoint) = default;
};

/// A raster surface in memory whose pixels are the data of the lab.
///
/// Three things lie above one another: the ground (BackColor), the persistent
/// bitmap (Image), and a screen layer that no copy, save or transform contains.
/// Drawing goes into Image while AutoRedraw is True, else onto the screen layer.
/// Whatever changes Image makes the panel paint itself afresh, so the screen
/// layer goes.
///
/// Coordinates are pixels from the top left, x to the right, y downward; Singles
/// are rounded half to even, and one that no Long holds throws RunTimeError
/// Overflow. Every call clips. Widths and heights of the control itself are
/// twips; the surface is what lies inside the border (one pixel on each side
/// where BorderStyle is 1). When it changes its size, what lies inside both sizes
/// stays, what lies beyond the new one is lost, and Picture over BackColor shows
/// where the surface has grown.
class PictureBox : public Control {
public:
    /// A box of the given outer size in twips.
    PictureBox(std::string name, Single width, Single height, Integer borderStyle);
    /// A borderless box whose surface has the given size in pixels.
    PictureBox(std::string name, int scaleWidth, int scaleHeight);

    Integer ScaleMode = 3;
    Integer DrawWidth = 1;
    Integer DrawMode = kPenCopy;
    ColorValue FillColor = kBlack;
    /// True: a picture that is set gives the surface its size. The empty picture
    /// leaves the size as it is.
    bool AutoSize = false;

    bool AutoRedraw() const noexcept { return autoRedraw_; }
    /// Does not touch what is drawn; it only says where the next drawing goes.
    void setAutoRedraw(bool on) noexcept { autoRedraw_ = on; }

    Single ScaleWidth() const noexcept { return static_cast<Single>(image_.width); }
    Single ScaleHeight() const noexcept { return static_cast<Single>(image_.height); }

    /// The persistent bitmap as it stands after drawing.
    const Bitmap& Image() const noexcept { return image_; }
    /// What the panel shows: the screen layer where there is one, else Image.
    const Bitmap& shown() const noexcept { return layer_.empty() ? image_ : layer_; }
    bool hasScreenLayer() const noexcept { return !layer_.empty(); }

    /// The background picture, empty where none is set.
    const Bitmap& Picture() const noexcept { return picture_; }
    /// Lays a picture at the top left over BackColor and drops everything drawn.
    /// The empty picture leaves the bare ground. The argument may be Image().
    void setPicture(Bitmap picture);

    /// Erases what was drawn, also when the colour is the same: Image falls back
    /// to Picture over the new ground.
    void setBackColor(ColorValue color) override;

    /// With AutoRedraw True, Image falls back to Picture over BackColor and the
    /// screen layer goes; with False only the screen layer goes.
    void Cls();

    /// Takes the screen layer away and shows Image now.
    void Refresh() override;

    /// A line with the pen from the first point up to but not including the
    /// second, in `color` or in ForeColor. It covers the same pixels in both
    /// directions but for its ends: where it passes exactly between two pixels it
    /// takes the upper or the left one. A line of no length draws nothing with a
    /// one-pixel pen and one dot with a wider one. A pen of width 2 covers the 2 by
    /// 2 block whose lower right pixel is the point. A pen of any width touches
    /// each pixel of the line once, so an XOR line drawn twice is gone.
    void Line(Single x1, Single y1, Single x2, Single y2);
    void Line(Single x1, Single y1, Single x2, Single y2, ColorValue color);

    /// A box with the pen, corners inclusive, in any order. Outline draws the
    /// four borders with the pen's width; Filled fills the area inclusive of its
    /// border, whatever that width. Each pixel is touched once, so an XOR pen
    /// inverts the whole box.
    void Box(Single x1, Single y1, Single x2, Single y2, ColorValue color, BoxStyle style);

    /// One dot of the pen in ForeColor, or in `color`.
    void PSet(Single x, Single y);
    void PSet(Single x, Single y, ColorValue color);

    /// One pixel in `color`, whatever the pen.
    void SetPixelV(Long x, Long y, ColorValue color);

    /// The colour value at (x, y) of what the panel shows, -1 off the panel.
    Long GetPixel(Long x, Long y) const noexcept;

    /// Joined lines through the points with the pen in ForeColor; like a line
    /// it leaves out the last point. An XOR pen touches a pixel once for each of
    /// the lines that cover it.
    void Polyline(std::span<const PanelPoint> points);

    /// The same area copied from a bitmap, `area` telling where it lands and
    /// (sourceLeft, sourceTop) its corner in the source. What lies off the source
    /// or off the panel is left out. The source may be this panel's own bitmap.
    void BitBlt(PixelArea area, const Bitmap& source, int sourceLeft, int sourceTop,
                RasterOperation operation = RasterOperation::SourceCopy);

    /// Paints a picture unstretched with its corner at (x, y). The empty picture
    /// throws RunTimeError InvalidPicture.
    void PaintPicture(const Bitmap& source, Single x, Single y,
                      RasterOperation operation = RasterOperation::SourceCopy);

    /// Paints a picture stretched to an area. Where it reduces it averages, area
    /// by area, so that no false frequencies arise; where it enlarges, source
    /// pixels stay square (nearest neighbour). The empty picture throws
    /// RunTimeError InvalidPicture; an area without a pixel takes nothing.
    void PaintPictureStretched(const Bitmap& source, PixelArea target);

    /// Stretches a part of a picture over an area by nearest neighbour. Where the
    /// part reaches off the source the panel keeps what it shows.
    void StretchArea(PixelArea target, const Bitmap& source, PixelArea part);

    /// Complements the picture: Image is committed as Picture first, then painted
    /// on the panel complemented, so that two calls bring back the pixels. The top
    /// byte of every word stays 0.
    void InvertPicture();

    /// Fills all of the panel but the pixels whose centres lie inside the
    /// ellipse of the given box: left and top inclusive, right and bottom
    /// exclusive, corners in any order, sides below 8192. A pen does not matter.
    void FillAroundEllipse(int left, int top, int right, int bottom, ColorValue color);

    /// Text with its upper left corner at (x, y), in ForeColor and the panel's font.
    void TextOut(TextPainter& painter, int x, int y, const std::string& text);

    /// Copies n bytes of Image into words, row after row, 4 bytes a pixel, lowest
    /// byte first; gives the number of bytes copied, less than n where the surface
    /// or the buffer is smaller.
    Long GetBitmapBits(Long n, std::span<PixelWord> words) const;
    /// Writes n bytes in the same layout into Image, as they are; what Image or
    /// the buffer does not hold is left out.
    void SetBitmapBits(Long n, std::span<const PixelWord> words);

    /// SetBitmapBits with words that `paint` writes, mostly in place: whole words,
    /// n bytes of them, that hold anything before. What `paint` throws goes to the
    /// caller; it has to throw before it writes.
    void PaintBitmapBits(Long n, const std::function<void(std::span<PixelWord>)>& paint);

    /// The words of Image, to be written in place by a renderer that then calls
    /// Refresh. Rows from the top.
    std::span<PixelWord> bits() noexcept { return image_.words; }

    void changed() override;

private:
    /// Where drawing goes now. Fetch it anew for each call.
    Bitmap& canvas();
    /// The words of a drawing's source that stay while the canvas changes: a copy
    /// in `kept` where the source is one of this panel's own bitmaps.
    const Bitmap& steady(const Bitmap& source, Bitmap& kept) const;
    Pen pen(ColorValue color) const noexcept;
    /// Ends a drawing call: the picture on the screen is stale.
    void drawn();
    void layPicture();
    void fitSurface();

    bool autoRedraw_ = false;
    Bitmap image_;
    Bitmap picture_;
    Bitmap layer_;
};

}  // namespace quillon
