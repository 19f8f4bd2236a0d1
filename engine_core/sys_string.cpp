#include "core/sys_string.h"

#include "core/characters.h"
#include "core/memory_manager.h"
#include "engine_core/text_field.h"
#include "engine_core/wide_output.h"

#include <cwchar>
#include <utility>

CSys_String::CSys_String(const wchar_t* newtext)
{
    *this = newtext;
}

CSys_String::CSys_String(const CSys_String& other) : CFile_IOObject(other)
{
    *this = other.text;
}

CSys_String::CSys_String(CSys_String&& other) noexcept : text(std::exchange(other.text, nullptr))
{
}

CSys_String::~CSys_String()
{
    ReleaseBlock(text);
}

CSys_String& CSys_String::operator=(const CSys_String& other)
{
    if (this != &other)
        *this = other.text;
    return *this;
}

CSys_String& CSys_String::operator=(CSys_String&& other) noexcept
{
    if (this != &other)
    {
        ReleaseBlock(text);
        text = std::exchange(other.text, nullptr);
    }
    return *this;
}

CSys_String& CSys_String::operator=(const wchar_t* newtext)
{
    Set(newtext, newtext == nullptr ? 0 : std::wcslen(newtext));
    return *this;
}

Result CSys_String::Write(const wchar_t* format, ...)
{
    CWideOutput output;
    SFormatArguments arguments;
    va_start(arguments.list, format);
    FormatText(output, format, arguments);
    va_end(arguments.list);
    return Take(output);
}

Result CSys_String::Set(const wchar_t* newtext, std::size_t count)
{
    if (count != 0)
        if (const wchar_t* const nul = std::wmemchr(newtext, L'\0', count))
            count = static_cast<std::size_t>(nul - newtext);
    wchar_t* copy = nullptr;
    if (count != 0)
    {
        copy = static_cast<wchar_t*>(ObtainBlock((count + 1) * sizeof(wchar_t)));
        if (copy == nullptr)
        {
            Clear();
            return 0;
        }
        std::wmemcpy(copy, newtext, count);
        copy[count] = L'\0';
    }
    ReleaseBlock(text); // not before: it may be the source
    text = copy;
    return 1;
}

Result CSys_String::SetUtf8(const char* newtext, std::size_t size)
{
    CWideOutput output;
    for (std::size_t i = 0; i < size;)
    {
        wchar_t units[2];
        const SCharacter character = DecodeUtf8(reinterpret_cast<const unsigned char*>(newtext) + i, size - i);
        output.PutText(units, EncodeWide(character.code, units));
        i += character.size;
    }
    return Take(output);
}

Result CSys_String::Take(const CWideOutput& output)
{
    if (output.IsWhole())
        return Set(output.GetText(), output.GetLength());
    Clear();
    return 0;
}

Result CSys_String::Clear()
{
    ReleaseBlock(text);
    text = nullptr;
    return 1;
}

bool CSys_String::operator==(const CSys_String& other) const
{
    return std::wcscmp(Get(), other.Get()) == 0;
}

Result CSys_String::Load(CFile_Parser* parser, CFile_IOCallback*)
{
    CTextField field(L"text:");
    CBlockReader block(parser);
    while (block.NextLine())
        field.Read(block);
    return field.Finish(*this);
}

Result CSys_String::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    SaveTextField(saver, L"text:", Get());
    return 1;
}
