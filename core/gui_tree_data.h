/// One entry of the user interface's tree view.
#pragma once

#include "core/sys_string.h"

/// Load: replaces the text, and the numbers where there are any, with what Save wrote; returns 1.
struct ENGINE_CORE_API SGui_TreeData : public CFile_IOObject
{
    CSys_String text;           ///< What the entry shows.
    std::uint32_t icon = 0;     ///< Position in the view's list of icons.
    std::uint32_t expanded = 0; ///< 1 while the entries below it are shown.

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
