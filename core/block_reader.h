/// The frame in which every record reads itself: one block, line by line, keyword by keyword.
///
///     CBlockReader block(parser);
///     while (block.NextLine())
///     {
///         block.Read(L"*CAMERA_NEAR", near);
///         if (block.Is(L"*NODE_TM"))
///             block.Load(node);
///     }
///
/// Each test is made on its own, in the order it stands in, on the line as the tests before it left
/// it: a matched keyword that was stripped is gone.
#pragma once

#include "core/file_io_object.h"
#include "core/file_parser.h"
#include "core/math_color.h"
#include "core/math_vector3.h"
#include "core/numbers.h"
#include "core/sys_string.h"
#include "core/word_helpers.h"

#include <cstring>
#include <limits>
#include <span>

/// Levels of records that hold records of their own kind. Deeper ones are passed over, so that no
/// text makes reading or destroying it run out of stack.
inline constexpr unsigned MostNestedLevels = 1000;

/// Reads the lines of one block and what stands in them.
///
/// Blocks that a line opened and nobody has read are passed over with everything in them, so that
/// their lines are never taken for the block's own.
class CBlockReader
{
  public:
    /// Reads the block whose opening line the parser has just delivered.
    /// newcallback: handed to the records that Load loads; may be null.
    /// newenders: keywords that cannot stand inside this block. A line that opens a block with one shows that
    /// a closing brace is missing: the block ends there and the line is left to be read again.
    /// Without memory for a line the block counts as ended.
    explicit CBlockReader(CFile_Parser* newparser, CFile_IOCallback* newcallback = nullptr,
                          std::span<const SKeyword> newenders = {})
        : parser(newparser), callback(newcallback), enders(newenders), ownbuffer(parser->TakeLineBuffer()),
          buffer(ownbuffer)
    {
    }

    /// Reads a block inside another reader's, in the same line buffer; the other reader's line is then
    /// empty.
    explicit CBlockReader(CBlockReader& newouter)
        : parser(newouter.parser), callback(newouter.callback), enders(newouter.enders), buffer(newouter.buffer)
    {
        newouter.rest = NoText; // NOLINT(cert-oop58-cpp): the block inside takes the outer one's line, it is no copy
    }

    CBlockReader(const CBlockReader&) = delete;
    CBlockReader& operator=(const CBlockReader&) = delete;

    ~CBlockReader()
    {
        // A reader inside another's block has none of its own, nor has one without memory.
        if (ownbuffer != nullptr)
            parser->ReturnLineBuffer(ownbuffer);
    }

    /// Moves to the block's next line; false once the block or the text has ended.
    bool NextLine()
    {
        while (buffer != nullptr)
        {
            const std::size_t before = parser->GetOffset();
            const bool isline = parser->GetBlockLine(buffer) == 1;
            const long around = parser->GetBlockDepth() - (parser->OpensBlock() ? 1 : 0);
            rest = buffer;
            if (!isline)
            {
                // An inner block has ended, or this one, or the text, where the parser stands still.
                if (around < depth || parser->GetOffset() == before)
                    return false;
                continue;
            }
            if (LeavesLine(before))
                return false;
            if (depth == UnknownDepth)
                depth = around;
            if (around <= depth)
                return true;
        }
        return false;
    }

    /// Moves to the next line as the parser delivers it, whoever opened its block: the first closing line
    /// ends the block. For lists that are read plainly.
    bool NextPlainLine()
    {
        rest = NoText;
        if (buffer == nullptr)
            return false;
        const std::size_t before = parser->GetOffset();
        if (parser->GetBlockLine(buffer) != 1 || LeavesLine(before))
            return false;
        rest = buffer;
        return true;
    }

    /// Whether the line's first word is the keyword.
    [[gnu::always_inline]] bool Is(SKeyword keyword) const
    {
        if (!BeginsWith(keyword))
            return false;
        const wchar_t behind = rest[keyword.length];
        return behind == L'\0' || behind == L'{' || IsBlank(behind);
    }

    /// Whether the line's first word is the keyword, which is then removed with the blanks behind it.
    [[gnu::always_inline]] bool Strip(SKeyword keyword)
    {
        if (!Is(keyword))
            return false;
        rest = SkipBlanks(rest + keyword.length);
        return true;
    }

    /// Removes the first word and the blanks behind it; false when there is none.
    bool StripWord()
    {
        const wchar_t* const end = FindWordEnd(rest);
        const bool isword = end != rest;
        rest = SkipBlanks(end);
        return isword;
    }

    /// Whether the line begins with the text, whatever follows it.
    [[gnu::always_inline]] bool BeginsWith(SKeyword text) const
    {
        // Eight bytes at a time: where the keyword is a literal, these are comparisons with constants.
        std::size_t i = 0;
        for (; i + CharactersPerStep <= text.length; i += CharactersPerStep)
        {
            std::uint64_t here = 0;
            std::uint64_t there = 0;
            std::memcpy(&here, rest + i, sizeof(here));
            std::memcpy(&there, text.text + i, sizeof(there));
            if (here != there)
                return false;
        }
        for (; i < text.length; ++i)
            if (rest[i] != text.text[i])
                return false;
        return true;
    }

    /// What is left of the line.
    const wchar_t* GetRest() const
    {
        return rest;
    }

    /// Whether the lines behind this one are the block's own too, until one opens or closes a block.
    bool GoesOn() const
    {
        return depth != UnknownDepth && parser->GetBlockDepth() <= depth;
    }

