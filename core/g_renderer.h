/// The user interface's renderer, as far as trees hold parts of it.
#pragma once

#include "core/sys_string.h"

template <class T> class TTreeGui; // containers/tree.h

class CG_Renderer
{
  public:
    class CControlLayout;
    template <class T> using TTreeGui = ::TTreeGui<T>;
};

/// Where a control of the user interface stands and which look it has.
/// Load: replaces the look's name, and the numbers where there are any, with what Save wrote; returns 1.
class ENGINE_CORE_API CG_Renderer::CControlLayout : public CFile_IOObject
{
  public:
    CSys_String look;  ///< Name of the look that draws it.
    float left = 0.0F; ///< All four in shares of the screen, from its upper left corner.
    float top = 0.0F;
    float width = 0.0F;
    float height = 0.0F;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};
