#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <variant>
#include <vector>

#include "ui/Form1.h"

namespace quillon {

// What quillon-picture is asked for on its command line.

/// A menu entry chosen by its array and Index.
struct MenuStep {
    MenuArray array;
    Integer index;
};

/// A drag with the left button on a panel (1 to 6), in panel pixels.
struct DragStep {
    Integer panel;
    Single fromX, fromY, toX, toY;
};

/// The Alt key held down over a point of an FT panel: the line profile.
struct ProfileStep {
    Integer panel;
    Single x, y;
};

/// The intensity factor of a channel's spectrum.
struct IntensityStep {
    Integer channel;
    Single factor;
};

using PictureStep = std::variant<MenuStep, DragStep, ProfileStep, IntensityStep>;

/// What is drawn: the whole window, the six panels each for itself, or the three
/// panels of one channel side by side.
enum class PictureShape { Window, Panels, Row };

struct PictureRequest {
    PictureShape shape = PictureShape::Window;
    /// The channel of a row, 1 or 2.
    Integer row = 1;
    /// The file to write; for panels what stands before "-1.png" to "-6.png".
    QString target;
    /// The script in force, empty for none.
    QString script;
    /// Taken after the script, in the order given.
    std::vector<PictureStep> steps;
};

/// The words of the command line without the program's name; none if they make
/// no sense.
std::optional<PictureRequest> parsePictureRequest(const QStringList& words);

/// How the words go together, for the user.
extern const char* const kPictureUsage;

/// Does to the window's object what a user's hand would do.
void takeStep(Form1& form, const PictureStep& step);

}  // namespace quillon
