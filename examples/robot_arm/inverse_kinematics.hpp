// Inverse kinematics of all poses at once by Newton's method: q <- q + J(q)^-1 e, where e is the difference of the
// poses (position, and axis times angle of the rotation between them) and J the geometric Jacobian in base
// coordinates; damped (Levenberg) where J is singular or nearly: (J'J + lambda^2 I) dq = J'e. Both e and the columns of
// J are spatial vectors: the turn about x, y, z on top, the shift along x, y, z below.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

#include "calls.hpp"
#include "path.hpp"
#include "puma.hpp"
#include "timing.hpp"

namespace robot {

using shared::Common;
using shared::Matrices;

inline constexpr int joints = 6;

struct Tolerance {
    double position, angle; // metres, radians
};

template <class T>
inline constexpr Tolerance tolerance = sizeof(T) == sizeof(float) ? Tolerance{1e-5, 2e-5} : Tolerance{1e-10, 1e-10};

// How the Jacobians fared, counted over all steps.
struct Singularities {
    int refused = 0;   // by the status of the factorization
    int reordered = 0; // of these, factored after all once their rows stood in pivot order
    int damped = 0;    // solved with damping
};

// What the library was asked to do, and how long it took.
struct Work {
    double seconds = 0, objects = 0;
};

// With one call of the library for all poses, or with one for each.
template <class T, bool together>
class InverseKinematics {
public:
    explicit InverseKinematics(const std::vector<Pose> &path)
        : angles(path.size() * joints), positionError(path.size()), angleError(path.size()), size(path.size()),
          wanted(size * 16), link(size * 16), frame(size * 16), nextFrame(size * 16), between(size * 9),
          jacobian(size * 36), factors(size * 36), error(size * joints), step(size * joints), pivots(size * joints) {
        for (std::size_t n = 0; n < size; ++n) std::copy(path[n].begin(), path[n].end(), wanted.begin() + at(n, 16));
    }

    // The joint angles from which each pose is searched, in radians.
    void start(std::size_t n, const std::array<double, joints> &q) {
        for (std::size_t j = 0; j < joints; ++j) angles[n * joints + j] = static_cast<T>(q[j]);
    }

    // Steps until every pose is reached or the steps are used up; returns how many are. Calls progress(step, solved).
    std::size_t solve(int maxSteps, const std::function<void(int, std::size_t)> &progress) {
        for (int taken = 0;; ++taken) {
            transforms();
            const std::size_t solved = errors();
            progress(taken, solved);
            if (taken == maxSteps || solved == size) return solved;
            factorJacobians();
            const Matrices<T> lu = array(factors, 6);
            const shared::Vectors<T> right{error.data(), joints, joints}, solution{step.data(), joints, joints};
            const int *const order = pivots.data();
            forAll([=](const auto &calls, std::size_t n) {
                calls.solveLU(lu.from(n), order + n * joints, right.from(n), solution.from(n));
            });
            move();
        }
    }

    // The errors of the present angles.
    std::size_t evaluate() {
        transforms();
        return errors();
    }

    bool solved(std::size_t n) const {
        return positionError[n] <= tolerance<T>.position && angleError[n] <= tolerance<T>.angle;
    }

    std::vector<T> angles;
    std::vector<double> positionError, angleError;
    Singularities singularities;
    Work work;

private:
    static constexpr T largestStep = T(0.4); // radians, of the joint that moves most
    static constexpr T lambda = T(0.05);
    // Pivots further apart than this count as singular.
    static constexpr T smallestPivotRatio = T(1e-4);

    static std::ptrdiff_t at(std::size_t n, int pitch) { return static_cast<std::ptrdiff_t>(n) * pitch; }
    // Square matrices; of transforms perhaps the upper left corners.
    static Matrices<T> array(std::vector<T> &v, int row) { return {v.data(), row * row, row, row, row}; }
    static Matrices<T> corners(std::vector<T> &v) { return {v.data(), 16, 4, 3, 3}; }

