#include "tools/utf8.h"

#include "core/characters.h"

#include <cwchar>

std::string ToUtf8(const wchar_t* text)
{
    const std::size_t length = std::wcslen(text);
    std::string utf8;
    utf8.reserve(length);
    for (std::size_t i = 0; i < length;)
    {
        char bytes[4];
        const SCharacter character = DecodeWide(text + i, length - i);
        utf8.append(bytes, EncodeUtf8(character.code, bytes));
        i += character.size;
    }
    return utf8;
}
