/// The material of the engine's graphics: how a surface looks.
#pragma once

#include "core/graphics_resource.h"
#include "core/resource_handle.h"

/// A material resource. Models refer to it through handles and never look inside.
class ENGINE_CORE_API CGraphics_Material : public CGraphics_Resource
{
  public:
    ~CGraphics_Material() override;
};

extern template class ENGINE_CORE_API TResourceHandle<CGraphics_Material>;
extern template class ENGINE_CORE_API TResourceHandleR<CGraphics_Material>;
