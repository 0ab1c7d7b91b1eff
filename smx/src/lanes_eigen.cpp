#include "lanes_eigen.hpp"

#include "family_eigen_vectors.hpp"
#include "frame_lane_loops.hpp"
#include "frame_twin.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// `at_once` is how many packs Num has.
template <class Num, int at_once, int N, class T = ElementOfNumber<Num>>
int values(const LanePlan &plan, int first) {
    constexpr int W = Pack<T>::width;
    const LaneAccess<T, N, N> src(plan.source[0].operand);
    const LaneAccess<T, 1, N> real(plan.result[0]), imaginary(plan.result[1]);
    return each_group<T, at_once>(plan, first, [&](int n) {
        Num w[N * N], tau[N], work[N], re[N], im[N];
        for (int i = 0; i < N; ++i) re[i] = im[i] = Num(T(0));
        Pack<T> one[at_once][N * N];
        for (int k = 0; k < at_once; ++k) src.load(n + k * W, one[k]);
        for (int e = 0; e < N * N; ++e)
            if constexpr (at_once == 2) w[e] = Num(one[0][e], one[1][e]);
            else w[e] = one[0][e];
        if (!find_values(Columns<Num>{w, N}, tau, work, re, im)) return false;
        const auto store = [&](const LaneAccess<T, 1, N> &to, const Num *found) {
            Pack<T> values[at_once][N];
            for (int i = 0; i < N; ++i)
                if constexpr (at_once == 2) values[0][i] = found[i].a, values[1][i] = found[i].b;
                else values[0][i] = found[i];
            for (int k = 0; k < at_once; ++k) to.store(n + k * W, values[k]);
        };
        store(real, re);
        store(imaginary, im);
        return true;
    });
}

// Two at once gain too little for so much code: a fifth with vectors, whose back substitution is one object's.
template <class T>
constexpr bool worth_it = Pack<T>::width > 2;

// A group on its way from Q and T to the vectors: w holds T, first Q and then the vectors, second those of left mode
// where both are wanted.
template <class T>
struct VectorGroup {
    Pack<T> *w, *first, *second, *im;
};

// The back substitution runs on one object after the other, out of line: it is the same for all sides. False if an
// object fails.
template <class T, unsigned modes>
[[gnu::noinline]] bool substitute(const VectorGroup<T> &group, int n) {
    constexpr bool both = modes == (right_mode | left_mode);
    T buffer[6 * (3 * 6 + 5)], values[6];
    const VectorScratch<T, modes> scratch(buffer, n);
    const auto take = [](const Pack<T> *packs, int lane, T *elements, int count) {
        for (int e = 0; e < count; ++e)
            elements[e] = load_element<T>(at(packs + e, lane * static_cast<int>(sizeof(T))));
    };
    // Vector j lies contiguously; the packs hold the matrix whose columns they are.
    const auto put = [&](Pack<T> *packs, int lane, const T *elements) {
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                store_element<T>(at(packs + i * n + j, lane * static_cast<int>(sizeof(T))), elements[j * n + i]);
    };
    for (int l = 0; l < Pack<T>::width; ++l) {
        take(group.w, l, scratch.h.at, n * n);
        take(group.first, l, scratch.q.at, n * n);
        take(group.im, l, values, n);
        if (eigen_vectors_of_form(scratch, values, n) != Solved::yes) return false;
        put(group.first, l, scratch.q.at);
        if (both) put(group.second, l, scratch.left().at);
    }
    return true;
}

template <class T, int N>
int values_and_vectors(const LanePlan &plan, unsigned modes, int first) {
    using Num = Pack<T>;
    const int both = modes == (right_mode | left_mode);
    const LaneAccess<T, N, N> src(plan.source[0].operand), vectors(plan.result[0]), second(plan.result[both]);
    const LaneAccess<T, 1, N> real(plan.result[1 + both]), imaginary(plan.result[2 + both]);
    return each_group<T>(plan, first, [&](int n) {
        Num w[N * N], reflected[N * N], other[N * N], tau[N], work[N], re[N], im[N];
        for (int i = 0; i < N; ++i) re[i] = im[i] = Num(T(0));
        src.load(n, w);
        const Columns<Num> h{w, N}, q{reflected, N};
        if (!reduce_to_triangular(h, q, tau, work, re, im)) return false;
        const VectorGroup<T> group{w, reflected, other, im};
        if (!(modes == right_mode  ? substitute<T, right_mode>(group, N)
              : modes == left_mode ? substitute<T, left_mode>(group, N)
                                   : substitute<T, right_mode | left_mode>(group, N)))
            return false;
        vectors.store(n, reflected);
        if (both) second.store(n, other);
        real.store(n, re);
        imaginary.store(n, im);
        return true;
    });
}

} // namespace

int eigen_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        using T = decltype(zero);
        int n = first;
        if constexpr (eigen_groups_at_once<T> == 2) n = values<Twin<T>, 2, s.value>(plan, n);
        if constexpr (worth_it<T>) n = values<Pack<T>, 1, s.value>(plan, n);
        return n;
    });
}

int eigen_vectors_lanes(const LanePlan &plan, int side, unsigned modes, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        using T = decltype(zero);
        if constexpr (worth_it<T>) return values_and_vectors<T, decltype(s)::value>(plan, modes, first);
        return first;
    });
}

} // namespace SMX_ISA
} // namespace smx
