// Batch inverse kinematics: the joint angles with which a PUMA 560 follows a path of thousands of tool poses.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

#include <unistd.h>

#include "inverse_kinematics.hpp"
#include "path.hpp"
#include "picture.hpp"
#include "smkcore.h"

namespace robot {
namespace {

constexpr const char *usage =
    R"(Usage: robot_arm [options] [PATH.csv]
Finds the joint angles of a PUMA 560 for every tool pose of a path, all poses at once.

  PATH.csv           columns x_mm,y_mm,z_mm,roll_deg,pitch_deg,yaw_deg (default: path.csv)
  --threads N        threads for the array calls (default: 1)
  --type TYPE        double or float (default: double)
  --picture FILE     where to draw the arm and the path (default: robot_arm.png; none: no picture)
  --singular N       start every Nth pose with all joints at zero, a singular posture (default: 1000; 0: none)
  --repeats N        runs of the timing (default: 5; 0: none)
  --make-path FILE   write the path that comes with the program, and do nothing else
  --help

Exits with 1 if more than 1 pose in 10000 stays unsolved or the two ways of calling differ, with 2 on bad input.
)";

struct Options {
    std::string path = "path.csv", picture = "robot_arm.png", type = "double", makePath;
    int threads = 1, singular = 1000, repeats = 5;
    bool help = false;
};

int wholeNumber(std::string_view option, std::string_view text, int least) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < least)
        throw std::runtime_error(std::string(option) + " needs a whole number of at least " + std::to_string(least));
    return value;
}

Options readOptions(int count, char **arguments) {
    Options options;
    bool havePath = false;
    for (int i = 1; i < count; ++i) {
        const std::string_view option = arguments[i];
        const auto value = [&]() -> std::string_view {
            if (++i == count) throw std::runtime_error(std::string(option) + " needs a value");
            return arguments[i];
        };
        if (option == "--help") options.help = true;
        else if (option == "--threads") options.threads = wholeNumber(option, value(), 1);
        else if (option == "--singular") options.singular = wholeNumber(option, value(), 0);
        else if (option == "--repeats") options.repeats = wholeNumber(option, value(), 0);
        else if (option == "--picture") options.picture = value();
        else if (option == "--make-path") options.makePath = value();
        else if (option == "--type") options.type = value();
        else if (option.starts_with("-") || havePath)
            throw std::runtime_error("what is \"" + std::string(option) + "\"? See --help");
        else {
            options.path = option;
            havePath = true;
        }
    }
    if (options.type != "double" && options.type != "float")
        throw std::runtime_error("--type is double or float, not \"" + options.type + "\"");
    return options;
}

class ProgressBar {
public:
    explicit ProgressBar(int poses) : total(poses) {}
    void show(int step, int solved) const {
        constexpr std::size_t width = 40;
        const std::size_t filled = static_cast<std::size_t>(solved) * width / static_cast<std::size_t>(total);
        std::printf("%sstep %2d [%s%s] %d of %d poses%s", terminal ? "\r" : "", step, std::string(filled, '#').c_str(),
                    std::string(width - filled, '.').c_str(), solved, total, terminal ? "" : "\n");
        std::fflush(stdout);
    }
    void finish() const {
        if (terminal) std::puts("");
    }

private:
    int total;
    bool terminal = isatty(STDOUT_FILENO) == 1;
};

constexpr double degree = std::numbers::pi / 180;

Angles inRadians(std::array<double, 6> degrees) {
    for (double &angle : degrees) angle *= degree;
    return degrees;
}

// Every pose starts from the same posture but each `singular`th: with all joints at zero the axes of joints 4 and 6
// coincide and none has a part along x.
template <class Solver>
void setStart(Solver &solver, std::size_t poses, int singular) {
    const Angles usual = inRadians(startDegrees);
    const Angles zero{};
    for (std::size_t n = 0; n < poses; ++n)
        solver.start(n, singular > 0 && n % static_cast<std::size_t>(singular) == 0 ? zero : usual);
}

constexpr int maxSteps = 60;

struct Timing {
    double loop, library, objects; // seconds, seconds, objects given to the library
};

