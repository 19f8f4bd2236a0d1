/// What holds of any document of any format: its text brings it back, wherever and in whichever encoding it stands.
#include "tests/hostile/formats.h"

#include <clocale>

namespace
{
constexpr unsigned NumSeeds = 25;

/// The text with other line ends.
std::string EndLines(const std::string& text, const std::string& lineend)
{
    std::string changed;
    for (const char letter : text)
        letter == '\n' ? changed += lineend : changed += letter;
    return changed;
}

/// The texts have no character past the basic plane.
std::string ToUtf16(const std::string& text, bool isbigendian)
{
    CSys_String wide;
    wide.SetUtf8(text.data(), text.size());
    const std::wstring_view characters = wide.Get();
    return InUtf16(std::u16string(characters.begin(), characters.end()), isbigendian);
}

/// Numbers of the process have a decimal comma while it lives.
class CDecimalComma
{
  public:
    CDecimalComma() : former(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* const name : {"de_DE.UTF-8", "German_Germany.1252"})
            isthere = isthere || std::setlocale(LC_ALL, name) != nullptr;
        char probe[8];
        std::snprintf(probe, sizeof(probe), "%.1f", 0.5);
        EXPECT_STREQ(probe, isthere ? "0,5" : "0.5") << "or this shows nothing";
    }
    CDecimalComma(const CDecimalComma&) = delete;
    CDecimalComma& operator=(const CDecimalComma&) = delete;
    ~CDecimalComma()
    {
        std::setlocale(LC_ALL, former.c_str());
    }

    bool isthere = false;

  private:
    std::string former;
};
} // namespace

/// Calls a test with random documents.
template <class TDocument> class EveryRandom : public Every<TDocument>
{
  protected:
    template <class TTest> void ForEachDocument(TTest test)
    {
        for (unsigned seed = 0; seed < NumSeeds && !this->HasFailure(); ++seed)
        {
            const testing::ScopedTrace trace(__FILE__, __LINE__, "seed " + std::to_string(seed));
            TDocument document;
            FillAtRandom(document, seed);
            test(document, SFormat<TDocument>::Write(document));
        }
    }
};
TYPED_TEST_SUITE(EveryRandom, CDocuments, SFormatNames);

TYPED_TEST(EveryRandom, ComesBackFromItsText)
{
    const CRegistryWatch watch;
    this->ForEachDocument(
        [](TypeParam& document, const std::string& text)
        {
            Check(document);
            auto loaded = LoadNew<TypeParam>(text);
            ASSERT_EQ(Describe(loaded), Describe(document));
            ASSERT_EQ(SFormat<TypeParam>::Write(loaded), text);
            ASSERT_EQ(SaveText(loaded), SaveText(document));
            TypeParam copy(loaded);
            ASSERT_EQ(Describe(copy), Describe(document));
            TypeParam moved(std::move(copy));
            Check(moved);
            ASSERT_EQ(Describe(moved), Describe(document));
        });
    EXPECT_TRUE(watch.IsBalanced());
}

TYPED_TEST(EveryRandom, IsTheSameFromAnywhere)
{
    const std::string name = testing::TempDir() + "hostile_" + SFormat<TypeParam>::Name + ".txt";
    this->ForEachDocument(
        [&](TypeParam& document, const std::string& text)
        {
            const std::string described = Describe(document);
            for (const char* const lineend : {"\n", "\r\n", "\r"})
            {
                const std::string ended = EndLines(text, lineend);
                for (const std::string& form :
                     {ended, "\xEF\xBB\xBF" + ended, ToUtf16(ended, false), ToUtf16(ended, true)})
                {
                    ASSERT_EQ(Describe(LoadNew<TypeParam>(form)), described);
                }
                std::ofstream(name, std::ios::binary) << ended;
                CFile_Parser file;
                ASSERT_EQ(file.OpenFile(name.c_str()), 1);
                CFile_Parser rest;
                ASSERT_EQ(rest.Add(file), 1);
                CFile_Parser pieces;
                ASSERT_EQ(pieces.OpenFile(name.c_str(), text.size() % 500 + 1), 1);
                for (CFile_Parser* const parser : {&file, &rest, &pieces})
                {
                    TypeParam loaded;
                    loaded.Load(parser, nullptr);
                    ASSERT_EQ(Describe(loaded), described);
                }
            }
        });
    std::filesystem::remove(name);
}

TYPED_TEST(EveryRandom, DoesNotKnowTheProcessLocale)
{
    this->ForEachDocument(
        [&](TypeParam& document, const std::string& text)
        {
            const std::string saved = SaveText(document);
            const CDecimalComma comma;
            if (!comma.isthere)
                GTEST_SKIP() << "no such locale is installed; ./test provides one";
            ASSERT_EQ(SaveText(document), saved);
            ASSERT_EQ(SFormat<TypeParam>::Write(document), text);
            ASSERT_EQ(Describe(LoadNew<TypeParam>(text)), Describe(document));
        });
}
