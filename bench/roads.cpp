#include "roads.h"

#include "core/file_saver.h"
#include "formats/modelbuild/model_from_ase.h"

#if defined(HAVE_ASSIMP)
#include <assimp/scene.h>
#endif

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

SBuiltModel BuildFromText(const std::string& text)
{
    SBuiltModel built;
    Load(*built.document, text);
    CreateModelFromASE(*built.model, *built.document, 1.0F);
    return built;
}

SBuiltModel BuildFromFile(const std::string& path)
{
    SBuiltModel built;
    CFile_Parser parser;
    parser.OpenFile(path.c_str());
    built.document->Load(&parser, nullptr);
    CreateModelFromASE(*built.model, *built.document, 1.0F);
    return built;
}

#if defined(HAVE_ASSIMP)
std::unique_ptr<Assimp::Importer> ImportText(const std::string& text, const char* extension)
{
    auto importer = std::make_unique<Assimp::Importer>();
    importer->ReadFileFromMemory(text.data(), text.size(), 0, extension);
    return importer;
}

std::unique_ptr<Assimp::Importer> ImportFile(const std::string& path)
{
    auto importer = std::make_unique<Assimp::Importer>();
    importer->ReadFile(path, 0);
    return importer;
}

std::size_t CountFaces(const Assimp::Importer& importer)
{
    const aiScene* const scene = importer.GetScene();
    std::size_t faces = 0;
    for (unsigned i = 0; scene != nullptr && i < scene->mNumMeshes; ++i)
        faces += scene->mMeshes[i]->mNumFaces;
    return faces;
}
#endif

std::size_t WidenLines(const std::string& text)
{
    wchar_t line[512];
    std::size_t lines = 0;
    for (const char *at = text.data(), *const end = at + text.size(); at < end; ++lines)
    {
        const auto* const newline = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        const char* const last = newline == nullptr ? end : newline;
        for (wchar_t* to = line; at < last; ++at, ++to)
            *to = static_cast<unsigned char>(*at);
        Keep(line);
        at = last + 1;
    }
    return lines;
}

namespace
{
Result Discard(const char* bytes, std::size_t size, void* context)
{
    Keep(bytes);
    *static_cast<std::size_t*>(context) += size;
    return 1;
}

/// Hands `line` the label and the numbers of every line of the document's meshes.
template <class TLine> void ForEachLine(const CFileFormat_Ase& document, TLine line)
{
    const auto vector = [&](std::string_view label, const CMath_Vector3& v) { line(label, v.x, v.y, v.z); };
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
    {
        for (const CMath_Vector3& vertex : object.mesh.vertices)
            vector("\t\t\taddvertex:", vertex);
        for (const CFileFormat_Ase::CASEFace& face : object.mesh.faces)
            line("\t\t\taddface:", face.a, face.b, face.c, face.mtlid);
        for (const CMath_Vector3& vertex : object.mesh.tvertices)
            vector("\t\t\taddtvertex:", vertex);
        for (const CFileFormat_Ase::CASETFace& face : object.mesh.tfaces)
            line("\t\t\taddtface:", face.a, face.b, face.c);
        for (const CFileFormat_Ase::CASEMesh::SFaceNormals& normals : object.mesh.facenormals)
        {
            vector("\t\t\taddfacenormal:", normals.normal);
            vector("\t\t\taddfacevnormala:", normals.vnormala);
            vector("\t\t\taddfacevnormalb:", normals.vnormalb);
            vector("\t\t\taddfacevnormalc:", normals.vnormalc);
        }
    }
}

char* WriteNumber(char* at, char* end, float number)
{
    return std::to_chars(at, end, number, std::chars_format::fixed, 6).ptr;
}

char* WriteNumber(char* at, char* end, std::int32_t number)
{
    return std::to_chars(at, end, number).ptr;
}
} // namespace

std::size_t SaveText(CFileFormat_Ase& document)
{
    std::size_t written = 0;
    CFile_Saver saver;
    saver.OpenSink(Discard, &written);
    document.Save(&saver);
    saver.Close();
    return written;
}

std::size_t WriteWithToChars(const CFileFormat_Ase& document)
{
    std::size_t written = 0;
    char line[256];
    ForEachLine(document,
                [&](std::string_view label, auto... numbers)
                {
                    char* at = std::copy(label.begin(), label.end(), line);
                    ((*at = ' ', at = WriteNumber(at + 1, line + sizeof(line), numbers)), ...);
                    *at++ = '\n';
                    Keep(line);
                    written += static_cast<std::size_t>(at - line);
                });
    return written;
}

std::size_t CountFaces(const CFileFormat_Ase& document)
{
    std::size_t faces = 0;
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
    {
        const CFileFormat_Ase::CASEMesh& mesh = object.mesh;
        const std::size_t count = mesh.faces.GetNumItems();
        if (mesh.tfaces.GetNumItems() != count || mesh.facenormals.GetNumItems() != count)
            return 0;
        faces += count;
    }
    return faces;
}

std::size_t CountFaces(const CFileFormat_X& document)
{
    if (document.Meshes.GetNumItems() != 1)
        return 0;
    const CFileFormat_X::CXMesh& mesh = *document.Meshes[0];
    const unsigned long vertices = mesh.Vertices.GetNumItems();
    const unsigned long faces = mesh.Faces.GetNumItems();
    if (vertices == 0 || faces == 0 || mesh.Normals.GetNumItems() != vertices ||
        mesh.TextureCoords.GetNumItems() != vertices)
        return 0;
    const TArray<int>& last = mesh.Faces[faces - 1]->Indices;
    const bool iswhole = last.GetNumItems() >= 3 && *last[2] < static_cast<int>(vertices) &&
                         mesh.Vertices[vertices - 1]->x == mesh.Vertices[vertices - 1]->y;
    return iswhole ? faces : 0;
}

std::size_t CountFaces(const CGraphics_Model& model)
{
    std::size_t faces = 0;
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        faces += geometry->Mesh.Faces.GetNumItems();
    return faces;
}
