/// A directed line in space.
#pragma once

#include "core/math_vector3.h"

struct CMath_Axis
{
    CMath_Vector3 Origin;
    CMath_Vector3 Direction; ///< Not necessarily of length 1.
};
