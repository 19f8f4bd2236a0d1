#include "formats/ase/ase_mesh.h"

#include "core/block_writer.h"

// A scene is mostly the lists of its meshes, so their loops decide how fast it loads: one line, one
// keyword, one element.

namespace
{
/// Moves to the next line of a list that is an entry, behind its keyword and number.
bool NextEntry(CBlockReader& list, SKeyword keyword)
{
    while (list.NextLine())
        if (list.Strip(keyword))
        {
            list.StripWord();
            return true;
        }
    return false;
}

void ReadVectors(CBlockReader& block, SKeyword heading, SKeyword keyword, TArray<CMath_Vector3>& vectors)
{
    if (!block.Is(heading))
        return;
    CAseBlockReader list(block);
    while (NextEntry(list, keyword))
        if (CMath_Vector3* const vector = vectors.Add())
            list.Scan(*vector);
}

/// Triangles of three indices in one scan.
template <class TFace> void ReadTextureFaces(CBlockReader& block, TArray<TFace>& faces)
{
    if (!block.Is(L"*MESH_TFACELIST"))
        return;
    CAseBlockReader list(block);
    while (NextEntry(list, L"*MESH_TFACE"))
        if (TFace* const face = faces.Add())
            (void)(list.Scan(face->a) && list.Scan(face->b) && list.Scan(face->c));
}

/// Labels with their values in any order: "A:", "B:" and "C:" with corners, "*MESH_MTLID" with the
/// material id, edge and smoothing labels, which are passed over.
void ScanFace(CBlockReader& line, CFileFormat_AseRecords::CASEFace& face)
{
    bool ismore = true;
    while (ismore)
    {
        if (line.Strip(L"A:"))
            ismore = line.ScanWord(face.a);
        else if (line.Strip(L"B:"))
            ismore = line.ScanWord(face.b);
        else if (line.Strip(L"C:"))
            ismore = line.ScanWord(face.c);
        else if (line.Strip(L"*MESH_MTLID"))
            ismore = line.ScanWord(face.mtlid);
        else
            ismore = line.StripWord();
    }
}

void ReadFaces(CBlockReader& block, TArray<CFileFormat_AseRecords::CASEFace>& faces)
{
    if (!block.Is(L"*MESH_FACE_LIST"))
        return;
    CAseBlockReader list(block);
    while (list.NextLine())
        if (list.Strip(L"*MESH_FACE"))
            if (CFileFormat_AseRecords::CASEFace* const face = faces.Add())
                if (list.StripWord())
                    ScanFace(list, *face);
}

void ReadColorFaces(CBlockReader& block, TArray<CFileFormat_AseRecords::CASEFace>& faces)
{
    if (!block.Is(L"*MESH_CFACELIST"))
        return;
    CAseBlockReader list(block);
    while (NextEntry(list, L"*MESH_CFACE"))
        if (CFileFormat_AseRecords::CASEFace* const face = faces.Add())
        {
            list.ScanWord(face->a);
            list.ScanWord(face->b);
            list.ScanWord(face->c);
        }
}

/// corner: which of a face's corners the next corner normal belongs to; it goes round, whatever faces come
/// between.
void ReadNormals(CBlockReader& block, TArray<CFileFormat_AseRecords::SMeshFaceNormals>& normals, unsigned& corner)
{
    using SNormals = CFileFormat_AseRecords::SMeshFaceNormals;
    static constexpr CMath_Vector3 SNormals::*corners[] = {&SNormals::vnormala, &SNormals::vnormalb,
                                                           &SNormals::vnormalc};

    if (!block.Is(L"*MESH_NORMALS"))
        return;
    CAseBlockReader list(block);
    while (list.NextLine())
    {
        if (list.Strip(L"*MESH_VERTEXNORMAL"))
        {
            list.StripWord();
            if (SNormals* const record = normals.GetLast())
            {
                list.Scan(record->*corners[corner]);
                corner = (corner + 1) % 3;
            }
        }
        else if (list.Strip(L"*MESH_FACENORMAL"))
        {
            list.StripWord();
            if (SNormals* const record = normals.Add())
                list.Scan(record->normal);
        }
    }
}
} // namespace

Result CFileFormat_AseRecords::CASEFace::Load(CFile_Parser*, CFile_IOCallback*)
{
    return 1;
}

Result CFileFormat_AseRecords::CASEFace::Save(CFile_Saver* saver)
{
    WriteLine(saver, L"addface: %d %d %d %d", a, b, c, mtlid);
    return 1;
}

Result CFileFormat_AseRecords::CASETFace::Load(CFile_Parser*, CFile_IOCallback*)
{
    return 1;
}

Result CFileFormat_AseRecords::CASETFace::Save(CFile_Saver* saver)
{
    WriteLine(saver, L"addtface: %d %d %d", a, b, c);
    return 1;
}

Result CFileFormat_AseRecords::CASEMappingChannel::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    tvertices.DeleteAll();
    tfaces.DeleteAll();
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        ReadVectors(block, L"*MESH_TVERTLIST", L"*MESH_TVERT", tvertices);
        ReadTextureFaces(block, tfaces);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEMappingChannel::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.WriteEach(L"addvertex: %f %f %f", tvertices);
    for (const SFace& face : tfaces)
        block.Write(L"addface: %d %d %d", face.a, face.b, face.c);
    return 1;
}

Result CFileFormat_AseRecords::CASEMesh::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    vertices.DeleteAll();
    faces.DeleteAll();
    tvertices.DeleteAll();
    tfaces.DeleteAll();
    facenormals.DeleteAll();
    mappingchannels.DeleteAll();
    unsigned corner = 0;
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*TIMEVALUE", timevalue);
        ReadVectors(block, L"*MESH_VERTEX_LIST", L"*MESH_VERTEX", vertices);
        ReadFaces(block, faces);
        ReadVectors(block, L"*MESH_CVERTLIST", L"*MESH_VERTCOL", cvertices);
        ReadColorFaces(block, cfaces);
        ReadVectors(block, L"*MESH_TVERTLIST", L"*MESH_TVERT", tvertices);
        ReadTextureFaces(block, tfaces);
        ReadNormals(block, facenormals, corner);
        if (block.Strip(L"*MESH_MAPPINGCHANNEL"))
            block.LoadNew(mappingchannels);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASEMesh::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"timevalue: %d", timevalue);
    block.WriteEach(L"addvertex: %f %f %f", vertices);
    for (CASEFace& face : faces)
        face.Save(saver);
    block.WriteEach(L"addtvertex: %f %f %f", tvertices);
    for (CASETFace& face : tfaces)
        face.Save(saver);
    for (const SFaceNormals& record : facenormals)
    {
        block.Write(L"addfacenormal: %f %f %f", record.normal);
        block.Write(L"addfacevnormala: %f %f %f", record.vnormala);
        block.Write(L"addfacevnormalb: %f %f %f", record.vnormalb);
        block.Write(L"addfacevnormalc: %f %f %f", record.vnormalc);
    }
    block.SaveEach(L"addmappingchannel:", mappingchannels);
    return 1;
}
