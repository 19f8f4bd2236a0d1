/// The fields of an ASE scene, for visitors.
#pragma once

#include "formats/ase/ase.h"
#include "tests/hostile/visitors.h"

using CAse = CFileFormat_AseRecords;

template <class T>
concept CIsFace = requires(T face)
{
    face.c;
};

// Entries of lists: `numbered` is the keyword with the entry's number.

inline void WriteEntry(CTextWriter& writer, const wchar_t* numbered, const wchar_t*, const CMath_Vector3& vector)
{
    writer.Field(numbered, vector);
}

template <CIsFace T>
void WriteEntry(CTextWriter& writer, const wchar_t* numbered, [[maybe_unused]] const wchar_t* keyword, const T& face)
{
    if constexpr (requires { face.mtlid; })
        if (std::wcscmp(keyword, L"*MESH_FACE") == 0)
        {
            writer.saver.Write(0, L"%s: A: %d B: %d C: %d AB: 1 BC: 1 CA: 0 *MESH_SMOOTHING 1 *MESH_MTLID %d", numbered,
                               face.a, face.b, face.c, face.mtlid);
            return;
        }
    writer.saver.Write(0, L"%s %d %d %d", numbered, face.a, face.b, face.c);
}

inline void WriteEntry(CTextWriter& writer, const wchar_t* numbered, const wchar_t*,
                       const CAse::SMeshFaceNormals& normals)
{
    writer.Field(numbered, normals.normal);
    for (const CMath_Vector3& corner : {normals.vnormala, normals.vnormalb, normals.vnormalc})
        writer.Field(L"*MESH_VERTEXNORMAL 0", corner);
}

inline void WriteEntry(CTextWriter& writer, const wchar_t*, const wchar_t* keyword, const CAse::CASEAnimationNode& key)
{
    WriteLine(&writer.saver, L"%s %d %.9g %.9g %.9g", keyword, key.time, key.position);
}

inline void WriteEntry(CTextWriter& writer, const wchar_t*, const wchar_t* keyword,
                       const CAse::CASEAnimationNodeRot& key)
{
    WriteLine(&writer.saver, L"%s %d %.9g %.9g %.9g %.9g", keyword, key.time, key.axis, key.angle);
}

template <class V, CIsFace T> void Visit(V& v, T& face)
{
    v.Fields(L"a", face.a, L"b", face.b, L"c", face.c);
    if constexpr (requires { face.mtlid; })
        v.Field(L"mtlid", face.mtlid);
}

template <class V> void Visit(V& v, CAse::SMeshFaceNormals& normals)
{
    v.Fields(L"normal", normals.normal, L"vnormala", normals.vnormala, L"vnormalb", normals.vnormalb, L"vnormalc",
             normals.vnormalc);
}

template <class V> void Visit(V& v, CAse::CASEAnimationNode& key)
{
    v.Fields(L"time", key.time, L"position", key.position);
}

template <class V> void Visit(V& v, CAse::CASEAnimationNodeRot& key)
{
    v.Fields(L"time", key.time, L"axis", key.axis, L"angle", key.angle);
}

template <class V> void Visit(V& v, CAse::CASEAnimation& animation)
{
    v.Line(L"*NODE_NAME", animation.name);
    v.List(L"*CONTROL_POS_TRACK", L"*CONTROL_POS_SAMPLE", animation.animationpos);
    v.List(L"*CONTROL_ROT_TCB", L"*CONTROL_TCB_ROT_KEY", animation.animationrot);
    v.Promise(animation.animationscale.NumItems == 0, "scale tracks are dropped");
}

template <class V> void Visit(V& v, CAse::CASEMaterialMap& map)
{
    v.Fields(L"*MAP_NAME", map.name, L"*MAP_CLASS", map.class_, L"*MAP_SUBNO", map.subno, L"*MAP_AMOUNT", map.amount,
             L"*MAP_GENERIC", map.generic);
}

template <class V> void Visit(V& v, CAse::CASEMaterial& material)
{
    v.Fields(L"*MATERIAL_NAME", material.name, L"*MATERIAL_CLASS", material.class_, L"*MATERIAL_AMBIENT",
             material.ambient, L"*MATERIAL_DIFFUSE", material.diffuse, L"*MATERIAL_SPECULAR", material.specular,
             L"*MATERIAL_SHINE", material.shine, L"*MATERIAL_SHINESTRENGTH", material.shinestrength,
             L"*MATERIAL_TRANSPARENCY", material.transparency, L"*MATERIAL_WIRESIZE", material.wiresize);
    v.Option(L"*MATERIAL_SHADING", material.shading, {L"Blinn"}, 0U);
    v.Fields(L"*MATERIAL_XP_FALLOFF", material.xp_falloff, L"*MATERIAL_SELFILLUM", material.selfillumination);
    v.Option(L"*MATERIAL_FALLOFF", material.falloff, {L"In"}, 0U);
    v.Option(L"*MATERIAL_XP_TYPE", material.xp_type, {L"Filter", L"Subtractive"}, 0U);
    v.Fields(L"*MAP_DIFFUSE", material.map_diffuse, L"*MAP_SPECULAR", material.map_specular, L"*MAP_SHINE",
             material.map_shine, L"*MAP_SHINESTRENGTH", material.map_shinestrength, L"*MAP_SELFILLUM",
             material.map_selfillum, L"*MAP_OPACITY", material.map_opacity, L"*MAP_FILTERCOLOR",
             material.map_filtercolor, L"*MAP_BUMP", material.map_bump, L"*MAP_REFLECT", material.map_reflect,
             L"*MAP_REFRACT", material.map_refract, L"*MAP_DISPLACEMENT", material.map_displacement, L"*SUBMATERIAL 0",
             material.submaterials);
}

