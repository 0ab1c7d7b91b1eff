// Matrix and vector addition, copies between layouts, transposition.
#include "bench.hpp"

namespace bench {

namespace {

template <int N, class T>
auto block_copy(T *to, const T *from) {
    return [=](long first, long last) {
        std::memcpy(to + first * N, from + first * N, static_cast<std::size_t>((last - first) * N) * sizeof(T));
    };
}

} // namespace

void add_sums() {
    rows<3, 4, 5, 6>("matrix add", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>), b = c.source(square<N>), d = c.result(square<N>);
        c.ours("smxAdd_mama", a, b, d, N, N, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n] + b[n]; });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("vector add", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(vector<N>), b = c.source(vector<N>), d = c.result(vector<N>);
        c.ours("smxAdd_vava", a, b, d, N, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n] + b[n]; });
        c.compare(d);
    });
    rows<3, 4, 5, 6>("matrix transpose", []<int N>(auto &c, Shape<N>) {
        const auto a = c.source(square<N>), d = c.result(square<N>);
        c.ours("smxTranspose_ma", a, N, N, d, c.count);
        c.peer("Eigen", [=](long n) { d[n] = a[n].transpose(); });
        c.compare(d);
    });
    // From any layout into a packed array, and back.
    rows<3, 4, 5, 6>("vector gather", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        constexpr const char *pairs[] = {"_SS", "_SS", "_LS", "_PS"};
        const auto a = c.source(vector<N>);
        const auto d = c.template result<Layout::packed>(vector<N>);
        c.ours_exactly(std::string("smxCopy_va") + c.type + pairs[static_cast<int>(C::layout)], a, d, N, c.count);
        c.peer("loop", [=](long n) { d[n] = a[n]; });
        if constexpr (C::layout == Layout::packed) c.peer("memcpy", block_copy<N>(d.base, a.base));
        c.compare(d);
    });
    rows<3, 4, 5, 6>("vector scatter", []<int N>(auto &c, Shape<N>) {
        using C = std::decay_t<decltype(c)>;
        constexpr const char *pairs[] = {"_SS", "_SS", "_SL", "_SP"};
        const auto a = c.template source<Layout::packed>(vector<N>);
        const auto d = c.result(vector<N>);
        c.ours_exactly(std::string("smxCopy_va") + c.type + pairs[static_cast<int>(C::layout)], a, d, N, c.count);
        c.peer("loop", [=](long n) { d[n] = a[n]; });
        if constexpr (C::layout == Layout::packed) c.peer("memcpy", block_copy<N>(d.base, a.base));
        c.compare(d);
    });
}

} // namespace bench
