/// The kinds of resource that the engine keeps behind handles.
#pragma once

#include "core/engine_animation_set.h"
#include "core/engine_script.h"
#include "core/file_parser.h"
#include "core/graphics_font.h"
#include "core/graphics_material.h"
#include "core/graphics_model.h"
#include "core/graphics_texture.h"
#include "core/graphics_vertex_declaration.h"
#include "core/gui_bitmap.h"
#include "core/resource_handle.h"

extern template class ENGINE_CORE_API TResourceHandle<CEngine_AnimationSet>;
extern template class ENGINE_CORE_API TResourceHandle<CEngine_Script>;
extern template class ENGINE_CORE_API TResourceHandle<CFile_Parser>;
extern template class ENGINE_CORE_API TResourceHandle<CGraphics_Font>;
extern template class ENGINE_CORE_API TResourceHandle<CGraphics_Model>;
extern template class ENGINE_CORE_API TResourceHandle<CGraphics_Texture>;
extern template class ENGINE_CORE_API TResourceHandle<CGraphics_VertexDeclaration>;
extern template class ENGINE_CORE_API TResourceHandle<CGui_StreamableBitmap>;
extern template class ENGINE_CORE_API TResourceHandleR<CEngine_Script>;
