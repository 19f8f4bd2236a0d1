/// The scene header and the node transform of an ASE scene.
#pragma once

#include "core/core_templates.h"
#include "core/math_matrix4x4.h"
#include "formats/ase/ase_material.h"
#include "formats/ase/ase_records.h"

/// One "*SCENE" block: the range and timing of the animation and the static colours.
///
/// Units: frames; frames per second; ticks per frame. Colours 0 to 1.
/// Load:  sets the fields that the text names and leaves the others. Always returns 1.
/// Save:  writes everything but the environment map.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEScene : public CFile_IOObject
{
  public:
    std::int32_t firstframe = 0;
    std::int32_t lastframe = 0;
    std::int32_t framespeed = 0;
    std::int32_t ticksperframe = 0;
    CMath_Vector3 backgroundstatic; ///< Red, green, blue.
    CMath_Vector3 ambientstatic;    ///< Red, green, blue.
    CASEMaterialMap envmap;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*NODE_TM" block: the placement of an object, as a matrix and as position, rotation and scale.
///
/// Units: scene units; angles in radians about their axis.
/// Load:  makes the matrix the identity, then sets what the text names; the other fields keep what they
///        held. Always returns 1.
/// Save:  writes everything but the matrix.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASENode : public CFile_IOObject
{
  public:
    CSys_String name; ///< As the text has it, quotes included.
    CMath_Vector3 inheritpos;
    CMath_Vector3 inheritrot;
    CMath_Vector3 inheritscale;
    CMath_Matrix4x4 matrix; ///< Rows 0 to 2 are the axes, row 3 the position; the last column is never read.
    CMath_Vector3 position;
    CMath_Vector3 rotationaxis;
    float rotationangle = 0.0F;
    CMath_Vector3 scale;
    CMath_Vector3 scaleaxis;
    float scaleangle = 0.0F;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASENode>;
