#include "engine/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "engine/RunTimeError.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

TEST(Numbers, TiesRoundToTheEvenNeighbour) {
    EXPECT_EQ(toInteger(0.5), 0);
    EXPECT_EQ(toInteger(1.5), 2);
    EXPECT_EQ(toInteger(2.5), 2);
    EXPECT_EQ(toInteger(-2.5), -2);
    EXPECT_EQ(toLong(-3.5), -4);
    EXPECT_EQ(toLong(126.5), 126);
    EXPECT_EQ(toLong(127.5), 128);
}

TEST(Numbers, AnIntegerOverflowsBeyondSixteenBits) {
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);
    EXPECT_EQ(errorOf([] { toInteger(32767.5); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorOf([] { toInteger(-32769); }), ErrorNumber::Overflow);
}

TEST(Numbers, ALongOverflowsBeyondThirtyTwoBits) {
    EXPECT_EQ(toLong(2147483647.0), 2147483647);
    EXPECT_EQ(errorOf([] { toLong(2147483648.0); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorOf([] { toLong(std::numeric_limits<double>::quiet_NaN()); }),
              ErrorNumber::Overflow);
}

TEST(Numbers, ADivisionByZeroIsErrorEleven) {
    EXPECT_EQ(divideSingle(1, 4), 0.25F);
    EXPECT_EQ(errorOf([] { divideSingle(1, 0); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(errorOf([] { divideSingle(0, 0); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(errorOf([] { divideSingle(1e30, 1e-30); }), ErrorNumber::Overflow);
    EXPECT_EQ(static_cast<int>(ErrorNumber::DivisionByZero), 11);
}

}  // namespace
}  // namespace quillon
