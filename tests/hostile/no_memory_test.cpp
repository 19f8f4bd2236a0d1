/// Lack of memory at every allocation of every operation, once and from there on: never a crash or a leak, nothing
/// released twice, and what is there is sound.
#include "tests/hostile/formats.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

namespace
{
/// Lets the allocations of one operation fail from one of them on.
class CFailure
{
  public:
    CFailure(std::uint64_t newfirst, std::uint64_t newcount) : first(newfirst), count(newcount)
    {
    }

    template <class TOperation> void During(TOperation operation)
    {
        FailAllocations(first, count);
        operation();
        attempts = GetNumAllocationAttempts();
        if (attempts > first)
            failed += std::min(attempts - first, count);
        FailAllocations(0, 0);
    }

    std::uint64_t attempts = 0; ///< Of the last operation.
    std::uint64_t failed = 0;   ///< Of all of them.

  private:
    std::uint64_t first;
    std::uint64_t count;
};

/// Does the work once with all memory and then without it at each of the attempts that it made.
void FailEach(const std::function<void(CFailure&)>& work)
{
    CFailure none(~std::uint64_t{0}, 0);
    work(none);
    ASSERT_GT(none.attempts, 0U);
    for (const std::uint64_t count : {std::uint64_t{1}, ~std::uint64_t{0} / 2})
        for (std::uint64_t first = 0; first < none.attempts && !testing::Test::HasFailure(); ++first)
        {
            const testing::ScopedTrace trace(__FILE__, __LINE__,
                                             "attempt " + std::to_string(first) + (count == 1 ? "" : " and the rest"));
            const CRegistryWatch watch;
            const std::int64_t memorycount = GetMemoryCount();
            CFailure failure(first, count);
            work(failure);
            EXPECT_TRUE(watch.IsBalanced());
            // What the arrays asked for in vain stays counted.
            EXPECT_GE(GetMemoryCount(), memorycount);
            EXPECT_LE(GetMemoryCount(), memorycount + static_cast<std::int64_t>(failure.failed));
        }
}

/// Every face's material number is that of one of as many materials as there are numbers.
void ExpectDense(CGraphics_Model& model)
{
    std::set<std::uint32_t> numbers;
    for (const CGraphics_Geometry* const geometry : model.Geometries)
        for (const SGraphics_Face& face : geometry->Mesh.Faces)
            numbers.insert(face.Material);
    EXPECT_TRUE(numbers.empty() || *numbers.rbegin() == numbers.size() - 1);
}
} // namespace

template <class TDocument> class EveryWithoutMemory : public Every<TDocument>
{
};
TYPED_TEST_SUITE(EveryWithoutMemory, CDocuments, SFormatNames);

TYPED_TEST(EveryWithoutMemory, Loads)
{
    for (const std::string& sample : this->samples)
    {
        auto whole = LoadNew<TypeParam>(sample);
        std::map<std::wstring, std::uint32_t> longest = Check(whole);
        if constexpr (std::is_same_v<TypeParam, CFileFormat_Envelope>)
            longest[L""] = 0xFFFFFFFF; // without memory to find them, bones that should go stay
        FailEach(
            [&](CFailure& failure)
            {
                TypeParam document;
                failure.During([&] { EXPECT_EQ(LoadText(document, sample), 1); });
                for (const auto& [keyword, length] : Check(document))
                    EXPECT_LE(length, longest[keyword]) << "what has no place of its own does not come to another's";
                failure.During([&] { EXPECT_EQ(LoadText(document, sample), 1); });
                Check(document);
            });
    }
}

/// Lists that an array's first block does not hold: an entry is there whole or not at all, and none is made of two.
TYPED_TEST(EveryWithoutMemory, KeepsEntriesWhole)
{
    TypeParam whole;
    FillAtRandom(whole, 3, 1, 130);
    const std::string text = SFormat<TypeParam>::Write(whole);
    CEntries entries;
    Visit(entries, whole);
    FailEach(
        [&](CFailure& failure)
        {
            TypeParam part;
            failure.During([&] { LoadText(part, text); });
            CEntries parts;
            Visit(parts, part);
            EXPECT_TRUE(std::includes(entries.all.begin(), entries.all.end(), parts.all.begin(), parts.all.end()));
        });
}

TYPED_TEST(EveryWithoutMemory, Copies)
{
    for (const std::string& sample : this->samples)
    {
        auto document = LoadNew<TypeParam>(sample);
        const std::string whole = Describe(document);
        FailEach(
            [&](CFailure& failure)
            {
                std::optional<TypeParam> copy;
                failure.During([&] { copy.emplace(document); });
                Check(*copy);
                auto assigned = LoadNew<TypeParam>(sample);
                failure.During([&] { assigned = document; });
                Check(assigned);
                EXPECT_EQ(Describe(document), whole);
            });
    }
}

TYPED_TEST(EveryWithoutMemory, Saves)
{
    for (const std::string& sample : this->samples)
    {
        auto document = LoadNew<TypeParam>(sample);
        const std::string described = Describe(document);
        const std::string whole = SaveText(document);
        FailEach(
            [&](CFailure& failure)
            {
                CFile_Saver saver;
                failure.During(
                    [&]
                    {
                        saver.OpenMemory();
                        document.Save(&saver);
                    });
                EXPECT_TRUE(saver.GetText() == whole || saver.GetError() != 0) << "what is missing is told";
                EXPECT_EQ(Describe(document), described);
            });
    }
}

TEST(WithoutMemory, ModelsAreBuilt)
{
    for (const std::string& sample : GetSamples<CFileFormat_Ase>())
    {
        auto scene = LoadNew<CFileFormat_Ase>(sample);
        FailEach(
            [&](CFailure& failure)
            {
                CGraphics_Model model;
                failure.During([&] { EXPECT_EQ(CreateModelFromASE(model, scene, 1.0F), 1); });
                Check(model);
                ExpectDense(model);
                EXPECT_LE(model.Geometries.NumItems, scene.GeomObjects.NumItems);
            });
    }
}

/// Whatever is done with some documents in whatever order, with memory or now and then without.
TYPED_TEST(EveryWithoutMemory, AnySequenceOfOperations)
{
    const CRegistryWatch watch;
    {
        std::optional<TypeParam> documents[3];
        CRandomTexts random(17);
        for (std::optional<TypeParam>& document : documents)
            document.emplace();
        for (unsigned i = 0; i < 3000; ++i)
        {
            std::optional<TypeParam>& one = documents[random.Number(3)];
            std::optional<TypeParam>& other = documents[random.Number(3)];
            const std::string& sample = this->samples[random.Number(static_cast<unsigned>(this->samples.size()))];
            const std::size_t size = random.Number(static_cast<unsigned>(sample.size()) + 1);
            if (random.Number(2) == 0)
                FailAllocations(random.Number(100), random.Number(50));
            switch (random.Number(6))
            {
            case 0:
                LoadText(*one, std::string_view(sample).substr(0, size));
                break;
            case 1:
                *one = *other;
                break;
            case 2:
                *one = std::move(*other);
                other.emplace();
                break;
            case 3:
                if (&one != &other)
                    one.emplace(*other);
                break;
            case 4:
                if constexpr (requires { one->Destroy(); })
                    one->Destroy();
                break;
            default:
                one.emplace();
            }
            FailAllocations(0, 0);
            Check(*one);
            SaveText(*one);
            if (Describe(*one).size() > 500'000) // what Load appends to
                one.emplace();
        }
    }
    EXPECT_TRUE(watch.IsBalanced());
}
