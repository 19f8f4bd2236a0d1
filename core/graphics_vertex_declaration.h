/// How the bytes of a vertex are laid out.
#pragma once

#include "core/graphics_resource.h"

class ENGINE_CORE_API CGraphics_VertexDeclaration : public CGraphics_Resource
{
  public:
    ~CGraphics_VertexDeclaration() override;
};
