#pragma once

#include "engine/Numbers.h"

namespace quillon {

/// What to export of a spectrum, and how.
struct ExportOptions {
    /// The dialog ended with OK.
    bool ok = false;
    /// 0 complex (re, im), 1 magnitude, 2 phase in degrees, 3 real part, 4
    /// imaginary part.
    Integer m = 0;
    /// 1: whole numbers only.
    Integer bi = 0;
    /// 1: the zero frequency in the middle, as on the panel.
    Integer bs = 0;
    /// 1: one line a cell, with its indices; 0: one line for each first index.
    Integer b3 = 0;
};

/// The dialog that asks for the options, as far as the export knows of it.
class ExportPrompt : public ExportOptions {
public:
    virtual ~ExportPrompt() = default;
    /// Sets ok to False, shows the dialog and waits for its end.
    virtual void RemoteStart() = 0;
};

}  // namespace quillon
