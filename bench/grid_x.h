/// Makes X texts the way real exports look, of any size, for the benchmarks.
#pragma once

#include "grid_text.h"

/// One grid mesh of at least `size` bytes with normals (and their face list), texture coordinates and a
/// material list, laid out as Blender and the 3ds Max exporters do: indented, one entry a line, CR LF.
SGridText MakeGridX(std::size_t size);
