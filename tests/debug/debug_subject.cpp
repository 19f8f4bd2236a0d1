/// Stops with one of everything that the debugger's printers show.
#include "core/core_arrays.h"
#include "core/resource_handle.h"
#include "core/sys_string.h"

struct SResource
{
    int number = 7;
};

extern "C" [[gnu::noinline]] void Stop(const void*)
{
}

int main()
{
    TArray<int> numbers;
    for (int i = 1; i <= 3; ++i)
        *numbers.Add() = i * 10;
    const TArray<CMath_Vector3> nopoints;
    TPArray<CSys_String> texts;
    *texts.Add() = L"first";
    *texts.Add() = L"K\u00E4se";
    const CSys_String notext;

    TResourceHandle<SResource> handle;
    handle.object = new SResource;
    IncreaseMemoryCount();
    TResourceHandleR<SResource> holder;
    holder.handle = &handle;
    handle.AddRef();
    const TResourceHandle<SResource> nohandle;
    const TResourceHandleR<SResource> noholder;

    const void* const subjects[] = {&numbers, &nopoints, &texts, &notext, &handle, &holder, &nohandle, &noholder};
    Stop(subjects);
    return 0;
}
