/// Points, directions and everything else of three numbers.
#pragma once

struct CMath_Vector3
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    CMath_Vector3() = default;

    CMath_Vector3(float newx, float newy, float newz) : x(newx), y(newy), z(newz)
    {
    }

    CMath_Vector3 operator*(float factor) const
    {
        return {x * factor, y * factor, z * factor};
    }

    CMath_Vector3 operator-() const
    {
        return {-x, -y, -z};
    }

    /// Equal when all three components are, without tolerance; not-a-number equals nothing.
    bool operator==(const CMath_Vector3& other) const
    {
        return x == other.x && y == other.y && z == other.z;
    }
};
