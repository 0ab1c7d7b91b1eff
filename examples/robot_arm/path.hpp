// The path: tool poses, one a row of a CSV file.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace robot {

// A homogeneous transform, rows of 4, metres: the frame of the pen's tip, its z axis along the pen, into the surface.
using Pose = std::array<double, 16>;

// Columns x_mm, y_mm, z_mm, roll_deg, pitch_deg, yaw_deg: the rotation is Rot_z(yaw) Rot_y(pitch) Rot_x(roll). Throws
// std::runtime_error with one line that names the file and the line.
std::vector<Pose> readPath(const std::string &file);

// Writes the path that comes with the program: a rosette drawn on a wavy board.
void makePath(const std::string &file);

} // namespace robot
