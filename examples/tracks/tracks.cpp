// Multi-target tracking: a Kalman filter over thousands of six-state tracks at once.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

#include <unistd.h>

#include "filter.hpp"
#include "picture.hpp"
#include "radar.hpp"
#include "smkcore.h"

namespace tracks {
namespace {

constexpr const char *usage =
    R"(Usage: tracks [options] [RECORDING.csv]
Estimates the positions and velocities of aircraft from what a radar measured, all tracks at once.

  RECORDING.csv      columns track,time_s,range_m,azimuth_deg,elevation_deg and, if known, true_x_m,true_y_m,true_z_m;
                     all tracks seen at the same times (default: radar.csv)
  --tracks N         tracks to follow (default: 10000). Those beyond the file's repeat its trajectories with errors of
                     the radar's size added, so that their measurements have twice the variance
  --range-sigma M    the radar's standard deviations: metres (default: 50)
  --angle-sigma DEG  and degrees (default: 0.3)
  --threads N        threads for the array calls (default: 1)
  --type TYPE        double or float (default: double)
  --picture FILE     where to draw the tracks of the file (default: tracks.png; none: no picture)
  --repeats N        runs of the timing (default: 3; 0: none)
  --make FILE        write the recording that comes with the program, and do nothing else
  --help

Exits with 1 if the filter is not consistent (the mean of the normalised innovations squared is off its expectation 3 by
more than 5 %) or the two ways of calling differ, with 2 on bad input.
)";

struct Options {
    std::string file = "radar.csv", picture = "tracks.png", type = "double", make;
    int tracks = 10000, threads = 1, repeats = 3;
    Radar radar;
    bool help = false;
};

template <class Number>
Number number(std::string_view option, std::string_view text, Number least) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= least) || value > Number(1e9))
        throw std::runtime_error(std::string(option) + " does not take \"" + std::string(text) + "\"");
    return value;
}

Options readOptions(int count, char **arguments) {
    Options options;
    bool haveFile = false;
    for (int i = 1; i < count; ++i) {
        const std::string_view option = arguments[i];
        const auto value = [&]() -> std::string_view {
            if (++i == count) throw std::runtime_error(std::string(option) + " needs a value");
            return arguments[i];
        };
        if (option == "--help") options.help = true;
        else if (option == "--tracks") options.tracks = number(option, value(), 1);
        else if (option == "--range-sigma") options.radar.rangeDeviation = number(option, value(), 1e-3);
        else if (option == "--angle-sigma") options.radar.angleDeviation = number(option, value(), 1e-6);
        else if (option == "--threads") options.threads = number(option, value(), 1);
        else if (option == "--repeats") options.repeats = number(option, value(), 0);
        else if (option == "--picture") options.picture = value();
        else if (option == "--make") options.make = value();
        else if (option == "--type") options.type = value();
        else if (option.starts_with("-") || haveFile)
            throw std::runtime_error("what is \"" + std::string(option) + "\"? See --help");
        else {
            options.file = option;
            haveFile = true;
        }
    }
    if (options.type != "double" && options.type != "float")
        throw std::runtime_error("--type is double or float, not \"" + options.type + "\"");
    return options;
}

class ProgressBar {
public:
    explicit ProgressBar(std::size_t scans) : total(scans) {}
    void show(std::size_t scan) const {
        constexpr std::size_t width = 40;
        if (!terminal && scan != total) return;
        const std::size_t filled = scan * width / total;
        std::printf("%sscan %3zu of %zu [%s%s]%s", terminal ? "\r" : "", scan, total, std::string(filled, '#').c_str(),
                    std::string(width - filled, '.').c_str(), scan == total ? "\n" : "");
        std::fflush(stdout);
    }

private:
    std::size_t total;
    bool terminal = isatty(STDOUT_FILENO) == 1;
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
    using Clock = std::chrono::steady_clock;
    Clock::duration taken{};
    for (std::size_t scan = 0; scan < recording.scans(); ++scan) {
        measure(filter, recording, radar, scan);
        if (scan == 0) filter.start(speed);
        else {
            filter.move(recording.times[scan] - recording.times[scan - 1], acceleration);
            const auto begin = Clock::now();
            step(filter);
            taken += Clock::now() - begin;
        }
        report(scan);
    }
    return std::chrono::duration<double>(taken).count();
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

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

template <class T>
bool same(const std::vector<T> &a, const std::vector<T> &b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

// Both ways in turn; the medians of the runs. Returns whether both gave the same estimates, bit for bit.
template <class T>
bool compare(const Recording &recording, const Options &options, const Filter<T> &expected) {
    std::vector<double> seconds[2];
    bool equal = true;
    const auto run = [&](std::size_t way, const auto &step) {
        Filter<T> filter(expected.size);
        seconds[way].push_back(follow(filter, recording, options.radar, step, [](std::size_t) {}));
        equal = equal && same(filter.x, expected.x) && same(filter.P, expected.P) && same(filter.nis, expected.nis);
    };
    for (int i = 0; i < options.repeats; ++i) {
        run(0, [](Filter<T> &filter) { filter.stepTogether(); });
        run(1, [](Filter<T> &filter) { filter.stepEach(); });
    }
    const double updates = static_cast<double>(expected.size * (recording.scans() - 1));
    std::printf("\nmedians of %d runs       track updates\n", options.repeats);
    const char *const names[2] = {"one call for all", "one call per track"};
    for (std::size_t way = 0; way < 2; ++way)
        std::printf("  %-19s %8.3f M/s\n", names[way], updates / median(seconds[way]) / 1e6);
    std::printf("  ratio               %8.2f\n", median(seconds[1]) / median(seconds[0]));
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
    const ProgressBar bar(recording.scans());
    follow(
        filter, recording, options.radar, [](Filter<T> &all) { all.stepTogether(); },
        [&](std::size_t scan) {
            judge.look(filter, recording, options.radar, scan);
            bar.show(scan + 1);
        });

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
    try {
        const tracks::Options options = tracks::readOptions(count, arguments);
        if (options.help) std::fputs(tracks::usage, stdout);
        else if (!options.make.empty()) tracks::makeRecording(options.make, options.radar, tracks::acceleration);
        else return options.type == "float" ? tracks::run<float>(options) : tracks::run<double>(options);
        return 0;
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "tracks: %s\n", failure.what());
        return 2;
    }
}
