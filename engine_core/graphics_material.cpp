#include "core/graphics_material.h"

CGraphics_Material::~CGraphics_Material() = default;

template class TResourceHandle<CGraphics_Material>;
template class TResourceHandleR<CGraphics_Material>;
