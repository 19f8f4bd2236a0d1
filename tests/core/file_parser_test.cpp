#include "core/file_parser.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cwchar>
#include <filesystem>
#include <fstream>

namespace
{
/// Every line of the text, joined by "|".
std::wstring ReadLines(std::string_view text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    wchar_t line[CFile_Parser::BlockLineCapacity];
    std::wstring lines;
    while (parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
        lines.append(line).append(L"|");
    EXPECT_STREQ(line, L"");
    return lines;
}

/// The same by GetBlockLine, up to `ends` ends; "." stands for an end.
std::wstring ReadBlockLines(std::string_view text, int ends)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    wchar_t line[CFile_Parser::BlockLineCapacity];
    std::wstring lines;
    while (ends > 0)
        if (parser.GetBlockLine(line) == 1)
            lines.append(line).append(L"|");
        else
        {
            lines += L".";
            --ends;
        }
    return lines;
}

/// The name of a new file with the text in the folder for temporary ones.
std::string MakeFile(const std::string& text)
{
    const std::string name =
        testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt";
    std::ofstream(name, std::ios::binary) << text;
    return name;
}

/// One character beyond 16 bits, as this platform's wide text has it.
const std::wstring Clef = L"\U0001D11E";
} // namespace

TEST(FileParser, DeliversLinesWithoutEndsAndOuterBlanks)
{
    using namespace std::string_literals;
    EXPECT_EQ(ReadLines(""), L"");
    EXPECT_EQ(ReadLines("one"), L"one|");
    EXPECT_EQ(ReadLines("one\r\ntwo\rthree\n\n\n four \t\n\t \n"), L"one|two|three|four|");
    EXPECT_EQ(ReadLines("a\n// note\n  # note\n/ b\n#"), L"a|/ b|");
    EXPECT_EQ(ReadLines("a\0\0b\0\n\0c"s), L"a  b|c|") << "a NUL is a blank";
    EXPECT_EQ(ReadLines("\xEF\xBB\xBF*A"), L"*A|");
}

TEST(FileParser, DecodesUtf8AndOldCodePages)
{
    EXPECT_EQ(ReadLines("K\xC3\xA4se \xE2\x82\xAC"), L"K\u00E4se \u20AC|");
    EXPECT_EQ(ReadLines("K\xE4se \x80\x9F"), L"K\u00E4se \u20AC\u0178|") << "Windows-1252";
    EXPECT_EQ(ReadLines("\xF0\x9D\x84\x9E"), Clef + L"|");
    // Overlong, a surrogate, beyond the last character, cut off: each byte stands for itself.
    EXPECT_EQ(ReadLines("\xC0\xAF"), L"\u00C0\u00AF|");
    EXPECT_EQ(ReadLines("\xED\xA0\x80"), L"\u00ED\u00A0\u20AC|");
    EXPECT_EQ(ReadLines("\xF5x"), L"\u00F5x|");
    EXPECT_EQ(ReadLines("\xF4\x90\x80\x80").size(), 5U);
    EXPECT_EQ(ReadLines("a\xE2\x82"), L"a\u00E2\u201A|");
    EXPECT_EQ(ReadLines("long enough for the quick loop \xC3\xA9 and on it goes, again long enough \xC3"),
              L"long enough for the quick loop \u00E9 and on it goes, again long enough \u00C3|");
}

TEST(FileParser, DecodesUtf16OfEitherByteOrder)
{
    for (const bool isbigendian : {false, true})
    {
        EXPECT_EQ(ReadLines(InUtf16(u"\t*A \u00E4\r\n\r\n *B {\U0001D11E}\n// x\nc\0d", isbigendian)),
                  L"*A \u00E4|*B {" + Clef + L"}|c|")
            << "the literal ends at its NUL";
        EXPECT_EQ(ReadLines(InUtf16(std::u16string_view(u"c\0d", 3), isbigendian)), L"c d|");
        EXPECT_EQ(ReadLines(InUtf16(std::u16string(1, u'\xD800') + u"x" + std::u16string(1, u'\xDC00'), isbigendian)),
                  L"\uFFFDx\uFFFD|");
        EXPECT_EQ(ReadLines(InUtf16(u"ab", isbigendian) + "x"), L"ab|") << "half a unit at the end";
    }
}

