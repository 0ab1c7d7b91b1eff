#include "lanes_vector_products.hpp"

#include "family_products_core.hpp"
#include "frame_lane_loops.hpp"
#include "frame_lane_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <SumOrder order, class T, int N>
SMX_LANE_LOOP int dot(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, 1, N>;
    const Shaped<T, 1, N> a{plan.source[0].operand}, b{plan.source[1].operand};
    const Shaped<T, 1, 1> dst{plan.result[0]};
    using enum Known;
    if (b.o.single) {
        Pack<T> y[N];
        Access(b.o).load(0, y);
        return each_group_by<T, packed, strided, listed, planes>(
            plan, first,
            [&](int n, const auto &from, const auto &to) {
                Pack<T> x[N];
                from.load(n, x);
                const Pack<T> sum = dot_of<order>(x, y);
                to.store(n, &sum);
                return true;
            },
            a, dst);
    }
    // To bring three doubles of each object into lanes takes longer than to multiply them.
    if (N == 3 && sizeof(T) == 8 && !plan.packed) {
        const Access x(a.o), y(b.o);
        if (x.way == Access::Way::rows && y.way == Access::Way::rows && !(x.packed && y.packed)) return first;
    }
    return each_group_by<T, packed, strided, listed, planes>(
        plan, first,
        [](int n, const auto &from, const auto &beside, const auto &to) {
            Pack<T> x[N], y[N], sum;
            if constexpr (std::remove_cvref_t<decltype(from)>::few) {
                // Multiplied as they lie, so that only the products are taken apart.
                for (int k = 0; k < N; ++k) x[k] = from.load_register(n, k) * beside.load_register(n, k);
                take_apart<T, N>(x, y);
                sum = sum_of<order>(y);
            } else {
                from.load(n, x);
                beside.load(n, y);
                sum = dot_of<order>(x, y);
            }
            to.store(n, &sum);
            return true;
        },
        a, b, dst);
}

// Element i of each vector is the next one around, of vectors side by side.
struct NextAround {
    static constexpr int at(int e) { return e % 3 == 2 ? e - 2 : e + 1; }
};

template <class T>
SMX_LANE_LOOP int cross(const LanePlan &plan, int first) {
    const Shaped<T, 1, 3> a{plan.source[0].operand}, b{plan.source[1].operand}, dst{plan.result[0]};
    if constexpr (loads_ends) {
        const auto rows = [](const Shaped<T, 1, 3> &x) {
            const LaneAccess<T, 1, 3> access(x.o);
            return is_known(access, Known::strided) || is_known(access, Known::listed);
        };
        if (!plan.packed && rows(a) && rows(b) && rows(dst))
            return each_object_of<T, Loop::usual, Row<T, 3>::masked>(
                plan, first,
                [](const Byte *from, const Byte *beside, const Byte *to) {
                    using Vector = Row<T, 3>;
                    const auto next = [](Vector x) { return Vector{__builtin_shufflevector(x.v, x.v, 1, 2, 0, 3)}; };
                    const Vector x = Vector::load(from), y = Vector::load(beside);
                    next(x * next(y) - next(x) * y).store(to);
                },
                a.o, b.o, dst.o);
    }
    if (sizeof(T) == 8 && (a.o.addressing == Addressing::list || b.o.addressing == Addressing::list)) return first;
    using enum Known;
    return each_group_by<T, packed, strided, listed, planes>(
        plan, first,
        [](int n, const auto &from, const auto &beside, const auto &to) {
            Pack<T> x[3], y[3], z[3];
            if constexpr (std::remove_cvref_t<decltype(from)>::few) {
                // As they lie: a(i) b(i + 1) - a(i + 1) b(i) is element i + 2.
                Pack<T> next_x[3], next_y[3];
                for (int k = 0; k < 3; ++k) {
                    x[k] = from.load_register(n, k);
                    y[k] = beside.load_register(n, k);
                }
                rearrange<T, NextAround, 3, 3>(x, next_x);
                rearrange<T, NextAround, 3, 3>(y, next_y);
                for (int k = 0; k < 3; ++k) z[k] = x[k] * next_y[k] - next_x[k] * y[k];
                rearrange<T, NextAround, 3, 3>(z, x);
                for (int k = 0; k < 3; ++k) to.store_register(n, k, x[k]);
            } else {
                from.load(n, x);
                beside.load(n, y);
                for (int i = 0; i < 3; ++i)
                    z[i] = cross_element(
                        i, [&](int p) { return x[p]; }, [&](int p) { return y[p]; });
                to.store(n, z);
            }
            return true;
        },
        a, b, dst);
}

} // namespace

int dot_product_lanes(const LanePlan &plan, bool tail_second, int first) {
    if constexpr (few_lanes) return first;
    return by_type_and_side<Fewest::one>(
        plan, plan.result[0].element, plan.source[0].operand.columns, first, [&](auto zero, auto side) {
            using T = decltype(zero);
            constexpr int N = decltype(side)::value;
            constexpr bool has_tail = N > 4;
            constexpr SumOrder with_tail = has_tail ? SumOrder::dot_tail_second : SumOrder::ascending;
            return tail_second ? dot<with_tail, T, N>(plan, first) : dot<SumOrder::ascending, T, N>(plan, first);
        });
}
int cross_product_lanes(const LanePlan &plan, int first) {
    if constexpr (few_lanes) return first;
    return plan.result[0].element == sizeof(float) ? cross<float>(plan, first) : cross<double>(plan, first);
}

} // namespace SMX_ISA
} // namespace smx
