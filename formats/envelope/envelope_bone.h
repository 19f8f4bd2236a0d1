/// The bones of a skin envelope document.
#pragma once

#include "core/core_templates.h"
#include "core/math_vector3.h"
#include "core/sys_string.h"
#include "formats/envelope/envelope_records.h"

/// The two cross-sections of a bone's envelope: inner and outer radius and the place along the bone, 0 at its
/// start and 1 at its end.
class ASSET_TOOLS_API CFileFormat_EnvelopeRecords::CEnvelopeBoneCrossection
{
  public:
    float inner0 = 0.0F;
    float outer0 = 0.0F;
    float u0 = 0.0F;
    float inner1 = 0.0F;
    float outer1 = 0.0F;
    float u1 = 0.0F;
};

/// One bone with its envelope. Flags and falloff are kept as written and mean nothing here; points are in
/// scene units.
class ASSET_TOOLS_API CFileFormat_EnvelopeRecords::CEnvelopeBone
{
  public:
    using BytesCanMove = CEnvelopeBone;

    CSys_String boneName;
    std::uint32_t boneID = 0; ///< What weights and exclusion lists call the bone. -1 in the text is 0xFFFFFFFF.
    std::int32_t boneFlagLock = 0;
    std::int32_t boneFlagAbsolute = 0;
    std::int32_t boneFlagSpline = 0;
    std::int32_t boneFlagSplineClosed = 0;
    std::int32_t boneFlagDrawEnveloe = 0; ///< Spelled as in the file.
    std::int32_t boneFlagIsOldBone = 0;
    std::int32_t boneFlagDead = 0;
    std::int32_t boneFalloff = 0; ///< The kind of falloff, a whole number.
    CMath_Vector3 boneStartPoint;
    CMath_Vector3 boneEndPoint;
    CEnvelopeBoneCrossection crossSection;
};

/// Two bones that change places. The engine's tools keep lists of them; the envelope document has none.
struct CFileFormat_EnvelopeRecords::SSwitchBones
{
    std::int32_t first = 0;
    std::int32_t second = 0;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_EnvelopeRecords::CEnvelopeBone>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_EnvelopeRecords::SSwitchBones>;
