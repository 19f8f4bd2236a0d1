/// What a broken or hostile text, and the lack of memory, do to an ASE scene: never a crash, never a leak.
#include "formats/ase/ase.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
/// Levels of sub-maps beneath the first material's diffuse map.
std::size_t CountLevels(CFileFormat_Ase& document)
{
    std::size_t levels = 0;
    CFileFormat_Ase::CASEMaterialMap* map = &document.Materials[0]->map_diffuse;
    for (; map->generic.GetNumItems() != 0; map = map->generic[0])
        ++levels;
    return levels;
}

std::string NestMaps(std::size_t levels)
{
    return "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MAP_DIFFUSE {\n" + Repeat("*MAP_GENERIC {\n", levels) +
           Repeat("}\n", levels + 1) + "*MATERIAL_NAME \"behind\"\n}\n}\n*GEOMOBJECT {\n}\n";
}
} // namespace

TEST(AseHostile, NestsAThousandLevelsAndPassesOverTheRest)
{
    CLogWatch log(2);
    for (const auto& [levels, loaded] : {std::pair{1000U, 1000U}, {1001U, 1000U}, {100'000U, 1000U}})
    {
        auto document = LoadNew<CFileFormat_Ase>(NestMaps(levels));
        EXPECT_EQ(CountLevels(document), loaded);
        EXPECT_STREQ(document.Materials[0]->name.Get(), L"\"behind\"") << "reading goes on behind them";
        EXPECT_EQ(document.GeomObjects.GetNumItems(), 1U);
        CFileFormat_Ase copy(document);
        EXPECT_EQ(CountLevels(copy), loaded);
    }
    EXPECT_EQ(log.GetText(), "text(1005): blocks nested deeper than 1000 levels are passed over\n"
                             "text(1005): blocks nested deeper than 1000 levels are passed over\n");
    CFileFormat_Ase submaterials;
    LoadText(submaterials,
             "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n" + Repeat("*SUBMATERIAL 0 {\n", 50'000));
    EXPECT_EQ(submaterials.Materials[0]->submaterials.GetNumItems(), 1U);
}

TEST(AseHostile, LyingCountsCostNothing)
{
    CLogWatch log(2);
    auto document = LoadNew<CFileFormat_Ase>("*MATERIAL_LIST {\n*MATERIAL_COUNT 2147483647\n}\n");
    EXPECT_EQ(document.Materials.GetNumItems(), 65536U);
    EXPECT_EQ(log.GetText(), "text(2): 2147483647 materials are more than the text can hold, 65536 are made\n");
    EXPECT_LE(sizeof(CFileFormat_Ase::CASEMaterial), 1000U) << "65,536 of them must stay below 64 MB";
    LoadText(document, Repeat("*MATERIAL_LIST {\n*MATERIAL_COUNT 2\n*MATERIAL_COUNT 40000\n}\n", 2));
    EXPECT_EQ(document.Materials.GetNumItems(), 25532U) << "each count makes the list anew, so their sum is held down";
    LoadText(document, "*GEOMOBJECT {\n*MESH {\n*MESH_NUMVERTEX 4294967295\n*MESH_NUMFACES 4294967295\n}\n}\n");
    EXPECT_EQ(document.GeomObjects[0]->mesh.vertices.Capacity, 0U);
}

TEST(AseHostile, KeepsNamesThatLookLikeSomethingElse)
{
    auto document = LoadNew<CFileFormat_Ase>(
        "*GEOMOBJECT {\n*NODE_NAME \"%s%n {\"\n*NODE_PARENT \"*MESH {\" {\n}\n*NODE_NAME \"// # }\"\n}\n"
        "*GEOMOBJECT {\n*NODE_NAME\n*NODE_PARENT *NODE_NAME x\n}\n");
    ASSERT_EQ(document.GeomObjects.GetNumItems(), 2U);
    EXPECT_STREQ(document.GeomObjects[0]->name.Get(), L"\"// # }\"");
    EXPECT_STREQ(document.GeomObjects[0]->parent.Get(), L"\"*MESH {\" {");
    EXPECT_STREQ(document.GeomObjects[1]->name.Get(), L"");
    EXPECT_STREQ(document.GeomObjects[1]->parent.Get(), L"*NODE_NAME x");
}

TEST(AseHostile, WithoutMemoryTheRestIsStillRead)
{
    // The first object's place cannot be had: its lines are ignored, the later objects are there.
    constexpr std::string_view text = "*GEOMOBJECT {\n*NODE_NAME a\n}\n*GEOMOBJECT {\n*NODE_NAME b\n}\n"
                                      "*MATERIAL_LIST {\n*MATERIAL_COUNT 3\n*MATERIAL 0 {\n}\n}\n*LIGHTOBJECT {\n}\n";
    CFileFormat_Ase document;
    LoadWithout(document, text, 0);
    ASSERT_EQ(document.GeomObjects.GetNumItems(), 1U);
    EXPECT_STREQ(document.GeomObjects[0]->name.Get(), L"b");
    EXPECT_EQ(document.Materials.GetNumItems(), 3U);
    EXPECT_EQ(document.Lights.GetNumItems(), 1U);
}
