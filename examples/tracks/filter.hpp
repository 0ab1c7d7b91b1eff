// A Kalman filter for many tracks at once. State: position and velocity, x, y, z, vx, vy, vz; measured: the position.
//
// R. E. Kalman, A New Approach to Linear Filtering and Prediction Problems, J. Basic Engineering 82 (1960); the motion
// is Y. Bar-Shalom, X. R. Li, T. Kirubarajan, Estimation with Applications to Tracking and Navigation (2001), section
// 6.3.2: constant velocity, disturbed by an acceleration that is constant from scan to scan.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <vector>

#include "calls.hpp"

namespace tracks {

using shared::Common;
using shared::Matrices;
using shared::Vectors;

using Axes = std::array<double, 3>; // x, y, z

template <class T>
class Filter {
public:
    static constexpr int states = 6, measured = 3;

    explicit Filter(std::size_t tracks) : size(tracks) {
        for (std::size_t i = 0; i < 3; ++i) I[i * 4] = 1;
        for (std::size_t n = 0; n < size; ++n)
            for (std::size_t i = 3; i < 6; ++i) restOfI[n * 36 + i * 7] = 1; // the columns that K H leaves alone
    }

    // One track's measurement: the position, and a factor B of its covariance B Bt, row by row.
    void measure(std::size_t n, const std::array<double, 3> &position, const std::array<double, 9> &spread) {
        for (std::size_t i = 0; i < 3; ++i) z[n * 3 + i] = static_cast<T>(position[i]);
        for (std::size_t i = 0; i < 9; ++i) B[n * 9 + i] = static_cast<T>(spread[i]);
    }

    // All tracks start at their first measurement with an unknown velocity.
    void start(const Axes &speedDeviation) {
        const Matrices<T> corner = matrices(P, states, measured, measured), b = matrices(B, measured);
        shared::Calls<T, true>{static_cast<int>(size)}.multiplyByT(b, b, corner);
        for (std::size_t n = 0; n < size; ++n)
            for (std::size_t i = 0; i < 3; ++i) {
                x[n * 6 + i] = z[n * 3 + i];
                P[n * 36 + (i + 3) * 7] = static_cast<T>(speedDeviation[i] * speedDeviation[i]);
            }
    }

    // The motion over the next `seconds`.
    void move(double seconds, const Axes &acceleration) {
        for (std::size_t i = 0; i < 3; ++i) {
            const double variance = acceleration[i] * acceleration[i], square = seconds * seconds;
            F[i * 7] = F[(i + 3) * 7] = 1;
            F[i * 6 + i + 3] = static_cast<T>(seconds);
            Q[i * 7] = static_cast<T>(variance * square * square / 4);
            Q[i * 6 + i + 3] = Q[(i + 3) * 6 + i] = static_cast<T>(variance * square * seconds / 2);
            Q[(i + 3) * 7] = static_cast<T>(variance * square);
        }
    }

    // Prediction and update of all tracks, with one call for all of them, or one for each.
    template <bool together>
    void step() {
        shared::forAll<T, together>(size, [&](const auto &calls, std::size_t n) { stepFrom(n, calls); });
    }

    std::size_t size;
    std::vector<T> x = zeros(6), P = zeros(36); // estimates and their covariances
    std::vector<T> z = zeros(3);                // measurements
    std::vector<T> nis = zeros(1);              // yt inv(S) y, the normalised innovations squared

private:
    std::vector<T> zeros(std::size_t elements) const { return std::vector<T>(size * elements); }

    // The leading part of each square matrix of side `side`.
    static Matrices<T> matrices(std::vector<T> &of, int side, int width, int height) {
        return {of.data(), side * side, side, width, height};
    }
    static Matrices<T> matrices(std::vector<T> &of, int side) { return matrices(of, side, side, side); }
    static Vectors<T> vectors(std::vector<T> &of, int pitch, int length) { return {of.data(), pitch, length}; }

    static void require(SmxStatus status) {
        if (status != smxStsNoErr)
            throw std::runtime_error("the covariance of a track is not positive definite any more");
    }

    // The matrix H that takes the measured part of a state is never multiplied by: strides select that part. The
    // covariance is updated in Joseph's form, (I - K H) P (I - K H)t + K B (K B)t: rounding makes P lopsided, and the
    // shorter P - K H P lets that grow from scan to scan until P is no covariance any more.
    template <class Calls>
    void stepFrom(std::size_t n, const Calls &calls) {
        const Common<T> f{F.data(), 6, 6, 6}, q{Q.data(), 6, 6, 6};
        const Matrices<T> p = matrices(P, 6).from(n), ahead = matrices(predictedP, 6).from(n);
        const Matrices<T> work = matrices(FP, 6).from(n);
        const Matrices<T> aheadColumns = matrices(predictedP, 6, 3, 6).from(n);
        const Matrices<T> aheadCorner = matrices(predictedP, 6, 3, 3).from(n);
        const Matrices<T> b = matrices(B, 3).from(n), s = matrices(S, 3).from(n), l = matrices(L, 3).from(n);
        const Matrices<T> inverse = matrices(invS, 3).from(n), gain = Matrices<T>{K.data(), 18, 3, 3, 6}.from(n);
        const Matrices<T> gainB = Matrices<T>{KB.data(), 18, 3, 3, 6}.from(n);
        const Matrices<T> rest = matrices(restOfI, 6).from(n), restColumns = matrices(restOfI, 6, 3, 6).from(n);
        const Vectors<T> state = vectors(x, 6, 6).from(n), next = vectors(predicted, 6, 6).from(n);
        const Vectors<T> nextPosition = vectors(predicted, 6, 3).from(n), correction = vectors(dx, 6, 6).from(n);
        const Vectors<T> measurement = vectors(z, 3, 3).from(n), innovation = vectors(y, 3, 3).from(n);
        const Vectors<T> weighted = vectors(w, 3, 3).from(n);

        calls.multiply(f, state, next);
        calls.multiply(f, p, work);
        calls.multiplyByT(work, f, ahead);
        calls.add(ahead, q, ahead); // F P Ft + Q

        calls.subtract(measurement, nextPosition, innovation);
        calls.multiplyByT(b, b, s);
        calls.add(aheadCorner, s, s); // the innovation's covariance
        require(calls.factorCholesky(s, l));
        calls.solveCholesky(l, innovation, weighted); // inv(S) y
        calls.dot(innovation, weighted, &nis[n]);
        calls.multiply(aheadColumns, weighted, correction);
        calls.add(next, correction, state);

        require(calls.invert(s, buffer.data(), inverse));
        calls.multiply(aheadColumns, inverse, gain);
        calls.subtract(Common<T>{I.data(), 3, 3, 6}, gain, restColumns);
        calls.multiply(rest, ahead, work);
        calls.multiplyByT(work, rest, p);
        calls.multiply(gain, b, gainB);
        calls.multiplyByT(gainB, gainB, work);
        calls.add(p, work, p);
    }

    std::vector<T> F = std::vector<T>(36), Q = std::vector<T>(36), I = std::vector<T>(18);
    std::vector<T> buffer = std::vector<T>(12);
    std::vector<T> predicted = zeros(6), predictedP = zeros(36), FP = zeros(36), dx = zeros(6), K = zeros(18),
                   KB = zeros(18);
    std::vector<T> restOfI = zeros(36); // I - K H
    std::vector<T> B = zeros(9), S = zeros(9), L = zeros(9), invS = zeros(9), y = zeros(3), w = zeros(3);
};

} // namespace tracks
