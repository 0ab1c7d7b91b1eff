// The eigenvalues of matrices that are known for being difficult, against what they are known to be.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "matrices.hpp"
#include "plot.hpp"
#include "program.hpp"
#include "smx.h"

namespace spectra {
namespace {

constexpr double eps = std::numeric_limits<double>::epsilon();
constexpr int element = sizeof(double);
using Computed = std::vector<std::complex<double>>;

Computed joined(const std::vector<double> &re, const std::vector<double> &im) {
    Computed values;
    for (std::size_t i = 0; i < re.size(); ++i) values.emplace_back(re[i], im[i]);
    return values;
}

struct Outcome {
    SmxStatus status;
    Computed values;
};

struct WithVectors : Outcome {
    std::vector<double> condition; // of each value
    double residual;               // the largest, in units of eps |A|
};

class Problem {
public:
    explicit Problem(const Named &matrix)
        : named(matrix), n(static_cast<std::size_t>(matrix.side)), row(matrix.side * element) {
        smxFrobNorm_m_64f(named.elements.data(), row, element, named.side, named.side, &norm);
    }

    Outcome general() const {
        std::vector<double> re(n), im(n), buffer(scratch(smxEigenValuesGetBufSize_64f));
        const SmxStatus status =
            smxEigenValues_m_64f(named.elements.data(), row, element, re.data(), im.data(), named.side, buffer.data());
        return {status, joined(re, im)};
    }

    WithVectors generalVectors() const {
        std::vector<double> re(n), im(n), buffer(scratch(smxEigenValuesVectorsGetBufSize_64f)), first(n * n),
            second(n * n);
        const SmxStatus status =
            smxEigenValuesVectors_m_64f(named.elements.data(), row, element, first.data(), row, element, second.data(),
                                        row, element, re.data(), im.data(), named.side, buffer.data());
        WithVectors result{{status, joined(re, im)}, {}, 0};
        for (std::size_t j = 0; j < n; ++j) {
            // What the library calls right vectors belongs to the transpose: x' A = w x'. Its left ones of a pair belong to
            // the other value of the pair.
            const Computed x = column(first, im, j, 1), y = column(second, im, j, -1);
            std::complex<double> product = 0;
            double residual = 0;
            for (std::size_t i = 0; i < n; ++i) {
                product += x[i] * y[i];
                std::complex<double> ofX = -result.values[j] * x[i], ofY = -result.values[j] * y[i];
                for (std::size_t k = 0; k < n; ++k) {
                    ofX += named.elements[k * n + i] * x[k];
                    ofY += named.elements[i * n + k] * y[k];
                }
                residual = std::max({residual, std::abs(ofX), std::abs(ofY)});
            }
            result.condition.push_back(1 / std::abs(product));
            result.residual = std::max(result.residual, residual / (eps * norm));
        }
        return result;
    }

    // The symmetric families. Their tolerances are absolute, and where a sweep happens on an intermediate value below them
    // values come out wrong with status 0. The trace need not tell: so the sum of their squares is held against that of
    // the elements, and the residuals against rounding. Where one is too much, another first index leads to another
    // tridiagonal matrix; scale and shift need not mend it. smxStsSingularErr says that the product of the values is 0, as
    // Rosser's is; they are there all the same.
    struct Symmetric : Outcome {
        std::size_t turn; // the index that stood first
        double residual;  // the largest |A z - w z|, in units of eps |A|; 0 without vectors
    };
    Symmetric symmetric(bool withVectors) const {
        Symmetric result{};
        for (std::size_t turn = 0; turn < n; ++turn) {
            std::vector<double> turned(n * n), values(n), vectors(n * n), buffer(n * n);
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = 0; j < n; ++j)
                    turned[i * n + j] = named.elements[(i + turn) % n * n + (j + turn) % n];
            const SmxStatus status =
                withVectors
                    ? smxEigenValuesVectorsSym_m_64f(turned.data(), row, element, buffer.data(), vectors.data(), row,
                                                     element, values.data(), named.side)
                    : smxEigenValuesSym_m_64f(turned.data(), row, element, buffer.data(), values.data(), named.side);
            double squares = 0, residual = 0;
            for (std::size_t j = 0; j < n; ++j) {
                squares += values[j] * values[j];
                for (std::size_t i = 0; withVectors && i < n; ++i) {
                    double difference = -values[j] * vectors[i * n + j];
                    for (std::size_t k = 0; k < n; ++k) difference += turned[i * n + k] * vectors[k * n + j];
                    residual = std::max(residual, std::abs(difference) / (eps * norm));
                }
            }
            result = {{status == smxStsSingularErr ? smxStsNoErr : status, joined(values, std::vector<double>(n))},
                      turn,
                      residual};
            if (result.status == smxStsNoErr && residual <= mostResidual() &&
                std::abs(squares - norm * norm) <= 8 * eps * norm * norm)
                break;
        }
        return result;
    }

    double mostResidual() const { return 30 * named.side; } // in units of eps |A|
    double bound(double condition) const { return 4 * named.side * eps * norm * condition; }

private:
    std::vector<double> scratch(SmxStatus (*query)(int, int *)) const {
        int bytes = 0;
        query(named.side, &bytes);
        return std::vector<double>(static_cast<std::size_t>(bytes) / sizeof(double));
    }

    // The vector of value j, whose imaginary part has the given sign for the first value of a pair.
    Computed column(const std::vector<double> &vectors, const std::vector<double> &im, std::size_t j, int sign) const {
        const std::size_t first = im[j] < 0 ? j - 1 : j;
        const double part = im[j] == 0 ? 0 : im[j] > 0 ? sign : -sign;
        Computed vector;
        for (std::size_t i = 0; i < n; ++i)
            vector.emplace_back(vectors[i * n + first], part == 0 ? 0 : part * vectors[i * n + first + 1]);
        return vector;
    }

