/// The README's first example: compiled here, run, and held against the README's text.
#include "core/file_parser.h"
#include "core/file_saver.h"
#include "formats/ase/ase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{
int RunExample()
{
    // clang-format off
    // README
CFile_Parser parser;
if (parser.OpenFile("samples/scene.ase") != 1)
    return parser.GetError(); // an errno value
CFileFormat_Ase scene;
scene.Load(&parser, nullptr);
scene.GeomObjects[0]->name = L"\"Chest\"";
CFile_Saver saver;
saver.OpenFile("build/chest.txt");
scene.Save(&saver);
return saver.Close() == 1 ? 0 : saver.GetError();
    // README
    // clang-format on
}

std::string ReadText(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// What stands between the first two lines that hold the mark, without those lines.
std::string GetBetween(const std::string& text, const std::string& mark)
{
    const std::size_t first = text.find('\n', text.find(mark)) + 1;
    const std::size_t last = text.rfind('\n', text.find(mark, first)) + 1;
    return text.substr(first, last - first);
}
} // namespace

TEST(Readme, ShowsCodeThatWorks)
{
    namespace fs = std::filesystem;
    const fs::path root = fs::path(SAMPLES_FOLDER).parent_path();
    const std::string example = GetBetween(ReadText(__FILE__), "// README");
    EXPECT_NE(ReadText(root / "README.md").find(example), std::string::npos) << example;

    const fs::path former = fs::current_path();
    const fs::path folder = fs::path(testing::TempDir()) / "readme";
    fs::create_directories(folder / "samples");
    fs::create_directories(folder / "build");
    fs::copy_file(root / "samples/scene.ase", folder / "samples/scene.ase", fs::copy_options::overwrite_existing);
    fs::current_path(folder);
    EXPECT_EQ(RunExample(), 0);
    EXPECT_NE(ReadText("build/chest.txt").find("\tname: \"Chest\"\n"), std::string::npos);
    fs::current_path(former);
    EXPECT_GT(fs::remove_all(folder), 0U);
}
