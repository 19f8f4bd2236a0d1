/// Tangents and binormals of a mesh. Everything is worked out in double: no sum or product of finite
/// floats then overflows, and none but of zero vanishes.
#include "core/graphics_mesh.h"
#include "engine_core/face_space_corners.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
/// The numbers of two triangles that are worked on at once.
using SPair = double __attribute__((vector_size(16)));

SPair MakePair(double one, double other)
{
    const SPair pair = {one, other};
    return pair;
}

/// A vector of TNumber: of one number each, or of pairs, which are two vectors side by side.
template <class TNumber> struct TVector
{
    TNumber x = {};
    TNumber y = {};
    TNumber z = {};
};
using SVector = TVector<double>;

SVector Widen(const CMath_Vector3& vector)
{
    return {vector.x, vector.y, vector.z};
}

CMath_Vector3 Narrow(const SVector& vector)
{
    return {static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z)};
}

TVector<SPair> Pair(const SVector& one, const SVector& other)
{
    return {MakePair(one.x, other.x), MakePair(one.y, other.y), MakePair(one.z, other.z)};
}

SVector GetOfPair(const TVector<SPair>& vectors, int place)
{
    return {vectors.x[place], vectors.y[place], vectors.z[place]};
}

template <class TNumber> TVector<TNumber> operator-(const TVector<TNumber>& one, const TVector<TNumber>& other)
{
    return {one.x - other.x, one.y - other.y, one.z - other.z};
}

