#include "core/graphics_mesh.h"
#include "tests/support/documents.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

namespace
{
constexpr float Nan = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float Largest = std::numeric_limits<float>::max();
constexpr float Smallest = std::numeric_limits<float>::denorm_min();

struct SCorner
{
    CMath_Vector3 position;
    CMath_Vector3 texture;
    CMath_Vector3 normal;
};

double Dot(const CMath_Vector3& one, const CMath_Vector3& other)
{
    return double{one.x} * other.x + double{one.y} * other.y + double{one.z} * other.z;
}

CMath_Vector3 Cross(const CMath_Vector3& one, const CMath_Vector3& other)
{
    return {one.y * other.z - one.z * other.y, one.z * other.x - one.x * other.z, one.x * other.y - one.y * other.x};
}

CMath_Vector3 Combine(const CMath_Vector3& one, float factor, const CMath_Vector3& other, float otherfactor)
{
    return {one.x * factor + other.x * otherfactor, one.y * factor + other.y * otherfactor,
            one.z * factor + other.z * otherfactor};
}

void AddTriangle(CGraphics_Mesh& mesh, const SCorner (&corners)[3], const CMath_Vector3& facenormal)
{
    const std::uint32_t first = mesh.Vertices.NumItems;
    for (const SCorner& corner : corners)
    {
        *mesh.Vertices.Add() = corner.position;
        *mesh.TextureVertices.Add() = corner.texture;
    }
    *mesh.Faces.Add() = {first, first + 1, first + 2, 0};
    *mesh.TextureFaces.Add() = {first, first + 1, first + 2, 0};
    CGraphics_FaceSpace& space = *mesh.FaceSpaces.Add();
    space.FaceNormal = facenormal;
    space.NormalA = corners[0].normal;
    space.NormalB = corners[1].normal;
    space.NormalC = corners[2].normal;
}

/// The frames of a mesh of one triangle.
CGraphics_FaceSpace Solve(const SCorner (&corners)[3], const CMath_Vector3& facenormal = {0, 0, 1})
{
    CGraphics_Mesh mesh;
    AddTriangle(mesh, corners, facenormal);
    EXPECT_EQ(mesh.CalculateTangentsAndBinormals(), 1);
    return *mesh.FaceSpaces[0];
}

void ExpectOrthonormal(const CMath_Vector3& tangent, const CMath_Vector3& binormal)
{
    EXPECT_NEAR(Dot(tangent, tangent), 1, 1e-6);
    EXPECT_NEAR(Dot(binormal, binormal), 1, 1e-6);
    EXPECT_NEAR(Dot(tangent, binormal), 0, 1e-6);
}

void ExpectOrthonormal(const CGraphics_FaceSpace& space)
{
    ExpectOrthonormal(space.TangentA, space.BinormalA);
    ExpectOrthonormal(space.TangentB, space.BinormalB);
    ExpectOrthonormal(space.TangentC, space.BinormalC);
}
} // namespace

TEST(TangentFrames, FollowTheTexture)
{
    // A right triangle in the plane z = 0; the second texture is turned by a quarter, the third mirrored.
    const CMath_Vector3 up(0, 0, 7);
    const CGraphics_FaceSpace straight =
        Solve({{{0, 0, 0}, {0, 0, 0}, up}, {{2, 0, 0}, {1, 0, 0}, up}, {{0, 3, 0}, {0, 1, 0}, up}});
    EXPECT_THAT(straight.TangentB, IsNear(CMath_Vector3(1, 0, 0), 1e-7F));
    EXPECT_THAT(straight.BinormalB, IsNear(CMath_Vector3(0, 1, 0), 1e-7F));
    EXPECT_EQ(straight.NormalB, up) << "normals stay as they were given";

    const CGraphics_FaceSpace turned =
        Solve({{{0, 0, 0}, {0, 0, 0}, up}, {{2, 0, 0}, {0, -1, 0}, up}, {{0, 3, 0}, {1, 0, 0}, up}});
    EXPECT_THAT(turned.TangentC, IsNear(CMath_Vector3(0, 1, 0), 1e-7F));
    EXPECT_THAT(turned.BinormalC, IsNear(CMath_Vector3(-1, 0, 0), 1e-7F));

    const CGraphics_FaceSpace mirrored =
        Solve({{{0, 0, 0}, {0, 0, 0}, up}, {{2, 0, 0}, {-1, 0, 0}, up}, {{0, 3, 0}, {0, 1, 0}, up}});
    EXPECT_THAT(mirrored.TangentA, IsNear(CMath_Vector3(-1, 0, 0), 1e-7F));
    EXPECT_THAT(mirrored.BinormalA, IsNear(CMath_Vector3(0, 1, 0), 1e-7F));
}

