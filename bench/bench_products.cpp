// Products of matrices with matrices and vectors.
#include "bench.hpp"
#include "peers.hpp"

#include <libxsmm.h>

namespace bench {

namespace {

template <class A>
auto eigen_product(A a, A b, A d) {
    return [=](long n) { d[n].noalias() = a[n] * b[n]; };
}

} // namespace

void add_products() {
    rows<3, 4, 5, 6>("product", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        using T = typename C::T;
        const auto a = c.source(square<N>), b = c.source(square<N>), d = c.result(square<N>);
        c.ours("smxMul_mama", a, N, N, b, N, N, d, c.count);
        if constexpr (!C::contiguous) {
            // faster than a product of the strided maps
            c.peer("Eigen", [=](long n) {
                const Matrix<T, N, N> left = a[n], right = b[n];
                d[n].noalias() = left * right;
            });
        } else {
            if constexpr (N <= 4) c.peer("Eigen", eigen_product(a, b, d));
            else c.peer("Eigen", eigen_product(c.addressed(a), c.addressed(b), c.addressed(d)));
            // column-major peers see the transposed matrices: D' = B' A'
            const libxsmm_mmfunction<T> multiply(LIBXSMM_GEMM_FLAG_NONE, N, N, N, T(1), T(0));
            c.peer("libxsmm", [=](long n) { multiply(b.data(n), a.data(n), d.data(n)); });
            if constexpr (N <= 4) {
                using G = GlmMatrix<T, N>;
                c.peer("GLM", [=](long n) { glm_at<G>(d.data(n)) = glm_at<G>(b.data(n)) * glm_at<G>(a.data(n)); });
            }
            if constexpr (N == 4 && std::is_same_v<T, float>) {
                c.peer("cglm", [=](long n) {
                    glm_mat4_mul(cglm_at<mat4>(b.data(n)), cglm_at<mat4>(a.data(n)), cglm_at<mat4>(d.data(n)));
                });
            }
            if constexpr (N == 3 && std::is_same_v<T, float>) {
                c.peer("cglm", [=](long n) {
                    glm_mat3_mul(cglm_at<mat3>(b.data(n)), cglm_at<mat3>(a.data(n)), cglm_at<mat3>(d.data(n)));
                });
            }
        }
        c.compare(d);
    });

    // one call of the non-array function
    constexpr Extent one{.layouts = 1, .streamed = false, .array = false};
    rows<one, 3, 4, 5, 6>("product, one call", []<int N>(auto &c, Shape<N>) {
        const auto a = c.single(square<N>), b = c.single(square<N>);
        const auto d = c.single(square<N>);
        c.ours("smxMul_mm", a, N, N, b, N, N, d);
        c.peer("Eigen", [=](long) { d().noalias() = a() * b(); });
    });

    rows<3, 4, 5, 6>("matrix by vector", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>);
        const auto b = c.source(vector<N>), d = c.result(vector<N>);
        c.ours("smxMul_mava", a, N, N, b, N, d, c.count);
        c.peer("Eigen", [=](long n) { d[n].noalias() = a[n] * b[n]; });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("one matrix by vectors", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        using T = typename C::T;
        const auto a = c.single(square<N>);
        const auto b = c.source(vector<N>), d = c.result(vector<N>);
        c.ours("smxMul_mva", a, N, N, b, N, d, c.count);
        c.peer("Eigen", [b, d, m = Matrix<T, N, N>(a())](long n) { d[n].noalias() = m * b[n]; });
        if constexpr (C::contiguous && N <= 4) {
            const GlmMatrix<T, N> m = glm::transpose(glm_at<GlmMatrix<T, N>>(a.base));
            using G = GlmVector<T, N>;
            c.peer("GLM", [=](long n) { glm_at<G>(d.data(n)) = m * glm_at<G>(b.data(n)); });
        }
        c.compare(d);
    });
    rows<3, 4, 5, 6>("gaxpy", []<int N>(auto &c, Shape<N>) {
        using T = typename std::decay_t<decltype(c)>::T;
        const auto a = c.single(square<N>);
        const auto x = c.source(vector<N>), y = c.source(vector<N>), d = c.result(vector<N>);
        c.ours("smxGaxpy_mva", a, N, N, x, N, y, N, d, c.count);
        c.peer("Eigen", [x, y, d, m = Matrix<T, N, N>(a())](long n) { d[n].noalias() = m * x[n] + y[n]; });
        c.compare(d);
    });

    constexpr Extent points{.doubles = false, .layouts = 0b0011};
    rows<points, 3>("affine transform", [](auto &c, Shape<3>) {
        const auto m = c.single(square<4>);
        m() << 1.1f, 0.2f, 0.1f, 0.5f, -0.2f, 0.9f, 0.3f, 0.1f, 0.1f, -0.3f, 1.0f, 2.0f, 0.01f, 0.02f, 0.1f, 1.5f;
        const auto p = c.source(vector<3>), d = c.result(vector<3>);
        c.ours_exactly("smxAffineTransform3DH_mva_32f", m, p, d, c.count);
        c.peer("Eigen", [p, d, m = Eigen::Matrix4f(m())](long n) { d[n] = (m * p[n].homogeneous()).hnormalized(); });
        c.peer("GLM", [p, d, m = glm::transpose(glm_at<glm::mat4>(m.base))](long n) {
            const glm::vec4 q = m * glm::vec4(glm_at<glm::vec3>(p.data(n)), 1.0f);
            glm_at<glm::vec3>(d.data(n)) = glm::vec3(q) / q.w;
        });
        c.compare(d);
    });
}

} // namespace bench
