#include "formats/ase/ase.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
/// The names of the materials, joined by blanks.
std::wstring GetMaterialNames(const CFileFormat_Ase& document)
{
    std::wstring names;
    for (const CFileFormat_Ase::CASEMaterial& material : document.Materials)
        names.append(material.name.Get()).append(L" ");
    return names;
}
} // namespace

TEST(Ase, SavesTheSampleAsExpected)
{
    EXPECT_EQ(SaveText(LoadNew<CFileFormat_Ase>(ReadSample("scene.ase"))), ReadSample("expected/scene.txt"));
}

TEST(Ase, EmptySavesItsSceneOnly)
{
    auto document = LoadNew<CFileFormat_Ase>("");
    const std::string text = SaveText(document);
    EXPECT_TRUE(text.starts_with("{\n\taddscene:\n\t{\n\t\tfirstframe: 0\n\t\t"));
    EXPECT_EQ(text.find("add", 5), std::string::npos);
}

TEST(Ase, LoadsOntoWhatItHolds)
{
    CFileFormat_Ase document;
    const std::string sample = ReadSample("scene.ase");
    LoadText(document, sample);
    LoadText(document, "*SCENE {\n*SCENE_LASTFRAME 7\n}\n*GEOMOBJECT {\n*NODE_NAME \"Crate\"\n}\n");
    EXPECT_EQ(document.Scene.framespeed, 30);
    EXPECT_EQ(document.Scene.lastframe, 7);
    EXPECT_EQ(document.GeomObjects.GetNumItems(), 3U);
    EXPECT_EQ(document.GetNamedGeomObject(L"\"Crate\""), document.GeomObjects[0]) << "the first of two";
    EXPECT_EQ(document.GetNamedGeomObjectIndex(L"Crate"), 0xFFFFFFFFUL) << "quotes belong to the name";
    EXPECT_EQ(document.GetNamedGeomObject(L"Crate"), nullptr);
    EXPECT_EQ(document.Destroy(), 1);
    EXPECT_EQ(document.Scene.lastframe, 7);
    EXPECT_EQ(document.GeomObjects.GetNumItems() + document.Materials.GetNumItems() + document.Lights.GetNumItems() +
                  document.Helpers.GetNumItems() + document.Cameras.GetNumItems() + document.ShapeObjects.GetNumItems(),
              0U);
    LoadText(document, sample);
    EXPECT_EQ(document.GeomObjects.GetNumItems(), 2U);
}

TEST(Ase, ReadsMaterialListsAsTheyCount)
{
    struct SListCase
    {
        const char* name;
        const char* text;
        const wchar_t* names;
    };
    static const SListCase cases[] = {
        {"in any order", "*MATERIAL_COUNT 2\n*MATERIAL 1 {\n*MATERIAL_NAME b\n}\n*MATERIAL 0 {\n*MATERIAL_NAME a\n}\n",
         L"a b "},
        {"a second count replaces", "*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_NAME a\n}\n*MATERIAL_COUNT 2\n",
         L"  "},
        {"no count, no materials", "*MATERIAL 0 {\n*MATERIAL_NAME a\n}\n", L""},
        {"a count of nothing", "*MATERIAL_COUNT 1\n*MATERIAL_COUNT x\n*MATERIAL_COUNT 0\n*MATERIAL_COUNT -3\n", L" "},
        {"past the count ends the list",
         "*MATERIAL_COUNT 2\n*MATERIAL 7 {\n*MATERIAL_NAME x\n}\n*MATERIAL 0 {\n*MATERIAL_NAME a\n}\n", L"  "},
        {"a negative number is past it", "*MATERIAL_COUNT 1\n*MATERIAL -1 {\n*MATERIAL_NAME a\n}\n", L" "},
        {"no number is the first", "*MATERIAL_COUNT 1\n*MATERIAL {\n*MATERIAL_NAME a\n}\n", L"a "},
    };
    for (const SListCase& row : cases)
    {
        auto document =
            LoadNew<CFileFormat_Ase>(std::string("*MATERIAL_LIST {\n") + row.text + "}\n*GEOMOBJECT {\n}\n");
        EXPECT_EQ(GetMaterialNames(document), row.names) << row.name;
        EXPECT_EQ(document.GeomObjects.GetNumItems(), 1U) << row.name;
    }
}

TEST(Ase, FindsObjectsWhereBracesAreMissing)
{
    CFileFormat_Ase document;
    LoadText(document,
             "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MAP_DIFFUSE {\n*MAP_GENERIC {\n"
             "*GEOMOBJECT {\n*NODE_NAME a\n*MESH {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 1 2 3\n"
             "*LIGHTOBJECT {\n*NODE_NAME b\n}\n*HELPEROBJECT {\n*UNKNOWN {\n*CAMERAOBJECT {\n}\n*SHAPEOBJECT {\n}\n");
    EXPECT_EQ(document.GeomObjects.GetNumItems(), 1U);
    EXPECT_EQ(document.GeomObjects[0]->mesh.vertices.GetNumItems(), 1U);
    EXPECT_EQ(document.Lights.GetNumItems(), 1U);
    EXPECT_STREQ(document.Lights[0]->name.Get(), L"b");
    EXPECT_EQ(document.Helpers.GetNumItems(), 1U);
    EXPECT_EQ(document.Cameras.GetNumItems(), 1U);
    EXPECT_EQ(document.ShapeObjects.GetNumItems(), 1U);
}

TEST(Ase, VisitsEveryNameInOrder)
{
    CFileFormat_Ase document;
    LoadText(document,
             "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_NAME m\n*MATERIAL_CLASS mc\n}\n}\n"
             "*GEOMOBJECT {\n*NODE_NAME g\n*NODE_PARENT gp\n*NODE_TM {\n*NODE_NAME gn\n}\n*TM_ANIMATION {\n"
             "*NODE_NAME ga\n}\n}\n"
             "*LIGHTOBJECT {\n*NODE_NAME l\n*NODE_TM {\n*NODE_NAME ln\n}\n*TM_ANIMATION {\n*NODE_NAME la\n}\n}\n"
             "*HELPEROBJECT {\n*NODE_NAME h\n*HELPER_CLASS hc\n*NODE_TM {\n*NODE_NAME hn\n}\n}\n"
             "*CAMERAOBJECT {\n*NODE_NAME c\n*NODE_TM {\n*NODE_NAME cn1\n}\n*NODE_TM {\n*NODE_NAME cn2\n}\n"
             "*TM_ANIMATION {\n*NODE_NAME ca\n}\n}\n"
             "*SHAPEOBJECT {\n*NODE_NAME s\n*NODE_PARENT sp\n*NODE_TM {\n*NODE_NAME sn\n}\n*TM_ANIMATION {\n"
             "*NODE_NAME sa\n}\n}\n");
    const auto visit = [](CSys_String& text, unsigned long kind, void* reserved, void* user) -> Result
    {
        EXPECT_EQ(reserved, nullptr);
        auto& seen = *static_cast<std::wstring*>(user);
        seen.append(text.Get()).append(kind == 0 ? L" " : kind == 0xFFFFFFFF ? L"! " : L"? ");
        text.Write(L"new %s", text.Get());
        return 0; // not looked at
    };
    std::wstring seen;
    EXPECT_EQ(document.ParseNodeNames(visit, &seen), 1);
    EXPECT_EQ(seen, L"m mc! g gp gn ga l ln la h hc! hn c cn1 cn2 ca s sp sn sa ");
    EXPECT_STREQ(document.ShapeObjects[0]->animation.name.Get(), L"new sa");
    EXPECT_EQ(document.ParseNodeNames(nullptr, &seen), 0);
}
