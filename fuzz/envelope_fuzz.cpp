/// Envelopes. A text; or, behind a NUL, a skin whose bones the document must prune as the slow steps do.
#include "fuzz/fuzz.h"
#include "tests/support/envelope_skin.h"

namespace
{
void CheckText(const CInput& input)
{
    CFileFormat_Envelope document;
    CheckDocument(input, document);
    for (const CFileFormat_Envelope::CEnvelopeVertexData& vertex : document.vertices)
        Check(vertex.vertexWeightCount <= std::size(vertex.vertexWeight));
}

void CheckPruning(CInput& input)
{
    constexpr unsigned mostids = 48;
    SSkin skin;
    for (unsigned count = input.Take() % 24; count != 0; --count)
        skin.bones.push_back({count, input.Take() % mostids});
    while (!input.IsEmpty() && skin.vertices.size() < 32)
    {
        skin.vertices.emplace_back();
        for (unsigned count = input.Take() % 20; count != 0; --count)
            skin.vertices.back().push_back(input.Take() % (mostids + 4));
    }
    const SSkin pruned = PruneDocument(skin);
    PruneSlowly(skin);
    Check(pruned == skin);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [=](CInput& input)
                 {
                     if (size == 0 || bytes[0] != 0)
                         return CheckText(input);
                     input.Take();
                     CheckPruning(input);
                 });
}
