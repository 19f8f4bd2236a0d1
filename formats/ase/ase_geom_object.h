/// Geometry objects of an ASE scene, with their mesh animation and IK joint.
#pragma once

#include "formats/ase/ase_animation.h"
#include "formats/ase/ase_mesh.h"
#include "formats/ase/ase_scene_node.h"

/// One "*IK_JOINT" block: which motions the joint allows. Numbers are stored as written.
///
/// Load: sets the fields that the text names; a slot above 2 is passed over. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEIKJoint : public CFile_IOObject
{
  public:
    static constexpr SKeyword TypeNames[] = {L"Rotation"};

    std::int32_t type = 0; ///< Position in TypeNames; another word leaves it.
    std::int32_t dof = 0;
    std::int32_t xactive = 0;
    std::int32_t yactive = 0;
    std::int32_t zactive = 0;
    std::int32_t xlimited = 0;
    std::int32_t ylimited = 0;
    std::int32_t zlimited = 0;
    std::int32_t xease = 0;
    std::int32_t yease = 0;
    std::int32_t zease = 0;
    std::int32_t limitexact = 0;
    CMath_Vector3 jointinfo[3];

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*MESH_ANIMATION" block: a mesh for each frame, whose time is the mesh's timevalue.
///
/// Load: replaces the meshes. Always returns 1.
/// Save: writes an empty block.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEMeshAnimation : public CFile_IOObject
{
  public:
    TPArray<CASEMesh> meshes; ///< In the order of the text.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*GEOMOBJECT" block: a named object with its placement, mesh and animation.
///
/// Load: sets what the text names; blocks met twice load into the same record again. Always returns 1.
/// Save: leaves out a mesh without vertices, an animation without keys, and the mesh animation.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEGeomObject : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEGeomObject;

    CSys_String name;   ///< As the text has it, quotes included.
    CSys_String parent; ///< As the text has it, quotes included; empty without a parent.
    CASENode node;
    CASEMesh mesh;
    CASEAnimation animation;
    CMath_Color wireframecolor;
    CASEIKJoint ikjoint;
    CASEMeshAnimation meshanimation;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEGeomObject>;
