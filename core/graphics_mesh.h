/// Triangle meshes of the engine's graphics.
#pragma once

#include "core/core_arrays.h"
#include "core/file_io_object.h"

/// One triangle: corners as positions in a vertex list, and its material's number.
struct SGraphics_Face
{
    std::uint32_t A;
    std::uint32_t B;
    std::uint32_t C;
    std::uint32_t Material;
};

/// The shading frames of one triangle: at each corner a normal, a tangent and a binormal.
///
/// Normals are as the mesh's maker gave them, of any length. CGraphics_Mesh::CalculateTangentsAndBinormals
/// fills the rest.
class CGraphics_FaceSpace
{
  public:
    CMath_Vector3 FaceNormal;
    CMath_Vector3 NormalA;
    CMath_Vector3 NormalB;
    CMath_Vector3 NormalC;
    CMath_Vector3 TangentA;
    CMath_Vector3 TangentB;
    CMath_Vector3 TangentC;
    CMath_Vector3 BinormalA;
    CMath_Vector3 BinormalB;
    CMath_Vector3 BinormalC;
};

/// One triangle of a mapping channel: corners as positions in the channel's coordinates. Known as
/// CGraphics_Mesh::CMappingChannel::SFace.
struct SGraphics_MappingFace
{
    std::uint32_t A;
    std::uint32_t B;
    std::uint32_t C;
};

extern template class ENGINE_CORE_API TArray<SGraphics_Face>;
extern template class ENGINE_CORE_API TArray<CGraphics_FaceSpace>;
extern template class ENGINE_CORE_API TArray<SGraphics_MappingFace>;

/// A further set of values at the corners of a mesh's triangles: texture coordinates or colours. Known as
/// CGraphics_Mesh::CMappingChannel.
///
/// Shape: Faces[i] speaks of the same triangle as the mesh's Faces[i], where it has as many.
/// Load:  replaces both lists. Always returns 1. Save writes floats that read back to the same bits.
class ENGINE_CORE_API CGraphics_MappingChannel : public CFile_IOObject
{
  public:
    using SFace = SGraphics_MappingFace;

    TArray<CMath_Vector3> Coordinates; ///< u, v, w with V down, or red, green, blue.
    TArray<SFace> Faces;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ENGINE_CORE_API TPArray<CGraphics_MappingChannel>;

/// A triangle mesh with its texture coordinates, shading frames and further channels.
///
/// Shape: Faces[i], TextureFaces[i] and FaceSpaces[i] speak of the same triangle where all three lists reach
///        that far. Indices are 0-based and may be anything: whoever follows one checks it.
/// Owns:  every list and channel. Copying copies them, moving hands them over.
/// Load:  replaces everything with what the block holds. A number that does not parse leaves its field 0.
///        Always returns 1.
/// Save:  writes everything, floats so that they read back to the same bits (a not-a-number as one).
class ENGINE_CORE_API CGraphics_Mesh : public CFile_IOObject
{
  public:
    using CMappingChannel = CGraphics_MappingChannel;

    TArray<CMath_Vector3> Vertices;
    TArray<SGraphics_Face> Faces;
    TArray<CMath_Vector3> TextureVertices; ///< u, v, w with V down.
    TArray<SGraphics_Face> TextureFaces;   ///< Corners in TextureVertices; Material is not used.
    TArray<CGraphics_FaceSpace> FaceSpaces;
    TPArray<CMappingChannel> MappingChannels;
    TPArray<CMappingChannel> ColourChannels;

    /// Sets the tangents and binormals of every face space from the positions, texture coordinates and
    /// normals of its triangle. At each corner, with N the corner's normal made length 1:
    ///
    /// - the tangent T points to where u grows on the triangle, the binormal B to where v grows; both are
    ///   made perpendicular to N and to each other, of length 1;
    /// - B is N x T where the texture runs right-handed about N, and -(N x T) where it is mirrored;
    /// - where the texture coordinates or positions collapse to a line or point, or where an index leads
    ///   outside its list, T is some direction perpendicular to N, always the same for the same N, and B
    ///   is N x T.
    ///
    /// A corner whose normal has no direction takes the face's, then the one that the corners' order gives.
    /// No result is ever infinite or not a number. Linear in the number of face spaces; the normals stay
    /// as they are. Returns 1.
    Result CalculateTangentsAndBinormals();

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
