// The arm: link parameters of the Unimation PUMA 560 in the (standard) Denavit-Hartenberg convention, lengths in
// metres. Source: P. I. Corke and B. Armstrong-Helouvry, "A search for consensus among model parameters reported for
// the PUMA 560 robot", Proc. IEEE Int. Conf. Robotics and Automation, 1994, pp. 1608-1613.
#pragma once

#include <array>
#include <cmath>

namespace robot {

struct Link {
    double cosAlpha, sinAlpha; // the twist is a multiple of 90 degrees: exact
    double a, d;
};

inline constexpr std::array<Link, 6> puma560 = {{
    {0, 1, 0, 0},             // waist:    alpha  90
    {1, 0, 0.4318, 0},        // shoulder: alpha   0
    {0, -1, 0.0203, 0.15005}, // elbow:    alpha -90
    {0, 1, 0, 0.4318},        // wrist:    alpha  90
    {0, -1, 0, 0},            //           alpha -90
    {1, 0, 0, 0},             //           alpha   0
}};

// The room: the shoulder's height above the floor, and the pen's tip beyond the centre of the wrist.
inline constexpr double shoulderHeight = 0.672;
inline constexpr double penLength = 0.15;

// Elbow above the board, pen downwards, in degrees. Every pose is searched from here.
inline constexpr std::array<double, 6> startDegrees = {0, 45, -180, 0, -45, 0};

// The transform of one link, rows of 4: Rot_z(q) Trans_z(d) Trans_x(a) Rot_x(alpha).
template <class T>
void linkTransform(const Link &link, T q, T *m) {
    const T c = std::cos(q), s = std::sin(q);
    const T ca = static_cast<T>(link.cosAlpha), sa = static_cast<T>(link.sinAlpha);
    const T a = static_cast<T>(link.a), d = static_cast<T>(link.d);
    const T rows[16] = {c, -s * ca, s * sa, a * c, s, c * ca, -c * sa, a * s, 0, sa, ca, d, 0, 0, 0, 1};
    for (int i = 0; i < 16; ++i) m[i] = rows[i];
}

template <class T>
std::array<T, 16> translation(T x, T y, T z) {
    return {1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1};
}

} // namespace robot
