#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

using ExportDialogOfTheForm = CommandFixture;

TEST_F(ExportDialogOfTheForm, BeginsWithMagnitudesAsShiftedWholeNumbers) {
    dlgARRAY& dialog = form.exportDialog;
    EXPECT_EQ(dialog.Caption.get(), "FT Data Export");
    EXPECT_FALSE(dialog.Visible);
    EXPECT_FALSE(dialog.ok);
    const char* const options[] = {"1 - Complex (Re,Im)", "2 - Magnitude", "3 - Phase",
                                   "4 - Real Part", "5 - Imaginary Part"};
    for (Integer i = 0; i < 5; ++i) {
        EXPECT_EQ(dialog.op(i).Name, "op(" + std::to_string(i) + ")");
        EXPECT_EQ(dialog.op(i).Caption.get(), options[i]);
        EXPECT_EQ(dialog.op(i).Value.get(), i == 1);
        EXPECT_EQ(dialog.op(i).FontName.get(), Font::Arial);
        EXPECT_TRUE(dialog.op(i).FontBold);
    }
    const char* const checks[] = {"Integer Values Only", "Shift by NX/2, NY/2",
                                  "Three Column Format"};
    for (Integer i = 0; i < 3; ++i) {
        EXPECT_EQ(dialog.Check1(i).Name, "Check1(" + std::to_string(i) + ")");
        EXPECT_EQ(dialog.Check1(i).Caption.get(), checks[i]);
        EXPECT_EQ(dialog.Check1(i).Value, i < 2 ? 1 : 0);
        EXPECT_EQ(dialog.Check1(i).FontName.get(), Font::Arial);
        EXPECT_FALSE(dialog.Check1(i).FontBold);
    }
    EXPECT_EQ(dialog.OKButton.Caption.get(), "OK");
    EXPECT_EQ(dialog.OKButton.Name, "OKButton");
}

TEST_F(ExportDialogOfTheForm, TakesTheSchemesFirstTwoColoursAtEachOpening) {
    dlgARRAY& dialog = form.exportDialog;
    std::vector<const Control*> painted = {&dialog, &dialog.OKButton};
    for (Integer i = 0; i < 5; ++i)
        painted.push_back(&dialog.op(i));
    for (Integer i = 0; i < 3; ++i)
        painted.push_back(&dialog.Check1(i));
    for (const Integer scheme : {Integer{0}, Integer{4}}) {
        form.itmOpt0(scheme);
        int seen = 0;
        host.onShowModal = [&](dlgARRAY&) {
            for (const Control* control : painted) {
                EXPECT_EQ(control->BackColor(), form.lab.guiColors[0]) << control->Name;
                EXPECT_EQ(control->ForeColor.get(), form.lab.guiColors[1]) << control->Name;
                ++seen;
            }
        };
        dialog.RemoteStart();
        EXPECT_EQ(seen, 10);
    }
}

TEST_F(ExportDialogOfTheForm, IsShownWithOkFalseAndHiddenAtItsEnd) {
    dlgARRAY& dialog = form.exportDialog;
    host.onShowModal = [](dlgARRAY& shown) { shown.Click(shown.OKButton); };
    dialog.RemoteStart();
    EXPECT_TRUE(dialog.ok);
    EXPECT_FALSE(dialog.Visible);
    host.onShowModal = [](dlgARRAY& shown) {
        EXPECT_FALSE(shown.ok);
        EXPECT_TRUE(shown.Visible);
    };
    dialog.RemoteStart();
    EXPECT_FALSE(dialog.ok) << "its close box is no OK";
    EXPECT_FALSE(dialog.Visible);
}

