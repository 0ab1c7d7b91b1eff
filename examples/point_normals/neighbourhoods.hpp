// For every point of a cloud, how its nearest neighbours lie about it.
#pragma once

#include <functional>
#include <vector>

#include "mesh_file.hpp"

namespace normals {

struct Neighbourhoods {
    std::vector<double> covariances; // 9 a point: sums of squares and products about the mean, not divided by anything
    std::vector<shared::Point> pull; // sum of the neighbours' offsets from the point
    std::vector<double> squares;     // sum of their squared distances
    std::vector<double> reach;       // distance of the last one
    double inLibrary = 0;            // seconds in the array calls
};

// Takes the `neighbours` nearest of each point, and the point itself. There must be more points than that.
Neighbourhoods neighbourhoodsOf(const std::vector<shared::Point> &points, int neighbours,
                                const std::function<void(std::size_t done)> &progress);

} // namespace normals
