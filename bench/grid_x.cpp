#include "grid_x.h"

#include <cmath>

namespace
{
/// Entries end with ";,", the last one of a list with ";;".
const char* GetEnd(std::size_t index, std::size_t count)
{
    return index + 1 == count ? ";" : ",";
}

void Faces(std::string& text, std::size_t side)
{
    const std::size_t faces = side * side;
    Line(text, "   %zu;", faces);
    for (std::size_t i = 0; i < faces; ++i)
    {
        const std::size_t first = i / side * (side + 1) + i % side;
        const std::size_t below = first + side + 1;
        if (i % 3 == 0)
            Line(text, "   3;%zu,%zu,%zu;%s", first, first + 1, below, GetEnd(i, faces));
        else
            Line(text, "   4;%zu,%zu,%zu,%zu;%s", first, first + 1, below + 1, below, GetEnd(i, faces));
    }
}
} // namespace

SGridText MakeGridX(std::size_t size)
{
    // A cell takes a vertex, a normal, a coordinate, two faces and a material index: about 150 bytes.
    auto side = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(size) / 146.0)));
    const std::size_t vertices = (side + 1) * (side + 1);
    const double step = 200.0 / static_cast<double>(side);
    SGridText grid = {{}, side * side};
    std::string& text = grid.text;
    text.reserve(size + size / 8);
    Line(text, "xof 0303txt 0032");
    Line(text, "template Mesh {");
    Line(text, " <3d82ab44-62da-11cf-ab39-0020af71e433>");
    Line(text, " DWORD nVertices;");
    Line(text, " array Vector vertices[nVertices];");
    Line(text, " DWORD nFaces;");
    Line(text, " array MeshFace faces[nFaces];");
    Line(text, " [...]");
    Line(text, "}");
    Line(text, "Frame Grid {");
    Line(text, "  Mesh Grid {");
    Line(text, "   %zu;", vertices);
    for (std::size_t i = 0; i < vertices; ++i)
    {
        const double x = static_cast<double>(i % (side + 1)) * step - 100.0;
        const double y = static_cast<double>(i / (side + 1)) * step - 100.0;
        Line(text, "   %.6f;%.6f;%.6f;%s", x, y, 8.0 * std::sin(x * 0.21) * std::cos(y * 0.17), GetEnd(i, vertices));
    }
    Faces(text, side);
    Line(text, "   MeshNormals {");
    Line(text, "   %zu;", vertices);
    for (std::size_t i = 0; i < vertices; ++i)
    {
        const double slope = std::sin(static_cast<double>(i) * 0.01);
        const double length = std::sqrt(slope * slope + 1.0);
        Line(text, "   %.6f;%.6f;%.6f;%s", slope / length, 0.0, 1.0 / length, GetEnd(i, vertices));
    }
    Faces(text, side);
    Line(text, "   }");
    Line(text, "   MeshTextureCoords {");
    Line(text, "   %zu;", vertices);
    for (std::size_t i = 0; i < vertices; ++i)
        Line(text, "   %.6f;%.6f;%s", static_cast<double>(i % (side + 1)) / static_cast<double>(side),
             static_cast<double>(i / (side + 1)) / static_cast<double>(side), GetEnd(i, vertices));
    Line(text, "   }");
    Line(text, "   MeshMaterialList {");
    Line(text, "   1;");
    Line(text, "   %zu;", side * side);
    for (std::size_t i = 0; i < side * side; ++i)
        Line(text, "   0%s", GetEnd(i, side * side));
    Line(text, "   Material Grid {");
    Line(text, "    0.640000;0.640000;0.640000;1.000000;;");
    Line(text, "    96.078431;");
    Line(text, "    0.500000;0.500000;0.500000;;");
    Line(text, "    0.000000;0.000000;0.000000;;");
    Line(text, "   }");
    Line(text, "   }");
    Line(text, "  }");
    Line(text, "}");
    return grid;
}
