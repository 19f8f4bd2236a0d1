/// One character of Unicode at a time, in and out of the encodings that files have.
#pragma once

#include "core/core_base.h"

inline constexpr char32_t ReplacementCharacter = 0xFFFD;

/// A decoded character and the bytes it took.
struct SCharacter
{
    char32_t code;
    std::size_t size;
};

inline bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

inline bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

inline char32_t JoinSurrogates(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

/// Decodes the UTF-8 character at `bytes`, of which `size` (at least 1) are there. A byte that begins
/// no valid character stands for the Windows-1252 character of its number.
ENGINE_CORE_API SCharacter DecodeUtf8(const unsigned char* bytes, std::size_t size);

/// Writes a character as UTF-8 at `to`, which has room for four bytes; returns how many it took. What
/// is no character becomes U+FFFD.
ENGINE_CORE_API std::size_t EncodeUtf8(char32_t code, char* to);

/// Writes a character as one wchar_t or, where those have 16 bits, as a surrogate pair; returns how many.
ENGINE_CORE_API std::size_t EncodeWide(char32_t code, wchar_t* to);

/// Takes one character from wide text of `size` units (at least 1); half a pair becomes U+FFFD.
ENGINE_CORE_API SCharacter DecodeWide(const wchar_t* text, std::size_t size);
