#pragma once

#include <string>

#include "engine/Numbers.h"

namespace quillon {

/// The mark before a menu entry.
enum class EntryMark { Unchecked, Checked };

/// What scripts and the batch run need of the window, beside the lab itself: the
/// menu entries that they choose as a user would, and the commands behind some.
class ScriptHost {
public:
    virtual ~ScriptHost() = default;

    /// Clicks on entries of the FT menus, of the options and of the File menu.
    virtual void mnuFT1a(Integer Index) = 0;
    virtual void mnuFT2a(Integer Index) = 0;
    virtual void itmOpt(Integer Index) = 0;
    virtual void itmFile(Integer Index) = 0;
    /// A click on a tab of the view: 0 shows the panels.
    virtual void tabClick(Integer Index) = 0;
    /// Sets the mark of "Invert Image" in the menu of panel 1 to 6. Nothing else happens.
    virtual void markInvertEntry(Integer panel, EntryMark mark) = 0;

    /// Brings the ring and the filter of channel 1 (c = 0) or 2 (c = 1) to a radius.
    virtual void SetFilterRing(Integer c, Single R) = 0;
    virtual void NewPanelImage(Integer panel) = 0;
    virtual void SavePanelImage(Integer panel, const std::string& file) = 0;
    virtual void InvertPanel(Integer panel, bool on) = 0;
    /// Combine both spectra into the channel of image panel p, 1 or 4.
    virtual void ConvolveSpectra(Integer p) = 0;
    virtual void DeconvolveSpectra(Integer p) = 0;
    /// Ends the session: the closing runs, and the window goes.
    virtual void unload() = 0;
};

}  // namespace quillon
