#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/Bitmap.h"
#include "engine/ComplexGrid.h"
#include "engine/Control.h"
#include "engine/Desktop.h"
#include "engine/ExchangeArray.h"
#include "engine/Numbers.h"
#include "engine/PictureBox.h"
#include "engine/Rnd.h"
#include "engine/RunTimeError.h"
#include "engine/SpectrumIndex.h"
#include "engine/spectrum_passes.h"
#include "engine/transform256.h"

namespace quillon {

/// The side of every transform, in panel pixels.
inline constexpr Long kTransformSide = 256;
/// How many mask rectangles a channel can hold.
inline constexpr Integer kMaskLimit = 1000;

/// A mask rectangle in FT panel pixels, borders included; left is not greater
/// than right, top not greater than bottom.
struct MaskRectangle {
    Integer left = 0;
    Integer top = 0;
    Integer right = 0;
    Integer bottom = 0;
};

/// Paints the mask rectangles of both channels after a draw. The window does it;
/// the engine asks for it. The argument is a panel id, a channel or -1 and has
/// no effect.
class MaskPainter {
public:
    virtual ~MaskPainter() = default;
    virtual void DrawMasks(Integer m) = 0;
};

/// The grey values of an image panel, row after row, and their sum.
struct GreyImage {
    std::vector<std::uint8_t> pixels;
    Long sum = 0;
};

struct ExportOptions;
class ExportPrompt;

/// One channel: pixels to spectrum to reconstruction, with its views, filters
/// and colour tables.
///
/// The spectrum ftData(u, v) lies as the transform leaves it: unnormalised, the
/// zero frequency at (0, 0). It is centred only on the panel, where the zero
/// frequency lands on (127, 127), one pixel up and to the left of the middle.
/// imgData(x, y).re is the reconstruction in grey units.
///
/// The panels and the label belong to the window and live as long as the object.
/// An operation that needs one before it is bound throws ObjectNotSet.
class clComplexImage {
public:
    /// Both channels are given the same random numbers.
    clComplexImage(Desktop& desktop, MaskPainter& masks, Rnd& rnd);
    clComplexImage(const clComplexImage&) = delete;
    clComplexImage& operator=(const clComplexImage&) = delete;

    /// Full path of the channel's image, and its name alone, however the path is
    /// written.
    std::string file;
    std::string sfile;
    /// Written by SetImageSize; no computation depends on them.
    Integer width = 0;
    Integer scaledwidth = 0;
    Integer height = 0;
    Integer scaledheight = 0;
    /// While a batch runs the forward transform does not trigger the inverse.
    bool bBatch = false;
    bool bFilter = false;
    bool bMask = false;
    bool bLowpass = false;
    bool bHighpass = false;
    bool bRing = false;
    /// Radius and centre of the circular cut, in FT panel pixels.
    Single filter_rad = 0;
    Single filter_xm = 0;
    Single filter_ym = 0;
    /// Number of mask rectangles in use, 0 to 1000.
    Integer nmask = 0;
    /// Contrast pen: 0 where the last transformed image had a mean grey of 128
    /// or more, else 16777215.
    Long pencolor = 0;
    /// Drawing tool of the image panel: 0 Freehand, 1 Lattice, 2 None (Shift).
    Integer mDraw = 0;
    /// 0 magnitudes, 1 magnitudes and phases, 2 phases, 3 real part, 4 imaginary part.
    Integer mView = 0;

    /// Sets the square-root scale and fills the colour tables. The constructor
    /// calls it.
    void class_initialize();

    /// The spectrum's value under position (x, y) of the FT panel as the view
    /// reads it, such as " M= 12.5"; no intensity factor, no filter. The zero
    /// frequency is read at (128, 128), one pixel off its place on the panel.
    /// Throws SubscriptOutOfRange far to the left of the panel or above it. A view
    /// outside 0 to 4 gives the empty text at every position.
    std::string getVXY(Single x, Single y) const;

    /// Chooses the view and its table. With s = 0 the spectrum is redrawn, and
    /// the surface too where the reconstruction panel shows it.
    void SetFTView(Integer m, Integer s = 0);
    /// Takes a table into lutGray (m = 1) or lutHue (m = 2), brings it into force
    /// by the view, and with s = 0 redraws. Throws SubscriptOutOfRange for a
    /// table of fewer than 256 words, with the words that came before in place.
    void SetLUT(Integer m, std::span<const Long> c, Integer s = 0);
    /// Asks by the dialog what to export, and puts the numbers of the stored
    /// spectrum on the clipboard as text, by way of the file "tmp" in the folder
    /// that TMP names. Returns what has failed, and nothing where all went well or
    /// the dialog was closed without OK. m is not used.
    std::exception_ptr CopyData(ExportPrompt& dialog, Integer m = 0);
    void SetDrawMode(Integer m);
    /// 1 is the square-root scale, anything else the linear one; redraws.
    void SetScale(Integer m);

