/// The engine's string: wide text that never points into itself.
#pragma once

#include "core/core_base.h"
#include "core/file_io_object.h"

class CWideOutput;

/// Wide text of any length, closed by a NUL and holding none. An empty text takes no memory of its own.
/// When there is no memory for a text the string becomes empty. The saved form is one block that Load
/// reads back exactly, whatever the text holds.
class ENGINE_CORE_API CSys_String : public CFile_IOObject
{
  public:
    CSys_String() = default;
    explicit CSys_String(const wchar_t* newtext);
    CSys_String(const CSys_String& other);
    CSys_String(CSys_String&& other) noexcept;
    ~CSys_String() override;

    using BytesCanMove = CSys_String;

    CSys_String& operator=(const CSys_String& other);
    CSys_String& operator=(CSys_String&& other) noexcept;
    CSys_String& operator=(const wchar_t* newtext);

    /// Sets the text printf-style, with the conversions of CFile_Saver::Write. An argument may be this
    /// string's own text. Returns 0 when there is no memory; the text is then empty.
    Result Write(const wchar_t* format, ...);

    /// Sets the text to the first `count` characters at `newtext`, up to a NUL. Returns as Write does.
    Result Set(const wchar_t* newtext, std::size_t count);

    /// Sets the text from `size` bytes of UTF-8, up to a NUL. Returns as Write does.
    Result SetUtf8(const char* newtext, std::size_t size);

    /// The text, until the string changes; never null.
    const wchar_t* Get() const
    {
        return text != nullptr ? text : L"";
    }

    /// Makes the text empty and releases its memory. Returns 1.
    Result Clear();

    bool IsEmpty() const
    {
        return text == nullptr;
    }

    bool operator==(const CSys_String& other) const;

    /// Reads the block that Save wrote. A block without a text leaves the string empty. Returns 1.
    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

  private:
    Result Take(const CWideOutput& output);

    wchar_t* text = nullptr; ///< Null when empty.
};
