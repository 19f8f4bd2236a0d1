/// Tangents and binormals of a mesh. Everything is worked out in double: no sum or product of finite
/// floats then overflows, and none but of zero vanishes.
#include "core/graphics_mesh.h"
#include "engine_core/face_space_corners.h"

#include <cmath>

namespace
{
struct SVector
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

SVector Widen(const CMath_Vector3& vector)
{
    return {vector.x, vector.y, vector.z};
}

CMath_Vector3 Narrow(const SVector& vector)
{
    return {static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z)};
}

SVector operator-(const SVector& one, const SVector& other)
{
    return {one.x - other.x, one.y - other.y, one.z - other.z};
}

SVector operator*(const SVector& vector, double factor)
{
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

double Dot(const SVector& one, const SVector& other)
{
    return one.x * other.x + one.y * other.y + one.z * other.z;
}

SVector Cross(const SVector& one, const SVector& other)
{
    return {one.y * other.z - one.z * other.y, one.z * other.x - one.x * other.z, one.x * other.y - one.y * other.x};
}

/// Makes the vector length 1; false, the vector untouched, when it has no direction.
bool Normalize(SVector& vector, double smallest = 0.0)
{
    const double square = Dot(vector, vector);
    if (!(square > smallest) || !std::isfinite(square))
        return false;
    vector = vector * (1.0 / std::sqrt(square));
    return true;
}

/// A direction perpendicular to a unit vector: away from the axis that the vector leans to least.
SVector GetPerpendicular(const SVector& unit)
{
    const double x = std::fabs(unit.x);
    const double y = std::fabs(unit.y);
    const double z = std::fabs(unit.z);
    const SVector axis = x <= y && x <= z ? SVector{1, 0, 0} : y <= z ? SVector{0, 1, 0} : SVector{0, 0, 1};
    SVector perpendicular = Cross(axis, unit);
    Normalize(perpendicular);
    return perpendicular;
}

/// What all three corners of a triangle share.
struct STriangle
{
    SVector normal;          ///< As the corners' order gives it, of any length; zero when there is none.
    SVector tangent;         ///< Where u grows, of length 1.
    bool hastexture = false; ///< Whether there is such a direction.
    bool isreversed = false; ///< Whether the corners go round the other way in the texture.
};

/// The edges from corner A to B and to C; false when an index leads outside the list.
bool GetEdges(const TArray<SGraphics_Face>& faces, std::size_t index, const TArray<CMath_Vector3>& points,
              SVector (&edges)[2])
{
    if (index >= faces.NumItems)
        return false;
    const SGraphics_Face& face = faces.Items[index];
    if (face.A >= points.NumItems || face.B >= points.NumItems || face.C >= points.NumItems)
        return false;
    const SVector origin = Widen(points.Items[face.A]);
    edges[0] = Widen(points.Items[face.B]) - origin;
    edges[1] = Widen(points.Items[face.C]) - origin;
    return true;
}

STriangle SolveTriangle(const CGraphics_Mesh& mesh, std::size_t index)
{
    STriangle triangle;
    SVector edges[2];
    if (!GetEdges(mesh.Faces, index, mesh.Vertices, edges))
        return triangle;
    triangle.normal = Cross(edges[0], edges[1]);

    // The edges are known both in space and in the texture, so the direction of u is the solution of two
    // linear equations. Its length does not matter, only the sign of the determinant does.
    SVector steps[2];
    if (!GetEdges(mesh.TextureFaces, index, mesh.TextureVertices, steps))
        return triangle;
    const double determinant = steps[0].x * steps[1].y - steps[1].x * steps[0].y;
    triangle.tangent = edges[0] * steps[1].y - edges[1] * steps[0].y;
    triangle.isreversed = determinant < 0.0;
    if (triangle.isreversed)
        triangle.tangent = triangle.tangent * -1.0;
    triangle.hastexture = determinant != 0.0 && std::isfinite(determinant) && Normalize(triangle.tangent);
    return triangle;
}

SVector ChooseNormal(const CMath_Vector3& cornernormal, const CMath_Vector3& facenormal, const STriangle& triangle)
{
    SVector normal = Widen(cornernormal);
    if (Normalize(normal))
        return normal;
    normal = Widen(facenormal);
    if (Normalize(normal))
        return normal;
    normal = triangle.normal;
    return Normalize(normal) ? normal : SVector{0, 0, 1};
}

void SetFrame(const SVector& normal, const STriangle& triangle, CMath_Vector3& tangent, CMath_Vector3& binormal)
{
    // Below this the tangent runs along the normal, but for rounding.
    constexpr double smallest = 1e-20;

    SVector along = triangle.tangent - normal * Dot(normal, triangle.tangent);
    if (!triangle.hastexture || !Normalize(along, smallest))
        along = GetPerpendicular(normal);
    SVector across = Cross(normal, along);
    const bool isbackwards = Dot(normal, triangle.normal) < 0.0;
    if (triangle.hastexture && triangle.isreversed != isbackwards)
        across = across * -1.0;
    tangent = Narrow(along);
    binormal = Narrow(across);
}
} // namespace

Result CGraphics_Mesh::CalculateTangentsAndBinormals()
{
    for (std::size_t i = 0; i < FaceSpaces.NumItems; ++i)
    {
        CGraphics_FaceSpace& space = FaceSpaces.Items[i];
        const STriangle triangle = SolveTriangle(*this, i);
        for (const SFaceSpaceCorner& corner : FaceSpaceCorners)
        {
            const SVector normal = ChooseNormal(space.*corner.normal, space.FaceNormal, triangle);
            SetFrame(normal, triangle, space.*corner.tangent, space.*corner.binormal);
        }
    }
    return 1;
}
