/// The bases of everything that belongs to one of the engine's systems: each holds a pointer to its system.
/// The systems are the engine's; nothing here looks inside them, owns them or calls them.
#pragma once

#include "core/core_base.h"

class CAudio_System;
class CGraphics_System;
class CEngine_AnimationSystem;
class CEngine_ScriptSystem;

class ENGINE_CORE_API CAudio_System_Object
{
  public:
    /// Null until set.
    CAudio_System* GetAudioSystem() const;

    /// Returns 1.
    Result SetAudioSystem(CAudio_System* newsystem);

  private:
    CAudio_System* audiosystem = nullptr;
};

class ENGINE_CORE_API CGraphics_System_Object
{
  public:
    CGraphics_System_Object();
    CGraphics_System_Object(const CGraphics_System_Object& other);
    CGraphics_System_Object& operator=(const CGraphics_System_Object& other);
    virtual ~CGraphics_System_Object();

    /// Null until set.
    CGraphics_System* GetGraphicsSystem() const;

    /// Returns 1.
    Result SetGraphicsSystem(CGraphics_System* newsystem);

  private:
    CGraphics_System* graphicssystem = nullptr;
};

class ENGINE_CORE_API CEngine_Animation_System_Object
{
  public:
    /// Null until set.
    CEngine_AnimationSystem* GetAnimationSystem() const;

    /// Returns 1.
    Result SetAnimationSystem(CEngine_AnimationSystem* newsystem);

  private:
    CEngine_AnimationSystem* animationsystem = nullptr;
};

class ENGINE_CORE_API CEngine_Script_System_Object
{
  public:
    CEngine_Script_System_Object();
    CEngine_Script_System_Object(const CEngine_Script_System_Object& other);
    CEngine_Script_System_Object& operator=(const CEngine_Script_System_Object& other);
    virtual ~CEngine_Script_System_Object();

    /// Null until set.
    CEngine_ScriptSystem* GetScriptSystem() const;

    /// Returns 1.
    Result SetScriptSystem(CEngine_ScriptSystem* newsystem);

  private:
    CEngine_ScriptSystem* scriptsystem = nullptr;
};
