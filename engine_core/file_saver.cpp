#include "core/file_saver.h"

#include "core/characters.h"
#include "core/memory_manager.h"
#include "engine_core/file_access.h"
#include "engine_core/text_format.h"
#include "engine_core/write_number.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace
{
CFile_Saver closedlog;
constexpr std::size_t FlushSize = std::size_t{256} * 1024;

Result WriteToFile(const char* bytes, std::size_t size, void* context)
{
    return std::fwrite(bytes, 1, size, static_cast<std::FILE*>(context)) == size ? 1 : 0;
}
} // namespace

CFile_Saver* Log = &closedlog;

/// Puts formatted text into the saver's buffer as UTF-8. While it lives the end of what was written
/// is kept here, out of the saver's memory.
class CFile_Saver::COutput
{
  public:
    // cppcheck-suppress uninitMemberVar ; its buffer is written before it is read
    explicit COutput(CFile_Saver& target) : saver(target), next(saver.buffer + saver.used)
    {
    }
    COutput(const COutput&) = delete;
    COutput& operator=(const COutput&) = delete;
    ~COutput()
    {
        saver.used = static_cast<std::size_t>(next - saver.buffer);
    }

    void PutText(const wchar_t* text, std::size_t count)
    {
        if (!Reserve(count * 4))
            return;
        char* to = next;
        for (std::size_t i = 0; i < count;)
        {
            const wchar_t unit = text[i];
            if (static_cast<unsigned>(unit) < 0x80)
            {
                *to++ = unit == L'\n' || unit == L'\r' ? ' ' : static_cast<char>(unit);
                ++i;
                continue;
            }
            const SCharacter character = DecodeWide(text + i, count - i);
            to += EncodeUtf8(character.code, to);
            i += character.size;
        }
        next = to;
    }

    char* ReserveNumber()
    {
        return Reserve(NumberCapacity) ? next : spare;
    }

    void TakeNumber(std::size_t count)
    {
        if (saver.error == 0)
            next += count;
    }

    void PutBlanks(std::size_t count, char blank)
    {
        if (!Reserve(count))
            return;
        for (; count != 0; --count)
            *next++ = blank;
    }

  private:
    bool Reserve(std::size_t more)
    {
        if (more <= saver.capacity - static_cast<std::size_t>(next - saver.buffer))
            return true;
        saver.used = static_cast<std::size_t>(next - saver.buffer);
        const bool isthere = saver.Reserve(more);
        next = saver.buffer + saver.used;
        return isthere;
    }

    CFile_Saver& saver;
    char* next;
    char spare[NumberCapacity]; ///< For numbers that have no place, for want of memory.
};

CFile_Saver::~CFile_Saver()
{
    Close();
    ReleaseBlock(buffer);
}

template <class TName> Result CFile_Saver::CreateFile(const TName* name)
{
    Close();
    std::FILE* const newfile = OpenFileByName(name, "wb");
    if (newfile == nullptr)
    {
        error = errno;
        return 0;
    }
    std::setvbuf(newfile, nullptr, _IONBF, 0); // the buffer here does that work
    file = newfile;
    return Start(WriteToFile, newfile);
}

Result CFile_Saver::OpenFile(const char* name)
{
    return CreateFile(name);
}

Result CFile_Saver::OpenFile(const wchar_t* name)
{
    return CreateFile(name);
}

Result CFile_Saver::OpenMemory()
{
    Close();
    return Start(nullptr, nullptr);
}

Result CFile_Saver::OpenSink(Sink newsink, void* context, bool eachline)
{
    Close();
    Start(newsink, context);
    flusheslines = eachline;
    return 1;
}

Result CFile_Saver::Start(Sink newsink, void* context)
{
    sink = newsink;
    sinkcontext = context;
    used = 0;
    depth = 0;
    error = 0;
    isopen = true;
    flusheslines = false;
    return 1;
}

