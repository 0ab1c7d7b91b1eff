#include "path.hpp"

#include <cmath>
#include <cstdio>
#include <numbers>

#include "program.hpp"
#include "table.hpp"

namespace robot {
namespace {

constexpr double degree = std::numbers::pi / 180;

Pose poseOf(const double *row) {
    const double cr = std::cos(row[3] * degree), sr = std::sin(row[3] * degree);
    const double cp = std::cos(row[4] * degree), sp = std::sin(row[4] * degree);
    const double cy = std::cos(row[5] * degree), sy = std::sin(row[5] * degree);
    return {cy * cp,
            cy * sp * sr - sy * cr,
            cy * sp * cr + sy * sr,
            row[0] / 1000,
            sy * cp,
            sy * sp * sr + cy * cr,
            sy * sp * cr - cy * sr,
            row[1] / 1000,
            -sp,
            cp * sr,
            cp * cr,
            row[2] / 1000,
            0,
            0,
            0,
            1};
}

} // namespace

std::vector<Pose> readPath(const std::string &file) {
    const shared::Table data = shared::readTable(file, {6});
    std::vector<Pose> poses;
    for (std::size_t row = 0; row < data.rows(); ++row) poses.push_back(poseOf(&data.values[row * 6]));
    return poses;
}

void makePath(const std::string &file) {
    constexpr int points = 20400, turns = 7, petals = 24;
    constexpr double centreX = 500, centreY = 0, height = 540, wave = 16, length = 260; // millimetres
    constexpr double k = 2 * std::numbers::pi / length;
    shared::OutFile out(file);
    std::fputs("x_mm,y_mm,z_mm,roll_deg,pitch_deg,yaw_deg\n", out);
    for (int i = 0; i < points; ++i) {
        const double t = 2 * std::numbers::pi * i / points;
        const double radius = 135 + 70 * std::cos(petals * t);
        const double x = radius * std::cos(turns * t), y = radius * std::sin(turns * t);
        // The board is z = height + wave sin(k x) cos(k y). The pen stands on it upright: z axis = -normal.
        const double z = height + wave * std::sin(k * x) * std::cos(k * y);
        const double slopeX = wave * k * std::cos(k * x) * std::cos(k * y);
        const double slopeY = -wave * k * std::sin(k * x) * std::sin(k * y);
        const double norm = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
        const double roll = std::asin(-slopeY / norm) / degree, pitch = 180 - std::atan(slopeX) / degree;
        std::fprintf(out, "%.2f,%.2f,%.2f,%.3f,%.3f,0\n", centreX + x, centreY + y, z, roll, pitch);
    }
    out.close();
}

} // namespace robot
