#include "lanes_eigen.hpp"

#include "family_eigen_vectors.hpp"
#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <class T, int N>
int values(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> src(plan.source[0].operand);
    const LaneAccess<T, 1, N> real(plan.result[0]), imaginary(plan.result[1]);
    return each_group<T>(plan, first, [&](int n) {
        Num w[N * N], tau[N], work[N], re[N], im[N];
        for (int i = 0; i < N; ++i) re[i] = im[i] = Num(T(0));
        src.load(n, w);
        if (!find_values(Columns<Num>{w, N}, tau, work, re, im)) return false;
        real.store(n, re);
        imaginary.store(n, im);
        return true;
    });
}

// The elements of one object in the group's packs.
template <class T>
inline void take_object(const Pack<T> *group, int lane, T *elements, int count) {
    for (int e = 0; e < count; ++e) elements[e] = load_element<T>(at(group + e, lane * static_cast<int>(sizeof(T))));
}
template <class T>
inline void put_object(Pack<T> *group, int lane, const T *elements, int count) {
    for (int e = 0; e < count; ++e) store_element<T>(at(group + e, lane * static_cast<int>(sizeof(T))), elements[e]);
}

template <int N, class Num>
inline void transpose_square(Num *m) {
    for (int i = 0; i < N; ++i)
        for (int j = i + 1; j < N; ++j) {
            const Num kept = m[i * N + j];
            m[i * N + j] = m[j * N + i];
            m[j * N + i] = kept;
        }
}

// The iteration runs on lanes, the back substitution on one object after the other.
template <class T, int N, unsigned modes>
int values_and_vectors(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    constexpr bool both = modes == (right_mode | left_mode);
    const LaneAccess<T, N, N> src(plan.source[0].operand), vectors(plan.result[0]), second(plan.result[both]);
    const LaneAccess<T, 1, N> real(plan.result[1 + both]), imaginary(plan.result[2 + both]);
    return each_group<T>(plan, first, [&](int n) {
        Num w[N * N], reflected[N * N], other[N * N], tau[N], work[N], re[N], im[N];
        for (int i = 0; i < N; ++i) re[i] = im[i] = Num(T(0));
        src.load(n, w);
        const Columns<Num> h{w, N}, q{reflected, N};
        if (!reduce_to_triangular(h, q, tau, work, re, im)) return false;
        T buffer[N * (3 * N + 5)], values[N];
        const VectorScratch<T, modes> scratch(buffer, N);
        for (int l = 0; l < Num::width; ++l) {
            take_object(w, l, scratch.h.at, N * N);
            take_object(reflected, l, scratch.q.at, N * N);
            take_object(im, l, values, N);
            if (eigen_vectors_of_form(scratch, values, N) != Solved::yes) return false;
            put_object(reflected, l, scratch.q.at, N * N);
            if (both) put_object(other, l, scratch.left().at, N * N);
        }
        transpose_square<N>(reflected); // vector j lies contiguously
        vectors.store(n, reflected);
        if constexpr (both) {
            transpose_square<N>(other);
            second.store(n, other);
        }
        real.store(n, re);
        imaginary.store(n, im);
        return true;
    });
}

} // namespace

int eigen_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first,
                            [&](auto zero, auto s) { return values<decltype(zero), decltype(s)::value>(plan, first); });
}

int eigen_vectors_lanes(const LanePlan &plan, int side, unsigned modes, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        using T = decltype(zero);
        constexpr int N = decltype(s)::value;
        return modes == right_mode  ? values_and_vectors<T, N, right_mode>(plan, first)
               : modes == left_mode ? values_and_vectors<T, N, left_mode>(plan, first)
                                    : values_and_vectors<T, N, right_mode | left_mode>(plan, first);
    });
}

} // namespace SMX_ISA
} // namespace smx
