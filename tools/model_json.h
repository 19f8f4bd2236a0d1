/// An engine model as JSON.
#pragma once

#include "core/graphics_model.h"
#include "tools/json_writer.h"

/// Writes everything but the tangents and binormals.
void WriteFields(CJsonWriter& json, const CGraphics_Model& model);
