// Where a picture is taken from, as the two matrices that points and normals are multiplied by.
#pragma once

#include <array>
#include <functional>

#include "vec.hpp"

namespace shared {

// Looks at the origin from outside of the unit ball. Camera coordinates: x to the right, y up, z towards the eye.
struct Camera {
    static constexpr float distance = 4.5F; // of the eye from the origin

    std::array<float, 9> turn{}; // rows of 3: from the model's axes to the camera's
    float lens = 1;              // samples that one unit at distance 1 covers
    float column = 0, row = 0;   // where the origin is seen

    // Degrees; the model's up is its y or its z axis. At azimuth and elevation 0 the eye stands on the next axis, z or x.
    Camera(double azimuth, double elevation, bool zUp);

    // Perspective and viewport in one, rows of 4: gives column, row and 1 / distance, which is linear on the screen.
    std::array<float, 16> projection() const;

    // Moves the lens so that balls of the given radius fit the canvas, whose centres `projection` puts at seen(n).
    void fit(std::size_t count, const std::function<Vec(std::size_t n)> &seen, float radius, int columns, int rows);

    // The camera coordinates of what `projection` gave.
    Vec position(float atColumn, float atRow, float nearness) const {
        return {(atColumn - column) / (lens * nearness), (row - atRow) / (lens * nearness), -1 / nearness};
    }
};

} // namespace shared
