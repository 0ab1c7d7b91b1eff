#include "lanes_eigen_sym.hpp"

#include "family_eigen_sym_core.hpp"
#include "frame_lane_loops.hpp"
#include "frame_twin.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// The vectors of a group.
template <class Num, int N>
struct GroupMatrix {
    Num *at;
    Num &operator()(int i, int j) const { return at[i * N + j]; }
};

// False if an object of the group fails.
template <class Form, class T, int N, class Z>
[[gnu::always_inline]] inline bool eigen_group(Pack<T> *w, Pack<T> *d, const Z &z, T gate) {
    using Num = Pack<T>;
    reduce_symmetric<Form>(w, d, z, N, gate);
    Num e[N - 1];
    bool singular;
    for (int i = 0; i < N; ++i) d[i] = w[i * N + i];
    for (int i = 0; i < N - 1; ++i) e[i] = w[(i + 1) * N + i];
    if (!sweep_symmetric<Form>(d, e, z, N, singular) || singular) return false;
    sort_symmetric<Form>(d, z, N);
    return true;
}

template <class T, int N>
int values(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    using Form = SymmetricForm<true, false>;
    const LaneAccess<T, N, N> src(plan.source[0].operand);
    const LaneAccess<T, 1, N> dst(plan.result[0]);
    return each_group<T>(plan, first, [&](int n) {
        Num w[N * N], d[N];
        src.load(n, w);
        if (!eigen_group<Form, T, N>(w, d, NoVectors{}, EigenEpsilon<T>::value)) return false;
        dst.store(n, d);
        return true;
    });
}

template <class T, int N>
int values_and_vectors(const LanePlan &plan, T gate, int first) {
    using Num = Pack<T>;
    using Form = SymmetricForm<true, true>;
    const LaneAccess<T, N, N> src(plan.source[0].operand), vectors(plan.result[0]);
    const LaneAccess<T, 1, N> dst(plan.result[1]);
    return each_group<T>(plan, first, [&](int n) {
        Num w[N * N], d[N], z[N * N];
        src.load(n, w);
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j) z[i * N + j] = Num(T(i == j));
        if (!eigen_group<Form, T, N>(w, d, GroupMatrix<Num, N>{z}, gate)) return false;
        vectors.store(n, z);
        dst.store(n, d);
        return true;
    });
}

} // namespace

int eigen_sym_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first,
                            [&](auto zero, auto s) { return values<decltype(zero), decltype(s)::value>(plan, first); });
}
int eigen_vectors_sym_lanes(const LanePlan &plan, int side, double gate, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        using T = decltype(zero);
        return values_and_vectors<T, decltype(s)::value>(plan, static_cast<T>(gate), first);
    });
}

} // namespace SMX_ISA
} // namespace smx
