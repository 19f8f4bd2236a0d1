/// Numbers: the quick ways against the C library, bit for bit and byte for byte.
#include "core/numbers.h"
#include "fuzz/fuzz.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{
/// A text for both. Characters that bytes cannot hold must end a number as any other letter does, though their
/// low byte may look like a digit.
struct STexts
{
    std::string narrow;
    std::wstring wide;

    explicit STexts(std::string_view text)
    {
        for (const char letter : text)
        {
            const auto byte = static_cast<unsigned char>(letter);
            narrow += byte == 0 ? ' ' : byte < 0x80 ? letter : '\x01';
            wide += byte == 0 ? L' ' : static_cast<wchar_t>(byte < 0x80 ? byte : 0x100 | (byte & 0x7F));
        }
    }
};

template <class T, class TScan, class TIsSame>
void CheckScan(const STexts& texts, TScan scan, const char* end, TIsSame issame)
{
    const T untouched = static_cast<T>(77);
    T value = untouched;
    const wchar_t* at = texts.wide.c_str();
    const bool isthere = end != texts.narrow.c_str();
    Check(scan(at, value) == isthere);
    Check(isthere ? issame(value) : value == untouched);
    Check(at - texts.wide.c_str() == end - texts.narrow.c_str());
}

void CheckScans(const STexts& texts)
{
    char* end = nullptr;
    const float single = std::strtof(texts.narrow.c_str(), &end);
    const char* floatend = end;
    // "nan(...)": what may stand in the brackets is the C library's own affair.
    const auto isfloat = [single](float value)
    {
        return std::isnan(single) ? std::isnan(value)
                                  : std::bit_cast<std::uint32_t>(value) == std::bit_cast<std::uint32_t>(single);
    };
    CheckScan<float>(
        texts, [](const wchar_t*& at, float& value) { return ScanFloat(at, value); }, floatend, isfloat);
    CheckScan<float>(texts, ScanAnyFloat, floatend, isfloat);

    const long long number = std::strtoll(texts.narrow.c_str(), &end, 10);
    const std::int64_t most = UINT32_MAX;
    const auto issigned = [number](std::int32_t value)
    { return value == std::clamp<long long>(number, INT32_MIN, INT32_MAX); };
    const auto isunsigned = [number](std::uint32_t value)
    { return value == (number > most || number < -most ? UINT32_MAX : static_cast<std::uint32_t>(number)); };
    CheckScan<std::int32_t>(
        texts, [](const wchar_t*& at, std::int32_t& value) { return ScanInteger(at, value); }, end, issigned);
    CheckScan<std::uint32_t>(
        texts, [](const wchar_t*& at, std::uint32_t& value) { return ScanInteger(at, value); }, end, isunsigned);
}

/// The text as it stands, and then every number in it alone.
void CheckText(std::string_view text)
{
    CheckScans(STexts(text));
    while (!text.empty())
    {
        const std::size_t separator = std::min(text.find_first_of(" \t\n,;"), text.size() - 1);
        CheckScans(STexts(text.substr(0, separator + 1)));
        text.remove_prefix(separator + 1);
    }
}

template <class T, class TWrite> void CheckWritten(const char* format, T value, TWrite write)
{
    char expected[NumberCapacity];
    char written[NumberCapacity];
    const int length = std::snprintf(expected, sizeof(expected), format, value);
    Check(write(written, value) == static_cast<std::size_t>(length) &&
          std::memcmp(written, expected, static_cast<std::size_t>(length)) == 0);
}

void CheckWrite(double value)
{
    const double positive = std::isnan(value) ? std::fabs(value) : value; // no sign is written for these
    CheckWritten("%f", positive, [](char* to, double number) { return WriteFixed(to, number); });
    CheckWritten("%.9g", positive, [](char* to, double number) { return WriteExact(to, number); });
}

void CheckWrites(std::uint64_t bits)
{
    const auto low = static_cast<std::uint32_t>(bits);
    CheckWritten("%u", low, [](char* to, std::uint32_t number) { return WriteInteger(to, number); });
    CheckWritten("%d", static_cast<std::int32_t>(low),
                 [](char* to, std::int32_t number) { return WriteInteger(to, number); });
    const auto wide = std::bit_cast<double>(bits);
    const auto single = std::bit_cast<float>(low);
    CheckWrite(wide);
    CheckWrite(double{single});
    CheckWrite(static_cast<double>(static_cast<std::int32_t>(low)) / 128.0);            // a tie, often
    CheckWrite(double{static_cast<float>(static_cast<std::int32_t>(low)) * 0.000001F}); // as many decimals as written
    if (std::isnan(single))
        return;
    char exact[NumberCapacity];
    const std::wstring text(exact, exact + WriteExact(exact, double{single}));
    const wchar_t* at = text.c_str();
    float back = 0.0F;
    Check(ScanFloat(at, back) && *at == L'\0' && std::bit_cast<std::uint32_t>(back) == low);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    size = std::min<std::size_t>(size, 512); // more digits than the reader keeps
    const CInput input(bytes, size);
    CheckText(input.GetText());
    for (std::size_t i = 0; i + sizeof(std::uint64_t) <= size; i += sizeof(std::uint64_t))
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, bytes + i, sizeof(bits));
        CheckWrites(bits);
    }
    return 0;
}
