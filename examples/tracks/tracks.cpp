// Multi-target tracking: a Kalman filter over thousands of six-state tracks at once.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "filter.hpp"
#include "map.hpp"
#include "program.hpp"
#include "radar.hpp"
#include "smkcore.h"
#include "timing.hpp"

namespace tracks {
namespace {

struct Options {
    std::string file = "radar.csv", picture = "tracks.png", type = "double", make;
    int tracks = 10000, threads = 1, repeats = 3;
    Radar radar;
};

// What the filter assumes of the aircraft, and the recording was made with: m/s2 and m/s, standard deviations.
constexpr Axes acceleration = {2, 2, 0.1};
constexpr Axes speed = {160, 160, 5};

double squaredDistance(const Point &a, const Point &b) {
    double sum = 0;
    for (std::size_t i = 0; i < 3; ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum;
}

// Hands the filter the measurements of a scan.
template <class T>
void measure(Filter<T> &filter, const Recording &recording, const Radar &radar, std::size_t scan) {
    for (std::size_t n = 0; n < filter.size; ++n) {
        const std::size_t trajectory = n % recording.trajectories;
        Echo echo = recording.echoes[trajectory * recording.scans() + scan];
        const bool repeated = n >= recording.trajectories;
        if (repeated) echo = radar.disturbed(echo, n << 32 | scan);
        filter.measure(n, radar.position(echo), radar.spread(echo, repeated ? std::sqrt(2.0) : 1));
    }
}

// Follows all tracks through the recording; returns the seconds that the filter took. What came of each scan but the
// first goes to `report`.
template <class T, class Step, class Report>
double follow(Filter<T> &filter, const Recording &recording, const Radar &radar, const Step &step,
              const Report &report) {
    double seconds = 0;
    for (std::size_t scan = 0; scan < recording.scans(); ++scan) {
        measure(filter, recording, radar, scan);
        if (scan == 0) filter.start(speed);
        else {
            filter.move(recording.times[scan] - recording.times[scan - 1], acceleration);
            seconds += shared::secondsOf([&] { step(filter); });
        }
        report(scan);
    }
    return seconds;
}

// Sums over all tracks and scans, and the history of the tracks that are drawn.
struct Judge {
    double seen = 0, found = 0, nis = 0; // sums of squared errors, and of the normalised innovations squared
    std::size_t gate = 0, updates = 0;   // those within the gate, and all
    History history;

    Judge(const Recording &recording, std::size_t tracks) {
        history.trajectories = std::min(recording.trajectories, tracks);
        history.scans = recording.scans();
        history.seen.resize(history.trajectories * history.scans);
        history.found = history.seen;
        history.seenSpread.resize(history.seen.size());
        history.foundSpread = history.seenSpread;
        history.nis.resize(nisBins);
        history.truth = recording.truth;
    }

    template <class T>
    void look(const Filter<T> &filter, const Recording &recording, const Radar &radar, std::size_t scan) {
        for (std::size_t n = 0; n < filter.size; ++n) {
            const std::size_t source = n % recording.trajectories * history.scans + scan;
            Point measured{}, estimated{};
            for (std::size_t i = 0; i < 3; ++i) {
                measured[i] = static_cast<double>(filter.z[n * 3 + i]);
                estimated[i] = static_cast<double>(filter.x[n * 6 + i]);
            }
            if (n < history.trajectories) {
                history.seen[source] = measured;
                history.found[source] = estimated;
                const auto p = [&](std::size_t at) { return static_cast<double>(filter.P[n * 36 + at]); };
                history.foundSpread[source] = {p(0), p(6), p(7)};
                const std::array<double, 9> b = radar.spread(recording.echoes[source], 1);
                for (std::size_t k = 0; k < 3; ++k) {
                    history.seenSpread[source][0] += b[k] * b[k];
                    history.seenSpread[source][1] += b[k] * b[3 + k];
                    history.seenSpread[source][2] += b[3 + k] * b[3 + k];
                }
            }
            if (scan == 0) continue;
            ++updates;
            const auto value = static_cast<double>(filter.nis[n]);
            nis += value;
            gate += value < gateBound ? 1 : 0;
            if (value < nisBin * nisBins) history.nis[static_cast<std::size_t>(value / nisBin)] += 1;
            if (recording.truth.empty()) continue;
            seen += squaredDistance(measured, recording.truth[source]);
            found += squaredDistance(estimated, recording.truth[source]);
        }
    }
    static constexpr double gateBound = 7.814728; // chi-squared with 3 degrees of freedom is below with 95 %

    double mean(double sum) const { return sum / static_cast<double>(updates); }
};

template <class T>
bool same(const std::vector<T> &a, const std::vector<T> &b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

// Returns whether both ways of calling gave the same estimates, bit for bit.
template <class T>
bool compare(const Recording &recording, const Options &options, const Filter<T> &expected) {
    bool equal = true;
    const auto medians = shared::mediansInTurn(options.repeats, [&](std::size_t way) {
        Filter<T> filter(expected.size);
        const auto step = [way](Filter<T> &all) { way == 0 ? all.template step<true>() : all.template step<false>(); };
        const double seconds = follow(filter, recording, options.radar, step, [](std::size_t) {});
        equal = equal && same(filter.x, expected.x) && same(filter.P, expected.P) && same(filter.nis, expected.nis);
        return std::array{static_cast<double>(expected.size * (recording.scans() - 1)) / seconds};
    });
    std::printf("\nmedians of %d runs       track updates\n", options.repeats);
    std::printf("  one call for all    %8.3f M/s\n", medians[0][0] / 1e6);
    std::printf("  one call per track  %8.3f M/s\n", medians[1][0] / 1e6);
    std::printf("  ratio               %8.2f\n", medians[0][0] / medians[1][0]);
    std::printf("  same estimates to the last bit: %s\n", equal ? "yes" : "NO");
    return equal;
}

template <class T>
int run(const Options &options) {
    const Recording recording = readRecording(options.file);
    threads_omp_of_n_smk = options.threads;
    std::printf("%s: %zu trajectories, %zu scans; %d tracks, %s, %d thread%s\n", options.file.c_str(),
                recording.trajectories, recording.scans(), options.tracks, options.type.c_str(), options.threads,
                options.threads == 1 ? "" : "s");

    Filter<T> filter(static_cast<std::size_t>(options.tracks));
    Judge judge(recording, filter.size);
    {
        shared::ProgressBar bar(recording.scans(), "scans");
        follow(
            filter, recording, options.radar, [](Filter<T> &all) { all.template step<true>(); },
            [&](std::size_t scan) {
                judge.look(filter, recording, options.radar, scan);
                bar.show(scan + 1);
            });
    }

    const double nis = judge.mean(judge.nis);
    char accuracy[128] = "the truth is not known";
    if (!recording.truth.empty())
        std::snprintf(accuracy, sizeof accuracy, "RMS error measured %.1f m, filtered %.1f m",
                      std::sqrt(judge.mean(judge.seen)), std::sqrt(judge.mean(judge.found)));
    std::printf("position      %s\n", accuracy);
    std::printf("consistency   mean NIS %.4f (expected 3), %.2f %% within the 95 %% gate\n", nis,
                100 * judge.mean(static_cast<double>(judge.gate)));

    const bool equal = options.repeats == 0 || compare(recording, options, filter);
    if (options.picture != "none") {
        for (double &share : judge.history.nis) share = judge.mean(share);
        drawPicture(options.picture, judge.history,
                    std::to_string(options.tracks) + " tracks, the file's " +
                        std::to_string(judge.history.trajectories) + " drawn; " + accuracy);
        std::printf("\npicture       %s\n", options.picture.c_str());
    }
    return equal && std::abs(nis - 3) <= 0.15 ? 0 : 1;
}

} // namespace
} // namespace tracks

int main(int count, char **arguments) {
    using namespace shared;
    tracks::Options o;
    return execute(
        {"tracks",
         "Estimates the positions and velocities of aircraft from what a radar measured, all tracks at once.",
         {{"[RECORDING.csv]",
           "columns track,time_s,range_m,azimuth_deg,elevation_deg and, if known,\n"
           "true_x_m,true_y_m,true_z_m; all tracks seen at the same times (default: radar.csv)",
           text(o.file)},
          {"--tracks N",
           "tracks to follow (default: 10000). Those beyond the file's repeat its trajectories with\n"
           "errors of the radar's size added, so that their measurements have twice the variance",
           number(o.tracks, 1, 1000000)},
          {"--range-sigma M", "the radar's standard deviations: metres (default: 50)",
           number(o.radar.rangeDeviation, 1e-3, 1e6)},
          {"--angle-sigma DEG", "and degrees (default: 0.3)", number(o.radar.angleDeviation, 1e-6, 90)},
          {"--threads N", "threads for the array calls (default: 1)", number(o.threads, 1, 1024)},
          {"--type TYPE", "double or float (default: double)", oneOf(o.type, {"double", "float"})},
          {"--picture FILE", "the tracks of the file, .png or .svg (default: tracks.png; none: no picture)",
           file(o.picture, pictures)},
          {"--repeats N", "runs of the timing (default: 3; 0: none)", number(o.repeats, 0, 1000)},
          {"--make FILE", "write the recording that comes with the program, and do nothing else", text(o.make)}},
         "Exits with 1 if the filter is not consistent (the mean of the normalised innovations squared is off its\n"
         "expectation 3 by more than 5 %) or the two ways of calling differ, with 2 on bad input.\n"},
        count, arguments, [&] {
            if (o.make.empty()) return o.type == "float" ? tracks::run<float>(o) : tracks::run<double>(o);
            makeRecording(o.make, o.radar, tracks::acceleration);
            return 0;
        });
}
