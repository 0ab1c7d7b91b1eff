// LU decomposition and solution of systems.
#include "bench.hpp"
#include "peers.hpp"

namespace bench {

namespace {

template <class A, class D>
auto eigen_lu(A a, D d, int *pivots) {
    constexpr int n_rows = A::Object::RowsAtCompileTime;
    return [=](long n) {
        const Eigen::PartialPivLU<typename A::Object> lu(a[n]);
        d[n] = lu.matrixLU();
        Eigen::Map<Matrix<int, n_rows, 1>>(pivots + n * n_rows) = lu.permutationP().indices();
    };
}

template <class A, class D>
auto lapack_lu(A a, D d, int *pivots) {
    constexpr int N = A::Object::RowsAtCompileTime;
    return [=](long n) {
        d[n] = a[n];
        lapack_getrf<typename A::T>(LAPACK_COL_MAJOR, N, N, d.data(n), N, pivots + n * N);
    };
}

template <class A, class X>
auto eigen_lu_solve(A a, X b, X x) {
    return [=](long n) { x[n] = Eigen::PartialPivLU<typename A::Object>(a[n]).solve(b[n]); };
}

// Our rows are its columns, so it solves with the transposed factors.
template <class Factor, class D, class X>
auto lapack_lu_solve(Factor factor, D d, const int *pivots, X b, X x) {
    constexpr int N = D::Object::RowsAtCompileTime;
    return [=](long n) {
        factor(n);
        x[n] = b[n];
        lapack_getrs<typename D::T>(LAPACK_COL_MAJOR, 'T', N, 1, d.data(n), N, pivots + n * N, x.data(n), N);
    };
}

template <class T, int N>
auto eigen_factors(Addressed<T, N, N> a, long count) {
    const auto factors = std::make_shared<std::vector<Eigen::PartialPivLU<Matrix<T, N, N>>>>();
    for (long n = 0; n < count; ++n) factors->emplace_back(a[n]);
    return factors;
}
template <class Factors, class X>
auto eigen_solve(Factors factors, X b, X x) {
    return [=](long n) { x[n] = (*factors)[static_cast<std::size_t>(n)].solve(b[n]); };
}

} // namespace

void add_lu() {
    rows<3, 4, 5, 6>("LU factor", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>), d = c.result(square<N>);
        int *const pivots = c.template packed<int>(N);
        c.ours("smxLUDecomp_ma", a, pivots, d, N, c.count);
        const auto a_ = c.addressed(a), d_ = c.addressed(d);
        c.peer("Eigen", eigen_lu(a_, d_, pivots));
        c.peer("LAPACK", lapack_lu(a_, d_, pivots));
    });
    rows<3, 4, 5, 6>("LU factor and solve", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>), d = c.result(square<N>);
        const auto b = c.source(vector<N>), x = c.result(vector<N>);
        int *const pivots = c.template packed<int>(N);
        c.ours("smxLUDecomp_ma", a, pivots, d, N, c.count);
        c.ours("smxLUBackSubst_mava", d, pivots, b, x, N, c.count);
        const auto a_ = c.addressed(a), d_ = c.addressed(d);
        const auto b_ = c.addressed(b), x_ = c.addressed(x);
        c.peer("Eigen", eigen_lu_solve(a_, b_, x_));
        c.peer("LAPACK", lapack_lu_solve(lapack_lu(a_, d_, pivots), d_, pivots, b_, x_));
        c.compare(x_);
    });
    rows<3, 4, 5, 6>("LU solve", []<int N>(auto &c, Shape<N>) {
        using T = typename std::decay_t<decltype(c)>::T;
        const auto a = c.source(square<N>), d = c.source(square<N>);
        const auto b = c.source(vector<N>), x = c.result(vector<N>);
        int *const pivots = c.template packed<int>(N);
        c.results.pop_back(); // the factors are made here, once
        c.ours("smxLUDecomp_ma", a, pivots, d, N, c.count);
        if (!c.has_ours) return;
        run(c.contenders.back(), c.count, 1);
        c.contenders.clear();
        c.ours("smxLUBackSubst_mava", d, pivots, b, x, N, c.count);
        c.peer("Eigen", eigen_solve(eigen_factors<T, N>(c.addressed(a), c.count), c.addressed(b), c.addressed(x)));
    });
}

} // namespace bench
