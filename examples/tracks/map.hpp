// The picture: the map of the tracks, one of them enlarged, and how consistent the filter is.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "radar.hpp"

namespace tracks {

// The covariance of east and north: east east, east north, north north.
using Spread = std::array<double, 3>;

struct History {
    std::size_t trajectories = 0, scans = 0; // object t * scans + k is scan k of trajectory t
    std::vector<Point> seen, found, truth;   // truth: empty if it is not known
    std::vector<Spread> seenSpread, foundSpread;
    std::vector<double> nis; // shares of all normalised innovations squared, in bins of width nisBin
};

inline constexpr double nisBin = 0.25;
inline constexpr std::size_t nisBins = 48;

// Throws std::runtime_error if the file cannot be written.
void drawPicture(const std::string &file, const History &history, const std::string &caption);

} // namespace tracks
