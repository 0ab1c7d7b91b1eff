// The picture: the arm in a few poses along the path.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "path.hpp"

namespace robot {

using Angles = std::array<double, 6>; // radians

// Angles are those of every pose of the path, in its order. The caption goes below the title. Throws std::runtime_error
// if the file cannot be written.
void drawPicture(const std::string &file, const std::vector<Pose> &path, const std::vector<Angles> &angles,
                 const std::string &caption);

} // namespace robot
