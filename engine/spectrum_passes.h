#pragma once

#include <array>
#include <span>
#include <vector>

#include "engine/Color.h"
#include "engine/Numbers.h"
#include "engine/SpectrumIndex.h"
#include "engine/clComplexImage.h"

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
};

/// A spectrum as the panel shows it: rows from the top, the zero frequency on
/// (w/2 - 1, h/2 - 1).
struct SpectrumPicture {
    std::vector<PixelWord> words;
    /// Grey levels 0 to 255, after the inversion.
    std::vector<Integer> levels;
};

/// The two passes over a spectrum that the flat picture and the relief share.
/// Every step is rounded to Single; a floating overflow throws Overflow.
class SpectrumPasses {
public:
    /// The cells 0 to w-1 by 0 to h-1 of `cells`; throws SubscriptOutOfRange
    /// where they do not all exist.
    SpectrumPasses(const ComplexGrid& cells, Long w, Long h, const SpectrumLook& look);

    /// Takes the value of every cell in the view, and gives the largest one, its
    /// root in the square-root scale. 0 means that there is nothing to show.
    Single measure();

    /// Scales, colours and centres what measure() found, and notes in `ftIndex`
    /// which cell each pixel shows. On an overflow the cells up to the one that
    /// overflows, column after column, are noted.
    SpectrumPicture paint(SpectrumIndex& ftIndex) const;

private:
    Single scaled(Single value) const;
    Long cellsUpToOverflow() const;
    bool scaleRow(Long j, std::span<Integer> levels) const;
    void colourRow(Long j, std::span<const Integer> levels, std::span<PixelWord> words) const;
    std::span<const Single> valuesOfRow(Long j) const;
    std::span<const Single> phasesOfRow(Long j) const;

    const ComplexGrid& cells_;
    Long w_;
    Long h_;
    SpectrumLook look_;
    /// Panel position of each cell index.
    std::vector<Integer> columns_;
    std::vector<Integer> rows_;
    std::vector<Single> values_;
    /// In degrees, where the colour needs them beside the values.
    std::vector<Single> phases_;
    Single vmax_ = 0;
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
