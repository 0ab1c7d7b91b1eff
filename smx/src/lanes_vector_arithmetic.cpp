#include "lanes_vector_arithmetic.hpp"

#include <utility>

#include "frame_lane_loops.hpp"
#include "frame_lane_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// The second operand: constants, one an object or one for all, or vectors.
enum class Second { constants, vectors };

bool adjacent(const LaneOperand &o) {
    return o.addressing != Addressing::pointers && (o.stride2 == o.element || o.columns == 1);
}
bool packed(const LaneOperand &o) {
    return o.addressing == Addressing::strided && !o.single && o.stride2 == o.element &&
           o.stride0 == o.columns * o.stride2;
}

// `bytes` of adjacent elements.
template <Arithmetic operation, class T, bool vectors>
[[gnu::always_inline]] inline void run(const Byte *a, const Byte *b, T constant, const Byte *out,
                                       std::ptrdiff_t bytes) {
    if constexpr (vectors) run_of_elements<T>([](auto x, auto y) { return apply<operation>(x, y); }, out, bytes, a, b);
    else run_of_elements<T>([=](auto x) { return apply<operation>(x, decltype(x)(constant)); }, out, bytes, a);
}

// Element l of pack k of a group of packed objects of N elements belongs to object (k W + l) / N: the objects' numbers,
// one a lane of `from`, spread over that pack.
template <int N, int k, class T>
[[gnu::always_inline]] inline Pack<T> spread(Pack<T> from) {
    constexpr int W = Pack<T>::width;
    return [&]<int... l>(std::integer_sequence<int, l...>) {
        return Pack<T>(__builtin_shufflevector(from.v, from.v, (k * W + l) / N...));
    }
    (std::make_integer_sequence<int, W>{});
}

// Groups of packed objects, W times N adjacent elements, beside single vectors and constants.
template <Arithmetic operation, class T, int N, Second second>
SMX_LANE_LOOP int packed_groups(const LanePlan &plan, const LaneOperand &b, int first) {
    constexpr int W = Pack<T>::width;
    const LaneOperand &a = plan.source[0].operand, &d = plan.result[0];
    // A single vector or constant, repeated over N packs.
    const auto repeated = [=](const LaneOperand &o, Pack<T>(&out)[N]) {
        T values[N * W];
        const Byte *const from = static_cast<const Byte *>(o.base);
        for (int e = 0; e < N * W; ++e) values[e] = load_element<T>(o.columns == 1 ? from : from + e % N * o.stride2);
        for (int k = 0; k < N; ++k) out[k] = load_pack<T>(values + k * W);
    };
    Pack<T> x[N] = {}, y[N] = {}; // zeroed for GCC 12, which loses track of which elements are read
    if (a.single) repeated(a, x);
    if (b.single) repeated(b, y);
    const LaneAccess<T, 1, 1> numbers(b);
    return each_group<T>(plan, first, [&](int n) {
        const auto load = [&](const LaneOperand &o, Pack<T>(&out)[N]) {
            const Byte *const from = at(o.base, n * o.stride0);
#pragma GCC unroll 6
            for (int k = 0; k < N; ++k) out[k] = load_pack<T>(from + k * pack_bytes);
        };
        if (!a.single) load(a, x);
        if (second == Second::vectors && !b.single) load(b, y);
        if (second == Second::constants && !b.single) {
            Pack<T> number;
            numbers.load(n, &number);
            [&]<int... k>(std::integer_sequence<int, k...>) {
                ((y[k] = spread<N, k>(number)), ...);
            }
            (std::make_integer_sequence<int, N>{});
        }
        const Byte *const to = at(d.base, n * d.stride0);
#pragma GCC unroll 6
        for (int k = 0; k < N; ++k) store_pack(const_cast<Byte *>(to + k * pack_bytes), apply<operation>(x[k], y[k]));
        return true;
    });
}

// Vectors of adjacent elements, one object after the other.
template <Arithmetic operation, class T, int N, Second second, class Vector>
SMX_LANE_LOOP int objects(const LanePlan &plan, const LaneOperand &b, int first) {
    return each_object_of<T>(
        plan, first,
        [](const Byte *x, const Byte *y, const Byte *z) {
            const Vector beside = second == Second::vectors ? Vector::load(y) : Vector::all(load_element<T>(y));
            apply<operation>(Vector::load(x), beside).store(z);
        },
        plan.source[0].operand, b, plan.result[0]);
}

