// A picture of opaque shapes: a depth buffer of several samples a pixel which remembers what each sample shows, and one
// pass at the end that lights it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "camera.hpp"
#include "vec.hpp"

namespace shapes {

class Canvas {
public:
    static constexpr int samples = 2; // in each direction, a pixel

    Canvas(int width, int height);
    int columns() const { return wide * samples; }
    int rows() const { return high * samples; }

    // Places are column, row and 1 / distance as the camera gives them, normals in camera coordinates, radii in samples,
    // paints red, green and blue from 0 to 1.
    void triangle(const std::array<Vec, 3> &corner, const std::array<Vec, 3> &normal, Vec paint);
    void ball(Vec centre, float radius, const Camera &camera, Vec paint);
    void disc(Vec centre, float radius, const Camera &camera, Vec normal, Vec paint);

    // Throws std::runtime_error if the file cannot be written.
    void writePng(const std::string &file, const Camera &camera, const std::string &caption) const;

private:
    struct Sample {
        float nearness = 0; // 1 / distance; 0: the background
        Vec normal, paint;
    };

    template <class Visit>
    void overBox(float left, float top, float right, float bottom, const Visit &visit);
    float openness(int column, int row, const Sample &sample, const Camera &camera) const;

    int wide, high; // pixels
    std::vector<Sample> buffer;
};

} // namespace shapes
