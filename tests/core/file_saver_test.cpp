#include "core/file_saver.h"

#include "core/block_writer.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>

namespace
{
std::string Write(const wchar_t* format, const wchar_t* text)
{
    CFile_Saver saver;
    saver.OpenMemory();
    saver.Write(0, format, text);
    return saver.GetText();
}

struct SFullSink
{
    std::string taken;
    std::size_t room;

    static Result Take(const char* bytes, std::size_t size, void* context)
    {
        auto& sink = *static_cast<SFullSink*>(context);
        if (size > sink.room)
        {
            errno = ENOSPC;
            return 0;
        }
        sink.taken.append(bytes, size);
        sink.room -= size;
        return 1;
    }
};
} // namespace

TEST(FileSaver, NestsBlocksWithTabs)
{
    CFile_Saver saver;
    EXPECT_EQ(saver.StartBlock(), 0) << "nothing is open";
    EXPECT_EQ(saver.Write(0, L"x"), 0);
    EXPECT_STREQ(saver.GetText(), "");
    saver.OpenMemory();
    EXPECT_EQ(saver.EndBlock(), 0) << "there is no block";
    EXPECT_EQ(saver.StartBlock(), 1);
    saver.Write(0, L"a:");
    EXPECT_EQ(saver.StartBlock(), 1);
    EXPECT_EQ(saver.Write(0, L"b: %d %u", -1, 0xFFFFFFFFU), 1);
    saver.EndBlock();
    saver.EndBlock();
    EXPECT_STREQ(saver.GetText(), "{\n\ta:\n\t{\n\t\tb: -1 4294967295\n\t}\n}\n");
}

TEST(FileSaver, WritesTextsAsTheyAre)
{
    EXPECT_EQ(Write(L"name: %s", L"\"100% %s %d\""), "name: \"100% %s %d\"\n");
    EXPECT_EQ(Write(L"100%% %q %5d %.8g %s|%", L"x"), "100% %q %5d %.8g x|%\n") << "what is no conversion is text";
    EXPECT_EQ(Write(L"%s", nullptr), "\n");
    EXPECT_EQ(Write(L"%s", L"two\r\nlines"), "two  lines\n");
    EXPECT_EQ(Write(L"%s", L"K\u00E4se \u20AC \U0001D11E"), "K\xC3\xA4se \xE2\x82\xAC \xF0\x9D\x84\x9E\n");
    EXPECT_EQ(Write(L"%s", L"\xD800x"), "\xEF\xBF\xBDx\n");
}

TEST(FileSaver, SpreadsArgumentsOverTheirFormat)
{
    CFile_Saver saver;
    saver.OpenMemory();
    WriteLine(&saver, L"%f %.9g %f %f %f", 0.5F, 0.1F,
              CMath_Vector3(-1, 0.25F, std::numeric_limits<float>::infinity()));
    EXPECT_STREQ(saver.GetText(), "0.500000 0.100000001 -1.000000 0.250000 inf\n");
}

TEST(FileSaver, LeavesLowLevelsOut)
{
    CFile_Saver saver;
    saver.OpenMemory();
    saver.SetLowestLevel(2);
    EXPECT_EQ(saver.Write(1, L"detail"), 0);
    EXPECT_EQ(saver.Write(2, L"warning"), 1);
    EXPECT_EQ(saver.Write(3, L"summary"), 1);
    EXPECT_STREQ(saver.GetText(), "warning\nsummary\n");
}

TEST(FileSaver, TellsWhenItsBytesAreNotTaken)
{
    SFullSink sink{{}, 600'000};
    CFile_Saver saver;
    saver.OpenSink(SFullSink::Take, &sink);
    for (int i = 0; i < 100'000; ++i)
        saver.Write(0, L"line %d", i);
    EXPECT_EQ(saver.StartBlock(), 0);
    EXPECT_EQ(saver.Close(), 0);
    EXPECT_EQ(saver.GetError(), ENOSPC);
    EXPECT_LE(sink.taken.size(), 600'000U);

    FailAllocations(0, ~0ULL);
    CFile_Saver memory;
    memory.OpenMemory();
    EXPECT_EQ(memory.Write(0, L"x"), 0);
    EXPECT_EQ(memory.StartBlock(), 0);
    EXPECT_STREQ(memory.GetText(), "");
    EXPECT_EQ(memory.GetError(), ENOMEM);
    FailAllocations(0, 0);
}

TEST(FileSaver, HandsLinesOnAtOnceWhereAsked)
{
    SFullSink sink{{}, 100};
    CFile_Saver saver;
    saver.OpenSink(SFullSink::Take, &sink, true);
    saver.Write(0, L"now");
    EXPECT_EQ(sink.taken, "now\n");
}

TEST(FileSaver, NamesWhyAFileCannotBeCreated)
{
    CFile_Saver saver;
    EXPECT_EQ(saver.OpenFile((testing::TempDir() + "no such folder/x").c_str()), 0);
    EXPECT_EQ(saver.GetError(), ENOENT);
    EXPECT_EQ(saver.StartBlock(), 0);
}
