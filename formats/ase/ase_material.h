/// Materials and texture maps of an ASE scene.
#pragma once

#include "core/core_templates.h"
#include "formats/ase/ase_records.h"

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASEMaterialMap>;

/// One texture map block: name, class, strength and the maps it is made of. No bitmap file name is kept.
///
/// Owns: its sub-maps, which may nest up to MostNestedLevels deep; deeper ones are passed over.
/// Load: sets the fields that the text names and appends the sub-maps. Always returns 1.
/// Save: writes an empty block.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEMaterialMap : public CFile_IOObject
{
  public:
    CSys_String name;   ///< As the text has it, quotes included.
    CSys_String class_; ///< As the text has it, quotes included.
    std::int32_t subno = 0;
    float amount = 0.0F;
    TPArray<CASEMaterialMap> generic; ///< "*MAP_GENERIC" blocks, in the order met.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Load for a map that has `level` maps around it.
    Result LoadNested(CFile_Parser* parser, CFile_IOCallback* callback, unsigned level);
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASEMaterial>;

/// One "*MATERIAL" or "*SUBMATERIAL" block.
///
/// Units: colours and shares 0 to 1; only the first three components of a colour are read and written.
/// Owns:  its maps and sub-materials, which may nest up to MostNestedLevels deep.
/// Load:  sets the fields that the text names and appends the sub-materials, whatever number they carry. An
///        option word that is not in its table leaves the field. Always returns 1.
/// Save:  writes the scalar description; maps and sub-materials are not written.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEMaterial : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEMaterial;

    static constexpr SKeyword ShadingNames[] = {L"Blinn"};
    static constexpr SKeyword FalloffNames[] = {L"In"};
    static constexpr SKeyword XpTypeNames[] = {L"Filter", L"Subtractive"};

    CSys_String name;   ///< As the text has it, quotes included.
    CSys_String class_; ///< As the text has it, quotes included.
    CMath_Color ambient;
    CMath_Color diffuse;
    CMath_Color specular;
    float shine = 0.0F;
    float shinestrength = 0.0F;
    float transparency = 0.0F;
    float wiresize = 0.0F;
    std::uint32_t shading = 0; ///< Position in ShadingNames.
    float xp_falloff = 0.0F;
    float selfillumination = 0.0F;
    std::uint32_t falloff = 0; ///< Position in FalloffNames.
    std::uint32_t xp_type = 0; ///< Position in XpTypeNames.
    CASEMaterialMap map_diffuse;
    CASEMaterialMap map_specular;
    CASEMaterialMap map_shine;
    CASEMaterialMap map_shinestrength;
    CASEMaterialMap map_selfillum;
    CASEMaterialMap map_opacity;
    CASEMaterialMap map_filtercolor;
    CASEMaterialMap map_bump;
    CASEMaterialMap map_reflect;
    CASEMaterialMap map_refract;
    CASEMaterialMap map_displacement;
    TPArray<CASEMaterial> submaterials; ///< In the order met.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Load for a material that has `level` materials around it.
    Result LoadNested(CFile_Parser* parser, CFile_IOCallback* callback, unsigned level);
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEMaterial>;
