/// asset_tool: the library on the command line.
#include "core/file_saver.h"
#include "tools/asset.h"
#include "tools/commands.h"
#include "tools/output.h"
#include "tools/utf8.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <new>
#include <vector>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace
{
constexpr int ExitFailed = 1;
constexpr int ExitWrongUsage = 2;

Result WriteToStandardError(const char* bytes, std::size_t size, void*)
{
    return std::fwrite(bytes, 1, size, stderr) == size ? 1 : 0;
}

/// A path from the command line, which is UTF-8 on every platform.
std::filesystem::path ToPath(const std::string& text)
{
    return std::u8string(text.begin(), text.end());
}

/// Adds what every command has in common and returns the command.
CLI::App* AddCommand(CLI::App& app, const char* name, const char* description, const char* example,
                     SCommandOptions& options, unsigned long& loglevel)
{
    CLI::App* const command = app.add_subcommand(name, description);
    command->footer(std::string("Example:\n  asset_tool ") + example);
    command
        ->add_option_function<std::string>(
            "IN", [&options](const std::string& text) { options.input = ToPath(text); },
            "The file to read; - is standard input")
        ->required();
    command
        ->add_option("--format", options.format,
                     "What IN is; without it the file's ending tells, and then its first lines")
        ->check(CLI::IsMember(
            []
            {
                std::vector<std::string> names;
                for (const SAssetFormat& format : GetAssetFormats())
                    names.emplace_back(format.name);
                return names;
            }()));
    command->add_option("--log-level", loglevel, "Shows log lines of this level and above on standard error")
        ->capture_default_str();
    return command;
}

void AddOutputOption(CLI::App* command, SCommandOptions& options)
{
    command->add_option_function<std::string>(
        "-o,--output", [&options](const std::string& text) { options.output = ToPath(text); },
        "The file to write; standard output without it");
}

int Run(int argc, char** argv)
{
    CLI::App app("Reads 3D assets (ASE scenes and other exports) and writes them for the engine.", "asset_tool");
    app.set_version_flag("--version", std::string("asset_tool ") + ASSET_TOOLS_VERSION);
    app.require_subcommand(1);
    app.allow_windows_style_options(false); // A name that begins with "/" is a file everywhere.

    SCommandOptions options;
    unsigned long loglevel = 2;
    CLI::App* const convert = AddCommand(app, "convert", "Loads IN and saves it in the engine text block form",
                                         "convert scene.ase -o scene.txt", options, loglevel);
    AddOutputOption(convert, options);
    CLI::App* const model = AddCommand(app, "model", "Builds an engine model of an ASE scene and saves it",
                                       "model scene.ase -o scene.model --scale 0.01", options, loglevel);
    AddOutputOption(model, options);
    model->add_option("--scale", options.scale, "Model units for each unit of the scene")->capture_default_str();
    model->add_flag("--json", options.isjson, "Save the model as JSON");
    CLI::App* const inspect =
        AddCommand(app, "inspect", "Loads IN and prints what it holds", "inspect scene.ase --json", options, loglevel);
    inspect->add_flag("--json", options.isjson, "Print everything that was loaded, as JSON");

    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? 0 : ExitWrongUsage;
    }

    CFile_Saver log;
    log.OpenSink(WriteToStandardError, nullptr, true);
    log.SetLowestLevel(loglevel);
    CFile_Saver* const formerlog = std::exchange(Log, &log);
    int status = 0;
    try
    {
        if (convert->parsed())
            Convert(options);
        else if (model->parsed())
            BuildModel(options);
        else
            Inspect(options);
    }
    catch (const CToolError& error)
    {
        std::cerr << "asset_tool: " << error.what() << '\n';
        status = ExitFailed;
    }
    catch (const std::bad_alloc&)
    {
        std::cerr << "asset_tool: not enough memory\n";
        status = ExitFailed;
    }
    Log = formerlog;
    return status;
}

/// The same, whatever is thrown where Run does not expect it.
int RunGuarded(int argc, char** argv)
{
    try
    {
        return Run(argc, argv);
    }
    catch (...)
    {
        std::fputs("asset_tool: not enough memory\n", stderr);
        return ExitFailed;
    }
}
} // namespace

#if defined(_WIN32)

// The narrow main would get its arguments in the system's code page, which not every file name fits into.
extern "C" int wmain(int argc, wchar_t** argv)
{
    // Bytes go in and out as they are, with the line ends of every other system.
    for (std::FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    std::vector<std::string> texts;
    for (int i = 0; i < argc; ++i)
        texts.push_back(ToUtf8(argv[i]));
    std::vector<char*> arguments;
    for (std::string& text : texts)
        arguments.push_back(text.data());
    return RunGuarded(argc, arguments.data());
}

#else

int main(int argc, char** argv)
{
    return RunGuarded(argc, argv);
}

#endif