    /// 1 no filter, 2 low-pass, 3 high-pass, 4 custom masks; anything else leaves
    /// all off. Empties the mask list and leaves the radius.
    void SetFilterFT(Integer m);
    void NoFilterFT();
    /// Sets the radius and puts the centre of the cut on 127.5.
    void SetFilterRad(Single R);
    /// Adds a rectangle with the corners in any order. Throws SubscriptOutOfRange
    /// when the list holds 1000.
    void AddMask(Integer X1, Integer Y1, Integer X2, Integer Y2);
    /// Left, top, right, bottom of entry i into x(0) to x(3); entries from nmask
    /// on are read without complaint. Throws SubscriptOutOfRange for i outside 0
    /// to 999 or a shorter x.
    void GetMask(Integer i, std::span<Single> x) const;

    /// Binds the panels: each gets AutoRedraw True and pixel scale.
    void SetCanvas(PictureBox& pbIMG, PictureBox& pbFFT, PictureBox& pbNEW, Integer id);
    void SetMessageLabel(Label& s);
    /// Allocates the arrays of a transform of side w, zeroed.
    void SetDimensionFFT(Integer w);
    /// Record or tell the invert flag of panel m: 0 image, 1 FT, 2
    /// reconstruction; throws SubscriptOutOfRange for any other m. The panel itself is left.
    void SetInvert(Integer m, bool b);
    bool GetInvert(Integer m) const;
    /// Lays the picture of a file on the image panel, unscaled, top left. The
    /// error of a file that cannot be read goes to the caller.
    void LoadImageFile(const std::string& f);
    /// The whole channel: forward, then inverse. Unless bBatch is set the forward
    /// run has done an inverse already, so it is done twice.
    void CalculateAll();
    /// Text for the channel's status cell, shown at once.
    void Msg(const std::string& s);
    /// inv > 0 transforms the image panel, else reconstructs from the spectrum
    /// through the filter in force. A b_ other than 0 sets the linear intensity
    /// factor to 0. Goes on at the next step after any error.
    void runFOURN(Integer inv, Integer b_ = 0);

    /// Accepted and do nothing.
    void PaintAll() const noexcept {}
    void UpdateFTImage() const noexcept {}
    /// Each stores its flag and does nothing more.
    void InvertImage(bool b) noexcept { bImageInverted = b; }
    void ShowHistogram(bool b) noexcept { bHistogram = b; }
    void ShowColorImage(bool b) noexcept { bColorImage = b; }
    /// Rounds half to even.
    void SetImageSize(Single w_, Single h_);

    // Edits of the stored spectrum. Each treats every cell on its own, the zero
    // frequency too, in the order (0, 0), (0, 1), ... (1, 0), then redraws the
    // spectrum and reconstructs; a channel whose image panel has no Tag is left
    // alone. A division by 0 throws DivisionByZero, a result that no Single holds
    // Overflow: the cells before it keep their new values, it and those behind
    // their old ones, and nothing is redrawn.

    /// Each cell becomes its magnitude; one of 0 becomes 1.
    void DiscardPhases();
    /// Each cell gets the length 1; one of 0 stays 0.
    void DiscardMagnitudes();
    /// Each cell gets a random length up to half the span of all real and
    /// imaginary parts; one of 0 stays 0. Sets the square-root scale's intensity
    /// factor so that the flat spectrum stays visible.
    void RandomizeMagnitudes();
    /// Each cell is turned to a random direction; one of 0 gets the length 1.
    void RandomizePhases();
    /// Each cell keeps its magnitude (1 for 0) and takes the direction of p's.
    /// Throws DivisionByZero at a cell of p that is 0.
    void SwapPhases(const ExchangeArray& p);
    /// Copies the spectrum out of the channel or into it, with or without an
    /// image; the second redraws and reconstructs. Throws SubscriptOutOfRange
    /// where the array is smaller than the spectrum.
    void GetFTArray(ExchangeArray& p) const;
    void SetFTArray(const ExchangeArray& p);

    /// One step of the intensity factor of the scale in force: down by 0.9 for m
    /// below 1, else up by 1.11; redraws. A step after which the draw would
    /// overflow is not made: factor and picture stay.
    void ChangeBrightness(Integer m);
    /// Redraws from the stored data: mode 1 the spectrum, 0 the reconstruction,
    /// any other nothing. A positive ifac becomes the linear factor first.
    void RedrawFT(Integer mode, Single ifac);
    /// The factor in force as a text: "1.00 (sqrt)" or "100.0 (linear)".
    std::string getIntFac();
    /// Sets the factor of the scale in force, at least 0.05, and redraws.
    void setIntFac(Single v);

