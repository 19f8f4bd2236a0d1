/// What the fuzz targets share: one document read from any bytes, and everything done with it that callers do.
#pragma once

#include "fuzz/describe.h"
#include "tests/support/documents.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

/// Stops the fuzzer, which keeps the input, unless it holds.
inline void Check(bool isright)
{
    if (!isright)
        std::abort();
}

/// An input, or what of it a target has not used up: in a block of exactly its size, so that a read past either
/// end shows.
class CInput
{
  public:
    CInput(const std::uint8_t* first, std::size_t size) : bytes(first, first + size)
    {
    }

    /// The next byte, 0 where there is none.
    unsigned Take()
    {
        return next < bytes.size() ? bytes[next++] : 0U;
    }

    /// The entry of a table that the next byte draws.
    template <class T, std::size_t N> T Draw(T (&table)[N])
    {
        return table[Take() % N];
    }

    bool IsEmpty() const
    {
        return next == bytes.size();
    }

    CInput GetRest() const
    {
        return {bytes.data() + next, bytes.size() - next};
    }

    std::string_view GetText() const
    {
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

  private:
    std::vector<std::uint8_t> bytes;
    std::size_t next = 0;
};

// What a document may take of memory: room for the first elements of its lists, and a small multiple of its text.
constexpr std::size_t RoomToBegin = 1 << 20;
constexpr std::size_t MostBytesPerByte = 256;

/// Does the work on an input with a registry and a log that takes everything, and checks that nothing was leaked.
template <class TWork> int Watch(const std::uint8_t* bytes, std::size_t size, TWork work)
{
    const CRegistryWatch registry;
    {
        const CLogWatch log;
        CInput input(bytes, size);
        work(input);
    }
    Check(registry.IsBalanced());
    return 0;
}

/// Loads a text of ASCII as UTF-8, whose long lists are read in place, and as UTF-16, whose are not. Line ends are
/// added, since nothing is read in place close to the end.
template <class TDocument> void CheckEncodings(std::string_view text, const std::string& described)
{
    // The bytes of raw nodes are the same in any text.
    if (std::any_of(text.begin(), text.end(), [](char byte) { return (byte & 0x80) != 0; }) ||
        text.find("addbnodes:") != text.npos)
        return;
    const std::string narrow = std::string(text) + std::string(LongestKeyword + 1, '\n');
    for (const std::string& form : {narrow, WidenBytes(narrow)})
    {
        TDocument document;
        LoadText(document, form);
        Check(Describe(document) == described);
    }
}

/// Loads the text twice, copies and moves what came out: it must always be the same, and stay so.
template <class TDocument> void CheckDocument(const CInput& input, TDocument& document)
{
    LoadText(document, input.GetText());
    if (IsPadded(document))
        return;
    Check(MM->GetAllocatedSize() <= input.GetText().size() * MostBytesPerByte + RoomToBegin);
    const std::string described = Describe(document);
    {
        CFile_Parser source;
        source.Open(input.GetText().data(), input.GetText().size());
        CFile_Parser rest;
        rest.Add(source);
        TDocument again;
        again.Load(&rest, nullptr);
        Check(Describe(again) == described);
    }
    CheckEncodings<TDocument>(input.GetText(), described);
    TDocument copy(document);
    TDocument moved(std::move(copy));
    copy = moved;
    Check(Describe(moved) == described && Describe(copy) == described);
    copy = TDocument();
    Check(Describe(document) == described);
}

/// Whether a text gives back what was saved: not where a line is too long to be read whole, nor where the name of
/// a folder reads like the line of a key, which is then read as well.
inline bool ComesBack(std::string_view text)
{
    std::size_t length = 0; // behind the tabs
    std::size_t longest = 0;
    for (const char letter : text)
    {
        length = letter == '\n' ? 0 : length + (letter == '\t' ? 0 : 1);
        longest = std::max(longest, length);
    }
    return longest < CFile_Parser::BlockLineCapacity && text.find("addfolder: addkey:") == std::string_view::npos;
}

/// The same for what reads its own saved text: reading that must give it once more.
template <class TDocument> void CheckSavedText(const CInput& input, TDocument& document)
{
    CheckDocument(input, document);
    const std::string saved = SaveText(document);
    if (!ComesBack(saved))
        return;
    TDocument again;
    LoadText(again, saved);
    Check(SaveText(again) == saved);
}
