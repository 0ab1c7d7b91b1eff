// Cholesky and QR factorizations, determinants, inverses.
#include "bench.hpp"
#include "peers.hpp"

#include <glm/matrix.hpp>

namespace bench {

namespace {

template <class Solver, class A, class B, class X>
auto eigen_solve(A a, B b, X x) {
    return [=](long n) { x[n] = Solver(a[n]).solve(b[n]); };
}

template <class A, class X>
auto lapack_cholesky(A a, A d, X b, X x) {
    constexpr int N = A::Object::RowsAtCompileTime;
    using T = typename A::T;
    return [=](long n) {
        d[n] = a[n];
        x[n] = b[n];
        lapack_potrf<T>(LAPACK_COL_MAJOR, 'U', N, d.data(n), N);
        lapack_potrs<T>(LAPACK_COL_MAJOR, 'U', N, 1, d.data(n), N, x.data(n), N);
    };
}

template <class A, class B, class X>
auto lapack_qr(A a, B b, X x) {
    constexpr int H = A::Object::RowsAtCompileTime, W = A::Object::ColsAtCompileTime;
    using T = typename A::T;
    return [=](long n) {
        Eigen::Matrix<T, H, W> columns = a[n];
        Matrix<T, H, 1> y = b[n];
        T tau[W], work[64];
        lapack_geqrf<T>(LAPACK_COL_MAJOR, H, W, columns.data(), H, tau, work, 64);
        lapack_ormqr<T>(LAPACK_COL_MAJOR, 'L', 'T', H, 1, W, columns.data(), H, tau, y.data(), H, work, 64);
        lapack_trtrs<T>(LAPACK_COL_MAJOR, 'U', 'N', 'N', W, 1, columns.data(), H, y.data(), H);
        x[n] = y.template head<W>();
    };
}

template <class A>
auto lapack_inverse(A a, A d) {
    constexpr int N = A::Object::RowsAtCompileTime;
    using T = typename A::T;
    return [=](long n) {
        T work[64];
        int pivots[N];
        d[n] = a[n];
        lapack_getrf<T>(LAPACK_COL_MAJOR, N, N, d.data(n), N, pivots);
        lapack_getri<T>(LAPACK_COL_MAJOR, N, d.data(n), N, pivots, work, 64);
    };
}

// The closed forms up to side 4 are cheap enough for the layout to matter to the compiler.
template <int N, class C, class A>
auto for_closed_form(C &c, const A &a) {
    if constexpr (N <= 4) return a;
    else return c.addressed(a);
}
template <class A, class T>
auto eigen_determinant(A a, T *d) {
    return [=](long n) { d[n] = a[n].determinant(); };
}
template <class A>
auto eigen_inverse(A a, A d) {
    return [=](long n) { d[n] = a[n].inverse(); };
}

} // namespace

void add_factorizations() {
    rows<3, 4, 5, 6>("Cholesky factor and solve", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        using Solver = Eigen::LLT<Matrix<typename C::T, N, N>>;
        const auto a = c.source(square<N>, Fill::positive), d = c.result(square<N>);
        const auto b = c.source(vector<N>), x = c.result(vector<N>);
        c.ours("smxCholeskyDecomp_ma", a, d, N, c.count);
        c.ours("smxCholeskyBackSubst_mava", d, b, x, N, c.count);
        const auto a_ = c.addressed(a), d_ = c.addressed(d);
        const auto b_ = c.addressed(b), x_ = c.addressed(x);
        c.peer("Eigen", eigen_solve<Solver>(a_, b_, x_));
        c.peer("LAPACK", lapack_cholesky(a_, d_, b_, x_));
        c.compare(x_);
    });

    const auto qr = []<int H, int W>(auto &c, Shape<H, W>) {
        using C = std::decay_t<decltype(c)>;
        using Solver = Eigen::HouseholderQR<Matrix<typename C::T, H, W>>;
        const auto a = c.source(matrix<H, W>), d = c.result(matrix<H, W>);
        const auto b = c.source(vector<H>);
        const auto x = c.result(vector<W>);
        c.ours("smxQRDecomp_ma", a, c.scratch(), d, W, H, c.count);
        c.ours("smxQRBackSubst_mava", d, c.scratch(), b, x, W, H, c.count);
        const auto a_ = c.addressed(a);
        const auto b_ = c.addressed(b);
        const auto x_ = c.addressed(x);
        c.peer("Eigen", eigen_solve<Solver>(a_, b_, x_));
        c.peer("LAPACK", lapack_qr(a_, b_, x_));
        c.compare(x_);
    };
    rows<3, 4, 5, 6>("QR factor and solve", qr);
    add_shape<Extent{}, 6, 4>("QR factor and solve", qr);

    rows<3, 4, 5, 6>("determinant", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        using T = typename C::T;
        const auto a = c.source(square<N>);
        T *const d = c.packed(1);
        c.ours("smxDet_ma", a, N, c.scratch(), d, c.count);
        c.peer("Eigen", eigen_determinant(for_closed_form<N>(c, a), d));
        if constexpr (C::contiguous && N <= 4)
            c.peer("GLM", [=](long n) { d[n] = glm::determinant(glm_at<GlmMatrix<T, N>>(a.data(n))); });
        if constexpr (C::contiguous && N == 4 && std::is_same_v<T, float>)
            c.peer("cglm", [=](long n) { d[n] = glm_mat4_det(cglm_at<mat4>(a.data(n))); });
        if constexpr (C::contiguous && N == 3 && std::is_same_v<T, float>)
            c.peer("cglm", [=](long n) { d[n] = glm_mat3_det(cglm_at<mat3>(a.data(n))); });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("inverse", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        using T = typename C::T;
        const auto a = c.source(square<N>), d = c.result(square<N>);
        c.ours("smxInvert_ma", a, c.scratch(), d, N, c.count);
        const auto a_ = c.addressed(a), d_ = c.addressed(d);
        c.peer("Eigen", eigen_inverse(for_closed_form<N>(c, a), for_closed_form<N>(c, d)));
        c.peer("LAPACK", lapack_inverse(a_, d_));
        if constexpr (C::contiguous && N <= 4) {
            using G = GlmMatrix<T, N>;
            c.peer("GLM", [=](long n) { glm_at<G>(d.data(n)) = glm::inverse(glm_at<G>(a.data(n))); });
        }
        if constexpr (C::contiguous && N == 4 && std::is_same_v<T, float>)
            c.peer("cglm", [=](long n) { glm_mat4_inv(cglm_at<mat4>(a.data(n)), cglm_at<mat4>(d.data(n))); });
        if constexpr (C::contiguous && N == 3 && std::is_same_v<T, float>)
            c.peer("cglm", [=](long n) { glm_mat3_inv(cglm_at<mat3>(a.data(n)), cglm_at<mat3>(d.data(n))); });
        c.compare(d_);
    });
}

} // namespace bench
