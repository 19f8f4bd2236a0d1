/// Where a command's result goes: standard output, or a file that appears whole or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

/// What stops a command: what it could not do, with which file, and why. Exit status 1.
class CToolError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// Takes bytes and passes them on. A file is written beside its place under another name, and takes its
/// place at Commit: a failed or interrupted run leaves what was there before. Something that is no
/// ordinary file, such as a device, is written directly.
class COutput
{
  public:
    /// Opens the output; an empty path is standard output. Throws CToolError.
    explicit COutput(const std::filesystem::path& newpath);
    COutput(const COutput&) = delete;
    COutput& operator=(const COutput&) = delete;
    ~COutput();

    void Write(const char* bytes, std::size_t size);

    void Write(std::string_view text)
    {
        Write(text.data(), text.size());
    }

    /// Writes what is left and puts the file in its place. Throws CToolError when not everything could be
    /// written.
    void Commit();

    /// For CFile_Saver::OpenSink, with the output as context.
    static int Sink(const char* bytes, std::size_t size, void* context);

  private:
    bool Flush();

    std::filesystem::path path;
    std::filesystem::path temporary; ///< Empty where the bytes go directly.
    std::FILE* file = nullptr;
    std::string buffer;
    int error = 0;
};

/// While it lives, what anybody prints to the process's standard output is gone. Throws CToolError when that
/// cannot be had.
class CQuietStandardOutput
{
  public:
    CQuietStandardOutput();
    CQuietStandardOutput(const CQuietStandardOutput&) = delete;
    CQuietStandardOutput& operator=(const CQuietStandardOutput&) = delete;
    ~CQuietStandardOutput();

  private:
    int former; ///< A copy of the descriptor; negative when standard output is closed anyway.
};

/// The name as it is shown in messages.
std::string GetDisplayName(const std::filesystem::path& path);
