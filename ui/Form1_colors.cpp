#include <array>
#include <initializer_list>

#include "app/mREGISTRY.h"
#include "engine/NumberText.h"
#include "ui/Form1.h"
#include "ui/setting_names.h"

namespace quillon {

namespace {

using Scheme = std::array<ColorValue, 5>;

constexpr ColorValue kDimmedGround = RGB(33, 33, 33);
constexpr ColorValue kDimmedForeground = RGB(93, 93, 93);
constexpr ColorValue kSteelBlue = RGB(48, 108, 160);

constexpr Integer kSchemeCount = 5;

/// Ground, strong colour, spare, dimmed ground, dimmed foreground.
Scheme schemeColors(Integer index, Screen& screen) {
    switch (index) {
        case 0:  // Blue
            return {RGB(151, 190, 223), kSteelBlue, kSteelBlue, kDimmedGround, kDimmedForeground};
        case 1:  // Violet
            return {ColorValue{0xFFC0C0}, ColorValue{0xFF8080}, ColorValue{0x400000}, kDimmedGround,
                    kDimmedForeground};
        case 2:  // White
            return {kWhite, RGB(80, 140, 192), kSteelBlue, kDimmedGround, kDimmedForeground};
        case 3: {  // Light Grey
            const ColorValue shadow = screen.systemColor(SystemColor::ButtonShadow);
            return {screen.systemColor(SystemColor::ButtonFace), shadow, shadow, kDimmedGround,
                    kDimmedForeground};
        }
        default:  // Dark Grey
            return {kDimmedGround, kDimmedForeground, kSteelBlue, kDimmedGround, kDimmedForeground};
    }
}

void setGrounds(std::initializer_list<Control*> controls, ColorValue color) {
    for (Control* control : controls)
        control->setBackColor(color);
}

void setForegrounds(std::initializer_list<Control*> controls, ColorValue color) {
    for (Control* control : controls)
        control->ForeColor = color;
}

}  // namespace

void Form1::itmOpt0(Integer Index) {
    for (Integer i = 0; i < kSchemeCount; ++i)
        menu(MenuArray::itmOpt0, i).Checked = false;
    menu(MenuArray::itmOpt0, Index).Checked = true;
    guiColorIndex = Index;
    const Scheme colors = schemeColors(Index, desktop.screen);
    ApplyGuiColors(colors[0], colors[1], colors[2], colors[3], colors[4]);
    for (Integer panel = 1; panel <= 6; ++panel)
        frame(panel).BorderStyle = static_cast<Integer>(Index == kDarkGreyScheme ? 0 : 1);
    SaveRegistryString(desktop.store, kSettingsKey, kColorsSetting, plainText(Index));
}

void Form1::ApplyGuiColors(ColorValue c0, ColorValue c1, ColorValue c2, ColorValue c3,
                           ColorValue c4) {
    auto& colors = lab.guiColors;
    colors[0] = c0;
    colors[1] = c1;
    // 0 stands for "leave it": black cannot be chosen for the last three.
    if (c2.value != 0)
        colors[2] = c2;
    if (c3.value != 0)
        colors[3] = c3;
    if (c4.value != 0)
        colors[4] = c4;
    paintScheme();
}

void Form1::paintScheme() {
    const ColorValue ground = lab.guiColors[0];
    const ColorValue strong = lab.guiColors[1];
    setGrounds({&lbTAB(0), &lbTAB(1), &lbTAB(2)}, strong);
    setForegrounds({&lbTAB(0), &lbTAB(1), &lbTAB(2)}, ground);
    setGrounds({&lbSTB(0), &lbSTB(1), &lbSTB(2)}, strong);
    setForegrounds({&lbSTB(0), &lbSTB(1), &lbSTB(2)}, ground);
    setGrounds({&lbBR1(0), &lbBR1(1), &lbBR2(0), &lbBR2(1)}, ground);
    setForegrounds({&lbBR1(0), &lbBR1(1), &lbBR2(0), &lbBR2(1)}, strong);
    setGrounds({&stb, &pbh}, strong);
    // A new ground erases a panel, so only those that show nothing yet get it.
    for (PictureBox* panel : {&pb2, &pb3, &pb5, &pb6})
        if (panel->Tag.empty())
            panel->setBackColor(strong);
    setForegrounds({&pb3, &pb6}, ground);
    setForegrounds({&fr1, &fr2, &fr3, &fr4, &fr5, &fr6}, strong);
    setForegrounds({&LHIST}, ground);
    setGrounds({this, &frt1, &fr1, &fr2, &fr3, &fr4, &fr5, &fr6}, ground);
    setGrounds({&frLUT}, strong);
    setForegrounds({&LHIST, &Label2(0), &Label1}, ground);
    // Its ground took the bars away. They show the last request in the new colours;
    // the panel is not counted anew.
    if (histogram_.top > 0)
        DrawHistogram();
}

}  // namespace quillon
