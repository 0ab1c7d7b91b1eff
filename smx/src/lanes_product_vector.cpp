#include "lanes_product_vector.hpp"

#include "frame_lane_loops.hpp"
#include "frame_lane_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// The columns of a square without gaps, each in the first lanes of a register of its own.
template <int N, int column>
struct ColumnOf {
    static constexpr int at(int l) { return (l < N ? l : 0) * N + column; }
};

// The kernels that start their sums from zero take two objects at a time.
template <bool from_zero>
constexpr Loop loop = from_zero ? Loop::pairs : Loop::usual;

// One object at a time: column p of the matrix times element p of the vector.
template <class T, int N, bool from_zero, bool adds>
int product_by_columns(const LanePlan &plan, int first) {
    constexpr int W = Pack<T>::width, registers = (N * N + W - 1) / W, last = registers - 1;
    const LaneOperand &matrix = plan.source[0].operand, &vector = plan.source[1].operand;
    const std::ptrdiff_t step = vector.stride2;
    const auto one = [=](const Byte *from, const Byte *b, const Byte *c, const Byte *d) {
        Pack<T> a[registers];
        for (int k = 0; k < last; ++k) a[k] = load_pack<T>(from + k * pack_bytes);
        a[last] = load_end<T, N * N - last * W>(from + last * pack_bytes);
        const auto term = [&]<int p>(Fixed<p>) {
            constexpr auto lanes = std::make_integer_sequence<int, W>{};
            return Pack<T>(Rearranged<T, ColumnOf<N, p>, 0, registers>::of(a, lanes)) *
                   Pack<T>(load_element<T>(b + p * step));
        };
        Pack<T> sum = term(Fixed<0>{});
        if constexpr (from_zero) sum = Pack<T>(T(0)) + sum;
        [&]<int... p>(std::integer_sequence<int, p...>) {
            ((sum = sum + term(Fixed<p + 1>{})), ...);
        }
        (std::make_integer_sequence<int, N - 1>{});
        if constexpr (adds) sum = sum + load_end<T, N>(c);
        store_end<T, N>(d, sum);
    };
    return each_object_of<T, loop<from_zero>>(plan, first, one, matrix, vector, plan.source[adds ? 2 : 1].operand,
                                              plan.result[0]);
}

// The same for three doubles a row, in shorter registers, which cross fewer lines of the cache.
template <class T, bool from_zero, bool adds>
int product_by_short_columns(const LanePlan &plan, int first) {
    using Column = Row<T, 3>;
    const LaneOperand &vector = plan.source[1].operand;
    const std::ptrdiff_t step = vector.stride2;
    const auto one = [=](const Byte *from, const Byte *b, const Byte *c, const Byte *d) __attribute__((always_inline)) {
        decltype(Column::v) x, y, z;
        std::memcpy(&x, from, sizeof x);
        std::memcpy(&y, from + 4 * sizeof(T), sizeof y);
        std::memcpy(&z, from + 5 * sizeof(T), sizeof z);
        const auto times = [=](auto column, int p) {
            return Column{column} * Column::all(load_element<T>(b + p * step));
        };
        Column sum = times(__builtin_shufflevector(x, y, 0, 3, 6, 6), 0);
        if constexpr (from_zero) sum = Column::all(0) + sum;
        sum = sum + times(__builtin_shufflevector(x, y, 1, 4, 7, 7), 1);
        sum = sum + times(__builtin_shufflevector(x, z, 2, 4, 7, 7), 2);
        if constexpr (adds) sum = sum + Column::load(c);
        sum.store(d);
    };
    return each_object_of<T, loop<from_zero>>(plan, first, one, plan.source[0].operand, vector,
                                              plan.source[adds ? 2 : 1].operand, plan.result[0]);
}

