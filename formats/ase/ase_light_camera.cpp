#include "formats/ase/ase_light_camera.h"

#include "core/block_writer.h"

#include <iterator>

Result CFileFormat_AseRecords::CASELightSettings::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*TIMEVALUE", timevalue);
        block.Read(L"*LIGHT_COLOR", lightcolor);
        block.Read(L"*LIGHT_INTENS", intensity);
        block.Read(L"*LIGHT_ASPECT", aspect);
        block.Read(L"*LIGHT_TDIST", tdistance);
        block.Read(L"*LIGHT_MAPBIAS", mapbias);
        block.Read(L"*LIGHT_MAPRANGE", maprange);
        block.Read(L"*LIGHT_MAPSIZE", mapsize);
        block.Read(L"*LIGHT_RAYBIAS", raybias);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASELightSettings::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"timevalue: %d", timevalue);
    block.Write(L"lightcolor: %f %f %f", lightcolor);
    block.Write(L"intensity: %f", intensity);
    block.Write(L"aspect: %f", aspect);
    block.Write(L"tdistance: %f", tdistance);
    block.Write(L"mapbias: %f", mapbias);
    block.Write(L"maprange: %f", maprange);
    block.Write(L"mapsize: %f", mapsize);
    block.Write(L"raybias: %f", raybias);
    return 1;
}

Result CFileFormat_AseRecords::CASELight::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        block.ReadOption(L"*LIGHT_TYPE", type, TypeNames);
        if (block.Is(L"*NODE_TM"))
            block.Load(node);
        if (block.Strip(L"*LIGHT_SHADOWS"))
            shadows = block.Is(L"Off") ? 0 : 1;
        block.Read(L"*LIGHT_USELIGHT", uselight);
        block.ReadOption(L"*LIGHT_SPOTSHAPE", spotshape, SpotShapeNames);
        if (block.Is(L"*LIGHT_SETTINGS"))
            block.Load(settings);
        if (block.Is(L"*TM_ANIMATION"))
            block.Load(animation);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASELight::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    if (type == 0)
        block.Write(L"type: omni");
    block.Save(L"addnode:", node);
    block.Write(L"shadows: %d", shadows);
    block.Write(L"uselight: %d", uselight);
    if (spotshape == 0)
        block.Write(L"spottype: circle");
    block.Save(L"addlightsettings:", settings);
    block.Save(L"addanimation:", animation);
    return 1;
}

Result CFileFormat_AseRecords::CASECameraSettings::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*TIMEVALUE", timevalue);
        block.Read(L"*CAMERA_NEAR", near);
        block.Read(L"*CAMERA_FAR", far);
        block.Read(L"*CAMERA_FOV", fov);
        block.Read(L"*CAMERA_TDIST", targetdistance);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASECameraSettings::Save(CFile_Saver* saver)
{
    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"timevalue: %d", timevalue);
    block.Write(L"near: %f", near);
    block.Write(L"far: %f", far);
    block.Write(L"fov: %f", fov);
    block.Write(L"targetdistance: %f", targetdistance);
    return 1;
}

Result CFileFormat_AseRecords::CASECamera::Load(CFile_Parser* parser, CFile_IOCallback* callback)
{
    cameratype = Unknown;
    CAseBlockReader block(parser, callback);
    while (block.NextLine())
    {
        block.Read(L"*NODE_NAME", name);
        if (block.Strip(L"*CAMERA_TYPE"))
        {
            if (CompareStrings(block.GetRest(), L"Target") == 1)
                cameratype = Target;
            if (CompareStrings(block.GetRest(), L"Free") == 1)
                cameratype = Free;
        }
        if (block.Is(L"*NODE_TM"))
            block.LoadNew(nodes);
        if (block.Is(L"*CAMERA_SETTINGS"))
            block.LoadNew(camerasettings);
        if (block.Is(L"*TM_ANIMATION"))
            block.LoadNew(animations);
    }
    return 1;
}

Result CFileFormat_AseRecords::CASECamera::Save(CFile_Saver* saver)
{
    static constexpr SLineFormat typelines[] = {L"cameratype: unknown", L"cameratype: target", L"cameratype: free"};

    CBlockWriter block(saver);
    if (!block.IsOpen())
        return 0;
    block.Write(L"name: %s", name);
    block.SaveEach(L"addnode:", nodes);
    if (cameratype < std::size(typelines))
        block.Write(typelines[cameratype]);
    block.SaveEach(L"addcamerasettings:", camerasettings);
    block.SaveEach(L"addanimation:", animations);
    return 1;
}
