#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <string>

#include "desktop/Conversions.h"
#include "desktop/QtEnvironment.h"
#include "desktop/QtPictures.h"
#include "tests/support/transform_checks.h"

namespace quillon {
namespace {

class SamplePicture : public testing::TestWithParam<const char*> {};

TEST_P(SamplePicture, GoesThereAndBackLikeInDoubles) {
    ChannelUnderTest lab;
    const QDir folder(toNativePath(QtEnvironment().programFolder()));
    QFile file(folder.filePath(QStringLiteral("Images/") + QString::fromLatin1(GetParam())));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << GetParam();
    lab.desktop.files.addFile("C:\\sample.jpg", file.readAll().toStdString());
    const Bitmap picture = QtPictures(lab.desktop.files).load("C:\\sample.jpg");
    ASSERT_EQ(picture.width, 256);
    ASSERT_EQ(picture.height, 256);
    for (const PixelWord word : picture.words)
        ASSERT_EQ(word, (word & 0xFF) * 0x010101) << "the samples are grey";
    lab.pb1.setPicture(picture);
    lab.channel.CalculateAll();
    expectForwardLikeDoubles(lab);
    expectInverseLikeDoubles(lab);
    expectImageComesBack(lab);
}

INSTANTIATE_TEST_SUITE_P(Both, SamplePicture,
                         testing::Values("Halvard-Image1.jpg", "Halvard-Image2.jpg"));

}  // namespace
}  // namespace quillon
