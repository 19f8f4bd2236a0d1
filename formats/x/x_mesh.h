/// The mesh of an X text.
#pragma once

#include "core/core_arrays.h"
#include "core/file_io_object.h"
#include "formats/x/x_records.h"

/// One polygon: as many corners as its text names, each a 0-based position in the mesh's Vertices, stored as
/// read in the order of the text. Nothing checks or triangulates them.
struct CFileFormat_XRecords::SMeshPolygon
{
    using BytesCanMove = SMeshPolygon;

    TArray<int> Indices;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_XRecords::SMeshPolygon>;

/// One "Mesh" block: what a static mesh needs of it.
///
/// Shape: Normals and TextureCoords have counts of their own. Exporters mostly give one of each to a vertex,
///        but normals may come with a list that says which corner has which; that list is not read.
/// Units: as written; nothing is scaled, turned or normalised. V points down, as the format has it.
/// Owns:  every list.
class ASSET_TOOLS_API CFileFormat_XRecords::CXMesh : public CFile_IOObject
{
  public:
    using BytesCanMove = CXMesh;
    using SXFace = SMeshPolygon;

    TArray<CMath_Vector3> Vertices;
    TArray<CMath_Vector3> Normals;
    TArray<CMath_Vector3> TextureCoords; ///< u, v and 0.
    TArray<SXFace> Faces;

    /// Reads the mesh whose "Mesh" line was just delivered, and goes on to the end of the text, where normals
    /// and texture coordinates may stand anywhere: later ones replace earlier ones. Empties the lists first.
    /// Lists are laid out as CXListReader says. Numbers that are missing or do not parse are 0, so are
    /// entries that a count promises and the block does not hold; a count beyond what the block could hold is
    /// cut, which Log hears at level 2. Each face is told to Log at level 1. A list that memory ends for is
    /// left empty. callback is not used. Returns 1.
    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;

    /// Writes everything but the faces.
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_XRecords::CXMesh>;
