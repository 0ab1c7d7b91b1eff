#include "camera.hpp"

#include <limits>
#include <numbers>

namespace shared {

Camera::Camera(double azimuth, double elevation, bool zUp) {
    const double degree = std::numbers::pi / 180;
    const double ca = std::cos(azimuth * degree), sa = std::sin(azimuth * degree);
    const double ce = std::cos(elevation * degree), se = std::sin(elevation * degree);
    // In a frame whose third axis is up and whose first one points to the eye at azimuth 0.
    const double rows[3][3] = {{-sa, ca, 0}, {-se * ca, -se * sa, ce}, {ce * ca, ce * sa, se}};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) turn[i * 3 + (zUp ? j : (j + 2) % 3)] = static_cast<float>(rows[i][j]);
}

std::array<float, 16> Camera::projection() const {
    std::array<float, 16> m{};
    for (std::size_t j = 0; j < 3; ++j) {
        const float right = turn[j], up = turn[3 + j], towards = turn[6 + j];
        m[j] = lens * right - column * towards;
        m[4 + j] = -lens * up - row * towards;
        m[12 + j] = -towards;
    }
    m[3] = column * distance;
    m[7] = row * distance;
    m[11] = 1;
    m[15] = distance;
    return m;
}

void Camera::fit(std::size_t count, const std::function<Vec(std::size_t)> &seen, float radius, int columns, int rows) {
    constexpr float margin = 0.06F;
    float left = std::numeric_limits<float>::max(), top = left, right = -left, bottom = -left;
    for (std::size_t n = 0; n < count; ++n) {
        const Vec v = seen(n);
        const float size = radius * lens * v.z;
        left = std::min(left, v.x - size);
        right = std::max(right, v.x + size);
        top = std::min(top, v.y - size);
        bottom = std::max(bottom, v.y + size);
    }
    const auto room = [](int samples) { return (1 - 2 * margin) * static_cast<float>(samples); };
    const float zoom =
        std::min(room(columns) / std::max(right - left, 1e-6F), room(rows) / std::max(bottom - top, 1e-6F));
    lens *= zoom;
    column = static_cast<float>(columns) / 2 + zoom * (column - (left + right) / 2);
    row = static_cast<float>(rows) / 2 + zoom * (row - (top + bottom) / 2);
}

} // namespace shared
