/// Tangents and binormals of a mesh. Everything is worked out in double: no sum or product of finite
/// floats then overflows, and none but of zero vanishes.
#include "core/graphics_mesh.h"
#include "engine_core/face_space_corners.h"

#include <cmath>
#include <span>

namespace
{
/// Two numbers that are worked on at once.
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

bool HasDirection(double square, double smallest)
{
    return square > smallest && std::isfinite(square);
}

bool HasDirection(SPair squares, double smallest)
{
    return HasDirection(squares[0], smallest) && HasDirection(squares[1], smallest);
}

/// Makes the vector, or both of a pair, length 1; false, nothing changed, when one has no direction.
template <class TNumber> bool Normalize(TVector<TNumber>& vector, double smallest = 0.0)
{
    const TNumber square = Dot(vector, vector);
    if (!HasDirection(square, smallest))
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

/// What all three corners of a triangle share.
struct STriangle
{
    SVector normal;          ///< As the corners' order gives it, of any length; zero when there is none.
    SVector tangent;         ///< Where u grows, of length 1.
    bool hastexture = false; ///< Whether there is such a direction.
    bool isreversed = false; ///< Whether the corners go round the other way in the texture.
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

// Below this the part of a tangent that is perpendicular to a normal is nothing but rounding.
constexpr double SmallestSquare = 1e-20;

/// The tangent made perpendicular to the normal, or to both of a pair; false when there is nothing left of it.
template <class TNumber>
bool Orthogonalize(const TVector<TNumber>& tangent, const TVector<TNumber>& normal, TVector<TNumber>& along)
{
    along = tangent - normal * Dot(normal, tangent);
    return Normalize(along, SmallestSquare);
}

double GetHandedness(const SVector& normal, const STriangle& triangle)
{
    const bool isbackwards = Dot(normal, triangle.normal) < 0.0;
    return triangle.hastexture && triangle.isreversed != isbackwards ? -1.0 : 1.0;
}

void SetFrame(const SVector& normal, const STriangle& triangle, CMath_Vector3& tangent, CMath_Vector3& binormal)
{
    SVector along;
    if (!triangle.hastexture || !Orthogonalize(triangle.tangent, normal, along))
        along = GetPerpendicular(normal);
    tangent = Narrow(along);
    binormal = Narrow(Cross(normal, along) * GetHandedness(normal, triangle));
}

/// The same for two corners at once, with their own normals; false, nothing set, when one of them lacks
/// what a frame needs.
bool SetTwoFrames(CGraphics_FaceSpace& space, const STriangle& triangle)
{
    TVector<SPair> normals = Pair(Widen(space.NormalA), Widen(space.NormalB));
    TVector<SPair> along;
    if (!triangle.hastexture || !Normalize(normals) ||
        !Orthogonalize(Pair(triangle.tangent, triangle.tangent), normals, along))
        return false;
    const SPair handedness = {GetHandedness(GetOfPair(normals, 0), triangle),
                              GetHandedness(GetOfPair(normals, 1), triangle)};
    const TVector<SPair> across = Cross(normals, along) * handedness;
    space.TangentA = Narrow(GetOfPair(along, 0));
    space.TangentB = Narrow(GetOfPair(along, 1));
    space.BinormalA = Narrow(GetOfPair(across, 0));
    space.BinormalB = Narrow(GetOfPair(across, 1));
    return true;
}
} // namespace

Result CGraphics_Mesh::CalculateTangentsAndBinormals()
{
    for (std::size_t i = 0; i < FaceSpaces.NumItems; ++i)
    {
        CGraphics_FaceSpace& space = FaceSpaces.Items[i];
        const STriangle triangle = SolveTriangle(*this, i);
        const std::span corners(FaceSpaceCorners);
        for (const SFaceSpaceCorner& corner : corners.subspan(SetTwoFrames(space, triangle) ? 2 : 0))
        {
            const SVector normal = ChooseNormal(space.*corner.normal, space.FaceNormal, triangle);
            SetFrame(normal, triangle, space.*corner.tangent, space.*corner.binormal);
        }
    }
    return 1;
}
