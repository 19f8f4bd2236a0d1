#include "containers/channel_list.h"

#include "tests/support/odd_lines.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <sstream>

namespace
{
using CChannels3 = TChannelList<float, 3>;
using CChannels4 = TChannelList<float, 4>;

/// The bytes of floats as a raw block has them.
std::string Raw(std::initializer_list<float> numbers)
{
    std::string bytes;
    for (const float number : numbers)
        for (std::uint32_t bits = std::bit_cast<std::uint32_t>(number), i = 0; i < 4; ++i, bits >>= 8)
            bytes += static_cast<char>(bits & 0xFF);
    return bytes;
}

/// The nodes that the text gives: key and values of each.
template <unsigned N> std::string Read(std::string_view text)
{
    std::ostringstream out;
    const auto list = LoadNew<TChannelList<float, N>>(text);
    for (const auto& node : list.channelNodes)
    {
        out << node.key;
        for (const float value : node.value)
            out << ' ' << value;
        out << '|';
    }
    return out.str();
}
} // namespace

TEST(ChannelList, LoadReplacesTheNodes)
{
    auto list = LoadNew<CChannels3>("{\naddnode: 9 9 9 9\n}\n");
    LoadText(list, "{\naddnode: 1 2 3 0.5\naddnode: 5 6\n}\n");
    EXPECT_EQ(SaveText(list), "{\n\taddnode: 1.000000 2.000000 3.000000 0.500000\n"
                              "\taddnode: 5.000000 6.000000 0.000000 0.000000\n}\n");
    EXPECT_EQ(list.DeleteAll(), 1);
    EXPECT_EQ(list.channelNodes.Capacity, 0U);
}

TEST(ChannelList, ReadsLines)
{
    EXPECT_EQ(Read<3>("{\nskipped 1 2 3 4\naddnode: 1 2 3 4\nblock:\n{\naddnode: 9 9 9 9\n}\naddnode: x\n}\n"),
              "1 2 3 4|0 0 0 0|");
    EXPECT_EQ(Read<3>("{\naddnode:7 1 2 3 4\naddnodes: 9 9 9 9\n}\n"), "1 2 3 4|")
        << "the keyword need not be a word of its own, yet the whole first word is removed";
    EXPECT_EQ(Read<3>("{\naddnode: 1 2 3 4\naddbnodes: 1\naddnode: 5 6 7 8\n}\n"), "1 2 3 4|5 6 7 8|")
        << "three channels have no raw nodes";
}

TEST(ChannelList, ReadsLinesInPlaceAsLineByLine)
{
    for (const char* const entry :
         {"addnode: @ 1 0.5 -2 3", "\taddnode: 1 0.5 2 @", "addnode:@ 1 2 3 4 5", "addnodes 1 2 3 4 @"})
        for (const std::string& oddity : GetOddities())
            for (const char* const behind : {"", "addnode: 7 7 7 7 7\n}\naddnode: 9 9 9 9 9\n"})
            {
                const std::string text = "{\naddnode: 1 2 3 4 5\n" + WriteOddLines(entry, oddity) + behind;
                EXPECT_TRUE(IsReadInPlaceAsLineByLine(text, Read<3>));
                EXPECT_TRUE(IsReadInPlaceAsLineByLine(text, Read<4>));
            }
}

TEST(RawNodes, ReplaceThoseBeforeAndGoOnBehind)
{
    const std::string raw = Raw({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(Read<4>("{\r\naddnode: 9 9 9 9 9\r\naddbnodes: 2\r\n" + raw + "\r\naddnode: 11 12 13 14 15\r\n}\r\n"),
              "1 2 3 4 5|6 7 8 9 10|11 12 13 14 15|");
    for (const std::string line : {"addbnodes: 0", "addbnodes:", "addbnodes: x"})
        EXPECT_EQ(Read<4>("{\naddnode: 1 1 1 1 1\n" + line + "\r\naddnode: 2 2 2 2 2\n}\n"), "1 1 1 1 1|2 2 2 2 2|");
}

// Bytes that look like lines, braces or blanks are still numbers.
TEST(RawNodes, AreNotTakenForText)
{
    const std::string bytes = "}\n{\naddnode: 9 9 9 9 9";
    const auto list = LoadNew<CChannels4>("{\naddbnodes:1\r\n" + bytes.substr(0, 20) + "addnode: 1 1 1 1 1\n}\n");
    ASSERT_EQ(list.channelNodes.GetNumItems(), 2U);
    EXPECT_EQ(std::memcmp(list.channelNodes.Items, bytes.data(), 20), 0);
    EXPECT_EQ(list.channelNodes[1]->key, 1.0F);
}

TEST(RawNodes, CountThatTheTextCannotHoldAddsNone)
{
    const std::string rest = "addnode: 2 2 2 2 2\n}\n"; // 21 bytes, so one node would fit
    for (const char* count : {"2", "4294967295", "-1", "99999999999"})
    {
        CLogWatch log(2);
        CRegistryWatch watch;
        auto list = LoadNew<CChannels4>("{\naddnode: 1 1 1 1 1\naddbnodes: " + std::string(count) + "\r\n" + rest);
        EXPECT_EQ(list.channelNodes.GetNumItems(), 2U) << count;
        EXPECT_EQ(watch.registry.GetAllocatedSize(), 128 * sizeof(CChannels4::SData)) << count;
        EXPECT_EQ(log.GetText().rfind("text(3): ", 0), 0U) << log.GetText();
        EXPECT_NE(log.GetText().find("raw nodes are more than the text holds"), std::string::npos) << log.GetText();
    }
}

// The text may end anywhere in the line, its end or the nodes.
TEST(RawNodes, CutAnywhere)
{
    const std::string whole = "{\naddbnodes: 2\r\n" + Raw({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        const std::vector<char> exact(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        CChannels4 list;
        EXPECT_EQ(LoadText(list, {exact.data(), exact.size()}), 1);
        EXPECT_EQ(list.channelNodes.GetNumItems(), size == whole.size() ? 2U : 0U) << size;
    }
}

TEST(RawNodes, WithoutMemoryAreStillNoText)
{
    const std::string bytes = "}\n}\naddnode: 9 9 9 9";
    CChannels4 list;
    // the first is the line buffer
    EXPECT_EQ(LoadWithout(list, "{\naddbnodes: 1\r\n" + bytes + "\naddnode: 1 1 1 1 1\n}\n", 1), 1);
    ASSERT_EQ(bytes.size(), sizeof(CChannels4::SData));
    ASSERT_EQ(list.channelNodes.GetNumItems(), 1U);
    EXPECT_EQ(list.channelNodes[0]->key, 1.0F);
}
