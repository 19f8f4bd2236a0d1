#include "core/file_parser.h"

#include "core/characters.h"
#include "core/file_saver.h"
#include "core/memory_manager.h"
#include "engine_core/file_access.h"
#include "engine_core/wide_output.h"
#include "engine_core/widen.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace
{
constexpr unsigned EndOfText = ~0U;

bool IsLineEnd(unsigned unit)
{
    return unit == '\n' || unit == '\r';
}

/// Blanks, tabs and NULs, which count as blanks.
bool IsSpace(unsigned unit)
{
    return unit == ' ' || unit == '\t' || unit == 0;
}
} // namespace

/// The caller's buffer while a line is decoded into it, and what is found out about the line.
class CFile_Parser::CLineBuffer
{
  public:
    bool isopening = false; ///< The line is "{" alone.
    bool isclosing = false; ///< The line is "}" alone.
    bool iscut = false;     ///< Something visible did not fit.

    CLineBuffer(wchar_t* line, std::size_t capacity) : first(line), next(line), room(capacity - 1)
    {
    }

    /// Takes as many plain bytes as there are and fit; returns how many.
    std::size_t PutPlain(const unsigned char* from, std::size_t count)
    {
        const std::size_t done = WidenPlain(from, std::min(count, room), next);
        next += done;
        room -= done;
        return done;
    }

    bool IsFull() const
    {
        return room == 0;
    }

    /// A character beyond 16 bits needs two places on every platform, so that lines are cut alike.
    void Put(char32_t code)
    {
        const std::size_t places = code < 0x10000 ? 1 : 2;
        if (places > room)
        {
            room = 0;
            iscut = true;
            return;
        }
        next += EncodeWide(code, next);
        room -= places;
    }

    void Finish()
    {
        while (next != first && (next[-1] == L' ' || next[-1] == L'\t'))
            --next;
        *next = L'\0';
    }

  private:
    wchar_t* first;
    wchar_t* next;
    std::size_t room;
};

CFile_Parser::~CFile_Parser()
{
    DestroyData();
}

template <class TName> Result CFile_Parser::ReadFile(const TName* name, std::size_t newpiecesize)
{
    DestroyData();
    std::FILE* const opened = OpenFileByName(name, "rb");
    if (opened == nullptr)
    {
        error = errno;
        return 0;
    }
    std::setvbuf(opened, nullptr, _IONBF, 0);
    file = opened;
    piecesize = newpiecesize;
    const auto seemingsize = static_cast<std::size_t>(GetRemainingSize(opened));
    const bool isread = (seemingsize > piecesize && ReadFirstPiece(seemingsize)) || ReadWhole(seemingsize);
    if (!isread)
    {
        const int why = error;
        DestroyData();
        error = why;
    }
    return isread ? 1 : 0;
}

/// False when the file has to be read as a whole.
bool CFile_Parser::ReadFirstPiece(std::size_t seemingsize)
{
    constexpr std::size_t longestmark = 3;
    const std::size_t wanted = std::max(piecesize, longestmark);
    if (!MakeRoom(wanted))
        return false;
    const std::size_t got = ReadFileAt(static_cast<std::FILE*>(file), 0, ownbytes, wanted);
    if (got < longestmark)
        return false;
    Adopt(ownbytes, seemingsize, got);
    return encoding == EEncoding::Utf8;
}

/// Reads and closes the file, however much it holds: what has no size beforehand, such as a pipe, grows.
bool CFile_Parser::ReadWhole(std::size_t seemingsize)
{
    auto* const source = static_cast<std::FILE*>(file);
    std::rewind(source);
    std::size_t used = 0;
    std::size_t wanted = std::max<std::size_t>(seemingsize + 1, 4096); // one byte more shows the end without growth
    error = 0;
    for (;;)
    {
        if (used == blocksize || blocksize < wanted)
            if (!MakeRoom(wanted))
                return false;
        wanted = blocksize + 1;
        errno = 0;
        const std::size_t got = std::fread(ownbytes + used, 1, blocksize - used, source);
        used += got;
        if (got != 0)
            continue;
        if (std::ferror(source) != 0)
        {
            Fail(errno != 0 ? errno : EIO);
            return false;
        }
        std::fclose(source);
        file = nullptr;
        Adopt(ownbytes, used, used);
        return true;
    }
}

