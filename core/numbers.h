/// Numbers in text: the one home of reading and writing them, in the manner of the C library's
/// conversions "%d", "%u" and "%f" in the "C" locale, whatever the locale of the process is.
///
/// Scanning skips leading white space, takes the longest valid prefix and moves `text` behind it.
/// Where there is no number nothing is stored, `text` stays and the result is false.
#pragma once

#include "core/core_base.h"

#include <bit>

/// Room for any number that the functions below write, closing NUL included.
inline constexpr std::size_t NumberCapacity = 352;

/// "%d" of any form: decimal, with a sign or without; saturates at the ends of the range.
ENGINE_CORE_API bool ScanAnyInteger(const wchar_t*& text, std::int32_t& value);

/// "%u": the same, unsigned. A negative number is its 32-bit pattern.
ENGINE_CORE_API bool ScanAnyInteger(const wchar_t*& text, std::uint32_t& value);

/// "%f" of any form: decimal, with exponent, hexadecimal, infinite, not a number; rounded correctly.
ENGINE_CORE_API bool ScanAnyFloat(const wchar_t*& text, float& value);

/// Write the number at `to`, which has room for NumberCapacity, and return its length; no NUL.
ENGINE_CORE_API std::size_t WriteInteger(char* to, std::int32_t value);
ENGINE_CORE_API std::size_t WriteInteger(char* to, std::uint32_t value);

/// "%f": six decimals, rounded to even from the exact value. Not-a-number is "nan" whatever its sign.
ENGINE_CORE_API std::size_t WriteFixed(char* to, double value);

/// "%.9g": few digits, but enough for a 32-bit float to read back to the same bits.
ENGINE_CORE_API std::size_t WriteExact(char* to, double value);

/// "%d" and "%u", quick for short numbers without a sign.
template <class T> inline bool ScanInteger(const wchar_t*& text, T& value)
{
    constexpr std::ptrdiff_t mostdigits = 9; // below 2^30
    const wchar_t* at = text;
    std::uint32_t number = 0;
    for (; *at >= L'0' && *at <= L'9' && at - text < mostdigits; ++at)
        number = number * 10 + static_cast<std::uint32_t>(*at - L'0');
    if (at == text || at - text == mostdigits)
        return ScanAnyInteger(text, value);
    value = static_cast<T>(number);
    text = at;
    return true;
}

/// "%f", quick for short decimals, which it rounds exactly as ScanAnyFloat does.
inline bool ScanFloat(const wchar_t*& text, float& value)
{
    static constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::ptrdiff_t mostdigits = 15; // 10^15 is below 2^53, so the double below holds them all

    const wchar_t* at = text;
    while (*at == L' ' || *at == L'\t')
        ++at;
    const bool isnegative = *at == L'-';
    at += isnegative ? 1 : 0;

    std::uint64_t digits = 0;
    const wchar_t* const first = at;
    for (; *at >= L'0' && *at <= L'9'; ++at)
        digits = digits * 10 + static_cast<std::uint64_t>(*at - L'0');
    std::ptrdiff_t count = at - first;
    std::ptrdiff_t decimals = 0;
    if (*at == L'.')
    {
        const wchar_t* const point = at++;
        for (; *at >= L'0' && *at <= L'9'; ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(*at - L'0');
        decimals = at - point - 1;
        count += decimals;
    }
    if (count == 0 || count > mostdigits || (*at | 0x20) == L'e' || (*at | 0x20) == L'x')
        return ScanAnyFloat(text, value);

    // Both operands are exact, so the quotient is the double nearest to the number. Rounding it to a
    // float gives the float nearest to the number unless the double lies just between two floats, or
    // where floats grow coarser than 24 bits.
    const double exact = static_cast<double>(digits) / powers[decimals];
    constexpr std::uint64_t droppedbits = (std::uint64_t{1} << 29) - 1;
    constexpr std::uint64_t halfway = std::uint64_t{1} << 28;
    if ((std::bit_cast<std::uint64_t>(exact) & droppedbits) == halfway)
        return ScanAnyFloat(text, value);

    const auto magnitude = static_cast<float>(exact);
    value = isnegative ? -magnitude : magnitude;
    text = at;
    return true;
}
