#include "formats/ase/ase_scene_node.h"

#include "core/block_writer.h"

namespace
{
void ReadRow(CBlockReader& block, SKeyword keyword, float (&row)[4])
{
    if (block.Strip(keyword))
        (void)(block.Scan(row[0]) && block.Scan(row[1]) && block.Scan(row[2]));
}
} // namespace

Result CFileFormat_AseRecords::CASEScene::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*SCENE_FIRSTFRAME", firstframe);
        block.Read(L"*SCENE_LASTFRAME", lastframe);
        block.Read(L"*SCENE_FRAMESPEED", framespeed);
        block.Read(L"*SCENE_TICKSPERFRAME", ticksperframe);
        block.Read(L"*SCENE_BACKGROUND_STATIC", backgroundstatic);
        block.Read(L"*SCENE_AMBIENT_STATIC", ambientstatic);
        if (block.Strip(L"*SCENE_ENVMAP"))
            block.Load(envmap);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEScene::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"firstframe: %d", firstframe);
    block.Write(L"lastframe: %d", lastframe);
    block.Write(L"framespeed: %d", framespeed);
    block.Write(L"ticksperframe: %d", ticksperframe);
    block.Write(L"backgroundstatic: %f %f %f", backgroundstatic);
    block.Write(L"ambientstatic: %f %f %f", ambientstatic);
    return 1;
}

Result CFileFormat_AseRecords::CASENode::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    matrix = MatrixIdentity();
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        block.Read(L"*INHERIT_POS", inheritpos);
        block.Read(L"*INHERIT_ROT", inheritrot);
        block.Read(L"*INHERIT_SCL", inheritscale);
        ReadRow(block, L"*TM_ROW0", matrix.m[0]);
        ReadRow(block, L"*TM_ROW1", matrix.m[1]);
        ReadRow(block, L"*TM_ROW2", matrix.m[2]);
        ReadRow(block, L"*TM_ROW3", matrix.m[3]);
        block.Read(L"*TM_POS", position);
        block.Read(L"*TM_ROTAXIS", rotationaxis);
        block.Read(L"*TM_ROTANGLE", rotationangle);
        block.Read(L"*TM_SCALEAXISANG", scaleangle);
        block.Read(L"*TM_SCALEAXIS", scaleaxis);
        block.Read(L"*TM_SCALE", scale);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASENode::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.Write(L"inheritpos: %f %f %f", inheritpos);
    block.Write(L"inheritrot: %f %f %f", inheritrot);
    block.Write(L"inheritscale: %f %f %f", inheritscale);
    block.Write(L"position: %f %f %f", position);
    block.Write(L"rotationaxis: %f %f %f", rotationaxis);
    block.Write(L"rotationangle: %f", rotationangle);
    block.Write(L"scale: %f %f %f", scale);
    block.Write(L"scaleaxis: %f %f %f", scaleaxis);
    block.Write(L"scaleangle: %f", scaleangle);
    return 1;
}
