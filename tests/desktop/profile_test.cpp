#include <gtest/gtest.h>

#include <QTest>
#include <array>
#include <string>

#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

/// Alt pressed, the pointer moved, Alt released: the profile of an FT panel.
class ProfileByAlt : public OpenedWindow {
protected:
    ProfileByAlt() = default;

    void SetUp() override {
        OpenedWindow::SetUp();
        for (Integer id = 1; id <= 6; ++id)
            before[at(id)] = form().lab.panel(id).shown();
    }
    void altDown() {
        QTest::keyPress(window().windowHandle(), Qt::Key_Alt, Qt::AltModifier);
        settle();
    }
    void altUp() {
        QTest::keyRelease(window().windowHandle(), Qt::Key_Alt);
        settle();
    }
    void moveOver(Integer id, int x, int y) {
        PanelWidget& widget = panel(("pb" + std::to_string(id)).c_str());
        move(widget, pixel(widget, x, y), Qt::AltModifier);
    }
    /// The numbers of the panels that show something else than before Alt.
    std::string changed() {
        std::string found;
        for (Integer id = 1; id <= 6; ++id)
            if (form().lab.panel(id).shown() != before[at(id)])
                found += std::to_string(id);
        return found;
    }
    static std::size_t at(Integer id) { return static_cast<std::size_t>(id - 1); }
    std::string readOut() { return form().lbSTB(1).Caption; }

    std::array<Bitmap, 6> before;
};

TEST_F(ProfileByAlt, IsPlottedOverTheFtPanelsAloneAndGoesWithTheKey) {
    const char* const plotted[] = {"", "13", "", "", "46", ""};
    for (Integer id = 1; id <= 6; ++id) {
        SCOPED_TRACE(id);
        altDown();
        EXPECT_EQ(changed(), "") << "the key alone plots nothing";
        moveOver(id, 60, 90);
        moveOver(id, 200, 131);
        EXPECT_TRUE(readOut().starts_with("[200,131]")) << readOut();
        EXPECT_EQ(changed(), plotted[at(id)]);
        // Both lines show over whatever panel; only the pointer's own moves.
        EXPECT_TRUE(form().Line1(0).Visible);
        EXPECT_TRUE(form().Line1(1).Visible);
        EXPECT_EQ(form().Line1(0).Y1, id >= 2 ? 131 : 194);
        EXPECT_EQ(form().Line1(1).Y1, id >= 5 ? 131 : 17);
        altUp();
        EXPECT_EQ(changed(), "");
        EXPECT_FALSE(form().Line1(0).Visible);
        EXPECT_FALSE(form().Line1(1).Visible);
    }
}

TEST_F(ProfileByAlt, IsStoppedByAHeldButton) {
    PanelWidget& widget = panel("pb2");
    press(widget, pixel(widget, 60, 90), Qt::MiddleButton);
    altDown();
    moveOver(2, 61, 95);
    EXPECT_EQ(changed(), "");
    release(widget, pixel(widget, 61, 95), Qt::MiddleButton, Qt::AltModifier);
    moveOver(2, 62, 96);
    EXPECT_EQ(changed(), "13") << "the button is up again";
    altUp();
    EXPECT_EQ(changed(), "");
}

TEST_F(ProfileByAlt, WithAnotherModifierPlotsNothing) {
    PanelWidget& widget = panel("pb5");
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier),
          Qt::AltModifier | Qt::ShiftModifier, Qt::AltModifier | Qt::ControlModifier}) {
        move(widget, pixel(widget, 60, 90), held);
        EXPECT_EQ(changed(), "") << held.toInt();
    }
    EXPECT_FALSE(form().Line1(1).Visible);
}

}  // namespace
}  // namespace quillon