// One matrix for all vectors: its columns are read once.
template <class T, int N, bool from_zero, bool adds>
int one_matrix(const LanePlan &plan, int first) {
    using Column = Row<T, N>;
    const LaneOperand &vector = plan.source[1].operand;
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    Column column[N];
    for (int p = 0; p < N; ++p) {
        T elements[N];
        for (int i = 0; i < N; ++i)
            elements[i] = load_element<T>(matrix.o.transposed ? matrix.address(0, p, i) : matrix.address(0, i, p));
        column[p] = Column::load(reinterpret_cast<const Byte *>(elements));
    }
    const std::ptrdiff_t step = vector.stride2;
    return each_object_of<T, loop<from_zero>, Column::masked>(
        plan, first,
        [&](const Byte *b, const Byte *c, const Byte *d) {
            Column sum = column[0] * Column::all(load_element<T>(b));
            if constexpr (from_zero) sum = Column::all(0) + sum;
#pragma GCC unroll 6
            for (int p = 1; p < N; ++p) sum = sum + column[p] * Column::all(load_element<T>(b + p * step));
            if constexpr (adds) sum = sum + Column::load(c);
            sum.store(d);
        },
        vector, plan.source[adds ? 2 : 1].operand, plan.result[0]);
}

// All elements of a single matrix, row by row, in registers.
template <class T, int N>
[[maybe_unused]] constexpr int square_registers = (N * N + Pack<T>::width - 1) / Pack<T>::width;
template <class T, int N>
void load_square(const LaneAccess<T, N, N> &matrix, Pack<T> (&out)[square_registers<T, N>]) {
    constexpr int registers = square_registers<T, N>, last = registers - 1, W = Pack<T>::width;
    if constexpr (loads_ends)
        if (matrix.way == LaneAccess<T, N, N>::Way::rows && matrix.dense && !matrix.o.transposed) {
            const Byte *const from = static_cast<const Byte *>(matrix.o.base);
            for (int k = 0; k < last; ++k) out[k] = load_pack<T>(from + k * pack_bytes);
            out[last] = load_end<T, N * N - last * W>(from + last * pack_bytes);
            return;
        }
    T elements[registers * W] = {};
    for (int i = 0; i < N; ++i)
        for (int p = 0; p < N; ++p)
            elements[i * N + p] =
                load_element<T>(matrix.o.transposed ? matrix.address(0, p, i) : matrix.address(0, i, p));
    for (int k = 0; k < registers; ++k) out[k] = load_pack<T>(elements + k * W);
}

template <int count, class Each>
[[gnu::always_inline]] inline void each_fixed(Each each) {
    [&]<int... k>(std::integer_sequence<int, k...>) __attribute__((always_inline)) {
        (each(Fixed<k>{}), ...);
    }
    (std::make_integer_sequence<int, count>{});
}

// Register k of a group of vectors of three or four: several of them in fours side by side, wherever each of them lies.
template <class T, int N, int k, class Vectors>
[[gnu::always_inline]] inline Pack<T> load_fours(const Vectors &vectors, int n) {
    if constexpr (Vectors::few) {
        return vectors.load_register(n, k);
    } else {
        constexpr int at_once = Pack<T>::width / 4;
        const auto rows = vectors.rows(n);
        Pack<T> x;
        each_fixed<at_once>([&]<int q>(Fixed<q>)
                                __attribute__((always_inline)) { x = with_four<q, N>(x, rows[k * at_once + q]); });
        return x;
    }
}
template <class T, int N, int k, class Vectors>
[[gnu::always_inline]] inline void store_fours(const Vectors &vectors, int n, Pack<T> x) {
    if constexpr (Vectors::few) {
        vectors.store_register(n, k, x);
    } else {
        constexpr int at_once = Pack<T>::width / 4;
        const auto rows = vectors.rows(n);
        each_fixed<at_once>([&]<int q>(Fixed<q>)
                                __attribute__((always_inline)) { store_four<q, N>(rows[k * at_once + q], x); });
    }
}

