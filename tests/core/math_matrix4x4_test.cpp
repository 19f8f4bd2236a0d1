#include "core/math_matrix4x4.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr float QuarterTurn = 1.57079633F;
constexpr float ThirdOfATurn = 2.09439510F;
} // namespace

TEST(Matrix4x4, RotationIsRightHandedAboutAnAxisOfAnyLength)
{
    const CMath_Matrix4x4 aboutz = MatrixAxisRotate({0, 0, 5}, QuarterTurn);
    EXPECT_THAT(PushInMatrix({1, 0, 2}, aboutz), IsNear(CMath_Vector3(0, 1, 2), 1e-6F));
    // A third of a turn about the diagonal carries x to y, y to z and z to x.
    const CMath_Matrix4x4 diagonal = MatrixAxisRotate({1, 1, 1}, ThirdOfATurn);
    EXPECT_THAT(PushInMatrix({1, 2, 3}, diagonal), IsNear(CMath_Vector3(3, 1, 2), 1e-6F));
}

TEST(Matrix4x4, LeftOperandActsFirst)
{
    const CMath_Matrix4x4 move = MatrixTranslate({10, 0, 0});
    const CMath_Matrix4x4 turn = MatrixAxisRotate({0, 0, 1}, QuarterTurn);
    EXPECT_EQ(move.m[3][0], 10.0F);
    EXPECT_THAT(PushInMatrix({1, 0, 0}, move * turn), IsNear(CMath_Vector3(0, 11, 0), 1e-5F));
    EXPECT_THAT(PushInMatrix({1, 0, 0}, turn * move), IsNear(CMath_Vector3(10, 1, 0), 1e-5F));
    EXPECT_THAT(PushInMatrix({1, 2, 3}, MatrixIdentity()), IsNear(CMath_Vector3(1, 2, 3), 0.0F));
}

TEST(Matrix4x4, AxisOrAngleWithoutMeaningTurnsNothing)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float inf = std::numeric_limits<float>::infinity();
    for (const CMath_Matrix4x4& matrix : {MatrixAxisRotate({0, 0, 0}, 1), MatrixAxisRotate({nan, 0, 1}, 1),
                                          MatrixAxisRotate({inf, 0, 0}, 1), MatrixAxisRotate({0, 0, 1}, nan)})
        EXPECT_THAT(PushInMatrix({1, 2, 3}, matrix), IsNear(CMath_Vector3(1, 2, 3), 0.0F));
}
