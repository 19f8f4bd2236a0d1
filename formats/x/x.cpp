#include "formats/x/x.h"

#include "core/block_writer.h"
#include "core/file_parser.h"
#include "core/word_helpers.h"

Result CFileFormat_X::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    Destroy();
    wchar_t line[CFile_Parser::BlockLineCapacity];
    while (parser->GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
        if (RecognizeWord(L"Mesh", line) != 0)
            if (CXMesh* const mesh = Meshes.Add())
                mesh->Load(parser, callback);
    return 1;
}

Result CFileFormat_X::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.SaveEach(L"addmesh:", Meshes);
    return 1;
}

Result CFileFormat_X::Destroy()
{
    Meshes.DeleteAll();
    return 1;
}
