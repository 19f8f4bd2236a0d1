/// ASE scenes and the models built from them. A text; or, behind a NUL, material indices, which a build must
/// turn into their ranks; or, behind a byte 1, lines within one of a mesh's lists.
#include "core/word_helpers.h"
#include "formats/modelbuild/model_from_ase.h"
#include "fuzz/fuzz.h"
#include "tests/support/material_indices.h"

#include <cmath>

namespace
{
constexpr float Scale = 0.5F;

bool AreSame(const CMath_Vector3& one, const CMath_Vector3& other)
{
    const auto aresame = [](float a, float b)
    { return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b)); };
    return aresame(one.x, other.x) && aresame(one.y, other.y) && aresame(one.z, other.z);
}

bool AreUnitAndPerpendicular(const CMath_Vector3& tangent, const CMath_Vector3& binormal)
{
    const auto dot = [](const CMath_Vector3& a, const CMath_Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; };
    const auto isnear = [](float value, float expected) { return std::fabs(value - expected) < 1e-3F; };
    return isnear(dot(tangent, tangent), 1) && isnear(dot(binormal, binormal), 1) && isnear(dot(tangent, binormal), 0);
}

template <class TFaces, class TSourceFaces> void CheckCorners(const TFaces& faces, const TSourceFaces& source)
{
    Check(faces.NumItems == source.NumItems);
    for (std::uint32_t i = 0; i < faces.NumItems; ++i)
        Check(faces.Items[i].A == static_cast<std::uint32_t>(source.Items[i].a) &&
              faces.Items[i].B == static_cast<std::uint32_t>(source.Items[i].b) &&
              faces.Items[i].C == static_cast<std::uint32_t>(source.Items[i].c));
}

template <class TConvert>
void CheckPoints(const TArray<CMath_Vector3>& points, const TArray<CMath_Vector3>& source, TConvert convert)
{
    Check(points.NumItems == source.NumItems);
    for (std::uint32_t i = 0; i < points.NumItems; ++i)
        Check(AreSame(points.Items[i], convert(source.Items[i])));
}

void CheckMesh(const CFileFormat_Ase::CASEGeomObject& object, const CGraphics_Mesh& mesh)
{
    const CFileFormat_Ase::CASEMesh& source = object.mesh;
    const auto flip = [](const CMath_Vector3& from) { return CMath_Vector3(from.x, 1.0F - from.y, from.z); };
    const auto swap = [](const CMath_Vector3& from) { return CMath_Vector3(from.x, from.z, from.y); };
    Check(mesh.Vertices.NumItems == source.vertices.NumItems);
    if (object.animation.IsEmpty())
        CheckPoints(mesh.Vertices, source.vertices, [&](const CMath_Vector3& from) { return swap(from * Scale); });
    CheckPoints(mesh.TextureVertices, source.tvertices, flip);
    CheckCorners(mesh.Faces, source.faces);
    CheckCorners(mesh.TextureFaces, source.tfaces);
    Check(mesh.MappingChannels.NumItems == source.mappingchannels.NumItems);
    for (std::uint32_t i = 0; i < mesh.MappingChannels.NumItems; ++i)
    {
        CheckPoints(mesh.MappingChannels[i]->Coordinates, source.mappingchannels[i]->tvertices, flip);
        CheckCorners(mesh.MappingChannels[i]->Faces, source.mappingchannels[i]->tfaces);
    }
    const bool hascolours = source.cvertices.NumItems != 0 && source.cfaces.NumItems != 0;
    Check(mesh.ColourChannels.NumItems == (hascolours ? 1 : 0));
    if (hascolours)
    {
        CheckPoints(mesh.ColourChannels[0]->Coordinates, source.cvertices,
                    [](const CMath_Vector3& from) { return from; });
        CheckCorners(mesh.ColourChannels[0]->Faces, source.cfaces);
    }
    Check(mesh.FaceSpaces.NumItems == source.facenormals.NumItems);
    for (std::uint32_t i = 0; i < mesh.FaceSpaces.NumItems; ++i)
    {
        const CGraphics_FaceSpace& space = mesh.FaceSpaces.Items[i];
        const CFileFormat_Ase::CASEMesh::SFaceNormals& normals = source.facenormals.Items[i];
        Check(AreSame(space.FaceNormal, swap(normals.normal)) && AreSame(space.NormalA, swap(normals.vnormala)) &&
              AreSame(space.NormalB, swap(normals.vnormalb)) && AreSame(space.NormalC, swap(normals.vnormalc)));
        Check(AreUnitAndPerpendicular(space.TangentA, space.BinormalA) &&
              AreUnitAndPerpendicular(space.TangentB, space.BinormalB) &&
              AreUnitAndPerpendicular(space.TangentC, space.BinormalC));
    }
}

