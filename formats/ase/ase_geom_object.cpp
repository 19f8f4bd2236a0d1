#include "formats/ase/ase_geom_object.h"

#include "core/block_writer.h"

Result CFileFormat_AseRecords::CASEIKJoint::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.ReadOption(L"*IK_TYPE", type, TypeNames);
        block.Read(L"*IK_DOF", dof);
        block.Read(L"*IK_XACTIVE", xactive);
        block.Read(L"*IK_YACTIVE", yactive);
        block.Read(L"*IK_ZACTIVE", zactive);
        block.Read(L"*IK_XLIMITED", xlimited);
        block.Read(L"*IK_YLIMITED", ylimited);
        block.Read(L"*IK_ZLIMITED", zlimited);
        block.Read(L"*IK_XEASE", xease);
        block.Read(L"*IK_YEASE", yease);
        block.Read(L"*IK_ZEASE", zease);
        block.Read(L"*IK_LIMITEXACT", limitexact);
        if (block.Strip(L"*IK_JOINTINFO"))
        {
            std::int32_t slot = 0;
            block.ScanWord(slot);
            if (slot >= 0 && slot < 3)
                block.Scan(jointinfo[slot]);
        }
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEIKJoint::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"type: %d", type);
    block.Write(L"dof: %d", dof);
    block.Write(L"xactive: %d", xactive);
    block.Write(L"yactive: %d", yactive);
    block.Write(L"zactive: %d", zactive);
    block.Write(L"xlimited: %d", xlimited);
    block.Write(L"ylimited: %d", ylimited);
    block.Write(L"zlimited: %d", zlimited);
    block.Write(L"xease: %d", xease);
    block.Write(L"yease: %d", yease);
    block.Write(L"zease: %d", zease);
    block.Write(L"limitexact: %d", limitexact);
    for (std::int32_t slot = 0; slot < 3; ++slot)
        block.Write(L"jointinfo: %d %f %f %f", slot, jointinfo[slot]);
    return 1;
}

Result CFileFormat_AseRecords::CASEMeshAnimation::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    meshes.DeleteAll();
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
        if (block.Is(L"*MESH"))
            block.LoadNew(meshes);
    return 1;
}

Result CFileFormat_AseRecords::CASEMeshAnimation::Save(CFile_Saver* saver)
{
    const CBlockWriter block(saver);
    return block.IsOpen() ? 1 : 0;
}

Result CFileFormat_AseRecords::CASEGeomObject::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        block.Read(L"*NODE_PARENT", parent);
        if (block.Is(L"*NODE_TM"))
            block.Load(node);
        if (block.Is(L"*MESH"))
            block.Load(mesh);
        if (block.Is(L"*MESH_ANIMATION"))
            block.Load(meshanimation);
        if (block.Is(L"*TM_ANIMATION"))
            block.Load(animation);
        if (block.Strip(L"*WIREFRAME_COLOR"))
        {
            block.ScanWords(wireframecolor);
            wireframecolor.a = 1.0F;
        }
        if (block.Is(L"*IK_JOINT"))
            block.Load(ikjoint);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEGeomObject::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.Write(L"parent: %s", parent);
    block.Save(L"addnode:", node);
    if (mesh.vertices.GetNumItems() != 0)
        block.Save(L"addmesh:", mesh);
    if (!animation.IsEmpty())
        block.Save(L"addanimation:", animation);
    block.Write(L"wireframecolor: %f %f %f", wireframecolor);
    block.Save(L"addikjoint:", ikjoint);
    return 1;
}
