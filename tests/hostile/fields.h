/// The fields of the other documents, for visitors: envelopes, X meshes, trees, graphs, channel lists and models.
#pragma once

#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/tree.h"
#include "core/graphics_model.h"
#include "formats/envelope/envelope.h"
#include "formats/x/x.h"
#include "tests/hostile/visitors.h"

using CEnvelope = CFileFormat_EnvelopeRecords;
using CTextTree = TTree<CSys_Text>;
using CDataGraph = TGraph<CSys_DataNode>;

template <class V> void Visit(V& v, CEnvelope::CEnvelopeBone& bone)
{
    v.Fields(L"[boneName]", bone.boneName, L"[boneID]", bone.boneID, L"boneFlagLock", bone.boneFlagLock,
             L"boneFlagAbsolute", bone.boneFlagAbsolute, L"boneFlagSpline", bone.boneFlagSpline,
             L"boneFlagSplineClosed", bone.boneFlagSplineClosed, L"boneFlagDrawEnveloe", bone.boneFlagDrawEnveloe,
             L"boneFlagIsOldBone", bone.boneFlagIsOldBone, L"boneFlagDead", bone.boneFlagDead, L"boneFalloff",
             bone.boneFalloff, L"boneStartPoint", bone.boneStartPoint, L"boneEndPoint", bone.boneEndPoint,
             L"boneCrossSectionInner0", bone.crossSection.inner0, L"boneCrossSectionOuter0", bone.crossSection.outer0,
             L"boneCrossSectionU0", bone.crossSection.u0, L"boneCrossSectionInner1", bone.crossSection.inner1,
             L"boneCrossSectionOuter1", bone.crossSection.outer1, L"boneCrossSectionU1", bone.crossSection.u1);
}

template <class V> void Visit(V& v, CEnvelope::CEnvelopeVertexData& vertex)
{
    v.Fields(L"vertexIsModified", vertex.vertexIsModified, L"vertexIsRigid", vertex.vertexIsRigid,
             L"vertexIsRigidHandle", vertex.vertexIsRigidHandle, L"vertexIsUnNormalized", vertex.vertexIsUnNormalized,
             L"vertexLocalPosition", vertex.vertexLocalPosition, L"vertexWeightCount", vertex.vertexWeightCount);
    if constexpr (V::Fills)
        vertex.vertexWeightCount %= vertex.MostWeights + 1;
    v.Promise(vertex.vertexWeightCount <= vertex.MostWeights, "a vertex has room for its weights");
    std::wstring line = L"vertexWeight";
    for (CEnvelope::CEnvelopeVertexData::SWeight& pair : vertex.GetWeights())
        if constexpr (std::is_same_v<V, CTextWriter>)
        {
            CSys_String text;
            text.Write(L" %d,%.9g", static_cast<std::int32_t>(pair.bone), static_cast<double>(pair.weight));
            line += text.Get();
        }
        else
        {
            v.Field(L"bone", pair.bone);
            v.Field(L"weight", pair.weight);
        }
    if constexpr (std::is_same_v<V, CTextWriter>)
        v.Open(line.c_str());
}

template <class V> void Visit(V& v, CEnvelope::CEnvelopeVertexExclusionList& list)
{
    if constexpr (std::is_same_v<V, CTextWriter>)
    {
        v.Field(L"exclusionVertexCount", list.excludedVerts.NumItems);
        std::wstring line = L"excludedVerts";
        for (const unsigned long index : list.excludedVerts)
            line += L' ' + std::to_wstring(static_cast<std::int32_t>(index));
        v.Open(line.c_str());
    }
    else
        v.List(L"exclusionVertexCount", L"excludedVerts", list.excludedVerts);
}

template <class V> void Visit(V& v, CFileFormat_Envelope& envelope)
{
    v.Fields(L"ver", envelope.ver, L"", envelope.bones, L"nodeCount", envelope.nodeCount, L"[baseNodeName]",
             envelope.baseNodeName, L"[vertex]", envelope.vertices, L"[exclusionListForBone 0]",
             envelope.exclusionLists);
}

template <class V> void Visit(V& v, CFileFormat_X::CXMesh& mesh)
{
    v.List(L"Mesh", L"vertex", mesh.Vertices);
    v.Blocks(L"face", mesh.Faces);
    v.List(L"MeshNormals", L"normal", mesh.Normals);
    v.List(L"MeshTextureCoords", L"uv", mesh.TextureCoords);
    for (CMath_Vector3& coordinates : mesh.TextureCoords)
        if constexpr (V::Fills)
            coordinates.z = 0.0F;
        else
            v.Promise(coordinates.z == 0.0F, "texture coordinates are two numbers");
}

