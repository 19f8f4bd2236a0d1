/// The ASE document: a scene exported from a 3D program as ASCII Scene Export text.
#pragma once

#include "formats/ase/ase_geom_object.h"
#include "formats/ase/ase_helper_shape.h"
#include "formats/ase/ase_light_camera.h"
#include "formats/ase/ase_material.h"
#include "formats/ase/ase_mesh.h"
#include "formats/ase/ase_records.h"
#include "formats/ase/ase_scene_node.h"

#include <optional>

/// One ASE scene with all its records.
///
/// Owns: every record. Copying copies them all, moving hands them over.
/// Load: reads the whole text. Does not empty the document first: records are appended, scene fields that
///       the text names are replaced, a material count replaces the materials. Objects inside other blocks
///       (a "*GROUP") load like those at the top. Always returns 1.
/// Save: writes the scene in the engine text block form. What is read but not written: the environment map,
///       matrix rows, vertex colours, mesh animation, texture maps and sub-materials.
class ASSET_TOOLS_API CFileFormat_Ase : public CFile_IOObject, public CFileFormat_AseRecords
{
  public:
    CASEScene Scene;
    TArray<CASEMaterial> Materials; ///< At their material numbers.
    TArray<CASEGeomObject> GeomObjects;
    TArray<CASELight> Lights;
    TArray<CASEHelper> Helpers;
    TArray<CASECamera> Cameras;
    TArray<CASEShapeObject> ShapeObjects;

    /// Called with a name of the document, which it may change in place. kind: 0 for the name of a scene
    /// node, ClassText for the text of a class. reserved: null. The result is not looked at.
    using NodeNameVisitor = Result (*)(CSys_String& text, unsigned long kind, void* reserved, void* user);
    static constexpr unsigned long ClassText = 0xFFFFFFFF;

    /// What GetNamedGeomObjectIndex gives where there is no such object.
    static constexpr unsigned long NoObject = 0xFFFFFFFF;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Empties the six lists; Scene stays. Returns 1.
    virtual Result Destroy();

    /// Reads the lines of a "*MATERIAL_LIST" block. A count of 0, or none, leaves the materials as they are;
    /// another one replaces them. Where the counts of a text are together beyond all reason and beyond what
    /// it could hold, they are cut. An entry numbered past the materials is not read, and its closing line ends the
    /// list. Returns 1.
    virtual Result Load_MaterialList(CFile_Parser* parser);

    /// Calls `visit` with every name and class text: materials, geometry objects, lights, helpers, cameras,
    /// shapes. Returns 1; 0 without a visitor.
    virtual Result ParseNodeNames(NodeNameVisitor visit, void* user);

    /// The first geometry object of that name, quotes included, until the list changes; null when there is
    /// none.
    virtual CASEGeomObject* GetNamedGeomObject(const wchar_t* name);

    /// Its position in GeomObjects; NoObject when there is none.
    virtual unsigned long GetNamedGeomObjectIndex(const wchar_t* name);

  private:
    std::optional<std::size_t> materialsleft; ///< While Load runs: how many the text's counts may still make.
};
