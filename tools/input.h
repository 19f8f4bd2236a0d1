/// A command's input: a file or standard input, and what kind of asset it is.
#pragma once

#include "tools/asset.h"

#include <filesystem>
#include <string>

/// Opens the input and loads it. The path "-" is standard input.
class CInput
{
  public:
    /// formatname: a name of the table, or empty to go by the file's name and text.
    /// Throws CToolError when the input cannot be opened, read or recognised.
    CInput(const std::filesystem::path& path, const std::string& formatname);
    CInput(const CInput&) = delete;
    CInput& operator=(const CInput&) = delete;

    CAsset& GetAsset()
    {
        return *asset;
    }

    const SAssetFormat& GetFormat() const
    {
        return *format;
    }

    /// The input as it is shown in messages.
    const std::string& GetName() const
    {
        return name;
    }

    /// Bytes of the text.
    std::size_t GetSize() const
    {
        return size;
    }

  private:
    void Open(const std::filesystem::path& path);
    void Recognise(const std::filesystem::path& path, const std::string& formatname);

    std::string name;
    std::string standardinput;
    CFile_Parser parser; ///< Until the asset is loaded.
    std::size_t size = 0;
    const SAssetFormat* format = nullptr;
    std::unique_ptr<CAsset> asset;
};
