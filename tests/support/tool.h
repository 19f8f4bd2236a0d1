/// asset_tool as its users run it.
#pragma once

#include "tests/support/documents.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;

inline std::string Sample(const std::string& name)
{
    return std::string(SAMPLES_FOLDER) + "/" + name;
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

    /// Runs the tool with the arguments as the shell takes them. Returns its standard output, behind a "!" what it has
    /// written to standard error, and its exit status where that is not 0, as "(1)".
    std::string Run(const std::string& arguments) const
    {
        const std::string out = (folder / "stdout").string();
        const std::string err = (folder / "stderr").string();
        const std::string command = std::string(ASSET_TOOL) + " " + arguments + " >" + out + " 2>" + err;
        int status = std::system(command.c_str()); // NOLINT(cert-env33-c): running the tool is the test
#if !defined(_WIN32)
        status = WEXITSTATUS(status);
#endif
        const std::string messages = ReadFile(err);
        return ReadFile(out) + (messages.empty() ? "" : "!" + messages) +
               (status == 0 ? "" : "(" + std::to_string(status) + ")");
    }

    std::string Make(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder / name, std::ios::binary) << text;
        return (folder / name).string();
    }

    std::string RunOn(const std::string& arguments, const std::string& text) const
    {
        return Run(arguments + " " + Make("input.txt", text));
    }

    fs::path folder;
};
