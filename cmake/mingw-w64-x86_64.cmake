# Builds for 64-bit Windows with MinGW-w64, and runs what it built under Wine.
#
# Everything is linked statically but the libraries of this project, so that they need no other DLL than
# the system's. The threads are POSIX ones: the other flavour of the compiler has no std::thread.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${CMAKE_EXE_LINKER_FLAGS_INIT}")

# Header-only packages are the same for every system. Only their own folders are let in: the rest of
# /usr/include belongs to the C library of the machine that builds.
set(portable_packages ${CMAKE_BINARY_DIR}/portable_packages)
foreach(package CLI rapidjson)
  if(EXISTS /usr/include/${package})
    file(MAKE_DIRECTORY ${portable_packages}/include)
    file(CREATE_LINK /usr/include/${package} ${portable_packages}/include/${package} SYMBOLIC)
  endif()
endforeach()

list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${portable_packages})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Wine keeps its Windows folder in the build folder and never opens a window or asks for its add-ons.
set(ASSET_TOOLS_WINE_PREFIX ${CMAKE_BINARY_DIR}/wine CACHE PATH "Wine's Windows folder")
find_program(ASSET_TOOLS_WINE NAMES wine64 wine PATHS /usr/lib/wine)
if(ASSET_TOOLS_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR
    env -u DISPLAY WINEPREFIX=${ASSET_TOOLS_WINE_PREFIX} WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
    ${ASSET_TOOLS_WINE})
endif()
