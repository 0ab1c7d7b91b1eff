// Three numbers: points, directions and colours.
#pragma once

#include <algorithm>
#include <cmath>

namespace shared {

template <class T>
struct Vec3 {
    T x = 0, y = 0, z = 0;
    friend Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(T s, Vec3 a) { return {s * a.x, s * a.y, s * a.z}; }
    friend T dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
    friend Vec3 cross(Vec3 a, Vec3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
    friend Vec3 unit(Vec3 a) { return 1 / std::sqrt(std::max(dot(a, a), T(1e-30F))) * a; }
    friend Vec3 mix(Vec3 a, Vec3 b, T part) { return (1 - part) * a + part * b; }
};

using Vec = Vec3<float>;

} // namespace shared
