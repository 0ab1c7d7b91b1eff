#include "matrices.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace spectra {
namespace {

std::vector<double> filled(int side, const auto &element) {
    std::vector<double> elements;
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j) elements.push_back(element(i, j));
    return elements;
}

// Eigenvalues of a symmetric tridiagonal matrix, ascending, by bisection: the number of negative pivots of T - x I is the
// number of eigenvalues below x. W. Barth, R. S. Martin and J. H. Wilkinson, Numerische Mathematik 9 (1967), 386-393.
std::vector<long double> tridiagonalValues(const std::vector<long double> &diagonal,
                                           const std::vector<long double> &offDiagonal) {
    const auto below = [&](long double x) {
        std::size_t count = 0;
        long double pivot = 1;
        for (std::size_t i = 0; i < diagonal.size(); ++i) {
            const long double coupling = i == 0 ? 0 : offDiagonal[i - 1] * offDiagonal[i - 1] / pivot;
            pivot = diagonal[i] - x - coupling;
            if (pivot == 0) pivot = 1e-30L;
            count += pivot < 0;
        }
        return count;
    };
    long double reach = 0;
    for (const long double d : diagonal) reach = std::max(reach, std::abs(d));
    for (const long double e : offDiagonal) reach = std::max(reach, 2 * std::abs(e) + reach);
    std::vector<long double> values;
    for (std::size_t k = 0; k < diagonal.size(); ++k) {
        long double low = -reach, high = reach;
        while (true) {
            const long double middle = low + (high - low) / 2;
            if (middle <= low || middle >= high) break;
            (below(middle) > k ? high : low) = middle;
        }
        values.push_back(high);
    }
    return values;
}

// Eigenvalues of an upper Hessenberg matrix with no 0 below its diagonal: roots of its characteristic polynomial, which
// Hyman's recurrence gives with its derivative, all at once by Aberth's iteration.
// J. H. Wilkinson, The Algebraic Eigenvalue Problem (1965), 7.11; O. Aberth, Mathematics of Computation 27 (1973), 339-344.
std::vector<Value> hessenbergValues(int side, const std::vector<double> &elements) {
    const auto n = static_cast<std::size_t>(side);
    const auto a = [&](std::size_t i, std::size_t j) { return static_cast<long double>(elements[i * n + j]); };
    const auto newtonStep = [&](Value z) {
        std::vector<Value> x(n), slope(n);
        x[n - 1] = 1;
        Value value, derivative;
        for (std::size_t i = n; i-- > 0;) {
            value = -z * x[i];
            derivative = -z * slope[i] - x[i];
            for (std::size_t j = i; j < n; ++j) {
                value += a(i, j) * x[j];
                derivative += a(i, j) * slope[j];
            }
            if (i == 0) break;
            x[i - 1] = -value / a(i, i - 1);
            slope[i - 1] = -derivative / a(i, i - 1);
        }
        return value / derivative;
    };
    std::vector<Value> values;
    for (std::size_t k = 0; k < n; ++k)
        values.push_back(std::polar(
            3.0L,
            2 * std::numbers::pi_v<long double> * static_cast<long double>(k) / static_cast<long double>(n) + 0.4L));
    for (int sweep = 0; sweep < 200; ++sweep)
        for (std::size_t k = 0; k < n; ++k) {
            Value others;
            for (std::size_t j = 0; j < n; ++j)
                if (j != k) others += Value(1) / (values[k] - values[j]);
            const Value step = newtonStep(values[k]);
            values[k] -= step / (Value(1) - step * others);
        }
    return values;
}

// All of Rosser's values are integers or quadratic roots. J. B. Rosser, C. Lanczos, M. R. Hestenes and W. Karush, Journal of
// Research of the National Bureau of Standards 47 (1951), 291-297.
Named rosser() {
    constexpr double m[8][8] = {{611, 196, -192, 407, -8, -52, -49, 29}, {196, 899, 113, -192, -71, -43, -8, -44},
                                {-192, 113, 899, 196, 61, 49, 8, 52},    {407, -192, 196, 611, 8, 44, 59, -23},
                                {-8, -71, 61, 8, 411, -599, 208, 208},   {-52, -43, 49, 44, -599, 411, 208, 208},
                                {-49, -8, 8, 59, 208, 208, 99, -911},    {29, -44, 52, -23, 208, 208, -911, 99}};
    const long double far = 10 * std::sqrt(10405.0L), near = 100 * std::sqrt(26.0L);
    return {"Rosser",
            8,
            filled(8, [&](int i, int j) { return m[i][j]; }),
            {-far, 0, 510 - near, 1000, 1000, 510 + near, 1020, far},
            1,
            true};
}