    CFile_Parser* GetParser() const
    {
        return parser;
    }

    // Scan: reads a value from what is left of the line. What does not parse leaves its place alone,
    // and so do the numbers behind it.

    bool Scan(std::int32_t& value)
    {
        return ScanInteger(rest, value);
    }

    /// As a "%u"; where the format says "%d" for a field that is compared unsigned, use ScanSigned.
    bool Scan(std::uint32_t& value)
    {
        return ScanInteger(rest, value);
    }

    bool ScanSigned(std::uint32_t& value)
    {
        std::int32_t number = 0;
        if (!ScanInteger(rest, number))
            return false;
        value = static_cast<std::uint32_t>(number);
        return true;
    }

    bool Scan(float& value)
    {
        return ScanFloat(rest, value);
    }

    bool Scan(CMath_Vector3& vector)
    {
        return Scan(vector.x) && Scan(vector.y) && Scan(vector.z);
    }

    /// Three components; the fourth stays.
    bool Scan(CMath_Color& color)
    {
        return Scan(color.r) && Scan(color.g) && Scan(color.b);
    }

    /// The rest of the line, as it stands.
    bool Scan(CSys_String& text)
    {
        return text.Write(L"%s", rest) == 1;
    }

    /// Reads what is behind the keyword, when the line begins with it.
    template <class T> void Read(SKeyword keyword, T& value)
    {
        if (Strip(keyword))
            Scan(value);
    }

    /// The same for one number, whose word is then removed whether it parsed or not; false when there was
    /// no word.
    template <class T> bool ScanWord(T& value)
    {
        const wchar_t* const word = rest;
        if (!Scan(value))
            return StripWord();
        while (*rest != L'\0' && *rest != L'{' && !IsBlank(*rest))
            ++rest;
        rest = SkipBlanks(rest);
        return rest != word;
    }

    /// Reads three numbers word by word: one that does not parse leaves only its own component alone.
    void ScanWords(CMath_Vector3& vector)
    {
        ScanWord(vector.x);
        ScanWord(vector.y);
        ScanWord(vector.z);
    }

    void ScanWords(CMath_Color& color)
    {
        ScanWord(color.r);
        ScanWord(color.g);
        ScanWord(color.b);
    }

    template <class T> void ReadWords(SKeyword keyword, T& value)
    {
        if (Strip(keyword))
            ScanWords(value);
    }

    /// Reads an option word: its position among `names`. Another word leaves the value alone.
    template <class T> void ReadOption(SKeyword keyword, T& value, std::span<const SKeyword> names)
    {
        if (!Strip(keyword))
            return;
        const std::wstring_view word(rest, static_cast<std::size_t>(FindWordEnd(rest) - rest));
        for (std::size_t i = 0; i < names.size(); ++i)
            if (word == std::wstring_view(names[i].text, names[i].length))
                value = static_cast<T>(i);
    }

    /// Has a record read the block that this line opened.
    void Load(CFile_IOObject& record)
    {
        record.Load(parser, callback);
    }

    /// Appends a record to a list and has it read the block that this line opened; without memory for
    /// it the block is passed over.
    template <class TList> void LoadNew(TList& list)
    {
        if (auto* record = list.Add())
            Load(*record);
    }

    /// The same for records that hold records of their own kind, which Load themselves with the number of
    /// such records around them. Those nested too deep are not added.
    template <class TList> void LoadNested(TList& list, unsigned level)
    {
        if (auto* record = AddNested(list, level))
            record->LoadNested(parser, callback, level + 1);
    }

    /// Appends a record that has `level` records of its own kind around it; null when they are too many or
    /// there is no memory, and then its block is passed over.
    // Not inlined, since readers that call themselves need less of the stack then.
    template <class TList> [[gnu::noinline]] auto AddNested(TList& list, unsigned level) -> decltype(list.Add())
    {
        if (level < MostNestedLevels)
            return list.Add();
        parser->Report(2, L"blocks nested deeper than %u levels are passed over", MostNestedLevels);
        return nullptr;
    }

    /// For lines that end with a name of any content, in a form where blocks open on lines of their own: a
    /// brace that ended the line was part of the name. To be called once the line and its block are read.
    void TakeBraceAsText()
    {
        depth = parser->GetBlockDepth();
    }

  private:
    // A keyword is compared several characters at a time, which may reach past the line's end: so there is
    // room for one behind the buffer, and behind the text that stands for no line.
    static constexpr std::size_t CharactersPerStep = sizeof(std::uint64_t) / sizeof(wchar_t);
    static constexpr wchar_t NoText[LongestKeyword] = {};
    static constexpr long UnknownDepth = std::numeric_limits<long>::max();

    /// Whether the line in the buffer belongs outside this block; it is then left to be read again.
    bool LeavesLine(std::size_t offset)
    {
        return parser->OpensBlock() && IsEnder(offset);
    }

    // Not inlined either, and few lines open a block.
    [[gnu::noinline]] bool IsEnder(std::size_t offset)
    {
        rest = buffer;
        for (const SKeyword ender : enders)
            if (Is(ender))
            {
                parser->SetOffset(offset);
                rest = NoText;
                return true;
            }
        return false;
    }

    CFile_Parser* parser;
    CFile_IOCallback* callback;
    std::span<const SKeyword> enders;
    wchar_t* ownbuffer = nullptr;
    wchar_t* buffer;
    const wchar_t* rest = NoText; ///< Within the buffer, or NoText.
    long depth = UnknownDepth;    ///< Blocks open around this block's own lines, once one was read.
};
