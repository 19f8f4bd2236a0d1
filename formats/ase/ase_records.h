/// The kinds of record that an ASE scene is made of, and the frame in which they read themselves.
#pragma once

#include "core/block_reader.h"

/// Declares the records of CFileFormat_Ase, which inherits them: callers write CFileFormat_Ase::CASEMesh.
/// They are declared here, apart from the document, so that each can be defined in a header of its own
/// before the document holds it by value.
class ASSET_TOOLS_API CFileFormat_AseRecords
{
  public:
    class CASEScene;          // ase_scene_node.h
    class CASENode;           // ase_scene_node.h
    class CASEGeomObject;     // ase_geom_object.h
    class CASEMeshAnimation;  // ase_geom_object.h
    class CASEIKJoint;        // ase_geom_object.h
    class CASEMesh;           // ase_mesh.h
    class CASEFace;           // ase_mesh.h
    class CASETFace;          // ase_mesh.h
    class CASEMappingChannel; // ase_mesh.h
    struct SMeshFaceNormals;  // ase_mesh.h, known as CASEMesh::SFaceNormals
    struct SMappingFace;      // ase_mesh.h, known as CASEMappingChannel::SFace
    class CASEMaterial;       // ase_material.h
    class CASEMaterialMap;    // ase_material.h
    class CASEAnimation;      // ase_animation.h
    class CASEAnimationNode;  // ase_animation.h
    class CASEAnimationNodeRot;
    class CASELight;          // ase_light_camera.h
    class CASELightSettings;  // ase_light_camera.h
    class CASECamera;         // ase_light_camera.h
    class CASECameraSettings; // ase_light_camera.h
    class CASEHelper;         // ase_helper_shape.h
    class CASEShapeObject;    // ase_helper_shape.h
    class CASEShapeLine;      // ase_helper_shape.h
};

/// Keywords of blocks that stand in an ASE document itself. Some exporters leave a closing brace out;
/// one of these inside a record shows it.
inline constexpr SKeyword AseDocumentKeywords[] = {
    L"*SCENE", L"*MATERIAL_LIST", L"*GEOMOBJECT", L"*LIGHTOBJECT", L"*HELPEROBJECT", L"*CAMERAOBJECT", L"*SHAPEOBJECT",
};

/// Reads one block of an ASE scene.
class CAseBlockReader : public CBlockReader
{
  public:
    explicit CAseBlockReader(CFile_Parser* newparser, CFile_IOCallback* newcallback = nullptr)
        : CBlockReader(newparser, newcallback, AseDocumentKeywords)
    {
    }

    /// Reads a list inside another block, in the same line buffer.
    explicit CAseBlockReader(CBlockReader& newouter) : CBlockReader(newouter)
    {
    }
};
