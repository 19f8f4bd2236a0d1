#include "tools/ase_json.h"

// Declared first, so that records find each other whatever their order.
void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMaterialMap& map);
void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMaterial& material);

void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMaterialMap& map)
{
    json.Field("name", map.name);
    json.Field("class", map.class_);
    json.Field("subno", map.subno);
    json.Field("amount", map.amount);
    json.Field("generic", map.generic);
}

void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMaterial& material)
{
    json.Field("name", material.name);
    json.Field("class", material.class_);
    json.Field("ambient", material.ambient);
    json.Field("diffuse", material.diffuse);
    json.Field("specular", material.specular);
    json.Field("shine", material.shine);
    json.Field("shinestrength", material.shinestrength);
    json.Field("transparency", material.transparency);
    json.Field("wiresize", material.wiresize);
    json.Field("shading", material.shading);
    json.Field("xp_falloff", material.xp_falloff);
    json.Field("selfillumination", material.selfillumination);
    json.Field("falloff", material.falloff);
    json.Field("xp_type", material.xp_type);
    json.Field("map_diffuse", material.map_diffuse);
    json.Field("map_specular", material.map_specular);
    json.Field("map_shine", material.map_shine);
    json.Field("map_shinestrength", material.map_shinestrength);
    json.Field("map_selfillum", material.map_selfillum);
    json.Field("map_opacity", material.map_opacity);
    json.Field("map_filtercolor", material.map_filtercolor);
    json.Field("map_bump", material.map_bump);
    json.Field("map_reflect", material.map_reflect);
    json.Field("map_refract", material.map_refract);
    json.Field("map_displacement", material.map_displacement);
    json.Field("submaterials", material.submaterials);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEScene& scene)
{
    json.Field("firstframe", scene.firstframe);
    json.Field("lastframe", scene.lastframe);
    json.Field("framespeed", scene.framespeed);
    json.Field("ticksperframe", scene.ticksperframe);
    json.Field("backgroundstatic", scene.backgroundstatic);
    json.Field("ambientstatic", scene.ambientstatic);
    json.Field("envmap", scene.envmap);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASENode& node)
{
    json.Field("name", node.name);
    json.Field("inheritpos", node.inheritpos);
    json.Field("inheritrot", node.inheritrot);
    json.Field("inheritscale", node.inheritscale);
    json.Field("matrix", node.matrix);
    json.Field("position", node.position);
    json.Field("rotationaxis", node.rotationaxis);
    json.Field("rotationangle", node.rotationangle);
    json.Field("scale", node.scale);
    json.Field("scaleaxis", node.scaleaxis);
    json.Field("scaleangle", node.scaleangle);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEFace& face)
{
    json.Field("a", face.a);
    json.Field("b", face.b);
    json.Field("c", face.c);
    json.Field("mtlid", face.mtlid);
}

