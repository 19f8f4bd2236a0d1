/// X texts: whatever they say, a mesh holds no more than the text has characters for.
#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return Watch(bytes, size,
                 [=](CInput& input)
                 {
                     CFileFormat_X document;
                     CheckDocument(input, document);
                     Check(document.Meshes.GetNumItems() <= 1);
                     for (const CFileFormat_X::CXMesh& mesh : document.Meshes)
                     {
                         std::size_t entries = mesh.Vertices.GetNumItems() + mesh.Normals.GetNumItems() +
                                               mesh.TextureCoords.GetNumItems() + mesh.Faces.GetNumItems();
                         for (const CFileFormat_X::CXMesh::SXFace& face : mesh.Faces)
                             entries += face.Indices.GetNumItems();
                         Check(entries <= size);
                     }
                 });
}
