#include "engine/ExchangeArray.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"

namespace quillon {
namespace {

TEST(ExchangeArray, IsZeroAtFirstFromTheFirstIndexToTheBoundsThemselves) {
    const ExchangeArray p(3, 2);
    for (Long u = 0; u <= 3; ++u)
        for (Long v = 0; v <= 2; ++v)
            for (Long k = 0; k <= 1; ++k)
                EXPECT_EQ(p(u, v, k), 0.0F) << u << ", " << v << ", " << k;
}

TEST(ExchangeArray, KeepsEveryElementApart) {
    ExchangeArray p(3, 2);
    const auto value = [](Long u, Long v, Long k) {
        return static_cast<Single>(100 * u + 10 * v + k + 1);
    };
    for (Long u = 0; u <= 3; ++u)
        for (Long v = 0; v <= 2; ++v)
            for (Long k = 0; k <= 1; ++k)
                p(u, v, k) = value(u, v, k);
    for (Long u = 0; u <= 3; ++u)
        for (Long v = 0; v <= 2; ++v)
            for (Long k = 0; k <= 1; ++k)
                EXPECT_EQ(p(u, v, k), value(u, v, k));
}

TEST(ExchangeArray, HasNoElementOutsideItsBounds) {
    ExchangeArray p(3, 2);
    struct Place {
        Long u, v, k;
    };
    for (const Place& at : {Place{4, 0, 0},
                            {0, 3, 0},
                            {0, 0, 2},
                            {-1, 0, 0},
                            {0, -1, 0},
                            {0, 0, -1},
                            {3, 3, 1},
                            {4, 2, 1}}) {
        EXPECT_EQ(errorOf([&] { p(at.u, at.v, at.k) = 1; }), ErrorNumber::SubscriptOutOfRange);
        const ExchangeArray& read = p;
        EXPECT_EQ(errorOf([&] { static_cast<void>(read(at.u, at.v, at.k)); }),
                  ErrorNumber::SubscriptOutOfRange);
    }
}

}  // namespace
}  // namespace quillon