template <class TFace> static void WriteCorners(CJsonWriter& json, const TFace& face)
{
    json.Field("a", face.a);
    json.Field("b", face.b);
    json.Field("c", face.c);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASETFace& face)
{
    WriteCorners(json, face);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMappingChannel::SFace& face)
{
    WriteCorners(json, face);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMesh::SFaceNormals& normals)
{
    json.Field("normal", normals.normal);
    json.Field("vnormala", normals.vnormala);
    json.Field("vnormalb", normals.vnormalb);
    json.Field("vnormalc", normals.vnormalc);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMappingChannel& channel)
{
    json.Field("tvertices", channel.tvertices);
    json.Field("tfaces", channel.tfaces);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMesh& mesh)
{
    json.Field("timevalue", mesh.timevalue);
    json.Field("vertices", mesh.vertices);
    json.Field("faces", mesh.faces);
    json.Field("tvertices", mesh.tvertices);
    json.Field("tfaces", mesh.tfaces);
    json.Field("facenormals", mesh.facenormals);
    json.Field("mappingchannels", mesh.mappingchannels);
    json.Field("cvertices", mesh.cvertices);
    json.Field("cfaces", mesh.cfaces);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEAnimationNode& key)
{
    json.Field("time", key.time);
    json.Field("position", key.position);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEAnimationNodeRot& key)
{
    json.Field("time", key.time);
    json.Field("axis", key.axis);
    json.Field("angle", key.angle);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEAnimation& animation)
{
    json.Field("name", animation.name);
    json.Field("animationpos", animation.animationpos);
    json.Field("animationrot", animation.animationrot);
    json.Field("animationscale", animation.animationscale);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEIKJoint& joint)
{
    json.Field("type", joint.type);
    json.Field("dof", joint.dof);
    json.Field("xactive", joint.xactive);
    json.Field("yactive", joint.yactive);
    json.Field("zactive", joint.zactive);
    json.Field("xlimited", joint.xlimited);
    json.Field("ylimited", joint.ylimited);
    json.Field("zlimited", joint.zlimited);
    json.Field("xease", joint.xease);
    json.Field("yease", joint.yease);
    json.Field("zease", joint.zease);
    json.Field("limitexact", joint.limitexact);
    json.ArrayField("jointinfo", joint.jointinfo[0], joint.jointinfo[1], joint.jointinfo[2]);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEMeshAnimation& animation)
{
    json.Field("meshes", animation.meshes);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEGeomObject& object)
{
    json.Field("name", object.name);
    json.Field("parent", object.parent);
    json.Field("node", object.node);
    json.Field("mesh", object.mesh);
    json.Field("animation", object.animation);
    json.Field("wireframecolor", object.wireframecolor);
    json.Field("ikjoint", object.ikjoint);
    json.Field("meshanimation", object.meshanimation);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASELightSettings& settings)
{
    json.Field("timevalue", settings.timevalue);
    json.Field("lightcolor", settings.lightcolor);
    json.Field("intensity", settings.intensity);
    json.Field("aspect", settings.aspect);
    json.Field("tdistance", settings.tdistance);
    json.Field("mapbias", settings.mapbias);
    json.Field("maprange", settings.maprange);
    json.Field("mapsize", settings.mapsize);
    json.Field("raybias", settings.raybias);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASELight& light)
{
    json.Field("name", light.name);
    json.Field("type", light.type);
    json.Field("node", light.node);
    json.Field("shadows", light.shadows);
    json.Field("uselight", light.uselight);
    json.Field("spotshape", light.spotshape);
    json.Field("settings", light.settings);
    json.Field("animation", light.animation);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASECameraSettings& settings)
{
    json.Field("timevalue", settings.timevalue);
    json.Field("near", settings.near);
    json.Field("far", settings.far);
    json.Field("fov", settings.fov);
    json.Field("targetdistance", settings.targetdistance);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASECamera& camera)
{
    json.Field("name", camera.name);
    json.Field("cameratype", camera.cameratype);
    json.Field("nodes", camera.nodes);
    json.Field("camerasettings", camera.camerasettings);
    json.Field("animations", camera.animations);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEHelper& helper)
{
    json.Field("name", helper.name);
    json.Field("class", helper.class_);
    json.Field("node", helper.node);
    json.Field("aabbmin", helper.aabbmin);
    json.Field("aabbmax", helper.aabbmax);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEShapeLine& line)
{
    json.Field("type", line.type);
    json.Field("vertices", line.vertices);
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Ase::CASEShapeObject& shape)
{
    json.Field("name", shape.name);
    json.Field("parent", shape.parent);
    json.Field("node", shape.node);
    json.Field("lines", shape.lines);
    json.Field("animation", shape.animation);
}

void WriteFields(CJsonWriter& json, const CFileFormat_Ase& document)
{
    json.Field("Scene", document.Scene);
    json.Field("Materials", document.Materials);
    json.Field("GeomObjects", document.GeomObjects);
    json.Field("Lights", document.Lights);
    json.Field("Helpers", document.Helpers);
    json.Field("Cameras", document.Cameras);
    json.Field("ShapeObjects", document.ShapeObjects);
}
