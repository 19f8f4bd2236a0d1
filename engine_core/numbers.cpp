#include "core/numbers.h"

#include "engine_core/write_number.h"

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
    // cppcheck-suppress uninitMemberVar ; its buffer is written before it is read
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

/// A number below ten thousand as its four digits, the first one in the lowest byte.
std::uint32_t GetFourDigits(std::uint32_t number)
{
    static_assert(std::endian::native == std::endian::little);
    const std::uint32_t hundreds = number / 100;
    std::uint16_t first = 0;
    std::uint16_t last = 0;
    std::memcpy(&first, digitpairs.pairs + hundreds * std::size_t{2}, 2);
    std::memcpy(&last, digitpairs.pairs + (number - hundreds * 100) * std::size_t{2}, 2);
    return first | static_cast<std::uint32_t>(last) << 16;
}

void WriteFour(char* to, std::uint32_t number)
{
    const std::uint32_t digits = GetFourDigits(number);
    std::memcpy(to, &digits, 4);
}

/// The same without leading zeros; returns the end. How many digits a number has is not to be foreseen, so
/// nothing branches on it.
char* WriteUpToFour(char* to, std::uint32_t number)
{
    constexpr std::uint32_t values = 0x0F0F0F0F;    // '0' to '9' without what they have in common
    constexpr std::uint32_t lastdigit = 0x01000000; // which stays, be it zero or not
    const std::uint32_t digits = GetFourDigits(number);
    const int zeros = std::countr_zero((digits & values) | lastdigit) / 8;
    const std::uint32_t shown = digits >> (zeros * 8);
    std::memcpy(to, &shown, 4);
    return to + (4 - zeros);
}

/// A whole number, mostly a short one; returns the end.
char* WriteWhole(char* to, std::uint64_t number)
{
    if (number < 10'000)
        return WriteUpToFour(to, static_cast<std::uint32_t>(number));
    if (number >= 100'000'000)
        return std::to_chars(to, to + 20, number).ptr;
    const auto tenthousands = static_cast<std::uint32_t>(number / 10'000);
    to = WriteUpToFour(to, tenthousands);
    WriteFour(to, static_cast<std::uint32_t>(number) - tenthousands * 10'000);
    return to + 4;
}

/// A whole number and six decimals behind a point; returns the end.
char* WriteMillionths(char* to, std::uint64_t millionths)
{
    const std::uint64_t whole = millionths / 1'000'000;
    const auto decimals = static_cast<std::uint32_t>(millionths - whole * 1'000'000);
    to = WriteWhole(to, whole);
    *to = '.';
    WriteFour(to + 1, decimals / 100);
    std::memcpy(to + 5, digitpairs.pairs + decimals % 100 * std::size_t{2}, 2);
    return to + 7;
}

/// The number times a million, rounded to even; false when that does not fit in 64 bits.
bool ScaleToMillionths(float number, std::uint64_t& millionths)
{
    const auto bits = std::bit_cast<std::uint32_t>(number);
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
    const int shift = std::min(-exponent, 63); // the product is below half of what 46 and more drop
    const std::uint64_t isodd = (product >> shift) & 1;
    const std::uint64_t belowhalf = (std::uint64_t{1} << (shift - 1)) - 1;
    millionths = (product + belowhalf + isodd) >> shift;
    return true;
}

/// "%f" of any number; returns the end.
char* WriteAnyFixed(char* to, double value)
{
    if (std::isnan(value))
        return std::copy_n("nan", 3, to);
    return std::to_chars(to, to + NumberCapacity, value, std::chars_format::fixed, 6).ptr;
}
} // namespace

char* WriteNumber(char* to, float number)
{
    std::uint64_t millionths = 0;
    if (!ScaleToMillionths(number, millionths))
        return WriteAnyFixed(to, double{number});
    *to = '-';
    return WriteMillionths(to + (std::signbit(number) ? 1 : 0), millionths);
}

char* WriteNumber(char* to, std::int32_t number)
{
    *to = '-';
    const auto bits = static_cast<std::uint32_t>(number);
    return WriteWhole(to + (number < 0 ? 1 : 0), number < 0 ? 0 - bits : bits);
}

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
    return static_cast<std::size_t>(WriteNumber(to, value) - to);
}

std::size_t WriteInteger(char* to, std::uint32_t value)
{
    return static_cast<std::size_t>(WriteWhole(to, value) - to);
}

std::size_t WriteFixed(char* to, double value)
{
    const auto single = static_cast<float>(value);
    char* const end = double{single} == value ? WriteNumber(to, single) : WriteAnyFixed(to, value);
    return static_cast<std::size_t>(end - to);
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
