#include "tools/picture_request.h"

#include <gtest/gtest.h>

#include "tests/desktop/OpenedWindow.h"
#include "tools/panel_shots.h"

namespace quillon {
namespace {

TEST(PictureRequests, APictureAloneIsTheWindow) {
    const auto request = parsePictureRequest({"out.png"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->shape, PictureShape::Window);
    EXPECT_EQ(request->target, QStringLiteral("out.png"));
    EXPECT_TRUE(request->script.isEmpty());
}

TEST(PictureRequests, TheRestIsTheScriptWithItsBlanks) {
    EXPECT_EQ(parsePictureRequest({"out.png", "a", "b.ftscr"})->script,
              QStringLiteral("a b.ftscr"));
    EXPECT_EQ(parsePictureRequest({"--panels", "out", "a.ftscr"})->script,
              QStringLiteral("a.ftscr"));
}

TEST(PictureRequests, PanelsAndRowsAreAskedForByName) {
    const auto panels = parsePictureRequest({"--panels", "prefix"});
    EXPECT_EQ(panels->shape, PictureShape::Panels);
    EXPECT_EQ(panels->target, QStringLiteral("prefix"));
    const auto row = parsePictureRequest({"--row", "2", "out.png"});
    EXPECT_EQ(row->shape, PictureShape::Row);
    EXPECT_EQ(row->row, 2);
    EXPECT_EQ(row->target, QStringLiteral("out.png"));
}

TEST(PictureRequests, StepsKeepTheirOrder) {
    const auto request =
        parsePictureRequest({"--intensity", "2:0.5", "--menu", "itmOpt:14", "--drag", "2:1,2,3,4",
                             "--profile", "5:6,7", "out.png"});
    ASSERT_TRUE(request);
    ASSERT_EQ(request->steps.size(), 4U);
    EXPECT_EQ(std::get<IntensityStep>(request->steps[0]).factor, 0.5F);
    EXPECT_EQ(std::get<MenuStep>(request->steps[1]).array, MenuArray::itmOpt);
    EXPECT_EQ(std::get<MenuStep>(request->steps[1]).index, 14);
    EXPECT_EQ(std::get<DragStep>(request->steps[2]).toY, 4.0F);
    EXPECT_EQ(std::get<ProfileStep>(request->steps[3]).panel, 5);
}

TEST(PictureRequests, WhatMakesNoSenseIsRefused) {
    const QList<QStringList> requests = {
        {},
        {"--row", "3", "out.png"},
        {"--row", "1"},
        {"--panels"},
        {"--menu", "itmOpt:17", "out.png"},
        {"--menu", "itmOpt", "out.png"},
        {"--menu", "nothing:1", "out.png"},
        {"--drag", "7:1,2,3,4", "out.png"},
        {"--drag", "1:1,2,3", "out.png"},
        {"--profile", "1:1,2", "out.png"},
        {"--intensity", "3:1", "out.png"},
        {"--intensity", "1:x", "out.png"},
        {"--other", "1", "out.png"},
    };
    for (const QStringList& words : requests)
        EXPECT_FALSE(parsePictureRequest(words)) << words.join(u' ').toStdString();
}

class PanelShots : public OpenedWindow {};

TEST_F(PanelShots, ShowAPanelPixelForPixelWithoutItsBorder) {
    const QImage shot = panelShot(window(), form(), 4);
    const Bitmap& shown = form().pb4.shown();
    ASSERT_EQ(shot.size(), QSize(shown.width, shown.height));
    for (int y = 0; y < shown.height; ++y)
        for (int x = 0; x < shown.width; ++x)
            ASSERT_EQ(shot.pixel(x, y) & 0xFFFFFF, shown.at(x, y)) << x << ", " << y;
}

TEST_F(PanelShots, ShowTheRingAndTheSurroundOfTheFilters) {
    takeStep(form(), MenuStep{MenuArray::mnuFT1a, 11});
    settle();
    EXPECT_EQ(panelShot(window(), form(), 2).pixel(127, 127) & 0xFFFFFF, 0U)
        << "the disc of the high-pass lies over the bright middle";
    takeStep(form(), MenuStep{MenuArray::mnuFT1a, 10});
    takeStep(form(), DragStep{2, 130, 128, 138, 128});
    settle();
    const QImage low = panelShot(window(), form(), 2);
    EXPECT_EQ(low.pixel(127, 150) & 0xFFFFFF, 0U) << "the surround of the low-pass";
    EXPECT_NE(low.pixel(127, 127) & 0xFFFFFF, 0U);
}

TEST_F(PanelShots, ARowHoldsTheThreePanelsWithClearGaps) {
    const QImage row = rowShot(window(), form(), 1);
    EXPECT_EQ(row.size(), QSize(784, 256));
    EXPECT_EQ(qAlpha(row.pixel(260, 100)), 0);
    EXPECT_EQ(qAlpha(row.pixel(255, 100)), 255);
    EXPECT_EQ(row.pixel(264 + 127, 127) & 0xFFFFFF, form().pb2.shown().at(127, 127));
    EXPECT_EQ(row.pixel(528, 0) & 0xFFFFFF, form().pb3.shown().at(0, 0));
}

TEST_F(PanelShots, AnIntensityStepBrightensTheSpectrum) {
    const PixelWord before = form().pb5.shown().at(140, 127);
    takeStep(form(), IntensityStep{2, 3});
    EXPECT_GT(form().pb5.shown().at(140, 127), before);
}

TEST_F(PanelShots, AProfileStepPaintsTheProfileOverTheReconstruction) {
    const Bitmap before = form().pb3.shown();
    takeStep(form(), ProfileStep{2, 128, 128});
    EXPECT_NE(form().pb3.shown().words, before.words);
    EXPECT_TRUE(form().Line1(0).Visible);
}

}  // namespace
}  // namespace quillon
