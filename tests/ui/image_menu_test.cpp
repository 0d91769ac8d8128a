#include <initializer_list>

#include "engine/RunTimeError.h"
#include "engine/stretch.h"
#include "tests/support/CommandFixture.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// The image menus, clicked by index on both channels.
class ImageMenu : public CommandFixture {
protected:
    void click(Channel which, Integer index) {
        form.click(which == Channel::One ? MenuArray::mnuImg1a : MenuArray::mnuImg2a, index);
    }
    MenuItem& entry(Channel which, Integer index) {
        return form.menu(which == Channel::One ? MenuArray::mnuImg1a : MenuArray::mnuImg2a, index);
    }
};

TEST_F(ImageMenu, EveryIndexLetsTheEventLoopRunFirst) {
    for (const Channel which : kBoth)
        for (const Integer index : std::initializer_list<Integer>{-1, 1, 4, 5, 8, 11, 12, 13, 16}) {
            desktop.log.clear();
            click(which, index);
            ASSERT_FALSE(desktop.log.empty());
            EXPECT_EQ(desktop.log.front(), "screen.pendingEvents()") << index;
        }
}

TEST_F(ImageMenu, SeparatorsTheSubMenuAndIndicesBeyondTheLastDoNothing) {
    for (const Channel which : kBoth)
        for (const Integer index :
             std::initializer_list<Integer>{-1, 1, 4, 8, 11, 12, 13, 16, 99}) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(desktop.log, std::vector<std::string>{"screen.pendingEvents()"}) << index;
        }
}

TEST_F(ImageMenu, ReloadImageBringsTheFileBack) {
    for (const Channel which : kBoth) {
        const Bitmap before = image(which).Image();
        image(which).setBackColor(kRed);
        click(which, 0);
        EXPECT_EQ(image(which).Image(), before);
        EXPECT_EQ(transforms(), 3);
        desktop.log.clear();
    }
}

TEST_F(ImageMenu, ReloadWithoutAFileSaysSoInTheStripAndChangesNothing) {
    form.lab.channel2.file.clear();
    const Bitmap before = image(Channel::Two).Image();
    click(Channel::Two, 0);
    EXPECT_EQ(status(2), "no file to reload");
    EXPECT_EQ(image(Channel::Two).Image(), before);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(ImageMenu, LoadImageAsksAndLoadsIntoItsOwnChannel) {
    const Bitmap picture = randomPicture(100, 50, 3);
    desktop.pictures.add("C:\\new.bmp", picture);
    for (const Channel which : kBoth) {
        desktop.dialogs.answerOpen("C:\\new.bmp");
        click(which, 2);
        EXPECT_EQ(channel(which).file, "C:\\new.bmp");
        EXPECT_EQ(image(which).Image(), stretched(picture, 256, 256));
    }
    EXPECT_EQ(desktop.dialogs.opens.size(), 2U);
}

TEST_F(ImageMenu, NewImageEmptiesItsOwnChannel) {
    for (const Channel which : kBoth) {
        click(which, 3);
        EXPECT_EQ(image(which).Image(), Bitmap(256, 256));
        EXPECT_EQ(spectrum(which).Image(), Bitmap(256, 256, toPixelWord(form.lab.guiColors[1])));
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(ImageMenu, NewImageInTheDarkTakesTheDimmedForeground) {
    form.Tag = "DIM";
    click(Channel::One, 3);
    EXPECT_EQ(form.pb2.Image(), Bitmap(256, 256, toPixelWord(form.lab.guiColors[4])));
    EXPECT_NE(form.lab.guiColors[4], form.lab.guiColors[1]);
}

TEST_F(ImageMenu, CopySaveAndPasteWorkOnItsOwnPanel) {
    const Bitmap pasted = randomPicture(40, 40, 5);
    for (const Channel which : kBoth) {
        click(which, 5);
        EXPECT_EQ(desktop.clipboard.content, image(which).Image());
        desktop.dialogs.answerSave("C:\\saved.bmp");
        click(which, 6);
        EXPECT_EQ(desktop.pictures.saved.back().second, image(which).Image());
        desktop.clipboard.content = pasted;
        click(which, 7);
        EXPECT_EQ(channel(which).file, "C:\\Temp\\clipboard.bmp");
        EXPECT_EQ(image(which).Image(), stretched(pasted, 256, 256));
    }
}

TEST_F(ImageMenu, InvertImageKeepsMarkAndFlagInStep) {
    for (const Channel which : kBoth) {
        const Bitmap before = image(which).Image();
        click(which, 9);
        EXPECT_TRUE(entry(which, 9).Checked);
        EXPECT_TRUE(channel(which).GetInvert(0));
        EXPECT_EQ(image(which).Image().at(3, 3), 0xFFFFFF - before.at(3, 3));
        click(which, 9);
        EXPECT_FALSE(entry(which, 9).Checked);
        EXPECT_FALSE(channel(which).GetInvert(0));
        EXPECT_EQ(image(which).Image(), before);
    }
}

TEST_F(ImageMenu, TheHistogramBoxMovesOntoTheFrameThatWasAsked) {
    struct Asked {
        MenuArray array;
        Integer index;
        Integer panel;
    };
    for (const Asked& asked : {Asked{MenuArray::mnuImg1a, 10, 1}, Asked{MenuArray::mnuFT1a, 7, 2},
                               Asked{MenuArray::mnuNew1a, 7, 3}, Asked{MenuArray::mnuImg2a, 10, 4},
                               Asked{MenuArray::mnuFT2a, 7, 5}, Asked{MenuArray::mnuNew2a, 7, 6}}) {
        form.click(asked.array, asked.index);
        EXPECT_EQ(form.pbh.Left, form.frame(asked.panel).Left + 120) << asked.panel;
        EXPECT_EQ(form.pbh.Top, form.frame(asked.panel).Top + 240) << asked.panel;
        EXPECT_EQ(form.pbh.Width, 3855);
        EXPECT_EQ(form.pbh.Height, 1740);
    }
}

}  // namespace
}  // namespace quillon
