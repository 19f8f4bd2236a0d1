/// ASE scenes for asset_tool.
#include "formats/ase/ase.h"
#include "formats/modelbuild/model_from_ase.h"
#include "tools/ase_json.h"
#include "tools/asset.h"
#include "tools/describe.h"
#include "tools/describe_points.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace
{
using CMesh = CFileFormat_Ase::CASEMesh;

template <class TFaces>
void CheckCorners(const std::string& where, const char* what, const TFaces& faces, unsigned long count,
                  CSuspicions& suspicions)
{
    for (const auto& face : faces)
        if (!IsInside(face.a, count) || !IsInside(face.b, count) || !IsInside(face.c, count))
            suspicions.Add(where, what);
}

void CheckMesh(const std::string& where, const CMesh& mesh, CSuspicions& suspicions)
{
    CheckCorners(where, "a face names a vertex that is not there", mesh.faces, mesh.vertices.GetNumItems(), suspicions);
    CheckCorners(where, "a texture face names a texture vertex that is not there", mesh.tfaces,
                 mesh.tvertices.GetNumItems(), suspicions);
    CheckCorners(where, "a colour face names a colour that is not there", mesh.cfaces, mesh.cvertices.GetNumItems(),
                 suspicions);
    for (const CFileFormat_Ase::CASEMappingChannel* channel : mesh.mappingchannels)
        CheckCorners(where, "a face of a mapping channel names a coordinate that is not there", channel->tfaces,
                     channel->tvertices.GetNumItems(), suspicions);
    for (const CMath_Vector3& vertex : mesh.vertices)
        if (!IsFinite(vertex))
            suspicions.Add(where, "a vertex is not finite");
    const unsigned long faces = mesh.faces.GetNumItems();
    if (mesh.facenormals.GetNumItems() != 0 && mesh.facenormals.GetNumItems() != faces)
        suspicions.Add(where, "there are not as many normals as faces");
    if (mesh.tfaces.GetNumItems() != 0 && mesh.tfaces.GetNumItems() != faces)
        suspicions.Add(where, "there are not as many texture faces as faces");
    if (mesh.vertices.GetNumItems() == 0)
        suspicions.Add(where, "the mesh has no vertices");
}

std::string CountKeys(const CFileFormat_Ase::CASEAnimation& animation)
{
    return Count(animation.animationpos.GetNumItems(), "position key") + ", " +
           Count(animation.animationrot.GetNumItems(), "rotation key");
}

void PrintObject(std::ostream& out, const CFileFormat_Ase::CASEGeomObject& object, CSuspicions& suspicions)
{
    const CMesh& mesh = object.mesh;
    const std::string name = Name(object.name);
    out << "  " << name << ": ";
    if (mesh.vertices.GetNumItems() == 1)
        out << "1 vertex";
    else
        out << mesh.vertices.GetNumItems() << " vertices";
    out << ", " << Count(mesh.faces.GetNumItems(), "face");
    if (mesh.tvertices.GetNumItems() != 0)
        out << ", " << Count(mesh.tvertices.GetNumItems(), "texture coordinate");
    if (mesh.mappingchannels.GetNumItems() != 0)
        out << ", " << Count(mesh.mappingchannels.GetNumItems(), "mapping channel");
    if (mesh.cvertices.GetNumItems() != 0)
        out << ", " << Count(mesh.cvertices.GetNumItems(), "vertex colour");
    if (!object.animation.IsEmpty())
        out << ", " << CountKeys(object.animation);
    if (object.meshanimation.meshes.GetNumItems() != 0)
        out << ", " << Count(object.meshanimation.meshes.GetNumItems(), "mesh frame");
    PrintBounds(out, mesh.vertices);
    if (!object.parent.IsEmpty())
        out << ", child of " << Name(object.parent);
    out << '\n';
    CheckMesh(name, mesh, suspicions);
    for (const CMesh* frame : object.meshanimation.meshes)
        CheckMesh(name + ", mesh frame at " + std::to_string(frame->timevalue), *frame, suspicions);
}

/// One line for each record of a list.
template <class TRecord, class TPrint>
void PrintEach(std::ostream& out, const TArray<TRecord>& records, const char* noun, TPrint print)
{
    if (records.GetNumItems() != 0)
        out << Count(records.GetNumItems(), noun) << '\n';
    for (const TRecord& record : records)
    {
        out << "  " << Name(record.name) << ": ";
        print(record);
        out << '\n';
    }
}

class CAseAsset : public TDocumentAsset<CFileFormat_Ase>
{
  public:
    Result BuildModel(CGraphics_Model& model, float scale) override
    {
        return CreateModelFromASE(model, document, scale);
    }

    void Describe(std::ostream& out) const override
    {
        CSuspicions suspicions;
        const CFileFormat_Ase::CASEScene& scene = document.Scene;
        out << "frames " << scene.firstframe << " to " << scene.lastframe << ", " << scene.framespeed << " a second, "
            << scene.ticksperframe << " ticks each\n";
        PrintEach(out, document.Materials, "material",
                  [&](const CFileFormat_Ase::CASEMaterial& material)
                  {
                      out << Name(material.class_);
                      if (material.submaterials.GetNumItems() != 0)
                          out << ", " << Count(material.submaterials.GetNumItems(), "sub-material");
                  });
        out << Count(document.GeomObjects.GetNumItems(), "geometry object") << '\n';
        std::map<std::string, unsigned> names;
        for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
        {
            PrintObject(out, object, suspicions);
            if (++names[Name(object.name)] == 2)
                suspicions.Add(Name(object.name), "several geometry objects have this name");
        }
        PrintEach(out, document.Lights, "light",
                  [&](const CFileFormat_Ase::CASELight& light)
                  { out << "intensity " << light.settings.intensity << " at " << light.node.position; });
        PrintEach(out, document.Cameras, "camera",
                  [&](const CFileFormat_Ase::CASECamera& camera)
                  {
                      static constexpr const char* types[] = {"unknown type", "target", "free"};
                      out << types[std::min<std::uint32_t>(camera.cameratype, 2)] << ", "
                          << Count(camera.nodes.GetNumItems(), "node");
                  });
        PrintEach(out, document.Helpers, "helper",
                  [&](const CFileFormat_Ase::CASEHelper& helper)
                  { out << Name(helper.class_) << " at " << helper.node.position; });
        PrintEach(out, document.ShapeObjects, "shape",
                  [&](const CFileFormat_Ase::CASEShapeObject& shape)
                  { out << Count(shape.lines.GetNumItems(), "line"); });
        suspicions.Print(out);
    }

    void WriteJson(CJsonWriter& json) const override
    {
        json.Value(document);
    }
};

constexpr std::string_view Endings[] = {".ase"};

bool Recognises(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {
        L"*3DSMAX_ASCIIEXPORT", L"*COMMENT",      L"*SCENE",        L"*MATERIAL_LIST", L"*GEOMOBJECT",
        L"*LIGHTOBJECT",        L"*HELPEROBJECT", L"*CAMERAOBJECT", L"*SHAPEOBJECT",   L"*GROUP"};
    return HasLineWithWord(parser, mostlines, words);
}
} // namespace

const SAssetFormat AseAssetFormat = {"ase", "an ASE scene", Endings, Recognises,
                                     []() -> std::unique_ptr<CAsset> { return std::make_unique<CAseAsset>(); }};
