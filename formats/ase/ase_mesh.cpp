#include "formats/ase/ase_mesh.h"

#include "core/block_writer.h"
#include "core/plain_lines.h"

// A scene is mostly the lists of its meshes, so their loops decide how fast it loads: one line, one
// keyword, one entry. An entry is scanned from the block's line or from the text in place, alike.

namespace
{
/// Reads the lines of a list. `scan` reads an entry from a line and returns whether it is one; `keep` takes
/// the entry.
template <class TEntry, class TScan, class TKeep> void ReadList(CBlockReader& block, TScan scan, TKeep keep)
{
    CAseBlockReader list(block);
    while (list.NextLine())
    {
        if (TEntry entry{}; scan(list, entry))
            keep(entry);
        ReadPlainEntries<TEntry>(list, scan, keep);
    }
}

/// The same for a list whose entries are the elements of an array.
template <class TEntry, class TScan> void ReadElements(CBlockReader& block, TArray<TEntry>& elements, TScan scan)
{
    ReadList<TEntry>(block, scan,
                     [&](const TEntry& entry)
                     {
                         if (TEntry* const added = elements.Add())
                             *added = entry;
                     });
}

void ReadVectors(CBlockReader& block, SKeyword heading, SKeyword keyword, TArray<CMath_Vector3>& vectors)
{
    if (block.Is(heading))
        ReadElements(block, vectors,
                     [keyword](auto& line, CMath_Vector3& vector)
                     {
                         if (!line.Strip(keyword))
                             return false;
                         line.StripWord();
                         line.Scan(vector);
                         return true;
                     });
}

/// Triangles of three indices in one scan.
template <class TFace> void ReadTextureFaces(CBlockReader& block, TArray<TFace>& faces)
{
    if (block.Is(L"*MESH_TFACELIST"))
        ReadElements(block, faces,
                     [](auto& line, TFace& face)
                     {
                         if (!line.Strip(L"*MESH_TFACE"))
                             return false;
                         line.StripWord();
                         (void)(line.Scan(face.a) && line.Scan(face.b) && line.Scan(face.c));
                         return true;
                     });
}

/// Labels with their values in any order: "A:", "B:" and "C:" with corners, "*MESH_MTLID" with the
/// material id, edge and smoothing labels, which are passed over.
template <class TLine> void ScanFace(TLine& line, CFileFormat_AseRecords::CASEFace& face)
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
    if (block.Is(L"*MESH_FACE_LIST"))
        ReadElements(block, faces,
                     [](auto& line, CFileFormat_AseRecords::CASEFace& face)
                     {
                         if (!line.Strip(L"*MESH_FACE"))
                             return false;
                         if (line.StripWord())
                             ScanFace(line, face);
                         return true;
                     });
}

void ReadColorFaces(CBlockReader& block, TArray<CFileFormat_AseRecords::CASEFace>& faces)
{
    if (block.Is(L"*MESH_CFACELIST"))
        ReadElements(block, faces,
                     [](auto& line, CFileFormat_AseRecords::CASEFace& face)
                     {
                         if (!line.Strip(L"*MESH_CFACE"))
                             return false;
                         line.StripWord();
                         line.ScanWord(face.a);
                         line.ScanWord(face.b);
                         line.ScanWord(face.c);
                         return true;
                     });
}

/// corner: which of a face's corners the next corner normal belongs to; it goes round, whatever faces come
/// between.
void ReadNormals(CBlockReader& block, TArray<CFileFormat_AseRecords::SMeshFaceNormals>& normals, unsigned& corner)
{
    using SNormals = CFileFormat_AseRecords::SMeshFaceNormals;
    static constexpr CMath_Vector3 SNormals::*corners[] = {&SNormals::vnormala, &SNormals::vnormalb,
                                                           &SNormals::vnormalc};
    struct SEntry
    {
        bool isface;
        CMath_Vector3 normal;
    };

    if (!block.Is(L"*MESH_NORMALS"))
        return;
    bool hasplace = true; // the corners of a face without memory are not those of the face before it
    ReadList<SEntry>(
        block,
        [&](auto& line, SEntry& entry)
        {
            if (line.Strip(L"*MESH_VERTEXNORMAL"))
            {
                if (const SNormals* const record = normals.GetLast())
                    entry.normal = record->*corners[corner];
            }
            else if (line.Strip(L"*MESH_FACENORMAL"))
                entry.isface = true;
            else
                return false;
            line.StripWord();
            line.Scan(entry.normal);
            return true;
        },
        [&](const SEntry& entry)
        {
            if (entry.isface)
            {
                SNormals* const record = normals.Add();
                hasplace = record != nullptr;
                if (hasplace)
                    record->normal = entry.normal;
            }
            else if (SNormals* const record = normals.GetLast())
            {
                if (hasplace)
                    record->*corners[corner] = entry.normal;
                corner = (corner + 1) % 3;
            }
        });
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
