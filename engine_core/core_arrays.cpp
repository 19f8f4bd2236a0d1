#include "core/core_arrays.h"

template class TArray<int>;
template class TArray<unsigned long>;
template class TArray<CMath_Vector3>;
template class TArray<CMath_Axis>;