/// Grows the block, twofold at least, so that it holds so many bytes and the slack behind them.
bool CFile_Parser::MakeRoom(std::size_t wanted)
{
    if (wanted <= blocksize)
        return true;
    const std::size_t newsize = std::max(wanted, blocksize * 2);
    void* const grown =
        ResizeBlock(ownbytes, ownbytes != nullptr ? blocksize + LongestKeyword : 0, newsize + LongestKeyword);
    if (grown == nullptr)
    {
        Fail(ENOMEM);
        return false;
    }
    ownbytes = static_cast<unsigned char*>(grown);
    blocksize = newsize;
    return true;
}

void CFile_Parser::Fail(int why)
{
    if (error == 0)
        error = why;
}

/// Reads one more piece of the file into memory and lets go of what stands before the position. False when
/// that fails: the text ends there.
bool CFile_Parser::HoldMore()
{
    const std::size_t kept = heldend - offset;
    if (kept != 0 && offset != heldbegin)
        std::memmove(ownbytes, ownbytes + (offset - heldbegin), kept);
    heldbegin = offset;
    const std::size_t wanted = std::min(piecesize, size - heldend);
    std::size_t got = 0;
    if (MakeRoom(kept + wanted))
    {
        errno = 0;
        got = ReadFileAt(static_cast<std::FILE*>(file), heldend, ownbytes + kept, wanted);
        if (got == 0)
            Fail(errno != 0 ? errno : EIO);
    }
    bytes = ownbytes;
    if (got == 0)
        size = heldend;
    const std::size_t oldend = heldend;
    heldend += got;
    FindPlainEnd(oldend);
    return got != 0;
}

/// Whether the text is in memory from the position to a line end at least, or to its own end.
bool CFile_Parser::IsLineHeld() const
{
    return offset >= heldbegin && (offset < plainend || (heldend == size && offset <= heldend));
}

/// Sees to it that it is. Seldom needed, so not to be mixed into its callers.
[[gnu::noinline]] void CFile_Parser::HoldLine()
{
    if (offset < heldbegin || offset > heldend)
    {
        heldbegin = heldend = offset;
        plainend = 0;
    }
    while (heldend < size && offset >= plainend && HoldMore())
    {
    }
}

/// Bytes from any place of the text, be they in memory or not; returns how many there were.
std::size_t CFile_Parser::ReadAt(std::size_t position, void* to, std::size_t count) const
{
    count = std::min(count, size - position);
    std::size_t done = 0;
    if (count != 0 && position >= heldbegin && position < heldend)
    {
        done = std::min(count, heldend - position);
        std::memcpy(to, bytes + (position - heldbegin), done);
    }
    if (done < count && file != nullptr)
        done += ReadFileAt(static_cast<std::FILE*>(file), position + done, static_cast<char*>(to) + done, count - done);
    return done;
}

Result CFile_Parser::OpenFile(const char* name, std::size_t newpiecesize)
{
    const Result result = ReadFile(name, newpiecesize);
    filename.SetUtf8(name, std::strlen(name));
    return result;
}

Result CFile_Parser::OpenFile(const wchar_t* name, std::size_t newpiecesize)
{
    const Result result = ReadFile(name, newpiecesize);
    filename = name;
    return result;
}

Result CFile_Parser::Open(const void* newbytes, std::size_t newsize)
{
    DestroyData();
    Adopt(static_cast<const unsigned char*>(newbytes), newsize, newsize);
    return 1;
}

