#include "tools/output.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#if defined(_WIN32)
#include <io.h>
#include <process.h>
#else
#include <unistd.h>
#endif

namespace
{
constexpr std::size_t FlushSize = std::size_t{256} * 1024;

std::FILE* OpenForWriting(const std::filesystem::path& path)
{
#if defined(_WIN32)
    return _wfopen(path.c_str(), L"wb");
#else
    return std::fopen(path.c_str(), "wb");
#endif
}

// The same calls under the names of each platform.
#if defined(_WIN32)
int OpenNull()
{
    return _open("NUL", _O_WRONLY);
}
int Duplicate(int descriptor)
{
    return _dup(descriptor);
}
void Replace(int descriptor, int by)
{
    _dup2(by, descriptor);
    _close(by);
}
int GetStandardOutput()
{
    return _fileno(stdout);
}
#else
int OpenNull()
{
    return open("/dev/null", O_WRONLY);
}
int Duplicate(int descriptor)
{
    return dup(descriptor);
}
void Replace(int descriptor, int by)
{
    dup2(by, descriptor);
    close(by);
}
int GetStandardOutput()
{
    return fileno(stdout);
}
#endif

int GetProcessNumber()
{
#if defined(_WIN32)
    return _getpid();
#else
    return getpid();
#endif
}

/// The unfinished file, for the one moment when the process is told to stop.
std::filesystem::path::value_type unfinished[4096];

extern "C" void RemoveUnfinished(int signal)
{
#if defined(_WIN32)
    _wunlink(unfinished);
#else
    unlink(unfinished);
#endif
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void SetUnfinished(const std::filesystem::path& path)
{
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, SIG_DFL);
    const auto& name = path.native();
    if (name.empty() || name.size() >= std::size(unfinished))
        return;
    *std::copy(name.begin(), name.end(), unfinished) = 0;
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, RemoveUnfinished);
}

[[noreturn]] void Fail(const std::filesystem::path& path, int error)
{
    throw CToolError("cannot write " + GetDisplayName(path) + ": " + std::generic_category().message(error));
}
} // namespace

std::string GetDisplayName(const std::filesystem::path& path)
{
    if (path.empty())
        return "standard output";
    const std::u8string name = path.u8string();
    std::string shown(1, '\'');
    shown.append(name.begin(), name.end());
    return shown.append(1, '\'');
}

COutput::COutput(const std::filesystem::path& newpath) : path(newpath)
{
    if (path.empty())
    {
        file = stdout;
        return;
    }
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(path, ignored);
    std::filesystem::path target = path;
    if (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status))
    {
        // A link stays a link: the file it leads to is replaced.
        const std::filesystem::path real = std::filesystem::weakly_canonical(path, ignored);
        if (!ignored && !real.empty())
            path = real;
        temporary = path;
        temporary += ".part" + std::to_string(GetProcessNumber());
        target = temporary;
    }
    file = OpenForWriting(target);
    if (file == nullptr)
        Fail(newpath, errno);
    if (!temporary.empty())
        SetUnfinished(temporary);
    std::setvbuf(file, nullptr, _IONBF, 0);
}

COutput::~COutput()
{
    if (file != nullptr && file != stdout)
        std::fclose(file);
    if (file == nullptr || temporary.empty())
        return;
    std::error_code ignored;
    std::filesystem::remove(temporary, ignored);
    SetUnfinished({});
}

void COutput::Write(const char* bytes, std::size_t size)
{
    buffer.append(bytes, size);
    if (buffer.size() >= FlushSize)
        Flush();
}

void COutput::Commit()
{
    Flush();
    const bool isclosed = file == stdout ? std::fflush(file) == 0 : std::fclose(file) == 0;
    if (!isclosed && error == 0)
        error = errno;
    if (file != stdout && error == 0 && !temporary.empty())
    {
        std::error_code failure;
        const std::filesystem::file_status status = std::filesystem::status(path, failure);
        if (std::filesystem::exists(status))
            std::filesystem::permissions(temporary, status.permissions(), failure);
        std::filesystem::rename(temporary, path, failure);
        error = failure.default_error_condition().value();
    }
    const bool isdone = error == 0;
    if (isdone)
        temporary.clear();
    else if (!temporary.empty())
    {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
    }
    SetUnfinished({});
    file = nullptr;
    if (!isdone)
        Fail(path, error);
}

CQuietStandardOutput::CQuietStandardOutput()
{
    std::fflush(stdout);
    former = Duplicate(GetStandardOutput());
    if (former < 0)
        return;
    const int null = OpenNull();
    if (null < 0)
        throw CToolError("cannot keep standard output clean: " + std::generic_category().message(errno));
    Replace(GetStandardOutput(), null);
}

CQuietStandardOutput::~CQuietStandardOutput()
{
    std::fflush(stdout);
    if (former >= 0)
        Replace(GetStandardOutput(), former);
}

int COutput::Sink(const char* bytes, std::size_t size, void* context)
{
    auto* const output = static_cast<COutput*>(context);
    output->Write(bytes, size);
    return output->error == 0 ? 1 : 0;
}

bool COutput::Flush()
{
    errno = 0;
    if (error == 0 && std::fwrite(buffer.data(), 1, buffer.size(), file) != buffer.size())
        error = errno != 0 ? errno : EIO;
    buffer.clear();
    return error == 0;
}