TEST_F(ExportDialogOfTheForm, TellsItsChoicesAtOk) {
    dlgARRAY& dialog = form.exportDialog;
    host.onShowModal = [](dlgARRAY& shown) { shown.Click(shown.OKButton); };
    dialog.RemoteStart();
    EXPECT_EQ(dialog.m, 1);
    EXPECT_EQ(dialog.bi, 1);
    EXPECT_EQ(dialog.bs, 1);
    EXPECT_EQ(dialog.b3, 0);
    for (Integer i = 0; i < 5; ++i) {
        host.onShowModal = [i](dlgARRAY& shown) {
            shown.Click(shown.op(i));
            for (Integer other = 0; other < 5; ++other)
                EXPECT_EQ(shown.op(other).Value.get(), other == i);
            shown.Click(shown.Check1(static_cast<Integer>(i % 3)));
            shown.Click(shown.OKButton);
        };
        dialog.RemoteStart();
        EXPECT_EQ(dialog.m, i);
        EXPECT_EQ(dialog.bi, dialog.Check1(0).Value);
        EXPECT_EQ(dialog.bs, dialog.Check1(1).Value);
        EXPECT_EQ(dialog.b3, dialog.Check1(2).Value);
    }
    // Boxes 0 and 1 were turned over twice, box 2 once.
    EXPECT_EQ(dialog.bi, 1);
    EXPECT_EQ(dialog.bs, 1);
    EXPECT_EQ(dialog.b3, 1);
}

TEST_F(ExportDialogOfTheForm, TakesEnterForOkAndNoOtherKey) {
    dlgARRAY& dialog = form.exportDialog;
    for (const Integer key : {Integer{10}, Integer{32}, Integer{27}, Integer{'o'}}) {
        host.onShowModal = [key](dlgARRAY& shown) {
            shown.KeyPress(key);
            EXPECT_TRUE(shown.Visible);
        };
        dialog.RemoteStart();
        EXPECT_FALSE(dialog.ok) << key;
    }
    host.onShowModal = [](dlgARRAY& shown) {
        shown.Click(shown.op(4));
        shown.KeyPress(13);
        EXPECT_FALSE(shown.Visible);
    };
    dialog.RemoteStart();
    EXPECT_TRUE(dialog.ok);
    EXPECT_EQ(dialog.m, 4);
}

TEST_F(ExportDialogOfTheForm, KeepsItsChoicesFromOneOpeningToTheNext) {
    host.onShowModal = [](dlgARRAY& shown) {
        shown.Click(shown.op(2));
        shown.Click(shown.Check1(2));
        shown.Click(shown.OKButton);
    };
    form.mnuFT1a(17);
    host.onShowModal = [](dlgARRAY& shown) {
        EXPECT_TRUE(shown.op(2).Value);
        EXPECT_EQ(shown.Check1(2).Value, 1);
        shown.Click(shown.op(3));
    };
    form.mnuFT2a(17);
    // The second dialog was closed: what it shows next was chosen, but not taken.
    EXPECT_EQ(form.exportDialog.m, 2);
    host.onShowModal = [](dlgARRAY& shown) { EXPECT_TRUE(shown.op(3).Value); };
    form.mnuFT1a(17);
}

TEST_F(ExportDialogOfTheForm, ExportsTheChannelWhoseMenuAsked) {
    host.onShowModal = [](dlgARRAY& shown) { shown.Click(shown.OKButton); };
    std::string texts[2];
    for (const Channel which : kBoth) {
        desktop.log.clear();
        which == Channel::One ? form.mnuFT1a(17) : form.mnuFT2a(17);
        texts[static_cast<int>(which)] = desktop.clipboard.text.value_or("");
        EXPECT_LT(placeOf("host.showModal(dlgARRAY)"), placeOf("clipboard.clear()"));
        // The zero frequency is the largest number, and in the middle.
        const Long zero = toLong(channel(which).spectrum()(0, 0).re);
        EXPECT_NE(desktop.clipboard.text->find("\t" + std::to_string(zero) + "\t"),
                  std::string::npos);
        EXPECT_EQ(desktop.dialogs.messages.back().title, "FT Export");
    }
    EXPECT_NE(texts[0], texts[1]);
    EXPECT_FALSE(desktop.files.exists("C:\\Temp\\tmp"));
}

TEST_F(ExportDialogOfTheForm, ClosedByItsCloseBoxLeavesTheClipboard) {
    desktop.clipboard.text = "kept";
    form.mnuFT1a(17);
    EXPECT_EQ(desktop.clipboard.text, "kept");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(placeOf("files.writePrivately(C:\\Temp\\tmp)"), desktop.log.size());
}

}  // namespace
}  // namespace quillon
