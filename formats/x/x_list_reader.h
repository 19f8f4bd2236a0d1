/// Reads the lists of numbers in an X block as real files lay them out.
#pragma once

#include "core/core_arrays.h"
#include "core/file_parser.h"
#include "core/numbers.h"
#include "core/word_helpers.h"

/// A list is a count and then that many entries, each a few numbers with marks between them.
///
/// Most exporters write one entry a line, "1.0;-1.0;0.5;,". Others put several on a line or one on two, so:
/// an entry whose line ends before it is complete goes on on the next line. Behind an entry another one
/// stands on the same line only past a ';' and a ',', behind a list's last one past two ';', too; behind a
/// count its list may begin on the same line. Else the rest of a line is dropped. "//" and "#" end a line, a
/// '}' behind numbers ends the block. A number that does not parse is 0 with the rest of its entry, and the
/// next entry begins on the next line. Once the block has ended every number is 0.
class CXListReader
{
  public:
    /// Reads on in the parser's current block.
    /// newline: the caller's buffer of CFile_Parser::BlockLineCapacity; afterwards it holds the last line read.
    CXListReader(CFile_Parser* newparser, wchar_t* newline) : parser(newparser), line(newline), at(newline)
    {
        *line = L'\0';
    }

    /// Reads the count of the next list; 0 when it is negative or does not parse.
    std::uint32_t ReadCount();

    /// Whether the list has an entry at that index: one below its count and, once the block has ended, below
    /// what the list's text could have held. Log hears when the count said more than that.
    bool HasEntry(std::uint32_t index, std::uint32_t count)
    {
        return index < count && (!isended || CouldHold(index, count, liststart));
    }

    /// Reads the next entry: numbers with a ';' between them. Those that are missing are 0.
    template <class... TFloats> void ReadVector(TFloats&... numbers)
    {
        ((numbers = 0.0F), ...);
        if (!BeginEntry())
            return;
        bool isfirst = true;
        const auto readnext = [this, &isfirst](float& number)
        {
            if (!isfirst && !PassMark(L';', L';'))
                return false;
            isfirst = false;
            return ScanFloat(at, number);
        };
        if (!(readnext(numbers) && ...))
            DropLine();
    }

    /// Reads the next entry: a count of corners, then the corners with a ',' or a ';' before each.
    /// corners: emptied first. Where memory ends, the corners behind are left out.
    void ReadCorners(TArray<int>& corners);

  private:
    friend class CXPlainList;

    struct SMarks
    {
        unsigned semicolons = 0;
        unsigned commas = 0;
    };

    static bool BeginsNumber(wchar_t character)
    {
        return (character >= L'0' && character <= L'9') || character == L'-' || character == L'.' || character == L'+';
    }

    bool EndsLine() const
    {
        return *at == L'\0' || *at == L'#' || (*at == L'/' && at[1] == L'/');
    }

    SMarks PassMarks()
    {
        SMarks marks;
        for (;; ++at)
            if (*at == L';')
                ++marks.semicolons;
            else if (*at == L',')
                ++marks.commas;
            else if (!IsBlank(*at))
                return marks;
    }

    /// Moves to the first number of the next entry; false when the block has ended.
    bool BeginEntry()
    {
        const SMarks marks = PassMarks();
        const unsigned wantedcommas = isbehindcount ? 0 : 1;
        isbehindcount = false;
        const bool isanother = marks.semicolons >= 1 && marks.commas >= wantedcommas;
        return (isanother && BeginsNumber(*at)) || NextLine();
    }

    /// Moves past the mark between two numbers of an entry, and to the next line where this one ends.
    /// False where something else stands.
    bool PassMark(wchar_t mark, wchar_t othermark)
    {
        const bool ismark = *at == mark || *at == othermark;
        at += ismark ? 1 : 0;
        return (ismark && BeginsNumber(*at)) || FindNumber(ismark, mark, othermark);
    }

    /// Moves to the line's end when nothing but marks is left of it; false, unmoved, else.
    bool EndLine()
    {
        const wchar_t* const before = at;
        PassMarks();
        if (EndsLine() && !isended)
            return true;
        at = before;
        return false;
    }

    /// Counts in the next line, which has been read elsewhere; the buffer holds no line then.
    void PassLine(std::size_t length)
    {
        charactersbefore = GetPosition() + 1 + length;
        at = line;
        *line = L'\0';
    }

    bool FindNumber(bool ismarkpassed, wchar_t mark, wchar_t othermark);
    bool NextLine();
    void DropLine();
    std::size_t GetPosition() const;
    bool CouldHold(std::uint32_t index, std::uint32_t count, std::size_t start);

    CFile_Parser* parser;
    wchar_t* line;
    const wchar_t* at;
    bool isended = false;
    bool isbehindcount = false;
    std::size_t charactersbefore = 0; ///< In the lines before this one.
    std::size_t liststart = 0;        ///< The list's first character, counted as GetPosition does.
};
