/// A font: the shapes of letters.
#pragma once

#include "core/graphics_resource.h"

class ENGINE_CORE_API CGraphics_Font : public CGraphics_Resource
{
  public:
    ~CGraphics_Font() override;
};
