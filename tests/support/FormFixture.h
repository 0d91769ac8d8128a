#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Folders.h"
#include "app/mREGISTRY.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingWatcher.h"
#include "ui/Form1.h"

namespace quillon {

/// The window that shows the dark: a screen of 1920 by 1080 pixels. Its calls
/// stand in the desktop's log as "dim.setLayeredBit()", "dim.setLayeredAlpha(20)",
/// "dim.maximise()", "dim.setWindowRegion()" and "dim.unloaded()".
class RecordingDimHost : public DimHost {
public:
    explicit RecordingDimHost(CallLog& log) : log_(log) {}

    /// Who is told of the size.
    frmDIM* shown = nullptr;
    /// Every opacity that was asked for, in order.
    std::vector<Integer> alphas;
    PixelRect whole;
    PixelRect hole;

    void setLayeredBit() override { log_.add("dim.setLayeredBit()"); }
    void setLayeredAlpha(Integer alpha) override {
        log_.add("dim.setLayeredAlpha(" + std::to_string(alpha) + ")");
        alphas.push_back(alpha);
    }
    void maximise() override {
        log_.add("dim.maximise()");
        if (shown != nullptr)
            shown->resized(1920 * 15, 1080 * 15);
    }
    void setWindowRegion(const PixelRect& newWhole, const PixelRect& newHole) override {
        log_.add("dim.setWindowRegion()");
        whole = newWhole;
        hole = newHole;
    }
    void unloaded() override { log_.add("dim.unloaded()"); }

private:
    CallLog& log_;
};

/// The window that shows the form, as far as the form knows of it. Its calls
/// stand in the desktop's log as "host.show()", "host.popupMenu(mnuImg1)",
/// "host.showModal(dlgARRAY)", "host.showModal(frmAbout)", "host.prepareDark()",
/// "host.showOwned(frmDIM)" and "host.unloaded()".
class RecordingHost : public FormHost {
    CallLog& log_;

public:
    explicit RecordingHost(CallLog& log) : log_(log) {}

    /// Titles of the menus that were asked for, in order.
    std::vector<std::string> popups;
    int shows = 0;
    int unloads = 0;
    /// What the user does while a menu is open.
    std::function<void(std::string_view)> onPopup;
    std::function<void()> onShow;
    /// What the user does while the export dialog is open. Without it the dialog
    /// is closed by its close box.
    std::function<void(dlgARRAY&)> onShowModal;
    /// What the window does when the light is about to go off.
    std::function<void()> onPrepareDark;
    /// Who looks on when the dark has been shown.
    std::function<void()> onShowOwned;
    /// Where the dark is shown.
    RecordingDimHost dimHost{log_};
    /// What the user does while the About box is open.
    std::function<void(frmAbout&)> onShowAbout;

    void show() override {
        log_.add("host.show()");
        ++shows;
        if (onShow)
            onShow();
    }
    void popupMenu(std::string_view title) override {
        log_.add("host.popupMenu(" + std::string(title) + ")");
        popups.emplace_back(title);
        if (onPopup)
            onPopup(title);
    }
    void showModal(dlgARRAY& dialog) override {
        log_.add("host.showModal(" + dialog.Name + ")");
        if (onShowModal)
            onShowModal(dialog);
    }
    void prepareDark() override {
        log_.add("host.prepareDark()");
        if (onPrepareDark)
            onPrepareDark();
    }
    void showOwned(frmDIM& dim) override {
        log_.add("host.showOwned(" + dim.Name + ")");
        dimHost.shown = &dim;
        dim.load(dimHost);
        if (onShowOwned)
            onShowOwned();
    }
    void showModal(frmAbout& about) override {
        log_.add("host.showModal(" + about.Name + ")");
        if (onShowAbout)
            onShowAbout(about);
    }
    void unloaded() override {
        log_.add("host.unloaded()");
        ++unloads;
    }
};

/// Two small lessons of 256 by 256: a bright disc on a dark slope, and a grid of
/// squares of rising brightness. All three bytes of a word are the same.
inline Bitmap discPicture() {
    Bitmap picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const int dx = x - 100;
            const int dy = y - 140;
            const int grey = dx * dx + dy * dy < 60 * 60 ? 210 : x / 4 + y / 8;
            picture.at(x, y) = grey * 0x10101;
        }
    return picture;
}

inline Bitmap squaresPicture() {
    Bitmap picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const bool inside = x % 32 < 20 && y % 32 < 12;
            // A grain, because a regular picture has cells of 0 in its spectrum
            // and these have no phase to be exchanged.
            const int grain = (x * x + x * y + 3 * y) % 7;
            picture.at(x, y) = ((inside ? 40 + x / 2 + y / 4 : 15) + grain) * 0x10101;
        }
    return picture;
}

/// A form over a recording desktop on which the program has run before: the
/// user's folders are there with both samples, and the settings are the
/// defaults. It is not opened yet.
class FormFixture : public ::testing::Test {
protected:
    FormFixture() {
        desktop.files.addFolder(folders.ScriptPath);
        desktop.pictures.add(sample1, discPicture());
        desktop.pictures.add(sample2, squaresPicture());
        store("PATH", "C:\\Quillon\\Quillon.exe");
        store("GUIC", "2");
        store("FR", "0");
        store("LUT", "0");
        form.setHost(&host);
    }

    /// The whole opening. What it asked of the desktop is forgotten.
    void open() {
        form.Form_Load();
        desktop.log.clear();
        desktop.dialogs.messages.clear();
        desktop.screen.pointers.clear();
        desktop.screen.yields = 0;
    }

    void store(const std::string& name, const std::string& value) {
        desktop.store.values[{kSettingsKey, name}] = value;
    }
    /// The stored value, empty where there is none.
    std::string stored(const std::string& name) {
        const auto found = desktop.store.values.find({kSettingsKey, name});
        return found == desktop.store.values.end() ? std::string() : found->second;
    }
    std::string status(Integer cell) { return form.lbSTB(cell).Caption; }
    /// A press and a release in the same place.
    void press(Control& where, Integer Button, Integer Shift, Single X, Single Y) {
        form.MouseDown(where, Button, Shift, X, Y);
        form.MouseUp(where, Button, Shift, X, Y);
    }

    RecordingDesktop desktop;
    const Folders folders = deriveFolders(desktop.environment);
    const std::string sample1 = folders.ImagePath + "Halvard-Image1.jpg";
    const std::string sample2 = folders.ImagePath + "Halvard-Image2.jpg";
    RecordingHost host{desktop.calls};
    Form1 form{desktop.desktop(), folders};
};

/// The same, opened: both channels show their samples.
class OpenForm : public FormFixture {
protected:
    OpenForm() { open(); }
};

}  // namespace quillon
