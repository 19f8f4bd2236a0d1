/// The text parser: bytes of a file or of memory, taken line by line.
#pragma once

#include "core/core_base.h"
#include "core/sys_string.h"
#include "core/word_helpers.h"

#include <string_view>

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
/// Memory: a large file is read piece by piece while its lines are taken, and stays open until DestroyData,
///         another text or the end of the parser. Only the piece around the position is in memory, and the
///         whole of a line.
/// Owns:   its bytes, unless Open was told to use the caller's. Not for copying.
class ENGINE_CORE_API CFile_Parser
{
  public:
    CFile_Parser() = default;
    CFile_Parser(const CFile_Parser&) = delete;
    CFile_Parser& operator=(const CFile_Parser&) = delete;
    ~CFile_Parser();

    using BytesCanMove = CFile_Parser;

    /// Bytes of a file that are read at a time. Shorter files, those in UTF-16 and what is no plain file, such as
    /// a pipe, are read as a whole when they are opened.
    static constexpr std::size_t PieceSize = std::size_t{256} * 1024;

    /// Opens a file. The narrow name is the bytes that the operating system takes (UTF-8 on Windows).
    /// Whatever the parser held before is gone. Returns 0, the parser left empty, when the file cannot be
    /// opened or read or does not fit in memory: GetError says why.
    /// piecesize: at least 1.
    Result OpenFile(const char* name, std::size_t piecesize = PieceSize);
    Result OpenFile(const wchar_t* name, std::size_t piecesize = PieceSize);

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

    /// The errno value of the last OpenFile or Add that failed, or of a later read of the file: the text then
    /// ends where reading failed. Else 0.
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

    /// The text from the position to the last line end that is in memory, for whoever reads long lists in place
    /// (core/plain_lines.h); empty when the text is not in UTF-8. At least LongestKeyword bytes that may be
    /// looked at follow, the line end first. Valid until the next line is taken.
    std::string_view GetPlainText() const
    {
        if (offset < heldbegin || offset >= plainend)
            return {};
        return {reinterpret_cast<const char*>(bytes) + (offset - heldbegin), plainend - offset};
    }

    /// Number of the line in which the position stands, from 1. Counted when asked for.
    std::size_t GetLineNumber() const;

    /// TakeLineBuffer hands out a buffer for a line, with room for BlockLineCapacity and LongestKeyword characters,
    /// whose contents are undefined; null when there is no memory. It is the taker's until ReturnLineBuffer takes
    /// it back. The last one given back is kept for the next taker, until DestroyData: records are many
    /// and short.
    wchar_t* TakeLineBuffer();
    void ReturnLineBuffer(wchar_t* buffer);

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

    template <class TName> Result ReadFile(const TName* name, std::size_t newpiecesize);
    bool ReadWhole(std::size_t seemingsize);
    bool ReadFirstPiece(std::size_t seemingsize);
    std::size_t ReadAt(std::size_t position, void* to, std::size_t count) const;
    bool HoldMore();
    bool IsLineHeld() const;
    void HoldLine();
    bool MakeRoom(std::size_t wanted);
    void Fail(int why);
    void Adopt(const unsigned char* newbytes, std::size_t newsize, std::size_t newheldsize);
    void FindPlainEnd(std::size_t searchbegin);
    bool ReadLine(CLineBuffer& line);
    bool FindLine();
    void PassBlankLines();
    void DecodeUtf8Line(CLineBuffer& line);
    void DecodeUtf16Line(CLineBuffer& line);
    std::size_t GetUnitSize() const;
    unsigned JoinUnit(const unsigned char* unit) const;
    unsigned GetUnit(std::size_t position) const;
    std::size_t CountLineEnds(std::size_t from, std::size_t to) const;
    bool IsInQuotes(std::size_t first, std::size_t position) const;

    // The part of the text that is in memory: bytes[0] is the byte at heldbegin. All of it, but for a large file.
    const unsigned char* bytes = nullptr;
    std::size_t heldbegin = 0;
    std::size_t heldend = 0;
    std::size_t plainend = 0; ///< The last line end in memory that GetPlainText may reach; 0 when there is none.

    unsigned char* ownbytes = nullptr; ///< The block that `bytes` is, if this parser owns it.
    std::size_t blocksize = 0;         ///< Of the block, but for the slack behind it.
    void* file = nullptr;              ///< While more of it may have to be read.
    std::size_t piecesize = PieceSize;

    std::size_t size = 0;
    std::size_t begin = 0; ///< Where the text starts, behind a byte order mark.
    std::size_t offset = 0;
    long blockdepth = 0;
    bool opensblock = false;
    EEncoding encoding = EEncoding::Utf8;
    int error = 0;
    wchar_t* sparebuffer = nullptr;        ///< For TakeLineBuffer.
    mutable std::size_t countedoffset = 0; ///< GetLineNumber counts on from here.
    mutable std::size_t countedlines = 0;
    CSys_String filename;
};
