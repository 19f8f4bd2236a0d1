/// The engine's own printf: one reading of the format text for strings and savers alike.
#pragma once

#include "core/numbers.h"

#include <cstdarg>
#include <cwchar>

/// Arguments of a variadic call, in a form that can be handed on.
struct SFormatArguments
{
    va_list list;
};

/// Writes `format` to `output`, which offers PutText(const wchar_t*, count) for wide text, and for
/// numbers ReserveNumber(), a place for NumberCapacity characters, and TakeNumber(count), which keeps that many
/// of them. What is no known conversion is written as it stands, and takes no argument.
template <class TOutput> void FormatText(TOutput& output, const wchar_t* format, SFormatArguments& arguments)
{
    for (;;)
    {
        const wchar_t* const first = format;
        while (*format != L'\0' && *format != L'%')
            ++format;
        if (format != first)
            output.PutText(first, static_cast<std::size_t>(format - first));
        if (*format == L'\0')
            return;

        const wchar_t* const conversion = format++;
        switch (*format)
        {
        case L'd':
            output.TakeNumber(
                WriteInteger(output.ReserveNumber(), static_cast<std::int32_t>(va_arg(arguments.list, int))));
            break;
        case L'u':
            output.TakeNumber(
                WriteInteger(output.ReserveNumber(), static_cast<std::uint32_t>(va_arg(arguments.list, unsigned))));
            break;
        case L'f':
            output.TakeNumber(WriteFixed(output.ReserveNumber(), va_arg(arguments.list, double)));
            break;
        case L's':
            if (const wchar_t* text = va_arg(arguments.list, const wchar_t*); text != nullptr)
                output.PutText(text, std::wcslen(text));
            break;
        case L'%':
            output.PutText(L"%", 1);
            break;
        case L'.':
            if (format[1] == L'9' && format[2] == L'g')
            {
                format += 2;
                output.TakeNumber(WriteExact(output.ReserveNumber(), va_arg(arguments.list, double)));
                break;
            }
            [[fallthrough]];
        default:
            output.PutText(conversion, 1);
            continue;
        }
        ++format;
    }
}

/// The same for a caller that has the arguments at hand.
template <class TOutput> void FormatText(TOutput& output, const wchar_t* format, ...)
{
    SFormatArguments arguments;
    va_start(arguments.list, format);
    FormatText(output, format, arguments);
    va_end(arguments.list);
}
