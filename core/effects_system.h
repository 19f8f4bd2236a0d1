/// The effects system, as far as trees hold parts of it.
#pragma once

#include "core/math_color.h"
#include "core/sys_string.h"

class CEffects_System
{
  public:
    class CEffects_Flare;
    class CEffects_LibraryEffect;
};

/// One flare of a lens: a picture on the line from the light through the middle of the screen.
/// Load: replaces the texture's name, and the numbers where there are any, with what Save wrote; returns 1.
class ENGINE_CORE_API CEffects_System::CEffects_Flare : public CFile_IOObject
{
  public:
    CSys_String texture;
    CMath_Color color;
    float size = 0.0F;     ///< In shares of the screen's height.
    float position = 0.0F; ///< 0 at the light, 1 in the middle of the screen.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// An effect in the library of effects, which the engine makes instances of.
/// Load: replaces the texts, and the numbers where there are any, with what Save wrote; returns 1.
class ENGINE_CORE_API CEffects_System::CEffects_LibraryEffect : public CFile_IOObject
{
  public:
    CSys_String model;       ///< Name of the model that shows it.
    CSys_String sound;       ///< Name of the sound that goes with it.
    float lifetime = 0.0F;   ///< In seconds; 0 for as long as its owner lives.
    std::uint32_t count = 1; ///< Particles made at once.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