    /// Magnitudes of the spectrum row that the FT panel shows at y, one for each
    /// panel column, into v(0) on; vmax is raised to the greatest of them, and a
    /// vmax that is then 0 becomes 1. Paints the 51 by 51 pixels of the FT panel
    /// around (x, y) magnified over the image panel, on `ground` where they reach
    /// off it. Throws SubscriptOutOfRange for a shorter v.
    void GetProfile(std::span<Single> v, Single& vmax, Single x, Single y, ColorValue ground);
    /// The spectrum as a relief on the reconstruction panel.
    void draw3DFT();

    // What a reader of the numbers may look at.
    const ComplexGrid& spectrum() const noexcept { return ftData; }
    const ComplexGrid& reconstruction() const noexcept { return imgData; }
    const SpectrumIndex& spectrumIndex() const noexcept { return ftIndex; }
    Single linearFactor() const noexcept { return ifacLinear; }
    Single sqrtFactor() const noexcept { return ifacSqrt; }
    bool sqrtScale() const noexcept { return bSqrtScale; }
    const std::array<Long, 256>& grayTable() const noexcept { return lutGray; }
    const std::array<Long, 256>& hueTable() const noexcept { return lutHue; }
    const std::array<Long, 511>& realTable() const noexcept { return lutRe; }
    const std::array<Long, 511>& imaginaryTable() const noexcept { return lutIm; }
    const std::array<Long, 256>& activeTable() const noexcept { return lutActive; }

private:
    /// The control, or ObjectNotSet thrown where none is bound yet.
    template <class BoundControl>
    static BoundControl& bound(BoundControl* control) {
        if (control == nullptr)
            throw RunTimeError(ErrorNumber::ObjectNotSet);
        return *control;
    }
    /// Brings the table of the view into force; the signed views have their own.
    void activateTable();
    void showFilterText();
    void forwardTransform();
    void inverseTransform();
    GreyImage readGreys();
    ComplexGrid dividedSpectrum() const;
    std::optional<CellBits> cutCells() const;
    /// Mode 1 draws a spectrum, centred, by view and scale, and rebuilds ftIndex;
    /// mode 0 a reconstruction, stretched to the full range of greys. Errors end
    /// in a message box.
    void DrawFT(const ComplexGrid& data, Long w, Long h, PictureBox* pb, Integer mode, bool invert);
    void drawSurfaceIfShown();
    /// Whether a draw of the spectrum as things stand now ends in an overflow.
    bool spectrumOverflows();
    template <class Visit>
    void visitSpectrum(Visit visit);
    template <class Edit>
    void editSpectrum(Edit edit);
    bool hasImage() const;
    /// Half the span of all real and imaginary parts.
    Single spectrumRange();
    /// Shows what an edit has made of the spectrum and of the picture.
    void showEdit();
    static std::string FormatExportValue(Double v, Integer bi);
    std::string exportText(const ExportOptions& options) const;
    /// View, scale, factors and tables of the spectrum as they stand now.
    SpectrumLook spectrumLook(bool invert) const;

    Desktop& desktop_;
    MaskPainter& masks_;
    Rnd& rnd_;

    std::array<bool, 3> bInvert{};
    bool bImageInverted = false;
    bool bHistogram = false;
    bool bColorImage = false;
    bool bSqrtScale = false;
    PictureBox* pbIMG = nullptr;
    PictureBox* pbFFT = nullptr;
    PictureBox* pbNEW = nullptr;
    Label* lbMessage = nullptr;
    std::vector<Long> imageBits;
    Integer id = 0;
    Single ifacLinear = 0;
    Single ifacSqrt = 0;
    Long nfftX = 0;
    Long nfftY = 0;
    Long nfftTotal = 0;
    ComplexGrid imgData;
    /// The extremes of imgData.
    RealRange imgRange;
    ComplexGrid ftData;
    SpectrumIndex ftIndex;
    std::array<MaskRectangle, kMaskLimit> maskRect{};
    std::array<Long, 256> lutGray{};
    std::array<Long, 256> lutHue{};
    std::array<Long, 511> lutRe{};
    std::array<Long, 511> lutIm{};
    std::array<Long, 256> lutActive{};
    std::string intFacText;
    SpectrumPasses spectrumPasses;
};

/// The phase of a value in degrees, 0 to 360.
Single PhaseDeg(Single re, Single im);
/// The mean of the three bytes of a colour, rounded half to even.
Integer GrayOfColor(Long c);

}  // namespace quillon
