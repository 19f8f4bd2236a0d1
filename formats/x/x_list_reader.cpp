#include "formats/x/x_list_reader.h"

#include <algorithm>

std::uint32_t CXListReader::ReadCount()
{
    const SMarks marks = PassMarks();
    const bool isonline = marks.semicolons >= 2 || (marks.semicolons == 1 && marks.commas >= 1);
    std::int32_t count = 0;
    if ((!isonline || !BeginsNumber(*at)) && !NextLine())
        return 0;
    if (!ScanInteger(at, count))
        DropLine();
    isbehindcount = true;
    liststart = GetPosition();
    return static_cast<std::uint32_t>(std::max(count, 0));
}

void CXListReader::ReadCorners(TArray<int>& corners)
{
    corners.Reset();
    if (!BeginEntry())
        return;
    const std::size_t start = GetPosition();
    std::int32_t signedcount = 0;
    bool isread = ScanInteger(at, signedcount);
    const auto count = static_cast<std::uint32_t>(std::max(signedcount, 0));
    for (std::uint32_t i = 0; i < count && (isread || CouldHold(i, count, start)); ++i)
    {
        int corner = 0;
        if (isread)
        {
            while (*at != L',' && *at != L';' && *at != L'}' && !EndsLine())
                ++at;
            isread = PassMark(L',', L';') && ScanInteger(at, corner);
        }
        if (int* const slot = corners.Add())
            *slot = corner;
    }
    if (!isread)
        DropLine();
}

bool CXListReader::FindNumber(bool ismarkpassed, wchar_t mark, wchar_t othermark)
{
    // Some runtimes write not-a-number as "1.#QNAN0": there the '#' begins no comment.
    if (!ismarkpassed && *at == L'#')
        return false;
    at = SkipBlanks(at);
    if (!ismarkpassed && (*at == mark || *at == othermark))
    {
        ismarkpassed = true;
        at = SkipBlanks(at + 1);
    }
    if (!EndsLine())
        return ismarkpassed;
    if (!NextLine())
        return false;
    if (!ismarkpassed && (*at == mark || *at == othermark))
        ++at;
    return true;
}

bool CXListReader::NextLine()
{
    DropLine();
    if (isended)
        return false;
    charactersbefore = GetPosition() + 1;
    at = line;
    isended = parser->GetBlockLine(line) != 1;
    return !isended;
}

/// Passes over the rest of the line, but for a '}' in it.
void CXListReader::DropLine()
{
    for (; !EndsLine(); ++at)
        isended |= *at == L'}';
}

std::size_t CXListReader::GetPosition() const
{
    return charactersbefore + static_cast<std::size_t>(at - line);
}

/// Whether the text from `start` up to here could have held an entry at that index. A few are always
/// believed, as short lines often promise a little more than they hold.
bool CXListReader::CouldHold(std::uint32_t index, std::uint32_t count, std::size_t start)
{
    constexpr std::size_t alwaysbelieved = 8;
    constexpr std::size_t shortestentry = 2; // a character and a mark
    if (index < std::max(alwaysbelieved, (GetPosition() - start) / shortestentry))
        return true;
    parser->Report(2, L"a count of %u is more than its list can hold and is cut to %u", count, index);
    return false;
}
