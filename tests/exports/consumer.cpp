/// A caller that includes the public headers, uses every family and instantiates no template itself.
#include "containers/channel_list.h"
#include "containers/resource_manager.h"
#include "formats/ase/ase.h"
#include "formats/envelope/envelope.h"
#include "formats/modelbuild/model_from_ase.h"
#include "formats/x/x.h"

namespace
{
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

template <class TRecord> void UseSaved(CFile_Parser& parser, CFile_Saver& saver)
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

template <class T> void UseTree(CFile_Parser& parser, CFile_Saver& saver)
{
    UseSaved<TTree<T>>(parser, saver);
    UseSaved<TTreeFolder<T>>(parser, saver);
    UsePointerArrays<TTreeFolder<T>, TTreeKey<T>>();
    TTree<T> tree;
    tree.root.keys.Add();
    tree.Destroy();
    TTreeKey<T> key;
}

template <class TManager> void UseManager(CFile_Parser& parser)
{
    TManager manager;
    if (parser.GetOffset() != 0) // calling it is not the point
        manager.TManager::InitializeObject(nullptr, &parser, 0);
}

template <class X> void UseHandle()
{
    TResourceHandle<X> handle;
    handle.AddRef();
    handle.Release();
    handle.Destroy();
    handle.TResourceHandle<X>::Load(nullptr, nullptr);
    handle.TResourceHandle<X>::Save(nullptr);
}

template <class X> void UseReference()
{
    TResourceHandleR<X> reference;
    TResourceHandleR<X> copy(reference);
    copy.Destroy();
}

void UseFormats(CFile_Parser& parser, CFile_Saver& saver)
{
    using R = CFileFormat_Ase;
    UseArrays<R::CASEGeomObject, R::CASEHelper, R::CASELight, R::CASECamera, R::CASEShapeObject, R::CASEMaterial,
              R::CASEAnimationNode, R::CASEAnimationNodeRot, R::CASEShapeLine, R::CASEFace, R::CASETFace,
              R::CASEMesh::SFaceNormals, R::CASEMappingChannel::SFace>();
    UsePointerArrays<R::CASEMaterial, R::CASEMaterialMap, R::CASEAnimation, R::CASECameraSettings, R::CASENode,
                     R::CASEMesh, R::CASEMappingChannel>();
    UseSaved<CFileFormat_Ase>(parser, saver);
    CFileFormat_Ase scene;
    CGraphics_Model model;
    CreateModelFromASE(model, scene, 1.0F);
    using E = CFileFormat_Envelope;
    UseArrays<E::CEnvelopeBone, E::CEnvelopeVertexData, E::CEnvelopeVertexExclusionList, E::SSwitchBones>();
    UseSaved<CFileFormat_Envelope>(parser, saver);
    UseArrays<CFileFormat_X::CXMesh, CFileFormat_X::CXMesh::SXFace>();
    UseSaved<CFileFormat_X>(parser, saver);
}

void UseCore()
{
    UseArrays<int, unsigned long, CMath_Vector3, CMath_Axis, SGraphics_Face, CGraphics_FaceSpace,
              CGraphics_MappingChannel::SFace>();
    UsePointerArrays<CGraphics_Model::SMaterial, CGraphics_Model::CGeometry, CGraphics_Model::CMaterialList,
                     CGraphics_Mesh::CMappingChannel>();
    TUserData data;
    data.SetUserData(0, &data);
}

void UseGraphsAndChannels(CFile_Parser& parser, CFile_Saver& saver)
{
    UseSaved<TGraph<CSys_DataNode>>(parser, saver);
    UsePointerArrays<TKNode<CSys_DataNode>>();
    UseArrays<TKNode<CSys_DataNode>::SLink, TChannelList<float, 3>::SData, TChannelList<float, 4>::SData>();
    TGraph<CSys_DataNode> graph;
    TKNode<CSys_DataNode>* const node = graph.nodes.Add();
    node->AddLink(1, 2, 1);
    node->GetLink(0, nullptr, nullptr);
    node->GetNumItems();
    TGraph<CSys_DataNode> copy(graph);
    copy.Destroy();
    UseSaved<TChannelList<float, 3>>(parser, saver);
    UseSaved<TChannelList<float, 4>>(parser, saver);
    TChannelList<float, 4> list;
    list.LoadHelper<float, 4>(&parser, nullptr);
    TChannelList<float, 4> listcopy(list);
    listcopy.DeleteAll();
}

void UseManagers(CFile_Parser& parser)
{
    UseManager<TGraphicsResourceManager<CGraphics_Font>>(parser);
    UseManager<TGraphicsResourceManager<CGraphics_Material>>(parser);
    UseManager<TGraphicsResourceManager<CGraphics_Model>>(parser);
    UseManager<TGraphicsResourceManager<CGraphics_Texture>>(parser);
    UseManager<TGraphicsResourceManager<CGraphics_VertexDeclaration>>(parser);
    UseManager<TGraphicsResourceManager<CGui_StreamableBitmap>>(parser);
    UseManager<TAnimationResourceManager<CEngine_AnimationSet>>(parser);
    UseManager<TFileResourceManager<CFile_Parser>>(parser);
    UseManager<TScriptResourceManager<CEngine_Script>>(parser);
}
} // namespace

int main()
{
    CFile_Parser parser;
    CFile_Saver saver;
    UseFormats(parser, saver);
    UseCore();
    UseGraphsAndChannels(parser, saver);
    UseManagers(parser);
#define USE_TREE(T) UseTree<T>(parser, saver);
    ASSET_TOOLS_TREE_ELEMENTS(USE_TREE)
    UseHandle<CEngine_AnimationSet>();
    UseHandle<CEngine_Script>();
    UseHandle<CFile_Parser>();
    UseHandle<CGraphics_Font>();
    UseHandle<CGraphics_Material>();
    UseHandle<CGraphics_Model>();
    UseHandle<CGraphics_Texture>();
    UseHandle<CGraphics_VertexDeclaration>();
    UseHandle<CGui_StreamableBitmap>();
    UseReference<CEngine_Script>();
    UseReference<CGraphics_Material>();
    TTreeAudio<CAudio_Sound> sounds;
    TTreeGraphics<CEffects_System::CEffects_Flare> flares;
    TTreeGraphics<CEffects_System::CEffects_LibraryEffect> effects;
    CG_Renderer::TTreeGui<CG_Renderer::CControlLayout> layouts;
    return 0;
}
