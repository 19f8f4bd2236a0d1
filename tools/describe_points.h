/// What the adapters' descriptions of meshes have in common.
#pragma once

#include "core/core_arrays.h"

#include <algorithm>
#include <cmath>
#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const CMath_Vector3& vector)
{
    return out << '(' << vector.x << ' ' << vector.y << ' ' << vector.z << ')';
}

inline bool IsFinite(const CMath_Vector3& vector)
{
    return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

/// Whether an index as a file has it names one of so many elements.
inline bool IsInside(std::int32_t index, unsigned long count)
{
    return index >= 0 && static_cast<unsigned long>(index) < count;
}

/// ", bounds (-1 -1 0) to (1 1 0)"; nothing without points.
inline void PrintBounds(std::ostream& out, const TArray<CMath_Vector3>& points)
{
    if (points.GetNumItems() == 0)
        return;
    CMath_Vector3 least = *points[0];
    CMath_Vector3 most = least;
    for (const CMath_Vector3& point : points)
    {
        least = {std::min(least.x, point.x), std::min(least.y, point.y), std::min(least.z, point.z)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y), std::max(most.z, point.z)};
    }
    out << ", bounds " << least << " to " << most;
}