TEST(FileParser, CutsLinesToTheBuffer)
{
    CLogWatch log;
    const auto longest = CFile_Parser::BlockLineCapacity - 1;
    const std::wstring fits = ReadLines(std::string(longest, 'x') + "   \nnext");
    EXPECT_EQ(fits, std::wstring(longest, L'x') + L"|next|");
    EXPECT_EQ(log.GetText(), "");
    EXPECT_EQ(ReadLines("a\n" + std::string(longest + 1, 'x') + "\nnext"),
              L"a|" + std::wstring(longest, L'x') + L"|next|");
    EXPECT_EQ(log.GetText(), "text(2): the line is too long, what does not fit is passed over\n");
    EXPECT_EQ(ReadLines(std::string(longest - 1, 'x') + "\xF0\x9D\x84\x9Ey\nnext"),
              std::wstring(longest - 1, L'x') + L"|next|")
        << "a pair is not cut in two, nor is what follows taken for it";
    EXPECT_EQ(ReadLines(InUtf16(std::u16string(longest + 5, u'x') + u"\nnext", false)),
              std::wstring(longest, L'x') + L"|next|");

    CFile_Parser parser;
    parser.Open("abc def\nx", 9);
    wchar_t small[6];
    EXPECT_EQ(parser.GetLine(small, 5), 1);
    EXPECT_STREQ(small, L"abc") << "no blank is left where the line was cut";
    EXPECT_EQ(parser.GetLine(small, 5), 1);
    EXPECT_STREQ(small, L"x");
}

