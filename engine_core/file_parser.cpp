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
    ReleaseBlock(ownbytes);
}

template <class TName> Result CFile_Parser::ReadFile(const TName* name)
{
    DestroyData();
    std::FILE* const file = OpenFileByName(name, "rb");
    if (file == nullptr)
    {
        error = errno;
        return 0;
    }
    std::setvbuf(file, nullptr, _IONBF, 0);

    // One byte more than the file seems to have, so that its end shows without another growth; what
    // has no size beforehand, such as a pipe, grows.
    std::size_t capacity = 0;
    std::size_t used = 0;
    std::size_t wanted = static_cast<std::size_t>(GetRemainingSize(file)) + 1;
    for (;;)
    {
        if (used == capacity)
        {
            const std::size_t newcapacity = capacity == 0 ? std::max<std::size_t>(wanted, 4096) : capacity * 2;
            auto* const grown = static_cast<unsigned char*>(ResizeBlock(ownbytes, capacity, newcapacity));
            if (grown == nullptr)
            {
                error = ENOMEM;
                break;
            }
            ownbytes = grown;
            capacity = newcapacity;
        }
        errno = 0;
        const std::size_t got = std::fread(ownbytes + used, 1, capacity - used, file);
        used += got;
        if (got == 0)
        {
            if (std::ferror(file) != 0)
                error = errno != 0 ? errno : EIO;
            break;
        }
    }
    std::fclose(file);
    if (error != 0)
    {
        ReleaseBlock(ownbytes);
        ownbytes = nullptr;
        return 0;
    }
    Adopt(ownbytes, used);
    return 1;
}

Result CFile_Parser::OpenFile(const char* name)
{
    const Result result = ReadFile(name);
    filename.SetUtf8(name, std::strlen(name));
    return result;
}

Result CFile_Parser::OpenFile(const wchar_t* name)
{
    const Result result = ReadFile(name);
    filename = name;
    return result;
}

Result CFile_Parser::Open(const void* newbytes, std::size_t newsize)
{
    DestroyData();
    Adopt(static_cast<const unsigned char*>(newbytes), newsize);
    return 1;
}

Result CFile_Parser::Add(const CFile_Parser& source)
{
    const std::size_t count = source.size - source.offset;
    auto* const copy = static_cast<unsigned char*>(ObtainBlock(count));
    if (copy == nullptr)
    {
        DestroyData();
        error = ENOMEM;
        return 0;
    }
    if (count != 0)
        std::memcpy(copy, source.bytes + source.offset, count);
    const EEncoding sourceencoding = source.encoding;
    DestroyData();
    ownbytes = copy;
    Adopt(copy, count);
    encoding = sourceencoding;
    begin = 0;
    return Reset();
}

/// Starts anew on a text that somebody keeps alive.
void CFile_Parser::Adopt(const unsigned char* newbytes, std::size_t newsize)
{
    bytes = newbytes;
    size = newsize;
    error = 0;
    encoding = EEncoding::Utf8;
    begin = 0;
    // cppcheck-suppress nullPointer ; null bytes come with size 0
    if (size >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF)
        begin = 3;
    else if (size >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE)
    {
        encoding = EEncoding::Utf16LittleEndian;
        begin = 2;
    }
    else if (size >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF)
    {
        encoding = EEncoding::Utf16BigEndian;
        begin = 2;
    }
    countedoffset = begin;
    countedlines = 0;
    plainend = FindPlainEnd();
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
    ReleaseBlock(ownbytes);
    ownbytes = nullptr;
    filename.Clear();
    Adopt(nullptr, 0);
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
    const std::size_t count = std::min(wanted, size - offset);
    if (count != 0)
        std::memcpy(to, bytes + offset, count);
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
    const std::size_t unitsize = GetUnitSize();
    const std::size_t to = offset - (offset - begin) % unitsize;
    for (; countedoffset < to; countedoffset += unitsize)
        countedlines += EndsLine(countedoffset) ? 1 : 0;
    while (countedoffset > to)
    {
        countedoffset -= unitsize;
        countedlines -= EndsLine(countedoffset) ? 1 : 0;
    }
    return countedlines + 1;
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

/// Looks back over as much as a line and a keyword take, no further.
std::size_t CFile_Parser::FindPlainEnd() const
{
    if (encoding != EEncoding::Utf8 || size < LongestKeyword)
        return 0;
    const std::size_t last = size - LongestKeyword;
    const std::size_t first = last - std::min<std::size_t>(last, BlockLineCapacity);
    for (std::size_t position = last; position > first; --position)
        if (IsLineEnd(bytes[position]))
            return position;
    return 0;
}

/// The byte or 16-bit unit at a position; EndOfText where none is whole.
unsigned CFile_Parser::GetUnit(std::size_t position) const
{
    if (encoding == EEncoding::Utf8)
        return position < size ? bytes[position] : EndOfText;
    if (position >= size || size - position < 2)
        return EndOfText;
    const unsigned first = bytes[position];
    const unsigned second = bytes[position + 1];
    return encoding == EEncoding::Utf16LittleEndian ? first | second << 8 : first << 8 | second;
}

/// Whether the unit at a position is the last of a line end.
bool CFile_Parser::EndsLine(std::size_t position) const
{
    const unsigned unit = GetUnit(position);
    return unit == '\n' || (unit == '\r' && GetUnit(position + GetUnitSize()) != '\n');
}

/// Moves to the first visible character of the next line that is neither blank nor a comment.
bool CFile_Parser::FindLine()
{
    const std::size_t unitsize = GetUnitSize();
    for (;;)
    {
        unsigned unit = GetUnit(offset);
        for (; IsSpace(unit) || IsLineEnd(unit); unit = GetUnit(offset))
            offset += unitsize;
        if (unit == EndOfText)
        {
            offset = size;
            return false;
        }
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
    const unsigned char* at = bytes + offset;
    const unsigned char* const end = bytes + size;
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
    offset = static_cast<std::size_t>(at - bytes);
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
