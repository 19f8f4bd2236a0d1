#include "engine_core/file_access.h"

#include "core/characters.h"

#include <cerrno>
#include <cstring>
#include <cwchar>
#include <new>
#include <string>

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

#if defined(_WIN32)

std::FILE* OpenFileByName(const wchar_t* name, const char* mode)
try
{
    return _wfopen(name, std::wstring(mode, mode + std::strlen(mode)).c_str());
}
catch (const std::bad_alloc&)
{
    errno = ENOMEM;
    return nullptr;
}

std::FILE* OpenFileByName(const char* name, const char* mode)
try
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(name);
    const std::size_t size = std::strlen(name);
    std::wstring wide;
    for (std::size_t i = 0; i < size;)
    {
        wchar_t units[2];
        const SCharacter character = DecodeUtf8(bytes + i, size - i);
        wide.append(units, EncodeWide(character.code, units));
        i += character.size;
    }
    return OpenFileByName(wide.c_str(), mode);
}
catch (const std::bad_alloc&)
{
    errno = ENOMEM;
    return nullptr;
}

unsigned long long GetRemainingSize(std::FILE* file)
{
    const long long now = _ftelli64(file);
    if (now < 0 || _fseeki64(file, 0, SEEK_END) != 0)
        return 0;
    const long long end = _ftelli64(file);
    _fseeki64(file, now, SEEK_SET);
    return end > now ? static_cast<unsigned long long>(end - now) : 0;
}

std::size_t ReadFileAt(std::FILE* file, std::size_t position, void* to, std::size_t count)
{
    return _fseeki64(file, static_cast<long long>(position), SEEK_SET) == 0 ? std::fread(to, 1, count, file) : 0;
}

#else

std::FILE* OpenFileByName(const char* name, const char* mode)
{
    return std::fopen(name, mode);
}

std::FILE* OpenFileByName(const wchar_t* name, const char* mode)
try
{
    const std::size_t length = std::wcslen(name);
    std::string bytes;
    for (std::size_t i = 0; i < length;)
    {
        char utf8[4];
        const SCharacter character = DecodeWide(name + i, length - i);
        bytes.append(utf8, EncodeUtf8(character.code, utf8));
        i += character.size;
    }
    return OpenFileByName(bytes.c_str(), mode);
}
catch (const std::bad_alloc&)
{
    errno = ENOMEM;
    return nullptr;
}

unsigned long long GetRemainingSize(std::FILE* file)
{
    struct stat status;
    if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return static_cast<unsigned long long>(status.st_size);
}

std::size_t ReadFileAt(std::FILE* file, std::size_t position, void* to, std::size_t count)
{
    return fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0 ? std::fread(to, 1, count, file) : 0;
}

#endif
