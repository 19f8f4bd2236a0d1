/// A picture that surfaces are covered with.
#pragma once

#include "core/graphics_resource.h"

class ENGINE_CORE_API CGraphics_Texture : public CGraphics_Resource
{
  public:
    ~CGraphics_Texture() override;
};
