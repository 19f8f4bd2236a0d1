/// The arrays of X records, instantiated once; the headers declare and export them.
#include "formats/x/x.h"

template class TArray<CFileFormat_XRecords::CXMesh>;
template class TArray<CFileFormat_XRecords::SMeshPolygon>;
