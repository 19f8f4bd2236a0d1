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

/// The renumbering in its slow steps: shift down to 0, then close one gap after the other.
inline std::uint32_t RenumberStepByStep(CMaterialIndices& indices)
{
    if (indices.empty())
        return 1;
    while (*std::min_element(indices.begin(), indices.end()) != 0)
        for (std::uint32_t& index : indices)
            index -= index != 0 ? 1 : 0;
    for (std::uint32_t gap = 0; gap < *std::max_element(indices.begin(), indices.end());)
    {
        if (std::count(indices.begin(), indices.end(), gap) != 0)
        {
            ++gap;
            continue;
        }
        for (std::uint32_t& index : indices)
            index -= index > gap ? 1 : 0;
        gap = 0;
    }
    return *std::max_element(indices.begin(), indices.end()) + 1;
}

/// For values of any size: the rank of each.
inline CMaterialIndices Rank(const CMaterialIndices& indices)
{
    const std::set<std::uint32_t> distinct(indices.begin(), indices.end());
    CMaterialIndices ranks;
    for (const std::uint32_t index : indices)
        ranks.push_back(static_cast<std::uint32_t>(std::distance(distinct.begin(), distinct.find(index))));
    return ranks;
}
