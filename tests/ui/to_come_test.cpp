#include <string>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

using enum MenuArray;

struct ToCome {
    MenuArray array;
    Integer index;
    const char* text;
};

/// Entries whose subject has not arrived. A line goes when its subject comes.
const ToCome kToCome[] = {
    {itm10, 0, "Help is not there yet"},
    {itm10a, 0, "Links is not there yet"},
};

TEST_F(CommandFixture, ACommandWhoseSubjectHasNotArrivedSaysSo) {
    for (const ToCome& entry : kToCome) {
        form.ShowStatus(2, "");
        form.click(entry.array, entry.index);
        EXPECT_EQ(status(2), entry.text);
    }
}

TEST_F(CommandFixture, TheLKeyTurnsTheLightOffOnlyOutsideTheTutorial) {
    for (const Integer key : {Integer{'l'}, Integer{'L'}}) {
        for (const Integer view : {Integer{0}, Integer{1}}) {
            form.ShowStatus(2, "");
            form.lab.viewTab = view;
            form.KeyPress(key);
            EXPECT_EQ(status(2), "Light Off is not there yet") << view;
        }
        form.ShowStatus(2, "");
        form.lab.viewTab = 2;
        form.KeyPress(key);
        EXPECT_EQ(status(2), "") << "in the tutorial it is a letter";
    }
}

}  // namespace
}  // namespace quillon
