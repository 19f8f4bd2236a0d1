/// The formats of the lines that records write.
#pragma once

#include <cstddef>

/// The format of a line, as CFile_Saver::Write has it, and what was seen in it when the program was compiled:
/// the lines of long lists are a label and numbers of one kind.
struct SLineFormat
{
    static constexpr std::size_t LongestLabel = 32;

    const wchar_t* text;
    std::size_t numbers = 0;    ///< How many follow the label; 0 when it is not such a line.
    wchar_t conversion = L'\0'; ///< Of all of them: L'f' or L'd'.
    std::size_t labelsize = 0;
    char label[LongestLabel] = {};

    template <std::size_t Size> consteval SLineFormat(const wchar_t (&literal)[Size]) : text(literal)
    {
        std::size_t at = 0;
        for (; at < LongestLabel && literal[at] > L' ' && literal[at] < 0x7F && literal[at] != L'%'; ++at)
            label[at] = static_cast<char>(literal[at]);
        labelsize = at;
        conversion = at + 3 < Size ? literal[at + 2] : L'\0';
        for (; at + 3 < Size && literal[at] == L' ' && literal[at + 1] == L'%' && literal[at + 2] == conversion;
             at += 3)
            ++numbers;
        if (literal[at] != L'\0' || (conversion != L'f' && conversion != L'd'))
            numbers = 0;
    }
};
