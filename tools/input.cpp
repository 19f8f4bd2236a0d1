#include "tools/input.h"

#include "tools/output.h"

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

namespace
{
std::string ReadStandardInput()
{
    std::string text;
    char piece[8192];
    for (;;)
    {
        const std::size_t count = std::fread(piece, 1, sizeof(piece), stdin);
        text.append(piece, count);
        if (count == 0)
            break;
    }
    if (std::ferror(stdin) != 0)
        throw CToolError("cannot read standard input: " + std::generic_category().message(errno));
    return text;
}

std::string ListFormatNames()
{
    std::string names;
    for (const SAssetFormat& format : GetAssetFormats())
        names += (names.empty() ? "" : ", ") + std::string(format.name);
    return names;
}
} // namespace

CInput::CInput(const std::filesystem::path& path, const std::string& formatname)
{
    Open(path);
    Recognise(path, formatname);
    asset = format->make();
    asset->Load(parser);
    if (parser.GetError() != 0)
        throw CToolError("cannot read " + name + ": " + std::generic_category().message(parser.GetError()));
    if (const long open = parser.GetBlockDepth(); open > 0)
        std::cerr << "asset_tool: warning: " << name << " leaves " << open << (open == 1 ? " block" : " blocks")
                  << " open; it may be cut off. What was read is kept.\n";
    size = parser.GetSize();
    parser.DestroyData(); // so that the file may be replaced by the output
}

void CInput::Open(const std::filesystem::path& path)
{
    if (path == "-")
    {
        name = "standard input";
        standardinput = ReadStandardInput();
        parser.Open(standardinput.data(), standardinput.size());
        parser.SetFilename(L"standard input");
    }
    else
    {
        name = GetDisplayName(path);
        if (parser.OpenFile(path.c_str()) != 1)
            throw CToolError("cannot read " + name + ": " + std::generic_category().message(parser.GetError()));
    }
    if (parser.GetSize() == 0)
        throw CToolError("cannot read " + name + ": it is empty");
}

void CInput::Recognise(const std::filesystem::path& path, const std::string& formatname)
{
    const std::u8string filename = path.filename().u8string();
    format = formatname.empty()
                 ? GuessAssetFormat({reinterpret_cast<const char*>(filename.data()), filename.size()}, parser)
                 : FindAssetFormat(formatname);
    if (format == nullptr)
        throw CToolError("cannot tell what " + name + " is; say so with --format (" + ListFormatNames() + ")");
    if (!format->recognises(parser, ~0U))
        throw CToolError("cannot read " + name + ": no line of it belongs to " + std::string(format->description) +
                         "; another kind can be named with --format");
    if (format->explainrefusal != nullptr)
        if (const char* const why = format->explainrefusal(parser))
            throw CToolError("cannot read " + name + ": " + why);
}
