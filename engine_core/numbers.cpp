#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <limits>

namespace
{
const wchar_t* SkipWhiteSpace(const wchar_t* text)
{
    while (*text == L' ' || (*text >= L'\t' && *text <= L'\r'))
        ++text;
    return text;
}

bool ScanSign(const wchar_t*& text)
{
    const bool isnegative = *text == L'-';
    if (isnegative || *text == L'+')
        ++text;
    return isnegative;
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

struct SInteger
{
    std::uint64_t magnitude; ///< Saturates a little above 32 bits.
    bool isnegative;
};

bool ScanMagnitude(const wchar_t*& text, SInteger& integer)
{
    const wchar_t* at = SkipWhiteSpace(text);
    integer.isnegative = ScanSign(at);
    integer.magnitude = 0;
    if (!IsDigit(*at))
        return false;
    for (; IsDigit(*at); ++at)
        if (integer.magnitude <= std::numeric_limits<std::uint32_t>::max())
            integer.magnitude = integer.magnitude * 10 + static_cast<std::uint64_t>(*at - L'0');
    text = at;
    return true;
}

/// Whether the text goes on with a word, in small letters, in any letter case.
bool ScanWord(const wchar_t*& text, const char* word)
{
    const wchar_t* at = text;
    for (; *word != '\0'; ++word, ++at)
        if ((*at | 0x20) != *word)
            return false;
    text = at;
    return true;
}

bool ScanSpecialFloat(const wchar_t*& text, float& value)
{
    if (ScanWord(text, "infinity") || ScanWord(text, "inf"))
    {
        value = std::numeric_limits<float>::infinity();
        return true;
    }
    if (!ScanWord(text, "nan"))
        return false;
    value = std::numeric_limits<float>::quiet_NaN();
    if (*text == L'(') // "nan(...)" may carry letters and digits, which say nothing here
    {
        const wchar_t* at = text + 1;
        while (IsDigit(*at) || *at == L'_' || ((*at | 0x20) >= L'a' && (*at | 0x20) <= L'z'))
            ++at;
        if (*at == L')')
            text = at + 1;
    }
    return true;
}

/// The digits of a number as they stand, so that any length of them fits: leading zeros are gone,
/// digits beyond the most that can decide a rounding are told by one more that is not zero.
class CDigits
{
  public:
    explicit CDigits(bool ishex) : ishexadecimal(ishex)
    {
    }

    /// Takes digits with a point among or before them. False when there was no digit.
    bool Scan(const wchar_t*& text)
    {
        const wchar_t* at = text;
        bool isany = ScanRun(at, false);
        if (*at == L'.')
        {
            const wchar_t* behindpoint = at + 1;
            isany = ScanRun(behindpoint, true) || isany;
            at = isany ? behindpoint : at;
        }
        if (isany)
            text = at;
        return isany;
    }

    /// Takes "e" or "p" with an exponent, if one is there whole.
    void ScanExponent(const wchar_t*& text)
    {
        if ((*text | 0x20) != (ishexadecimal ? L'p' : L'e'))
            return;
        const wchar_t* at = text + 1;
        const bool isnegative = ScanSign(at);
        if (!IsDigit(*at))
            return;
        std::int64_t magnitude = 0;
        for (; IsDigit(*at); ++at)
            if (magnitude < exponentlimit)
                magnitude = magnitude * 10 + (*at - L'0');
        exponent = isnegative ? -magnitude : magnitude;
        text = at;
    }

    float GetValue()
    {
        if (count == 0)
            return 0.0F;
        // 0.DIGITS times the base to the power of `scale`, times the exponent's power.
        const std::int64_t top = ishexadecimal ? scale * 4 + exponent : scale + exponent;
        const std::int64_t limit = ishexadecimal ? 200 : 60; // floats end well inside, either way
        if (top > limit)
            return std::numeric_limits<float>::infinity();
        if (top < -limit)
            return 0.0F;
        char text[mostdigits + 32] = "0.";
        std::memcpy(text + 2, digits, count);
        char* end = text + 2 + count;
        *end++ = ishexadecimal ? 'p' : 'e';
        end = std::to_chars(end, end + 24, static_cast<int>(top)).ptr;
        float value = 0.0F;
        const std::from_chars_result result =
            std::from_chars(text, end, value, ishexadecimal ? std::chars_format::hex : std::chars_format::general);
        if (result.ec == std::errc::result_out_of_range)
            return top > 0 ? std::numeric_limits<float>::infinity() : 0.0F;
        return value;
    }

  private:
    static constexpr std::size_t mostdigits = 160; // a float's halfway points have at most 112
    static constexpr std::int64_t exponentlimit = 1'000'000'000'000;

    bool ScanRun(const wchar_t*& text, bool isbehindpoint)
    {
        const wchar_t* const first = text;
        for (;; ++text)
        {
            const auto letter = static_cast<wchar_t>(*text | 0x20);
            const bool isdigit = IsDigit(*text) || (ishexadecimal && letter >= L'a' && letter <= L'f');
            if (!isdigit)
                return text != first;
            if (count == 0 && *text == L'0')
            {
                scale -= isbehindpoint ? 1 : 0;
                continue;
            }
            scale += isbehindpoint ? 0 : 1;
            if (count < mostdigits)
                digits[count++] = static_cast<char>(*text);
            else if (*text != L'0')
                digits[mostdigits - 1] = '1';
        }
    }

    char digits[mostdigits];
    std::size_t count = 0;
    std::int64_t scale = 0;
    std::int64_t exponent = 0;
    bool ishexadecimal;
};

/// The two digits of every number below a hundred.
struct SDigitPairs
{
    char pairs[200] = {};

    constexpr SDigitPairs()
    {
        for (int i = 0; i < 100; ++i)
        {
            pairs[i * 2] = static_cast<char>('0' + i / 10);
            pairs[i * 2 + 1] = static_cast<char>('0' + i % 10);
        }
    }
};
constexpr SDigitPairs digitpairs;

void WritePair(char* to, std::uint32_t number)
{
    std::memcpy(to, digitpairs.pairs + number * std::size_t{2}, 2);
}

/// A number below ten thousand, without leading zeros; returns the end.
char* WriteUpToFour(char* to, std::uint32_t number)
{
    std::uint32_t first = number;
    if (number >= 100)
        first = number / 100;
    if (first < 10)
        *to++ = static_cast<char>('0' + first);
    else
    {
        WritePair(to, first);
        to += 2;
    }
    if (number >= 100)
    {
        WritePair(to, number % 100);
        to += 2;
    }
    return to;
}

/// A whole number and six decimals behind a point; returns the end.
char* WriteMillionths(char* to, std::uint64_t millionths)
{
    const std::uint64_t whole = millionths / 1'000'000;
    const auto decimals = static_cast<std::uint32_t>(millionths - whole * 1'000'000);
    if (whole < 10'000)
        to = WriteUpToFour(to, static_cast<std::uint32_t>(whole));
    else
        to = std::to_chars(to, to + 20, whole).ptr;
    *to = '.';
    WritePair(to + 1, decimals / 10'000);
    WritePair(to + 3, decimals / 100 % 100);
    WritePair(to + 5, decimals % 100);
    return to + 7;
}

/// value times a million, rounded to even, when value is a float and that fits in 64 bits.
bool ScaleToMillionths(double value, std::uint64_t& millionths)
{
    const auto single = static_cast<float>(value);
    if (static_cast<double>(single) != value)
        return false;
    const auto bits = std::bit_cast<std::uint32_t>(single);
    const std::uint32_t exponentbits = (bits >> 23) & 0xFF;
    const std::uint64_t fraction = (bits & 0x7FFFFF) | (exponentbits != 0 ? 0x800000U : 0U);
    const int exponent = static_cast<int>(exponentbits != 0 ? exponentbits : 1) - 150;
    const std::uint64_t product = fraction * 1'000'000; // below 2^44
    if (exponent > 19)
        return false; // infinite and not-a-number too
    if (exponent >= 0)
    {
        millionths = product << exponent;
        return true;
    }
    const int shift = -exponent;
    if (shift > 45) // less than half a millionth
    {
        millionths = 0;
        return true;
    }
    const std::uint64_t dropped = product & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    millionths = product >> shift;
    if (dropped > half || (dropped == half && (millionths & 1) != 0))
        ++millionths;
    return true;
}
} // namespace

bool ScanAnyInteger(const wchar_t*& text, std::int32_t& value)
{
    SInteger integer;
    if (!ScanMagnitude(text, integer))
        return false;
    constexpr std::uint64_t largest = std::numeric_limits<std::int32_t>::max();
    const std::uint64_t most = integer.isnegative ? largest + 1 : largest;
    const auto magnitude = static_cast<std::int64_t>(integer.magnitude < most ? integer.magnitude : most);
    value = static_cast<std::int32_t>(integer.isnegative ? -magnitude : magnitude);
    return true;
}

bool ScanAnyInteger(const wchar_t*& text, std::uint32_t& value)
{
    SInteger integer;
    if (!ScanMagnitude(text, integer))
        return false;
    const auto magnitude = static_cast<std::uint32_t>(integer.magnitude);
    if (integer.magnitude > std::numeric_limits<std::uint32_t>::max())
        value = std::numeric_limits<std::uint32_t>::max();
    else
        value = integer.isnegative ? 0 - magnitude : magnitude;
    return true;
}

bool ScanAnyFloat(const wchar_t*& text, float& value)
{
    const wchar_t* at = SkipWhiteSpace(text);
    const bool isnegative = ScanSign(at);
    float magnitude = 0.0F;
    if (!ScanSpecialFloat(at, magnitude))
    {
        const wchar_t* behindprefix = at + 2;
        CDigits hexadecimal(true);
        CDigits decimal(false);
        if (at[0] == L'0' && (at[1] | 0x20) == L'x' && hexadecimal.Scan(behindprefix))
        {
            at = behindprefix;
            hexadecimal.ScanExponent(at);
            magnitude = hexadecimal.GetValue();
        }
        else if (decimal.Scan(at))
        {
            decimal.ScanExponent(at);
            magnitude = decimal.GetValue();
        }
        else
            return false;
    }
    value = isnegative ? -magnitude : magnitude;
    text = at;
    return true;
}

std::size_t WriteInteger(char* to, std::int32_t value)
{
    return static_cast<std::size_t>(std::to_chars(to, to + NumberCapacity, value).ptr - to);
}

std::size_t WriteInteger(char* to, std::uint32_t value)
{
    return static_cast<std::size_t>(std::to_chars(to, to + NumberCapacity, value).ptr - to);
}

std::size_t WriteFixed(char* to, double value)
{
    std::uint64_t millionths = 0;
    if (ScaleToMillionths(value, millionths))
    {
        *to = '-';
        char* const first = to + (std::signbit(value) ? 1 : 0);
        return static_cast<std::size_t>(WriteMillionths(first, millionths) - to);
    }
    if (std::isnan(value))
    {
        return static_cast<std::size_t>(std::copy_n("nan", 3, to) - to);
    }
    return static_cast<std::size_t>(std::to_chars(to, to + NumberCapacity, value, std::chars_format::fixed, 6).ptr -
                                    to);
}

std::size_t WriteExact(char* to, double value)
{
    if (std::isnan(value))
    {
        return static_cast<std::size_t>(std::copy_n("nan", 3, to) - to);
    }
    return static_cast<std::size_t>(std::to_chars(to, to + NumberCapacity, value, std::chars_format::general, 9).ptr -
                                    to);
}
