#include "core/word_helpers.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

TEST(RecognizeWord, TakesWholeFirstWords)
{
    EXPECT_NE(RecognizeWord(L"*MESH", L"*MESH {"), 0);
    EXPECT_NE(RecognizeWord(L"*MESH", L" \t*MESH"), 0);
    EXPECT_NE(RecognizeWord(L"Mesh", L"Mesh{"), 0);
    EXPECT_NE(RecognizeWord(L"{", L"{"), 0);
    EXPECT_EQ(RecognizeWord(L"*MESH", L"*MESH_ANIMATION {"), 0);
    EXPECT_EQ(RecognizeWord(L"*MESH_ANIMATION", L"*MESH"), 0);
    EXPECT_EQ(RecognizeWord(L"*mesh", L"*MESH"), 0);
    EXPECT_EQ(RecognizeWord(L"*MESH", L"x *MESH"), 0);
    EXPECT_EQ(RecognizeWord(L"", L""), 0);
}

TEST(RecognizeString, TakesBeginnings)
{
    EXPECT_NE(RecognizeString(L"addnode:", L"addnode:1 2"), 0);
    EXPECT_NE(RecognizeString(L"\"Tape\"", L"\"Tape\" measure"), 0);
    EXPECT_EQ(RecognizeString(L"addnode:", L"addnode"), 0);
    EXPECT_EQ(RecognizeString(L"a", L" a"), 0);
}

TEST(MoveString, RemovesWordsOneByOne)
{
    struct SStep
    {
        const wchar_t* line;
        Result result;
        const wchar_t* rest;
        const wchar_t* removed;
    };
    static const SStep steps[] = {
        {L"*NODE_NAME \"a b\"", 1, L"\"a b\"", L"*NODE_NAME"},
        {L"one\t \ttwo", 1, L"two", L"one"},
        {L"last", 1, L"", L"last"},
        {L"Mesh{", 1, L"{", L"Mesh"},
        {L"{ x", 1, L"x", L"{"},
        {L"\t  first second", 0, L"first second", L""},
        {L"", 0, L"", L""},
    };
    for (const SStep& step : steps)
    {
        wchar_t line[64];
        wchar_t removed[64] = L"?";
        std::wcscpy(line, step.line);
        EXPECT_EQ(MoveString(line, removed), step.result) << step.line;
        EXPECT_STREQ(line, step.rest);
        EXPECT_STREQ(removed, step.removed);
        std::wcscpy(line, step.line);
        EXPECT_EQ(MoveString(line, nullptr), step.result);
    }
}

TEST(MoveStringToMark, StopsAtTheFirstOfBoth)
{
    wchar_t line[32] = L"3;0,1";
    wchar_t removed[32];
    EXPECT_EQ(MoveStringToMark(line, L',', L';', removed), 1);
    EXPECT_STREQ(line, L"0,1");
    EXPECT_STREQ(removed, L"3");
    EXPECT_EQ(MoveStringToMark(line, L',', L';', nullptr), 1);
    EXPECT_STREQ(line, L"1");
    EXPECT_EQ(MoveStringToMark(line, L',', L';', nullptr), 0);
    EXPECT_STREQ(line, L"");
}

TEST(CompareStrings, IsExact)
{
    EXPECT_EQ(CompareStrings(L"Target", L"Target"), 1);
    EXPECT_EQ(CompareStrings(L"Target", L"target"), 0);
    EXPECT_EQ(CompareStrings(L"Target ", L"Target"), 0);
}
