#include "core/block_reader.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
constexpr SKeyword Enders[] = {L"*TOP"};

/// The lines that belong to the block in which the text stands, and then what the parser has left.
std::wstring ReadOwnLines(std::string_view text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    std::wstring lines;
    {
        CBlockReader block(&parser, nullptr, Enders);
        while (block.NextLine())
        {
            lines.append(block.GetRest()).append(L"|");
            if (block.Is(L"*LIST"))
            {
                CBlockReader list(block);
                while (list.NextLine())
                    lines.append(L"-").append(list.GetRest()).append(L"|");
            }
        }
    }
    wchar_t line[CFile_Parser::BlockLineCapacity];
    if (parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
        lines.append(L">").append(line);
    return lines;
}
} // namespace

TEST(BlockReader, PassesOverBlocksThatNobodyRead)
{
    EXPECT_EQ(ReadOwnLines("a\n*UNKNOWN {\nb\n*DEEPER {\nc\n}\nd\n}\ne\n}\nf"), L"a|*UNKNOWN {|e|>f");
    EXPECT_EQ(ReadOwnLines("{\na\nunknown:\n{\nb\n{\nc\n}\n}\nd\n}\ne"), L"a|unknown:|d|>e")
        << "braces on lines of their own";
    EXPECT_EQ(ReadOwnLines("*UNKNOWN {\n}\n}\nf"), L"*UNKNOWN {|>f");
    EXPECT_EQ(ReadOwnLines("*LIST {\na\n*UNKNOWN {\nb\n}\nc\n}\nd\n}\ne"), L"*LIST {|-a|-*UNKNOWN {|-c|d|>e");
    EXPECT_EQ(ReadOwnLines("}\nf"), L">f");
    EXPECT_EQ(ReadOwnLines("a\n*UNKNOWN {\nb"), L"a|*UNKNOWN {|") << "the text ends inside";
    EXPECT_EQ(ReadOwnLines(""), L"");
}

TEST(BlockReader, LeavesLinesThatBelongOutside)
{
    EXPECT_EQ(ReadOwnLines("a\n*TOP {\nb\n}\n"), L"a|>*TOP {");
    EXPECT_EQ(ReadOwnLines("*UNKNOWN {\nb\n*TOP {\nc\n}\n"), L"*UNKNOWN {|>*TOP {")
        << "inside a block passed over, too";
    EXPECT_EQ(ReadOwnLines("*LIST {\na\n*TOP {\n"), L"*LIST {|-a|>*TOP {");
    EXPECT_EQ(ReadOwnLines("*TOP \"a name, no block\"\n}\nx"), L"*TOP \"a name, no block\"|>x");
}

TEST(BlockReader, TakesLinesApart)
{
    CFile_Parser parser;
    constexpr std::string_view text = "*KEY 1 x -2.5 \"a b\" {\n*KEY 1 x -2.5 \"a b\" {\n";
    parser.Open(text.data(), text.size());
    CBlockReader block(&parser);
    ASSERT_TRUE(block.NextPlainLine());
    EXPECT_FALSE(block.Is(L"*KE"));
    EXPECT_FALSE(block.Is(L"*KEYS"));
    ASSERT_TRUE(block.Strip(L"*KEY"));
    CMath_Vector3 vector(7, 8, 9);
    EXPECT_FALSE(block.Scan(vector)) << "one scan stops at what is no number";
    EXPECT_EQ(vector, CMath_Vector3(1, 8, 9));

    ASSERT_TRUE(block.NextPlainLine());
    ASSERT_TRUE(block.Strip(L"*KEY"));
    vector = {7, 8, 9};
    block.ScanWords(vector);
    EXPECT_EQ(vector, CMath_Vector3(1, 8, -2.5F)) << "word by word only that component stays";
    CSys_String rest;
    EXPECT_TRUE(block.Scan(rest));
    EXPECT_STREQ(rest.Get(), L"\"a b\" {");
    EXPECT_TRUE(block.StripWord());
    EXPECT_TRUE(block.StripWord());
    EXPECT_TRUE(block.StripWord());
    EXPECT_FALSE(block.StripWord());
}

TEST(BlockReader, EndsAtOnceWithoutMemory)
{
    CFile_Parser parser;
    parser.Open("a\n", 2);
    FailAllocations(0, 1);
    CBlockReader block(&parser);
    FailAllocations(0, 0);
    EXPECT_FALSE(block.NextLine());
    EXPECT_FALSE(block.NextPlainLine());
}
