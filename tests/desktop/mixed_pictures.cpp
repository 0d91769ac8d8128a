#include "tests/desktop/mixed_pictures.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <cstdio>
#include <iterator>

#include "tests/desktop/picture_files.h"

namespace quillon {

namespace {

constexpr const char* kEndings[] = {".bmp", ".gif", ".jpg", ".BMP", ".Gif", ".JPG"};

enum class Damage { None, CutOff, Empty, Text, OtherType };

Damage damageOf(int i) {
    if (i % 9 != 0)
        return Damage::None;
    constexpr Damage kDamages[] = {Damage::CutOff, Damage::Empty, Damage::Text, Damage::OtherType};
    return kDamages[static_cast<std::size_t>(i / 9) % std::size(kDamages)];
}

std::string encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes.toStdString();
}

/// Rings of colours around a point, no two pictures alike.
QImage scene(int i, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int ring = ((x - 7 * i % 90) * (x - 30) + (y - i) * (y - 40)) / (20 + i);
            image.setPixel(x, y, qRgb(ring & 0xFF, (ring + x) & 0xFF, (ring + 3 * y + i) & 0xFF));
        }
    return image;
}

std::string gifScene(int i, int width, int height) {
    std::vector<int> indices;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            indices.push_back((x * (1 + i % 3) + y * y / (5 + i % 7)) / 8 % 4);
    return gif(width, height, {0x102030, 0x506070, 0xA0B0C0 + i % 16, 0xF0E0D0},
               {GifFrame{indices, false}});
}

std::string bytesOf(int i) {
    // Every fifth is as large as a panel, the others are smaller or larger.
    const int width = i % 5 == 1 ? 256 : 1 + 37 * i % 300;
    const int height = i % 5 == 1 ? 256 : 1 + 53 * i % 280;
    const int type = i % 3;
    std::string bytes;
    if (type == 1)
        bytes = gifScene(i, width, height);
    else
        bytes = encoded(scene(i, width, height), type == 0 ? "BMP" : "JPG");
    switch (damageOf(i)) {
        case Damage::None:
            return bytes;
        case Damage::CutOff:
            return bytes.substr(0, bytes.size() / 2);
        case Damage::Empty:
            return "";
        case Damage::Text:
            return "a letter, saved under a picture's name";
        case Damage::OtherType:
            break;
    }
    return encoded(scene(i, width, height), "PNG");
}

std::string nameOf(int i) {
    char name[32];
    std::snprintf(name, sizeof name, "%c%03d%s", i % 2 == 0 ? 'p' : 'P', i,
                  kEndings[static_cast<std::size_t>(i) % std::size(kEndings)]);
    return name;
}

}  // namespace

std::vector<MixedPicture> makeMixedPictures(const TemporaryFolder& folder, int count) {
    std::vector<MixedPicture> pictures;
    for (int i = 0; i < count; ++i)
        pictures.push_back({nameOf(i), damageOf(i) == Damage::None});
    for (int i = count; i-- > 0;)
        folder.write(nameOf(i), bytesOf(i));
    return pictures;
}

}  // namespace quillon
