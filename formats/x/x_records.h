/// The kinds of record that an X document is made of.
#pragma once

#include "core/core_base.h"

/// Declares the records of CFileFormat_X, which inherits them: callers write CFileFormat_X::CXMesh. They are
/// declared here so that each is whole before another holds it by value.
class ASSET_TOOLS_API CFileFormat_XRecords
{
  public:
    class CXMesh;        // x_mesh.h
    struct SMeshPolygon; // x_mesh.h, known as CXMesh::SXFace
};