// Tridiagonal with pairs of values that agree to 14 digits. J. H. Wilkinson, The Algebraic Eigenvalue Problem, 5.45.
Named wilkinson() {
    constexpr int side = 21;
    std::vector<long double> diagonal;
    for (int i = 0; i < side; ++i) diagonal.push_back(std::abs(i - side / 2));
    std::vector<Value> known;
    for (const long double v : tridiagonalValues(diagonal, std::vector<long double>(side - 1, 1)))
        known.emplace_back(v);
    const auto element = [](int i, int j) { return i == j ? std::abs(i - side / 2) : std::abs(i - j) == 1 ? 1 : 0; };
    return {"Wilkinson W21+", side, filled(side, element), known, 1, true};
}

// The small values are ill-conditioned. (1 - w) / sqrt(w) are the zeros of the Hermite polynomial of this degree, which
// are the values of a tridiagonal matrix. W. L. Frank, Journal of SIAM 6 (1958), 378-392; P. J. Eberlein, Journal of
// Mathematical Analysis and Applications 36 (1971), 463-474.
Named frank() {
    constexpr int side = 12;
    std::vector<long double> coupling;
    for (int k = 1; k < side; ++k) coupling.push_back(std::sqrt(static_cast<long double>(k)));
    std::vector<Value> known;
    for (const long double x : tridiagonalValues(std::vector<long double>(side, 0), coupling)) {
        const long double root = x > 0 ? 2 / (x + std::sqrt(x * x + 4)) : (std::sqrt(x * x + 4) - x) / 2;
        known.emplace_back(root * root);
    }
    const auto element = [](int i, int j) { return j < i - 1 ? 0 : side - std::max(i, j); };
    return {"Frank 12", side, filled(side, element), known, 1e8, false, true};
}

// Toeplitz: -1 below the diagonal, 1 on it and on three above. J. Grcar, Operator coefficient methods for linear equations,
// Sandia report SAND89-8691 (1989).
Named grcar() {
    constexpr int side = 24;
    const auto element = [](int i, int j) { return j == i - 1 ? -1 : j >= i && j <= i + 3 ? 1 : 0; };
    const std::vector<double> elements = filled(side, element);
    return {"Grcar 24", side, elements, hessenbergValues(side, elements), 1e3};
}

// The companion matrix of x^n + c[n - 1] x^(n - 1) + ... + c[0].
std::vector<double> companion(const std::vector<double> &c) {
    const int side = static_cast<int>(c.size());
    return filled(side, [&](int i, int j) {
        return i == 0 ? -c[static_cast<std::size_t>(side - 1 - j)] : i == j + 1 ? 1.0 : 0.0;
    });
}

// The roots of 1 + x + ... + x^11 are those of x^12 = 1 but for 1 itself.
Named unity() {
    constexpr int side = 11;
    std::vector<Value> known;
    for (int k = 1; k <= side; ++k)
        known.push_back(std::polar(1.0L, 2 * std::numbers::pi_v<long double> * k / (side + 1)));
    return {"Companion of 1 + x + ... + x^11", side, companion(std::vector<double>(side, 1)), known, 2};
}

// (x - 1)(x - 2)...(x - 8). All coefficients are whole numbers that a double holds.
Named product() {
    constexpr int side = 8;
    std::vector<double> c = {1}; // with the leading coefficient at the end
    std::vector<Value> known;
    for (int root = 1; root <= side; ++root) {
        c.insert(c.begin(), 0);
        for (std::size_t i = 0; i + 1 < c.size(); ++i) c[i] -= root * c[i + 1];
        known.emplace_back(root);
    }
    c.pop_back();
    return {"Companion of (x - 1) ... (x - 8)", side, companion(c), known, 1e8};
}

} // namespace

std::vector<Named> namedMatrices() {
    return {rosser(), wilkinson(), frank(), grcar(), unity(), product()};
}

} // namespace spectra
