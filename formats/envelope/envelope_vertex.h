/// The vertices of a skin envelope document, and which of them a bone must not move.
#pragma once

#include "core/core_arrays.h"
#include "formats/envelope/envelope_records.h"

#include <algorithm>
#include <span>

/// One vertex of the skin. Flags are kept as written and mean nothing here.
struct CFileFormat_EnvelopeRecords::CEnvelopeVertexData
{
    /// How much a bone moves the vertex.
    struct SWeight
    {
        std::uint32_t bone = 0; ///< A boneID.
        float weight = 0.0F;
    };

    static constexpr std::uint32_t MostWeights = 20;

    std::int32_t vertexIsModified = 0;
    std::int32_t vertexIsRigid = 0;
    std::int32_t vertexIsRigidHandle = 0;
    std::int32_t vertexIsUnNormalized = 0;
    CMath_Vector3 vertexLocalPosition;   ///< In the node's own space, scene units.
    std::uint32_t vertexWeightCount = 0; ///< Pairs in use, at most MostWeights.
    SWeight vertexWeight[MostWeights];   ///< Heaviest first as the text had them; exclusions do not sort again.

    /// The pairs in use. A count beyond the slots, which no Load leaves, means all of them.
    std::span<SWeight> GetWeights()
    {
        return {vertexWeight, std::min(vertexWeightCount, MostWeights)};
    }

    std::span<const SWeight> GetWeights() const
    {
        return {vertexWeight, std::min(vertexWeightCount, MostWeights)};
    }
};

/// The vertices that one bone must not move, as 0-based positions in the document's vertices, 32-bit numbers
/// on every platform. Nothing checks them here.
class ASSET_TOOLS_API CFileFormat_EnvelopeRecords::CEnvelopeVertexExclusionList
{
  public:
    using BytesCanMove = CEnvelopeVertexExclusionList;

    TArray<unsigned long> excludedVerts;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_EnvelopeRecords::CEnvelopeVertexData>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_EnvelopeRecords::CEnvelopeVertexExclusionList>;
