/// A place for a file in the system's temporary folder.
#pragma once

#include <filesystem>
#include <random>
#include <string>

/// A path that nobody else uses. What was written there is removed at the end.
class CTemporaryFile
{
  public:
    explicit CTemporaryFile(const std::string& extension)
        : path((std::filesystem::temp_directory_path() /
                ("asset_tools_bench_" + std::to_string(std::random_device()()) + extension))
                   .string())
    {
    }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;
    ~CTemporaryFile()
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }

    const std::string path;
};
