/// A sound and how it is played.
#pragma once

#include "core/sys_string.h"

/// Load: replaces the file name, and the numbers where there are any, with what Save wrote; returns 1.
class ENGINE_CORE_API CAudio_Sound : public CFile_IOObject
{
  public:
    CSys_String file;         ///< Name of the file that holds the samples.
    float volume = 1.0F;      ///< 0 is silence, 1 as recorded.
    float pitch = 1.0F;       ///< Speed of playing; 1 as recorded.
    float range = 0.0F;       ///< Distance beyond which it is not heard; 0 for everywhere.
    std::uint32_t looped = 0; ///< 1 when it begins again at its end.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