Result CFile_Parser::Add(const CFile_Parser& source)
{
    CFile_Parser copy;
    const std::size_t count = source.size - source.offset;
    if (copy.MakeRoom(std::max<std::size_t>(count, 1)) && source.ReadAt(source.offset, copy.ownbytes, count) != count)
        copy.Fail(EIO);
    const EEncoding sourceencoding = source.encoding;
    DestroyData();
    error = copy.error;
    if (error != 0)
        return 0;
    std::swap(ownbytes, copy.ownbytes);
    std::swap(blocksize, copy.blocksize);
    Adopt(ownbytes, count, count);
    // The rest of a text has no mark; what looks like one belongs to it.
    encoding = sourceencoding;
    begin = 0;
    countedoffset = 0;
    FindPlainEnd(0);
    return Reset();
}

/// Starts anew on a text that somebody keeps alive.
void CFile_Parser::Adopt(const unsigned char* newbytes, std::size_t newsize, std::size_t newheldsize)
{
    bytes = newbytes;
    heldbegin = 0;
    heldend = newheldsize;
    size = newsize;
    error = 0;
    encoding = EEncoding::Utf8;
    begin = 0;
    const std::string_view start(reinterpret_cast<const char*>(newbytes), std::min<std::size_t>(newheldsize, 3));
    if (start.starts_with("\xEF\xBB\xBF"))
        begin = 3;
    else if (start.starts_with("\xFF\xFE"))
    {
        encoding = EEncoding::Utf16LittleEndian;
        begin = 2;
    }
    else if (start.starts_with("\xFE\xFF"))
    {
        encoding = EEncoding::Utf16BigEndian;
        begin = 2;
    }
    countedoffset = begin;
    countedlines = 0;
    FindPlainEnd(0);
    Reset();
}

Result CFile_Parser::Reset()
{
    offset = begin;
    blockdepth = 0;
    opensblock = false;
    return 1;
}

Result CFile_Parser::DestroyData()
{
    if (file != nullptr)
        std::fclose(static_cast<std::FILE*>(file));
    file = nullptr;
    ReleaseBlock(ownbytes);
    ownbytes = nullptr;
    blocksize = 0;
    ReleaseBlock(sparebuffer);
    sparebuffer = nullptr;
    filename.Clear();
    Adopt(nullptr, 0, 0);
    return 1;
}

Result CFile_Parser::SetFilename(const wchar_t* name)
{
    filename = name;
    return 1;
}

const wchar_t* CFile_Parser::GetFilename() const
{
    return filename.Get();
}

int CFile_Parser::GetError() const
{
    return error;
}

Result CFile_Parser::GetLine(wchar_t* line, unsigned long capacity)
{
    if (capacity == 0)
        return 0;
    CLineBuffer buffer(line, capacity);
    const bool isread = ReadLine(buffer);
    buffer.Finish();
    if (!isread)
        return 0;
    if (buffer.isclosing && blockdepth > 0)
        --blockdepth;
    return 1;
}

Result CFile_Parser::GetBlockLine(wchar_t* line)
{
    for (;;)
    {
        CLineBuffer buffer(line, BlockLineCapacity);
        const bool isread = ReadLine(buffer);
        if (isread && !buffer.isopening && !buffer.isclosing)
        {
            buffer.Finish();
            return 1;
        }
        if (isread && buffer.isopening)
            continue;
        if (isread)
            --blockdepth;
        opensblock = false;
        *line = L'\0';
        return 0;
    }
}

std::size_t CFile_Parser::Read(void* to, std::size_t wanted)
{
    const std::size_t count = ReadAt(offset, to, wanted);
    offset += count;
    return count;
}

Result CFile_Parser::SetOffset(std::size_t newoffset)
{
    offset = std::clamp(newoffset, begin, size);
    return 1;
}

std::size_t CFile_Parser::GetLineNumber() const
{
    // Counts on from where it stopped last, in either direction, so that a text full of complaints is
    // walked through once.
    const std::size_t to = offset - (offset - begin) % GetUnitSize();
    if (to >= countedoffset)
        countedlines += CountLineEnds(countedoffset, to);
    else
        countedlines -= CountLineEnds(to, countedoffset);
    countedoffset = to;
    return countedlines + 1;
}

