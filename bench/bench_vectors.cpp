// Dot and cross products, norms, traces.
#include "bench.hpp"
#include "peers.hpp"

#include <glm/geometric.hpp>

namespace bench {

namespace {

template <class C, int N>
inline constexpr bool for_glm = C::contiguous &&N <= 4;
template <class C, int N>
inline constexpr bool for_cglm = for_glm<C, N> &&std::is_same_v<typename C::T, float>;

} // namespace

void add_vectors() {
    rows<3, 4, 5, 6>("dot product", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        const auto a = c.source(vector<N>), b = c.source(vector<N>);
        auto *const d = c.packed(1);
        c.ours("smxDotProduct_vava", a, b, d, N, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].dot(b[n]); });
        if constexpr (for_glm<C, N>) {
            using G = GlmVector<typename C::T, N>;
            c.peer("GLM", [=](long n) { d[n] = glm::dot(glm_at<G>(a.data(n)), glm_at<G>(b.data(n))); });
        }
        if constexpr (for_cglm<C, N>)
            c.peer("cglm", [=](long n) { d[n] = (N == 3 ? glm_vec3_dot : glm_vec4_dot)(a.data(n), b.data(n)); });
        c.compare(d);
    });
    rows<3>("cross product", [](auto &c, Shape<3>) {
        using C = std::decay_t<decltype(c)>;
        const auto a = c.source(vector<3>), b = c.source(vector<3>), d = c.result(vector<3>);
        c.ours("smxCrossProduct_vava", a, b, d, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].cross(b[n]); });
        if constexpr (for_glm<C, 3>) {
            using G = GlmVector<typename C::T, 3>;
            c.peer("GLM",
                   [=](long n) { glm_at<G>(d.data(n)) = glm::cross(glm_at<G>(a.data(n)), glm_at<G>(b.data(n))); });
        }
        if constexpr (for_cglm<C, 3>) c.peer("cglm", [=](long n) { glm_vec3_cross(a.data(n), b.data(n), d.data(n)); });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("L2 norm", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        const auto a = c.source(vector<N>);
        auto *const d = c.packed(1);
        c.ours("smxL2Norm_va", a, d, N, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].norm(); });
        if constexpr (for_glm<C, N>) {
            using G = GlmVector<typename C::T, N>;
            c.peer("GLM", [=](long n) { d[n] = glm::length(glm_at<G>(a.data(n))); });
        }
        if constexpr (for_cglm<C, N>)
            c.peer("cglm", [=](long n) { d[n] = (N == 3 ? glm_vec3_norm : glm_vec4_norm)(a.data(n)); });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("trace", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>);
        auto *const d = c.packed(1);
        c.ours("smxTrace_ma", a, N, d, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].trace(); });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("Frobenius norm", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>);
        auto *const d = c.packed(1);
        c.ours("smxFrobNorm_ma", a, N, N, d, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].norm(); });
        c.compare(d);
    });
}

} // namespace bench
