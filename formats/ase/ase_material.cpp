#include "formats/ase/ase_material.h"

#include "core/block_writer.h"

namespace
{
/// The text of an option; empty for a position that its table does not have.
const wchar_t* GetName(std::span<const SKeyword> names, std::uint32_t position)
{
    return position < names.size() ? names[position].text : L"";
}
} // namespace

Result CFileFormat_AseRecords::CASEMaterialMap::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    return LoadNested(parser, callback, 0);
}

Result CFileFormat_AseRecords::CASEMaterialMap::LoadNested(CFile_Parser* parser, CFile_IOCallback* callback,
                                                           unsigned level)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*MAP_NAME", name);
        block.Read(L"*MAP_CLASS", class_);
        block.Read(L"*MAP_SUBNO", subno);
        block.Read(L"*MAP_AMOUNT", amount);
        if (block.Strip(L"*MAP_GENERIC"))
            block.LoadNested(generic, level);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEMaterialMap::Save(CFile_Saver* saver)
{
    const CBlockWriter block(saver);
    return block.IsOpen() ? 1 : 0;
}

Result CFileFormat_AseRecords::CASEMaterial::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    return LoadNested(parser, callback, 0);
}

Result CFileFormat_AseRecords::CASEMaterial::LoadNested(CFile_Parser* parser, CFile_IOCallback* callback,
                                                        unsigned level)
{
    CAseBlockReader block(parser, callback);
    const auto loadmap = [&](SKeyword keyword, CASEMaterialMap& map)
    {
        if (block.Is(keyword))
            block.Load(map);
    };
    while (block.NextLine())
    {
        block.Read(L"*MATERIAL_NAME", name);
        block.Read(L"*MATERIAL_CLASS", class_);
        block.ReadWords(L"*MATERIAL_AMBIENT", ambient);
        block.ReadWords(L"*MATERIAL_DIFFUSE", diffuse);
        block.ReadWords(L"*MATERIAL_SPECULAR", specular);
        block.Read(L"*MATERIAL_SHINE", shine);
        block.Read(L"*MATERIAL_SHINESTRENGTH", shinestrength);
        block.Read(L"*MATERIAL_TRANSPARENCY", transparency);
        block.Read(L"*MATERIAL_WIRESIZE", wiresize);
        block.ReadOption(L"*MATERIAL_SHADING", shading, ShadingNames);
        block.Read(L"*MATERIAL_XP_FALLOFF", xp_falloff);
        block.Read(L"*MATERIAL_SELFILLUM", selfillumination);
        block.ReadOption(L"*MATERIAL_FALLOFF", falloff, FalloffNames);
        block.ReadOption(L"*MATERIAL_XP_TYPE", xp_type, XpTypeNames);
        loadmap(L"*MAP_DIFFUSE", map_diffuse);
        loadmap(L"*MAP_SPECULAR", map_specular);
        loadmap(L"*MAP_SHINE", map_shine);
        loadmap(L"*MAP_SHINESTRENGTH", map_shinestrength);
        loadmap(L"*MAP_SELFILLUM", map_selfillum);
        loadmap(L"*MAP_OPACITY", map_opacity);
        loadmap(L"*MAP_FILTERCOLOR", map_filtercolor);
        loadmap(L"*MAP_BUMP", map_bump);
        loadmap(L"*MAP_REFLECT", map_reflect);
        loadmap(L"*MAP_REFRACT", map_refract);
        loadmap(L"*MAP_DISPLACEMENT", map_displacement);
        if (block.Is(L"*SUBMATERIAL"))
            block.LoadNested(submaterials, level);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEMaterial::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.Write(L"class: %s", class_);
    block.Write(L"ambient: %f %f %f", ambient);
    block.Write(L"diffuse: %f %f %f", diffuse);
    block.Write(L"specular: %f %f %f", specular);
    block.Write(L"shine: %f", shine);
    block.Write(L"shinestrength: %f", shinestrength);
    block.Write(L"transparency: %f", transparency);
    block.Write(L"wiresize: %f", wiresize);
    block.Write(L"shading: %s", GetName(ShadingNames, shading));
    block.Write(L"xp_falloff: %f", xp_falloff);
    block.Write(L"selfillumination: %f", selfillumination);
    block.Write(L"falloff: %s", GetName(FalloffNames, falloff));
    block.Write(L"xp_type: %s", GetName(XpTypeNames, xp_type));
    return 1;
}
