#include "core/sys_string.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

TEST(String, KeepsTextAsItIs)
{
    CSys_String text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Write(L"%s %d%%", L"\"50%s\"", 7), 1);
    EXPECT_STREQ(text.Get(), L"\"50%s\" 7%");
    text.Write(L"<%s>", text.Get());
    EXPECT_STREQ(text.Get(), L"<\"50%s\" 7%>") << "its own text may be an argument";
    text = text.Get() + 1;
    EXPECT_STREQ(text.Get(), L"\"50%s\" 7%>");
    const std::wstring longtext(5000, L'x');
    text.Write(L"%s", longtext.c_str());
    CSys_String copy(text);
    text.Clear();
    EXPECT_EQ(copy.Get(), longtext);
    CSys_String moved(std::move(copy));
    EXPECT_TRUE(copy.IsEmpty()); // NOLINT(bugprone-use-after-move): this is what is tested
    EXPECT_FALSE(moved == copy);
    text.SetUtf8("K\xC3\xA4se", 5);
    EXPECT_STREQ(text.Get(), L"K\u00E4se");
}

TEST(String, IsEmptyWithoutMemory)
{
    CSys_String text(L"before");
    FailAllocations(0, ~0ULL);
    EXPECT_EQ(text.Write(L"%s", L"after"), 0);
    EXPECT_STREQ(text.Get(), L"");
    FailAllocations(0, 0);
}

TEST(String, SavesAndLoadsAnyText)
{
    std::vector<std::wstring> texts = {std::wstring(L"\x01\x1F\x7F") + wchar_t{0xD800} + L"x",
                                       std::wstring(10'000, L'\\'), std::wstring(10'000, L' ')};
    for (const wchar_t* text :
         {L"", L"plain", L"  blanks at both ends\t", L"\"quotes\" and \\ backslashes \\n", L"{", L"}",
          L"two\r\nlines\n\n", L"// no comment", L"# neither", L"100% %s", L"K\u00E4se \u20AC \U0001D11E"})
        texts.emplace_back(text);
    for (const std::wstring& text : texts)
    {
        CSys_String saved(text.c_str());
        CSys_String loaded(L"former");
        EXPECT_EQ(LoadText(loaded, SaveText(saved)), 1);
        EXPECT_EQ(loaded.Get(), text);
    }
}
