#include "engine_core/text_field.h"

#include "core/characters.h"

#include <algorithm>
#include <cwchar>

namespace
{
constexpr std::size_t MostCharactersPerLine = 200; // escapes included, well inside a line buffer

/// Whether a character comes through a text file as it is.
bool IsSafe(const wchar_t* text, std::size_t count, const SCharacter& character)
{
    if (text[0] < L' ')
        return text[0] == L'\t';
    return static_cast<char32_t>(text[0]) == character.code || (count > 1 && character.size == 2);
}

/// How many letters from here on are the same in a saved text, and plain ASCII; at most `most`.
std::size_t CountPlain(const wchar_t* text, std::size_t most)
{
    std::size_t count = 0;
    while (count < most && text[count] >= L' ' && text[count] <= L'~' && text[count] != L'"' && text[count] != L'\\')
        ++count;
    return count;
}

const wchar_t* ScanEscape(const wchar_t* at, CWideOutput& output)
{
    wchar_t code = *at++;
    if (code == L'n')
        code = L'\n';
    else if (code == L'r')
        code = L'\r';
    else if (code == L'u')
    {
        wchar_t* end = nullptr;
        code = static_cast<wchar_t>(std::wcstoul(at, &end, 16));
        at = *end == L';' ? end + 1 : end;
    }
    if (code != L'\0')
        output.PutText(&code, 1);
    return at;
}
} // namespace

void SaveTextField(CFile_Saver* saver, const wchar_t* keyword, const wchar_t* text)
{
    const std::size_t length = std::wcslen(text);
    for (std::size_t i = 0; i < length;)
    {
        CWideOutput line;
        while (i < length && line.GetLength() < MostCharactersPerLine)
        {
            const std::size_t plain =
                CountPlain(text + i, std::min(length - i, MostCharactersPerLine - line.GetLength()));
            line.PutText(text + i, plain);
            i += plain;
            if (plain != 0)
                continue;
            const SCharacter character = DecodeWide(text + i, length - i);
            const wchar_t letter = text[i];
            if (letter == L'"' || letter == L'\\')
                FormatText(line, L"\\%s", letter == L'"' ? L"\"" : L"\\");
            else if (letter == L'\n' || letter == L'\r')
                FormatText(line, L"\\%s", letter == L'\n' ? L"n" : L"r");
            else if (IsSafe(text + i, length - i, character))
                line.PutText(text + i, character.size);
            else
            {
                wchar_t escape[16];
                // Not straight to a long: a letter whose wchar_t is negative would become twice as many digits.
                std::swprintf(escape, std::size(escape), L"\\u%X;", static_cast<unsigned>(letter));
                line.PutText(escape, std::wcslen(escape));
            }
            i += character.size;
        }
        saver->Write(0, L"%s \"%s\"", keyword, line.GetText());
    }
}

void CTextField::Read(CBlockReader& block)
{
    if (!block.Strip(keyword))
        return;
    const wchar_t* at = block.GetRest();
    at += *at == L'"' ? 1 : 0;
    while (*at != L'\0' && *at != L'"')
    {
        const wchar_t* const first = at;
        while (*at != L'\0' && *at != L'"' && *at != L'\\')
            ++at;
        output.PutText(first, static_cast<std::size_t>(at - first));
        if (*at == L'\\' && at[1] != L'\0')
            at = ScanEscape(at + 1, output);
        else if (*at == L'\\')
            ++at;
    }
}

Result CTextField::Finish(CSys_String& text)
{
    if (output.IsWhole())
        return text.Set(output.GetText(), output.GetLength());
    text.Clear();
    return 0;
}
