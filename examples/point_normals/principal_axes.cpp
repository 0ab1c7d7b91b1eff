#include "principal_axes.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "smx.h"
#include "timing.hpp"

namespace normals {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double goodResidual = 1e-8;
constexpr int attempts = 6;
constexpr int element = sizeof(double), row = 3 * element, object = 3 * row;

// What the library gets in place of C. An array call stops at the first matrix that it calls singular (a product of
// eigenvalues of at most 2^-23) or that does not converge, and its tolerances are absolute. So
//  - C is divided by its trace: the scale of the cloud, and how densely it is sampled, drop out;
//  - it is multiplied by some 2^10, so that what the reduction drops (columns of a squared length of 2^-52) is little;
//  - an eighth of that is added to the diagonal: no eigenvalue is near 0, although those of flat neighbourhoods are;
//  - three different steps of 1e-10 are added besides: eigenvalues that are equal but for rounding, as those of regular
//    grids, might not converge. This is far less than any scanner sees.
// One matrix in some ten thousand still meets a sweep that stands still, whatever its eigenvalues: an off-diagonal
// element happens to come out between 2^-51, which would count as 0, and a few times that, where the last update of a
// sweep is skipped. On another scale it comes out elsewhere.
struct Treatment {
    double scale, shift;
    std::array<double, 3> steps{0, 1.618e-10, 5.236e-10};

    explicit Treatment(int attempt) : scale(1024 * std::pow(50, attempt)), shift(scale / 8) {}

    void apply(const double *covariance, double trace, double *to) const {
        const double factor = trace > 0 ? scale / trace : 0;
        for (std::size_t i = 0; i < 9; ++i) to[i] = factor * covariance[i];
        for (std::size_t i = 0; i < 3; ++i) to[i * 4] += shift + scale * steps[i];
    }
};

// The vectors are good for C itself up to the square of the steps; the values that fit them best are z' C z. Returns the
// largest |C z - w z|, which also shows vectors that have not been written, or are wrong.
double valuesOf(const double *c, const double *z, double *w) {
    double worst = 0;
    for (std::size_t j = 0; j < 3; ++j) {
        std::array<double, 3> product{};
        double square = 0;
        w[j] = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k) product[i] += c[i * 3 + k] * z[k * 3 + j];
            w[j] += z[i * 3 + j] * product[i];
            square += z[i * 3 + j] * z[i * 3 + j];
        }
        if (!(std::abs(square - 1) < 1e-12)) return nan;
        for (std::size_t i = 0; i < 3; ++i) worst = std::max(worst, std::abs(product[i] - w[j] * z[i * 3 + j]));
    }
    return worst;
}

// Solves all, in one call unless a matrix stops it, and then in one more for each that does; those stay as they are. The
// status does not say which matrix it was, but behind it, to the end of its thread's share, no vectors are written.
int solve(const std::vector<double> &matrices, std::vector<double> &vectors, std::vector<double> &values) {
    double buffer[9];
    int calls = 0;
    std::vector<std::array<std::size_t, 2>> ranges = {{0, matrices.size() / 9}};
    while (!ranges.empty()) {
        const auto [first, last] = ranges.back();
        ranges.pop_back();
        ++calls;
        const SmxStatus status = smxEigenValuesVectorsSym_ma_64f(&matrices[first * 9], object, row, element, buffer,
                                                                 &vectors[first * 9], object, row, element,
                                                                 &values[first * 3], 3, static_cast<int>(last - first));
        if (status == smxStsNoErr) continue;
        const auto unwritten = [&](std::size_t n) { return std::isnan(vectors[n * 9]); };
        for (std::size_t n = first + 1; n < last; ++n) {
            const std::size_t start = n;
            while (n < last && unwritten(n)) ++n;
            if (n > start) ranges.push_back({start, n});
        }
    }
    return calls;
}

} // namespace

PrincipalAxes principalAxes(const std::vector<double> &covariances) {
    const std::size_t count = covariances.size() / 9;
    PrincipalAxes result{std::vector<double>(count * 3, nan), std::vector<double>(count * 9, nan)};
    std::vector<std::size_t> open(count);
    std::iota(open.begin(), open.end(), std::size_t{0});
    std::vector<double> treated, vectors, values;
    const auto trace = [&](std::size_t n) {
        const double *c = &covariances[n * 9];
        return c[0] + c[4] + c[8];
    };
    for (int attempt = 0; attempt < attempts && !open.empty(); ++attempt) {
        const Treatment treatment(attempt);
        treated.resize(open.size() * 9);
        vectors.assign(open.size() * 9, nan);
        values.resize(open.size() * 3);
        for (std::size_t i = 0; i < open.size(); ++i)
            treatment.apply(&covariances[open[i] * 9], trace(open[i]), &treated[i * 9]);

        result.inLibrary += shared::secondsOf([&] { result.calls += solve(treated, vectors, values); });

        std::vector<std::size_t> failed;
        for (std::size_t i = 0; i < open.size(); ++i) {
            const std::size_t n = open[i];
            double w[3];
            const double whole = trace(n), residual = valuesOf(&covariances[n * 9], &vectors[i * 9], w);
            if (!(residual <= goodResidual * whole)) {
                failed.push_back(n);
                continue;
            }
            if (whole > 0) result.worstResidual = std::max(result.worstResidual, residual / whole);
            std::copy_n(w, 3, &result.values[n * 3]);
            std::copy_n(&vectors[i * 9], 9, &result.vectors[n * 9]);
        }
        if (attempt == 0) result.again = failed.size();
        open.swap(failed);
    }
    return result;
}

} // namespace normals
