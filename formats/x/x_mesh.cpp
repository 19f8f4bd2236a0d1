#include "formats/x/x_mesh.h"

#include "core/block_writer.h"
#include "formats/x/x_plain_list.h"

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

/// Reads a list: `read` takes an entry from a line, `keep` stores it at its index.
/// announce: hears of each entry's index first.
template <class TEntry, class TAnnounce, class TRead, class TKeep>
void ReadList(CXListReader& list, TAnnounce announce, TRead read, TKeep keep)
{
    TEntry entry;
    const std::uint32_t count = list.ReadCount();
    for (std::uint32_t i = 0; list.HasEntry(i, count);)
    {
        announce(i);
        read(list, entry);
        keep(i++, entry);
        for (CXPlainList plainlist(list); i < count && plainlist.NextEntry(); ++i)
        {
            if (!read(plainlist, entry) || !plainlist.EndEntry())
                break;
            announce(i);
            keep(i, entry);
        }
    }
}

template <class TRead> void ReadVectors(CXListReader& list, TArray<CMath_Vector3>& vectors, TRead read)
{
    vectors.DeleteAll();
    ReadList<CMath_Vector3>(
        list, [](std::uint32_t) {}, read,
        [&](std::uint32_t index, const CMath_Vector3& vector)
        {
            if (CMath_Vector3* const entry = AddEntry(vectors, index))
                *entry = vector;
        });
}

void ReadSpaceVectors(CXListReader& list, TArray<CMath_Vector3>& vectors)
{
    ReadVectors(list, vectors,
                [](auto& line, CMath_Vector3& vector) { return line.ReadVector(vector.x, vector.y, vector.z); });
}

void ReadTextureCoords(CXListReader& list, TArray<CMath_Vector3>& coords)
{
    ReadVectors(list, coords, [](auto& line, CMath_Vector3& vector) { return line.ReadVector(vector.x, vector.y); });
}

void ReadFaces(CXListReader& list, TArray<CFileFormat_XRecords::SMeshPolygon>& faces)
{
    ReadList<TArray<int>>(
        list,
        [](std::uint32_t index)
        {
            if (Log->Accepts(1))
                Log->Write(1, L"addpoly: %d", static_cast<std::int32_t>(index));
        },
        [](auto& line, TArray<int>& corners) { return line.ReadCorners(corners); },
        [&](std::uint32_t index, const TArray<int>& corners)
        {
            CFileFormat_XRecords::SMeshPolygon* const face = AddEntry(faces, index);
            if (face != nullptr && corners.NumItems != 0 && face->Indices.CreateMultiple(corners.NumItems) == 1)
                std::copy(corners.begin(), corners.end(), face->Indices.begin());
        });
}

/// Passes over the lines of a list that is not read.
void PassNumbers(CFile_Parser* parser)
{
    for (CPlainLines lines(parser); lines.NextLine();)
    {
        lines.PassNumbers();
        if (!lines.EndLine())
            break;
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
    ReadSpaceVectors(block, Vertices);
    ReadFaces(block, Faces);

    // The second test is made on the line that the first one left: a list of normals that is shorter than its
    // count may have run into the heading of the texture coordinates.
    for (; parser->GetLine(line, CFile_Parser::BlockLineCapacity) == 1; PassNumbers(parser))
    {
        if (RecognizeWord(L"MeshNormals", line) != 0)
        {
            CXListReader list(parser, line);
            ReadSpaceVectors(list, Normals);
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
