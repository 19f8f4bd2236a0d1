#include "core/core_arrays.h"

template class TArray<int>;
template class TArray<unsigned long>;
template class TArray<CMath_Vector3>;
template class TArray<CMath_Axis>;

TUserData::TUserData() = default;
TUserData::TUserData(const TUserData& other) = default;
TUserData& TUserData::operator=(const TUserData& other) = default;
TUserData::~TUserData() = default;

void* TUserData::GetUserData(unsigned long index) const
{
    return index == 0 ? data : nullptr;
}

Result TUserData::SetUserData(unsigned long index, void* newdata)
{
    if (index != 0)
        return 0;
    data = newdata;
    return 1;
}
