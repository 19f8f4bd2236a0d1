#include "grid_scene.h"

#include <cmath>

namespace
{
struct SPoint
{
    double x;
    double y;
    double z;
};

/// A gently waved surface, so that no two numbers are the same by accident.
SPoint GetPoint(std::size_t column, std::size_t row, std::size_t object)
{
    const auto x = static_cast<double>(column);
    const auto y = static_cast<double>(row);
    const auto shift = static_cast<double>(object) * 250.0;
    return {x * 1.25 - 60.0 + shift, y * -1.125 + 80.0, 8.0 * std::sin(x * 0.21) * std::cos(y * 0.17)};
}

void Header(std::string& text)
{
    Line(text, "*3DSMAX_ASCIIEXPORT\t200");
    Line(text, "*COMMENT \"AsciiExport Version  2,00 - Mon Mar 02 10:15:00 2009\"");
    Line(text, "*SCENE {");
    Line(text, "\t*SCENE_FILENAME \"grid.max\"");
    Line(text, "\t*SCENE_FIRSTFRAME 0");
    Line(text, "\t*SCENE_LASTFRAME 100");
    Line(text, "\t*SCENE_FRAMESPEED 30");
    Line(text, "\t*SCENE_TICKSPERFRAME 160");
    Line(text, "\t*SCENE_BACKGROUND_STATIC 0.0000\t0.0000\t0.0000");
    Line(text, "\t*SCENE_AMBIENT_STATIC 0.0000\t0.0000\t0.0000");
    Line(text, "}");
    Line(text, "*MATERIAL_LIST {");
    Line(text, "\t*MATERIAL_COUNT 1");
    Line(text, "\t*MATERIAL 0 {");
    Line(text, "\t\t*MATERIAL_NAME \"Grid\"");
    Line(text, "\t\t*MATERIAL_CLASS \"Standard\"");
    Line(text, "\t\t*MATERIAL_AMBIENT 0.5882\t0.5882\t0.5882");
    Line(text, "\t\t*MATERIAL_DIFFUSE 0.5882\t0.5882\t0.5882");
    Line(text, "\t\t*MATERIAL_SPECULAR 0.9000\t0.9000\t0.9000");
    Line(text, "\t\t*MATERIAL_SHINE 0.1000");
    Line(text, "\t\t*MATERIAL_SHADING Blinn");
    Line(text, "\t}");
    Line(text, "}");
}

void Node(std::string& text, std::size_t object)
{
    Line(text, "\t*NODE_NAME \"Grid%05zu\"", object);
    Line(text, "\t*NODE_TM {");
    Line(text, "\t\t*NODE_NAME \"Grid%05zu\"", object);
    Line(text, "\t\t*INHERIT_POS 0 0 0");
    Line(text, "\t\t*INHERIT_ROT 0 0 0");
    Line(text, "\t\t*INHERIT_SCL 0 0 0");
    Line(text, "\t\t*TM_ROW0 1.0000\t0.0000\t0.0000");
    Line(text, "\t\t*TM_ROW1 0.0000\t1.0000\t0.0000");
    Line(text, "\t\t*TM_ROW2 0.0000\t0.0000\t1.0000");
    Line(text, "\t\t*TM_ROW3 0.0000\t0.0000\t0.0000");
    Line(text, "\t\t*TM_POS 0.0000\t0.0000\t0.0000");
    Line(text, "\t\t*TM_ROTAXIS 0.0000\t0.0000\t0.0000");
    Line(text, "\t\t*TM_ROTANGLE 0.0000");
    Line(text, "\t\t*TM_SCALE 1.0000\t1.0000\t1.0000");
    Line(text, "\t\t*TM_SCALEAXIS 0.0000\t0.0000\t0.0000");
    Line(text, "\t\t*TM_SCALEAXISANG 0.0000");
    Line(text, "\t}");
}

/// The three corners of triangle `face`: two to a cell, each cell row by row.
void Corners(std::size_t face, std::size_t side, std::size_t (&corner)[3])
{
    const std::size_t cell = face / 2;
    const std::size_t first = cell / side * (side + 1) + cell % side;
    corner[0] = face % 2 == 0 ? first : first + side + 2;
    corner[1] = face % 2 == 0 ? first + 1 : first + side + 1;
    corner[2] = face % 2 == 0 ? first + side + 2 : first;
}

void Normals(std::string& text, std::size_t side, std::size_t faces, std::size_t object)
{
    Line(text, "\t\t*MESH_NORMALS {");
    for (std::size_t face = 0; face < faces; ++face)
    {
        std::size_t corner[3];
        Corners(face, side, corner);
        const SPoint at = GetPoint(corner[0] % (side + 1), corner[0] / (side + 1), object);
        const double length = std::sqrt(at.z * at.z / 64.0 + 1.0);
        Line(text, "\t\t\t*MESH_FACENORMAL %zu\t%.4f\t%.4f\t%.4f", face, at.z / 8.0 / length, 0.0, 1.0 / length);
        for (const std::size_t vertex : corner)
        {
            const SPoint point = GetPoint(vertex % (side + 1), vertex / (side + 1), object);
            const double norm = std::sqrt(point.z * point.z / 64.0 + 1.0);
            Line(text, "\t\t\t\t*MESH_VERTEXNORMAL %zu\t%.4f\t%.4f\t%.4f", vertex, point.z / 8.0 / norm, -0.0,
                 1.0 / norm);
        }
    }
    Line(text, "\t\t}");
}

void Mesh(std::string& text, std::size_t side, std::size_t object)
{
    const std::size_t vertices = (side + 1) * (side + 1);
    const std::size_t faces = side * side * 2;
    Line(text, "\t*MESH {");
    Line(text, "\t\t*TIMEVALUE 0");
    Line(text, "\t\t*MESH_NUMVERTEX %zu", vertices);
    Line(text, "\t\t*MESH_NUMFACES %zu", faces);
    Line(text, "\t\t*MESH_VERTEX_LIST {");
    for (std::size_t i = 0; i < vertices; ++i)
    {
        const SPoint point = GetPoint(i % (side + 1), i / (side + 1), object);
        Line(text, "\t\t\t*MESH_VERTEX %4zu\t%.4f\t%.4f\t%.4f", i, point.x, point.y, point.z);
    }
    Line(text, "\t\t}");
    Line(text, "\t\t*MESH_FACE_LIST {");
    for (std::size_t i = 0; i < faces; ++i)
    {
        std::size_t corner[3];
        Corners(i, side, corner);
        Line(text,
             "\t\t\t*MESH_FACE %4zu:    A: %4zu B: %4zu C: %4zu AB:    1 BC:    1 CA:    0\t *MESH_SMOOTHING 1 "
             "\t*MESH_MTLID %zu",
             i, corner[0], corner[1], corner[2], i % 7);
    }
    Line(text, "\t\t}");
    Line(text, "\t\t*MESH_NUMTVERTEX %zu", vertices);
    Line(text, "\t\t*MESH_TVERTLIST {");
    for (std::size_t i = 0; i < vertices; ++i)
        Line(text, "\t\t\t*MESH_TVERT %zu\t%.4f\t%.4f\t0.0000", i,
             static_cast<double>(i % (side + 1)) / static_cast<double>(side),
             static_cast<double>(i / (side + 1)) / static_cast<double>(side));
    Line(text, "\t\t}");
    Line(text, "\t\t*MESH_NUMTVFACES %zu", faces);
    Line(text, "\t\t*MESH_TFACELIST {");
    for (std::size_t i = 0; i < faces; ++i)
    {
        std::size_t corner[3];
        Corners(i, side, corner);
        Line(text, "\t\t\t*MESH_TFACE %zu\t%zu\t%zu\t%zu", i, corner[0], corner[1], corner[2]);
    }
    Line(text, "\t\t}");
    Line(text, "\t\t*MESH_NUMCVERTEX 0");
    Normals(text, side, faces, object);
    Line(text, "\t}");
}
} // namespace

SGridText MakeGridScene(std::size_t size, std::size_t facesperobject)
{
    const auto side = static_cast<std::size_t>(std::sqrt(static_cast<double>(facesperobject) / 2.0));
    SGridText grid;
    std::string& text = grid.text;
    text.reserve(size + size / 4);
    Header(text);
    for (std::size_t object = 0; text.size() < size; ++object)
    {
        Line(text, "*GEOMOBJECT {");
        Node(text, object);
        Mesh(text, side, object);
        grid.faces += side * side * 2;
        Line(text, "\t*PROP_MOTIONBLUR 0");
        Line(text, "\t*PROP_CASTSHADOW 1");
        Line(text, "\t*PROP_RECVSHADOW 1");
        Line(text, "\t*WIREFRAME_COLOR 0.3373\t0.3373\t0.3373");
        Line(text, "\t*MATERIAL_REF 0");
        Line(text, "}");
    }
    return grid;
}
