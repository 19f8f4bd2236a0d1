/// Broken and hostile texts of every format: whatever loads is sound, can be copied and saved, and costs no more
/// memory than a text of its size may.
#include "tests/hostile/formats.h"

#include <cstring>
#include <memory>

namespace
{
/// As many variants of a sample as a sweep tries at most: of long texts it leaves some out.
constexpr std::size_t MostPlaces = 1500;

std::size_t GetStride(const std::string& sample)
{
    return sample.size() / MostPlaces + 1;
}

/// Loads a text from a buffer of exactly its size, so that a read past its end shows under the sanitizers, and does
/// with what came out what callers do.
template <class TDocument> void LoadAnything(std::string_view text)
{
    const std::unique_ptr<char[]> exact(new char[text.size()]);
    std::memcpy(exact.get(), text.data(), text.size());
    TDocument document;
    ASSERT_EQ(LoadText(document, {exact.get(), text.size()}), 1);
    Check(document);
    TDocument copy(document);
    ASSERT_EQ(Describe(copy), Describe(document));
    const std::string saved = SaveText(document);
    if constexpr (SFormat<TDocument>::SavesWhatItLoads)
    {
        auto again = LoadNew<TDocument>(saved);
        Check(again);
        ASSERT_EQ(SaveText(again), saved);
    }
    if constexpr (std::is_same_v<TDocument, CFileFormat_Ase>)
    {
        CGraphics_Model model;
        ASSERT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
        Check(model);
    }
}
} // namespace

/// Loads variants of every sample; all that they took is given back.
template <class TDocument> class EveryBroken : public Every<TDocument>
{
  protected:
    void Try(const std::string& text, std::size_t place)
    {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "at " + std::to_string(place));
        LoadAnything<TDocument>(text);
    }

    void TearDown() override
    {
        EXPECT_TRUE(watch.IsBalanced());
        EXPECT_EQ(GetMemoryCount(), memorycount);
        Every<TDocument>::TearDown();
    }

    const CRegistryWatch watch;
    const std::int64_t memorycount = GetMemoryCount();
};
TYPED_TEST_SUITE(EveryBroken, CDocuments, SFormatNames);

TYPED_TEST(EveryBroken, CutAnywhere)
{
    for (const std::string& sample : this->samples)
        for (std::size_t size = 0; size <= sample.size() && !this->HasFailure(); size += GetStride(sample))
            this->Try(sample.substr(0, size), size);
}

TYPED_TEST(EveryBroken, BytesChanged)
{
    static constexpr std::string_view bytes("\0\n\r{}\" \t*;,/#[]-9e.:\xFF\xC3", 22);
    for (const std::string& sample : this->samples)
        for (std::size_t i = 0; i < sample.size() && !this->HasFailure(); i += GetStride(sample))
            for (const std::size_t shift : {std::size_t{0}, bytes.size() / 2})
            {
                std::string changed = sample;
                changed[i] = bytes[(i / GetStride(sample) + shift) % bytes.size()];
                this->Try(changed, i);
            }
}

TYPED_TEST(EveryBroken, LinesRemovedOrDoubled)
{
    for (const std::string& sample : this->samples)
        for (std::size_t begin = 0; begin < sample.size() && !this->HasFailure();)
        {
            const std::size_t end = std::min(sample.find('\n', begin), sample.size() - 1) + 1;
            this->Try(sample.substr(0, begin) + sample.substr(end), begin);
            this->Try(sample.substr(0, end) + sample.substr(begin), begin);
            begin = end;
        }
}

TYPED_TEST(EveryBroken, NumbersMadeLarger)
{
    static constexpr const char* numbers[] = {"4294967295", "1000000", "2147483647", "-1", "99999999999", "128"};
    static constexpr const char* digits = "0123456789";
    for (const std::string& sample : this->samples)
    {
        const CRegistryWatch measured;
        auto sound = LoadNew<TypeParam>(sample);
        const std::size_t soundsize = measured.registry.GetAllocatedSize();
        std::size_t place = 0;
        for (std::size_t at = 0; (at = sample.find_first_of(digits, at)) != std::string::npos && !this->HasFailure();)
        {
            const std::size_t end = std::min(sample.find_first_not_of(digits, at), sample.size());
            const std::string larger =
                sample.substr(0, at) + numbers[++place % std::size(numbers)] + sample.substr(end);
            {
                const CRegistryWatch own;
                auto document = LoadNew<TypeParam>(larger);
                EXPECT_LE(own.registry.GetAllocatedSize(),
                          2 * soundsize + 64 * sample.size() + SFormat<TypeParam>::TrustedMemory)
                    << "at " << at;
            }
            this->Try(larger, at);
            at = end + GetStride(sample) - 1;
        }
    }
}
