// A picture of opaque shapes: a depth buffer of several samples a pixel which remembers what each sample shows, and one
// pass at the end that lights it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "camera.hpp"
#include "grid.hpp"

namespace shared {

class Canvas {
public:
    static constexpr int samples = 2; // in each direction, a pixel

    Canvas(int width, int height);
    int columns() const { return wide * samples; }
    int rows() const { return high * samples; }

    void clear() { buffer.assign(buffer.size(), {}); }

    // Places are column, row and 1 / distance as the camera gives them, normals in camera coordinates, radii in samples,
    // paints red, green and blue from 0 to 1.
    void triangle(const std::array<Vec, 3> &corner, const std::array<Vec, 3> &normal, Vec paint);
    void ball(Vec centre, float radius, const Camera &camera, Vec paint);

    // Round pieces of surface that run into each other: all of a picture first without, then with `paint`, in which they
    // are mixed where they overlap at about the same distance. Without it they only hide what is behind them.
    void disc(Vec centre, float radius, const Camera &camera, Vec normal, const Vec *paint);

    // The lamp casts long shades that show the relief; in an even light paints can be compared.
    enum class Light { lamp, even };

    // FILE.png or FILE.svg. Throws std::runtime_error if it cannot be written.
    void write(const std::string &file, const Camera &camera, Light light, const std::string &caption) const;

private:
    struct Sample {
        float nearness = 0; // 1 / distance of what hides others; 0: the background
        // Sums over what is mixed, each times its weight.
        float weight = 0, mixedNearness = 0;
        Vec normal, paint;
    };

    float openness(int column, int row, const Sample &sample, const Camera &camera) const;

    int wide, high; // pixels
    Grid grid;
    std::vector<Sample> buffer;
};

} // namespace shared
