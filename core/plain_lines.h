/// Long lists, read where their lines stand in the text.
///
/// A scene is mostly lists of short lines, each a keyword and numbers, and to copy a line into a buffer of
/// wide characters costs as much as to read it. So CPlainLines has the operations of CBlockReader, with the
/// same results, for lines that are plain: ASCII without braces and quotes, numbers in their short forms.
/// Whatever else a line holds is left to the reader that takes it from the parser.
#pragma once

#include "core/block_reader.h"

/// The lines that follow the one a reader stands on, as long as they are plain.
///
/// A number or word that is something else makes its operation return false, and EndLine then too. What was read
/// from a line counts only when EndLine has returned true.
class CPlainLines
{
  public:
    explicit CPlainLines(const CBlockReader& block) : CPlainLines(block.GetParser(), block.GoesOn())
    {
    }

    /// goeson: whether the lines behind the parser's last one are to be read at all.
    explicit CPlainLines(CFile_Parser* newparser, bool goeson = true) : parser(newparser)
    {
        const std::string_view text = goeson ? parser->GetPlainText() : std::string_view();
        begin = read = at = text.data();
        end = begin + text.size();
    }
    CPlainLines(const CPlainLines&) = delete;
    CPlainLines& operator=(const CPlainLines&) = delete;

    /// Has the parser go on behind the lines that were read.
    ~CPlainLines()
    {
        parser->SetOffset(parser->GetOffset() + static_cast<std::size_t>(read - begin));
    }

    /// Moves to the next line; false when the rest of the text is for the other reader.
    bool NextLine()
    {
        if (at < end && IsAtGap())
            at += gap.length;
        else
            PassGap();
        first = at;
        return isplain = at < end;
    }

    /// Whether the line has been read to its end and was plain.
    bool EndLine()
    {
        PassBlanks();
        if (!isplain || !IsLineEnd(*at) || at - first >= LongestLine)
            return false;
        read = at;
        return true;
    }

    /// Whether the line goes on with the keyword, whatever follows it.
    [[gnu::always_inline]] bool BeginsWith(SKeyword keyword) const
    {
        // There are at least as many bytes. Words at a time; the last one may overlap the one before it.
        if (keyword.length >= 8)
        {
            std::uint64_t difference = Differ(keyword, keyword.length - 8);
            for (std::size_t i = 0; i + 8 < keyword.length; i += 8)
                difference |= Differ(keyword, i);
            return difference == 0;
        }
        for (std::size_t i = 0; i < keyword.length; ++i)
            if (at[i] != static_cast<char>(keyword.text[i]))
                return false;
        return true;
    }

    /// Whether the line's first word is the keyword, which is then removed with the blanks behind it.
    [[gnu::always_inline]] bool Strip(SKeyword keyword)
    {
        if (!BeginsWith(keyword) || !IsBlank(at[keyword.length]))
            return false;
        at += keyword.length;
        PassBlanks();
        return true;
    }

    /// Removes the first word and the blanks behind it; false when there is none.
    bool StripWord()
    {
        const char* const word = at;
        return PassWord() && at != word;
    }

    /// Whether the word goes on here.
    bool IsInWord() const
    {
        return *at > ' ';
    }

    /// Removes the character when it is the next one.
    bool Take(char character)
    {
        const bool isnext = *at == character;
        at += isnext ? 1 : 0;
        return isnext;
    }

    /// Characters of the line up to here.
    std::size_t GetLength() const
    {
        return static_cast<std::size_t>(at - first);
    }

    /// Passes over numbers and what stands between them.
    void PassNumbers()
    {
        while ((*at >= ' ' && *at <= ';') || *at == '\t')
            ++at;
    }

    bool Scan(std::int32_t& value)
    {
        return isplain = isplain && ScanShortInteger(at, value);
    }

    bool Scan(float& value)
    {
        return isplain = isplain && ScanShortFloat(at, value);
    }

    bool Scan(CMath_Vector3& vector)
    {
        return Scan(vector.x) && Scan(vector.y) && Scan(vector.z);
    }

    /// Reads a number and removes its word; false when there is none.
    template <class T> bool ScanWord(T& value)
    {
        return Scan(value) && PassWord();
    }

  private:
    // One character less than fits into a line buffer with its closing NUL.
    static constexpr std::ptrdiff_t LongestLine = CFile_Parser::BlockLineCapacity - 1;

    static bool IsBlank(char character)
    {
        return character == ' ' || character == '\t';
    }

    static bool IsLineEnd(char character)
    {
        return character == '\n' || character == '\r';
    }

    void PassBlanks()
    {
        while (IsBlank(*at))
            ++at;
    }

    /// What stands between two lines, up to eight bytes.
    struct SGap
    {
        std::uint64_t bytes = 0;
        std::uint64_t mask = 0;
        std::size_t length = 0;
    };

    /// Whether here stands what stood between the lines before, and no more.
    bool IsAtGap() const
    {
        std::uint64_t eight = 0;
        std::memcpy(&eight, at, sizeof(eight));
        return (eight & gap.mask) == gap.bytes && at[gap.length] > ' ';
    }

    void PassGap()
    {
        const char* const from = at;
        while (at < end && (IsBlank(*at) || IsLineEnd(*at)))
            ++at;
        const auto length = static_cast<std::size_t>(at - from);
        if (length == 0 || length > sizeof(gap.bytes))
            return;
        gap.length = length;
        gap.mask = ~std::uint64_t{0} >> (64 - length * 8);
        std::memcpy(&gap.bytes, from, sizeof(gap.bytes));
        gap.bytes &= gap.mask;
    }

    /// Passes the rest of a word and the blanks behind it; false when it is not plain.
    bool PassWord()
    {
        while (*at > ' ' && *at < '{' && *at != '"')
            ++at;
        isplain = isplain && (IsBlank(*at) || IsLineEnd(*at));
        PassBlanks();
        return isplain;
    }

    /// Zero when the keyword's eight characters from `i` on are those of the text. Where the keyword is a
    /// literal, the compiler makes one constant of them.
    [[gnu::always_inline]] std::uint64_t Differ(SKeyword keyword, std::size_t i) const
    {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t wanted = 0;
        for (std::size_t k = 0; k < 8; ++k)
            wanted |= static_cast<std::uint64_t>(keyword.text[i + k]) << (k * 8);
        std::uint64_t found = 0;
        std::memcpy(&found, at + i, 8);
        return wanted ^ found;
    }

    CFile_Parser* parser;
    const char* begin;           ///< Where the parser stands.
    const char* read;            ///< Behind the last line that was read.
    const char* end;             ///< A line end that no line read here lies behind.
    const char* first = nullptr; ///< Where the line begins.
    const char* at;              ///< In the line.
    bool isplain = false;
    SGap gap; ///< Lines of a list are indented alike, so it is mostly the same from line to line.
};

/// Reads the lines behind a block reader's in place, as long as they are entries: `scan` takes an entry from a line
/// and returns whether it is one, `keep` stores it.
template <class TEntry, class TScan, class TKeep>
void ReadPlainEntries(const CBlockReader& block, TScan scan, TKeep keep)
{
    for (CPlainLines lines(block); lines.NextLine();)
    {
        TEntry entry{};
        if (!scan(lines, entry) || !lines.EndLine())
            return;
        keep(entry);
    }
}
