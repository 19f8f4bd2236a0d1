/// The profiler, as far as trees hold parts of it.
#pragma once

#include "core/core_base.h"

class CSys_ProfilerSystem
{
  public:
    /// What was measured of one piece of code. Plain data that is never saved: in the text of a tree of
    /// measurements stand their names alone.
    struct SProfileInfo
    {
        std::uint64_t calls = 0;
        double total = 0.0;   ///< Seconds in all calls together, those made from inside included.
        double longest = 0.0; ///< Seconds in the longest one.
    };
};
