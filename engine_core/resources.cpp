/// The engine's resources: what they take in, and their handles.
#include "core/resource_handles.h"

Result CGraphics_Resource::CreateFromParser(CFile_Parser* parser, unsigned long newflags)
{
    flags = static_cast<std::uint32_t>(newflags);
    return data.TakeRest(parser);
}

Result CGui_Bitmap::CreateFromParser(CFile_Parser* parser, unsigned long newwidth, unsigned long newheight)
{
    width = static_cast<std::uint32_t>(newwidth);
    height = static_cast<std::uint32_t>(newheight);
    return data.TakeRest(parser);
}

Result CEngine_AnimationSet::CreateFromParser(CFile_Parser* parser, unsigned long newflags)
{
    flags = static_cast<std::uint32_t>(newflags);
    return data.TakeRest(parser);
}

CGraphics_Resource::~CGraphics_Resource() = default;
CGraphics_Font::~CGraphics_Font() = default;
CGraphics_Material::~CGraphics_Material() = default;
CGraphics_Texture::~CGraphics_Texture() = default;
CGraphics_VertexDeclaration::~CGraphics_VertexDeclaration() = default;
CGui_Bitmap::~CGui_Bitmap() = default;
CGui_StreamableBitmap::~CGui_StreamableBitmap() = default;
CEngine_AnimationSet::CEngine_AnimationSet() = default;
CEngine_AnimationSet::~CEngine_AnimationSet() = default;
CEngine_Script::CEngine_Script() = default;
CEngine_Script::~CEngine_Script() = default;
CEngine_ScriptSystem::CEngine_ScriptSystem() = default;
CEngine_ScriptSystem::~CEngine_ScriptSystem() = default;

template class TPArray<CSys_DataNode>;
template class TResourceHandle<CEngine_AnimationSet>;
template class TResourceHandle<CEngine_Script>;
template class TResourceHandle<CFile_Parser>;
template class TResourceHandle<CGraphics_Font>;
template class TResourceHandle<CGraphics_Material>;
template class TResourceHandle<CGraphics_Model>;
template class TResourceHandle<CGraphics_Texture>;
template class TResourceHandle<CGraphics_VertexDeclaration>;
template class TResourceHandle<CGui_StreamableBitmap>;
template class TResourceHandleR<CEngine_Script>;
template class TResourceHandleR<CGraphics_Material>;
