#include "formats/ase/ase_animation.h"

#include "core/block_writer.h"

namespace
{
/// Passes over what is left of the current block.
void ReadToEnd(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
    }
}

/// Appends the keys of the track that this line opened.
template <class TList> void ReadTrack(CBlockReader& animation, SKeyword track, SKeyword key, TList& keys)
{
    if (!animation.Is(track))
        return;
    CAseBlockReader block(animation);
    while (block.NextLine())
        if (block.Strip(key))
            if (auto* const slot = keys.Add())
                slot->Scan(block);
}
} // namespace

Result CFileFormat_AseRecords::CASEAnimationNode::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    ReadToEnd(parser, callback);
    return 1;
}

Result CFileFormat_AseRecords::CASEAnimationNode::Save(CFile_Saver* saver)
{
    WriteLine(saver, L"addnode: %d %f %f %f", time, position);
    return 1;
}

void CFileFormat_AseRecords::CASEAnimationNode::Scan(CBlockReader& block)
{
    block.ScanWord(time);
    block.ScanWords(position);
}

Result CFileFormat_AseRecords::CASEAnimationNodeRot::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    ReadToEnd(parser, callback);
    return 1;
}

Result CFileFormat_AseRecords::CASEAnimationNodeRot::Save(CFile_Saver* saver)
{
    WriteLine(saver, L"addnode: %d %f %f %f %f", time, axis, angle);
    return 1;
}

void CFileFormat_AseRecords::CASEAnimationNodeRot::Scan(CBlockReader& block)
{
    block.ScanWord(time);
    block.ScanWords(axis);
    block.ScanWord(angle);
}

bool CFileFormat_AseRecords::CASEAnimation::IsEmpty() const
{
    return animationpos.GetNumItems() == 0 && animationrot.GetNumItems() == 0 && animationscale.GetNumItems() == 0;
}

Result CFileFormat_AseRecords::CASEAnimation::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        ReadTrack(block, L"*CONTROL_POS_TRACK", L"*CONTROL_POS_SAMPLE", animationpos);
        ReadTrack(block, L"*CONTROL_ROT_TRACK", L"*CONTROL_ROT_SAMPLE", animationrot);
        ReadTrack(block, L"*CONTROL_POS_TCB", L"*CONTROL_TCB_POS_KEY", animationpos);
        ReadTrack(block, L"*CONTROL_ROT_TCB", L"*CONTROL_TCB_ROT_KEY", animationrot);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEAnimation::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    if (animationpos.GetNumItems() != 0)
        block.Write(L"addanimationpos:");
    for (CASEAnimationNode& key : animationpos)
        key.Save(saver);
    if (animationrot.GetNumItems() != 0)
        block.Write(L"addanimationrot:");
    for (CASEAnimationNodeRot& key : animationrot)
        key.Save(saver);
    return 1;
}
