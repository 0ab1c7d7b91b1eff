#include "radar.hpp"

#include <cmath>
#include <cstdio>
#include <numbers>
#include <stdexcept>

#include "program.hpp"
#include "table.hpp"

namespace tracks {
namespace {

constexpr double degree = std::numbers::pi / 180;

// A generator that is the same everywhere: splitmix64 (G. L. Steele, D. Lea, C. H. Flood, Fast Splittable Pseudorandom
// Number Generators, OOPSLA 2014) and the normal distribution of G. E. P. Box and M. E. Muller.
class Random {
public:
    explicit Random(std::uint64_t seed) : state(seed * 0x9E3779B97F4A7C15U) { next(); }

    double uniform() { return (static_cast<double>(next() >> 11) + 0.5) * 0x1p-53; }
    double normal() { return std::sqrt(-2 * std::log(uniform())) * std::cos(2 * std::numbers::pi * uniform()); }

private:
    std::uint64_t next() {
        std::uint64_t bits = state += 0x9E3779B97F4A7C15U;
        bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ bits >> 27) * 0x94D049BB133111EBU;
        return bits ^ bits >> 31;
    }
    std::uint64_t state;
};

Echo echoOf(const Point &p) {
    const double ground = std::hypot(p[0], p[1]);
    return {std::hypot(ground, p[2]), std::atan2(p[0], p[1]), std::atan2(p[2], ground)};
}

} // namespace

Point Radar::position(const Echo &echo) const {
    const double ground = echo.range * std::cos(echo.elevation);
    return {ground * std::sin(echo.azimuth), ground * std::cos(echo.azimuth), echo.range * std::sin(echo.elevation)};
}

std::array<double, 9> Radar::spread(const Echo &echo, double scale) const {
    const double sa = std::sin(echo.azimuth), ca = std::cos(echo.azimuth);
    const double se = std::sin(echo.elevation), ce = std::cos(echo.elevation);
    const double along = scale * rangeDeviation, across = scale * angleDeviation * degree * echo.range;
    return {along * ce * sa,   across * ce * ca,
            -across * se * sa, //
            along * ce * ca,   -across * ce * sa,
            -across * se * ca, //
            along * se,        0,
            across * ce};
}

Echo Radar::disturbed(const Echo &echo, std::uint64_t seed) const {
    Random random(seed);
    const double range = rangeDeviation * random.normal(), azimuth = angleDeviation * degree * random.normal();
    return {echo.range + range, echo.azimuth + azimuth, echo.elevation + angleDeviation * degree * random.normal()};
}

Recording readRecording(const std::string &file) {
    const shared::Table data = shared::readTable(file, {5, 8});
    Recording recording;
    const auto shortTrack = [&](std::size_t row) {
        return data.badRow(row, "a track ends after another number of scans than the first one");
    };
    std::size_t scan = 0;
    for (std::size_t row = 0; row < data.rows(); ++row) {
        if (row == 0 || data.at(row, 0) != data.at(row - 1, 0)) {
            if (recording.trajectories > 0 && scan != recording.scans()) throw shortTrack(row - 1);
            ++recording.trajectories;
            scan = 0;
        }
        const double time = data.at(row, 1), range = data.at(row, 2);
        if (recording.trajectories == 1) {
            if (scan > 0 && time <= recording.times.back()) throw data.badRow(row, "the time does not rise");
            recording.times.push_back(time);
        } else if (scan == recording.scans()) throw shortTrack(row);
        else if (time != recording.times[scan])
            throw data.badRow(row, "the time is not that of the first track's scan");
        if (range <= 0) throw data.badRow(row, "the range is not positive");
        recording.echoes.push_back({range, data.at(row, 3) * degree, data.at(row, 4) * degree});
        if (data.columns() == 8) recording.truth.push_back({data.at(row, 5), data.at(row, 6), data.at(row, 7)});
        ++scan;
    }
    if (scan != recording.scans()) throw shortTrack(data.rows() - 1);
    if (scan < 2) throw std::runtime_error(file + ": a track needs at least 2 scans");
    return recording;
}

void makeRecording(const std::string &file, const Radar &radar, const Point &acceleration) {
    constexpr int trajectories = 100, scans = 150;
    constexpr double seconds = 4; // a turn of the antenna
    shared::OutFile out(file);
    std::fputs("track,time_s,range_m,azimuth_deg,elevation_deg,true_x_m,true_y_m,true_z_m\n", out);
    for (int track = 1; track <= trajectories; ++track) {
        Random random(static_cast<std::uint64_t>(track));
        const double bearing = 2 * std::numbers::pi * random.uniform(), away = 30e3 + 70e3 * random.uniform();
        const double heading = 2 * std::numbers::pi * random.uniform(), speed = 180 + 80 * random.uniform();
        Point at = {away * std::sin(bearing), away * std::cos(bearing), 5e3 + 6e3 * random.uniform()};
        Point velocity = {speed * std::sin(heading), speed * std::cos(heading), 3 * random.normal()};
        for (int scan = 0; scan < scans; ++scan) {
            const auto seed = static_cast<std::uint64_t>(track * scans + scan) << 32;
            const Echo seen = radar.disturbed(echoOf(at), seed);
            std::fprintf(out, "%d,%g,%.1f,%.4f,%.4f,%.1f,%.1f,%.1f\n", track, seconds * scan, seen.range,
                         seen.azimuth / degree, seen.elevation / degree, at[0], at[1], at[2]);
            for (std::size_t i = 0; i < 3; ++i) {
                const double pull = acceleration[i] * random.normal();
                at[i] += seconds * velocity[i] + seconds * seconds / 2 * pull;
                velocity[i] += seconds * pull;
            }
        }
    }
    out.close();
}

} // namespace tracks
