/// The containers and managers of every kind, instantiated once; the headers declare and export them.
#include "containers/channel_list.h"
#include "containers/resource_manager.h"

// NOLINTBEGIN(bugprone-macro-parentheses): types cannot stand in parentheses
#define ASSET_TOOLS_DEFINE_TREE(T)                                                                                     \
    template class TTreeKey<T>;                                                                                        \
    template class TPArray<TTreeKey<T>>;                                                                               \
    template class TPArray<TTreeFolder<T>>;                                                                            \
    template class TTreeFolder<T>;                                                                                     \
    template class TTree<T>;
ASSET_TOOLS_TREE_ELEMENTS(ASSET_TOOLS_DEFINE_TREE)
#undef ASSET_TOOLS_DEFINE_TREE
// NOLINTEND(bugprone-macro-parentheses)

template class TTreeAudio<CAudio_Sound>;
template class TTreeGraphics<CEffects_System::CEffects_Flare>;
template class TTreeGraphics<CEffects_System::CEffects_LibraryEffect>;
template class TTreeGui<CG_Renderer::CControlLayout>;

template class TArray<SNodeLink>;
template class TKNode<CSys_DataNode>;
template class TPArray<TKNode<CSys_DataNode>>;
template class TGraph<CSys_DataNode>;

template class TArray<SChannelNode<float, 3>>;
template class TArray<SChannelNode<float, 4>>;
template class TChannelList<float, 3>;
template class TChannelList<float, 4>;
template Result TChannelList<float, 3>::LoadHelper<float, 3>(CFile_Parser*, CFile_IOCallback*);
template Result TChannelList<float, 4>::LoadHelper<float, 4>(CFile_Parser*, CFile_IOCallback*);

template class TResourceManager<CEngine_AnimationSet>;
template class TResourceManager<CEngine_Script>;
template class TResourceManager<CFile_Parser>;
template class TResourceManager<CGraphics_Font>;
template class TResourceManager<CGraphics_Material>;
template class TResourceManager<CGraphics_Model>;
template class TResourceManager<CGraphics_Texture>;
template class TResourceManager<CGraphics_VertexDeclaration>;
template class TResourceManager<CGui_StreamableBitmap>;
template class TGraphicsResourceManager<CGraphics_Font>;
template class TGraphicsResourceManager<CGraphics_Material>;
template class TGraphicsResourceManager<CGraphics_Model>;
template class TGraphicsResourceManager<CGraphics_Texture>;
template class TGraphicsResourceManager<CGraphics_VertexDeclaration>;
template class TGraphicsResourceManager<CGui_StreamableBitmap>;
template class TAnimationResourceManager<CEngine_AnimationSet>;
template class TFileResourceManager<CFile_Parser>;
template class TScriptResourceManager<CEngine_Script>;
