/// The text saver: lines and nested blocks of the engine's text form, and the log.
#pragma once

#include "core/core_base.h"
#include "core/line_format.h"

/// Writes the engine text block form as UTF-8 with LF: "{" and "}" on lines of their own, one tab per
/// open block before every line. Holds back some bytes until Close. A saver that is not open takes
/// calls and does nothing.
class ENGINE_CORE_API CFile_Saver
{
  public:
    /// Receives finished bytes; returns 1 when it could take them all.
    using Sink = Result (*)(const char* bytes, std::size_t size, void* context);

    CFile_Saver() = default;
    CFile_Saver(const CFile_Saver&) = delete;
    CFile_Saver& operator=(const CFile_Saver&) = delete;
    ~CFile_Saver();

    /// Creates the file, or empties it. The narrow name is the bytes that the operating system takes
    /// (UTF-8 on Windows). Returns 0 when that fails: GetError says why.
    Result OpenFile(const char* name);
    Result OpenFile(const wchar_t* name);

    /// Writes into memory: GetText and GetSize then give what was written so far. Returns 1.
    Result OpenMemory();

    /// Writes to the caller's function. Each finished line reaches it at once with `eachline`,
    /// else in large pieces. Returns 1.
    Result OpenSink(Sink newsink, void* context, bool eachline = false);

    /// Writes what was held back and closes. Returns 1 when everything reached its destination, else 0:
    /// GetError says why.
    Result Close();

    /// Opens a nested block. Returns 0, nothing written, when the saver is not open or a write has failed.
    Result StartBlock();

    /// Closes the innermost block; without one it does nothing and returns 0.
    Result EndBlock();

    /// Writes one line. level: lines below the lowest level are left out; records use 0.
    /// format: "%d" and "%u" (32-bit), "%f" (six decimals), "%.9g" (a float that must survive), "%s"
    /// (a wide text on every platform; null is empty), "%%"; every other character is itself. Number
    /// forms do not depend on the process locale. A line end inside a text becomes a blank.
    /// Returns 0 when the line was left out, the saver is not open or a write has failed.
    Result Write(unsigned long level, const wchar_t* format, ...);

    /// Writes one line at level 0: the format's label and behind it as many numbers as it has. The same as Write,
    /// but quicker: for long lists. Returns as Write does.
    /// format: of numbers, all "%f" or all "%d" as their type is.
    Result WriteNumbers(const SLineFormat& format, const float* numbers);
    Result WriteNumbers(const SLineFormat& format, const std::int32_t* numbers);

    /// Lines below this level are left out; 0 at first, 2 for the log.
    void SetLowestLevel(unsigned long newlevel);
    unsigned long GetLowestLevel() const;

    /// Whether a line of this level would be written.
    bool Accepts(unsigned long level) const
    {
        return isopen && level >= lowestlevel;
    }

    /// What OpenMemory gathered: UTF-8, closed by a NUL; empty when nothing is open. Valid until the next call.
    const char* GetText();
    std::size_t GetSize() const;

    /// Open blocks.
    unsigned long GetBlockDepth() const;

    /// The errno value of the first failure since the last opening, 0 when there was none.
    int GetError() const;

  private:
    class COutput;

    template <class TName> Result CreateFile(const TName* name);
    Result Start(Sink newsink, void* context);
    template <class TNumber> Result WriteRow(const SLineFormat& format, const TNumber* numbers);
    bool Reserve(std::size_t more);
    bool Flush();
    void Fail(int why);
    void WriteBrace(const wchar_t* brace);
    void EndLine();

    char* buffer = nullptr;
    std::size_t used = 0;
    std::size_t capacity = 0;
    Sink sink = nullptr;
    void* sinkcontext = nullptr;
    void* file = nullptr;
    unsigned long lowestlevel = 0;
    unsigned long depth = 0;
    int error = 0;
    bool isopen = false;
    bool flusheslines = false;
};

/// Where diagnostics go: level 1 is detail, 2 a warning, 3 a summary. Never null. At first it is a saver
/// that is not open, so nothing is shown; replace it or open it to see the lines. Not owned.
extern ENGINE_CORE_API CFile_Saver* Log;