template <class V> void Visit(V& v, CAse::CASEScene& scene)
{
    v.Fields(L"*SCENE_FIRSTFRAME", scene.firstframe, L"*SCENE_LASTFRAME", scene.lastframe, L"*SCENE_FRAMESPEED",
             scene.framespeed, L"*SCENE_TICKSPERFRAME", scene.ticksperframe, L"*SCENE_BACKGROUND_STATIC",
             scene.backgroundstatic, L"*SCENE_AMBIENT_STATIC", scene.ambientstatic, L"*SCENE_ENVMAP", scene.envmap);
}

template <class V> void Visit(V& v, CAse::CASENode& node)
{
    static constexpr const wchar_t* rows[] = {L"*TM_ROW0", L"*TM_ROW1", L"*TM_ROW2", L"*TM_ROW3"};
    v.Fields(L"*NODE_NAME", node.name, L"*INHERIT_POS", node.inheritpos, L"*INHERIT_ROT", node.inheritrot,
             L"*INHERIT_SCL", node.inheritscale);
    for (unsigned i = 0; i < 4; ++i)
    {
        float(&row)[4] = node.matrix.m[i];
        CMath_Vector3 axis(row[0], row[1], row[2]);
        v.Field(rows[i], axis);
        if constexpr (V::Fills)
            std::tie(row[0], row[1], row[2]) = std::tie(axis.x, axis.y, axis.z);
        v.Promise(row[3] == (i == 3 ? 1.0F : 0.0F), "a matrix keeps its last column");
    }
    v.Fields(L"*TM_POS", node.position, L"*TM_ROTAXIS", node.rotationaxis, L"*TM_ROTANGLE", node.rotationangle,
             L"*TM_SCALE", node.scale, L"*TM_SCALEAXIS", node.scaleaxis, L"*TM_SCALEAXISANG", node.scaleangle);
}

template <class V> void Visit(V& v, CAse::CASEMappingChannel& channel)
{
    v.List(L"*MESH_TVERTLIST", L"*MESH_TVERT", channel.tvertices);
    v.List(L"*MESH_TFACELIST", L"*MESH_TFACE", channel.tfaces);
}

template <class V> void Visit(V& v, CAse::CASEMesh& mesh)
{
    v.Field(L"*TIMEVALUE", mesh.timevalue);
    v.List(L"*MESH_VERTEX_LIST", L"*MESH_VERTEX", mesh.vertices);
    v.List(L"*MESH_FACE_LIST", L"*MESH_FACE", mesh.faces);
    v.List(L"*MESH_CVERTLIST", L"*MESH_VERTCOL", mesh.cvertices);
    v.List(L"*MESH_CFACELIST", L"*MESH_CFACE", mesh.cfaces);
    for (CAse::CASEFace& face : mesh.cfaces)
        if constexpr (V::Fills)
            face.mtlid = 0;
        else
            v.Promise(face.mtlid == 0, "a colour face has no material");
    v.List(L"*MESH_TVERTLIST", L"*MESH_TVERT", mesh.tvertices);
    v.List(L"*MESH_TFACELIST", L"*MESH_TFACE", mesh.tfaces);
    v.List(L"*MESH_NORMALS", L"*MESH_FACENORMAL", mesh.facenormals);
    v.Blocks(L"*MESH_MAPPINGCHANNEL 2", mesh.mappingchannels);
}

template <class V> void Visit(V& v, CAse::CASEMeshAnimation& animation)
{
    v.Blocks(L"*MESH", animation.meshes);
}

template <class V> void Visit(V& v, CAse::CASEIKJoint& joint)
{
    v.Option(L"*IK_TYPE", joint.type, {L"Rotation"}, 0);
    v.Fields(L"*IK_DOF", joint.dof, L"*IK_XACTIVE", joint.xactive, L"*IK_YACTIVE", joint.yactive, L"*IK_ZACTIVE",
             joint.zactive, L"*IK_XLIMITED", joint.xlimited, L"*IK_YLIMITED", joint.ylimited, L"*IK_ZLIMITED",
             joint.zlimited, L"*IK_XEASE", joint.xease, L"*IK_YEASE", joint.yease, L"*IK_ZEASE", joint.zease,
             L"*IK_LIMITEXACT", joint.limitexact, L"*IK_JOINTINFO 0", joint.jointinfo[0], L"*IK_JOINTINFO 1",
             joint.jointinfo[1], L"*IK_JOINTINFO 2", joint.jointinfo[2]);
}

