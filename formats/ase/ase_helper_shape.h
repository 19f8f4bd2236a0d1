/// Helpers and shapes of an ASE scene.
#pragma once

#include "core/core_arrays.h"
#include "formats/ase/ase_animation.h"
#include "formats/ase/ase_scene_node.h"

/// One "*HELPEROBJECT" block: a named point with a class, a placement and a box. Its animation and parent
/// are passed over.
///
/// Load: sets what the text names. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEHelper : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEHelper;

    CSys_String name;   ///< As the text has it, quotes included.
    CSys_String class_; ///< As the text has it, quotes included.
    CASENode node;
    CMath_Vector3 aabbmin;
    CMath_Vector3 aabbmax;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*SHAPE_LINE" block: a spline by its knots; points in between are passed over.
///
/// Load: appends the knots in the order met. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEShapeLine : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEShapeLine;

    std::uint32_t type = 1; ///< 0 closed, 1 open.
    TArray<CMath_Vector3> vertices;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEShapeLine>;

/// One "*SHAPEOBJECT" block: a set of spline lines with a placement and an animation.
///
/// Load: sets what the text names and appends the lines, whatever numbers they carry. Always returns 1.
/// Save: leaves out an animation without keys.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEShapeObject : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEShapeObject;

    CSys_String name;   ///< As the text has it, quotes included.
    CSys_String parent; ///< As the text has it, quotes included; empty without a parent.
    CASENode node;
    TArray<CASEShapeLine> lines;
    CASEAnimation animation;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEHelper>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEShapeObject>;
