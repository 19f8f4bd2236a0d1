/// Numbers of long lists, written without a look at a format; for use inside the engine core.
#pragma once

#include <cstdint>

/// Write the number as "%f" or "%d" at `to`, which has room for NumberCapacity, and return the end.
char* WriteNumber(char* to, float number);
char* WriteNumber(char* to, std::int32_t number);
