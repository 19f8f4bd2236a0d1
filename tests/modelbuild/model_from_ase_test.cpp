#include "formats/modelbuild/model_from_ase.h"
#include "tests/support/documents.h"
#include "tests/support/vectors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

using testing::ElementsAre;

namespace
{
using CVectors = std::initializer_list<CMath_Vector3>;

void Append(TArray<CMath_Vector3>& list, CVectors vectors)
{
    for (const CMath_Vector3& vector : vectors)
        *list.Add() = vector;
}

template <class TFace> void AppendFace(TArray<TFace>& faces, int a, int b, int c)
{
    TFace& face = *faces.Add();
    face.a = a;
    face.b = b;
    face.c = c;
}

void AppendFace(TArray<CFileFormat_Ase::CASEFace>& faces, int a, int b, int c, int mtlid)
{
    AppendFace(faces, a, b, c);
    faces.GetLast()->mtlid = mtlid;
}

/// A triangle with texture and normals. `texture` is where its three texture vertices lie.
void FillMesh(CFileFormat_Ase::CASEMesh& mesh, CVectors texture = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}})
{
    Append(mesh.vertices, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0.5F}});
    AppendFace(mesh.faces, 0, 1, 2, 5);
    Append(mesh.tvertices, texture);
    AppendFace(mesh.tfaces, 0, 1, 2);
    *mesh.facenormals.Add() = {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}};
}

struct SHelper
{
    const wchar_t* class_;
    CMath_Vector3 position;
    CMath_Vector3 row2;
};

void AddHelper(CFileFormat_Ase& document, const SHelper& helper)
{
    CFileFormat_Ase::CASEHelper& added = *document.Helpers.Add();
    added.class_ = helper.class_;
    added.node.position = helper.position;
    const float row[] = {helper.row2.x, helper.row2.y, helper.row2.z};
    std::copy_n(row, 3, added.node.matrix.m[2]);
}

std::vector<CMath_Vector3> ToVector(const TArray<CMath_Vector3>& list)
{
    return {list.begin(), list.end()};
}

class ModelFromAse : public testing::Test
{
  protected:
    const CGraphics_Mesh& Build(float scale = 1.0F)
    {
        EXPECT_EQ(CreateModelFromASE(model, document, scale), 1);
        return model.Geometries[0]->Mesh;
    }

    CFileFormat_Ase::CASEGeomObject& AddObject()
    {
        return *document.GeomObjects.Add();
    }

    CFileFormat_Ase document;
    CGraphics_Model model;
};
} // namespace

TEST_F(ModelFromAse, EmptySceneGivesOneMaterial)
{
    CLogWatch log(1);
    EXPECT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
    EXPECT_EQ(SaveText(model), "{\n\taddmateriallist:\n\t{\n\t\taddmaterial:\n\t\t{\n\t\t\tname: \"unknown\"\n\t\t}\n"
                               "\t}\n}\n");
    EXPECT_EQ(log.GetText(), "");
}

TEST_F(ModelFromAse, ObjectWithoutKeysStaysWhereItIs)
{
    CFileFormat_Ase::CASEGeomObject& object = AddObject();
    object.node.position = {7, 7, 7};
    object.node.rotationaxis = {0, 0, 1};
    object.node.rotationangle = 1;
    Append(object.mesh.vertices, {{1, 2, 3}});
    EXPECT_THAT(ToVector(Build(2).Vertices), ElementsAre(CMath_Vector3(2, 6, 4)));
}

/// The exporter's own numbers: its angles run clockwise, so a quarter turn about z carries x to -y and y to x.
/// The local point (1, 2, 3) then stands at (2, -1, 3) and with the position at (12, 19, 33).
TEST_F(ModelFromAse, ObjectWithKeysIsMovedBackToItsOwnSpace)
{
    enum EKeys
    {
        Position,
        Rotation,
        Scale,
    };
    for (const EKeys keys : {Position, Rotation, Scale})
    {
        CFileFormat_Ase::CASEGeomObject& object = AddObject();
        object.node.position = {10, 20, 30};
        object.node.rotationaxis = {0, 0, 1};
        object.node.rotationangle = 1.57079633F;
        Append(object.mesh.vertices, {{12, 19, 33}});
        if (keys == Rotation)
            object.animation.animationrot.Add();
        else
            (keys == Position ? object.animation.animationpos : object.animation.animationscale).Add();
    }
    Build(2);
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        EXPECT_THAT(*geometry->Mesh.Vertices[0], IsNear(CMath_Vector3(2, 6, 4), 1e-5F));
}

TEST_F(ModelFromAse, AxisOfAnyDirectionIsUndone)
{
    // A third of a turn clockwise about the diagonal carries x to z, z to y and y to x: (1, 2, 3) to (2, 3, 1).
    CFileFormat_Ase::CASEGeomObject& object = AddObject();
    object.node.rotationaxis = {0.5773503F, 0.5773503F, 0.5773503F};
    object.node.rotationangle = 2.09439510F;
    object.animation.animationrot.Add();
    Append(object.mesh.vertices, {{2, 3, 1}});
    EXPECT_THAT(*Build().Vertices[0], IsNear(CMath_Vector3(1, 3, 2), 1e-5F));
}

