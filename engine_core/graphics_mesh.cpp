#include "core/graphics_mesh.h"

#include "core/block_reader.h"
#include "core/block_writer.h"
#include "engine_core/face_space_corners.h"

template class TArray<SGraphics_Face>;
template class TArray<CGraphics_FaceSpace>;
template class TArray<SGraphics_MappingFace>;
template class TPArray<CGraphics_MappingChannel>;

namespace
{
void Scan(CBlockReader& line, CMath_Vector3& vector)
{
    line.Scan(vector);
}

void Scan(CBlockReader& line, SGraphics_MappingFace& face)
{
    (void)(line.Scan(face.A) && line.Scan(face.B) && line.Scan(face.C));
}

void Scan(CBlockReader& line, SGraphics_Face& face)
{
    (void)(line.Scan(face.A) && line.Scan(face.B) && line.Scan(face.C) && line.Scan(face.Material));
}

/// Appends the element that the line behind the keyword holds.
template <class T> void ReadNew(CBlockReader& block, SKeyword keyword, TArray<T>& list)
{
    if (block.Strip(keyword))
        if (T* const element = list.Add())
            Scan(block, *element);
}

void WriteFaces(CBlockWriter& block, const SLineFormat& format, const TArray<SGraphics_Face>& faces)
{
    for (const SGraphics_Face& face : faces)
        block.Write(format, face.A, face.B, face.C, face.Material);
}

/// A face space is a line with the face's normal and one for each corner with its frame. `space` is the one that
/// the corners belong to; null when there is none, or no memory for it.
void ReadFaceSpaces(CBlockReader& block, TArray<CGraphics_FaceSpace>& spaces, CGraphics_FaceSpace*& space)
{
    if (block.Strip(L"addfacespace:"))
    {
        space = spaces.Add();
        if (space != nullptr)
            block.Scan(space->FaceNormal);
    }
    for (const SFaceSpaceCorner& corner : FaceSpaceCorners)
        if (block.Strip(corner.keyword))
            if (space != nullptr)
                (void)(block.Scan(space->*corner.normal) && block.Scan(space->*corner.tangent) &&
                       block.Scan(space->*corner.binormal));
}

void WriteFaceSpaces(CBlockWriter& block, const TArray<CGraphics_FaceSpace>& spaces)
{
    for (const CGraphics_FaceSpace& space : spaces)
    {
        block.Write(L"addfacespace: %.9g %.9g %.9g", space.FaceNormal);
        for (const SFaceSpaceCorner& corner : FaceSpaceCorners)
            block.Write(L"%s %.9g %.9g %.9g %.9g %.9g %.9g %.9g %.9g %.9g", corner.keyword.text, space.*corner.normal,
                        space.*corner.tangent, space.*corner.binormal);
    }
}
} // namespace

Result CGraphics_MappingChannel::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    Coordinates.DeleteAll();
    Faces.DeleteAll();
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        ReadNew(block, L"addcoordinate:", Coordinates);
        ReadNew(block, L"addface:", Faces);
    }
    return 1;
}

Result CGraphics_MappingChannel::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.WriteEach(L"addcoordinate: %.9g %.9g %.9g", Coordinates);
    for (const SFace& face : Faces)
        block.Write(L"addface: %u %u %u", face.A, face.B, face.C);
    return 1;
}

Result CGraphics_Mesh::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    *this = CGraphics_Mesh();
    CGraphics_FaceSpace* space = nullptr;
    CBlockReader block(parser, callback);
    while (block.NextLine())
    {
        ReadNew(block, L"addvertex:", Vertices);
        ReadNew(block, L"addface:", Faces);
        ReadNew(block, L"addtexturevertex:", TextureVertices);
        ReadNew(block, L"addtextureface:", TextureFaces);
        ReadFaceSpaces(block, FaceSpaces, space);
        if (block.Is(L"addmappingchannel:"))
            block.LoadNew(MappingChannels);
        if (block.Is(L"addcolourchannel:"))
            block.LoadNew(ColourChannels);
    }
    return 1;
}

Result CGraphics_Mesh::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.WriteEach(L"addvertex: %.9g %.9g %.9g", Vertices);
    WriteFaces(block, L"addface: %u %u %u %u", Faces);
    block.WriteEach(L"addtexturevertex: %.9g %.9g %.9g", TextureVertices);
    WriteFaces(block, L"addtextureface: %u %u %u %u", TextureFaces);
    WriteFaceSpaces(block, FaceSpaces);
    block.SaveEach(L"addmappingchannel:", MappingChannels);
    block.SaveEach(L"addcolourchannel:", ColourChannels);
    return 1;
}