void CheckMaterials(const CGraphics_Model& model, CMaterialIndices indices)
{
    const std::uint32_t count = Rank(indices);
    Check(GetIndices(model) == indices);
    Check(model.MaterialLists.NumItems == 1);
    Check(model.MaterialLists[0]->Materials.NumItems == count);
    for (const CGraphics_Model::SMaterial* material : model.MaterialLists[0]->Materials)
        Check(CompareStrings(material->Name.Get(), L"unknown") == 1 && material->Material.handle == nullptr);
}

void CheckModel(CFileFormat_Ase& document)
{
    CGraphics_Model model;
    CreateModelFromASE(model, document, Scale);
    Check(model.Geometries.NumItems == document.GeomObjects.NumItems);
    CMaterialIndices indices;
    for (std::uint32_t i = 0; i < model.Geometries.NumItems; ++i)
    {
        CheckMesh(*document.GeomObjects[i], model.Geometries[i]->Mesh);
        for (const CFileFormat_Ase::CASEFace& face : document.GeomObjects[i]->mesh.faces)
            indices.push_back(static_cast<std::uint32_t>(face.mtlid));
    }
    CheckMaterials(model, indices);
    std::uint32_t points = 0;
    std::uint32_t axes = 0;
    for (const CFileFormat_Ase::CASEHelper& helper : document.Helpers)
    {
        const std::wstring_view name = helper.class_.Get();
        points += name.starts_with(L"\"PointHelper\"") ? 1 : 0;
        axes += name.starts_with(L"\"Tape\"") ? 1 : 0;
    }
    Check(model.Points.NumItems == points && model.Axes.NumItems == axes);

    const std::string saved = SaveText(model);
    CGraphics_Model again;
    LoadText(again, saved);
    Check(SaveText(again) == saved);
}

void CheckText(const CInput& input)
{
    CFileFormat_Ase document;
    CheckDocument(input, document);
    if (IsPadded(document))
        return;
    const std::string saved = SaveText(document);
    CheckModel(document);
    Check(SaveText(document) == saved);
}

/// The next byte draws the list, of which two entries stand before the lines: the second is read in place.
void CheckList(CInput& input)
{
    static constexpr const char* lists[] = {
        "*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 1 2 3\n*MESH_VERTEX 1 1 2 3\n",
        "*MESH_FACE_LIST {\n*MESH_FACE 0: A: 1 B: 2 C: 3\n*MESH_FACE 1: A: 1 B: 2 C: 3 *MESH_MTLID 4\n",
        "*MESH_TFACELIST {\n*MESH_TFACE 0 1 2 3\n*MESH_TFACE 1 1 2 3\n",
        "*MESH_CFACELIST {\n*MESH_CFACE 0 1 2 3\n*MESH_CFACE 1 1 2 3\n",
        "*MESH_NORMALS {\n*MESH_FACENORMAL 0 1 2 3\n*MESH_VERTEXNORMAL 1 1 2 3\n",
    };
    std::string text = input.Draw(lists);
    text += input.GetRest().GetText();
    CFileFormat_Ase::CASEMesh mesh;
    LoadText(mesh, text);
    CheckEncodings<CFileFormat_Ase::CASEMesh>(text, Describe(mesh));
}

/// Behind a byte that is odd every index may be large; else they lie close together.
void CheckRenumbering(CInput& input)
{
    const bool islarge = input.Take() % 2 != 0;
    CGraphics_Model model;
    CMaterialIndices all;
    while (!input.IsEmpty() && all.size() < 64)
    {
        CMaterialIndices indices;
        for (unsigned count = input.Take() % 16; count != 0; --count)
            indices.push_back(islarge ? 0U - (input.Take() << 24 | input.Take() << 9) : input.Take());
        AddFaces(model, indices);
        all.insert(all.end(), indices.begin(), indices.end());
    }
    CFileFormat_Ase document;
    CreateModelFromASE(model, document, Scale);
    CheckMaterials(model, all);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [=](CInput& input)
                 {
                     if (size == 0 || bytes[0] > 1)
                         return CheckText(input);
                     if (input.Take() == 0)
                         CheckRenumbering(input);
                     else
                         CheckList(input);
                 });
}
