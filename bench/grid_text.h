/// What the makers of texts for the benchmarks share.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string>

/// A made text, and how many faces whoever reads it has to come to.
struct SGridText
{
    std::string text;
    std::size_t faces = 0;
};

/// Appends one formatted line with CR LF.
[[gnu::format(printf, 2, 3)]] inline void Line(std::string& text, const char* format, ...)
{
    char line[512];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(line, sizeof(line), format, arguments);
    va_end(arguments);
    text.append(line, static_cast<std::size_t>(length));
    text += "\r\n";
}
