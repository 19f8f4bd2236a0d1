/// Transform animation of an ASE scene: keys of position and rotation.
#pragma once

#include "core/core_templates.h"
#include "formats/ase/ase_records.h"

/// One position key. Time in the scene's ticks, position in scene units, both as written.
/// Load: reads lines to the block's end and takes nothing from them; the animation fills keys itself.
/// Save: writes one line, no block. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEAnimationNode : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEAnimationNode;

    std::int32_t time = 0;
    CMath_Vector3 position;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Takes the numbers behind a key's keyword.
    void Scan(CBlockReader& block);
};

/// One rotation key: an angle in radians about an axis, as written: not added up, not normalised.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEAnimationNodeRot : public CFile_IOObject
{
  public:
    using BytesCanMove = CASEAnimationNodeRot;

    std::int32_t time = 0;
    CMath_Vector3 axis;
    float angle = 0.0F;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;

    /// Takes the numbers behind a key's keyword.
    void Scan(CBlockReader& block);
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEAnimationNode>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASEAnimationNodeRot>;

/// One "*TM_ANIMATION" block. Samples and TCB keys go to the same lists in the order met; every other
/// track is passed over.
///
/// Load: replaces the name, appends the keys. Always returns 1.
/// Save: leaves the headings of empty lists out.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASEAnimation : public CFile_IOObject
{
  public:
    CSys_String name; ///< As the text has it, quotes included.
    TArray<CASEAnimationNode> animationpos;
    TArray<CASEAnimationNodeRot> animationrot;
    TArray<CASEAnimationNode> animationscale; ///< Never filled: scale tracks are dropped.

    /// Whether there is no key of any kind.
    bool IsEmpty() const;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASEAnimation>;
