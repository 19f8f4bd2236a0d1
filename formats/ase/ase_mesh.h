/// Triangle meshes of an ASE scene, with their further texture mapping channels.
#pragma once

#include "core/core_arrays.h"
#include "formats/ase/ase_records.h"

/// One triangle: corners as positions in a vertex list, as written, and its material id.
/// Load: takes nothing, the mesh parses faces itself. Save: writes one line, no block. Both return 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEFace : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEFace;

    std::int32_t a = 0;
    std::int32_t b = 0;
    std::int32_t c = 0;
    std::int32_t mtlid = 0;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One texture triangle: corners as positions in a texture vertex list. Loads and saves as CASEFace.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASETFace : public CFile_IOObject
{
  public:
    using BytesCanMove = CASETFace;

    std::int32_t a = 0;
    std::int32_t b = 0;
    std::int32_t c = 0;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// The normals of one triangle: its own and those at its corners a, b and c.
struct CFileFormat_AseRecords::SMeshFaceNormals
{
    CMath_Vector3 normal;
    CMath_Vector3 vnormala;
    CMath_Vector3 vnormalb;
    CMath_Vector3 vnormalc;
};

/// One triangle of a mapping channel: corners as positions in the channel's texture vertices.
struct CFileFormat_AseRecords::SMappingFace
{
    std::int32_t a = 0;
    std::int32_t b = 0;
    std::int32_t c = 0;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEFace>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASETFace>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::SMeshFaceNormals>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::SMappingFace>;

/// One "*MESH_MAPPINGCHANNEL" block. The number behind the keyword is not kept: a channel is known by its
/// place in the mesh.
///
/// Shape: tfaces[i] speaks of the same triangle as the mesh's faces[i].
/// Load:  replaces both lists. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEMappingChannel : public CFile_IOObject
{
  public:
    using SFace = SMappingFace;

    TArray<CMath_Vector3> tvertices; ///< u, v, w as written, V up.
    TArray<SFace> tfaces;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASEMappingChannel>;

/// One "*MESH" block: a triangle mesh as the exporter wrote it.
///
/// Shape: faces[i], facenormals[i] and tfaces[i] speak of the same triangle where the text has all three.
///        Indices are 0-based positions in this mesh's own lists, stored as read: nothing checks them here.
///        Entries stand in the order of their lines; the numbers written before them are not read.
/// Units: positions in scene units, texture coordinates as written (V up), colours 0 to 1, normals as
///        written, not normalised.
/// Owns:  every list and mapping channel.
/// Load:  replaces all lists but the colour ones, to which it appends. Counts in the text are not believed.
///        A corner normal before the first face normal is dropped. Always returns 1.
/// Save:  writes everything but the colours.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEMesh : public CFile_IOObject
{
  public:
    using SFaceNormals = SMeshFaceNormals;

    std::int32_t timevalue = 0; ///< In ticks.
    TArray<CMath_Vector3> vertices;
    TArray<CASEFace> faces;
    TArray<CMath_Vector3> tvertices;
    TArray<CASETFace> tfaces;
    TArray<SFaceNormals> facenormals;
    TPArray<CASEMappingChannel> mappingchannels;
    TArray<CMath_Vector3> cvertices; ///< Red, green, blue.
    TArray<CASEFace> cfaces;         ///< Corners in cvertices; mtlid is not used.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASEMesh>;