TEST_F(ModelFromAse, FacesAndTextureAreTakenOverWithVTurned)
{
    CFileFormat_Ase::CASEMesh& mesh = AddObject().mesh;
    AppendFace(mesh.faces, 2, -1, 7, 5);
    AppendFace(mesh.faces, 1, 0, 2, 9);
    Append(mesh.tvertices, {{0.25F, 0.75F, 0}, {2, -1, 3}});
    AppendFace(mesh.tfaces, 1, 0, -2);
    const CGraphics_Mesh& built = Build(100);
    EXPECT_EQ(std::tie(built.Faces[0]->A, built.Faces[0]->B, built.Faces[0]->C, built.Faces[0]->Material),
              std::make_tuple(2U, 0xFFFFFFFFU, 7U, 0U));
    EXPECT_EQ(built.Faces[1]->Material, 1U);
    EXPECT_THAT(ToVector(built.TextureVertices), ElementsAre(CMath_Vector3(0.25F, 0.25F, 0), CMath_Vector3(2, 2, 3)));
    EXPECT_EQ(std::tie(built.TextureFaces[0]->A, built.TextureFaces[0]->B, built.TextureFaces[0]->C,
                       built.TextureFaces[0]->Material),
              std::make_tuple(1U, 0U, 0xFFFFFFFEU, 0U));
    EXPECT_EQ(model.MaterialLists[0]->Materials.NumItems, 2U);
    for (const CGraphics_Model::SMaterial* material : model.MaterialLists[0]->Materials)
    {
        EXPECT_EQ(material->Name, CSys_String(L"unknown"));
        EXPECT_EQ(material->Material.handle, nullptr);
    }
}

TEST_F(ModelFromAse, ColoursNeedBothVerticesAndFaces)
{
    Append(AddObject().mesh.cvertices, {{1, 1, 1}});
    AppendFace(AddObject().mesh.cfaces, 0, 0, 0);
    Build();
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        EXPECT_EQ(geometry->Mesh.ColourChannels.NumItems, 0U);
}

TEST_F(ModelFromAse, NormalsOnlyChangeTheFrame)
{
    CFileFormat_Ase::CASEGeomObject& object = AddObject();
    object.node.rotationaxis = {0, 0, 1};
    object.node.rotationangle = 1;
    object.animation.animationrot.Add();
    *object.mesh.facenormals.Add() = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {0, 0, 0.5F}};
    const CGraphics_FaceSpace& space = *Build(100).FaceSpaces[0];
    EXPECT_EQ(space.FaceNormal, CMath_Vector3(1, 3, 2));
    EXPECT_EQ(space.NormalA, CMath_Vector3(4, 6, 5));
    EXPECT_EQ(space.NormalB, CMath_Vector3(7, 9, 8));
    EXPECT_EQ(space.NormalC, CMath_Vector3(0, 0.5F, 0));
    EXPECT_NEAR(std::hypot(space.TangentC.x, space.TangentC.y, space.TangentC.z), 1, 1e-6);
}

/// Scene: the triangle lies nearly flat, u runs along x and v along y. In the model y has become z, V points
/// down and so to -z, and the frame is right-handed about the normal, which has become y.
TEST_F(ModelFromAse, TangentsFollowTheTurnedTexture)
{
    FillMesh(AddObject().mesh);
    const CGraphics_FaceSpace& space = *Build().FaceSpaces[0];
    EXPECT_THAT(space.TangentA, IsNear(CMath_Vector3(1, 0, 0), 1e-6F));
    EXPECT_THAT(space.BinormalA, IsNear(CMath_Vector3(0, 0, -1), 1e-6F));
}

TEST_F(ModelFromAse, CollapsedTextureFacesAreReported)
{
    FillMesh(AddObject().mesh);
    CFileFormat_Ase::CASEMesh& mesh = AddObject().mesh;
    FillMesh(mesh);
    Append(mesh.tvertices, {{0, 0, 0}});
    AppendFace(mesh.faces, 2, 1, 0, 0);
    AppendFace(mesh.tfaces, 0, 3, 0); // by value, not by index
    *mesh.facenormals.Add() = {};
    const std::string warning = "Normal Warning: face 1\n";
    const std::string corners = "...a_uv = 0.000000 1.000000 0.000000\n"
                                "...b_uv = 0.000000 1.000000 0.000000\n"
                                "...c_uv = 0.000000 1.000000 0.000000\n"
                                "...a_v = 0.000000 1.000000 2.000000\n"
                                "...b_v = 2.000000 0.000000 0.000000\n"
                                "...c_v = 0.000000 0.000000 0.000000\n";
    const std::string count = "Warnings: 1\n";
    const std::string texts[] = {"\n" + warning + corners + count + "\n", warning + count, count};
    for (unsigned long level = 1; level <= 3; ++level)
    {
        CLogWatch log(level);
        Build(2);
        EXPECT_EQ(log.GetText(), texts[level - 1]) << "at level " << level;
    }
    EXPECT_EQ(model.Geometries[1]->Mesh.FaceSpaces.NumItems, 2U);
}

