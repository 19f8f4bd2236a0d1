#include "core/system_objects.h"

CAudio_System* CAudio_System_Object::GetAudioSystem() const
{
    return audiosystem;
}

Result CAudio_System_Object::SetAudioSystem(CAudio_System* newsystem)
{
    audiosystem = newsystem;
    return 1;
}

CGraphics_System_Object::CGraphics_System_Object() = default;
CGraphics_System_Object::CGraphics_System_Object(const CGraphics_System_Object& other) = default;
CGraphics_System_Object& CGraphics_System_Object::operator=(const CGraphics_System_Object& other) = default;
CGraphics_System_Object::~CGraphics_System_Object() = default;

CGraphics_System* CGraphics_System_Object::GetGraphicsSystem() const
{
    return graphicssystem;
}

Result CGraphics_System_Object::SetGraphicsSystem(CGraphics_System* newsystem)
{
    graphicssystem = newsystem;
    return 1;
}

CEngine_AnimationSystem* CEngine_Animation_System_Object::GetAnimationSystem() const
{
    return animationsystem;
}

Result CEngine_Animation_System_Object::SetAnimationSystem(CEngine_AnimationSystem* newsystem)
{
    animationsystem = newsystem;
    return 1;
}

CEngine_Script_System_Object::CEngine_Script_System_Object() = default;
CEngine_Script_System_Object::CEngine_Script_System_Object(const CEngine_Script_System_Object& other) = default;
CEngine_Script_System_Object& CEngine_Script_System_Object::operator=(const CEngine_Script_System_Object& other) =
    default;
CEngine_Script_System_Object::~CEngine_Script_System_Object() = default;

CEngine_ScriptSystem* CEngine_Script_System_Object::GetScriptSystem() const
{
    return scriptsystem;
}

Result CEngine_Script_System_Object::SetScriptSystem(CEngine_ScriptSystem* newsystem)
{
    scriptsystem = newsystem;
    return 1;
}
