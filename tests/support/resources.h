/// Resources that count those alive, and handles that hold them.
#pragma once

#include "core/engine_script.h"
#include "core/memory_manager.h"
#include "core/resource_handle.h"

class CCountedScript : public CEngine_Script
{
  public:
    static inline int live = 0;

    CCountedScript()
    {
        ++live;
    }
    ~CCountedScript() override
    {
        --live;
    }
};

/// Stores a new resource in a handle, as a manager's user does.
template <class X, class TObject> TObject* Store(TResourceHandle<X>& handle, TObject* object)
{
    handle.object = object;
    if (MM != nullptr)
        MM->AddAllocation(object, L"test", sizeof(TObject), 0, 0, L"");
    IncreaseMemoryCount();
    return object;
}

/// Makes a reference hold the handle.
template <class X> void Hold(TResourceHandleR<X>& reference, TResourceHandle<X>& handle)
{
    reference.handle = &handle;
    handle.AddRef();
}
