/// What trees are made of: the element types that the library carries trees for.
#pragma once

#include "core/audio_sound.h"
#include "core/effects_system.h"
#include "core/g_renderer.h"
#include "core/gui_tree_data.h"
#include "core/resource_handles.h"
#include "core/sys_profiler_system.h"
#include "core/sys_string.h"
#include "core/sys_text.h"

/// Calls APPLY(T) for each of them. A further element type is added here, and nowhere else.
#define ASSET_TOOLS_TREE_ELEMENTS(APPLY)                                                                               \
    APPLY(SGui_TreeData)                                                                                               \
    APPLY(CSys_ProfilerSystem::SProfileInfo)                                                                           \
    APPLY(TResourceHandle<CEngine_AnimationSet>)                                                                       \
    APPLY(TResourceHandle<CEngine_Script>)                                                                             \
    APPLY(TResourceHandle<CFile_Parser>)                                                                               \
    APPLY(TResourceHandle<CGraphics_Font>)                                                                             \
    APPLY(TResourceHandle<CGraphics_Material>)                                                                         \
    APPLY(TResourceHandle<CGraphics_Model>)                                                                            \
    APPLY(TResourceHandle<CGraphics_Texture>)                                                                          \
    APPLY(TResourceHandle<CGraphics_VertexDeclaration>)                                                                \
    APPLY(TResourceHandle<CGui_StreamableBitmap>)                                                                      \
    APPLY(CAudio_Sound)                                                                                                \
    APPLY(CG_Renderer::CControlLayout)                                                                                 \
    APPLY(CEffects_System::CEffects_Flare)                                                                             \
    APPLY(CEffects_System::CEffects_LibraryEffect)                                                                     \
    APPLY(CSys_String)                                                                                                 \
    APPLY(CSys_Text)
