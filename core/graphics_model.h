/// The model of the engine's graphics: meshes, materials and marked places.
#pragma once

#include "core/graphics_material.h"
#include "core/graphics_mesh.h"
#include "core/sys_string.h"
#include "core/system_objects.h"

/// One part of a model. Known as CGraphics_Model::CGeometry. Loads and saves its mesh.
class ENGINE_CORE_API CGraphics_Geometry : public CFile_IOObject
{
  public:
    CGraphics_Mesh Mesh;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One place for a material, by name. Known as CGraphics_Model::SMaterial.
struct SGraphics_ModelMaterial
{
    TResourceHandleR<CGraphics_Material> Material; ///< Refers to nothing until somebody attaches a material.
    CSys_String Name;
};

extern template class ENGINE_CORE_API TPArray<CGraphics_Geometry>;
extern template class ENGINE_CORE_API TPArray<SGraphics_ModelMaterial>;

/// A set of materials for the faces of a model: a face's Material is a position in Materials. Known as
/// CGraphics_Model::CMaterialList.
///
/// Load: replaces the materials. Always returns 1.
/// Save: writes the names; which materials are attached is not kept.
class ENGINE_CORE_API CGraphics_MaterialList : public CFile_IOObject
{
  public:
    TPArray<SGraphics_ModelMaterial> Materials;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ENGINE_CORE_API TPArray<CGraphics_MaterialList>;

/// A model: geometries that share lists of materials, points and axes.
///
/// Frame: Y is up. Positions in the unit that the model's maker chose.
/// Owns:  everything but the materials attached, which it holds. Copying copies it all and holds them too.
/// Load:  replaces everything with what the block holds. Always returns 1.
/// Save:  writes everything but the materials attached; loading that text gives the same floats to the bit.
class ENGINE_CORE_API CGraphics_Model : public CFile_IOObject, public CGraphics_System_Object
{
  public:
    using CGeometry = CGraphics_Geometry;
    using CMaterialList = CGraphics_MaterialList;
    using SMaterial = SGraphics_ModelMaterial;

    TPArray<CGeometry> Geometries;
    TPArray<CMaterialList> MaterialLists;
    TArray<CMath_Vector3> Points;
    TArray<CMath_Axis> Axes;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Loads the model from the text that Save wrote. flags: none so far. Returns 0, the model as it was, when
    /// there is nothing to read.
    virtual Result CreateFromParser(CFile_Parser* parser, unsigned long flags);
};
