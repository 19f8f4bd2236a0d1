/// A text for people to read, in one language.
#pragma once

#include "core/sys_string.h"

/// Load: replaces both fields with what Save wrote, whatever they held; returns 1.
class ENGINE_CORE_API CSys_Text : public CFile_IOObject
{
  public:
    CSys_String text;
    CSys_String language; ///< Such as "en"; empty when the text belongs to none.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
