/// What the envelope document tells on the process's standard output.
#pragma once

#include "core/numbers.h"

#include <cstdio>
#include <cstring>

/// Prints short texts and 32-bit numbers one behind the other, in one write, so that many lines cost little.
/// Together they are shorter than 256 characters.
template <class... TParts> void PrintMessage(const TParts&... parts)
{
    struct SLine
    {
        char text[256 + NumberCapacity];
        std::size_t size = 0;

        void Add(const char* part)
        {
            const std::size_t length = std::strlen(part);
            std::memcpy(text + size, part, length);
            size += length;
        }

        void Add(std::int32_t number)
        {
            size += WriteInteger(text + size, number);
        }
    };
    SLine line;
    (line.Add(parts), ...);
    std::fwrite(line.text, 1, line.size, stdout);
}