    const Named &named;
    const std::size_t n;
    const int row;
    double norm = 0;
};

// For each known value the computed one that belongs to it: again and again the closest two that are left.
std::vector<std::size_t> matched(const std::vector<Value> &known, const Computed &computed) {
    struct Pair {
        long double distance;
        std::size_t known, computed;
    };
    std::vector<Pair> pairs;
    for (std::size_t k = 0; k < known.size(); ++k)
        for (std::size_t c = 0; c < computed.size(); ++c) {
            const long double distance = std::abs(known[k] - Value(computed[c]));
            pairs.push_back({std::isnan(distance) ? HUGE_VALL : distance, k, c});
        }
    std::ranges::sort(pairs, {}, &Pair::distance);
    std::vector<std::size_t> partner(known.size());
    std::vector<char> knownTaken(known.size()), computedTaken(computed.size());
    for (const Pair &pair : pairs) {
        if (knownTaken[pair.known] || computedTaken[pair.computed]) continue;
        partner[pair.known] = pair.computed;
        knownTaken[pair.known] = computedTaken[pair.computed] = 1;
    }
    return partner;
}

// Prints one line; returns the differences, one for each known value.
std::vector<double> compare(const Named &matrix, const char *way, const Outcome &outcome,
                            const std::vector<double> &bounds, bool &good) {
    const std::vector<std::size_t> partner = matched(matrix.known, outcome.values);
    std::vector<double> differences;
    double worst = 0, share = 0;
    for (std::size_t k = 0; k < matrix.known.size(); ++k) {
        const Value computed(outcome.values[partner[k]]);
        differences.push_back(static_cast<double>(std::abs(matrix.known[k] - computed)));
        worst = std::max(worst, differences[k]);
        share = std::isnan(differences[k]) ? differences[k] : std::max(share, differences[k] / bounds[k]);
    }
    const bool within = outcome.status == smxStsNoErr && share <= 1;
    std::printf("  %-26s largest difference %8.2e, %7.1e of its bound%s\n", way, worst, share,
                within ? "" : "  TOO MUCH");
    good = good && within;
    return differences;
}

int run(const std::string &picture) {
    bool good = true;
    std::vector<Panel> panels;
    for (const Named &matrix : namedMatrices()) {
        const Problem problem(matrix);
        const WithVectors vectors = problem.generalVectors();
        const std::vector<std::size_t> partner = matched(matrix.known, vectors.values);
        std::vector<double> bounds;
        double condition = 1;
        for (const std::size_t c : partner) {
            const double own = matrix.symmetric ? 1 : std::max(vectors.condition[c], 1.0);
            condition = std::max(condition, own);
            bounds.push_back(problem.bound(std::min(own, matrix.condition)));
        }
        const bool within = condition <= matrix.condition && vectors.residual <= problem.mostResidual();
        good = good && within;
        std::printf("%s, side %d\n", matrix.name.c_str(), matrix.side);
        std::printf("  condition %.2e (stated: up to %.0e), residual %.2f eps |A|%s\n", condition, matrix.condition,
                    vectors.residual, within ? "" : "  TOO MUCH");
        const Outcome values = problem.general();
        const std::vector<double> differences = compare(matrix, "general, values only", values, bounds, good);
        compare(matrix, "general, with vectors", vectors, bounds, good);
        for (const bool withVectors : {false, true}) {
            if (!matrix.symmetric) continue;
            const Problem::Symmetric outcome = problem.symmetric(withVectors);
            compare(matrix, withVectors ? "symmetric, with vectors" : "symmetric, values only", outcome, bounds, good);
            if (outcome.turn > 0)
                std::printf("    with index %zu first; with others the sum of squares or a residual is wrong\n",
                            outcome.turn);
            if (!(outcome.residual <= problem.mostResidual())) {
                std::printf("    residual %.2e eps |A|  TOO MUCH\n", outcome.residual);
                good = false;
            }
        }

        Panel panel{matrix.name, matrix.logarithmic, {}};
        const std::vector<std::size_t> of = matched(matrix.known, values.values);
        for (std::size_t k = 0; k < matrix.known.size(); ++k)
            panel.marks.push_back(
                {std::complex<double>(matrix.known[k]), values.values[of[k]], differences[k], bounds[k]});
        panels.push_back(panel);
    }
    if (picture != "none") {
        plot(picture, panels);
        std::printf("picture: %s\n", picture.c_str());
    }
    return good ? 0 : 1;
}

} // namespace
} // namespace spectra

int main(int count, char **arguments) {
    using namespace shared;
    std::string picture = "spectra.png";
    return execute(
        {"spectra",
         "Computes the eigenvalues of matrices by Rosser, Wilkinson, Frank and Grcar and of two companion matrices,\n"
         "compares them with their known values, and plots both in the complex plane.",
         {{"--picture FILE", "where to draw, .png or .svg (default: spectra.png; none: no picture)",
           file(picture, pictures)}},
         "A value of a matrix A of side n may differ by 4 n eps |A| times its condition, |A| the Frobenius norm: what\n"
         "the rounding of n steps with orthogonal matrices may do to it, in the first order. Symmetric matrices have\n"
         "condition 1. Exits with 1 if a value differs by more, or a vector has a residual of more than 30 n eps |A|,\n"
         "with 2 on bad input.\n"},
        count, arguments, [&] { return spectra::run(picture); });
}
