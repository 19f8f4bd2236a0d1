/// Opening files by name, alike on every platform.
#pragma once

#include <cstdio>

/// Opens a file as std::fopen does; the narrow name is UTF-8 on Windows and the system's bytes elsewhere.
/// Null when that fails; errno says why.
std::FILE* OpenFileByName(const char* name, const char* mode);
std::FILE* OpenFileByName(const wchar_t* name, const char* mode);

/// Bytes from the file's position to its end, as far as the system knows; 0 where it does not.
unsigned long long GetRemainingSize(std::FILE* file);

/// Reads up to `count` bytes from a place in the file; returns how many there were.
std::size_t ReadFileAt(std::FILE* file, std::size_t position, void* to, std::size_t count);
