/// Words and texts in a line. A word ends at a blank, a tab, the end of the line or before "{";
/// a "{" that begins a word is the whole of it.
#pragma once

#include "core/core_base.h"

#include <string_view>

/// Room for any keyword and a character behind it.
inline constexpr std::size_t LongestKeyword = 64;

/// A word that lines begin with, of 1 to 63 characters. Its length is known when the program is compiled, so that a
/// test of a line against it is a few comparisons.
struct SKeyword
{
    const wchar_t* text;
    std::size_t length;

    template <std::size_t Size> consteval SKeyword(const wchar_t (&literal)[Size]) : text(literal), length(Size - 1)
    {
    }

    constexpr SKeyword(std::wstring_view view) : text(view.data()), length(view.size())
    {
    }
};

inline bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

/// The first character at or behind `text` that is neither a blank nor a tab.
inline const wchar_t* SkipBlanks(const wchar_t* text)
{
    while (IsBlank(*text))
        ++text;
    return text;
}

/// Where the word that begins at `text` ends; `text` itself at a blank or the end of the line.
inline const wchar_t* FindWordEnd(const wchar_t* text)
{
    if (*text == L'{')
        return text + 1;
    while (*text != L'\0' && *text != L'{' && !IsBlank(*text))
        ++text;
    return text;
}

/// Nonzero when the line's first word, behind leading blanks and tabs, is exactly `word`.
ENGINE_CORE_API int RecognizeWord(const wchar_t* word, const wchar_t* line);

/// Nonzero when the line begins with `text`.
ENGINE_CORE_API int RecognizeString(const wchar_t* text, const wchar_t* line);

/// Removes the first word and the blanks and tabs behind it, by moving the rest to the front; from a
/// line that begins with blanks or tabs only those. Returns 1 when a word was removed.
/// removed: receives the word when not null; room for the whole line is the caller's business.
ENGINE_CORE_API Result MoveString(wchar_t* line, wchar_t* removed);

/// Removes the text up to and including the first of two marks. Returns 0, the line then empty, when
/// neither is there. removed: receives what stood before the mark, when not null.
ENGINE_CORE_API Result MoveStringToMark(wchar_t* line, wchar_t mark, wchar_t othermark, wchar_t* removed);

/// 1 when the texts are equal to the letter, else 0.
ENGINE_CORE_API int CompareStrings(const wchar_t* one, const wchar_t* other);
