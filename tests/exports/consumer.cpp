/// The surface of the library, by use: a caller that includes the public headers and uses every class, member and
/// element type that callers rely on, and instantiates no template itself.
///
/// What is added to the surface is used here. A forgotten export then does not link on Linux, before it is missed on
/// Windows; what the library does not declare as its own stands in this program, where exports_test.cpp finds it.
#include "containers/channel_list.h"
#include "containers/resource_manager.h"
#include "formats/ase/ase.h"
#include "formats/envelope/envelope.h"
#include "formats/modelbuild/model_from_ase.h"
#include "formats/x/x.h"

namespace
{
CFile_Parser parser;
CFile_Saver saver;

template <class T> void UseArray()
{
    TArray<T> array;
    array.Add();
    array.CreateMultiple(3);
    array.DeleteOrdered(1);
    TArray<T> copy;
    copy = array;
    copy[0];
    copy.GetLast();
    copy.GetArray();
    copy.Reset();
    copy.GetNumItems();
    copy.DeleteAll();
}

template <class T> void UsePointerArray()
{
    TPArray<T> array;
    array.Add();
    TPArray<T> copy;
    copy = array;
    array[0];
    copy.GetLast();
    copy.GetNumItems();
    copy.DeleteAll();
}

template <class TRecord> void UseSavedOne()
{
    TRecord record;
    record.TRecord::Load(&parser, nullptr);
    record.TRecord::Save(&saver);
}

template <class... T> void UseArrays()
{
    (UseArray<T>(), ...);
}

template <class... T> void UsePointerArrays()
{
    (UsePointerArray<T>(), ...);
}

template <class... TRecord> void UseSaved()
{
    (UseSavedOne<TRecord>(), ...);
}

template <class T> void UseTree()
{
    UseSaved<TTree<T>, TTreeFolder<T>>();
    UsePointerArrays<TTreeFolder<T>, TTreeKey<T>>();
    TTree<T> tree;
    tree.root.keys.Add();
    tree.Destroy();
    TTreeKey<T> key;
}

template <class... T> void UseTrees()
{
    (UseTree<T>(), ...);
}

/// A manager of the caller's own.
template <class X> struct TCallersManager : TResourceManager<X>
{
    Result InitializeObject(X*, CFile_Parser*, unsigned long) override
    {
        return 0;
    }
};

template <class TManager, class X> void UseResources()
{
    TCallersManager<X> own;
    TManager manager;
    if (parser.GetOffset() != 0) // calling it is not the point
        manager.TManager::InitializeObject(nullptr, &parser, 0);
    TResourceHandle<X> handle;
    handle.AddRef();
    handle.Release();
    handle.Destroy();
    handle.TResourceHandle<X>::Load(nullptr, nullptr);
    handle.TResourceHandle<X>::Save(nullptr);
    UseTree<TResourceHandle<X>>();
}

template <class... X> void UseGraphicsResources()
{
    (UseResources<TGraphicsResourceManager<X>, X>(), ...);
}

template <class X> void UseReference()
{
    TResourceHandleR<X> reference;
    TResourceHandleR<X> copy(reference);
    copy.Destroy();
}

template <unsigned N> void UseChannels()
{
    UseSaved<TChannelList<float, N>>();
    UseArray<typename TChannelList<float, N>::SData>();
    TChannelList<float, N> list;
    list.template LoadHelper<float, N>(&parser, nullptr);
    TChannelList<float, N> copy(list);
    copy.DeleteAll();
}

void UseFormats()
{
    using R = CFileFormat_Ase;
    UseArrays<R::CASEGeomObject, R::CASEHelper, R::CASELight, R::CASECamera, R::CASEShapeObject, R::CASEMaterial,
              R::CASEAnimationNode, R::CASEAnimationNodeRot, R::CASEShapeLine, R::CASEFace, R::CASETFace,
              R::CASEMesh::SFaceNormals, R::CASEMappingChannel::SFace>();
    UsePointerArrays<R::CASEMaterial, R::CASEMaterialMap, R::CASEAnimation, R::CASECameraSettings, R::CASENode,
                     R::CASEMesh, R::CASEMappingChannel>();
    UseSaved<CFileFormat_Ase, R::CASEScene, R::CASENode, R::CASEGeomObject, R::CASEMeshAnimation, R::CASEIKJoint,
             R::CASEMesh, R::CASEFace, R::CASETFace, R::CASEMappingChannel, R::CASEMaterial, R::CASEMaterialMap,
             R::CASEAnimation, R::CASEAnimationNode, R::CASEAnimationNodeRot, R::CASELight, R::CASELightSettings,
             R::CASECamera, R::CASECameraSettings, R::CASEHelper, R::CASEShapeObject, R::CASEShapeLine>();
    CFileFormat_Ase scene;
    scene.GetNamedGeomObject(L"");
    scene.GetNamedGeomObjectIndex(L"");
    CGraphics_Model model;
    CreateModelFromASE(model, scene, 1.0F);
    scene.CFileFormat_Ase::Destroy();
    using E = CFileFormat_Envelope;
    UseArrays<E::CEnvelopeBone, E::CEnvelopeVertexData, E::CEnvelopeVertexExclusionList, E::SSwitchBones>();
    UseSaved<CFileFormat_Envelope>();
    CFileFormat_Envelope envelope;
    envelope.CFileFormat_Envelope::Destroy();
    UseArrays<CFileFormat_X::CXMesh, CFileFormat_X::CXMesh::SXFace>();
    UseSaved<CFileFormat_X, CFileFormat_X::CXMesh>();
}

void UseCore()
{
    UseArrays<int, unsigned long, CMath_Vector3, CMath_Axis, SGraphics_Face, CGraphics_FaceSpace,
              CGraphics_MappingChannel::SFace>();
    UsePointerArrays<CGraphics_Model::SMaterial, CGraphics_Model::CGeometry, CGraphics_Model::CMaterialList,
                     CGraphics_Mesh::CMappingChannel>();
    UseSaved<CGraphics_Model, CSys_DataNode, CSys_String, CSys_Text, SGui_TreeData, CAudio_Sound,
             CG_Renderer::CControlLayout, CEffects_System::CEffects_Flare, CEffects_System::CEffects_LibraryEffect>();
    TUserData data;
    data.SetUserData(0, &data);
    TUserData copy;
    copy = data;
    copy.GetUserData(0);
}

void UseContainers()
{
    UseSaved<TGraph<CSys_DataNode>>();
    UsePointerArrays<TKNode<CSys_DataNode>>();
    UseArrays<TKNode<CSys_DataNode>::SLink>();
    TGraph<CSys_DataNode> graph;
    const TKNode<CSys_DataNode> empty;
    TKNode<CSys_DataNode> node(empty);
    node.AddLink(1, 2, 1);
    node.GetLink(0, nullptr, nullptr);
    node.GetNumItems();
    TGraph<CSys_DataNode> copy(graph);
    copy.Destroy();
    UseChannels<3>();
    UseChannels<4>();
    UseTrees<SGui_TreeData, CSys_ProfilerSystem::SProfileInfo, CAudio_Sound, CG_Renderer::CControlLayout,
             CEffects_System::CEffects_Flare, CEffects_System::CEffects_LibraryEffect, CSys_String, CSys_Text>();
    TTreeAudio<CAudio_Sound> sounds;
    TTreeGraphics<CEffects_System::CEffects_Flare> flares;
    TTreeGraphics<CEffects_System::CEffects_LibraryEffect> effects;
    CG_Renderer::TTreeGui<CG_Renderer::CControlLayout> layouts;
}
} // namespace

int main()
{
    UseFormats();
    UseCore();
    UseContainers();
    UseGraphicsResources<CGraphics_Font, CGraphics_Material, CGraphics_Model, CGraphics_Texture,
                         CGraphics_VertexDeclaration, CGui_StreamableBitmap>();
    UseResources<TAnimationResourceManager<CEngine_AnimationSet>, CEngine_AnimationSet>();
    UseResources<TFileResourceManager<CFile_Parser>, CFile_Parser>();
    UseResources<TScriptResourceManager<CEngine_Script>, CEngine_Script>();
    UseReference<CEngine_Script>();
    UseReference<CGraphics_Material>();
    return 0;
}
