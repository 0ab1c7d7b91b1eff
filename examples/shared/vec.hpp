// Three numbers: points, directions and colours.
#pragma once

#include <algorithm>
#include <cmath>

namespace shapes {

struct Vec {
    float x = 0, y = 0, z = 0;
    friend Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec operator*(float s, Vec a) { return {s * a.x, s * a.y, s * a.z}; }
};

inline float dot(Vec a, Vec b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec unit(Vec a) {
    return 1 / std::sqrt(std::max(dot(a, a), 1e-30F)) * a;
}
inline Vec mix(Vec a, Vec b, float part) {
    return (1 - part) * a + part * b;
}

} // namespace shapes
