#include "formats/envelope/envelope_line.h"

#include <cwchar>

namespace
{
/// The exporter writes "bone,weight", the weight with the decimal sign of its country: where a second comma
/// stands among the first five characters it is one.
void TurnDecimalComma(wchar_t* text)
{
    unsigned commas = 0;
    for (unsigned i = 0; i < 5 && text[i] != L'\0'; ++i)
        if (text[i] == L',' && ++commas == 2)
        {
            text[i] = L'.';
            return;
        }
}
} // namespace

CEnvelopeLine::CEnvelopeLine(wchar_t* text) : rest(text)
{
    rest += SkipBlanks(rest) - rest;
    wordlength = static_cast<std::size_t>(FindWordEnd(rest) - rest);
}

bool CEnvelopeLine::Strip(SKeyword keyword)
{
    if (keyword.length != wordlength || std::wmemcmp(keyword.text, rest, wordlength) != 0)
        return false;
    rest += SkipBlanks(rest + wordlength) - rest;
    return true;
}

void CEnvelopeLine::StripWord()
{
    rest += SkipBlanks(FindWordEnd(rest)) - rest;
}

void CEnvelopeLine::Scan(std::int32_t& value)
{
    const wchar_t* text = rest;
    ScanInteger(text, value);
}

void CEnvelopeLine::Scan(std::uint32_t& value)
{
    auto number = static_cast<std::int32_t>(value);
    Scan(number);
    value = static_cast<std::uint32_t>(number);
}

void CEnvelopeLine::Scan(float& value)
{
    const wchar_t* text = rest;
    ScanFloat(text, value);
}

/// Exporters write points with the decimal sign of their country, so every comma is one.
void CEnvelopeLine::Scan(CMath_Vector3& vector)
{
    for (wchar_t* at = rest; *at != L'\0'; ++at)
        if (*at == L',')
            *at = L'.';
    const wchar_t* text = rest;
    (void)(ScanFloat(text, vector.x) && ScanFloat(text, vector.y) && ScanFloat(text, vector.z));
}

void CEnvelopeLine::Scan(CSys_String& text)
{
    text.Write(L"%s", rest);
}

bool CEnvelopeLine::ScanWeight(SWeight& pair)
{
    TurnDecimalComma(rest);
    const wchar_t* text = rest;
    std::int32_t bone = 0;
    if (ScanInteger(text, bone))
    {
        pair.bone = static_cast<std::uint32_t>(bone);
        if (*text++ == L',')
            ScanFloat(text, pair.weight);
    }
    StripWord();
    return true;
}