/// Positions are made from texture coordinates by known directions of u and v, so the frame that must come
/// out is known however the triangle lies.
TEST(TangentFrames, AreOrthonormalAndKeepTheHandednessOfAnyTriangle)
{
    std::mt19937 random(20261122);
    const auto number = [&] { return static_cast<float>(random() % 2001) / 1000.0F - 1.0F; };
    const auto vector = [&] { return CMath_Vector3(number(), number(), number()); };
    int solved = 0;
    for (int i = 0; i < 2000; ++i)
    {
        const CMath_Vector3 alongu = vector();
        const CMath_Vector3 alongv = vector();
        const CMath_Vector3 normal = vector();
        const double handedness = Dot(Cross(alongu, alongv), normal);
        SCorner corners[3];
        for (SCorner& corner : corners)
        {
            corner.texture = {number(), number(), 0};
            corner.position = Combine(alongu, corner.texture.x, alongv, corner.texture.y);
            corner.normal = normal;
        }
        const CMath_Vector3 one = Combine(corners[1].texture, 1, corners[0].texture, -1);
        const CMath_Vector3 other = Combine(corners[2].texture, 1, corners[0].texture, -1);
        if (std::fabs(Cross(one, other).z) < 0.05F || std::fabs(handedness) < 0.05)
            continue;
        ++solved;
        const CGraphics_FaceSpace space = Solve(corners);
        ExpectOrthonormal(space);
        EXPECT_NEAR(Dot(space.TangentA, normal), 0, 1e-6);
        EXPECT_NEAR(Dot(space.BinormalA, normal), 0, 1e-6);
        EXPECT_GT(Dot(space.TangentA, alongu), 0);
        EXPECT_EQ(Dot(Cross(space.TangentA, space.BinormalA), normal) > 0, handedness > 0);
        EXPECT_GT(Dot(space.BinormalA, alongv), 0);
    }
    EXPECT_GT(solved, 500);
}

struct SHostileTriangle
{
    const char* name;
    SCorner corners[3];
    CMath_Vector3 facenormal;
};

static const SHostileTriangle HostileTriangles[] = {
    {"OneTexturePoint",
     {{{0, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 0, 1}, {1, 1, 0}, {0, 1, 0}}},
     {0, 1, 0}},
    {"TextureLine",
     {{{0, 0, 0}, {0, 0, 0}, {0, 1, 0}}, {{1, 0, 0}, {1, 2, 0}, {0, 1, 0}}, {{0, 0, 1}, {2, 4, 0}, {0, 1, 0}}},
     {0, 1, 0}},
    {"OnePosition",
     {{{1, 1, 1}, {0, 0, 0}, {1, 0, 0}}, {{1, 1, 1}, {1, 0, 0}, {1, 0, 0}}, {{1, 1, 1}, {0, 1, 0}, {1, 0, 0}}},
     {1, 0, 0}},
    {"NoNormals", {{{0, 0, 0}, {0, 0, 0}, {}}, {{1, 0, 0}, {1, 0, 0}, {}}, {{0, 0, 1}, {0, 1, 0}, {}}}, {}},
    {"NothingAtAll", {}, {}},
    {"NormalAlongTheTangent",
     {{{0, 0, 0}, {0, 0, 0}, {1, 0, 0}}, {{1, 0, 0}, {1, 0, 0}, {1, 0, 0}}, {{0, 1, 0}, {0, 1, 0}, {1, 0, 0}}},
     {1, 0, 0}},
    {"NotNumbers",
     {{{Nan, 0, 0}, {0, Nan, 0}, {0, 0, Nan}},
      {{1, 0, 0}, {1, 0, 0}, {Nan, 0, 0}},
      {{0, 1, 0}, {0, 1, 0}, {0, Nan, 0}}},
     {Nan, Nan, Nan}},
    {"Infinite",
     {{{Infinity, 0, 0}, {0, 0, 0}, {0, 0, Infinity}},
      {{-Infinity, 0, 0}, {Infinity, 0, 0}, {-Infinity, 0, 0}},
      {{0, 1, 0}, {0, 1, 0}, {0, 0, 1}}},
     {0, 0, Infinity}},
    {"Largest",
     {{{-Largest, -Largest, 0}, {-Largest, -Largest, 0}, {Largest, Largest, Largest}},
      {{Largest, 0, 0}, {Largest, 0, 0}, {Largest, 0, 0}},
      {{0, Largest, Largest}, {0, Largest, 0}, {0, 0, -Largest}}},
     {Largest, 0, 0}},
    {"Smallest",
     {{{0, 0, 0}, {0, 0, 0}, {0, 0, Smallest}},
      {{Smallest, 0, 0}, {Smallest, 0, 0}, {0, 0, Smallest}},
      {{0, Smallest, 0}, {0, Smallest, 0}, {0, 0, Smallest}}},
     {0, 0, Smallest}},
};