Result CFile_Saver::Close()
{
    if (!isopen)
        return error == 0 ? 1 : 0;
    Flush();
    isopen = false;
    if (file != nullptr && std::fclose(static_cast<std::FILE*>(file)) != 0)
        Fail(errno);
    file = nullptr;
    sink = nullptr;
    used = 0;
    return error == 0 ? 1 : 0;
}

Result CFile_Saver::StartBlock()
{
    if (!isopen || error != 0)
        return 0;
    WriteBrace(L"{");
    if (error != 0)
        return 0;
    ++depth;
    return 1;
}

Result CFile_Saver::EndBlock()
{
    if (!isopen || depth == 0)
        return 0;
    --depth;
    WriteBrace(L"}");
    return error == 0 ? 1 : 0;
}

Result CFile_Saver::Write(unsigned long level, const wchar_t* format, ...)
{
    if (!Accepts(level) || error != 0)
        return 0;
    SFormatArguments arguments;
    va_start(arguments.list, format);
    {
        COutput output(*this);
        output.PutBlanks(depth, '\t');
        FormatText(output, format, arguments);
        output.PutBlanks(1, '\n');
    }
    va_end(arguments.list);
    EndLine();
    return error == 0 ? 1 : 0;
}

template <class TNumber> Result CFile_Saver::WriteRow(const SLineFormat& format, const TNumber* numbers)
{
    if (!Accepts(0) || !Reserve(depth + format.labelsize + format.numbers * (NumberCapacity + 1) + 1))
        return 0;
    char* to = std::fill_n(buffer + used, depth, '\t');
    to = std::copy_n(format.label, format.labelsize, to);
    for (std::size_t i = 0; i < format.numbers; ++i)
    {
        *to = ' ';
        to = WriteNumber(to + 1, numbers[i]);
    }
    *to++ = '\n';
    used = static_cast<std::size_t>(to - buffer);
    EndLine();
    return error == 0 ? 1 : 0;
}

Result CFile_Saver::WriteNumbers(const SLineFormat& format, const float* numbers)
{
    return WriteRow(format, numbers);
}

Result CFile_Saver::WriteNumbers(const SLineFormat& format, const std::int32_t* numbers)
{
    return WriteRow(format, numbers);
}

void CFile_Saver::SetLowestLevel(unsigned long newlevel)
{
    lowestlevel = newlevel;
}

unsigned long CFile_Saver::GetLowestLevel() const
{
    return lowestlevel;
}

const char* CFile_Saver::GetText()
{
    if (!isopen || !Reserve(1))
        return "";
    buffer[used] = '\0';
    return buffer;
}

std::size_t CFile_Saver::GetSize() const
{
    return used;
}

unsigned long CFile_Saver::GetBlockDepth() const
{
    return depth;
}

int CFile_Saver::GetError() const
{
    return error;
}

bool CFile_Saver::Reserve(std::size_t more)
{
    if (more <= capacity - used)
        return error == 0;
    const std::size_t newcapacity = std::max({used + more, capacity * 2, FlushSize + FlushSize / 4});
    void* const block = ResizeBlock(buffer, capacity, newcapacity);
    if (block == nullptr)
    {
        Fail(ENOMEM);
        return false;
    }
    buffer = static_cast<char*>(block);
    capacity = newcapacity;
    return error == 0;
}

bool CFile_Saver::Flush()
{
    if (sink == nullptr || used == 0)
        return true;
    errno = 0;
    const bool iswritten = error == 0 && sink(buffer, used, sinkcontext) == 1;
    if (!iswritten)
        Fail(errno != 0 ? errno : EIO);
    used = 0;
    return iswritten;
}

void CFile_Saver::Fail(int why)
{
    if (error == 0)
        error = why;
}

void CFile_Saver::WriteBrace(const wchar_t* brace)
{
    {
        COutput output(*this);
        output.PutBlanks(depth, '\t');
        output.PutText(brace, 1);
        output.PutBlanks(1, '\n');
    }
    EndLine();
}

void CFile_Saver::EndLine()
{
    if (flusheslines || used >= FlushSize)
        Flush();
}
