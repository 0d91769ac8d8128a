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

}  // namespace
}  // namespace quillon