TEST(TangentFrames, HostileTrianglesStillGetAFrame)
{
    for (const SHostileTriangle& triangle : HostileTriangles)
    {
        SCOPED_TRACE(triangle.name);
        const CGraphics_FaceSpace space = Solve(triangle.corners, triangle.facenormal);
        ExpectOrthonormal(space);
        const CMath_Vector3& normal = triangle.corners[1].normal;
        if (std::isfinite(normal.x) && std::isfinite(normal.y))
        {
            EXPECT_NEAR(Dot(space.TangentB, normal) / (std::fabs(normal.x) + 1), 0, 1e-6);
            EXPECT_NEAR(Dot(space.BinormalB, normal) / (std::fabs(normal.x) + 1), 0, 1e-6);
        }
    }
}

TEST(TangentFrames, AreThoseOfTheTriangleAlone)
{
    std::mt19937 random(5);
    const auto number = [&] { return static_cast<float>(random() % 2001) / 1000.0F - 1.0F; };
    const auto vector = [&] { return CMath_Vector3(number(), number(), number()); };
    CGraphics_Mesh mesh;
    std::vector<CGraphics_FaceSpace> alone;
    for (int i = 0; i < 1001; ++i)
    {
        SHostileTriangle triangle = HostileTriangles[random() % std::size(HostileTriangles)];
        if (random() % 3 != 0)
            for (SCorner& corner : triangle.corners)
                corner = {vector(), vector(), vector()};
        AddTriangle(mesh, triangle.corners, triangle.facenormal);
        alone.push_back(Solve(triangle.corners, triangle.facenormal));
    }
    mesh.CalculateTangentsAndBinormals();
    for (std::size_t i = 0; i < alone.size(); ++i)
        EXPECT_EQ(std::memcmp(&mesh.FaceSpaces.Items[i], &alone[i], sizeof(alone[i])), 0) << i;
}

TEST(TangentFrames, MissingFacesAndIndicesAreNotFollowed)
{
    CGraphics_Mesh mesh;
    mesh.FaceSpaces.CreateMultiple(4);
    mesh.FaceSpaces[1]->NormalB = {0, 5, 0};
    *mesh.Faces.Add() = {0, 1, 2, 0};
    *mesh.Faces.Add() = {0, 0xFFFFFFFF, 2, 0};
    *mesh.Faces.Add() = {3, 0, 0, 0};
    mesh.Vertices.CreateMultiple(3);
    *mesh.TextureFaces.Add() = {0, 0, 1, 0};
    mesh.TextureVertices.CreateMultiple(1);
    mesh.CalculateTangentsAndBinormals();
    for (const CGraphics_FaceSpace& space : mesh.FaceSpaces)
        ExpectOrthonormal(space);
    EXPECT_THAT(Cross(mesh.FaceSpaces[1]->TangentB, mesh.FaceSpaces[1]->BinormalB),
                IsNear(CMath_Vector3(0, 1, 0), 1e-6F));
}