template <class V> void Visit(V& v, CAse::CASEGeomObject& object)
{
    v.Fields(L"*NODE_NAME", object.name, L"*NODE_PARENT", object.parent, L"*NODE_TM", object.node, L"*MESH",
             object.mesh, L"*MESH_ANIMATION", object.meshanimation, L"*TM_ANIMATION", object.animation,
             L"*WIREFRAME_COLOR", object.wireframecolor, L"*IK_JOINT", object.ikjoint);
}

template <class V> void Visit(V& v, CAse::CASELightSettings& settings)
{
    v.Fields(L"*TIMEVALUE", settings.timevalue, L"*LIGHT_COLOR", settings.lightcolor, L"*LIGHT_INTENS",
             settings.intensity, L"*LIGHT_ASPECT", settings.aspect, L"*LIGHT_TDIST", settings.tdistance,
             L"*LIGHT_MAPBIAS", settings.mapbias, L"*LIGHT_MAPRANGE", settings.maprange, L"*LIGHT_MAPSIZE",
             settings.mapsize, L"*LIGHT_RAYBIAS", settings.raybias);
}

template <class V> void Visit(V& v, CAse::CASELight& light)
{
    v.Line(L"*NODE_NAME", light.name);
    v.Option(L"*LIGHT_TYPE", light.type, {L"Omni"}, 0xFFFFFFFFU);
    v.Block(L"*NODE_TM", light.node);
    v.Option(L"*LIGHT_SHADOWS", light.shadows, {L"Off", L"Mapped"}, 0U);
    v.Field(L"*LIGHT_USELIGHT", light.uselight);
    v.Option(L"*LIGHT_SPOTSHAPE", light.spotshape, {L"Circle"}, 0xFFFFFFFFU);
    v.Fields(L"*LIGHT_SETTINGS", light.settings, L"*TM_ANIMATION", light.animation);
}

template <class V> void Visit(V& v, CAse::CASECameraSettings& settings)
{
    v.Fields(L"*TIMEVALUE", settings.timevalue, L"*CAMERA_NEAR", settings.near, L"*CAMERA_FAR", settings.far,
             L"*CAMERA_FOV", settings.fov, L"*CAMERA_TDIST", settings.targetdistance);
}

template <class V> void Visit(V& v, CAse::CASECamera& camera)
{
    v.Line(L"*NODE_NAME", camera.name);
    v.Option(L"*CAMERA_TYPE", camera.cameratype, {L"Other", L"Target", L"Free"}, 0U);
    v.Fields(L"*NODE_TM", camera.nodes, L"*CAMERA_SETTINGS", camera.camerasettings, L"*TM_ANIMATION",
             camera.animations);
}

template <class V> void Visit(V& v, CAse::CASEHelper& helper)
{
    v.Fields(L"*NODE_NAME", helper.name, L"*HELPER_CLASS", helper.class_, L"*NODE_TM", helper.node, L"*BOUNDINGBOX_MIN",
             helper.aabbmin, L"*BOUNDINGBOX_MAX", helper.aabbmax);
}

template <class V> void Visit(V& v, CAse::CASEShapeLine& line)
{
    v.Option(L"*SHAPE_CLOSED", line.type, {L""}, 1U);
    v.List(L"", L"*SHAPE_VERTEX_KNOT", line.vertices);
}

template <class V> void Visit(V& v, CAse::CASEShapeObject& shape)
{
    v.Fields(L"*NODE_NAME", shape.name, L"*NODE_PARENT", shape.parent, L"*NODE_TM", shape.node, L"*SHAPE_LINE 0",
             shape.lines, L"*TM_ANIMATION", shape.animation);
}

template <class V> void Visit(V& v, CFileFormat_Ase& scene)
{
    v.Block(L"*SCENE", scene.Scene);
    if constexpr (std::is_same_v<V, CTextWriter>)
    {
        v.Open(L"*MATERIAL_LIST");
        v.Field(L"*MATERIAL_COUNT", scene.Materials.NumItems);
        for (std::uint32_t i = 0; i < scene.Materials.NumItems; ++i)
            v.Block((L"*MATERIAL " + std::to_wstring(i)).c_str(), *scene.Materials[i]);
        v.Close();
    }
    else
        v.Blocks(L"*MATERIAL", scene.Materials);
    v.Fields(L"*GEOMOBJECT", scene.GeomObjects, L"*LIGHTOBJECT", scene.Lights, L"*HELPEROBJECT", scene.Helpers,
             L"*CAMERAOBJECT", scene.Cameras, L"*SHAPEOBJECT", scene.ShapeObjects);
}
