#include "formats/modelbuild/model_from_ase.h"

#include "core/file_saver.h"
#include "core/word_helpers.h"
#include "formats/modelbuild/material_indices.h"

namespace
{
using CASEMesh = CFileFormat_Ase::CASEMesh;

/// From the scene's frame, which has Z up, to the engine's, which has Y up.
CMath_Vector3 SwapYZ(const CMath_Vector3& vector)
{
    return {vector.x, vector.z, vector.y};
}

/// From texture coordinates with V up to such with V down.
CMath_Vector3 FlipV(const CMath_Vector3& coordinate)
{
    return {coordinate.x, 1.0F - coordinate.y, coordinate.z};
}

/// A face with these corners; what else it has is zero.
template <class TTarget, class TSource> TTarget CopyCorners(const TSource& from)
{
    TTarget to = {};
    to.A = static_cast<std::uint32_t>(from.a);
    to.B = static_cast<std::uint32_t>(from.b);
    to.C = static_cast<std::uint32_t>(from.c);
    return to;
}

/// Makes the target as long as the source and converts each element; without memory the target stays empty.
template <class TTarget, class TSource, class TConvert>
void ConvertEach(TArray<TTarget>& target, const TArray<TSource>& source, TConvert convert)
{
    target.CreateMultiple(source.NumItems, [&](std::size_t i) { return convert(source.Items[i]); });
}

/// Appends each element of the source, converted; one that there is no memory for is left out.
template <class TTarget, class TSource, class TConvert>
void AppendEach(TArray<TTarget>& target, const TArray<TSource>& source, TConvert convert)
{
    for (const TSource& element : source)
        if (TTarget* const added = target.Add())
            *added = convert(element);
}

void ConvertVerticesAndFaces(const CFileFormat_Ase::CASEGeomObject& object, CGraphics_Mesh& mesh, float scale)
{
    const CFileFormat_Ase::CASENode& node = object.node;
    const CMath_Matrix4x4 inverse =
        MatrixTranslate(-node.position) * MatrixAxisRotate(-node.rotationaxis, -node.rotationangle);
    const bool isanimated = !object.animation.IsEmpty();

    ConvertEach(mesh.Vertices, object.mesh.vertices,
                [&](const CMath_Vector3& from)
                { return isanimated ? SwapYZ(PushInMatrix(from, inverse)) * scale : SwapYZ(from * scale); });
    ConvertEach(mesh.Faces, object.mesh.faces,
                [](const CFileFormat_Ase::CASEFace& from)
                {
                    auto to = CopyCorners<SGraphics_Face>(from);
                    to.Material = static_cast<std::uint32_t>(from.mtlid);
                    return to;
                });
}

void ConvertTextureChannels(const CASEMesh& source, CGraphics_Mesh& mesh)
{
    const auto flip = [](const CMath_Vector3& from) { return FlipV(from); };
    const auto copy = [](const CMath_Vector3& from) { return from; };
    const auto copytextureface = [](const auto& from) { return CopyCorners<SGraphics_Face>(from); };
    const auto copycorners = [](const auto& from) { return CopyCorners<SGraphics_MappingFace>(from); };

    ConvertEach(mesh.TextureVertices, source.tvertices, flip);
    ConvertEach(mesh.TextureFaces, source.tfaces, copytextureface);
    for (const CFileFormat_Ase::CASEMappingChannel* const channel : source.mappingchannels)
        if (CGraphics_Mesh::CMappingChannel* const added = mesh.MappingChannels.Add())
        {
            AppendEach(added->Coordinates, channel->tvertices, flip);
            AppendEach(added->Faces, channel->tfaces, copycorners);
        }
    if (source.cvertices.NumItems != 0 && source.cfaces.NumItems != 0)
        if (CGraphics_Mesh::CMappingChannel* const colours = mesh.ColourChannels.Add())
        {
            AppendEach(colours->Coordinates, source.cvertices, copy);
            AppendEach(colours->Faces, source.cfaces, copycorners);
        }
}

/// The points at the corners of a triangle.
struct SCorners
{
    CMath_Vector3 points[3];

