#include "formats/envelope/envelope.h"

#include "core/block_writer.h"
#include "formats/envelope/envelope_passes.h"
#include "formats/envelope/envelope_reader.h"

Result CFileFormat_Envelope::Load(CFile_Parser* parser, CFile_IOCallback*)
{
    CEnvelopeReader(*this, parser).Read();
    ApplyExclusions(*this);
    PruneBones(*this);
    return 1;
}

Result CFileFormat_Envelope::Save(CFile_Saver* saver)
{
    const CBlockWriter block(saver);
    return block.IsOpen() ? 1 : 0;
}

Result CFileFormat_Envelope::Destroy()
{
    ver = 0;
    bones.DeleteAll();
    nodeCount = 0;
    baseNodeName.Clear();
    vertices.DeleteAll();
    exclusionLists.DeleteAll();
    return 1;
}
