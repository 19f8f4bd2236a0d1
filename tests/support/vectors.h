/// Vectors in tests: printed readably, compared with a tolerance.
#pragma once

#include "core/math_vector3.h"

#include <gmock/gmock.h>

#include <ostream>

inline void PrintTo(const CMath_Vector3& vector, std::ostream* out)
{
    *out << '(' << vector.x << ' ' << vector.y << ' ' << vector.z << ')';
}

MATCHER_P2(IsNear, expected, tolerance, "")
{
    const auto near = [this](float one, float other) { return one - other <= tolerance && other - one <= tolerance; };
    return near(arg.x, expected.x) && near(arg.y, expected.y) && near(arg.z, expected.z);
}