// The same for several vectors of three or four in one register; those of three have gaps between them.
template <int N, int p>
struct OfColumn {
    static constexpr int at(int e) { return e % 4 < N ? e % 4 * N + p : 0; }
};
template <class T, int N, bool from_zero, bool adds, class Vectors>
int one_matrix_in_fours(const LanePlan &plan, int first, Known known, const Vectors &vector, const Vectors &added,
                        const Vectors &dst) {
    constexpr int registers = square_registers<T, N>;
    Pack<T> matrix[registers], columns[N];
    load_square<T, N>(LaneAccess<T, N, N>(plan.source[0].operand), matrix);
    each_fixed<N>([&]<int p>(Fixed<p>) { rearrange<T, OfColumn<N, p>, 1, registers>(matrix, columns + p); });
    const FoursTogether<T> all(columns);
    const auto body = [&](int n, const auto &from, [[maybe_unused]] const auto &beside, const auto &to)
        __attribute__((always_inline)) {
        Pack<T> sum[4];
        constexpr bool at_once = std::remove_cvref_t<decltype(to)>::few; // side by side there is no order to keep
        each_fixed<4>([&]<int k>(Fixed<k>) __attribute__((always_inline)) {
            sum[k] = all.template sum<from_zero, N>(load_fours<T, N, k>(from, n).v);
            if constexpr (adds) sum[k] = sum[k] + load_fours<T, N, k>(beside, n);
            if constexpr (at_once) store_fours<T, N, k>(to, n, sum[k]);
        });
        if constexpr (!at_once)
            each_fixed<4>([&]<int k>(Fixed<k>) __attribute__((always_inline)) { store_fours<T, N, k>(to, n, sum[k]); });
        return true;
    };
    const auto as = [&]<Known known>(Fixed<known>) __attribute__((always_inline)) {
        return each_group_known<known, T>(plan, first, body, vector, added, dst);
    };
    using enum Known;
    if constexpr (N == 4)
        if (known == packed) return as(Fixed<packed>{});
    return known == listed ? as(Fixed<listed>{}) : as(Fixed<strided>{});
}

// And for vectors of three without gaps, W of them in three registers, which stay as they lie: element e of them is the
// sum of the elements p of its own vector times (e % 3, p) of the matrix. The elements p of all vectors, each at three
// places, come from the registers at once, or first all into one, each in its own lane.
template <int p>
struct OfOwnVector {
    static constexpr int at(int e) { return e - e % 3 + p; }
};
template <int p, int W>
struct OfOwnLane {
    static constexpr int at(int lane) {
        int e = p;
        while (e % W != lane) e += 3;
        return e;
    }
};
template <int p, int W>
struct FromItsLane {
    static constexpr int at(int e) { return OfOwnVector<p>::at(e) % W; }
};
template <class T, int p>
[[gnu::always_inline]] inline void elements_of_own_vectors(const Pack<T> (&x)[3], Pack<T> (&out)[3]) {
    constexpr int W = Pack<T>::width;
    if constexpr (usual_way == By::pairs) {
        rearrange<T, OfOwnVector<p>, 3, 3>(x, out);
    } else {
        constexpr auto lanes = std::make_integer_sequence<int, W>{};
        const Pack<T> one = Rearranged<T, OfOwnLane<p, W>, 0, 3>::of(x, lanes);
        rearrange<T, FromItsLane<p, W>, 3, 1>(&one, out);
    }
}
template <int p>
struct OfRowThere { // and what of the matrix they are multiplied by
    static constexpr int at(int e) { return e % 3 * 3 + p; }
};
template <class T, bool from_zero, bool adds, class Vectors>
int one_matrix_of_three(const LanePlan &plan, int first, const Vectors &vector, const Vectors &added,
                        const Vectors &dst) {
    constexpr int registers = square_registers<T, 3>;
    Pack<T> nine[registers], m[3][3]; // m[p][k]
    load_square<T, 3>(LaneAccess<T, 3, 3>(plan.source[0].operand), nine);
    rearrange<T, OfRowThere<0>, 3, registers>(nine, m[0]);
    rearrange<T, OfRowThere<1>, 3, registers>(nine, m[1]);
    rearrange<T, OfRowThere<2>, 3, registers>(nine, m[2]);
    return each_group_known<Known::packed, T>(
        plan, first,
        [&](int n, const auto &from, [[maybe_unused]] const auto &beside, const auto &to) {
            Pack<T> x[3], element[3], sum[3];
            for (int k = 0; k < 3; ++k) x[k] = from.load_register(n, k);
            elements_of_own_vectors<T, 0>(x, element);
            for (int k = 0; k < 3; ++k) sum[k] = element[k] * m[0][k];
            if constexpr (from_zero)
                for (int k = 0; k < 3; ++k) sum[k] = Pack<T>(T(0)) + sum[k];
            elements_of_own_vectors<T, 1>(x, element);
            for (int k = 0; k < 3; ++k) sum[k] = sum[k] + element[k] * m[1][k];
            elements_of_own_vectors<T, 2>(x, element);
            for (int k = 0; k < 3; ++k) sum[k] = sum[k] + element[k] * m[2][k];
            for (int k = 0; k < 3; ++k) {
                if constexpr (adds) sum[k] = sum[k] + beside.load_register(n, k);
                to.store_register(n, k, sum[k]);
            }
            return true;
        },
        vector, added, dst);
}

