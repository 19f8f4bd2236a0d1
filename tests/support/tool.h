/// asset_tool as its users run it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fs = std::filesystem;

struct SRun
{
    int status;
    std::string out;
    std::string err;
};

inline std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Has a folder of its own while it runs.
class CToolTest : public testing::Test
{
  protected:
    CToolTest()
    {
        folder = fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~CToolTest() override
    {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    /// Runs the tool with the arguments as the shell takes them.
    SRun Run(const std::string& arguments) const
    {
        const fs::path out = folder / "stdout";
        const fs::path err = folder / "stderr";
        const std::string command =
            std::string(ASSET_TOOL) + " " + arguments + " >" + out.string() + " 2>" + err.string();
        const int result = std::system(command.c_str()); // NOLINT(cert-env33-c): running the tool is the test
#if defined(_WIN32)
        const int status = result;
#else
        const int status = WEXITSTATUS(result);
#endif
        return {status, ReadFile(out), ReadFile(err)};
    }

    fs::path Make(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }

    fs::path folder;
};
