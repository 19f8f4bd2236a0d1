#include "core/core_arrays.h"

#include <gtest/gtest.h>

TEST(TArray, FirstAddObtainsAStep)
{
    TArray<int> array;
    EXPECT_NE(array.Add(), nullptr);
    EXPECT_EQ(array.Capacity, 128U);
}
