#include "ui/ControlTable.h"

#include <array>

namespace quillon {

namespace {

using enum ControlKind;

constexpr int kSingle = -1;
constexpr bool kHidden = false;
constexpr bool kShown = true;

constexpr const char* kDecreaseHint = "Decrease Intensity Factor (Right-Click for Input)";
constexpr const char* kIncreaseHint = "Increase Intensity Factor (Right-Click for Input)";

// clang-format off
constexpr ControlRow kControls[] = {
    {"mem",    kSingle, PictureBox, "Form1",  480, 4500,  1245,  630, "", "", kHidden},
    {"img",    kSingle, PictureBox, "Form1",   30, 4905,   495,  525, "", "", kHidden},
    {"frt1",   kSingle, Frame,      "Form1",  795,  630, 12345, 8535},
    {"fr1",    kSingle, Frame,      "frt1",     0,    0,  4095, 4230, "Original Image"},
    {"fr2",    kSingle, Frame,      "frt1",  4125,    0,  4095, 4230, "Fourier Transform"},
    {"fr3",    kSingle, Frame,      "frt1",  8250,    0,  4095, 4230, "Reconstruction"},
    {"fr4",    kSingle, Frame,      "frt1",     0, 4305,  4095, 4230, "Original Image"},
    {"fr5",    kSingle, Frame,      "frt1",  4125, 4305,  4095, 4230, "Fourier Transform"},
    {"fr6",    kSingle, Frame,      "frt1",  8250, 4305,  4095, 4230, "Reconstruction"},
    {"pb1",    kSingle, PictureBox, "fr1",    105,  240,  3870, 3870, "", "", kShown, "Original image, channel 1"},
    {"pb2",    kSingle, PictureBox, "fr2",    105,  240,  3870, 3870, "", "", kShown, "Fourier transform, channel 1"},
    {"pb3",    kSingle, PictureBox, "fr3",    105,  240,  3870, 3870, "", "", kShown, "Reconstruction, channel 1"},
    {"pb4",    kSingle, PictureBox, "fr4",    105,  240,  3870, 3870, "", "", kShown, "Original image, channel 2"},
    {"pb5",    kSingle, PictureBox, "fr5",    105,  240,  3870, 3870, "", "", kShown, "Fourier transform, channel 2"},
    {"pb6",    kSingle, PictureBox, "fr6",    105,  240,  3870, 3870, "", "", kShown, "Reconstruction, channel 2"},
    {"lbBR1",  0,       Label,      "fr2",   3585,    0,   180,  210, "[-]", kDecreaseHint, kShown, "Decrease intensity, channel 1"},
    {"lbBR1",  1,       Label,      "fr2",   3765,    0,   210,  210, "[+]", kIncreaseHint, kShown, "Increase intensity, channel 1"},
    {"lbBR2",  0,       Label,      "fr5",   3585,    0,   180,  210, "[-]", kDecreaseHint, kShown, "Decrease intensity, channel 2"},
    {"lbBR2",  1,       Label,      "fr5",   3765,    0,   210,  210, "[+]", kIncreaseHint, kShown, "Increase intensity, channel 2"},
    {"imgLUT", kSingle, Image,      "pb2",      0,    0,   256,    9, "", "", kHidden},
    {"Timer1", kSingle, Timer,      "pb2",      0,    0,     0,    0},
    {"Line1",  0,       Line,       "pb2",      0,  194,   256,    0, "", "", kHidden, "Profile row, channel 1"},
    {"shp1",   0,       Shape,      "pb2",      0,    0,     0,    0, "", "", kHidden, "Filter ring, channel 1"},
    {"Line1",  1,       Line,       "pb5",      0,   17,   256,    0, "", "", kHidden, "Profile row, channel 2"},
    {"shp1",   1,       Shape,      "pb5",      0,    0,     0,    0, "", "", kHidden, "Filter ring, channel 2"},
    {"File1",  kSingle, FileList,   "pb4",    390,  450,  2295, 2760, "", "", kHidden},
    {"pbh",    kSingle, PictureBox, "frt1",  7350, 5835,  3855, 1740, "", "", kHidden, "Histogram"},
    {"lbHIS",  kSingle, Label,      "pbh",   3615,    0,   180,  210, "[x]", "Close Histogram", kShown, "Close histogram"},
    {"LHIST",  kSingle, Label,      "pbh",     30,    0,   510,  210, "", "", kShown, "Grey range"},
    {"ie5",    kSingle, Browser,    "Form1",   90,  480,  2640, 3345, "", "", kHidden, "Tutorial"},
    {"btLUT",  kSingle, PictureBox, "Form1", 2790,   90,   270,  270, "", "LUT Selector for FT Magnitudes", kShown, "LUT selector"},
    {"lbTAB",  0,       Label,      "Form1",   90,   90,  1290,  270, "Lab", "FFT Image Processing"},
    {"lbTAB",  1,       Label,      "Form1", 1440,   90,  1290,  270, "Tutorial", "HTML Documents"},
    {"lbTAB",  2,       Label,      "Form1", 2790,   90,  1290,  270, "TOC", "Table of Contents", kHidden, "Table of contents"},
    {"imgDIM", kSingle, Image,      "Form1", 8565,  135,   165,  165, "", "Turn Light Off (also L-Key)", kShown, "Turn light off"},
    {"hand",   kSingle, Image,      "Form1", 13005,  30,   480,  480, "", "", kHidden},
    {"frLUT",  kSingle, Frame,      "Form1", 3120,  105,  4170, 1620, "", "", kHidden, "Color scheme selector"},
    {"pbLUT",  kSingle, PictureBox, "frLUT",  165,  390,  3840, 1050, "", "Click to change color scheme", kShown, "Color schemes"},
    {"Label2", 0,       Label,      "frLUT",  135,   90,  1725,  210, "Select Color Scheme"},
    {"Label1", kSingle, Label,      "frLUT", 3780,   75,   270,  210, " [x] ", "Close LUT Selector", kShown, "Close color scheme selector"},
    {"stb",    kSingle, PictureBox, "Form1",   30, 9180, 13140,  285},
    {"lbSTB",  0,       Label,      "stb",      0,    0,  4350,  300, "", "", kShown, "File"},
    {"lbSTB",  1,       Label,      "stb",   4335,    0,  2295,  300, "", "", kShown, "Pointer"},
    {"lbSTB",  2,       Label,      "stb",   6615,    0,  5940,  300, "", "", kShown, "Message"},
};
// clang-format on

}  // namespace

std::span<const ControlRow> controlTable() {
    return kControls;
}

}  // namespace quillon
