#include "core/graphics_model.h"
#include "tests/support/documents.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace
{
using CMappingChannel = CGraphics_Mesh::CMappingChannel;

/// Floats that only survive when they are written whole.
CMath_Vector3 MakeVector(int number)
{
    static constexpr float awkward[] = {0.1F,
                                        -0.0F,
                                        1.0F / 3.0F,
                                        std::numeric_limits<float>::denorm_min(),
                                        std::numeric_limits<float>::max(),
                                        -std::numeric_limits<float>::infinity(),
                                        16777217.0F,
                                        1.00000012F};
    const auto pick = [&](int i) { return awkward[static_cast<unsigned>(number + i) % std::size(awkward)]; };
    return {pick(0), pick(3) * static_cast<float>(number + 1), pick(5)};
}

void AddChannel(TPArray<CMappingChannel>& channels, int number)
{
    CMappingChannel& channel = *channels.Add();
    *channel.Coordinates.Add() = MakeVector(number);
    *channel.Coordinates.Add() = MakeVector(number + 1);
    *channel.Faces.Add() = {0, 1, 0xFFFFFFFF};
}

/// A model with something in every field.
void FillModel(CGraphics_Model& model)
{
    for (int i = 0; i < 2; ++i)
    {
        CGraphics_Mesh& mesh = model.Geometries.Add()->Mesh;
        for (int k = 0; k < 3 + i; ++k)
        {
            *mesh.Vertices.Add() = MakeVector(k);
            *mesh.TextureVertices.Add() = MakeVector(k + 4);
        }
        *mesh.Faces.Add() = {0, 1, 0xFFFFFFFF, 4000000000U};
        *mesh.TextureFaces.Add() = {2, 1, 0, 7};
        CGraphics_FaceSpace& space = *mesh.FaceSpaces.Add();
        space.FaceNormal = MakeVector(1);
        space.NormalA = MakeVector(2);
        space.TangentB = MakeVector(3);
        space.BinormalC = MakeVector(4);
        AddChannel(mesh.MappingChannels, i);
        AddChannel(mesh.MappingChannels, i + 2);
        AddChannel(mesh.ColourChannels, i + 3);
    }
    CGraphics_Model::CMaterialList& list = *model.MaterialLists.Add();
    model.MaterialLists.Add();
    for (const wchar_t* name : {L"unknown", L"", L" \"blanks\", {braces}\nand a line end \\ "})
        list.Materials.Add()->Name = name;
    *model.Points.Add() = MakeVector(5);
    *model.Axes.Add() = {MakeVector(6), MakeVector(7)};
}

template <class T> void ExpectSameBits(const TArray<T>& one, const TArray<T>& other)
{
    ASSERT_EQ(one.NumItems, other.NumItems);
    EXPECT_EQ(std::memcmp(one.Items, other.Items, one.NumItems * sizeof(T)), 0);
}

void ExpectSame(const TPArray<CMappingChannel>& one, const TPArray<CMappingChannel>& other)
{
    ASSERT_EQ(one.NumItems, other.NumItems);
    for (unsigned i = 0; i < one.NumItems; ++i)
    {
        ExpectSameBits(one[i]->Coordinates, other[i]->Coordinates);
        ExpectSameBits(one[i]->Faces, other[i]->Faces);
    }
}

void ExpectSame(const CGraphics_Model& one, const CGraphics_Model& other)
{
    ASSERT_EQ(one.Geometries.NumItems, other.Geometries.NumItems);
    for (unsigned i = 0; i < one.Geometries.NumItems; ++i)
    {
        const CGraphics_Mesh& mesh = one.Geometries[i]->Mesh;
        const CGraphics_Mesh& othermesh = other.Geometries[i]->Mesh;
        ExpectSameBits(mesh.Vertices, othermesh.Vertices);
        ExpectSameBits(mesh.Faces, othermesh.Faces);
        ExpectSameBits(mesh.TextureVertices, othermesh.TextureVertices);
        ExpectSameBits(mesh.TextureFaces, othermesh.TextureFaces);
        ExpectSameBits(mesh.FaceSpaces, othermesh.FaceSpaces);
        ExpectSame(mesh.MappingChannels, othermesh.MappingChannels);
        ExpectSame(mesh.ColourChannels, othermesh.ColourChannels);
    }
    ASSERT_EQ(one.MaterialLists.NumItems, other.MaterialLists.NumItems);
    for (unsigned i = 0; i < one.MaterialLists.NumItems; ++i)
    {
        const auto& materials = one.MaterialLists[i]->Materials;
        ASSERT_EQ(materials.NumItems, other.MaterialLists[i]->Materials.NumItems);
        for (unsigned k = 0; k < materials.NumItems; ++k)
            EXPECT_EQ(materials[k]->Name, other.MaterialLists[i]->Materials[k]->Name);
    }
    ExpectSameBits(one.Points, other.Points);
    ExpectSameBits(one.Axes, other.Axes);
}
} // namespace

