#include "core/math_matrix4x4.h"

#include <cmath>

CMath_Matrix4x4 CMath_Matrix4x4::operator*(const CMath_Matrix4x4& other) const
{
    CMath_Matrix4x4 product;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
        {
            float sum = 0.0F;
            for (int i = 0; i < 4; ++i)
                sum += m[row][i] * other.m[i][column];
            product.m[row][column] = sum;
        }
    return product;
}

CMath_Matrix4x4 MatrixIdentity()
{
    return {};
}

CMath_Matrix4x4 MatrixTranslate(const CMath_Vector3& offset)
{
    CMath_Matrix4x4 matrix;
    matrix.m[3][0] = offset.x;
    matrix.m[3][1] = offset.y;
    matrix.m[3][2] = offset.z;
    return matrix;
}

CMath_Matrix4x4 MatrixAxisRotate(const CMath_Vector3& axis, float angle)
{
    CMath_Matrix4x4 matrix;
    const double length = std::hypot(double{axis.x}, double{axis.y}, double{axis.z});
    if (!(length > 0.0) || !std::isfinite(length) || !std::isfinite(angle))
        return matrix;
    const double unit[3] = {axis.x / length, axis.y / length, axis.z / length};
    const double sine = std::sin(double{angle});
    const double cosine = std::cos(double{angle});

    // The part of a row vector along the axis stays, the part across it turns.
    const double cross[3][3] = {{0, unit[2], -unit[1]}, {-unit[2], 0, unit[0]}, {unit[1], -unit[0], 0}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            matrix.m[row][column] = static_cast<float>((row == column ? cosine : 0.0) + sine * cross[row][column] +
                                                       (1.0 - cosine) * unit[row] * unit[column]);
    return matrix;
}

CMath_Vector3 PushInMatrix(const CMath_Vector3& point, const CMath_Matrix4x4& matrix)
{
    const auto component = [&](int column)
    {
        return point.x * matrix.m[0][column] + point.y * matrix.m[1][column] + point.z * matrix.m[2][column] +
               matrix.m[3][column];
    };
    return {component(0), component(1), component(2)};
}
