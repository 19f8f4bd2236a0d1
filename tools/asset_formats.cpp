#include "tools/asset.h"

#include "core/word_helpers.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace
{
constexpr unsigned FirstLines = 100;

std::string ToSmallLetters(std::string_view text)
{
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return small;
}
} // namespace

std::span<const SAssetFormat> GetAssetFormats()
{
    static const SAssetFormat formats[] = {
        AseAssetFormat,   XAssetFormat,         EnvelopeAssetFormat,  TreeAssetFormat,
        GraphAssetFormat, Channels3AssetFormat, Channels4AssetFormat,
    };
    return formats;
}

const SAssetFormat* FindAssetFormat(std::string_view name)
{
    for (const SAssetFormat& format : GetAssetFormats())
        if (format.name == name)
            return &format;
    return nullptr;
}

const SAssetFormat* GuessAssetFormat(std::string_view filename, CFile_Parser& parser)
{
    const std::string small = ToSmallLetters(filename);
    for (const SAssetFormat& format : GetAssetFormats())
        for (const std::string_view ending : format.endings)
            if (small.ends_with(ending))
                return &format;
    for (const SAssetFormat& format : GetAssetFormats())
        if (format.recognises(parser, FirstLines))
            return &format;
    return nullptr;
}

bool HasLineWithWord(CFile_Parser& parser, unsigned mostlines, std::span<const wchar_t* const> words)
{
    constexpr unsigned long capacity = 256;
    wchar_t line[capacity];
    const unsigned long loglevel = Log->GetLowestLevel();
    Log->SetLowestLevel(~0UL); // lines are cut here on purpose, which is nobody's business
    bool isfound = false;
    parser.Reset();
    for (unsigned i = 0; i < mostlines && !isfound && parser.GetLine(line, capacity) == 1; ++i)
        isfound = std::any_of(words.begin(), words.end(),
                              [&line](const wchar_t* word) { return RecognizeWord(word, line) != 0; });
    parser.Reset();
    Log->SetLowestLevel(loglevel);
    return isfound;
}
