/// What most tests need: records from texts, texts from records, and a watch on memory.
#pragma once

#include "core/file_io_object.h"
#include "core/file_parser.h"
#include "core/file_saver.h"
#include "core/memory_manager.h"
#include "core/sys_string.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Has the record read the text, as from inside its block.
inline Result LoadText(CFile_IOObject& record, std::string_view text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    return record.Load(&parser, nullptr);
}

/// What the record saves.
inline std::string SaveText(CFile_IOObject& record)
{
    CFile_Saver saver;
    saver.OpenMemory();
    record.Save(&saver);
    return saver.GetText();
}
inline std::string SaveText(CFile_IOObject&& record)
{
    return SaveText(record);
}

/// A new record that has read the text.
template <class TRecord> TRecord LoadNew(std::string_view text)
{
    TRecord record;
    LoadText(record, text);
    return record;
}

/// Has the record read the text while the allocation behind the first ones fails.
inline Result LoadWithout(CFile_IOObject& record, std::string_view text, std::uint64_t first)
{
    FailAllocations(first, 1);
    const Result result = LoadText(record, text);
    FailAllocations(0, 0);
    return result;
}

/// The parser's next line in its block; empty where there is none.
inline std::wstring GetBlockLine(CFile_Parser& parser)
{
    std::wstring line(CFile_Parser::BlockLineCapacity, L'\0');
    return parser.GetBlockLine(line.data()) == 1 ? line.c_str() : L"";
}

inline std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::string ReadSample(const char* name)
{
    return ReadFile(std::string(SAMPLES_FOLDER) + "/" + name);
}

inline std::string Repeat(std::string_view text, std::size_t count)
{
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

/// The pieces of a text between marks.
inline std::vector<std::string> Split(std::string_view text, char mark)
{
    std::vector<std::string> pieces;
    for (std::size_t end = 0; end != text.npos; text.remove_prefix(end == text.npos ? text.size() : end + 1))
    {
        end = text.find(mark);
        pieces.emplace_back(text.substr(0, end));
    }
    return pieces;
}

/// The text with a byte order mark.
inline std::string InUtf16(std::u16string_view text, bool isbigendian)
{
    std::string bytes;
    for (const char16_t unit : u'\uFEFF' + std::u16string(text))
    {
        const char halves[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        bytes += {halves[isbigendian ? 1 : 0], halves[isbigendian ? 0 : 1]};
    }
    return bytes;
}

/// The text as UTF-16, each byte a character.
inline std::string WidenBytes(std::string_view text)
{
    std::string wide = "\xFF\xFE";
    for (const char byte : text)
        wide += {byte, '\0'};
    return wide;
}

/// The registry while it lives: what is still announced when the test is done was leaked.
class CRegistryWatch
{
  public:
    CRegistryWatch() : former(std::exchange(MM, &registry))
    {
    }
    CRegistryWatch(const CRegistryWatch&) = delete;
    CRegistryWatch& operator=(const CRegistryWatch&) = delete;
    ~CRegistryWatch()
    {
        MM = former;
    }

    /// Nothing is announced any more, and nothing was taken back twice.
    bool IsBalanced() const
    {
        return registry.GetNumAllocations() == 0 && registry.GetNumMistakes() == 0;
    }

    CSys_MemoryManager registry;

  private:
    CSys_MemoryManager* former;
};

/// The log's lines while it lives, from the level given.
class CLogWatch
{
  public:
    explicit CLogWatch(unsigned long level = 0) : former(std::exchange(Log, &saver))
    {
        saver.OpenMemory();
        saver.SetLowestLevel(level);
    }
    CLogWatch(const CLogWatch&) = delete;
    CLogWatch& operator=(const CLogWatch&) = delete;
    ~CLogWatch()
    {
        Log = former;
    }

    std::string GetText()
    {
        return saver.GetText();
    }

  private:
    CFile_Saver saver;
    CFile_Saver* former;
};

inline void PrintTo(const CSys_String& text, std::ostream* out)
{
    for (const wchar_t* at = text.Get(); *at != L'\0'; ++at)
        *out << static_cast<char>(*at < 0x80 ? *at : L'?');
}
