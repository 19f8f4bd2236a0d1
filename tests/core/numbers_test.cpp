#include "core/numbers.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace
{
std::wstring Widen(const std::string& text)
{
    return {text.begin(), text.end()};
}

/// Scans, and says how much of the text was taken.
template <class T> bool Scan(const std::wstring& text, T& value, std::size_t& taken)
{
    const wchar_t* at = text.c_str();
    bool isthere = false;
    if constexpr (std::is_same_v<T, float>)
        isthere = ScanFloat(at, value);
    else
        isthere = ScanInteger(at, value);
    taken = static_cast<std::size_t>(at - text.c_str());
    return isthere;
}

struct SIntegerCase
{
    const wchar_t* text;
    bool isthere;
    std::int64_t value;
    std::size_t taken;
};

template <class T, std::size_t N> void ExpectIntegers(const SIntegerCase (&cases)[N])
{
    for (const SIntegerCase& row : cases)
    {
        T value = 0;
        std::size_t taken = 0;
        EXPECT_EQ(Scan(row.text, value, taken), row.isthere) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
        EXPECT_EQ(taken, row.taken) << row.text;
    }
}

std::string WriteFixedText(double value)
{
    char text[NumberCapacity];
    return {text, WriteFixed(text, value)};
}

/// The same float from the library as from the C library, and the same end.
void ExpectLikeCLibrary(const std::string& text)
{
    char* end = nullptr;
    const float expected = std::strtof(text.c_str(), &end);
    float value = -12345.0F;
    std::size_t taken = 0;
    const bool isthere = Scan(Widen(text), value, taken);
    ASSERT_EQ(isthere, end != text.c_str()) << text;
    if (!isthere)
        return;
    EXPECT_EQ(taken, static_cast<std::size_t>(end - text.c_str())) << text;
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(value)) << text;
    else
        EXPECT_EQ(std::bit_cast<std::uint32_t>(value), std::bit_cast<std::uint32_t>(expected)) << text;
}
} // namespace

TEST(ScanInteger, TakesLongestPrefixAndSaturates)
{
    ExpectIntegers<std::int32_t>({
        {L"30.5", true, 30, 2},
        {L"  \t-7 8", true, -7, 5},
        {L"+5", true, 5, 2},
        {L"2147483648", true, 2147483647, 10},
        {L"-99999999999999999999999", true, -2147483648LL, 24},
        {L"0x10", true, 0, 1},
        {L"", false, 0, 0},
        {L"-", false, 0, 0},
        {L"a1", false, 0, 0},
        {L"- 1", false, 0, 0},
    });
}

TEST(ScanInteger, UnsignedTakesNegativesAsTheirPattern)
{
    ExpectIntegers<std::uint32_t>({
        {L"4294967295", true, 4294967295LL, 10},
        {L"4294967296", true, 4294967295LL, 10},
        {L"-1", true, 4294967295LL, 2},
        {L"-2147483648", true, 2147483648LL, 11},
    });
}

TEST(ScanFloat, TakesWhatTheCLibraryTakes)
{
    static constexpr std::string_view texts =
        "1|-0|0.5|.5|5.|-.25e2|+1|1e|1e+|1e5x|0x|0x1.8p3|0X.1P-2|0xp1|0x1p|inf|-INFINITY|infin|nan|nan(12_a)|"
        "nan(|-nan|.|-||e5|  \t\n 3.25 4|1.0.0|1,5|12abc|3.4028235e38|3.4028236e38|3.4028235677973366e38|1e39|"
        "-1e999999999999999999999|1e-45|7e-46|1.4e-45|1.1754943508222875e-38|1e-999999999999999999999|"
        "0e99999999999|16777217|16777219|123456789012345|0.000000000000000000000000000000000000000000001|"
        "100000000000000000000000000000000000000|1000000000000000000000000000000000000000|"
        "0.1000000014901161193847656250000000000000000000000000001|1.00000005960464477539062500|"
        "1.000000059604644775390625000000000000000000000000000000000000001|1.0000001788139343261718750|"
        "0x1.000001p0|0x1.0000010000000000000000000000000000000001p0|0x1.fffffffp127|"
        "0x0.0000000000000000000000000000000000000000000001p200";
    for (const std::string& text : Split(texts, '|'))
        ExpectLikeCLibrary(text);
}