    template <class Do>
    void forAll(const Do &what) {
        work.objects += static_cast<double>(size);
        work.seconds += shared::secondsOf([&] { shared::forAll<T, together>(size, what); });
    }
    void multiply(auto a, auto b, Matrices<T> dst) {
        forAll([=](const auto &calls, std::size_t n) { calls.multiply(a.from(n), b.from(n), dst.from(n)); });
    }

    // Forward kinematics, link by link for all poses. On the way the columns of J take the origin and the z axis of the
    // frame in which each joint turns; the end makes the columns of them.
    void transforms() {
        auto base = translation<T>(0, 0, static_cast<T>(shoulderHeight));
        auto pen = translation<T>(0, 0, static_cast<T>(penLength));
        for (int j = 0; j < joints; ++j) {
            for (std::size_t n = 0; n < size; ++n) {
                linkTransform(puma560[static_cast<std::size_t>(j)], angles[n * joints + static_cast<std::size_t>(j)],
                              &link[n * 16]);
                noteAxis(j == 0 ? base.data() : &frame[n * 16], &jacobian[n * 36] + j);
            }
            if (j == 0) multiply(Common<T>{base.data(), 4, 4, 4}, array(link, 4), array(nextFrame, 4));
            else multiply(array(frame, 4), array(link, 4), array(nextFrame, 4));
            frame.swap(nextFrame);
        }
        multiply(array(frame, 4), Common<T>{pen.data(), 4, 4, 4}, array(nextFrame, 4));
        frame.swap(nextFrame);
        for (std::size_t n = 0; n < size; ++n)
            for (int j = 0; j < joints; ++j) finishColumn(&frame[n * 16], &jacobian[n * 36] + j);
    }

    static void noteAxis(const T *m, T *column) {
        for (int i = 0; i < 3; ++i) {
            column[i * 6] = m[i * 4 + 2];
            column[(i + 3) * 6] = m[i * 4 + 3];
        }
    }

    // A turn about the axis z through the point o moves the tip p by z x (p - o).
    static void finishColumn(const T *tip, T *column) {
        const T z[3] = {column[0], column[6], column[12]};
        const T r[3] = {tip[3] - column[18], tip[7] - column[24], tip[11] - column[30]};
        column[18] = z[1] * r[2] - z[2] * r[1];
        column[24] = z[2] * r[0] - z[0] * r[2];
        column[30] = z[0] * r[1] - z[1] * r[0];
    }

    // The rotation from here to there is R_wanted R', the upper left 3 by 3 blocks of the transforms.
    std::size_t errors() {
        const Matrices<T> to = corners(wanted), from = corners(frame), turn = array(between, 3);
        forAll([=](const auto &calls, std::size_t n) { calls.multiplyByT(to.from(n), from.from(n), turn.from(n)); });
        std::size_t done = 0;
        for (std::size_t n = 0; n < size; ++n) {
            T *const e = &error[n * joints];
            const T *const w = &wanted[n * 16], *const f = &frame[n * 16], *const r = &between[n * 9];
            for (int i = 0; i < 3; ++i) e[i + 3] = w[i * 4 + 3] - f[i * 4 + 3];
            const T axis[3] = {(r[7] - r[5]) / 2, (r[2] - r[6]) / 2, (r[3] - r[1]) / 2};
            const T sine = std::hypot(axis[0], axis[1], axis[2]);
            const T angle = std::atan2(sine, (r[0] + r[4] + r[8] - 1) / 2);
            const T scale = sine > std::numeric_limits<T>::min() ? angle / sine : T(1);
            for (int i = 0; i < 3; ++i) e[i] = axis[i] * scale;
            positionError[n] = std::hypot(e[3], e[4], e[5]);
            angleError[n] = angle;
            done += solved(n);
        }
        return done;
    }

