/// The text parser: bytes of a file or of memory, taken line by line.
#pragma once

#include "core/core_base.h"
#include "core/sys_string.h"
#include "core/word_helpers.h"

/// Delivers a text line by line as wide characters, whatever its encoding and line ends.
///
/// Encodings: UTF-8 with or without a byte order mark, UTF-16 of either byte order with one. A byte
///         that is no valid UTF-8 stands for the Windows-1252 character of that number, so names from
///         old exports survive; half a surrogate pair becomes U+FFFD.
/// Lines:  end with LF, CR LF or CR and come without it and without blanks and tabs at either end.
///         A NUL is a blank. Blank lines and those that begin with "//" or "#" are passed over.
///         A line too long for the caller's buffer is cut to it (counted in UTF-16 units, so that it is
///         cut alike on every platform) and Log gets a level 2 line; its rest is never delivered.
/// Blocks: a line whose last visible character is "{" outside double quotes opens a block, a line
///         that is "}" alone closes one. No other brace counts.
/// Position: an offset in bytes. After a line it stands at the line's end, before the characters
///         that end it; the next call skips them.
/// Owns:   its bytes, unless Open was told to use the caller's. Not for copying.
class ENGINE_CORE_API CFile_Parser
{
  public:
    CFile_Parser() = default;
    CFile_Parser(const CFile_Parser&) = delete;
    CFile_Parser& operator=(const CFile_Parser&) = delete;
    ~CFile_Parser();

    using BytesCanMove = CFile_Parser;

    /// Reads a whole file. The narrow name is the bytes that the operating system takes (UTF-8 on
    /// Windows). Whatever the parser held before is gone. Returns 0, the parser left empty, when the
    /// file cannot be opened or read or does not fit in memory: GetError says why.
    Result OpenFile(const char* name);
    Result OpenFile(const wchar_t* name);

    /// Takes a text from memory, which is not copied and must outlive the parser's use of it.
    /// Null with size 0 is an empty text. Returns 1.
    Result Open(const void* bytes, std::size_t size);

    /// Takes a copy of what the other parser has still to read, in its encoding. Returns 0, this
    /// parser left empty, when there is no memory. The source's position stays.
    Result Add(const CFile_Parser& source);

    /// Goes back to the beginning of the text. Returns 1.
    Result Reset();

    /// Lets go of the text and its name. Returns 1.
    Result DestroyData();

    /// The name for messages and for whoever asks; opening a file sets it. Returns 1.
    Result SetFilename(const wchar_t* name);
    const wchar_t* GetFilename() const;

    /// The errno value of the last OpenFile or Add that failed, else 0.
    int GetError() const;

    /// Puts the next line into `line`, at most `capacity` characters with the closing NUL.
    /// Returns 1; 0, with an empty text in `line`, once the text has ended.
    Result GetLine(wchar_t* line, unsigned long capacity);

    /// Characters in the buffer that GetBlockLine fills.
    static constexpr unsigned long BlockLineCapacity = 2048;

    /// Puts the next line of the current block into `line`, a buffer of BlockLineCapacity.
    /// A line that is "{" alone opens a block and is not delivered. Returns 1 with a line; 0, with an
    /// empty text in `line`, when a line that is "}" alone was consumed or the text has ended.
    Result GetBlockLine(wchar_t* line);

    /// How many blocks stand open, the one that the last line opened included. A line that closes
    /// more than stand open leaves -1 until the next line is read.
    long GetBlockDepth() const
    {
        return blockdepth;
    }

    /// Whether the last line delivered opened a block.
    bool OpensBlock() const
    {
        return opensblock;
    }

    /// Copies raw bytes from the position on and moves behind them. Returns how many there were, at
    /// most `size`.
    std::size_t Read(void* to, std::size_t size);

    /// The position in bytes from the beginning. One past the end becomes the end. SetOffset returns 1.
    Result SetOffset(std::size_t newoffset);

    std::size_t GetOffset() const
    {
        return offset;
    }

    /// Bytes of the whole text.
    std::size_t GetSize() const
    {
        return size;
    }

    /// The bytes of the text, for whoever reads long lists in place (core/plain_lines.h).
    const char* GetText() const
    {
        return reinterpret_cast<const char*>(bytes);
    }

    /// The last place where a line ends and at least LongestKeyword bytes follow, when the text is UTF-8 and
    /// its last lines are of ordinary length; otherwise 0. A search for a line end that starts before it needs
    /// no other end.
    std::size_t GetPlainEnd() const
    {
        return plainend;
    }

    /// Number of the line in which the position stands, from 1. Counted when asked for.
    std::size_t GetLineNumber() const;

    /// Tells Log at `level` what is wrong with the line just read, as "file(line): message".
    /// The format is as CFile_Saver::Write has it.
    void Report(unsigned long level, const wchar_t* format, ...);

  private:
    enum class EEncoding
    {
        Utf8,
        Utf16LittleEndian,
        Utf16BigEndian,
    };

    class CLineBuffer;

    template <class TName> Result ReadFile(const TName* name);
    void Adopt(const unsigned char* newbytes, std::size_t newsize);
    bool ReadLine(CLineBuffer& line);
    bool FindLine();
    void DecodeUtf8Line(CLineBuffer& line);
    void DecodeUtf16Line(CLineBuffer& line);
    std::size_t FindPlainEnd() const;
    std::size_t GetUnitSize() const;
    unsigned GetUnit(std::size_t position) const;
    bool EndsLine(std::size_t position) const;
    bool IsInQuotes(std::size_t first, std::size_t position) const;

    const unsigned char* bytes = nullptr;
    unsigned char* ownbytes = nullptr;
    std::size_t size = 0;
    std::size_t begin = 0; ///< Where the text starts, behind a byte order mark.
    std::size_t offset = 0;
    std::size_t plainend = 0;
    long blockdepth = 0;
    bool opensblock = false;
    EEncoding encoding = EEncoding::Utf8;
    int error = 0;
    mutable std::size_t countedoffset = 0; ///< GetLineNumber counts on from here.
    mutable std::size_t countedlines = 0;
    CSys_String filename;
};
