/// Names and texts of every kind that a person or a program may come up with.
#pragma once

#include <random>
#include <string>

class CRandomTexts
{
  public:
    explicit CRandomTexts(unsigned seed) : random(seed)
    {
    }

    unsigned Number(unsigned below)
    {
        return std::uniform_int_distribution<unsigned>(0, below - 1)(random);
    }

    /// Fit to stand at the end of a line: no line ends, no blanks at its ends, perhaps empty.
    std::wstring Name()
    {
        static const std::wstring pieces[] = {L"sword", L"two words", L"100%",         L"%s%n", L"\"",
                                              L"{",     L"}",         L"a {",          L"//",   L"#",
                                              L"\\u",   L"é",         L"\u0416\u4e2d", L"\t."};
        std::wstring name;
        for (unsigned count = Number(4); count != 0; --count)
            name += pieces[Number(std::size(pieces))];
        const std::size_t first = name.find_first_not_of(L" \t");
        return first == std::wstring::npos ? L"" : name.substr(first);
    }

    /// Of any content: control characters, line ends, blanks at its ends, a thousand letters.
    std::wstring Text()
    {
        static const std::wstring pieces[] = {L" ", L"\n", L"\r\n", L"\t", L"\x01", L"\"", L"\\", L"}\n{", L"\ufffe"};
        std::wstring text = Name();
        for (unsigned count = Number(5); count != 0; --count)
            text += pieces[Number(std::size(pieces))] + Name();
        return Number(20) == 0 ? text + std::wstring(1000, L'x') : text;
    }

  private:
    std::mt19937 random;
};
