// Symmetric and general eigenproblems. Contenders are compared by their eigenvalues.
#include "bench.hpp"
#include "peers.hpp"

namespace bench {

namespace {

// No rows out of cache: these are bound by arithmetic everywhere.
constexpr Extent in_cache{.streamed = false};

template <class A>
inline constexpr int side_of = A::Object::RowsAtCompileTime;

template <bool Vectors, bool Direct, class A>
auto eigen_symmetric(A a, A v, typename A::T *values) {
    using Object = typename A::Object;
    constexpr int N = side_of<A>;
    constexpr int what = Vectors ? Eigen::ComputeEigenvectors : Eigen::EigenvaluesOnly;
    return [=](long n) {
        Eigen::SelfAdjointEigenSolver<Object> solver;
        if constexpr (Direct) solver.computeDirect(Object(a[n]), what);
        else solver.compute(a[n], what);
        Eigen::Map<Matrix<typename A::T, N, 1>>(values + n * N) = solver.eigenvalues();
        if constexpr (Vectors) v[n] = solver.eigenvectors();
    };
}

template <bool Vectors, class A>
auto lapack_symmetric(A a, A v, typename A::T *values) {
    using T = typename A::T;
    constexpr int N = side_of<A>;
    return [=](long n) {
        T work[256];
        v[n] = a[n];
        lapack_syev<T>(LAPACK_COL_MAJOR, Vectors ? 'V' : 'N', 'U', N, v.data(n), N, values + n * N, work, 256);
    };
}

template <bool Vectors, class A>
auto eigen_general(A a, A v, typename A::T *real, typename A::T *imaginary) {
    constexpr int N = side_of<A>;
    using Values = Eigen::Map<Matrix<typename A::T, N, 1>>;
    return [=](long n) {
        const Eigen::EigenSolver<typename A::Object> solver(a[n], Vectors);
        Values(real + n * N) = solver.eigenvalues().real();
        Values(imaginary + n * N) = solver.eigenvalues().imag();
        if constexpr (Vectors) v[n] = solver.pseudoEigenvectors();
    };
}

template <bool Vectors, class A>
auto lapack_general(A a, A v, typename A::T *real, typename A::T *imaginary) {
    using T = typename A::T;
    constexpr int N = side_of<A>;
    return [=](long n) {
        T work[256];
        Eigen::Matrix<T, N, N> m = a[n], right;
        T *const no_left = nullptr;
        lapack_geev<T>(LAPACK_COL_MAJOR, 'N', Vectors ? 'V' : 'N', N, m.data(), N, real + n * N, imaginary + n * N,
                       no_left, 1, right.data(), N, work, 256);
        if constexpr (Vectors) v[n] = right;
    };
}

template <bool Vectors>
const auto symmetric = []<int N>(auto &c, Shape<N>) {
    const auto a = c.source(square<N>, Fill::symmetric), v = c.result(square<N>);
    auto *const values = c.packed(N);
    if (Vectors) c.ours("smxEigenValuesVectorsSym_ma", a, c.scratch(), v, values, N, c.count);
    else c.ours("smxEigenValuesSym_ma", a, c.scratch(), values, N, c.count);
    const auto a_ = c.addressed(a), v_ = c.addressed(v);
    c.peer("Eigen", eigen_symmetric<Vectors, false>(a_, v_, values));
    if constexpr (N == 3) c.peer("Eigen, closed form", eigen_symmetric<Vectors, true>(a_, v_, values));
    c.peer("LAPACK", lapack_symmetric<Vectors>(a_, v_, values));
    c.compare(values, N);
};

template <bool Vectors>
const auto general = []<int N>(auto &c, Shape<N>) {
    const auto a = c.source(square<N>), v = c.result(square<N>);
    auto *const real = c.packed(N), *const imaginary = c.packed(N);
    if (Vectors) c.ours("smxEigenValuesVectorsRight_ma", a, v, real, imaginary, N, c.count, c.scratch());
    else c.ours("smxEigenValues_ma", a, real, imaginary, N, c.count, c.scratch());
    const auto a_ = c.addressed(a), v_ = c.addressed(v);
    c.peer("Eigen", eigen_general<Vectors>(a_, v_, real, imaginary));
    c.peer("LAPACK", lapack_general<Vectors>(a_, v_, real, imaginary));
    c.compare(real, N);
};

} // namespace

void add_eigenproblems() {
    rows<in_cache, 3, 4, 5, 6>("symmetric eigenvalues", symmetric<false>);
    rows<in_cache, 3, 4, 5, 6>("symmetric eigenvectors", symmetric<true>);
    rows<in_cache, 3, 4, 5, 6>("general eigenvalues", general<false>);
    rows<in_cache, 3, 4, 5, 6>("general eigenvectors", general<true>);
}

} // namespace bench
