/// Material indices of a model's faces, and what renumbering has to make of them.
#pragma once

#include "core/graphics_model.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <set>
#include <vector>

using CMaterialIndices = std::vector<std::uint32_t>;

/// Appends a geometry whose faces have these material indices.
inline void AddFaces(CGraphics_Model& model, const CMaterialIndices& indices)
{
    CGraphics_Mesh& mesh = model.Geometries.Add()->Mesh;
    for (const std::uint32_t index : indices)
        *mesh.Faces.Add() = {0, 0, 0, index};
}

inline CMaterialIndices GetIndices(const CGraphics_Model& model)
{
    CMaterialIndices indices;
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        for (const SGraphics_Face& face : geometry->Mesh.Faces)
            indices.push_back(face.Material);
    return indices;
}

/// Shifting all down to 0 and closing every gap leaves of each index its rank. Returns how many materials that takes.
inline std::uint32_t Rank(CMaterialIndices& indices)
{
    const std::set<std::uint32_t> distinct(indices.begin(), indices.end());
    for (std::uint32_t& index : indices)
        index = static_cast<std::uint32_t>(std::distance(distinct.begin(), distinct.find(index)));
    return std::max(static_cast<std::uint32_t>(distinct.size()), 1U);
}
