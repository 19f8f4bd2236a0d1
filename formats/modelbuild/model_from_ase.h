/// The way from an ASE scene to an engine model.
#pragma once

#include "core/graphics_model.h"
#include "formats/ase/ase.h"

/// Appends a scene to a model: a geometry for each geometry object, a list of placeholder materials, a point
/// for each helper of class "PointHelper" and an axis for each of class "Tape".
///
/// Frame:     Y and Z change places in every position and normal, since the scene has Z up and the model Y.
///            The order of a triangle's corners stays, so they go round the other way. V is turned upside down.
/// scale:     model units per scene unit. Positions only; normals and directions keep their length.
/// Placement: an object with animation keys is moved back by its node's position and rotation, into the space
///            that its keys move; one without keys stays where the scene has it.
/// Materials: all faces of the model, those that it had before included, get new material indices: how many
///            distinct indices are smaller than the old one, compared unsigned. The model's first material list
///            then gets a material named "unknown" for each, or one when there is no face.
/// Shading:   tangents and binormals are calculated for all appended geometries.
/// Bad input: indices are taken over as they stand, whatever they are. What there is no memory for is left out.
///            Faces whose three texture vertices are equal are kept and told to Log: the face and its corners,
///            then the number of such faces in the geometry; every geometry ends with an empty line.
/// The document stays as it is. Returns 1.
ASSET_TOOLS_API Result CreateModelFromASE(CGraphics_Model& model, CFileFormat_Ase& document, float scale);
