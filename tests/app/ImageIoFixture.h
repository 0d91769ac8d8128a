#pragma once

#include <string>

#include "app/image_io.h"
#include "engine/Bitmap.h"
#include "tests/support/LabFixture.h"
#include "tests/support/TextPicture.h"

namespace quillon {

inline Bitmap complementOf(Bitmap picture) {
    for (PixelWord& word : picture.words)
        word = 0xFFFFFF - word;
    return picture;
}

/// A lab with a picture file and one that cannot be decoded.
class ImageIo : public LabFixture {
protected:
    ImageIo() {
        desktop.pictures.add(kFile, picture);
        desktop.pictures.addUndecodable(kBroken);
        desktop.log.clear();
    }

    void loadBoth() {
        LoadPanelImage(lab, 1, kFile);
        LoadPanelImage(lab, 4, kFile);
        desktop.log.clear();
    }

    /// Marks all panels of both channels, and gives each channel two masks.
    void markChannels() {
        for (PictureBox* panel : {&pb1, &pb2, &pb3, &pb4, &pb5, &pb6})
            panel->Tag = "marked";
        for (clComplexImage* channel : {&channel1, &channel2}) {
            channel->AddMask(1, 2, 3, 4);
            channel->AddMask(5, 6, 7, 8);
        }
    }

    void expectBufferAtRest() {
        EXPECT_TRUE(img.Picture().empty());
        EXPECT_EQ(img.Width.get(), 15);
        EXPECT_EQ(img.Height.get(), 15);
    }

    const std::string kFile = "C:\\Q\\Images\\cat.jpg";
    const std::string kBroken = "C:\\Q\\Images\\broken.gif";
    const Bitmap picture = randomPicture(640, 480, 7);
};

}  // namespace quillon
