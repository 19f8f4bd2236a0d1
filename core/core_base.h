/// What every header of the asset tools stands on: the result type and the export macros.
#pragma once

#include <cstddef>
#include <cstdint>

/// The result of an operation: 1 is success, 0 is failure.
using Result = int;

// One macro per shared library. The build defines ENGINE_CORE_BUILD and ASSET_TOOLS_BUILD while it
// compiles that library, ASSET_TOOLS_STATIC where both are linked in statically. On Linux everything
// else is hidden, so that a name forgotten here is missed there as early as on Windows.
#if defined(ASSET_TOOLS_STATIC)
#define ASSET_TOOLS_EXPORT
#define ASSET_TOOLS_IMPORT
#elif defined(_WIN32)
#define ASSET_TOOLS_EXPORT __declspec(dllexport)
#define ASSET_TOOLS_IMPORT __declspec(dllimport)
#else
#define ASSET_TOOLS_EXPORT __attribute__((visibility("default")))
#define ASSET_TOOLS_IMPORT __attribute__((visibility("default")))
#endif

#if defined(ENGINE_CORE_BUILD)
#define ENGINE_CORE_API ASSET_TOOLS_EXPORT
#else
#define ENGINE_CORE_API ASSET_TOOLS_IMPORT
#endif

#if defined(ASSET_TOOLS_BUILD)
#define ASSET_TOOLS_API ASSET_TOOLS_EXPORT
#else
#define ASSET_TOOLS_API ASSET_TOOLS_IMPORT
#endif
