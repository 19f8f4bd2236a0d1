/// Reference-counted handles of engine resources, and the references that hold them.
///
/// A resource manager keeps each resource behind a handle, which owns it; whoever must keep the resource
/// alive holds the handle through a holding reference. Counts are not atomic: handles that several
/// threads share need a lock of their callers. The managers name both templates as their own:
/// TResourceManager<X>::THandle<X> is TResourceHandle<X>, TResourceManager<X>::THandleR<X> is
/// TResourceHandleR<X>.
#pragma once

#include "core/file_io_object.h"
#include "core/memory_manager.h"

#include <utility>

/// A named place for one resource, which it owns, with the number of those that hold it.
///
/// Owns: `object`, made with `new`; whoever stores it here announces it to the registry MM and counts it
///       (IncreaseMemoryCount). Destroying the handle destroys the resource, whatever the count says.
///       Handles cannot be copied, since two of them would own one resource.
/// Load and Save do nothing and return 1: the text of a tree of handles holds their names only.
template <class X> class TResourceHandle : public CFile_IOObject
{
  public:
    X* object = nullptr;           ///< Null while the handle is empty.
    std::uint32_t refCount = 0;    ///< Holders: AddRef and holding references.
    std::uint32_t handleData = 0;  ///< For the manager's own use.
    std::uint64_t handleExtra = 0; ///< For the manager's own use.

    TResourceHandle();
    TResourceHandle(const TResourceHandle&) = delete;
    TResourceHandle& operator=(const TResourceHandle&) = delete;

    ~TResourceHandle() override
    {
        Destroy();
    }

    Result Load(CFile_Parser*, CFile_IOCallback*) override
    {
        return 1;
    }

    Result Save(CFile_Saver*) override
    {
        return 1;
    }

    /// Counts one holder more. Returns 1.
    Result AddRef()
    {
        ++refCount;
        return 1;
    }

    /// Counts one holder less; the last one destroys the resource. Returns 0, nothing changed, when nobody
    /// holds the handle.
    Result Release()
    {
        if (refCount == 0)
            return 0;
        if (--refCount == 0)
            Destroy();
        return 1;
    }

    /// Destroys the resource, if there is one, and leaves the handle empty with no holders. Returns 1.
    Result Destroy()
    {
        // The resource may itself hold this handle, so it is let go before it is destroyed.
        if (X* const owned = std::exchange(object, nullptr))
        {
            if (MM != nullptr)
                MM->RemoveAllocation(owned);
            delete owned;
            DecreaseMemoryCount();
        }
        refCount = 0;
        return 1;
    }
};

/// One holder of a handle: while it refers to a handle, that handle's count includes it.
///
/// The handle is not owned and must outlive the reference. Storing a handle in `handle` directly does not
/// count it; the caller does, with AddRef. Copies count themselves.
template <class X> class TResourceHandleR
{
  public:
    TResourceHandle<X>* handle = nullptr;         ///< The handle held, or null.
    TResourceHandle<X>* previousHandle = nullptr; ///< The one let go last; perhaps destroyed since.

    TResourceHandleR();

    TResourceHandleR(const TResourceHandleR& other) : handle(other.handle), previousHandle(other.previousHandle)
    {
        if (handle != nullptr)
            ++handle->refCount;
    }

    /// Lets go of the handle held, as Destroy does, and holds the other's.
    // cppcheck-suppress operatorEqVarError ; Hold assigns both
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp): Hold counts before it lets go
    TResourceHandleR& operator=(const TResourceHandleR& other)
    {
        Hold(other.handle);
        return *this;
    }

    ~TResourceHandleR()
    {
        Destroy();
    }

    /// Lets go of the handle, which destroys its resource when nobody else holds it. Returns 1.
    Result Destroy()
    {
        Hold(nullptr);
        return 1;
    }

  private:
    // The new handle is counted first, since it may be the one let go. The reference may live in the
    // resource that goes with that one, so nothing of it is touched after the release.
    void Hold(TResourceHandle<X>* newhandle)
    {
        if (newhandle != nullptr)
            newhandle->AddRef();
        if (TResourceHandle<X>* const released = std::exchange(handle, newhandle))
        {
            previousHandle = released;
            released->Release();
        }
    }
};

// Not in the classes, where an instance would not export them.
template <class X> TResourceHandle<X>::TResourceHandle() = default;
template <class X> TResourceHandleR<X>::TResourceHandleR() = default;