wchar_t* CFile_Parser::TakeLineBuffer()
{
    if (sparebuffer != nullptr)
        return std::exchange(sparebuffer, nullptr);
    return static_cast<wchar_t*>(ObtainBlock((BlockLineCapacity + LongestKeyword) * sizeof(wchar_t)));
}

void CFile_Parser::ReturnLineBuffer(wchar_t* buffer)
{
    ReleaseBlock(std::exchange(sparebuffer, buffer));
}

void CFile_Parser::Report(unsigned long level, const wchar_t* format, ...)
{
    if (!Log->Accepts(level))
        return;
    CWideOutput message;
    SFormatArguments arguments;
    va_start(arguments.list, format);
    FormatText(message, format, arguments);
    va_end(arguments.list);
    Log->Write(level, L"%s(%u): %s", filename.IsEmpty() ? L"text" : filename.Get(),
               static_cast<unsigned>(GetLineNumber()), message.GetText());
}

std::size_t CFile_Parser::GetUnitSize() const
{
    return encoding == EEncoding::Utf8 ? 1 : 2;
}

/// A byte, or a 16-bit unit of UTF-16.
unsigned CFile_Parser::JoinUnit(const unsigned char* unit) const
{
    const unsigned first = unit[0];
    if (encoding == EEncoding::Utf8)
        return first;
    const unsigned second = unit[1];
    return encoding == EEncoding::Utf16LittleEndian ? first | second << 8 : first << 8 | second;
}

/// The unit at a position in memory; EndOfText where none is whole.
unsigned CFile_Parser::GetUnit(std::size_t position) const
{
    return position < heldend && heldend - position >= GetUnitSize() ? JoinUnit(bytes + (position - heldbegin))
                                                                     : EndOfText;
}

/// How many line ends have their last unit between two positions.
std::size_t CFile_Parser::CountLineEnds(std::size_t from, std::size_t to) const
{
    constexpr std::size_t most = 4096;
    const std::size_t unitsize = GetUnitSize();
    unsigned char piece[most + 2]; // and the unit that follows
    std::size_t count = 0;
    for (std::size_t position = from; position < to; position += most)
    {
        const std::size_t wanted = std::min(most, to - position);
        const std::size_t got = ReadAt(position, piece, wanted + unitsize);
        for (std::size_t i = 0; i + unitsize <= std::min(got, wanted); i += unitsize)
        {
            const unsigned unit = JoinUnit(piece + i);
            const unsigned next = i + 2 * unitsize <= got ? JoinUnit(piece + i + unitsize) : EndOfText;
            count += unit == '\n' || (unit == '\r' && next != '\n') ? 1 : 0;
        }
    }
    return count;
}

/// Looks for the last line end in memory, from `searchbegin` on; where there is none, the one found before stays.
void CFile_Parser::FindPlainEnd(std::size_t searchbegin)
{
    // Behind the caller's bytes there is nothing to be looked at; behind the block's own there is slack.
    std::size_t last = heldend;
    if (ownbytes != nullptr)
        std::memset(ownbytes + (heldend - heldbegin), 0, LongestKeyword);
    else
        last -= std::min(last, LongestKeyword);
    if (searchbegin == 0)
        plainend = 0;
    if (encoding != EEncoding::Utf8)
        return;
    // A text in memory is not searched through for it, only as far back as a line is long.
    if (heldend == size)
        searchbegin = std::max(searchbegin, last - std::min<std::size_t>(last, BlockLineCapacity));
    for (std::size_t position = last; position-- > searchbegin;)
        if (IsLineEnd(bytes[position - heldbegin]))
        {
            plainend = position;
            return;
        }
}

