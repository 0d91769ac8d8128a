#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/Folders.h"
#include "app/ImageOrigin.h"
#include "app/KeptPictures.h"
#include "engine/Desktop.h"
#include "engine/PictureBox.h"
#include "engine/clComplexImage.h"

namespace quillon {

/// Which of the two channels: the upper or the lower row of panels.
enum class Channel : int { One = 0, Two = 1 };

/// Routines that need only the channel of a panel read ids below 4 as channel 1.
constexpr Channel channelOfPanel(Integer panel) noexcept {
    return panel < 4 ? Channel::One : Channel::Two;
}

/// A channel's panel ids.
constexpr Integer imagePanelId(Channel which) noexcept {
    return which == Channel::One ? 1 : 4;
}
constexpr Integer spectrumPanelId(Channel which) noexcept {
    return which == Channel::One ? 2 : 5;
}
constexpr Integer reconstructionPanelId(Channel which) noexcept {
    return which == Channel::One ? 3 : 6;
}

/// What the image input and output, the scripts and the window's routines work
/// on together: the channels, the panels, the two work surfaces, the common
/// dialog and the few values that the whole program shares. The window owns all
/// of it; the rooms below the window get it by reference.
struct Lab {
    Desktop& desktop;
    Folders folders;

    clComplexImage& channel1;
    clComplexImage& channel2;
    PictureBox& pb1;
    PictureBox& pb2;
    PictureBox& pb3;
    PictureBox& pb4;
    PictureBox& pb5;
    PictureBox& pb6;
    /// Work surfaces: `mem` holds the copy of a panel during a shift, `img` is
    /// the loading buffer and the canvas of a batch's montage.
    PictureBox& mem;
    PictureBox& img;
    /// The strip's cells: 0 file name, 1 pointer, 2 messages.
    std::array<Label*, 3> lbSTB;

    FileDialog ComFile{};
    /// 0 ground, 1 strong colour, 2 spare, 3 dimmed ground, 4 dimmed foreground.
    std::array<ColorValue, 5> guiColors{};
    bool autoCalculate = false;
    bool frenchTutorial = false;
    /// 1 Lab, 2 Tutorial, 0 before the first click on a tab.
    Integer viewTab = 0;
    /// The panel whose file name the strip shows, 0 before the first.
    Integer namedPanel = 0;
    /// True while the light is off.
    std::function<bool()> dimmed;
    /// True while a line profile may lie over the image panels.
    std::function<bool()> profiling{};
    /// What the last command has not done and why, and the text of cell 2 that
    /// this lies over; both empty where all was done.
    struct NotDone {
        std::string report{};
        std::string covered{};
    } notDone{};
    /// By channel.
    std::array<ImageOrigin, 2> origins{};
    KeptPictures keptPictures{};

    clComplexImage& channel(Channel which) const {
        return which == Channel::One ? channel1 : channel2;
    }
    clComplexImage& channelOf(Integer panel) const { return channel(channelOfPanel(panel)); }
    ImageOrigin& origin(Channel which) { return origins[static_cast<std::size_t>(which)]; }
    const ImageOrigin& origin(Channel which) const {
        return origins[static_cast<std::size_t>(which)];
    }
    /// The panel of id 1 to 6; throws RunTimeError SubscriptOutOfRange for any other.
    PictureBox& panel(Integer id) const;
    PictureBox& imagePanel(Channel which) const { return which == Channel::One ? pb1 : pb4; }
    PictureBox& spectrumPanel(Channel which) const { return which == Channel::One ? pb2 : pb5; }
    PictureBox& reconstructionPanel(Channel which) const {
        return which == Channel::One ? pb3 : pb6;
    }

    /// Text into a cell of the status strip, shown at once.
    void ShowStatus(Integer i, const std::string& s) const;
    /// Says in cell 2 in a few words what was not done, and why. It stays until the
    /// next command, which uncovers what the cell showed without it.
    void reportNotDone(const std::string& what);
    /// Says it again where a transform has written into the cell since.
    void keepReport();
    /// Runs a command of the user: a choice in a menu, a key, a drop. Whatever calls
    /// commands on the user's behalf, such as a script, is one command itself.
    template <class Command>
    void runCommand(Command command) {
        beginCommand();
        command();
        // The transforms of the same command write their filter into the cell too.
        keepReport();
    }
    /// The file name of a panel's channel into the strip's cell for it, in the form
    /// of the panel's kind: the pointer is on the panel.
    void showFileName(Integer panelId);
    /// After a load into a channel: the cell shows the new name, if it shows one of
    /// that channel's panels.
    void fileLoaded(Channel which);
    /// Empties the Tags of a channel's three panels before a new computation.
    void ClearChannelTags(Integer panelId) const;

private:
    void beginCommand();
};

}  // namespace quillon