    /// Fills them; false when the face or one of its corners is not there.
    bool Find(const TArray<SGraphics_Face>& faces, std::size_t index, const TArray<CMath_Vector3>& list)
    {
        if (index >= faces.NumItems)
            return false;
        const SGraphics_Face& face = faces.Items[index];
        const std::uint32_t corners[] = {face.A, face.B, face.C};
        for (std::size_t i = 0; i < 3; ++i)
        {
            if (corners[i] >= list.NumItems)
                return false;
            points[i] = list.Items[corners[i]];
        }
        return true;
    }

    bool AreEqual() const
    {
        return points[0] == points[1] && points[0] == points[2];
    }

    void Write(const wchar_t* const (&formats)[3]) const
    {
        for (std::size_t i = 0; i < 3; ++i)
            Log->Write(1, formats[i], double{points[i].x}, double{points[i].y}, double{points[i].z});
    }
};

/// Tells Log when the face's texture vertices are all equal, and returns whether they are. A face that lacks
/// anything that would have to be told is not judged.
bool WarnOfCollapsedTexture(const CGraphics_Mesh& mesh, std::uint32_t face)
{
    SCorners texture;
    SCorners positions;
    if (!texture.Find(mesh.TextureFaces, face, mesh.TextureVertices) || !texture.AreEqual() ||
        !positions.Find(mesh.Faces, face, mesh.Vertices))
        return false;
    Log->Write(2, L"Normal Warning: face %d", face);
    texture.Write({L"...a_uv = %f %f %f", L"...b_uv = %f %f %f", L"...c_uv = %f %f %f"});
    positions.Write({L"...a_v = %f %f %f", L"...b_v = %f %f %f", L"...c_v = %f %f %f"});
    return true;
}

void ConvertFaceSpaces(const CASEMesh& source, CGraphics_Mesh& mesh)
{
    ConvertEach(mesh.FaceSpaces, source.facenormals,
                [](const CASEMesh::SFaceNormals& from)
                {
                    CGraphics_FaceSpace to;
                    to.FaceNormal = SwapYZ(from.normal);
                    to.NormalA = SwapYZ(from.vnormala);
                    to.NormalB = SwapYZ(from.vnormalb);
                    to.NormalC = SwapYZ(from.vnormalc);
                    return to;
                });
    std::uint32_t warnings = 0;
    for (std::uint32_t i = 0; i < mesh.FaceSpaces.NumItems; ++i)
        warnings += WarnOfCollapsedTexture(mesh, i) ? 1 : 0;
    if (warnings != 0)
        Log->Write(3, L"Warnings: %d", warnings);
    Log->Write(1, L"");
}

void AddPlaceholderMaterials(CGraphics_Model& model, std::uint32_t count)
{
    if (model.MaterialLists.Add() == nullptr)
        return;
    for (std::uint32_t i = 0; i < count; ++i)
        if (CGraphics_Model::SMaterial* const material = model.MaterialLists[0]->Materials.Add())
        {
            material->Name.Write(L"unknown");
            material->Material.Destroy();
        }
}

void ConvertHelpers(const CFileFormat_Ase& document, CGraphics_Model& model, float scale)
{
    for (const CFileFormat_Ase::CASEHelper& helper : document.Helpers)
    {
        const CMath_Vector3 position = SwapYZ(helper.node.position * scale);
        if (RecognizeString(L"\"PointHelper\"", helper.class_.Get()) != 0)
            if (CMath_Vector3* const point = model.Points.Add())
                *point = position;
        if (RecognizeString(L"\"Tape\"", helper.class_.Get()) != 0)
            if (CMath_Axis* const axis = model.Axes.Add())
            {
                const float(&row)[4] = helper.node.matrix.m[2];
                axis->Origin = position;
                axis->Direction = -SwapYZ({row[0], row[1], row[2]});
            }
    }
}
} // namespace

Result CreateModelFromASE(CGraphics_Model& model, CFileFormat_Ase& document, float scale)
{
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
        if (CGraphics_Model::CGeometry* const geometry = model.Geometries.Add())
        {
            ConvertVerticesAndFaces(object, geometry->Mesh, scale);
            ConvertTextureChannels(object.mesh, geometry->Mesh);
            ConvertFaceSpaces(object.mesh, geometry->Mesh);
            geometry->Mesh.CalculateTangentsAndBinormals();
        }
    AddPlaceholderMaterials(model, RenumberMaterialIndices(model));
    ConvertHelpers(document, model, scale);
    return 1;
}