/// Moves to the first visible character that is in memory.
void CFile_Parser::PassBlankLines()
{
    const auto isblank = [](unsigned unit) { return IsSpace(unit) || IsLineEnd(unit); };
    if (encoding == EEncoding::Utf8)
    {
        const unsigned char* const first = bytes + (offset - heldbegin);
        offset += static_cast<std::size_t>(std::find_if_not(first, bytes + (heldend - heldbegin), isblank) - first);
        return;
    }
    while (isblank(GetUnit(offset)))
        offset += GetUnitSize();
}

/// Moves to the first visible character of the next line that is neither blank nor a comment, and has that line
/// in memory.
bool CFile_Parser::FindLine()
{
    const std::size_t unitsize = GetUnitSize();
    for (;;)
    {
        if (!IsLineHeld())
            HoldLine();
        PassBlankLines();
        if (!IsLineHeld())
            HoldLine();
        unsigned unit = GetUnit(offset);
        if (unit == EndOfText)
        {
            offset = size;
            return false;
        }
        if (IsSpace(unit) || IsLineEnd(unit))
            continue;
        if (unit != '#' && !(unit == '/' && GetUnit(offset + unitsize) == '/'))
            return true;
        for (; unit != EndOfText && !IsLineEnd(unit); unit = GetUnit(offset))
            offset += unitsize;
    }
}

/// Reads a line and moves to its end; judges what it does to the blocks.
bool CFile_Parser::ReadLine(CLineBuffer& line)
{
    blockdepth = std::max(blockdepth, 0L);
    opensblock = false;
    if (!FindLine())
        return false;
    const std::size_t first = offset;
    if (encoding == EEncoding::Utf8)
        DecodeUtf8Line(line);
    else
        DecodeUtf16Line(line);

    const std::size_t unitsize = GetUnitSize();
    std::size_t last = offset - unitsize;
    while (IsSpace(GetUnit(last)))
        last -= unitsize;
    const unsigned lastunit = GetUnit(last);
    line.isopening = lastunit == '{' && last == first;
    line.isclosing = lastunit == '}' && last == first;
    opensblock = lastunit == '{' && !IsInQuotes(first, last);
    blockdepth += opensblock ? 1 : 0;
    if (line.iscut)
        Report(2, L"the line is too long, what does not fit is passed over");
    return true;
}

bool CFile_Parser::IsInQuotes(std::size_t first, std::size_t position) const
{
    bool isinside = false;
    for (; first != position; first += GetUnitSize())
        isinside ^= GetUnit(first) == '"';
    return isinside;
}

void CFile_Parser::DecodeUtf8Line(CLineBuffer& line)
{
    const unsigned char* const first = bytes + (offset - heldbegin);
    const unsigned char* const end = bytes + (heldend - heldbegin);
    const unsigned char* at = first;
    for (;;)
    {
        at += line.PutPlain(at, static_cast<std::size_t>(end - at));
        if (at == end || IsLineEnd(*at))
            break;
        if (line.IsFull())
        {
            line.iscut |= !IsSpace(*at++);
            continue;
        }
        const SCharacter character = DecodeUtf8(at, static_cast<std::size_t>(end - at));
        line.Put(character.code == 0 ? U' ' : character.code);
        at += character.size;
    }
    offset += static_cast<std::size_t>(at - first);
}

void CFile_Parser::DecodeUtf16Line(CLineBuffer& line)
{
    for (unsigned unit = GetUnit(offset); unit != EndOfText && !IsLineEnd(unit); unit = GetUnit(offset))
    {
        offset += 2;
        if (line.IsFull())
        {
            line.iscut |= !IsSpace(unit);
            continue;
        }
        const unsigned next = GetUnit(offset);
        if (IsHighSurrogate(unit) && next != EndOfText && IsLowSurrogate(next))
        {
            line.Put(JoinSurrogates(unit, next));
            offset += 2;
        }
        else if (IsHighSurrogate(unit) || IsLowSurrogate(unit))
            line.Put(ReplacementCharacter);
        else
            line.Put(unit == 0 ? U' ' : unit);
    }
}
