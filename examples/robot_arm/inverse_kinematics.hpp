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

#include "batch_calls.hpp"
#include "path.hpp"
#include "puma.hpp"

namespace robot {

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

template <class T, template <class> class Calls>
class InverseKinematics {
public:
    explicit InverseKinematics(const std::vector<Pose> &path)
        : angles(path.size() * joints), positionError(path.size()),
          angleError(path.size()), calls{static_cast<int>(path.size())}, size(path.size()), wanted(size * 16),
          link(size * 16), frame(size * 16), nextFrame(size * 16), between(size * 9), jacobian(size * 36),
          factors(size * 36), error(size * joints), step(size * joints), pivots(size * joints) {
        for (std::size_t n = 0; n < size; ++n) std::copy(path[n].begin(), path[n].end(), wanted.begin() + at(n, 16));
    }

    // The joint angles from which each pose is searched, in radians.
    void start(std::size_t n, const std::array<double, joints> &q) {
        for (std::size_t j = 0; j < joints; ++j) angles[n * joints + j] = static_cast<T>(q[j]);
    }

    // Steps until every pose is reached or the steps are used up; returns how many are. Calls progress(step, solved).
    int solve(int maxSteps, const std::function<void(int, int)> &progress) {
        for (int taken = 0;; ++taken) {
            transforms();
            const int solved = errors();
            progress(taken, solved);
            if (taken == maxSteps || solved == calls.count) return solved;
            factorJacobians();
            calls.solve(array(factors, 36, 6), pivots.data(), error.data(), step.data());
            move();
        }
    }

    // The errors of the present angles.
    int evaluate() {
        transforms();
        return errors();
    }

    bool solved(std::size_t n) const {
        return positionError[n] <= tolerance<T>.position && angleError[n] <= tolerance<T>.angle;
    }

    const Work &work() const { return calls.work; }

    std::vector<T> angles;
    std::vector<double> positionError, angleError;
    Singularities singularities;

private:
    static constexpr T largestStep = T(0.4); // radians, of the joint that moves most
    static constexpr T lambda = T(0.05);
    // Pivots further apart than this count as singular.
    static constexpr T smallestPivotRatio = T(1e-4);

    static std::ptrdiff_t at(std::size_t n, int pitch) { return static_cast<std::ptrdiff_t>(n) * pitch; }
    static Matrices<T> array(std::vector<T> &v, int pitch, int row) { return {v.data(), pitch, row}; }

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
            calls.multiply(j == 0 ? Matrices<T>{base.data(), 0, 4} : array(frame, 16, 4), array(link, 16, 4),
                           array(nextFrame, 16, 4), 4);
            frame.swap(nextFrame);
        }
        calls.multiply(array(frame, 16, 4), {pen.data(), 0, 4}, array(nextFrame, 16, 4), 4);
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
    int errors() {
        calls.multiplyTransposed(array(wanted, 16, 4), array(frame, 16, 4), array(between, 9, 3), 3);
        int done = 0;
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

    void factorJacobians() {
        calls.factor(array(jacobian, 36, 6), pivots.data(), array(factors, 36, 6), refused);
        for (std::size_t n = 0; n < size; ++n) {
            if (solved(n) && !refused[n]) continue;
            bool good = !refused[n];
            if (refused[n]) {
                ++singularities.refused;
                good = factorInPivotOrder(&jacobian[n * 36], n);
                singularities.reordered += good;
            }
            if (!good || nearlySingular(n)) damp(n);
        }
    }

    // The last test of a 6 by 6 factorization reads the last row as stored, so it can refuse an invertible matrix: here
    // those of the start posture, where joint 6 shifts nothing along z and the corner element stays zero (in float; in
    // double a rounding error may save it). Its pivotIndex is complete then, and with the rows stored in that order the
    // same matrix passes. Exchanges the rows of a and of the right-hand side.
    bool factorInPivotOrder(T *a, std::size_t n) {
        T rows[36], right[joints];
        int *const pivot = &pivots[n * joints];
        for (int i = 0; i < joints; ++i) {
            std::copy_n(a + pivot[i] * 6, 6, rows + i * 6);
            right[i] = error[n * joints + static_cast<std::size_t>(pivot[i])];
        }
        std::copy_n(rows, 36, a);
        std::copy_n(right, joints, &error[n * joints]);
        return factorOne(a, n);
    }

    bool factorOne(const T *a, std::size_t n) {
        constexpr int row = 6 * sizeof(T);
        return LUDecomp_m(T(), a, row, int(sizeof(T)), &pivots[n * joints], &factors[n * 36], row, int(sizeof(T)),
                          joints) == smxStsNoErr;
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
        constexpr int element = sizeof(T), row = 6 * element;
        const T *const j = &jacobian[n * 36];
        T *const e = &error[n * joints];
        T normal[36], right[joints];
        Mul_tm(T(), j, row, element, 6, 6, j, row, element, 6, 6, normal, row, element);
        Mul_tm(T(), j, row, element, 6, 6, static_cast<const T *>(e), element, element, 1, 6, right, element, element);
        for (int i = 0; i < joints; ++i) normal[i * 7] += lambda * lambda;
        std::copy_n(right, joints, e);
        if (factorOne(normal, n) || factorInPivotOrder(normal, n)) return;
        for (int i = 0; i < 36; ++i) normal[i] = i % 7 == 0;
        std::fill_n(e, joints, T(0.01));
        factorOne(normal, n);
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

    Calls<T> calls;
    std::size_t size;
    std::vector<T> wanted, link, frame, nextFrame, between; // transforms; the rotation from frame to wanted
    std::vector<T> jacobian, factors, error, step;
    std::vector<int> pivots;
    std::vector<char> refused;
};

} // namespace robot
