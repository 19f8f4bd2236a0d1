/// A lock for short pieces of work.
#pragma once

#include "core/core_base.h"

#include <atomic>

/// Lets one thread in at a time. Waiting threads spin, so nothing lengthy belongs inside; a thread that is
/// inside must not enter again. Not for copying.
class ENGINE_CORE_API CSys_Synchronizer
{
  public:
    CSys_Synchronizer();
    CSys_Synchronizer(const CSys_Synchronizer&) = delete;
    CSys_Synchronizer& operator=(const CSys_Synchronizer&) = delete;

    /// Waits until nobody is inside and enters. Returns 1.
    Result Enter();

    /// Enters when nobody is inside; else returns 0.
    Result TryEnter();

    /// Lets the next one in. Returns 1.
    Result Leave();

  private:
    std::atomic_flag isinside;
};
