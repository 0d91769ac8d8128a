#include "analysis/data_export.h"

#include <cmath>
#include <exception>
#include <string>
#include <vector>

#include "analysis/centred_cell.h"
#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr const char* kEndOfLine = "\r\n";

/// The cell that each running index reads.
std::vector<Long> sourceCells(Long side, Integer shifted) {
    std::vector<Long> cells;
    for (Long i = 0; i < side; ++i)
        cells.push_back(shifted == 0 ? i : centredCell(side, i));
    return cells;
}

/// A number that is not negative, as it is printed: a blank for its sign in
/// front and one behind.
std::string printed(Long number) {
    return ' ' + plainText(number) + ' ';
}

void removeIfPossible(Files& files, const std::string& path) {
    try {
        files.remove(path);
    } catch (const RunTimeError&) {
        // What matters has been done.
    }
}

}  // namespace

std::string clComplexImage::FormatExportValue(Double v, Integer bi) {
    return bi == 0 ? trimmedText(v, 3) : plainText(toLong(v));
}

std::string clComplexImage::exportText(const ExportOptions& options) const {
    const auto field = [&](const ComplexCell& cell) -> std::string {
        const Double re = cell.re;
        const Double im = cell.im;
        switch (options.m) {
            case 0:
                return FormatExportValue(re, options.bi) + ", " + FormatExportValue(im, options.bi);
            case 1:
                return FormatExportValue(std::sqrt(im * im + re * re), options.bi);
            case 2:
                return FormatExportValue(PhaseDeg(cell.re, cell.im), options.bi);
            case 3:
                return FormatExportValue(re, options.bi);
            case 4:
                return FormatExportValue(im, options.bi);
            default:
                return "";
        }
    };
    const std::vector<Long> columns = sourceCells(nfftX, options.bs);
    const std::vector<Long> rows = sourceCells(nfftY, options.bs);
    std::string text;
    for (Long i = 0; i < nfftX; ++i) {
        // The indices told are the running ones, also where the cells are shifted.
        const std::string first = printed(i);
        for (Long j = 0; j < nfftY; ++j) {
            if (options.b3 != 0)
                text += first + printed(j);
            text += field(
                ftData.at(columns[static_cast<std::size_t>(i)], rows[static_cast<std::size_t>(j)]));
            text += '\t';
            if (options.b3 != 0)
                text += kEndOfLine;
        }
        if (options.b3 == 0)
            text += kEndOfLine;
    }
    return text;
}

std::exception_ptr clComplexImage::CopyData(ExportPrompt& dialog, Integer /*m*/) {
    dialog.RemoteStart();
    desktop_.screen.pendingEvents();
    if (!dialog.ok)
        return nullptr;
    try {
        // Spectra may be the user's own work: nobody else can read the file.
        const std::string path = desktop_.environment.variable("TMP") + "\\tmp";
        desktop_.files.writePrivately(path, exportText(dialog));
        desktop_.clipboard.clear();
        desktop_.clipboard.setText(ReadWholeFile(desktop_.files, path));
        desktop_.dialogs.messageBox("Data copied to clipboard.", "FT Export",
                                    MessageIcon::Information, MessageButtons::Ok);
        // Nobody but the user reads a file that stays, and the next export replaces it.
        removeIfPossible(desktop_.files, path);
    } catch (const std::exception&) {
        return std::current_exception();
    }
    return nullptr;
}

}  // namespace quillon
