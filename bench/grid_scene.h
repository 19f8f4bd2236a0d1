/// Makes texts the way real exports look, of any size, for the benchmarks.
#pragma once

#include "grid_text.h"

/// An ASE scene of at least `size` bytes as 3ds Max lays one out: tabs, CR LF, padded numbers. It holds
/// grids of about `facesperobject` triangles with texture coordinates, normals and material ids.
SGridText MakeGridScene(std::size_t size, std::size_t facesperobject = 20'000);
