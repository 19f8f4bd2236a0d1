/// Numbers: the quick ways against the C library, bit for bit.
#include "core/numbers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace
{
void Check(bool isright)
{
    if (!isright)
        std::abort();
}

void CheckScan(std::string text)
{
    std::replace(text.begin(), text.end(), '\0', ' ');
    for (char& letter : text)
        letter = static_cast<char>(letter & 0x7F); // wide text and bytes mean the same up to here
    std::replace(text.begin(), text.end(), '\0', ' ');
    const std::wstring wide(text.begin(), text.end());

    char* end = nullptr;
    const float expected = std::strtof(text.c_str(), &end);
    const wchar_t* at = wide.c_str();
    float value = 0.0F;
    Check(ScanFloat(at, value) == (end != text.c_str()));
    // "nan(...)": what may stand in the brackets is the C library's own affair.
    if (end != text.c_str() && !std::isnan(expected))
    {
        Check(std::bit_cast<std::uint32_t>(value) == std::bit_cast<std::uint32_t>(expected));
        Check(at - wide.c_str() == end - text.c_str());
    }

    const long long number = std::strtoll(text.c_str(), &end, 10);
    at = wide.c_str();
    std::int32_t integer = 0;
    Check(ScanInteger(at, integer) == (end != text.c_str()));
    if (end != text.c_str())
        Check(integer == std::clamp<long long>(number, INT32_MIN, INT32_MAX) &&
              at - wide.c_str() == end - text.c_str());
}

void CheckWrite(double value)
{
    if (std::isnan(value))
        return;
    char expected[NumberCapacity];
    char written[NumberCapacity];
    const int length = std::snprintf(expected, sizeof(expected), "%f", value);
    Check(WriteFixed(written, value) == static_cast<std::size_t>(length) &&
          std::memcmp(written, expected, static_cast<std::size_t>(length)) == 0);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    CheckScan(std::string(reinterpret_cast<const char*>(bytes), size));
    if (size >= sizeof(double))
    {
        double wide = 0.0;
        float single = 0.0F;
        std::memcpy(&wide, bytes, sizeof(wide));
        std::memcpy(&single, bytes, sizeof(single));
        CheckWrite(wide);
        CheckWrite(static_cast<double>(single));
    }
    return 0;
}
