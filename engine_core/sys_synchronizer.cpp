#include "core/sys_synchronizer.h"

CSys_Synchronizer::CSys_Synchronizer() = default;

Result CSys_Synchronizer::Enter()
{
    while (isinside.test_and_set(std::memory_order_acquire))
        while (isinside.test(std::memory_order_relaxed))
        {
        }
    return 1;
}

Result CSys_Synchronizer::TryEnter()
{
    return isinside.test_and_set(std::memory_order_acquire) ? 0 : 1;
}

Result CSys_Synchronizer::Leave()
{
    isinside.clear(std::memory_order_release);
    return 1;
}
