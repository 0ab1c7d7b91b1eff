// What the tests of the two eigen families share.
#pragma once

#include "factor.hpp"
#ifdef SMX_TEST_LAPACK
#include <lapacke.h>
#endif

namespace eigen {

using namespace factor;

constexpr int sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 17};

// An orthogonal matrix: products of random reflections.
inline Matrix<Real> orthogonal(int n, std::mt19937 &random) {
    std::normal_distribution<double> normal;
    Matrix<Real> q = identity(n);
    for (int k = 0; k < n; ++k) {
        Matrix<Real> v(n, 1);
        Real length = 0;
        for (Real &x : v.e) {
            x = normal(random);
            length += x * x;
        }
        const Matrix<Real> vt = transposed(v), qv = q * v;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) q(i, j) -= 2 / length * qv(i, 0) * v(j, 0);
    }
    return q;
}
template <class T>
void round_to(Matrix<Real> &a) {
    for (Real &x : a.e) x = static_cast<T>(x);
}
template <class T>
std::vector<T> scratch(int n) {
    return std::vector<T>(static_cast<std::size_t>(n * (3 * n + 5)));
}
template <class T>
std::vector<T> marked(int elements) {
    return std::vector<T>(static_cast<std::size_t>(elements), mark<T>);
}

} // namespace eigen