TEST(GraphicsModel, ReadsBackToTheSameBits)
{
    CGraphics_Model model;
    FillModel(model);
    const std::string text = SaveText(model);
    CGraphics_Model loaded;
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    EXPECT_EQ(loaded.CreateFromParser(&parser, 0), 1);
    ExpectSame(model, loaded);
    LoadText(loaded, text); // in place of what was there
    ExpectSame(model, loaded);
    EXPECT_EQ(SaveText(loaded), text);
}

TEST(GraphicsModel, NotANumberStaysOne)
{
    CGraphics_Model model;
    *model.Points.Add() = {1, std::numeric_limits<float>::quiet_NaN(), -2};
    CGraphics_Model loaded;
    LoadText(loaded, SaveText(model));
    ASSERT_EQ(loaded.Points.NumItems, 1U);
    EXPECT_TRUE(std::isnan(loaded.Points[0]->y));
    EXPECT_EQ(loaded.Points[0]->z, -2.0F);
}

TEST(GraphicsModel, SavesInTheEngineTextBlockForm)
{
    CGraphics_Model model;
    EXPECT_EQ(SaveText(model), "{\n}\n");
    CGraphics_Mesh& mesh = model.Geometries.Add()->Mesh;
    *mesh.Vertices.Add() = {1, 0.1F, -2};
    *mesh.Faces.Add() = {0, 1, 2, 3};
    model.MaterialLists.Add()->Materials.Add()->Name = L"unknown";
    *model.Axes.Add() = {{1, 2, 3}, {0, -1, 0}};
    EXPECT_EQ(SaveText(model), "{\n"
                               "\taddgeometry:\n"
                               "\t{\n"
                               "\t\tmesh:\n"
                               "\t\t{\n"
                               "\t\t\taddvertex: 1 0.100000001 -2\n"
                               "\t\t\taddface: 0 1 2 3\n"
                               "\t\t}\n"
                               "\t}\n"
                               "\taddmateriallist:\n"
                               "\t{\n"
                               "\t\taddmaterial:\n"
                               "\t\t{\n"
                               "\t\t\tname: \"unknown\"\n"
                               "\t\t}\n"
                               "\t}\n"
                               "\taddaxis: 1 2 3 0 -1 0\n"
                               "}\n");
}

TEST(GraphicsModel, UnknownLinesAndBlocksArePassedOver)
{
    CGraphics_Model model;
    LoadText(model, "{\nversion: 2\naddlight:\n{\naddpoint: 1 1 1\n}\naddpoint: 4 5\naddgeometry:\n{\nmesh:\n{\n"
                    "cornera: 1 2 3 4 5 6 7 8 9\naddvertex: 7 8 9\nbones:\n{\naddvertex: 0 0 0\n}\n}\n}\n}\n");
    ASSERT_EQ(model.Points.NumItems, 1U);
    EXPECT_EQ(*model.Points[0], CMath_Vector3(4, 5, 0));
    ASSERT_EQ(model.Geometries.NumItems, 1U);
    EXPECT_EQ(model.Geometries[0]->Mesh.Vertices.NumItems, 1U);
    EXPECT_EQ(model.Geometries[0]->Mesh.FaceSpaces.NumItems, 0U);
}

TEST(GraphicsModel, TextMayEndAnywhere)
{
    CGraphics_Model model;
    FillModel(model);
    const std::string text = SaveText(model);
    for (std::size_t size = 0; size < text.size(); ++size)
    {
        const auto cut = std::make_unique<char[]>(size);
        std::memcpy(cut.get(), text.data(), size);
        CGraphics_Model loaded;
        EXPECT_EQ(LoadText(loaded, {cut.get(), size}), 1);
        EXPECT_LE(loaded.Geometries.NumItems, 2U);
    }
}

TEST(GraphicsModel, CopyHoldsTheSameMaterials)
{
    CRegistryWatch watch;
    TResourceHandle<CGraphics_Material> handle;
    {
        CGraphics_Model model;
        FillModel(model);
        TResourceHandleR<CGraphics_Material>& reference = model.MaterialLists[0]->Materials[1]->Material;
        reference.handle = &handle;
        handle.AddRef();
        const CGraphics_Model copy(model);
        ExpectSame(copy, model);
        EXPECT_EQ(handle.refCount, 2U);
    }
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_TRUE(watch.IsBalanced());
}
