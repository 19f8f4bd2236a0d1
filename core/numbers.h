/// Numbers in text: the one home of reading and writing them, in the manner of the C library's
/// conversions "%d", "%u" and "%f" in the "C" locale, whatever the locale of the process is.
///
/// Scanning skips leading white space, takes the longest valid prefix and moves `text` behind it.
/// Where there is no number nothing is stored, `text` stays and the result is false.
#pragma once

#include "core/core_base.h"

#include <bit>
#include <cstring>
#include <type_traits>

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

/// The value of a digit; above 9 for any other character.
template <class TCharacter> constexpr std::uint32_t GetDigit(TCharacter character)
{
    return static_cast<std::uint32_t>(character) - std::uint32_t{'0'};
}

template <class TCharacter> constexpr bool IsDigit(TCharacter character)
{
    return GetDigit(character) <= 9;
}

/// "%d" and "%u" for up to nine digits without a sign; anything else is left to ScanInteger. The text may be
/// of any kind of character, and ends with one that no number has.
template <class TCharacter, class T> inline bool ScanShortInteger(const TCharacter*& text, T& value)
{
    constexpr std::size_t mostdigits = 9; // below 2^30
    const TCharacter* first = text;
    while (*first == ' ' || *first == '\t')
        ++first;
    const TCharacter* at = first;
    std::uint32_t number = 0;
    for (; IsDigit(*at); ++at)
        number = number * 10 + GetDigit(*at);
    if (static_cast<std::size_t>(at - first - 1) >= mostdigits)
        return false;
    value = static_cast<T>(number);
    text = at;
    return true;
}

/// Takes four decimal digits at once and moves behind them; false when there are not as many. Four bytes
/// are there to be read.
inline bool ScanFourDigits(const char*& text, std::uint64_t& digits)
{
    static_assert(std::endian::native == std::endian::little);
    std::uint32_t four = 0;
    std::memcpy(&four, text, sizeof(four));
    if (((four & 0xF0F0F0F0U) | ((four + 0x06060606U) & 0xF0F0F0F0U) >> 4) != 0x33333333U)
        return false;
    four -= 0x30303030U;
    four = four * 10 + (four >> 8); // a number of two digits in the first and in the third byte
    digits = digits * 10'000 + (four & 0xFF) * 100 + ((four >> 16) & 0xFF);
    text += 4;
    return true;
}

/// "%f" for plain decimals of up to fifteen digits, which it rounds exactly as ScanAnyFloat does; anything
/// else is left to ScanFloat. The text may be of any kind of character. It ends with one that no number has,
/// and in bytes three more follow that may be looked at.
template <class TCharacter> inline bool ScanShortFloat(const TCharacter*& text, float& value)
{
    static constexpr double scales[] = {1e0,  1e-1, 1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,
                                        1e-8, 1e-9, 1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15};
    constexpr std::size_t mostdigits = 15; // 10^15 is below 2^53, so a double holds them all

    const TCharacter* at = text;
    while (*at == ' ' || *at == '\t')
        ++at;
    const bool isnegative = *at == '-';
    at += isnegative ? 1 : 0;

    std::uint64_t digits = 0;
    const TCharacter* const first = at;
    for (; IsDigit(*at); ++at)
        digits = digits * 10 + GetDigit(*at);
    std::ptrdiff_t count = at - first;
    std::ptrdiff_t decimals = 0;
    if (*at == '.')
    {
        const TCharacter* const point = at++;
        if constexpr (std::is_same_v<TCharacter, char>)
            ScanFourDigits(at, digits);
        for (; IsDigit(*at); ++at)
            digits = digits * 10 + GetDigit(*at);
        decimals = at - point - 1;
        count += decimals;
    }
    // An exponent may follow, and more; what ends a short number mostly is a blank, a line end or a mark.
    if (static_cast<std::size_t>(count - 1) >= mostdigits || *at > ';')
        return false;

    // The digits are exact and the scale is the double nearest to it, so the product is the number but for
    // its last two bits at most. As a float it is the one nearest to the number then, unless it lies about
    // halfway between two. No float this large is coarser than 24 bits.
    const double product = static_cast<double>(static_cast<std::int64_t>(digits)) * scales[decimals];
    constexpr std::uint64_t droppedbits = (std::uint64_t{1} << 29) - 1;
    constexpr std::uint64_t halfway = std::uint64_t{1} << 28;
    constexpr std::uint64_t doubt = 4;
    const std::uint64_t dropped = std::bit_cast<std::uint64_t>(product) & droppedbits;
    if (dropped - (halfway - doubt) <= 2 * doubt)
        return false;

    const auto magnitude = static_cast<float>(product);
    value = isnegative ? -magnitude : magnitude;
    text = at;
    return true;
}

/// "%d" and "%u", quick for short numbers without a sign.
template <class T> inline bool ScanInteger(const wchar_t*& text, T& value)
{
    return ScanShortInteger(text, value) || ScanAnyInteger(text, value);
}

/// "%f", quick for short decimals.
inline bool ScanFloat(const wchar_t*& text, float& value)
{
    return ScanShortFloat(text, value) || ScanAnyFloat(text, value);
}
