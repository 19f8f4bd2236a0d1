/// A set of animations that a model can play.
#pragma once

#include "core/sys_raw_data.h"
#include "core/system_objects.h"

/// Held as the bytes of its file until the animation system makes its own form of them. Not for copying.
class ENGINE_CORE_API CEngine_AnimationSet : public CEngine_Animation_System_Object
{
  public:
    CSys_RawData data;
    std::uint32_t flags = 0; ///< As given to CreateFromParser.

    CEngine_AnimationSet();
    virtual ~CEngine_AnimationSet();

    /// Takes in what the parser has still to read. Returns 0, the set left without data, when there is nothing
    /// or no memory for it.
    virtual Result CreateFromParser(CFile_Parser* parser, unsigned long newflags);
};
