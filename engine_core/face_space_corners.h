/// The three corners of a face space, for code that treats them alike.
#pragma once

#include "core/graphics_mesh.h"
#include "core/word_helpers.h"

#include <string_view>

struct SFaceSpaceCorner
{
    SKeyword keyword; ///< Of the corner's line in a saved mesh.
    CMath_Vector3 CGraphics_FaceSpace::*normal;
    CMath_Vector3 CGraphics_FaceSpace::*tangent;
    CMath_Vector3 CGraphics_FaceSpace::*binormal;
};

inline constexpr SFaceSpaceCorner FaceSpaceCorners[] = {
    {L"cornera:", &CGraphics_FaceSpace::NormalA, &CGraphics_FaceSpace::TangentA, &CGraphics_FaceSpace::BinormalA},
    {L"cornerb:", &CGraphics_FaceSpace::NormalB, &CGraphics_FaceSpace::TangentB, &CGraphics_FaceSpace::BinormalB},
    {L"cornerc:", &CGraphics_FaceSpace::NormalC, &CGraphics_FaceSpace::TangentC, &CGraphics_FaceSpace::BinormalC},
};
