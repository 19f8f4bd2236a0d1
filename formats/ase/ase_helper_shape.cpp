#include "formats/ase/ase_helper_shape.h"

#include "core/block_writer.h"

Result CFileFormat_AseRecords::CASEHelper::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        block.Read(L"*HELPER_CLASS", class_);
        if (block.Is(L"*NODE_TM"))
            block.Load(node);
        block.Read(L"*BOUNDINGBOX_MIN", aabbmin);
        block.Read(L"*BOUNDINGBOX_MAX", aabbmax);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEHelper::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.Write(L"class: %s", class_);
    block.Save(L"addnode:", node);
    block.Write(L"aabbmin: %f %f %f", aabbmin);
    block.Write(L"aabbmax: %f %f %f", aabbmax);
    return 1;
}

Result CFileFormat_AseRecords::CASEShapeLine::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        if (block.Strip(L"*SHAPE_CLOSED"))
            type = 0;
        if (block.Strip(L"*SHAPE_VERTEX_KNOT"))
        {
            block.StripWord();
            if (CMath_Vector3* const vertex = vertices.Add())
                block.ScanWords(*vertex);
        }
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEShapeLine::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"type: %d", type);
    block.WriteEach(L"addvertex: %f %f %f", vertices);
    return 1;
}

Result CFileFormat_AseRecords::CASEShapeObject::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        block.Read(L"*NODE_PARENT", parent);
        if (block.Is(L"*NODE_TM"))
            block.Load(node);
        if (block.Is(L"*TM_ANIMATION"))
            block.Load(animation);
        if (block.Strip(L"*SHAPE_LINE"))
            block.LoadNew(lines);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEShapeObject::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.Write(L"parent: %s", parent);
    block.Save(L"addnode:", node);
    block.SaveEach(L"addline:", lines);
    if (!animation.IsEmpty())
        block.Save(L"addanimation:", animation);
    return 1;
}