TEST(FileParser, JudgesBlocksOnWholeLines)
{
    CLogWatch log;
    const std::string filler(5000, 'x');
    EXPECT_EQ(ReadBlockLines("*A " + filler + " {\nin\n}\nout\n}\n", 2).substr(2047), L"|in|.out|.");
    EXPECT_EQ(ReadBlockLines("}\n }\t\n", 2), L"..");
    EXPECT_EQ(ReadBlockLines("a\n{\nb {\nc\n}\nd\n}\ne", 4), L"a|b {|c|.d|.e|..");
    EXPECT_EQ(ReadBlockLines("}a\n} {\n}\n", 1), L"}a|} {|.");
    EXPECT_EQ(ReadBlockLines("", 3), L"...");

    CFile_Parser parser;
    constexpr std::string_view text = "*NAME \"a {\n*NAME \"b\" {\n{\n}\n}\n}\n}\nx";
    parser.Open(text.data(), text.size());
    wchar_t line[CFile_Parser::BlockLineCapacity];
    std::vector<long> depths;
    while (parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
        depths.push_back(parser.GetBlockDepth());
    EXPECT_EQ(depths, (std::vector<long>{0, 1, 2, 1, 0, 0, 0, 0})) << "a brace inside quotes opens nothing";
}

TEST(FileParser, StandsAtTheEndOfItsLine)
{
    CFile_Parser parser;
    constexpr std::string_view text = "addbnodes: 1\r\nABCD\r\nnext";
    parser.Open(text.data(), text.size());
    GetBlockLine(parser);
    EXPECT_EQ(parser.GetOffset(), 12U);
    EXPECT_EQ(parser.GetLineNumber(), 1U);
    parser.SetOffset(parser.GetOffset() + 2);
    char raw[4];
    EXPECT_EQ(parser.Read(raw, 4), 4U);
    EXPECT_EQ(std::string(raw, 4), "ABCD");
    EXPECT_EQ(GetBlockLine(parser), L"next");
    EXPECT_EQ(parser.GetLineNumber(), 3U);
    EXPECT_EQ(parser.Read(raw, 4), 0U);
    parser.SetOffset(~std::size_t{0});
    EXPECT_EQ(parser.GetOffset(), text.size());
    parser.SetOffset(16);
    EXPECT_EQ(parser.GetLineNumber(), 2U) << "counted backwards";
    EXPECT_EQ(parser.Reset(), 1);
    EXPECT_EQ(parser.GetLineNumber(), 1U);
    EXPECT_EQ(GetBlockLine(parser), L"addbnodes: 1");
}

TEST(FileParser, TakesWhatAnotherHasStillToRead)
{
    CFile_Parser copy;
    {
        const std::string text = InUtf16(u"first\nsecond", true);
        CFile_Parser source;
        source.Open(text.data(), text.size());
        GetBlockLine(source);
        EXPECT_EQ(copy.Add(source), 1);
    }
    EXPECT_TRUE(copy.GetPlainText().empty()) << "the rest is in UTF-16 too, though no mark says so";
    EXPECT_EQ(GetBlockLine(copy), L"second");
    copy.Reset();
    EXPECT_EQ(GetBlockLine(copy), L"second");

    const std::string text = InUtf16(u"x\n\uBBEF\u00BF\nlast", false); // a mark of UTF-8 from the second line on
    CFile_Parser source;
    source.Open(text.data(), text.size());
    source.SetOffset(6);
    EXPECT_EQ(copy.Add(source), 1);
    EXPECT_EQ(GetBlockLine(copy), L"\uBBEF\u00BF");
    EXPECT_EQ(GetBlockLine(copy), L"last");
    EXPECT_EQ(copy.GetLineNumber(), 2U);

    FailAllocations(0, 1);
    CFile_Parser other;
    EXPECT_EQ(other.Add(copy), 0);
    EXPECT_EQ(other.GetError(), ENOMEM);
    EXPECT_EQ(other.GetSize(), 0U);
    FailAllocations(0, 0);
}

TEST(FileParser, ReadsFilesByAnyName)
{
    const std::string folder = testing::TempDir();
    const std::string name = folder + "K\xC3\xA4se \xE2\x82\xAC.txt";
    CFile_Saver saver;
    ASSERT_EQ(saver.OpenFile(name.c_str()), 1);
    for (int i = 0; i < 20'000; ++i)
        saver.Write(0, L"line %d", i);
    ASSERT_EQ(saver.Close(), 1);

    CFile_Parser parser;
    ASSERT_EQ(parser.OpenFile(name.c_str()), 1);
    wchar_t line[CFile_Parser::BlockLineCapacity];
    int count = 0;
    while (parser.GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
        ++count;
    EXPECT_EQ(count, 20'000);
    const std::wstring wide = parser.GetFilename();
    EXPECT_EQ(wide.substr(wide.size() - 10), L"K\u00E4se \u20AC.txt");
    EXPECT_EQ(parser.OpenFile(wide.c_str()), 1);
    EXPECT_TRUE(std::filesystem::remove(std::u8string(name.begin(), name.end())));

    EXPECT_EQ(parser.OpenFile(name.c_str()), 0);
    EXPECT_EQ(parser.GetError(), ENOENT);
    EXPECT_EQ(parser.GetSize(), 0U);
    EXPECT_EQ(parser.OpenFile(folder.c_str()), 0) << "a folder is no file";
    EXPECT_NE(parser.GetError(), 0);
    EXPECT_EQ(parser.GetLine(line, CFile_Parser::BlockLineCapacity), 0);
}

/// A text with all that a line may be, some longer than any piece of it.
std::string MakePiecemealText()
{
    std::string text = "\xEF\xBB\xBF*OBJECT {\r\n";
    for (int i = 0; i < 40; ++i)
    {
        text += "\t entry " + std::to_string(i) + (i % 3 == 0 ? "\r\n" : i % 3 == 1 ? "\n\n" : "\r");
        text += i % 5 == 0 ? "// a comment {\n#}\n" : "";
        text += i % 7 == 0 ? std::string(static_cast<std::size_t>(i) * 50, 'x') + " \xC3\xA4\xE4 {\n}\n" : "";
    }
    return text + "}\nlast";
}

TEST(FileParser, ReadsAFilePieceByPiece)
{
    const std::string text = MakePiecemealText();
    const std::string file = MakeFile(text);
    constexpr unsigned long capacity = 1000;
    wchar_t line[capacity];
    wchar_t other[capacity];
    for (const std::size_t piecesize : {1U, 2U, 3U, 7U, 64U, 1000U, 100'000U})
    {
        SCOPED_TRACE(piecesize);
        CFile_Parser whole;
        CFile_Parser pieces;
        ASSERT_EQ(whole.Open(text.data(), text.size()), 1);
        ASSERT_EQ(pieces.OpenFile(file.c_str(), piecesize), 1);
        EXPECT_EQ(pieces.GetSize(), text.size());
        for (int i = 0; whole.GetLine(line, capacity) == 1; ++i)
        {
            const std::size_t before = pieces.GetOffset();
            ASSERT_EQ(pieces.GetLine(other, capacity), 1);
            ASSERT_STREQ(other, line);
            if (i % 4 == 0) // the line is given back
            {
                pieces.SetOffset(i % 8 == 0 ? before : before / 2);
                pieces.SetOffset(before);
                ASSERT_EQ(pieces.GetLine(other, capacity), 1);
                ASSERT_STREQ(other, line);
            }
            ASSERT_EQ(pieces.GetOffset(), whole.GetOffset());
            ASSERT_EQ(i % 3 == 0 ? pieces.GetLineNumber() : 1, i % 3 == 0 ? whole.GetLineNumber() : 1);
        }
        EXPECT_EQ(pieces.GetLine(other, capacity), 0);

        pieces.SetOffset(10);
        CFile_Parser rest;
        EXPECT_EQ(rest.Add(pieces), 1);
        std::string raw(text.size(), '?');
        EXPECT_EQ(rest.Read(raw.data(), raw.size()), text.size() - 10);
        EXPECT_EQ(raw.substr(0, text.size() - 10), text.substr(10));
        EXPECT_EQ(pieces.Read(raw.data(), raw.size()), text.size() - 10);
        EXPECT_EQ(raw.substr(0, text.size() - 10), text.substr(10));
        EXPECT_EQ(pieces.GetError(), 0);
    }
    std::filesystem::remove(file);
}

TEST(FileParser, EndsWhereAFileIsCutShortMeanwhile)
{
    const std::string file = MakeFile("first\nsecond\nthird\n");
    CFile_Parser parser;
    ASSERT_EQ(parser.OpenFile(file.c_str(), 4), 1);
    EXPECT_EQ(GetBlockLine(parser), L"first");
    std::filesystem::resize_file(file, 9);
    EXPECT_EQ(GetBlockLine(parser), L"sec");
    EXPECT_EQ(parser.GetError(), EIO);
    EXPECT_EQ(parser.GetSize(), 9U);
    EXPECT_EQ(GetBlockLine(parser), L"");
    parser.DestroyData();
    std::filesystem::remove(file);
}

TEST(FileParser, ReportsFileAndLine)
{
    CLogWatch log(2);
    CFile_Parser parser;
    parser.Open("a\nb\nc", 5);
    parser.SetFilename(L"100%.ase");
    GetBlockLine(parser);
    GetBlockLine(parser);
    parser.Report(2, L"%s %d", L"50%d", 7);
    parser.Report(1, L"too low");
    EXPECT_EQ(log.GetText(), "100%.ase(2): 50%d 7\n");
}
