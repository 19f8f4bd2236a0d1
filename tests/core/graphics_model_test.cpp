#include "core/graphics_model.h"
#include "tests/support/documents.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(GraphicsModel, IsReplacedByWhatItReads)
{
    CGraphics_Model model;
    model.MaterialLists.Add();
    const std::string text = "{\n\taddgeometry:\n\t{\n\t\tmesh:\n\t\t{\n\t\t}\n\t}\n\taddpoint: 1 2 3\n}\n";
    for (int i = 0; i < 2; ++i)
    {
        CFile_Parser parser;
        parser.Open(text.data(), text.size());
        EXPECT_EQ(model.CreateFromParser(&parser, 0), 1);
        EXPECT_EQ(SaveText(model), text);
    }
}

TEST(GraphicsModel, NotANumberStaysOne)
{
    CGraphics_Model model;
    *model.Points.Add() = {1, std::numeric_limits<float>::quiet_NaN(), -2};
    auto loaded = LoadNew<CGraphics_Model>(SaveText(model));
    ASSERT_EQ(loaded.Points.NumItems, 1U);
    EXPECT_TRUE(std::isnan(loaded.Points[0]->y));
    EXPECT_EQ(loaded.Points[0]->z, -2.0F);
}

TEST(GraphicsModel, UnknownLinesAndBlocksArePassedOver)
{
    auto model = LoadNew<CGraphics_Model>(
        "{\nversion: 2\naddlight:\n{\naddpoint: 1 1 1\n}\naddpoint: 4 5\naddgeometry:\n{\nmesh:\n{\n"
        "cornera: 1 2 3 4 5 6 7 8 9\naddvertex: 7 8 9\nbones:\n{\naddvertex: 0 0 0\n}\n}\n}\n}\n");
    ASSERT_EQ(model.Points.NumItems, 1U);
    EXPECT_EQ(*model.Points[0], CMath_Vector3(4, 5, 0));
    ASSERT_EQ(model.Geometries.NumItems, 1U);
    EXPECT_EQ(model.Geometries[0]->Mesh.Vertices.NumItems, 1U);
    EXPECT_EQ(model.Geometries[0]->Mesh.FaceSpaces.NumItems, 0U);
}

TEST(GraphicsModel, CopyHoldsTheSameMaterials)
{
    CRegistryWatch watch;
    TResourceHandle<CGraphics_Material> handle;
    {
        CGraphics_Model model;
        TResourceHandleR<CGraphics_Material>& reference = model.MaterialLists.Add()->Materials.Add()->Material;
        reference.handle = &handle;
        handle.AddRef();
        const CGraphics_Model copy(model);
        EXPECT_EQ(copy.MaterialLists[0]->Materials[0]->Material.handle, &handle);
        EXPECT_EQ(handle.refCount, 2U);
    }
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_TRUE(watch.IsBalanced());
}
