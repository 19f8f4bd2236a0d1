#include "core/word_helpers.h"

#include <algorithm>
#include <cwchar>

namespace
{
/// Moves what stands at `rest` to the front of the line it belongs to.
void MoveToFront(wchar_t* line, const wchar_t* rest)
{
    if (rest != line)
        std::wmemmove(line, rest, std::wcslen(rest) + 1);
}

void CopyText(wchar_t* to, const wchar_t* from, const wchar_t* end)
{
    if (to != nullptr)
        *std::copy(from, end, to) = L'\0';
}
} // namespace

int RecognizeWord(const wchar_t* word, const wchar_t* line)
{
    const wchar_t* const first = SkipBlanks(line);
    const wchar_t* const end = FindWordEnd(first);
    const std::size_t length = std::wcslen(word);
    return length != 0 && length == static_cast<std::size_t>(end - first) && std::equal(first, end, word) ? 1 : 0;
}

int RecognizeString(const wchar_t* text, const wchar_t* line)
{
    while (*text != L'\0')
        if (*text++ != *line++)
            return 0;
    return 1;
}

Result MoveString(wchar_t* line, wchar_t* removed)
{
    const wchar_t* const end = FindWordEnd(line);
    CopyText(removed, line, end);
    const bool isword = end != line;
    MoveToFront(line, SkipBlanks(end));
    return isword ? 1 : 0;
}

Result MoveStringToMark(wchar_t* line, wchar_t mark, wchar_t othermark, wchar_t* removed)
{
    const wchar_t* at = line;
    while (*at != L'\0' && *at != mark && *at != othermark)
        ++at;
    CopyText(removed, line, at);
    const bool isfound = *at != L'\0';
    MoveToFront(line, isfound ? at + 1 : at);
    return isfound ? 1 : 0;
}

int CompareStrings(const wchar_t* one, const wchar_t* other)
{
    return std::wcscmp(one, other) == 0 ? 1 : 0;
}