    // The status of an array call says only that some matrix was refused, and each thread stops at the first one of its
    // share. Then each matrix is asked for its own status, which also factors those that were left behind.
    void factorJacobians() {
        refused.assign(size, 0);
        forAll([&](const auto &calls, std::size_t n) {
            const SmxStatus status =
                calls.factorLU(array(jacobian, 6).from(n), &pivots[n * joints], array(factors, 6).from(n));
            if (!together) refused[n] = status != smxStsNoErr;
            else if (status != smxStsNoErr)
                for (std::size_t i = 0; i < size; ++i) refused[i] = !factorOne(array(jacobian, 6).from(i), i);
        });
        for (std::size_t n = 0; n < size; ++n) {
            if (solved(n) && !refused[n]) continue;
            bool good = !refused[n];
            if (refused[n]) {
                ++singularities.refused;
                good = factorInPivotOrder(array(jacobian, 6).from(n), n);
                singularities.reordered += good;
            }
            if (!good || nearlySingular(n)) damp(n);
        }
    }

    // The last test of a 6 by 6 factorization reads the last row as stored, so it can refuse an invertible matrix: here
    // those of the start posture, where joint 6 shifts nothing along z and the corner element stays zero (in float; in
    // double a rounding error may save it). Its pivotIndex is complete then, and with the rows stored in that order the
    // same matrix passes. Exchanges the rows of a and of the right-hand side.
    bool factorInPivotOrder(Matrices<T> a, std::size_t n) {
        T rows[36], right[joints];
        int *const pivot = &pivots[n * joints];
        for (int i = 0; i < joints; ++i) {
            std::copy_n(a.base + pivot[i] * 6, 6, rows + i * 6);
            right[i] = error[n * joints + static_cast<std::size_t>(pivot[i])];
        }
        std::copy_n(rows, 36, a.base);
        std::copy_n(right, joints, &error[n * joints]);
        return factorOne(a, n);
    }

    bool factorOne(Matrices<T> a, std::size_t n) {
        return single.factorLU(a, &pivots[n * joints], array(factors, 6).from(n)) == smxStsNoErr;
    }

    // Nor does that test see a last pivot of zero in another row, so all of them are looked at here.
    bool nearlySingular(std::size_t n) const {
        T least = std::numeric_limits<T>::max(), greatest = 0;
        for (std::size_t i = 0; i < joints; ++i) {
            const T pivot = std::abs(factors[n * 36 + static_cast<std::size_t>(pivots[n * joints + i]) * 6 + i]);
            least = std::min(least, pivot);
            greatest = std::max(greatest, pivot);
        }
        return !(least > smallestPivotRatio * greatest);
    }

    // Puts the damped system in the place of J and e. Should even that be refused, the joints are nudged.
    void damp(std::size_t n) {
        ++singularities.damped;
        const Matrices<T> j = array(jacobian, 6).from(n), e{&error[n * joints], 0, 1, 1, joints};
        T normal[36], right[joints];
        const Matrices<T> damped{normal, 0, 6, 6, 6};
        single.multiplyT(j, j, damped);
        single.multiplyT(j, e, {right, 0, 1, 1, joints});
        for (int i = 0; i < joints; ++i) normal[i * 7] += lambda * lambda;
        std::copy_n(right, joints, e.base);
        if (factorOne(damped, n) || factorInPivotOrder(damped, n)) return;
        for (int i = 0; i < 36; ++i) normal[i] = i % 7 == 0;
        std::fill_n(e.base, joints, T(0.01));
        factorOne(damped, n);
    }

    void move() {
        for (std::size_t n = 0; n < size; ++n) {
            if (solved(n)) continue;
            const T *const dq = &step[n * joints];
            T longest = 0;
            for (int j = 0; j < joints; ++j) longest = std::max(longest, std::abs(dq[j]));
            const T part = longest > largestStep ? largestStep / longest : T(1);
            for (std::size_t j = 0; j < joints; ++j) angles[n * joints + j] += part * dq[j];
        }
    }

    static constexpr shared::Calls<T, false> single{};
    std::size_t size;
    std::vector<T> wanted, link, frame, nextFrame, between; // transforms; the rotation from frame to wanted
    std::vector<T> jacobian, factors, error, step;
    std::vector<int> pivots;
    std::vector<char> refused;
};

} // namespace robot
