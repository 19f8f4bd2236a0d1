/// Engine models from ASE scenes: the whole way from a file beside Assimp's, and its steps alone.
#include "bench.h"
#include "formats/modelbuild/model_from_ase.h"
#include "grid_scene.h"
#include "temporary_file.h"

#include <fstream>
#include <memory>
#include <optional>
#include <string>

namespace
{
constexpr std::size_t FacesPerObject = 20'000;
constexpr std::size_t MostFaces = 1'000'000;

/// A file with the scene of that size; the last one asked for is kept.
const std::string& GetSceneFile(std::size_t bytes)
{
    static std::size_t madebytes = 0;
    static std::optional<CTemporaryFile> file;
    if (madebytes != bytes)
    {
        file.emplace(".ase");
        std::ofstream(file->path, std::ios::binary) << GetScene(bytes).text;
        madebytes = bytes;
    }
    return file->path;
}

template <class TRoad> void MeasureFile(benchmark::State& state, std::size_t bytes, TRoad road)
{
    const std::string& path = GetSceneFile(bytes);
    MeasureText(state, GetScene(bytes), [&](const std::string&) { return road(path); });
}

void FileToModel(benchmark::State& state, std::size_t bytes)
{
    MeasureFile(state, bytes, BuildFromFile);
}

void TextToModel(benchmark::State& state, std::size_t bytes)
{
    MeasureText(state, GetScene(bytes), BuildFromText);
}

#if defined(HAVE_ASSIMP)
void ReadWithAssimp(benchmark::State& state, std::size_t bytes)
{
    MeasureFile(state, bytes, ImportFile);
}
#endif

/// A document of that many faces, as grids of `facesperobject`.
void LoadGrids(CFileFormat_Ase& document, std::size_t faces, std::size_t facesperobject)
{
    const std::string text = MakeGridScene(4'000, facesperobject).text; // past its header, so that it is one object
    for (std::size_t made = 0; made < faces; made += facesperobject)
        Load(document, text);
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
    const std::size_t faces = CountFaces(document);
    const auto build = [&]
    {
        auto model = std::make_unique<CGraphics_Model>();
        CreateModelFromASE(*model, document, 1.0F);
        return model;
    };
    MeasureRoad(state, faces, build);
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

} // namespace

void RegisterModelBenchmarks()
{
    constexpr SBenchmark benchmarks[] = {
        {"Model/from text", TextToModel},
        {"Model/from file", FileToModel},
#if defined(HAVE_ASSIMP)
        {"Model/from file with Assimp", ReadWithAssimp},
#endif
    };
    RegisterEach(benchmarks);
    for (const std::size_t faces : {FacesPerObject, MostFaces})
    {
        Register("Model/build in objects of " + std::to_string(faces) + " faces", faces, BuildModel);
        Register("Model/tangents of " + std::to_string(faces) + " faces", faces, CalculateTangents);
    }
    for (const std::size_t distinct : {std::size_t{7}, std::size_t{10'000}})
        Register("Model/renumber/" + std::to_string(distinct) + " materials", distinct, RenumberMaterials);
}
