#include "core/graphics_model.h"

#include "core/block_reader.h"
#include "core/block_writer.h"
#include "engine_core/text_field.h"

template class TPArray<CGraphics_Geometry>;
template class TPArray<SGraphics_ModelMaterial>;
template class TPArray<CGraphics_MaterialList>;

namespace
{
void LoadMaterial(CBlockReader& list, SGraphics_ModelMaterial& material)
{
    CTextField name(L"name:");
    CBlockReader block(list);
    while (block.NextLine())
        name.Read(block);
    name.Finish(material.Name);
}

void SaveMaterial(CFile_Saver* saver, const SGraphics_ModelMaterial& material)
{
    const CBlockWriter block(saver);
    if (block.IsOpen())
        SaveTextField(saver, L"name:", material.Name.Get());
}
} // namespace

Result CGraphics_Geometry::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    Mesh = CGraphics_Mesh();
    CBlockReader block(parser, callback);
    while (block.NextLine())
        if (block.Is(L"mesh:"))
            block.Load(Mesh);
    return 1;
}

Result CGraphics_Geometry::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Save(L"mesh:", Mesh);
    return 1;
}

Result CGraphics_MaterialList::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    Materials.DeleteAll();
    CBlockReader block(parser, callback);
    while (block.NextLine())
        if (block.Is(L"addmaterial:"))
            if (SGraphics_ModelMaterial* const material = Materials.Add())
                LoadMaterial(block, *material);
    return 1;
}

Result CGraphics_MaterialList::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    for (const SGraphics_ModelMaterial* const material : Materials)
    {
        block.Write(L"addmaterial:");
        SaveMaterial(saver, *material);
    }
    return 1;
}

Result CGraphics_Model::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    Geometries.DeleteAll();
    MaterialLists.DeleteAll();
    Points.DeleteAll();
    Axes.DeleteAll();
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        if (block.Is(L"addgeometry:"))
            block.LoadNew(Geometries);
        if (block.Is(L"addmateriallist:"))
            block.LoadNew(MaterialLists);
        if (block.Strip(L"addpoint:"))
            if (CMath_Vector3* const point = Points.Add())
                block.Scan(*point);
        if (block.Strip(L"addaxis:"))
            if (CMath_Axis* const axis = Axes.Add())
                (void)(block.Scan(axis->Origin) && block.Scan(axis->Direction));
    }
    return 1;
}

Result CGraphics_Model::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.SaveEach(L"addgeometry:", Geometries);
    block.SaveEach(L"addmateriallist:", MaterialLists);
    block.WriteEach(L"addpoint: %.9g %.9g %.9g", Points);
    for (const CMath_Axis& axis : Axes)
        block.Write(L"addaxis: %.9g %.9g %.9g %.9g %.9g %.9g", axis.Origin, axis.Direction);
    return 1;
}

Result CGraphics_Model::CreateFromParser(CFile_Parser* parser, unsigned long)
{
    return parser->GetOffset() < parser->GetSize() ? Load(parser, nullptr) : 0;
}
