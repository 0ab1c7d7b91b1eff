// The constant-size halves of the product, norm and transform families: sums in their stated orders, the cross product
// and the affine transform of a point. Templates over the number type, for one object or for a group of them.
#pragma once

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

// The order in which the N terms of a written-out sum are added.
enum class SumOrder {
    ascending,
    dot_tail_second, // dot products with a general stride2: (((p0 + p4) + p1) + p2) + p3, for 6 with p4 + p5 for p4
    trace_tail_first // traces but in the pointer layout: (((d4 + d0) + d1) + d2) + d3, for 6 with d4 + d5 for d4
};

template <SumOrder order, int N, class Num>
[[gnu::always_inline]] inline Num sum_of(const Num (&x)[N]) {
    constexpr bool tail_moved = order != SumOrder::ascending && N > 4;
    constexpr int body = tail_moved ? 4 : N;
    Num sum = x[0];
    if constexpr (tail_moved) {
        Num tail = x[4];
        if constexpr (N == 6) tail = x[4] + x[5];
        sum = order == SumOrder::dot_tail_second ? x[0] + tail : tail + x[0];
    }
#pragma GCC unroll 6
    for (int p = 1; p < body; ++p) sum = sum + x[p];
    return sum;
}

template <SumOrder order, int N, class Num>
[[gnu::always_inline]] inline Num dot_of(const Num (&a)[N], const Num (&b)[N]) {
    Num product[N];
#pragma GCC unroll 6
    for (int p = 0; p < N; ++p) product[p] = a[p] * b[p];
    return sum_of<order>(product);
}

// Element i of the cross product.
template <class A, class B>
[[gnu::always_inline]] inline auto cross_element(int i, const A &a, const B &b) {
    const int j = i == 2 ? 0 : i + 1, k = i == 0 ? 2 : i - 1;
    return a(j) * b(k) - a(k) * b(j);
}

// A norm from the sum S of the squares; where `cuts_off`, 0 if S is below the machine epsilon of T or not a number.
template <class T, class Num>
[[gnu::always_inline]] inline Num norm_of(Num sum, bool cuts_off) {
    constexpr double epsilon = sizeof(T) == 4 ? 0x1p-23 : 0x1p-52;
    const Num root = square_root(sum);
    return cuts_off ? select(sum >= Num(epsilon), root, Num(0.0)) : root;
}

// A point through a projective transform; false (in the lanes that it concerns) where w is too small to divide by, or
// not a number. Such a point becomes the greatest finite value in all three elements.
template <class Num>
[[gnu::always_inline]] inline MaskOf<Num> transform_point(const Num (&m)[4][4], const Num (&point)[3], Num (&out)[3]) {
    constexpr float smallest_normal = 0x1p-126F, greatest = 0x1.fffffep127F;
    const auto row = [&](int r) { return ((m[r][0] * point[0] + m[r][3]) + m[r][1] * point[1]) + m[r][2] * point[2]; };
    const Num w = row(3);
    const MaskOf<Num> good = magnitude(w) > Num(smallest_normal);
    const Num reciprocal = Num(1.0F) / select(good, w, Num(1.0F)); // no trap for lanes without a point
#pragma GCC unroll 3
    for (int r = 0; r < 3; ++r) out[r] = select(good, row(r) * reciprocal, Num(greatest));
    return good;
}

} // namespace SMX_ISA
} // namespace smx
