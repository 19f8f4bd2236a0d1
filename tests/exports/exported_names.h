/// The surface of the library: what both shared libraries together have to export, by name.
///
/// A class, member or element type that callers rely on is added here; a forgotten export then fails a
/// test on Linux, before it is missed on Windows.
#pragma once

#include <string>
#include <vector>

/// An instance of an array with the members that its users call: the names of operations, "C" for the
/// constructor, "D" for the destructor, "=" for assignment, "[]" for indexing.
struct SArrayInstance
{
    const char* array; ///< "TArray" or "TPArray".
    const char* element;
    const char* members;
};

inline constexpr const char* WholeArray = "Add DeleteAll GetNumItems C D = []";
inline constexpr const char* SizedArray = "CreateMultiple DeleteAll GetNumItems C D = []";

inline constexpr SArrayInstance ArrayInstances[] = {
    {"TArray", "CFileFormat_AseRecords::CASEGeomObject", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASEHelper", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASELight", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASECamera", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASEShapeObject", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASEMaterial", SizedArray},
    {"TPArray", "CFileFormat_AseRecords::CASEMaterial", "Add DeleteAll C D ="},
    {"TPArray", "CFileFormat_AseRecords::CASEMaterialMap", "Add DeleteAll C D ="},
    {"TArray", "CFileFormat_AseRecords::CASEAnimationNode", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASEAnimationNodeRot", WholeArray},
    {"TPArray", "CFileFormat_AseRecords::CASEAnimation", WholeArray},
    {"TPArray", "CFileFormat_AseRecords::CASECameraSettings", WholeArray},
    {"TPArray", "CFileFormat_AseRecords::CASENode", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASEShapeLine", WholeArray},
    {"TPArray", "CFileFormat_AseRecords::CASEMesh", "Add DeleteAll C D ="},
    {"TArray", "CFileFormat_AseRecords::CASEFace", WholeArray},
    {"TArray", "CFileFormat_AseRecords::CASETFace", WholeArray},
    {"TArray", "CFileFormat_AseRecords::SMeshFaceNormals", "Add DeleteAll GetNumItems GetLast C D = []"},
    {"TArray", "CFileFormat_AseRecords::SMappingFace", WholeArray},
    {"TPArray", "CFileFormat_AseRecords::CASEMappingChannel", WholeArray},
    {"TArray", "CMath_Vector3", "Add CreateMultiple DeleteAll GetNumItems C D = []"},
    {"TArray", "CMath_Axis", "Add ="},
    {"TArray", "SGraphics_MappingFace", "Add ="},
    {"TArray", "SGraphics_Face", "CreateMultiple DeleteAll GetNumItems = []"},
    {"TArray", "CGraphics_FaceSpace", "CreateMultiple DeleteAll GetNumItems = []"},
    {"TPArray", "SGraphics_ModelMaterial", "Add ="},
    {"TPArray", "CGraphics_Geometry", "Add = GetNumItems []"},
    {"TPArray", "CGraphics_MaterialList", "Add = GetNumItems []"},
    {"TPArray", "CGraphics_MappingChannel", "Add ="},
    {"TArray", "unsigned long", "Add CreateMultiple DeleteAll GetNumItems Reset C D = []"},
    {"TArray", "int", "CreateMultiple DeleteAll DeleteOrdered GetNumItems C D = []"},
    {"TArray", "CFileFormat_EnvelopeRecords::CEnvelopeBone", "Add DeleteAll DeleteOrdered GetNumItems C D = []"},
    {"TArray", "CFileFormat_EnvelopeRecords::CEnvelopeVertexData", WholeArray},
    {"TArray", "CFileFormat_EnvelopeRecords::CEnvelopeVertexExclusionList", WholeArray},
    {"TArray", "CFileFormat_EnvelopeRecords::SSwitchBones", WholeArray},
    {"TArray", "CFileFormat_XRecords::CXMesh", WholeArray},
    {"TArray", "CFileFormat_XRecords::SMeshPolygon", "CreateMultiple DeleteAll C D = []"},
    {"TPArray", "TKNode<CSys_DataNode>", "Add DeleteAll GetLast GetNumItems C D = []"},
    {"TArray", "SNodeLink", "Add CreateMultiple DeleteAll GetNumItems Reset C D = []"},
    {"TArray", "SChannelNode<float, 3u>", "Add DeleteAll GetArray GetNumItems D = []"},
    {"TArray", "SChannelNode<float, 4u>", "Add CreateMultiple DeleteAll GetArray GetNumItems D = []"},
};

inline constexpr const char* TreeElements[] = {
    "SGui_TreeData",
    "CSys_ProfilerSystem::SProfileInfo",
    "TResourceHandle<CEngine_AnimationSet>",
    "TResourceHandle<CEngine_Script>",
    "TResourceHandle<CFile_Parser>",
    "TResourceHandle<CGraphics_Font>",
    "TResourceHandle<CGraphics_Material>",
    "TResourceHandle<CGraphics_Model>",
    "TResourceHandle<CGraphics_Texture>",
    "TResourceHandle<CGraphics_VertexDeclaration>",
    "TResourceHandle<CGui_StreamableBitmap>",
    "CAudio_Sound",
    "CG_Renderer::CControlLayout",
    "CEffects_System::CEffects_Flare",
    "CEffects_System::CEffects_LibraryEffect",
    "CSys_String",
    "CSys_Text",
};

inline constexpr const char* ResourceKinds[] = {
    "CEngine_AnimationSet",  "CEngine_Script",  "CFile_Parser",      "CGraphics_Font",
    "CGraphics_Material",    "CGraphics_Model", "CGraphics_Texture", "CGraphics_VertexDeclaration",
    "CGui_StreamableBitmap",
};

/// Classes with the "Load" and "Save" of every document, record and container.
inline constexpr const char* SavedClasses[] = {
    "CFileFormat_Ase",
    "CFileFormat_AseRecords::CASEScene",
    "CFileFormat_AseRecords::CASENode",
    "CFileFormat_AseRecords::CASEGeomObject",
    "CFileFormat_AseRecords::CASEMeshAnimation",
    "CFileFormat_AseRecords::CASEIKJoint",
    "CFileFormat_AseRecords::CASEMesh",
    "CFileFormat_AseRecords::CASEFace",
    "CFileFormat_AseRecords::CASETFace",
    "CFileFormat_AseRecords::CASEMappingChannel",
    "CFileFormat_AseRecords::CASEMaterial",
    "CFileFormat_AseRecords::CASEMaterialMap",
    "CFileFormat_AseRecords::CASEAnimation",
    "CFileFormat_AseRecords::CASEAnimationNode",
    "CFileFormat_AseRecords::CASEAnimationNodeRot",
    "CFileFormat_AseRecords::CASELight",
    "CFileFormat_AseRecords::CASELightSettings",
    "CFileFormat_AseRecords::CASECamera",
    "CFileFormat_AseRecords::CASECameraSettings",
    "CFileFormat_AseRecords::CASEHelper",
    "CFileFormat_AseRecords::CASEShapeObject",
    "CFileFormat_AseRecords::CASEShapeLine",
    "CFileFormat_Envelope",
    "CFileFormat_X",
    "CFileFormat_XRecords::CXMesh",
    "TGraph<CSys_DataNode>",
    "TChannelList<float, 3u>",
    "TChannelList<float, 4u>",
    "CGraphics_Model",
    "CSys_DataNode",
    "CSys_String",
    "CSys_Text",
    "SGui_TreeData",
    "CAudio_Sound",
    "CG_Renderer::CControlLayout",
    "CEffects_System::CEffects_Flare",
    "CEffects_System::CEffects_LibraryEffect",
};

/// Everything else, name by name.
inline constexpr const char* SingleNames[] = {
    "CFileFormat_Ase::Destroy()",
    "CFileFormat_Ase::GetNamedGeomObject(wchar_t const*)",
    "CFileFormat_Ase::GetNamedGeomObjectIndex(wchar_t const*)",
    "CFileFormat_Envelope::Destroy()",
    "CreateModelFromASE(CGraphics_Model&, CFileFormat_Ase&, float)",
    "TGraph<CSys_DataNode>::Destroy()",
    "TGraph<CSys_DataNode>::TGraph()",
    "TGraph<CSys_DataNode>::TGraph(TGraph<CSys_DataNode> const&)",
    "TGraph<CSys_DataNode>::~TGraph()",
    "TKNode<CSys_DataNode>::AddLink(unsigned long, unsigned long, int)",
    "TKNode<CSys_DataNode>::GetLink(unsigned long, unsigned long*, unsigned long*) const",
    "TKNode<CSys_DataNode>::GetNumItems() const",
    "TKNode<CSys_DataNode>::TKNode()",
    "TKNode<CSys_DataNode>::TKNode(TKNode<CSys_DataNode> const&)",
    "TKNode<CSys_DataNode>::~TKNode()",
    "int TChannelList<float, 3u>::LoadHelper<float, 3u>(CFile_Parser*, CFile_IOCallback*)",
    "int TChannelList<float, 4u>::LoadHelper<float, 4u>(CFile_Parser*, CFile_IOCallback*)",
    "TChannelList<float, 3u>::DeleteAll()",
    "TChannelList<float, 3u>::TChannelList(TChannelList<float, 3u> const&)",
    "TChannelList<float, 4u>::TChannelList(TChannelList<float, 4u> const&)",
    "TTreeAudio<CAudio_Sound>::TTreeAudio()",
    "TTreeAudio<CAudio_Sound>::~TTreeAudio()",
    "TTreeGraphics<CEffects_System::CEffects_Flare>::TTreeGraphics()",
    "TTreeGraphics<CEffects_System::CEffects_Flare>::~TTreeGraphics()",
    "TTreeGraphics<CEffects_System::CEffects_LibraryEffect>::TTreeGraphics()",
    "TTreeGraphics<CEffects_System::CEffects_LibraryEffect>::~TTreeGraphics()",
    "TTreeGui<CG_Renderer::CControlLayout>::TTreeGui()",
    "TTreeGui<CG_Renderer::CControlLayout>::~TTreeGui()",
    "TGraphicsResourceManager<CGraphics_Font>::InitializeObject(CGraphics_Font*, CFile_Parser*, unsigned long)",
    "TGraphicsResourceManager<CGraphics_Material>::InitializeObject(CGraphics_Material*, CFile_Parser*, unsigned long)",
    "TGraphicsResourceManager<CGraphics_Model>::InitializeObject(CGraphics_Model*, CFile_Parser*, unsigned long)",
    "TGraphicsResourceManager<CGraphics_Texture>::InitializeObject(CGraphics_Texture*, CFile_Parser*, unsigned long)",
    "TGraphicsResourceManager<CGraphics_VertexDeclaration>::InitializeObject(CGraphics_VertexDeclaration*, "
    "CFile_Parser*, unsigned long)",
    "TGraphicsResourceManager<CGui_StreamableBitmap>::InitializeObject(CGui_StreamableBitmap*, CFile_Parser*, "
    "unsigned long)",
    "TAnimationResourceManager<CEngine_AnimationSet>::InitializeObject(CEngine_AnimationSet*, CFile_Parser*, "
    "unsigned long)",
    "TFileResourceManager<CFile_Parser>::InitializeObject(CFile_Parser*, CFile_Parser*, unsigned long)",
    "TScriptResourceManager<CEngine_Script>::InitializeObject(CEngine_Script*, CFile_Parser*, unsigned long)",
    "TResourceHandleR<CEngine_Script>::TResourceHandleR(TResourceHandleR<CEngine_Script> const&)",
    "TResourceHandleR<CEngine_Script>::Destroy()",
    "TResourceHandleR<CEngine_Script>::~TResourceHandleR()",
    "TResourceHandleR<CGraphics_Material>::TResourceHandleR()",
    "TResourceHandleR<CGraphics_Material>::Destroy()",
    "TResourceHandleR<CGraphics_Material>::~TResourceHandleR()",
    "TUserData::TUserData()",
    "TUserData::~TUserData()",
    "TUserData::operator=(TUserData const&)",
    "TUserData::GetUserData(unsigned long) const",
    "TUserData::SetUserData(unsigned long, void*)",
};
