// What a radar saw of some aircraft: the file, and the radar's errors.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tracks {

using Point = std::array<double, 3>; // metres east, north and up from the radar

struct Echo {
    double range = 0, azimuth = 0, elevation = 0; // metres and radians, the azimuth clockwise from north
};

struct Radar {
    double rangeDeviation = 50, angleDeviation = 0.3; // metres, degrees

    // The echo's position, and B with B Bt its covariance: the derivatives by range, azimuth and elevation, times their
    // standard deviations (a "converted measurement": the errors are small enough to be linear).
    Point position(const Echo &echo) const;
    std::array<double, 9> spread(const Echo &echo, double scale) const;
    // The echo with normally distributed errors of its own.
    Echo disturbed(const Echo &echo, std::uint64_t seed) const;
};

// Trajectories that were seen at the same times: object t * scans + k is scan k of trajectory t.
struct Recording {
    std::size_t trajectories = 0;
    std::vector<double> times;
    std::vector<Echo> echoes;
    std::vector<Point> truth; // empty if it is not known

    std::size_t scans() const { return times.size(); }
};

// Columns track, time_s, range_m, azimuth_deg, elevation_deg and, if known, true_x_m, true_y_m, true_z_m; the rows of a
// track together, in the order of time. Throws std::runtime_error with one line that names the file and the line.
Recording readRecording(const std::string &file);

// Writes the recording that comes with the program.
void makeRecording(const std::string &file, const Radar &radar, const Point &acceleration);

} // namespace tracks