template <class TNumber> TVector<TNumber> operator*(const TVector<TNumber>& vector, TNumber factor)
{
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

template <class TNumber> TNumber Dot(const TVector<TNumber>& one, const TVector<TNumber>& other)
{
    return one.x * other.x + one.y * other.y + one.z * other.z;
}

template <class TNumber> TVector<TNumber> Cross(const TVector<TNumber>& one, const TVector<TNumber>& other)
{
    return {one.y * other.z - one.z * other.y, one.z * other.x - one.x * other.z, one.x * other.y - one.y * other.x};
}

double SquareRoot(double number)
{
    return std::sqrt(number);
}

SPair SquareRoot(SPair pair)
{
    return MakePair(std::sqrt(pair[0]), std::sqrt(pair[1]));
}

/// Whether the number is, or both of a pair are.
bool IsFiniteAbove(double number, double smallest)
{
    return number > smallest && std::isfinite(number);
}

bool IsFiniteAbove(SPair numbers, double smallest)
{
    const auto isright = (numbers > smallest) & (numbers <= std::numeric_limits<double>::max());
    return (isright[0] & isright[1]) != 0;
}

/// -1 for what is below zero, else 1.
template <class TNumber> TNumber GetSign(TNumber number)
{
    const TNumber one = TNumber{} + 1.0;
    return number < 0.0 ? -one : one;
}

/// Makes the vector, or both of a pair, length 1; false, nothing changed, when one has no direction.
template <class TNumber> bool Normalize(TVector<TNumber>& vector, double smallest = 0.0)
{
    const TNumber square = Dot(vector, vector);
    if (!IsFiniteAbove(square, smallest))
        return false;
    vector = vector * (1.0 / SquareRoot(square));
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

/// What all three corners of a triangle share; of pairs, what those of two triangles do.
template <class TNumber> struct TTriangle
{
    TVector<TNumber> normal;  ///< As the corners' order gives it, of any length; zero when there is none.
    TVector<TNumber> tangent; ///< Where u grows, of length 1.
    bool hastexture = false;  ///< Whether there is such a direction.
    TNumber orientation = {}; ///< With texture: -1 where the corners go round the other way in it, else 1.
};

/// The edges from corner A to B and to C; false when an index leads outside the list.
[[gnu::always_inline]] inline bool GetEdges(const TArray<SGraphics_Face>& faces, std::size_t index,
                                            const TArray<CMath_Vector3>& points, SVector (&edges)[2])
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

/// The same for the triangle and the next one.
[[gnu::always_inline]] inline bool GetEdges(const TArray<SGraphics_Face>& faces, std::size_t index,
                                            const TArray<CMath_Vector3>& points, TVector<SPair> (&edges)[2])
{
    SVector one[2];
    SVector other[2];
    if (!GetEdges(faces, index, points, one) || !GetEdges(faces, index + 1, points, other))
        return false;
    edges[0] = Pair(one[0], other[0]);
    edges[1] = Pair(one[1], other[1]);
    return true;
}

template <class TNumber> TTriangle<TNumber> SolveTriangle(const CGraphics_Mesh& mesh, std::size_t index)
{
    TTriangle<TNumber> triangle;
    TVector<TNumber> edges[2];
    if (!GetEdges(mesh.Faces, index, mesh.Vertices, edges))
        return triangle;
    triangle.normal = Cross(edges[0], edges[1]);

    // The edges are known both in space and in the texture, so the direction of u is the solution of two
    // linear equations. Its length does not matter, only the sign of the determinant does.
    TVector<TNumber> steps[2];
    if (!GetEdges(mesh.TextureFaces, index, mesh.TextureVertices, steps))
        return triangle;
    const TNumber determinant = steps[0].x * steps[1].y - steps[1].x * steps[0].y;
    triangle.orientation = GetSign(determinant);
    triangle.tangent = (edges[0] * steps[1].y - edges[1] * steps[0].y) * triangle.orientation;
    triangle.hastexture = IsFiniteAbove(determinant * triangle.orientation, 0.0) && Normalize(triangle.tangent);
    return triangle;
}

SVector ChooseNormal(const CMath_Vector3& cornernormal, const CMath_Vector3& facenormal, const SVector& trianglenormal)
{
    SVector normal = Widen(cornernormal);
    if (Normalize(normal))
        return normal;
    normal = Widen(facenormal);
    if (Normalize(normal))
        return normal;
    normal = trianglenormal;
    return Normalize(normal) ? normal : SVector{0, 0, 1};
}

// Below this the part of a tangent that is perpendicular to a normal is nothing but rounding.
constexpr double SmallestSquare = 1e-20;

/// The tangent made perpendicular to the normal, or to both of a pair; false when there is nothing left of it.
template <class TNumber>
bool Orthogonalize(const TVector<TNumber>& tangent, const TVector<TNumber>& normal, TVector<TNumber>& along)
{
    along = tangent - normal * Dot(normal, tangent);
    return Normalize(along, SmallestSquare);
}

/// The binormal for a tangent of a triangle with texture.
template <class TNumber>
TVector<TNumber> GetBinormal(const TTriangle<TNumber>& triangle, const TVector<TNumber>& normal,
                             const TVector<TNumber>& along)
{
    return Cross(normal, along) * (triangle.orientation * GetSign(Dot(normal, triangle.normal)));
}

void SetFrames(CGraphics_Mesh& mesh, std::size_t index)
{
    CGraphics_FaceSpace& space = mesh.FaceSpaces.Items[index];
    const auto triangle = SolveTriangle<double>(mesh, index);
    for (const SFaceSpaceCorner& corner : FaceSpaceCorners)
    {
        const SVector normal = ChooseNormal(space.*corner.normal, space.FaceNormal, triangle.normal);
        SVector along;
        if (!triangle.hastexture || !Orthogonalize(triangle.tangent, normal, along))
            along = GetPerpendicular(normal);
        space.*corner.tangent = Narrow(along);
        space.*corner.binormal =
            Narrow(triangle.hastexture ? GetBinormal(triangle, normal, along) : Cross(normal, along));
    }
}

/// The same for this triangle and the next at once; false, their frames still to be set, when one of them lacks
/// what a frame needs.
bool SetFramesOfTwo(CGraphics_Mesh& mesh, std::size_t index)
{
    const auto triangles = SolveTriangle<SPair>(mesh, index);
    if (!triangles.hastexture)
        return false;
    CGraphics_FaceSpace& one = mesh.FaceSpaces.Items[index];
    CGraphics_FaceSpace& other = mesh.FaceSpaces.Items[index + 1];
    for (const SFaceSpaceCorner& corner : FaceSpaceCorners)
    {
        TVector<SPair> normals = Pair(Widen(one.*corner.normal), Widen(other.*corner.normal));
        TVector<SPair> along;
        if (!Normalize(normals) || !Orthogonalize(triangles.tangent, normals, along))
            return false;
        const TVector<SPair> across = GetBinormal(triangles, normals, along);
        one.*corner.tangent = Narrow(GetOfPair(along, 0));
        other.*corner.tangent = Narrow(GetOfPair(along, 1));
        one.*corner.binormal = Narrow(GetOfPair(across, 0));
        other.*corner.binormal = Narrow(GetOfPair(across, 1));
    }
    return true;
}
} // namespace

Result CGraphics_Mesh::CalculateTangentsAndBinormals()
{
    const std::size_t count = FaceSpaces.NumItems;
    for (std::size_t i = 0; i < count; i += 2)
        if (i + 1 == count || !SetFramesOfTwo(*this, i))
            for (std::size_t j = i; j < std::min(i + 2, count); ++j)
                SetFrames(*this, j);
    return 1;
}
