#include "ui/MenuTable.h"

#include <array>

#include "ui/credits.h"

namespace quillon {

namespace {

constexpr auto kChecked = StartMark::Checked;
constexpr auto kPlain = StartMark::Plain;
constexpr auto kHidden = StartSight::Hidden;
constexpr auto kShown = StartSight::Shown;

constexpr int opens(MenuArray array) {
    return static_cast<int>(array);
}

// The image menus of the two channels differ only in the sub-menu they open.
constexpr std::array<MenuEntryRow, 16> imageEntries(MenuArray drawing) {
    return {{
        {"Reload Image"},
        {"-"},
        {"Load Image"},
        {"New Image"},
        {"-"},
        {"Copy Image"},
        {"Save Image"},
        {"Paste Image"},
        {"-"},
        {"Invert Image"},
        {"Histogram"},
        {"-"},
        {"Drawing", kPlain, kShown, opens(drawing)},
        {"-"},
        {"Convolution"},
        {"Deconvolution", kPlain, kHidden},
    }};
}

constexpr auto kImage1 = imageEntries(MenuArray::mnuImg1b);
constexpr auto kImage2 = imageEntries(MenuArray::mnuImg2b);

constexpr MenuEntryRow kDrawing[] = {
    {"Freehand", kChecked},
    {"Lattice"},
    {"None (Shift)"},
    {"Grid Pattern"},
};

constexpr MenuEntryRow kSpectrum[] = {
    {"Fourier Transform"},
    {"-"},
    {"Copy Image"},
    {"Save Image"},
    {"Print Image", kPlain, kHidden},
    {"-"},
    {"Invert Image"},
    {"Histogram", kPlain, kHidden},
    {"-"},
    {"No Filter", kChecked},
    {"Low-Pass"},
    {"High-Pass"},
    {"Custom Masks"},
    {"-"},
    {"Linear Scale"},
    {"Sqrt Scale", kChecked},
    {"-"},
    {"Export Data"},
};

constexpr MenuEntryRow kReconstruction[] = {
    {"Inverse FT"},
    {"-"},
    {"Copy Image"},
    {"Save Image"},
    {"Print Image", kPlain, kHidden},
    {"-"},
    {"Invert Image"},
    {"Histogram"},
    {"-"},
    {"Shift [1/2,1/2]"},
    {"View FT Surface"},
};

constexpr MenuEntryRow kFile[] = {
    {"View Image Folder"}, {"View Scripts Folder"}, {"-"}, {"Batch Processing"}, {"-"}, {"Exit"},
};

constexpr MenuEntryRow kScripts[] = {{"Load Script"}, {"Save as Script"}, {"Edit Script"}};

constexpr MenuEntryRow kOptions[] = {
    {"GUI Colors", kPlain, kShown, opens(MenuArray::itmOpt0)},
    {"Tutorial", kPlain, kShown, opens(MenuArray::itmOpt1)},
    {"-"},
    {"Recalculate All [Enter-key]"},
    {"Auto-Calculate", kChecked},
    {"-"},
    {"1 - Swap Phase Sets"},
    {"2 - Randomize Phases"},
    {"3 - Randomize Magnitudes"},
    {"4 - Discard Phases"},
    {"5 - Discard Magnitudes"},
    {"-"},
    {"View FT Magnitudes", kChecked},
    {"View FT Mag. + Phases"},
    {"View FT Phases"},
    {"View FT Real Part"},
    {"View FT Imag Part"},
};

// Blue bears the mark as built; the settings choose the scheme in force.
constexpr MenuEntryRow kColors[] = {
    {"Blue", kChecked}, {"Violet"}, {"White"}, {"Light Grey"}, {"Dark Grey"},
};

constexpr MenuEntryRow kLanguages[] = {{"English", kChecked},
                                       {"Fran\xC3\xA7"
                                        "ais"}};

constexpr MenuEntryRow kHelp[] = {
    {"Contents"}, {"Check for Update"}, {"Links", kPlain, kShown, opens(MenuArray::itm10a)}, {"-"},
    {"About"},
};

constexpr MenuEntryRow kLinks[] = {
    {kMaker},
    {kImageAuthor},
    {kTutorialAuthor},
    {"-"},
    {"Applet Ondine1"},
    {"Applet Ondine2"},
    {"Applet Ondine3"},
    {"-"},
    {"Wren Journal Paper"},
    {"Wren Journal Reference"},
};

constexpr MenuTitleRow kTitles[] = {
    {"mnuFile", "File", opens(MenuArray::itmFile)},
    {"mnuDUM1", "|", -1},
    {"mnuImg1", "Image", opens(MenuArray::mnuImg1a)},
    {"mnuFT1", "FT", opens(MenuArray::mnuFT1a)},
    {"mnuNew1", "iFT", opens(MenuArray::mnuNew1a)},
    {"mnuDUM2", "|", -1},
    {"mnuImg2", "Image", opens(MenuArray::mnuImg2a)},
    {"mnuFT2", "FT", opens(MenuArray::mnuFT2a)},
    {"mnuNew2", "iFT", opens(MenuArray::mnuNew2a)},
    {"mnuDUM3", "|", -1},
    {"mnuSCR", "&Scripts", opens(MenuArray::itmSCR)},
    {"mnuOpt", "&Options", opens(MenuArray::itmOpt)},
    {"mnu10", "&Help", opens(MenuArray::itm10)},
};

constexpr std::array<const char*, kMenuArrayCount> kArrayNames = {
    "mnuImg1a", "mnuImg1b", "mnuFT1a", "mnuNew1a", "mnuImg2a", "mnuImg2b", "mnuFT2a", "mnuNew2a",
    "itmFile",  "itmSCR",   "itmOpt",  "itmOpt0",  "itmOpt1",  "itm10",    "itm10a",
};

}  // namespace

std::span<const MenuEntryRow> menuEntries(MenuArray array) {
    switch (array) {
        case MenuArray::mnuImg1a:
            return kImage1;
        case MenuArray::mnuImg2a:
            return kImage2;
        case MenuArray::mnuImg1b:
        case MenuArray::mnuImg2b:
            return kDrawing;
        case MenuArray::mnuFT1a:
        case MenuArray::mnuFT2a:
            return kSpectrum;
        case MenuArray::mnuNew1a:
        case MenuArray::mnuNew2a:
            return kReconstruction;
        case MenuArray::itmFile:
            return kFile;
        case MenuArray::itmSCR:
            return kScripts;
        case MenuArray::itmOpt:
            return kOptions;
        case MenuArray::itmOpt0:
            return kColors;
        case MenuArray::itmOpt1:
            return kLanguages;
        case MenuArray::itm10:
            return kHelp;
        case MenuArray::itm10a:
            return kLinks;
    }
    return {};
}

const char* menuArrayName(MenuArray array) {
    return kArrayNames[static_cast<std::size_t>(array)];
}

std::span<const MenuTitleRow> menuTitles() {
    return kTitles;
}

}  // namespace quillon
