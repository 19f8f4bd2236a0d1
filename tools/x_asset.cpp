/// X meshes for asset_tool.
#include "formats/x/x.h"
#include "tools/asset.h"
#include "tools/describe.h"
#include "tools/describe_points.h"

#include <string>

static void WriteFields(CJsonWriter& json, const CFileFormat_X::CXMesh& mesh)
{
    json.Field("Vertices", mesh.Vertices);
    json.Field("Normals", mesh.Normals);
    json.Field("TextureCoords", mesh.TextureCoords);
    json.Key("Faces");
    json.StartArray();
    for (const CFileFormat_X::CXMesh::SXFace& face : mesh.Faces)
        json.Value(face.Indices);
    json.EndArray();
}

static void WriteFields(CJsonWriter& json, const CFileFormat_X& document)
{
    json.Field("Meshes", document.Meshes);
}

namespace
{
using CMesh = CFileFormat_X::CXMesh;

void CheckMesh(const CMesh& mesh, CSuspicions& suspicions)
{
    const std::string where = "the mesh";
    for (const CMesh::SXFace& face : mesh.Faces)
    {
        if (face.Indices.GetNumItems() < 3)
            suspicions.Add(where, "a face has fewer than three corners");
        for (const int corner : face.Indices)
            if (!IsInside(corner, mesh.Vertices.GetNumItems()))
            {
                suspicions.Add(where, "a face names a vertex that is not there");
                break;
            }
    }
    for (const CMath_Vector3& vertex : mesh.Vertices)
        if (!IsFinite(vertex))
            suspicions.Add(where, "a vertex is not finite");
    const unsigned long coords = mesh.TextureCoords.GetNumItems();
    if (coords != 0 && coords != mesh.Vertices.GetNumItems())
        suspicions.Add(where, "there are not as many texture coordinates as vertices");
    if (mesh.Vertices.GetNumItems() == 0)
        suspicions.Add(where, "there are no vertices");
    if (mesh.Faces.GetNumItems() == 0)
        suspicions.Add(where, "there are no faces");
}

void PrintMesh(std::ostream& out, const CMesh& mesh)
{
    unsigned long corners = 0;
    unsigned long triangles = 0;
    for (const CMesh::SXFace& face : mesh.Faces)
    {
        corners += face.Indices.GetNumItems();
        triangles += face.Indices.GetNumItems() == 3 ? 1 : 0;
    }
    out << "  " << mesh.Vertices.GetNumItems() << (mesh.Vertices.GetNumItems() == 1 ? " vertex" : " vertices") << ", "
        << Count(mesh.Faces.GetNumItems(), "face") << " (" << Count(triangles, "triangle") << ", "
        << Count(corners, "corner") << " in all), " << Count(mesh.Normals.GetNumItems(), "normal") << ", "
        << Count(mesh.TextureCoords.GetNumItems(), "texture coordinate");
    PrintBounds(out, mesh.Vertices);
    out << '\n';
}

class CXAsset : public TDocumentAsset<CFileFormat_X>
{
  public:
    void Describe(std::ostream& out) const override
    {
        CSuspicions suspicions;
        const unsigned long meshes = document.Meshes.GetNumItems();
        out << meshes << (meshes == 1 ? " mesh (the first of the text is read)" : " meshes") << '\n';
        for (const CMesh& mesh : document.Meshes)
        {
            PrintMesh(out, mesh);
            CheckMesh(mesh, suspicions);
        }
        if (meshes == 0)
            suspicions.Add("the text", "no line of it begins a mesh");
        suspicions.Print(out);
    }

    void WriteJson(CJsonWriter& json) const override
    {
        json.Value(document);
    }
};

constexpr std::string_view Endings[] = {".x"};

bool Recognises(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {L"xof", L"template", L"Frame", L"Mesh"};
    return HasLineWithWord(parser, mostlines, words);
}

/// The file's first words, "xof 0303txt 0032", say in which form the rest is.
const char* ExplainRefusal(CFile_Parser& parser)
{
    char header[12] = {};
    parser.Reset();
    parser.Read(header, sizeof(header));
    parser.Reset();
    const std::string_view text(header, sizeof(header));
    const std::string_view form = text.substr(8);
    if (text.substr(0, 4) != "xof ")
        return nullptr;
    if (form == "bin ")
        return "it is a binary X file, and only text X files are read";
    if (form == "tzip" || form == "bzip")
        return "it is a compressed X file, and only text X files are read";
    return nullptr;
}
} // namespace

const SAssetFormat XAssetFormat = {"x",
                                   "an X mesh",
                                   Endings,
                                   Recognises,
                                   []() -> std::unique_ptr<CAsset> { return std::make_unique<CXAsset>(); },
                                   ExplainRefusal};
