/// What asset_tool does, one function a command. Each throws CToolError when it cannot.
#pragma once

#include <filesystem>
#include <string>

struct SCommandOptions
{
    std::filesystem::path input;  ///< "-" is standard input.
    std::filesystem::path output; ///< Empty is standard output.
    std::string format;           ///< Empty: by file name and text.
    bool isjson = false;
    float scale = 1.0F;
};

/// Loads the input and saves it in the engine text block form.
void Convert(const SCommandOptions& options);

/// Loads an ASE scene, builds an engine model of it and saves that, in the engine text block form or as JSON.
void BuildModel(const SCommandOptions& options);

/// Loads the input and prints what it holds.
void Inspect(const SCommandOptions& options);
