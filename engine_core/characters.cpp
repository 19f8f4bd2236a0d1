#include "core/characters.h"

namespace
{
/// Windows-1252 differs from Latin-1 in these 32 places; its five gaps keep their number.
constexpr char32_t windows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

SCharacter DecodeWindows1252(unsigned char byte)
{
    return {byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80] : byte, 1};
}

bool IsCharacter(char32_t code)
{
    return code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
}
} // namespace

SCharacter DecodeUtf8(const unsigned char* bytes, std::size_t size)
{
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned char lead = bytes[0];
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || length > size)
        return DecodeWindows1252(lead);
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i)
    {
        if ((bytes[i] & 0xC0) != 0x80)
            return DecodeWindows1252(lead);
        code = (code << 6) | (bytes[i] & 0x3FU);
    }
    if (code < smallest[length] || !IsCharacter(code))
        return DecodeWindows1252(lead);
    return {code, length};
}

std::size_t EncodeUtf8(char32_t code, char* to)
{
    if (!IsCharacter(code))
        code = ReplacementCharacter;
    if (code < 0x80)
    {
        to[0] = static_cast<char>(code);
        return 1;
    }
    const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    for (std::size_t i = length - 1; i > 0; --i, code >>= 6)
        to[i] = static_cast<char>(0x80 | (code & 0x3F));
    to[0] = static_cast<char>((0xF00U >> length & 0xF0U) | code);
    return length;
}

std::size_t EncodeWide(char32_t code, wchar_t* to)
{
    if (sizeof(wchar_t) > 2 || code < 0x10000)
    {
        to[0] = static_cast<wchar_t>(code);
        return 1;
    }
    to[0] = static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
    to[1] = static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    return 2;
}

SCharacter DecodeWide(const wchar_t* text, std::size_t size)
{
    const auto unit = static_cast<char32_t>(text[0]);
    if (IsHighSurrogate(unit) && size > 1 && IsLowSurrogate(static_cast<char32_t>(text[1])))
        return {JoinSurrogates(unit, static_cast<char32_t>(text[1])), 2};
    return {IsCharacter(unit) ? unit : ReplacementCharacter, 1};
}
