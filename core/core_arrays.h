/// Arrays of plain and of mathematical types, instantiated once in the engine core.
#pragma once

#include "core/core_templates.h"
#include "core/math_axis.h"
#include "core/math_vector3.h"

extern template class ENGINE_CORE_API TArray<int>;
extern template class ENGINE_CORE_API TArray<unsigned long>;
extern template class ENGINE_CORE_API TArray<CMath_Vector3>;
extern template class ENGINE_CORE_API TArray<CMath_Axis>;
