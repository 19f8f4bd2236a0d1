#include "formats/x/x_mesh.h"

#include "core/block_writer.h"
#include "formats/x/x_list_reader.h"

#include <algorithm>

namespace
{
/// Appends a slot to a list that is read entry by entry. A list for which memory has ended stays empty, so
/// that no entry stands at another's index.
template <class TElement> TElement* AddEntry(TArray<TElement>& elements, std::uint32_t index)
{
    if (elements.NumItems != index)
        return nullptr;
    TElement* const element = elements.Add();
    if (element == nullptr)
        elements.DeleteAll();
    return element;
}

void ReadVectors(CXListReader& list, TArray<CMath_Vector3>& vectors)
{
    vectors.DeleteAll();
    const std::uint32_t count = list.ReadCount();
    for (std::uint32_t i = 0; list.HasEntry(i, count); ++i)
    {
        CMath_Vector3 vector;
        list.ReadVector(vector.x, vector.y, vector.z);
        if (CMath_Vector3* const entry = AddEntry(vectors, i))
            *entry = vector;
    }
}

void ReadTextureCoords(CXListReader& list, TArray<CMath_Vector3>& coords)
{
    coords.DeleteAll();
    const std::uint32_t count = list.ReadCount();
    for (std::uint32_t i = 0; list.HasEntry(i, count); ++i)
    {
        CMath_Vector3 vector;
        list.ReadVector(vector.x, vector.y);
        if (CMath_Vector3* const entry = AddEntry(coords, i))
            *entry = vector;
    }
}

void ReadFaces(CXListReader& list, TArray<CFileFormat_XRecords::SMeshPolygon>& faces)
{
    TArray<int> corners;
    const std::uint32_t count = list.ReadCount();
    for (std::uint32_t i = 0; list.HasEntry(i, count); ++i)
    {
        if (Log->Accepts(1))
            Log->Write(1, L"addpoly: %d", static_cast<std::int32_t>(i));
        list.ReadCorners(corners);
        CFileFormat_XRecords::SMeshPolygon* const face = AddEntry(faces, i);
        if (face != nullptr && corners.NumItems != 0 && face->Indices.CreateMultiple(corners.NumItems) == 1)
            std::copy(corners.begin(), corners.end(), face->Indices.begin());
    }
}
} // namespace

Result CFileFormat_XRecords::CXMesh::Load(CFile_Parser* parser, CFile_IOCallback*)
{
    Vertices.DeleteAll();
    Normals.DeleteAll();
    TextureCoords.DeleteAll();
    Faces.DeleteAll();

    wchar_t line[CFile_Parser::BlockLineCapacity];
    CXListReader block(parser, line);
    ReadVectors(block, Vertices);
    ReadFaces(block, Faces);

    // Most of the lines are numbers, so a look at the first letter comes before the words. The second test is
    // made on the line that the first one left: a list of normals that is shorter than its count may have run
    // into the heading of the texture coordinates.
    while (parser->GetLine(line, CFile_Parser::BlockLineCapacity) == 1)
    {
        if (*line != L'M')
            continue;
        if (RecognizeWord(L"MeshNormals", line) != 0)
        {
            CXListReader list(parser, line);
            ReadVectors(list, Normals);
        }
        if (RecognizeWord(L"MeshTextureCoords", line) != 0)
        {
            CXListReader list(parser, line);
            ReadTextureCoords(list, TextureCoords);
        }
    }
    return 1;
}

Result CFileFormat_XRecords::CXMesh::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.WriteEach(L"addvertex: %f %f %f", Vertices);
    block.WriteEach(L"addvertexnormal: %f %f %f", Normals);
    block.WriteEach(L"adduv: %f %f %f", TextureCoords);
    return 1;
}