template <class Solver>
Timing timed(Solver &solver, std::size_t poses, int singular) {
    setStart(solver, poses, singular);
    Work whole;
    {
        Stopwatch running(whole, 0);
        solver.solve(maxSteps, [](int, int) {});
    }
    return {whole.seconds, solver.work().seconds, solver.work().objects};
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// Both ways in turn; the medians of the runs. Returns whether both gave the same angles, bit for bit.
template <class T>
bool compare(const std::vector<Pose> &path, const Options &options, const std::vector<T> &angles) {
    std::vector<double> loops[2], rates[2];
    bool same = true;
    const auto run = [&]<template <class> class Calls>(std::size_t way) {
        InverseKinematics<T, Calls> solver(path);
        const Timing time = timed(solver, path.size(), options.singular);
        loops[way].push_back(time.loop);
        rates[way].push_back(time.objects / time.library);
        same = same && std::memcmp(solver.angles.data(), angles.data(), angles.size() * sizeof(T)) == 0;
    };
    for (int i = 0; i < options.repeats; ++i) {
        run.template operator()<AllAtOnce>(0);
        run.template operator()<OneByOne>(1);
    }
    std::printf("\nmedians of %d runs       in the library   whole loop\n", options.repeats);
    const char *const names[2] = {"one call for all", "one call per object"};
    for (std::size_t way = 0; way < 2; ++way)
        std::printf("  %-19s %7.2f M objects/s %8.1f ms\n", names[way], median(rates[way]) / 1e6,
                    median(loops[way]) * 1e3);
    std::printf("  ratio               %7.2f             %8.2f\n", median(rates[0]) / median(rates[1]),
                median(loops[1]) / median(loops[0]));
    std::printf("  same angles to the last bit: %s\n", same ? "yes" : "NO");
    return same;
}

template <class T>
int run(const Options &options) {
    const std::vector<Pose> path = readPath(options.path);
    const int poses = static_cast<int>(path.size());
    threads_omp_of_n_smk = options.threads;
    std::printf("%s: %d poses, %s, %d thread%s\n", options.path.c_str(), poses, options.type.c_str(), options.threads,
                options.threads == 1 ? "" : "s");

    InverseKinematics<T, AllAtOnce> arm(path);
    setStart(arm, path.size(), options.singular);
    const ProgressBar bar(poses);
    const int solved = arm.solve(maxSteps, [&](int step, int done) { bar.show(step, done); });
    bar.finish();

    // The errors that are reported are those of the angles in double, whatever they were found in.
    InverseKinematics<double, AllAtOnce> judge(path);
    std::vector<Angles> angles(path.size());
    for (std::size_t n = 0; n < path.size(); ++n) {
        for (std::size_t j = 0; j < 6; ++j) angles[n][j] = static_cast<double>(arm.angles[n * 6 + j]);
        judge.start(n, angles[n]);
    }
    judge.evaluate();
    double worstPosition = 0, worstAngle = 0;
    for (std::size_t n = 0; n < path.size(); ++n) {
        if (!arm.solved(n)) continue;
        worstPosition = std::max(worstPosition, judge.positionError[n]);
        worstAngle = std::max(worstAngle, judge.angleError[n]);
    }
    const Singularities &met = arm.singularities;
    std::printf("solved                  %d, unsolved %d\n", solved, poses - solved);
    std::printf("worst position error    %.2e mm\n", worstPosition * 1e3);
    std::printf("worst orientation error %.2e degrees\n", worstAngle / degree);
    std::printf("Jacobians refused       %d (%d factored with their rows reordered)\n", met.refused, met.reordered);
    std::printf("damped steps            %d\n", met.damped);

    const bool same = options.repeats == 0 || compare<T>(path, options, arm.angles);
    if (options.picture != "none") {
        drawPicture(options.picture, path, angles,
                    std::to_string(solved) + " of " + std::to_string(poses) + " tool poses solved, " + options.type);
        std::printf("\npicture                 %s\n", options.picture.c_str());
    }
    return same && (poses - solved) <= poses / 10000 ? 0 : 1;
}

} // namespace
} // namespace robot

int main(int count, char **arguments) {
    try {
        const robot::Options options = robot::readOptions(count, arguments);
        if (options.help) std::fputs(robot::usage, stdout);
        else if (!options.makePath.empty()) robot::makePath(options.makePath);
        else return options.type == "float" ? robot::run<float>(options) : robot::run<double>(options);
        return 0;
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "robot_arm: %s\n", failure.what());
        return 2;
    }
}
