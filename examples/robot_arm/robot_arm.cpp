// Batch inverse kinematics: the joint angles with which a PUMA 560 follows a path of thousands of tool poses.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "inverse_kinematics.hpp"
#include "path.hpp"
#include "program.hpp"
#include "scene.hpp"
#include "smkcore.h"
#include "timing.hpp"

namespace robot {
namespace {

struct Options {
    std::string path = ROBOT_ARM_PATH, picture = "robot_arm.png", type = "double", makePath;
    int threads = 1, singular = 1000, repeats = 5;
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

// Returns whether both ways of calling gave the same angles, bit for bit.
template <class T>
bool compare(const std::vector<Pose> &path, const Options &options, const std::vector<T> &angles) {
    bool same = true;
    const auto run = [&]<bool together>() {
        InverseKinematics<T, together> solver(path);
        setStart(solver, path.size(), options.singular);
        const double seconds = shared::secondsOf([&] { solver.solve(maxSteps, [](int, std::size_t) {}); });
        same = same && std::memcmp(solver.angles.data(), angles.data(), angles.size() * sizeof(T)) == 0;
        return std::array{solver.work.objects / solver.work.seconds, seconds};
    };
    const auto medians = shared::mediansInTurn(options.repeats, [&](std::size_t way) {
        return way == 0 ? run.template operator()<true>() : run.template operator()<false>();
    });
    std::printf("\nmedians of %d runs       in the library   whole loop\n", options.repeats);
    const char *const names[2] = {"one call for all", "one call per object"};
    for (std::size_t way = 0; way < 2; ++way)
        std::printf("  %-19s %7.2f M objects/s %8.1f ms\n", names[way], medians[way][0] / 1e6, medians[way][1] * 1e3);
    std::printf("  ratio               %7.2f             %8.2f\n", medians[0][0] / medians[1][0],
                medians[1][1] / medians[0][1]);
    std::printf("  same angles to the last bit: %s\n", same ? "yes" : "NO");
    return same;
}

template <class T>
int run(const Options &options) {
    const std::vector<Pose> path = readPath(options.path);
    const std::size_t poses = path.size();
    threads_omp_of_n_smk = options.threads;
    std::printf("%s: %zu poses, %s, %d thread%s\n", options.path.c_str(), poses, options.type.c_str(), options.threads,
                options.threads == 1 ? "" : "s");

    InverseKinematics<T, true> arm(path);
    setStart(arm, path.size(), options.singular);
    std::size_t solved = 0;
    {
        shared::ProgressBar bar(poses, "poses");
        solved = arm.solve(maxSteps, [&](int step, std::size_t done) {
            bar.show(done, "step " + std::string(step < 10 ? " " : "") + std::to_string(step) + " ");
        });
    }

    // The errors that are reported are those of the angles in double, whatever they were found in.
    InverseKinematics<double, true> judge(path);
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
    std::printf("solved                  %zu, unsolved %zu\n", solved, poses - solved);
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
    using namespace shared;
    robot::Options o;
    return execute(
        {"robot_arm",
         "Finds the joint angles of a PUMA 560 for every tool pose of a path, all poses at once.",
         {{"[PATH.csv]", "columns x_mm,y_mm,z_mm,roll_deg,pitch_deg,yaw_deg (default: that of the repository)",
           text(o.path)},
          {"--threads N", "threads for the array calls (default: 1)", number(o.threads, 1, 1024)},
          {"--type TYPE", "double or float (default: double)", oneOf(o.type, {"double", "float"})},
          {"--picture FILE", "the arm and the path, .png or .svg (default: robot_arm.png; none: no picture)",
           file(o.picture, pictures)},
          {"--singular N", "start every Nth pose with all joints at zero, a singular posture (default: 1000; 0: none)",
           number(o.singular, 0, 1000000000)},
          {"--repeats N", "runs of the timing (default: 5; 0: none)", number(o.repeats, 0, 1000)},
          {"--make-path FILE", "write the path that comes with the program, and do nothing else", text(o.makePath)}},
         "Exits with 1 if more than 1 pose in 10000 stays unsolved or the two ways of calling differ, with 2 on bad\n"
         "input.\n"},
        count, arguments, [&] {
            if (o.makePath.empty()) return o.type == "float" ? robot::run<float>(o) : robot::run<double>(o);
            robot::makePath(o.makePath);
            return 0;
        });
}
