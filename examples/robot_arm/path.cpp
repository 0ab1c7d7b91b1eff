#include "path.hpp"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <stdexcept>

namespace robot {
namespace {

constexpr double degree = std::numbers::pi / 180;

Pose poseOf(const std::array<double, 6> &row) {
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

std::runtime_error badLine(const std::string &file, int line, const std::string &what) {
    return std::runtime_error(file + ":" + std::to_string(line) + ": " + what);
}

} // namespace

std::vector<Pose> readPath(const std::string &file) {
    std::ifstream in(file);
    if (!in) throw std::runtime_error("cannot read " + file);
    std::vector<Pose> poses;
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        if (!text.empty() && text.back() == '\r') text.pop_back();
        if (text.empty() || text[0] == '#' || (line == 1 && std::isalpha(static_cast<unsigned char>(text[0]))))
            continue;
        std::array<double, 6> row{};
        const char *at = text.data(), *const end = at + text.size();
        for (std::size_t column = 0; column < row.size(); ++column) {
            while (at != end && *at == ' ') ++at;
            const auto [next, error] = std::from_chars(at, end, row[column]);
            if (error != std::errc() || !std::isfinite(row[column]))
                throw badLine(file, line, "column " + std::to_string(column + 1) + " is not a number");
            at = next;
            while (at != end && *at == ' ') ++at;
            const bool last = column + 1 == row.size();
            if (last ? at != end : at == end || *at != ',') throw badLine(file, line, "a row has 6 columns");
            if (!last) ++at;
        }
        poses.push_back(poseOf(row));
    }
    if (in.bad()) throw std::runtime_error("cannot read " + file);
    if (poses.empty()) throw std::runtime_error(file + " has no rows");
    return poses;
}

void makePath(const std::string &file) {
    constexpr int points = 20400, turns = 7, petals = 24;
    constexpr double centreX = 500, centreY = 0, height = 540, wave = 16, length = 260; // millimetres
    constexpr double k = 2 * std::numbers::pi / length;
    std::FILE *out = std::fopen(file.c_str(), "w");
    if (!out) throw std::runtime_error("cannot write " + file);
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
    if (std::fclose(out) != 0) throw std::runtime_error("cannot write " + file);
}

} // namespace robot