template <class T, int N, bool from_zero, bool adds>
SMX_LANE_LOOP int product(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    using Vectors = LaneAccess<T, 1, N>;
    using Matrices = LaneAccess<T, N, N>;
    const Matrices matrix(plan.source[0].operand);
    const Vectors vector(plan.source[1].operand), added(plan.source[adds ? 2 : 1].operand), dst(plan.result[0]);
    const auto compute = [](int n, const Num *a, const auto &from, [[maybe_unused]] const auto &beside,
                            const auto &to) {
        Num b[N], c[N], d[N];
        from.load(n, b);
        if constexpr (adds) beside.load(n, c);
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            Num sum = a[i * N] * b[0];
            if constexpr (from_zero) sum = Num(T(0)) + sum;
#pragma GCC unroll 6
            for (int p = 1; p < N; ++p) sum = sum + a[i * N + p] * b[p];
            if constexpr (adds) sum = sum + c[i];
            d[i] = sum;
        }
        to.store(n, d);
        return true;
    };
    const bool by_columns = dst.way == Vectors::Way::rows && (!adds || added.way == Vectors::Way::rows) &&
                            vector.o.addressing != Addressing::pointers;
    if (matrix.o.single) {
        // To spread out a large matrix for a part of a group takes longer than narrower lanes.
        if (N > 4 && plan.count - first < Num::width) return first;
        const bool packed = vector.packed && added.packed && dst.packed;
        if constexpr (N == 3 && rearranges)
            if (packed) return one_matrix_of_three<T, from_zero, adds>(plan, first, vector, added, dst);
        if constexpr ((N == 3 && loads_ends) || (N == 4 && Together<T, N>::exists)) {
            const auto all = [&](Known known) {
                return is_known(vector, known) && is_known(added, known) && is_known(dst, known);
            };
            const Known known = packed                ? Known::packed
                                : all(Known::strided) ? Known::strided
                                : all(Known::listed)  ? Known::listed
                                                      : Known::nothing;
            const bool whole = pack_bytes <= 32 || !splits_registers();
            if (whole && known != Known::nothing)
                return one_matrix_in_fours<T, N, from_zero, adds>(plan, first, known, vector, added, dst);
            if (N == 4 && packed) return first;
        }
        if (by_columns && (few_lanes || !packed || (sizeof(T) == 8 && N != 3)))
            return one_matrix<T, N, from_zero, adds>(plan, first);
        if constexpr (few_lanes) return first;
        Num a[N * N];
        matrix.load(0, a);
        return each_group_by<T, Known::packed, Known::planes>(
            plan, first,
            [&](int n, const auto &from, [[maybe_unused]] const auto &beside, const auto &to) {
                return compute(n, a, from, beside, to);
            },
            vector, added, dst);
    }
    if constexpr (loads_ends) {
        const bool in_registers = matrix.way == Matrices::Way::rows && matrix.dense && !matrix.o.transposed;
        if (by_columns && in_registers) {
            if constexpr (N == 3 && sizeof(T) == 8) return product_by_short_columns<T, from_zero, adds>(plan, first);
            else return product_by_columns<T, N, from_zero, adds>(plan, first);
        }
    } else if (few_lanes ||
               (sizeof(T) == 8 && matrix.way == Matrices::Way::rows && matrix.o.addressing == Addressing::strided)) {
        return first;
    }
    return each_group_by<T, Known::planes>(
        plan, first,
        [&](int n, const auto &matrices, const auto &from, [[maybe_unused]] const auto &beside, const auto &to) {
            Num a[N * N];
            matrices.load(n, a);
            return compute(n, a, from, beside, to);
        },
        matrix, vector, added, dst);
}

} // namespace

int matrix_vector_lanes(const LanePlan &plan, bool from_zero, int first) {
    const LaneOperand &d = plan.result[0];
    return by_type_and_side<Fewest::one>(plan, d.element, d.columns, first, [&](auto zero, auto side) {
        using T = decltype(zero);
        constexpr int N = decltype(side)::value;
        return plan.sources == 3 ? product<T, N, false, true>(plan, first)
               : from_zero       ? product<T, N, true, false>(plan, first)
                                 : product<T, N, false, false>(plan, first);
    });
}

} // namespace SMX_ISA
} // namespace smx
