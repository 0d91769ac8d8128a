#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/Color.h"
#include "engine/ComplexGrid.h"
#include "engine/Numbers.h"
#include "engine/SpectrumIndex.h"

namespace quillon {

enum class Scale { Linear, SquareRoot };
enum class Inversion { Off, On };

/// What decides how a spectrum looks. The tables are borrowed.
struct SpectrumLook {
    /// 0 magnitudes, 1 magnitudes and phases, 2 phases, 3 real part, 4 imaginary part.
    Integer view = 0;
    Scale scale = Scale::SquareRoot;
    Single linearFactor = 0;
    Single sqrtFactor = 0;
    Inversion inversion = Inversion::Off;
    std::span<const Long, 256> lutActive;
    std::span<const Long, 256> lutHue;
    std::span<const Long, 511> lutRe;
    std::span<const Long, 511> lutIm;

    /// The factor in force. Phases have no square-root scale.
    Single factor() const noexcept {
        return scale == Scale::Linear || view == 2 ? linearFactor : sqrtFactor;
    }
};

/// The two passes over a spectrum that the flat picture and the relief share.
/// Every step is rounded to Single; a floating overflow and what is not a number
/// throw Overflow.
///
/// What the first pass finds is kept. Until the spectrum, the view or the scale is
/// another one, a picture costs the second pass alone.
class SpectrumPasses {
public:
    /// The first pass, over the cells 0 to w-1 by 0 to h-1: scales the value of
    /// every cell in the view, but for the intensity factor. False where all values
    /// are 0, so that there is nothing to show. Throws SubscriptOutOfRange where
    /// the cells do not all exist.
    bool measure(const ComplexGrid& cells, Long w, Long h, const SpectrumLook& look);

    /// Whether the second pass would overflow with this look, after a first one for it.
    bool overflows(const SpectrumLook& look) const noexcept;

    /// The second pass, after a first one for the same look that found something:
    /// colours the cells as the panel shows them, rows from the top, the zero
    /// frequency on (w/2 - 1, h/2 - 1), and notes in `ftIndex` which cell each
    /// pixel shows. On an overflow no word is written and the cells up to the one
    /// that overflows, column after column, are noted.
    void paint(const SpectrumLook& look, SpectrumIndex& ftIndex, std::span<PixelWord> words) const;

    /// The grey levels of that picture, after the inversion.
    void paintLevels(const SpectrumLook& look, std::span<std::uint8_t> levels) const;

private:
    /// What the first pass depends on.
    struct Source {
        std::uint64_t revision = 0;
        Long w = 0;
        Long h = 0;
        Integer view = 0;
        Scale scale = Scale::SquareRoot;
        friend bool operator==(const Source&, const Source&) = default;
    };

    struct Run {
        std::size_t cell = 0;
        std::size_t panel = 0;
        std::size_t length = 0;
    };
    static std::vector<Run> runsOf(const std::vector<Integer>& positions);

    void takeValues(const ComplexGrid& cells);
    void scaleValues();
    void scale(std::span<Single> values) const noexcept;
    Long cellsUpToOverflow(Single factor) const;
    void takeLevels(Long j, const SpectrumLook& look, std::span<std::uint8_t> levels) const;
    void colourRow(Long j, const SpectrumLook& look, std::span<const std::uint8_t> levels,
                   std::span<PixelWord> words) const;
    /// Where row j of the cells begins in a plane of them, and in the picture.
    std::size_t placeOfRow(Long j) const noexcept;
    std::size_t placeOnPanel(Long j) const noexcept;

    /// None before the first pass and after one that failed.
    std::optional<Source> source_;
    /// Columns that lie side by side among the cells and on the panel.
    std::vector<Run> columns_;
    /// Panel position of each row.
    std::vector<Integer> rows_;
    /// All steps of the scale but the factor, cell by cell; in the signed views
    /// with the sign of the cell.
    std::vector<Single> steps_;
    /// The greatest value before the scale, and what the scale makes of it.
    Single greatestValue_ = 0;
    Single greatestStep_ = 0;
    /// Hues 0 to 239, in the views that show phases.
    std::vector<std::uint8_t> hues_;
};

/// The smallest and the largest real part of a reconstruction, 0 included.
struct RealRange {
    Single rmin = 0;
    Single rmax = 0;
};

/// Throws SubscriptOutOfRange where the cells 0 to w-1 by 0 to h-1 do not all exist.
void requireCells(const ComplexGrid& cells, Long w, Long h);

/// Whether a view has anything to show of a reconstruction with these extremes:
/// where it finds every value to be 0 the panel keeps its picture. The imaginary
/// parts are taken as 0.
bool showsReconstruction(const RealRange& range, Integer view) noexcept;

/// The reconstruction in greys, stretched between its extremes, into w * h words.
/// Throws, before any word is written, SubscriptOutOfRange where the cells do not
/// all exist, and Overflow where a step does not fit a Single.
void paintReconstruction(const ComplexGrid& cells, Long w, Long h, const RealRange& range,
                         Inversion inversion, std::span<PixelWord> words);

}  // namespace quillon
