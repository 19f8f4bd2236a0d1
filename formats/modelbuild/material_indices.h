/// Material indices of a model made dense.
#pragma once

#include "core/graphics_model.h"

/// Gives every face of the model a new material index: the number of distinct indices in use that are smaller
/// than its old one. Returns how many distinct indices there are, 1 when there is no face.
/// Costs n log n in the number of faces, whatever the indices are; without memory still the same result, in
/// more passes.
std::uint32_t RenumberMaterialIndices(CGraphics_Model& model);