// Structures of arrays.
template <Arithmetic operation, class T, int N, Second second>
SMX_LANE_LOOP int groups(const LanePlan &plan, const LaneOperand &b, int first) {
    if constexpr (few_lanes) return first;
    using Access = LaneAccess<T, 1, N>;
    const Access a(plan.source[0].operand), d(plan.result[0]), vectors(b);
    const LaneAccess<T, 1, 1> numbers(b);
    // One element at a time is better done in the sequential kernel.
    const auto slow = [](const Access &x) { return !x.o.single && x.way == Access::Way::elements; };
    if (slow(d) || slow(a) || (second == Second::vectors && slow(vectors))) return first;
    const auto body = [&](int n, const auto &from, const auto &to, [[maybe_unused]] const auto &...beside) {
        Pack<T> x[N], y[N];
        from.load(n, x);
        if constexpr (second == Second::vectors) {
            (beside.load(n, y), ...);
        } else {
            Pack<T> number;
            numbers.load(n, &number);
            for (int j = 0; j < N; ++j) y[j] = number;
        }
        for (int j = 0; j < N; ++j) x[j] = apply<operation>(x[j], y[j]);
        to.store(n, x);
        return true;
    };
    if constexpr (second == Second::vectors) return each_group_by<T, Known::planes>(plan, first, body, a, d, vectors);
    else return each_group_by<T, Known::planes>(plan, first, body, a, d);
}

// Long vectors: objects in turn, each in runs of adjacent elements.
template <Arithmetic operation, class T, Second second>
int long_objects(const LanePlan &plan, const LaneOperand &b, int first) {
    const LaneOperand &a = plan.source[0].operand, &d = plan.result[0];
    if (d.columns < Pack<T>::width || leaves_run(d.columns * d.stride2, plan.sources + 1) || is_in_doubt(plan))
        return first;
    if (!adjacent(a) || !adjacent(d) || !adjacent(b)) return first;
    const ObjectStarts x(a), y(b), z(d);
    for (int n = first; n < plan.count; ++n) {
        const T constant = second == Second::constants ? load_element<T>(y[n]) : T(0);
        run<operation, T, second == Second::vectors>(x[n], y[n], constant, z[n], d.columns * d.stride2);
    }
    return plan.count;
}

template <Arithmetic operation, class T, Second second>
int compute(const LanePlan &plan, const LaneOperand &b, int first) {
    const LaneOperand &a = plan.source[0].operand, &d = plan.result[0];
    int done = first;
    if (!with_side(d.columns, [&]<int N>(Side<N>) {
            const auto in_run = [](const LaneOperand &o) {
                return packed(o) || (o.single && o.addressing == Addressing::strided);
            };
            const bool in_runs = packed(d) && in_run(a) && (in_run(b) || second == Second::constants);
            const bool in_rows = adjacent(a) && adjacent(d) && adjacent(b);
            const bool is_far = Row<T, N>::masked && plan.count * std::ptrdiff_t{N * sizeof(T)} >= far_bytes;
            done = in_runs             ? packed_groups<operation, T, N, second>(plan, b, first)
                   : in_rows && is_far ? objects<operation, T, N, second, RowInParts<T, N>>(plan, b, first)
                   : in_rows           ? objects<operation, T, N, second, Row<T, N>>(plan, b, first)
                                       : groups<operation, T, N, second>(plan, b, first);
        }))
        done = long_objects<operation, T, second>(plan, b, first);
    return done;
}

template <Arithmetic operation>
int by_form(const LanePlan &plan, double value, int first) {
    const auto with = [&](auto zero) {
        using T = decltype(zero);
        if (plan.sources == 1) {
            const T constant = static_cast<T>(value);
            const LaneOperand one{&constant, nullptr, 0, 0, 0, 0, sizeof(T), 1, 1, Addressing::strided, false, true};
            return compute<operation, T, Second::constants>(plan, one, first);
        }
        const LaneOperand &b = plan.source[1].operand;
        // One constant an object, unless it is a vector of one element, which is the same.
        if (b.columns == 1 && !b.single) return compute<operation, T, Second::constants>(plan, b, first);
        if constexpr (operation == Arithmetic::add || operation == Arithmetic::subtract)
            return compute<operation, T, Second::vectors>(plan, b, first);
        else return first;
    };
    return plan.result[0].element == sizeof(float) ? with(float{}) : with(double{});
}

} // namespace

int vector_arithmetic_lanes(const LanePlan &plan, Arithmetic operation, double constant, int first) {
    switch (operation) {
    case Arithmetic::add: return by_form<Arithmetic::add>(plan, constant, first);
    case Arithmetic::subtract: return by_form<Arithmetic::subtract>(plan, constant, first);
    case Arithmetic::subtract_from: return by_form<Arithmetic::subtract_from>(plan, constant, first);
    case Arithmetic::multiply: return by_form<Arithmetic::multiply>(plan, constant, first);
    }
    return first;
}

} // namespace SMX_ISA
} // namespace smx