struct SUncheckedFace
{
    const char* name;
    int corners[3];
    int texturecorners[3];
};

/// Each of them has equal texture vertices, were they looked for inside the list alone.
TEST_F(ModelFromAse, WhatIsMissingIsNotChecked)
{
    static const SUncheckedFace cases[] = {
        {"TextureCornerTooLarge", {0, 1, 2}, {0, 0, 3}}, {"TextureCornerNegative", {0, 1, 2}, {-1, -1, -1}},
        {"CornerTooLarge", {0, 3, 2}, {0, 0, 0}},        {"CornerNegative", {0, 1, -2147483647 - 1}, {0, 0, 0}},
        {"NotEqualInAAndC", {0, 1, 2}, {0, 0, 1}},       {"NotEqualInAAndB", {0, 1, 2}, {0, 1, 0}},
    };
    for (const SUncheckedFace& unchecked : cases)
    {
        CFileFormat_Ase::CASEMesh& mesh = AddObject().mesh;
        FillMesh(mesh);
        mesh.faces.Reset();
        mesh.tfaces.Reset();
        AppendFace(mesh.faces, unchecked.corners[0], unchecked.corners[1], unchecked.corners[2]);
        AppendFace(mesh.tfaces, unchecked.texturecorners[0], unchecked.texturecorners[1], unchecked.texturecorners[2]);
    }
    FillMesh(AddObject().mesh, {});                 // no texture vertices
    AddObject().mesh.facenormals.CreateMultiple(3); // nothing but normals
    CLogWatch log(2);
    Build();
    EXPECT_EQ(log.GetText(), "");
    EXPECT_EQ(model.Geometries[7]->Mesh.FaceSpaces.NumItems, 3U);
}

TEST_F(ModelFromAse, HelpersBecomePointsAndAxesByTheirClass)
{
    AddHelper(document, {L"\"Tape\"", {0, 0, 10}, {0, 0, 1}});
    AddHelper(document, {L"\"PointHelper\"", {1, 2, 3}, {}});
    AddHelper(document, {L"\"Tape\" and more", {1, 0, 0}, {3, 4, 5}});
    for (const wchar_t* other : {L"Tape", L"\"Tapes\"", L"\"Dummy\"", L" \"PointHelper\"", L""})
        AddHelper(document, {other, {9, 9, 9}, {}});
    EXPECT_EQ(CreateModelFromASE(model, document, 2.0F), 1);
    EXPECT_THAT(ToVector(model.Points), ElementsAre(CMath_Vector3(2, 6, 4)));
    ASSERT_EQ(model.Axes.NumItems, 2U);
    EXPECT_EQ(model.Axes[0]->Origin, CMath_Vector3(0, 20, 0));
    EXPECT_EQ(model.Axes[0]->Direction, CMath_Vector3(0, -1, 0));
    EXPECT_EQ(model.Axes[1]->Direction, CMath_Vector3(-3, -5, -4));
}

TEST_F(ModelFromAse, SecondSceneJoinsTheFirst)
{
    FillMesh(AddObject().mesh);
    AddHelper(document, {L"\"PointHelper\"", {1, 2, 3}, {}});
    Build();
    CGraphics_Model::SMaterial& attached = *model.MaterialLists[0]->Materials[0];
    TResourceHandle<CGraphics_Material> handle;
    handle.AddRef();
    attached.Material.handle = &handle;
    attached.Name = L"Wood";

    document.GeomObjects[0]->mesh.faces[0]->mtlid = -1;
    AppendFace(document.GeomObjects[0]->mesh.faces, 0, 1, 2, 0);
    Build();
    ASSERT_EQ(model.Geometries.NumItems, 2U);
    EXPECT_EQ(model.Geometries[0]->Mesh.Faces[0]->Material, 0U);
    EXPECT_EQ(model.Geometries[1]->Mesh.Faces[0]->Material, 1U);
    EXPECT_EQ(model.Geometries[1]->Mesh.Faces[1]->Material, 0U);
    ASSERT_EQ(model.MaterialLists.NumItems, 2U);
    EXPECT_EQ(model.MaterialLists[0]->Materials.NumItems, 3U);
    EXPECT_EQ(model.MaterialLists[1]->Materials.NumItems, 0U);
    EXPECT_EQ(model.Points.NumItems, 2U);
    EXPECT_EQ(attached.Name, CSys_String(L"Wood"));
    EXPECT_EQ(handle.refCount, 1U);
    attached.Material.Destroy(); // the model outlives the handle here
}
