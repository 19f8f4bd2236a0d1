/// The arrays of ASE records, instantiated once; the headers declare and export them.
#include "formats/ase/ase.h"

template class TArray<CFileFormat_AseRecords::CASEMaterial>;
template class TArray<CFileFormat_AseRecords::CASEGeomObject>;
template class TArray<CFileFormat_AseRecords::CASELight>;
template class TArray<CFileFormat_AseRecords::CASEHelper>;
template class TArray<CFileFormat_AseRecords::CASECamera>;
template class TArray<CFileFormat_AseRecords::CASEShapeObject>;
template class TArray<CFileFormat_AseRecords::CASEShapeLine>;
template class TArray<CFileFormat_AseRecords::CASEAnimationNode>;
template class TArray<CFileFormat_AseRecords::CASEAnimationNodeRot>;
template class TArray<CFileFormat_AseRecords::CASEFace>;
template class TArray<CFileFormat_AseRecords::CASETFace>;
template class TArray<CFileFormat_AseRecords::SMeshFaceNormals>;
template class TArray<CFileFormat_AseRecords::SMappingFace>;
template class TPArray<CFileFormat_AseRecords::CASEMaterial>;
template class TPArray<CFileFormat_AseRecords::CASEMaterialMap>;
template class TPArray<CFileFormat_AseRecords::CASEMesh>;
template class TPArray<CFileFormat_AseRecords::CASEMappingChannel>;
template class TPArray<CFileFormat_AseRecords::CASENode>;
template class TPArray<CFileFormat_AseRecords::CASEAnimation>;
template class TPArray<CFileFormat_AseRecords::CASECameraSettings>;
