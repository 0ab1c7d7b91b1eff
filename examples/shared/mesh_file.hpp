// Triangle meshes and point clouds from text files.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace shared {

using Point = std::array<double, 3>;

struct Shape {
    std::vector<Point> points;
    std::vector<std::array<int, 3>> triangles; // indexes into points; none: a point cloud
};

// Reads an OBJ file (.obj), an ASCII PLY file (.ply) or the points of an XYZ file (.xyz: x y z and whatever follows, one
// point a line). Polygons are cut into the triangles that share their first corner. Throws std::runtime_error with one
// line that names the file, the line and what is wrong there: a syntax error, an index out of range, no vertices.
Shape readShape(const std::string &file);

// The ball round the box that holds the points: at (p - centre) / radius all lie in the unit ball. At least one point.
struct Ball {
    Point centre;
    double radius; // 0 if all points are one
};
Ball ballRound(const std::vector<Point> &points);

} // namespace shared