TEST(ScanFloat, RoundsRandomDecimalsAsTheCLibraryDoes)
{
    std::mt19937 random(20090302);
    char text[96];
    for (int i = 0; i < 200'000; ++i)
    {
        const float any = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        const auto small = static_cast<double>(static_cast<std::int32_t>(random())) / 65536.0;
        const int digits = static_cast<int>(random() % 12);
        std::snprintf(text, sizeof(text), i % 2 == 0 ? "%.*f" : "%.*e", digits,
                      i % 2 == 0 ? small : static_cast<double>(any));
        ExpectLikeCLibrary(text);
        // Just between two floats, and a digit to either side of it.
        const double middle = (static_cast<double>(any) + static_cast<double>(std::nextafter(any, 1e30F))) / 2.0;
        if (std::isfinite(middle) && std::fabs(middle) < 1e6 && std::fabs(middle) > 1e-6)
        {
            std::snprintf(text, sizeof(text), "%.15g%s", middle, i % 3 == 0 ? "" : i % 3 == 1 ? "1" : "9");
            ExpectLikeCLibrary(text);
        }
    }
}

TEST(ScanFloat, TakesAnyLength)
{
    ExpectLikeCLibrary(std::string(5000, '0') + "1." + std::string(5000, '5'));
    ExpectLikeCLibrary("0." + std::string(5000, '0') + "123e5000");
    ExpectLikeCLibrary(std::string(5000, '9') + "e-4990");
    ExpectLikeCLibrary("1.00000005960464477539062" + std::string(3000, '5'));
}

TEST(WriteFixed, WritesWhatPrintfWrites)
{
    std::mt19937 random(7);
    char expected[NumberCapacity];
    const auto check = [&](double value)
    {
        std::snprintf(expected, sizeof(expected), "%f", value);
        EXPECT_EQ(WriteFixedText(value), expected);
    };
    static constexpr std::string_view values =
        "0.0|-0.0|0.5|1.0|-1.0|0.0000005|0.00000049999999|0.0000015|2.5e-7|0.9999995|0.99999949|123456.0|8388607.5|"
        "16777216.0|9.2e12|1e15|1e22|3.4028234663852886e38|-3.4e38|1e308|5e-324";
    for (const std::string& value : Split(values, '|'))
        check(std::strtod(value.c_str(), nullptr));
    check(std::numeric_limits<double>::infinity());
    check(-std::numeric_limits<double>::infinity());
    for (int i = 0; i < 300'000; ++i)
    {
        const float any = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isnan(any))
            check(static_cast<double>(any));
        check(static_cast<double>(static_cast<std::int32_t>(random()) / 10000) / 64.0); // ties among them
        check(static_cast<double>(static_cast<std::int32_t>(random())) * 1e-7);         // no float
    }
    EXPECT_EQ(WriteFixedText(std::nan("")), "nan");
    EXPECT_EQ(WriteFixedText(-std::nan("")), "nan");
}

TEST(WriteExact, ReadsBackToTheSameBits)
{
    std::mt19937 random(11);
    for (int i = 0; i < 100'000; ++i)
    {
        const float any = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        char text[NumberCapacity];
        const std::string written(text, WriteExact(text, static_cast<double>(any)));
        if (std::isnan(any))
            EXPECT_EQ(written, "nan");
        else
        {
            float back = 0.0F;
            std::size_t taken = 0;
            EXPECT_TRUE(Scan(Widen(written), back, taken));
            EXPECT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(any)) << written;
        }
    }
}
