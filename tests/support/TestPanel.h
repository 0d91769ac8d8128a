#pragma once

#include <string>
#include <vector>

#include "engine/PictureBox.h"
#include "tests/support/TextPicture.h"

namespace quillon {

using Rows = std::vector<std::string>;

/// A borderless black panel that keeps what is drawn, with white ink.
struct TestPanel : PictureBox {
    TestPanel(int width, int height) : PictureBox("pb1", width, height) {
        setAutoRedraw(true);
        setBackColor(kBlack);
        ForeColor = kWhite;
    }
    explicit TestPanel(const Rows& rows)
        : TestPanel(static_cast<int>(rows.front().size()), static_cast<int>(rows.size())) {
        setPicture(pictureOf(rows));
    }
    /// Image, and what is shown, as letters.
    Rows text() const { return textOf(Image()); }
    Rows shownText() const { return textOf(shown()); }
};

}  // namespace quillon
