#include "tools/model_json.h"

namespace
{
/// A list whose elements are arrays of numbers: `write` writes one.
template <class TList, class TWrite>
void WriteList(CJsonWriter& json, const char* name, const TList& list, TWrite write)
{
    json.Key(name);
    json.StartArray();
    for (const auto& element : list)
        write(element);
    json.EndArray();
}

void WriteCorners(CJsonWriter& json, const char* name, const auto& faces)
{
    WriteList(json, name, faces, [&](const auto& face) { json.Array(face.A, face.B, face.C); });
}
} // namespace

static void WriteFields(CJsonWriter& json, const CGraphics_FaceSpace& space)
{
    json.Field("FaceNormal", space.FaceNormal);
    json.Field("NormalA", space.NormalA);
    json.Field("NormalB", space.NormalB);
    json.Field("NormalC", space.NormalC);
}

static void WriteFields(CJsonWriter& json, const CGraphics_Mesh::CMappingChannel& channel)
{
    json.Field("Coordinates", channel.Coordinates);
    WriteCorners(json, "Faces", channel.Faces);
}

static void WriteFields(CJsonWriter& json, const CGraphics_Mesh& mesh)
{
    json.Field("Vertices", mesh.Vertices);
    WriteList(json, "Faces", mesh.Faces,
              [&](const SGraphics_Face& face) { json.Array(face.A, face.B, face.C, face.Material); });
    json.Field("TextureVertices", mesh.TextureVertices);
    WriteCorners(json, "TextureFaces", mesh.TextureFaces);
    json.Field("FaceSpaces", mesh.FaceSpaces);
    json.Field("MappingChannels", mesh.MappingChannels);
    json.Field("ColourChannels", mesh.ColourChannels);
}

static void WriteFields(CJsonWriter& json, const CGraphics_Model::CGeometry& geometry)
{
    json.Field("Mesh", geometry.Mesh);
}

static void WriteFields(CJsonWriter& json, const CGraphics_Model::CMaterialList& list)
{
    WriteList(json, "Materials", list.Materials,
              [&](const CGraphics_Model::SMaterial* material) { json.Value(material->Name); });
}

static void WriteFields(CJsonWriter& json, const CMath_Axis& axis)
{
    json.Field("Origin", axis.Origin);
    json.Field("Direction", axis.Direction);
}

void WriteFields(CJsonWriter& json, const CGraphics_Model& model)
{
    json.Field("Geometries", model.Geometries);
    json.Field("MaterialLists", model.MaterialLists);
    json.Field("Points", model.Points);
    json.Field("Axes", model.Axes);
}
