/// Documents told as texts to compare, with what Save leaves out.
#pragma once

#include "formats/ase/ase.h"
#include "formats/envelope/envelope.h"
#include "formats/x/x.h"
#include "tests/support/documents.h"

#include <cstring>
#include <string>
#include <type_traits>

/// Whether the document is worth no more than being loaded: a material count makes any number of materials out of
/// nothing, up to the reader's limit, and each further step with those takes seconds.
template <class TDocument> bool IsPadded(const TDocument& document)
{
    if constexpr (std::is_same_v<TDocument, CFileFormat_Ase>)
        return document.Materials.NumItems > 1000;
    return false;
}

template <class T> void AppendBytes(std::string& description, const T& value)
{
    static_assert(std::has_unique_object_representations_v<T> || std::is_same_v<T, float>);
    description.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

inline void AppendBytes(std::string& description, const CMath_Vector3& vector)
{
    for (const float number : {vector.x, vector.y, vector.z})
        AppendBytes(description, number);
}

inline void AppendBytes(std::string& description, const CSys_String& text)
{
    for (const wchar_t* at = text.Get(); *at != L'\0'; ++at)
        AppendBytes(description, *at);
    AppendBytes(description, L'\0');
}

template <class TDocument> std::string Describe(TDocument& document)
{
    return SaveText(document);
}

inline std::string Describe(CFileFormat_X& document)
{
    std::string description = SaveText(document);
    for (const CFileFormat_X::CXMesh& mesh : document.Meshes)
        for (const CFileFormat_X::CXMesh::SXFace& face : mesh.Faces)
        {
            AppendBytes(description, face.Indices.GetNumItems());
            for (const int index : face.Indices)
                AppendBytes(description, index);
        }
    return description;
}

inline std::string Describe(CFileFormat_Envelope& document)
{
    std::string description = SaveText(document);
    const auto append = [&description](const auto&... values) { (AppendBytes(description, values), ...); };
    append(document.ver, document.nodeCount, document.baseNodeName, document.bones.GetNumItems());
    for (const CFileFormat_Envelope::CEnvelopeBone& bone : document.bones)
    {
        append(bone.boneName, bone.boneID, bone.boneFlagLock, bone.boneFlagAbsolute, bone.boneFlagSpline,
               bone.boneFlagSplineClosed, bone.boneFlagDrawEnveloe, bone.boneFlagIsOldBone, bone.boneFlagDead,
               bone.boneFalloff, bone.boneStartPoint, bone.boneEndPoint);
        const CFileFormat_Envelope::CEnvelopeBoneCrossection& section = bone.crossSection;
        append(section.inner0, section.outer0, section.u0, section.inner1, section.outer1, section.u1);
    }
    append(document.vertices.GetNumItems());
    for (const CFileFormat_Envelope::CEnvelopeVertexData& vertex : document.vertices)
    {
        append(vertex.vertexIsModified, vertex.vertexIsRigid, vertex.vertexIsRigidHandle, vertex.vertexIsUnNormalized,
               vertex.vertexLocalPosition, vertex.vertexWeightCount);
        for (const auto& pair : vertex.vertexWeight)
            append(pair.bone, pair.weight);
    }
    for (const CFileFormat_Envelope::CEnvelopeVertexExclusionList& list : document.exclusionLists)
    {
        append(list.excludedVerts.GetNumItems());
        for (const unsigned long index : list.excludedVerts)
            append(index);
    }
    return description;
}
