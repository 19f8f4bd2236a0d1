/// The 4 by 4 transform.
#pragma once

#include "core/core_base.h"
#include "core/math_vector3.h"

/// Four rows of four. Points are row vectors: a point stands left of the matrix, row 3 holds the
/// translation, and in a product the left operand acts first. The identity at first.
struct CMath_Matrix4x4
{
    float m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    /// The transform that does this one first, then the other.
    ENGINE_CORE_API CMath_Matrix4x4 operator*(const CMath_Matrix4x4& other) const;
};

ENGINE_CORE_API CMath_Matrix4x4 MatrixIdentity();

/// Moves by the vector.
ENGINE_CORE_API CMath_Matrix4x4 MatrixTranslate(const CMath_Vector3& offset);

/// Turns about the axis, of any length but 0, by the angle in radians, counter-clockwise for one who looks
/// against the axis (right-handed). An axis of no length, or one that is not finite, gives the identity.
ENGINE_CORE_API CMath_Matrix4x4 MatrixAxisRotate(const CMath_Vector3& axis, float angle);

/// The point after the transform.
ENGINE_CORE_API CMath_Vector3 PushInMatrix(const CMath_Vector3& point, const CMath_Matrix4x4& matrix);
