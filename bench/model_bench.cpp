/// Engine models from ASE scenes: the whole way from a file beside Assimp's, and its steps alone.
#include "bench.h"
#include "formats/modelbuild/model_from_ase.h"
#include "grid_scene.h"

#if defined(HAVE_ASSIMP)
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#endif

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

namespace
{
constexpr std::size_t FacesPerObject = 20'000;
constexpr std::size_t MostFaces = 1'000'000;

/// A grid scene of that size as a file, removed when it is not needed any more.
class CSceneFile
{
  public:
    explicit CSceneFile(std::size_t size)
        : path((std::filesystem::temp_directory_path() / ("asset_bench_" + std::to_string(size) + ".ase")).string())
    {
        const std::string text = MakeGridScene(size, FacesPerObject);
        std::ofstream(path, std::ios::binary) << text;
        bytes = text.size();
    }
    CSceneFile(const CSceneFile&) = delete;
    CSceneFile& operator=(const CSceneFile&) = delete;
    ~CSceneFile()
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }

    std::string path;
    std::size_t bytes = 0;
};

/// The scene of that size; the last one asked for is kept.
const CSceneFile& GetSceneFile(std::size_t size)
{
    static std::size_t madesize = 0;
    static std::optional<CSceneFile> file;
    if (madesize != size)
    {
        file.emplace(size);
        madesize = size;
    }
    return *file;
}

std::size_t CountFaces(const CGraphics_Model& model)
{
    std::size_t faces = 0;
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        faces += geometry->Mesh.Faces.GetNumItems();
    return faces;
}

bool IsWhole(std::size_t faces)
{
    return faces != 0 && faces % FacesPerObject == 0;
}

/// Opens the file, loads the document and builds the model.
void TextToModel(benchmark::State& state, std::size_t bytes)
{
    const CSceneFile& file = GetSceneFile(bytes);
    for (auto _ : state)
    {
        auto document = std::make_unique<CFileFormat_Ase>();
        auto model = std::make_unique<CGraphics_Model>();
        CFile_Parser parser;
        parser.OpenFile(file.path.c_str());
        document->Load(&parser, nullptr);
        CreateModelFromASE(*model, *document, 1.0F);
        state.PauseTiming();
        const bool isright = IsWhole(CountFaces(*model));
        document.reset();
        model.reset();
        state.ResumeTiming();
        if (FailUnless(state, isright, "not every face became one of the model"))
            break;
    }
    CountBytes(state, file.bytes);
}

#if defined(HAVE_ASSIMP)
void ReadWithAssimp(benchmark::State& state, std::size_t bytes)
{
    const CSceneFile& file = GetSceneFile(bytes);
    for (auto _ : state)
    {
        auto importer = std::make_unique<Assimp::Importer>();
        const aiScene* const scene = importer->ReadFile(file.path, 0);
        state.PauseTiming();
        std::size_t faces = 0;
        for (unsigned i = 0; scene != nullptr && i < scene->mNumMeshes; ++i)
            faces += scene->mMeshes[i]->mNumFaces;
        importer.reset();
        state.ResumeTiming();
        if (FailUnless(state, IsWhole(faces), "Assimp did not read every face"))
            break;
    }
    CountBytes(state, file.bytes);
}
#endif

/// A document of that many faces, as grids of `facesperobject`.
void LoadGrids(CFileFormat_Ase& document, std::size_t faces, std::size_t facesperobject)
{
    const std::string text = MakeGridScene(4'000, facesperobject); // past its header, so that it is one object
    for (std::size_t made = 0; made < faces; made += facesperobject)
    {
        CFile_Parser parser;
        parser.Open(text.data(), text.size());
        document.Load(&parser, nullptr);
    }
}

void CountFaceRounds(benchmark::State& state, std::size_t faces)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(faces) * static_cast<std::int64_t>(state.iterations()));
}

/// Building alone, a million faces in objects of so many.
void BuildModel(benchmark::State& state, std::size_t facesperobject)
{
    CFileFormat_Ase document;
    LoadGrids(document, MostFaces, facesperobject);
    std::size_t faces = 0;
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
        faces += object.mesh.faces.GetNumItems();
    for (auto _ : state)
    {
        auto model = std::make_unique<CGraphics_Model>();
        CreateModelFromASE(*model, document, 1.0F);
        state.PauseTiming();
        const bool isright = CountFaces(*model) == faces;
        model.reset();
        state.ResumeTiming();
        if (FailUnless(state, isright, "not every face became one of the model"))
            break;
    }
    CountFaceRounds(state, faces);
}

void CalculateTangents(benchmark::State& state, std::size_t faces)
{
    CFileFormat_Ase document;
    LoadGrids(document, faces, faces);
    CGraphics_Model model;
    CreateModelFromASE(model, document, 1.0F);
    CGraphics_Mesh& mesh = model.Geometries[0]->Mesh;
    for (auto _ : state)
        mesh.CalculateTangentsAndBinormals();
    CountFaceRounds(state, mesh.FaceSpaces.GetNumItems());
}

/// New material indices for a million faces with that many distinct ones up to 4,000,000,000, in no order: an
/// empty scene is built into a model that has them.
void RenumberMaterials(benchmark::State& state, std::size_t distinct)
{
    CFileFormat_Ase document;
    CGraphics_Model model;
    TArray<SGraphics_Face>& list = model.Geometries.Add()->Mesh.Faces;
    list.CreateMultiple(MostFaces);
    for (auto _ : state)
    {
        state.PauseTiming();
        model.MaterialLists.DeleteAll();
        std::uint32_t random = 1;
        for (SGraphics_Face& face : list)
        {
            random = random * 1664525U + 1013904223U;
            face.Material = static_cast<std::uint32_t>((random >> 8) % distinct * (4'000'000'000U / distinct));
        }
        state.ResumeTiming();
        CreateModelFromASE(model, document, 1.0F);
        if (FailUnless(state, model.MaterialLists[0]->Materials.GetNumItems() == distinct, "wrong number of materials"))
            break;
    }
    CountFaceRounds(state, MostFaces);
}

void Register(const std::string& name, std::size_t size, void (*function)(benchmark::State&, std::size_t))
{
    benchmark::RegisterBenchmark(name.c_str(), [function, size](benchmark::State& state) { function(state, size); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}
} // namespace

void RegisterModelBenchmarks()
{
    for (const SBenchSize& size : BenchSizes)
    {
        Register(std::string("Model/from text/") + size.name, size.bytes, TextToModel);
#if defined(HAVE_ASSIMP)
        Register(std::string("Model/from text with Assimp/") + size.name, size.bytes, ReadWithAssimp);
#endif
    }
    for (const std::size_t faces : {FacesPerObject, MostFaces})
    {
        Register("Model/build in objects of " + std::to_string(faces) + " faces", faces, BuildModel);
        Register("Model/tangents of " + std::to_string(faces) + " faces", faces, CalculateTangents);
    }
    for (const std::size_t distinct : {7, 10'000})
        Register("Model/renumber/" + std::to_string(distinct) + " materials", distinct, RenumberMaterials);
}
