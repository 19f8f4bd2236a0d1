/// The arrays of envelope records, instantiated once; the headers declare and export them.
#include "formats/envelope/envelope.h"

template class TArray<CFileFormat_EnvelopeRecords::CEnvelopeBone>;
template class TArray<CFileFormat_EnvelopeRecords::SSwitchBones>;
template class TArray<CFileFormat_EnvelopeRecords::CEnvelopeVertexData>;
template class TArray<CFileFormat_EnvelopeRecords::CEnvelopeVertexExclusionList>;