template <class V> void Visit(V& v, CFileFormat_X::CXMesh::SXFace& face)
{
    v.List(L"face", L"corner", face.Indices);
}

template <class V> void Visit(V& v, CFileFormat_X& document)
{
    v.Blocks(L"Mesh", document.Meshes, 1);
}

template <class V> void Visit(V& v, CSys_Text& text)
{
    v.Text(L"text", text.text);
    v.Text(L"language", text.language);
}

template <class V> void Visit(V& v, TTreeKey<CSys_Text>& key)
{
    v.Line(L"addkey", key.name);
    Visit(v, static_cast<CSys_Text&>(key));
}

template <class V> void VisitInside(V& v, TTreeFolder<CSys_Text>& folder)
{
    v.Fields(L"addfolder", folder.folders, L"addkey", folder.keys);
    for (TTreeFolder<CSys_Text>* const inner : folder.folders)
        if constexpr (V::Fills)
            inner->parent = &folder;
        else
            v.Promise(inner->parent == &folder, "a folder knows the one that holds it");
}

template <class V> void Visit(V& v, TTreeFolder<CSys_Text>& folder)
{
    v.Line(L"addfolder", folder.name);
    VisitInside(v, folder);
}

template <class V> void Visit(V& v, CTextTree& tree)
{
    VisitInside(v, tree.root);
    v.Promise(tree.root.parent == nullptr && tree.root.name.IsEmpty(), "nothing holds a root");
}

template <class V> void Visit(V& v, SNodeLink& link)
{
    v.Fields(L"first", link.first, L"second", link.second);
}

template <class V> void Visit(V& v, TKNode<CSys_DataNode>& node)
{
    v.List(L"links", L"addlink", node.links);
    v.Text(L"name", node.name);
    v.Field(L"kind", node.kind);
    v.Text(L"value", node.value);
}

template <class V> void Visit(V& v, CDataGraph& graph)
{
    v.Blocks(L"addnode", graph.nodes);
}

template <class V, unsigned N> void Visit(V& v, SChannelNode<float, N>& node)
{
    v.Field(L"key", node.key);
    for (float& value : node.value)
        v.Field(L"value", value);
}

template <class V, unsigned N> void Visit(V& v, TChannelList<float, N>& list)
{
    v.List(L"nodes", L"addnode", list.channelNodes);
}

template <class V, class T>
requires requires(T face)
{
    face.C;
}
void Visit(V& v, T& face)
{
    v.Fields(L"A", face.A, L"B", face.B, L"C", face.C);
    if constexpr (requires { face.Material; })
        v.Field(L"material", face.Material);
}

template <class V> void Visit(V& v, CGraphics_FaceSpace& space)
{
    v.Fields(L"normal", space.FaceNormal, L"normala", space.NormalA, L"normalb", space.NormalB, L"normalc",
             space.NormalC, L"tangenta", space.TangentA, L"tangentb", space.TangentB, L"tangentc", space.TangentC,
             L"binormala", space.BinormalA, L"binormalb", space.BinormalB, L"binormalc", space.BinormalC);
}

template <class V> void Visit(V& v, CGraphics_MappingChannel& channel)
{
    v.List(L"coordinates", L"addvertex", channel.Coordinates);
    v.List(L"faces", L"addface", channel.Faces);
}

template <class V> void Visit(V& v, CGraphics_Geometry& geometry)
{
    CGraphics_Mesh& mesh = geometry.Mesh;
    v.List(L"vertices", L"addvertex", mesh.Vertices);
    v.List(L"faces", L"addface", mesh.Faces);
    v.List(L"texturevertices", L"addtvertex", mesh.TextureVertices);
    v.List(L"texturefaces", L"addtface", mesh.TextureFaces);
    v.List(L"facespaces", L"addfacespace", mesh.FaceSpaces);
    v.Fields(L"mappingchannels", mesh.MappingChannels, L"colourchannels", mesh.ColourChannels);
}

template <class V> void Visit(V& v, SGraphics_ModelMaterial& material)
{
    v.Text(L"name", material.Name);
    v.Promise(material.Material.handle == nullptr, "no text attaches a material");
}

template <class V> void Visit(V& v, CGraphics_MaterialList& list)
{
    v.Blocks(L"addmaterial", list.Materials);
}

template <class V> void Visit(V& v, CMath_Axis& axis)
{
    v.Fields(L"origin", axis.Origin, L"direction", axis.Direction);
}

template <class V> void Visit(V& v, CGraphics_Model& model)
{
    v.Fields(L"addgeometry", model.Geometries, L"addmateriallist", model.MaterialLists);
    v.List(L"points", L"addpoint", model.Points);
    v.List(L"axes", L"addaxis", model.Axes);
}
