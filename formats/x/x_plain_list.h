/// Reads the entries of an X list where their lines stand in the text.
#pragma once

#include "core/plain_lines.h"
#include "formats/x/x_list_reader.h"

/// The entries behind the one that a list reader has read, as long as each stands whole on a plain line of its
/// own, as most exporters write them. It has the list reader's operations, with the same results.
///
/// An operation that meets something else returns false; the entry is then read again by the list reader.
class CXPlainList
{
  public:
    explicit CXPlainList(CXListReader& newlist) : list(newlist), lines(newlist.parser, newlist.EndLine())
    {
    }

    bool NextEntry()
    {
        return lines.NextLine();
    }

    template <class... TFloats> bool ReadVector(float& first, TFloats&... others)
    {
        return lines.Scan(first) && ((lines.Take(';') && lines.Scan(others)) && ...);
    }

    bool ReadCorners(TArray<int>& corners)
    {
        corners.Reset();
        std::int32_t count = 0;
        bool isread = lines.Scan(count);
        for (std::int32_t i = 0; isread && i < count; ++i)
        {
            int* const corner = corners.Add();
            isread = corner != nullptr && (lines.Take(',') || lines.Take(';')) && lines.Scan(*corner);
        }
        return isread;
    }

    /// Whether nothing but marks follows the entry.
    bool EndEntry()
    {
        while (lines.Take(';') || lines.Take(','))
        {
        }
        const std::size_t length = lines.GetLength();
        if (!lines.EndLine())
            return false;
        list.PassLine(length);
        return true;
    }

  private:
    CXListReader& list;
    CPlainLines lines;
};
