/// The kinds of record that a skin envelope document is made of.
#pragma once

#include "core/core_base.h"

/// Declares the records of CFileFormat_Envelope, which inherits them: callers write
/// CFileFormat_Envelope::CEnvelopeBone. They are declared here so that each is whole before another holds it.
class ASSET_TOOLS_API CFileFormat_EnvelopeRecords
{
  public:
    class CEnvelopeBone;                // envelope_bone.h
    class CEnvelopeBoneCrossection;     // envelope_bone.h
    struct SSwitchBones;                // envelope_bone.h
    struct CEnvelopeVertexData;         // envelope_vertex.h
    class CEnvelopeVertexExclusionList; // envelope_vertex.h
};
