#include "formats/ase/ase.h"

#include "core/block_writer.h"

#include <algorithm>

namespace
{
/// Appends a record and has it read the block that the line opened. Without memory the block's lines come
/// to the document's own loop, which ignores them.
template <class TRecord>
void LoadNewRecord(const wchar_t* keyword, const wchar_t* line, TArray<TRecord>& records, CFile_Parser* parser,
                   CFile_IOCallback* callback)
{
    if (RecognizeWord(keyword, line) != 0)
        if (TRecord* const record = records.Add())
            record->Load(parser, callback);
}

/// How many materials a text is believed to promise, in all its counts together, since each count makes the
/// list anew. A material needs no text of its own, so a few are always believed.
std::size_t GetMostMaterials(const CFile_Parser& parser)
{
    constexpr std::size_t alwaysbelieved = 65536;
    constexpr std::size_t shortestentry = 12; // "*MATERIAL", "}" and their line ends
    return std::max(alwaysbelieved, (parser.GetSize() - parser.GetOffset()) / shortestentry);
}

/// Takes a count's materials from those that are left.
unsigned long TakeMaterials(CFile_Parser& parser, std::int32_t count, std::size_t& left)
{
    const std::size_t taken = std::min(static_cast<std::size_t>(count), left);
    if (taken < static_cast<std::size_t>(count))
        parser.Report(2, L"%d materials are more than the text can hold, %u are made", count,
                      static_cast<unsigned>(taken));
    left -= taken;
    return static_cast<unsigned long>(taken);
}
} // namespace

Result CFileFormat_Ase::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    materialsleft = GetMostMaterials(*parser);
    wchar_t line[CFile_Parser::BlockLineCapacity];
    while (parser->GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
    {
        if (RecognizeWord(L"*SCENE", line) != 0)
            Scene.Load(parser, callback);
        if (RecognizeWord(L"*MATERIAL_LIST", line) != 0)
            Load_MaterialList(parser);
        LoadNewRecord(L"*GEOMOBJECT", line, GeomObjects, parser, callback);
        LoadNewRecord(L"*LIGHTOBJECT", line, Lights, parser, callback);
        LoadNewRecord(L"*HELPEROBJECT", line, Helpers, parser, callback);
        LoadNewRecord(L"*CAMERAOBJECT", line, Cameras, parser, callback);
        LoadNewRecord(L"*SHAPEOBJECT", line, ShapeObjects, parser, callback);
    }
    materialsleft.reset();
    return 1;
}

Result CFileFormat_Ase::Load_MaterialList(CFile_Parser* parser)
{
    std::size_t left = materialsleft.value_or(GetMostMaterials(*parser));
    CAseBlockReader block(parser);
    while (block.NextPlainLine())
    {
        if (block.Strip(L"*MATERIAL_COUNT"))
        {
            std::int32_t count = 0;
            block.Scan(count);
            if (count > 0)
                Materials.CreateMultiple(TakeMaterials(*parser, count, left));
        }
        if (block.Strip(L"*MATERIAL"))
        {
            std::int32_t number = 0;
            block.Scan(number);
            if (static_cast<std::uint32_t>(number) < Materials.GetNumItems())
                block.Load(*Materials[static_cast<std::uint32_t>(number)]);
        }
    }
    if (materialsleft)
        materialsleft = left;
    return 1;
}

Result CFileFormat_Ase::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Save(L"addscene:", Scene);
    block.SaveEach(L"addmaterial:", Materials);
    block.SaveEach(L"addgeometry:", GeomObjects);
    block.SaveEach(L"addlight:", Lights);
    block.SaveEach(L"addhelper:", Helpers);
    block.SaveEach(L"addcamera:", Cameras);
    block.SaveEach(L"addshapeobject:", ShapeObjects);
    return 1;
}

Result CFileFormat_Ase::Destroy()
{
    Materials.DeleteAll();
    GeomObjects.DeleteAll();
    Lights.DeleteAll();
    Helpers.DeleteAll();
    Cameras.DeleteAll();
    ShapeObjects.DeleteAll();
    return 1;
}

Result CFileFormat_Ase::ParseNodeNames(NodeNameVisitor visit, void* user)
{
    if (visit == nullptr)
        return 0;
    const auto visitname = [&](CSys_String& text) { visit(text, 0, nullptr, user); };
    const auto visitclass = [&](CSys_String& text) { visit(text, ClassText, nullptr, user); };
    for (CASEMaterial& material : Materials)
    {
        visitname(material.name);
        visitclass(material.class_);
    }
    for (CASEGeomObject& object : GeomObjects)
    {
        visitname(object.name);
        visitname(object.parent);
        visitname(object.node.name);
        visitname(object.animation.name);
    }
    for (CASELight& light : Lights)
    {
        visitname(light.name);
        visitname(light.node.name);
        visitname(light.animation.name);
    }
    for (CASEHelper& helper : Helpers)
    {
        visitname(helper.name);
        visitclass(helper.class_);
        visitname(helper.node.name);
    }
    for (CASECamera& camera : Cameras)
    {
        visitname(camera.name);
        for (CASENode* const node : camera.nodes)
            visitname(node->name);
        for (CASEAnimation* const animation : camera.animations)
            visitname(animation->name);
    }
    for (CASEShapeObject& shape : ShapeObjects)
    {
        visitname(shape.name);
        visitname(shape.parent);
        visitname(shape.node.name);
        visitname(shape.animation.name);
    }
    return 1;
}

CFileFormat_Ase::CASEGeomObject* CFileFormat_Ase::GetNamedGeomObject(const wchar_t* name)
{
    const unsigned long index = GetNamedGeomObjectIndex(name);
    return index == NoObject ? nullptr : GeomObjects[index];
}

unsigned long CFileFormat_Ase::GetNamedGeomObjectIndex(const wchar_t* name)
{
    for (unsigned long i = 0; i < GeomObjects.GetNumItems(); ++i)
        if (CompareStrings(GeomObjects[i]->name.Get(), name) == 1)
            return i;
    return NoObject;
}
