#include "app/save_name.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quillon {
namespace {

const std::string kBitmaps = "Windows Bitmap (*.bmp)|*.bmp";
const std::string kScripts = "Quillon Script Files (*.ftscr)|*.ftscr";

TEST(NameToSave, TheSuffixOfTheFilterIsAddedWhereNoneWasTyped) {
    EXPECT_EQ(nameToSave("\\home\\ada\\a", kBitmaps, 1), "\\home\\ada\\a.bmp");
    EXPECT_EQ(nameToSave("\\home\\ada\\two slits", kScripts, 1), "\\home\\ada\\two slits.ftscr");
    EXPECT_EQ(nameToSave("a", kBitmaps, 1), "a.bmp");
    EXPECT_EQ(nameToSave("a.", kBitmaps, 1), "a.bmp") << "a point alone is no suffix";
}

TEST(NameToSave, APointInAFoldersNameIsNoSuffix) {
    EXPECT_EQ(nameToSave("\\home\\jo.doe\\a", kBitmaps, 1), "\\home\\jo.doe\\a.bmp");
    EXPECT_EQ(nameToSave("/home/jo.doe/a", kBitmaps, 1), "/home/jo.doe/a.bmp");
}

TEST(NameToSave, ATypedSuffixStays) {
    for (const char* typed : {"a.bmp", "a.BMP", "new.name", "picture.png", "a.ftscr", "a.b.c"})
        EXPECT_EQ(nameToSave(typed, kBitmaps, 1), typed);
    for (const char* typed : {"a.ftscr", "a.txt", "a.jpg"})
        EXPECT_EQ(nameToSave(typed, kScripts, 1), typed);
}

TEST(NameToSave, ABitmapIsNeverNamedAsAPictureOfAnotherKind) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"\\Images\\cat.jpg", "\\Images\\cat.bmp"},
        {"cat.JPG", "cat.bmp"},
        {"cat.Jpeg", "cat.bmp"},
        {"rings.gif", "rings.bmp"},
        {"my.first.jpg", "my.first.bmp"},
    };
    for (const auto& [typed, saved] : names)
        EXPECT_EQ(nameToSave(typed, kBitmaps, 1), saved);
}

TEST(NameToSave, TheFilterChosenDecides) {
    const std::string filter = "First (*.a)|*.a|Second (*.b;*.c)|*.b;*.c|All (*.*)|*.*";
    EXPECT_EQ(nameToSave("x", filter, 1), "x.a");
    EXPECT_EQ(nameToSave("x", filter, 2), "x.b");
    EXPECT_EQ(nameToSave("x", filter, 3), "x") << "all files have no suffix in common";
    EXPECT_EQ(nameToSave("x", filter, 4), "x.a") << "the dialog shows the first";
    EXPECT_EQ(nameToSave("x", filter, -1), "x.a");
    EXPECT_EQ(nameToSave("x", "", 1), "x");
}

TEST(BitmapNameToOffer, HasTheBitmapsSuffixInThePlaceOfItsOwn) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"\\home\\jo.doe\\cat.jpg", "\\home\\jo.doe\\cat.bmp"},
        {"\\home\\jo.doe\\cat", "\\home\\jo.doe\\cat.bmp"},
        {"\\Scripts\\two slits.ftscr", "\\Scripts\\two slits.bmp"},
        {"a.b.png", "a.b.bmp"},
        {"last.bmp", "last.bmp"},
        {"", ""},
    };
    for (const auto& [last, offered] : names)
        EXPECT_EQ(bitmapNameToOffer(last), offered);
}

}  // namespace
}  // namespace quillon
