#include "lanes_matrix_product.hpp"

#include "frame_lane_access.hpp"
#include "frame_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// One object: a row of the result is a sum of rows of the second operand, each times one element of the first.
// The blocked general path starts its sums at 0.0, which shows where all products are negative zeros.
template <class T, int N, bool from_zero>
[[gnu::always_inline]] inline void rows_product(const Byte *a, std::ptrdiff_t a_row, std::ptrdiff_t a_column,
                                                const Row<T, N> (&second)[N], const Byte *d, std::ptrdiff_t d_row) {
#pragma GCC unroll 6
    for (int i = 0; i < N; ++i) {
        const Byte *const row = a + i * a_row;
        Row<T, N> sum = Row<T, N>::all(load_element<T>(row)) * second[0];
        if constexpr (from_zero) sum = Row<T, N>::all(0) + sum;
#pragma GCC unroll 6
        for (int p = 1; p < N; ++p) sum = sum + Row<T, N>::all(load_element<T>(row + p * a_column)) * second[p];
        sum.store(d + i * d_row);
    }
}

template <class T, int N>
[[gnu::always_inline]] inline void read_rows(const Byte *b, std::ptrdiff_t b_row, Row<T, N> (&second)[N]) {
#pragma GCC unroll 6
    for (int p = 0; p < N; ++p) second[p] = Row<T, N>::load(b + p * b_row);
}

// Several rows of an object without gaps in one register: row p of the second operand, repeated in each row of the
// register, times column p of the first, each element repeated along its row.
template <class T, int N>
struct Together {
    static constexpr bool exists = false;
};
#if defined(__AVX2__)
template <class T>
requires(pack_bytes > 4 * static_cast<int>(sizeof(T))) struct Together<T, 4> {
    static constexpr bool exists = true;
    static constexpr int registers = 16 * static_cast<int>(sizeof(T)) / pack_bytes;
    using V = typename Pack<T>::Vector;
    static V load(const Byte *from, int r) { return load_pack<T>(from + r * pack_bytes).v; }
    static void store(const Byte *to, int r, V v) { store_pack(const_cast<Byte *>(to) + r * pack_bytes, Pack<T>(v)); }
    static V row(const Byte *from) {
#if defined(__AVX512F__)
        if constexpr (sizeof(T) == 4)
            return reinterpret_cast<V>(_mm512_broadcast_f32x4(_mm_loadu_ps(reinterpret_cast<const float *>(from))));
        else
            return reinterpret_cast<V>(_mm512_broadcast_f64x4(_mm256_loadu_pd(reinterpret_cast<const double *>(from))));
#else
        return reinterpret_cast<V>(_mm256_broadcast_ps(reinterpret_cast<const __m128 *>(from)));
#endif
    }
    template <int p>
    static V column(V x) {
#if defined(__AVX512F__)
        if constexpr (sizeof(T) == 4)
            return reinterpret_cast<V>(_mm512_permute_ps(reinterpret_cast<__m512>(x), 0x55 * p));
        else return reinterpret_cast<V>(_mm512_permutex_pd(reinterpret_cast<__m512d>(x), 0x55 * p));
#else
        return reinterpret_cast<V>(_mm256_permute_ps(reinterpret_cast<__m256>(x), 0x55 * p));
#endif
    }
    V second[4];
    explicit Together(const Byte *b) {
#pragma GCC unroll 4
        for (int p = 0; p < 4; ++p) second[p] = row(b + p * 4 * static_cast<int>(sizeof(T)));
    }
    template <bool from_zero>
    void product(const Byte *a, const Byte *d) const {
#pragma GCC unroll 4
        for (int r = 0; r < registers; ++r) {
            const V x = load(a, r);
            V sum = column<0>(x) * second[0];
            if (from_zero) sum = V{} + sum;
            sum = sum + column<1>(x) * second[1];
            sum = sum + column<2>(x) * second[2];
            sum = sum + column<3>(x) * second[3];
            store(d, r, sum);
        }
    }
};
#endif
#if defined(__AVX512F__)
template <>
struct Together<float, 3> {
    static constexpr bool exists = true;
    using V = __m512;
    static constexpr __mmask16 mask = 0x1ff;
    template <int p>
    static V column(V x) {
        return _mm512_permutexvar_ps(
            _mm512_setr_epi32(p, p, p, p + 3, p + 3, p + 3, p + 6, p + 6, p + 6, 0, 0, 0, 0, 0, 0, 0), x);
    }
    template <int p>
    static V row(V x) {
        constexpr int i = 3 * p, j = i + 1, k = i + 2;
        return _mm512_permutexvar_ps(_mm512_setr_epi32(i, j, k, i, j, k, i, j, k, 0, 0, 0, 0, 0, 0, 0), x);
    }
    V second[3];
    explicit Together(const Byte *b) {
        const V x = _mm512_maskz_loadu_ps(mask, b);
        second[0] = row<0>(x);
        second[1] = row<1>(x);
        second[2] = row<2>(x);
    }
    template <bool from_zero>
    void product(const Byte *a, const Byte *d) const {
        const V x = _mm512_maskz_loadu_ps(mask, a);
        V sum = column<0>(x) * second[0];
        if (from_zero) sum = V{} + sum;
        sum = sum + column<1>(x) * second[1];
        sum = sum + column<2>(x) * second[2];
        _mm512_mask_storeu_ps(const_cast<Byte *>(d), mask, sum);
    }
};
#endif

