#include <gtest/gtest.h>

#include "tests/support/transform_checks.h"

namespace quillon {
namespace {

/// Seed 0 is the scene, any other noise of that seed.
class TransformAgainstDoubles : public testing::TestWithParam<std::uint32_t> {
protected:
    TransformAgainstDoubles() {
        lab.show(GetParam() == 0 ? scene : noise(GetParam()));
        lab.channel.CalculateAll();
    }

    ChannelUnderTest lab;
    testing::ScopedTrace trace{__FILE__, __LINE__, testing::Message() << "seed " << GetParam()};
};

TEST_P(TransformAgainstDoubles, ForwardIsTheSumWithThePositiveSignUpToRounding) {
    expectForwardLikeDoubles(lab);
}

TEST_P(TransformAgainstDoubles, InverseIsTheSumWithTheNegativeSignOverTheNumberOfCells) {
    expectInverseLikeDoubles(lab);
}

TEST_P(TransformAgainstDoubles, WithoutAFilterTheReconstructionIsTheImageUpToRounding) {
    expectImageComesBack(lab);
}

INSTANTIATE_TEST_SUITE_P(Pictures, TransformAgainstDoubles, testing::Values(0U, 1U, 20240607U));

}  // namespace
}  // namespace quillon
