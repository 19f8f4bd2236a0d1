/// Lights and cameras of an ASE scene.
#pragma once

#include "formats/ase/ase_animation.h"
#include "formats/ase/ase_scene_node.h"

/// One "*LIGHT_SETTINGS" block. Distances in scene units, time in ticks, colour 0 to 1.
/// Load: sets the fields that the text names. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASELightSettings : public CFile_IOObject
{
  public:
    std::int32_t timevalue = 0;
    CMath_Color lightcolor; ///< The first three components are used.
    float intensity = 0.0F;
    float aspect = 0.0F;
    float tdistance = 0.0F;
    float mapbias = 0.0F;
    float maprange = 0.0F;
    float mapsize = 0.0F;
    float raybias = 0.0F;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*LIGHTOBJECT" block.
///
/// Load: sets what the text names; blocks met twice load into the same record again. Always returns 1.
/// Save: writes settings and animation always, the type and shape lines only for those known here.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASELight : public CFile_IOObject
{
  public:
    using BytesCanMove = CASELight;

    static constexpr std::uint32_t Unset = 0xFFFFFFFF;
    static constexpr SKeyword TypeNames[] = {L"Omni"};
    static constexpr SKeyword SpotShapeNames[] = {L"Circle"};

    CSys_String name;           ///< As the text has it, quotes included.
    std::uint32_t type = Unset; ///< Position in TypeNames; Unset until the text names one of them.
    CASENode node;
    std::uint32_t shadows = 0; ///< 0 for "Off", 1 for every other word.
    std::int32_t uselight = 0;
    std::uint32_t spotshape = Unset; ///< Position in SpotShapeNames; Unset until the text names one of them.
    CASELightSettings settings;
    CASEAnimation animation;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

/// One "*CAMERA_SETTINGS" block. Distances in scene units, field of view in radians, time in ticks.
/// Load: sets the fields that the text names. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASECameraSettings : public CFile_IOObject
{
  public:
    std::int32_t timevalue = 0;
    float near = 0.0F;
    float far = 0.0F;
    float fov = 0.0F;
    float targetdistance = 0.0F;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TPArray<CFileFormat_AseRecords::CASECameraSettings>;

/// One "*CAMERAOBJECT" block. A camera with a target has two node transforms: its own, then the target's.
///
/// Owns: every record of its three lists.
/// Load: sets the type anew and appends to the lists. Always returns 1.
class ASSET_TOOLS_API CFileFormat_AseRecords::CASECamera : public CFile_IOObject
{
  public:
    using BytesCanMove = CASECamera;

    enum ECameraType : std::uint32_t
    {
        Unknown = 0,
        Target = 1,
        Free = 2,
    };

    CSys_String name; ///< As the text has it, quotes included.
    std::uint32_t cameratype = Unknown;
    TPArray<CASENode> nodes;
    TPArray<CASECameraSettings> camerasettings;
    TPArray<CASEAnimation> animations;

    Result Load(CFile_Parser* parser, CFile_IOCallback* callback) override;
    Result Save(CFile_Saver* saver) override;
};

extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASELight>;
extern template class ASSET_TOOLS_API TArray<CFileFormat_AseRecords::CASECamera>;