template <class T, int N, bool from_zero>
SMX_LANE_LOOP int product(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    using Access = LaneAccess<T, N, N>;
    constexpr std::ptrdiff_t size = sizeof(T);
    const Access a(plan.source[0].operand), b(plan.source[1].operand), d(plan.result[0]);
    const bool by_rows = a.o.addressing != Addressing::pointers && b.o.addressing != Addressing::pointers &&
                         d.way == Access::Way::rows && b.o.stride2 == size && !b.o.transposed &&
                         (a.way == Access::Way::rows || a.o.single);
    if (by_rows) {
        const std::ptrdiff_t b_row = b.o.stride1, d_row = d.o.stride1;
        const Byte *const single_second = b.o.single ? static_cast<const Byte *>(b.o.base) : nullptr;
        if constexpr (Together<T, N>::exists)
            if (a.way == Access::Way::rows && a.dense && b.dense && d.dense && !a.o.transposed) {
                if (single_second != nullptr) {
                    const Together<T, N> once(single_second);
                    return each_object_of<T, Loop::lists>(
                        plan, first,
                        [&](const Byte *x, const Byte *z)
                            __attribute__((always_inline)) { once.template product<from_zero>(x, z); },
                        a.o, d.o);
                }
                return each_object_of<T, Loop::lists>(
                    plan, first, [](const Byte *x, const Byte *y, const Byte *z) __attribute__((always_inline)) {
                        Together<T, N>(y).template product<from_zero>(x, z);
                    },
                    a.o, b.o, d.o);
            }
        const std::ptrdiff_t a_row = a.o.transposed ? a.o.stride2 : a.o.stride1;
        const std::ptrdiff_t a_column = a.o.transposed ? a.o.stride1 : a.o.stride2;
        if (single_second != nullptr) {
            Row<T, N> second[N];
            read_rows<T, N>(single_second, b_row, second);
            return each_object_of<T, Loop::lists>(
                plan, first,
                [&](const Byte *x, const Byte *z) __attribute__((always_inline)) {
                    rows_product<T, N, from_zero>(x, a_row, a_column, second, z, d_row);
                },
                a.o, d.o);
        }
        return each_object_of<T, Loop::lists>(
            plan, first,
            [&](const Byte *x, const Byte *y, const Byte *z) __attribute__((always_inline)) {
                Row<T, N> second[N];
                read_rows<T, N>(y, b_row, second);
                rows_product<T, N, from_zero>(x, a_row, a_column, second, z, d_row);
            },
            a.o, b.o, d.o);
    }
    const auto body = [](int n, const auto &left, const auto &right, const auto &to) {
        Num x[N * N], y[N * N], z[N * N];
        left.load(n, x);
        right.load(n, y);
        for (int i = 0; i < N; ++i)
#pragma GCC unroll 6
            for (int j = 0; j < N; ++j) {
                Num sum = x[i * N] * y[j];
                if constexpr (from_zero) sum = Num(T(0)) + sum;
#pragma GCC unroll 6
                for (int p = 1; p < N; ++p) sum = sum + x[i * N + p] * y[p * N + j];
                z[i * N + j] = sum;
            }
        to.store(n, z);
        return true;
    };
    return each_group_by<T, Known::planes>(plan, first, body, a, b, d);
}

} // namespace

int matrix_product_lanes(const LanePlan &plan, bool from_zero, int first) {
    const LaneOperand &d = plan.result[0];
    return by_type_and_side(plan, d.element, d.rows, first, [&](auto zero, auto side) {
        using T = decltype(zero);
        constexpr int N = decltype(side)::value;
        return from_zero ? product<T, N, true>(plan, first) : product<T, N, false>(plan, first);
    });
}

int one_product_lanes(const void *first, std::ptrdiff_t first_row, std::ptrdiff_t first_column, const void *second,
                      std::ptrdiff_t second_row, void *result, std::ptrdiff_t result_row, int element, int side) {
    const auto of_type = [&]<class T>(T) {
        with_side(side, [&]<int N>(Side<N>) {
            Row<T, N> rows[N];
            read_rows<T, N>(static_cast<const Byte *>(second), second_row, rows);
            rows_product<T, N, false>(static_cast<const Byte *>(first), first_row, first_column, rows,
                                      static_cast<const Byte *>(result), result_row);
        });
    };
    if (element == sizeof(float)) of_type(0.0F);
    else of_type(0.0);
    return 0;
}

} // namespace SMX_ISA
} // namespace smx
