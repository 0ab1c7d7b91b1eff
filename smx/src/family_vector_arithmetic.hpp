// Add, Sub and Mul on vectors and constants: dst = x op y, element by element, y being a vector's element, a constant
// by value, or the object's constant in an array of constants. Where the constant is the first operand of the
// expression, the family takes subtract_from, since the constant always follows the vector in an argument list.
//
//   Paths     one text; lengths 3 to 6 are unrolled. The list kernels of vav and vava call those of vv.
//   Order     objects and elements ascending; an element is read, computed and stored before the next one is read. The
//             constant of an object is read once, before its elements. A single vector is read again for every object,
//             but in lengths 3 to 6 the strided kernels of vav and vva keep its values from before the first store.
//   Status    always 0.
//   In place  dst may be a source vector with the same addresses. Other overlaps show the order above.
#pragma once

#include "frame_module.hpp"
#include "lanes_vector_arithmetic.hpp"

namespace smx {
inline namespace SMX_ISA {

// Which strided kernels keep a single vector's values for all objects.
enum class Kept { both, float_only };

template <class Operand>
constexpr bool is_single_vector = false;
template <class T, bool Adjacent>
constexpr bool is_single_vector<Strided<T, 1, false, Adjacent>> = true;
template <class Operand>
constexpr bool is_value = false;
template <class T>
constexpr bool is_value<Value<T>> = true;
template <class Operand>
constexpr bool is_constant = is_value<Operand>;
template <class T>
constexpr bool is_constant<Strided<T, 0, true, true>> = true;
template <class T>
constexpr bool is_constant<Listed<T, 0, true>> = true;

template <Arithmetic operation, Kept kept = Kept::both>
struct VectorArithmetic {
    // The second operand of object n as something to be called with an element's index.
    template <class T>
    static auto second(const Value<T> &y, int) {
        return [value = y.value](int) { return value; };
    }
    template <class T>
    static auto second(const Strided<T, 0, true, true> &y, int n) {
        return [value = static_cast<std::remove_const_t<T>>(y.object(n)(0))](int) { return value; };
    }
    template <class T>
    static auto second(const Listed<T, 0, true> &y, int n) {
        return [value = static_cast<std::remove_const_t<T>>(y.object(n)(0))](int) { return value; };
    }
    template <class B>
    static auto second(const B &y, int n) {
        return y.object(n);
    }

    // A single vector, read once.
    template <class T, int N>
    struct Values {
        T value[N];
        template <class V>
        explicit Values(const V &v) {
            for (int j = 0; j < N; ++j) value[j] = v.object(0)(j);
        }
        T operator()(int j) const { return value[j]; }
        const Values &object(int) const { return *this; }
    };

    template <class A, class B, class D>
    [[gnu::always_inline]] static void each(const A &a, const B &b, const D &d, int len, int first, int last) {
        for (int n = first; n < last; ++n) {
            const auto x = a.object(n);
            const auto y = second(b, n);
            const auto out = d.object(n);
            for (int j = 0; j < len; ++j) out(j) = apply<operation, ElementOf<D>>(x(j), y(j));
        }
    }

    template <class Tier, class A, class B, class D>
    static SmxStatus objects(const A &a, const B &b, const D &d, int len, int first, int last) {
        using T = ElementOf<D>;
        constexpr bool by_strides = std::is_same_v<Tier, Plain> || std::is_same_v<Tier, S2>;
        constexpr bool keeps = by_strides && !is_constant<B> && (kept == Kept::both || sizeof(T) == 4) && !is_single<D>;
        const bool done = with_side(len, [&]<int N>(Side<N>) {
            if constexpr (keeps && is_single_vector<A>) each(Values<T, N>(a), b, d, N, first, last);
            else if constexpr (keeps && is_single_vector<B>) each(a, Values<T, N>(b), d, N, first, last);
            else each(a, b, d, N, first, last);
        });
        if (!done) each(a, b, d, len, first, last);
        return smxStsNoErr;
    }

    // The lane engine's way is the same for every tier: one operation an element.
    template <class A, class T, class D, class Range>
    static SmxStatus in_groups(const A &a, const Value<T> &b, const D &d, int len, int count, Range one_by_one) {
        const LaneOperand x = a.lanes(1, len), result = d.lanes(1, len);
        const LanePlan plan = lane_plan(count, {{x, SameObject::identical}}, {result});
        if (computes_run(plan, operation, b.value)) return smxStsNoErr;
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, vector_arithmetic_lanes, plan, operation, b.value); },
            one_by_one);
    }
    template <class A, class B, class D, class Range>
    static SmxStatus in_groups(const A &a, const B &b, const D &d, int len, int count, Range one_by_one) {
        // An object's constant is read ahead of its elements, so it may lie anywhere in them.
        const LaneSource y = is_constant<B> ? LaneSource{b.lanes(1, 1), SameObject::any}
                                            : LaneSource{b.lanes(1, len), SameObject::identical};
        const LaneOperand x = a.lanes(1, len), result = d.lanes(1, len);
        const LanePlan plan = lane_plan(count, {{x, SameObject::identical}, y}, {result});
        if (!is_constant<B> && computes_run(plan, operation)) return smxStsNoErr;
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, vector_arithmetic_lanes, plan, operation, 0.0); },
            one_by_one);
    }

    template <class A, class B, class D>
    [[gnu::always_inline]] static bool in_a_run(const A &a, const B &b, const D &d, int len, int count) {
        const LaneOperand x = a.lanes(1, len), result = d.lanes(1, len);
        if constexpr (is_value<B>) return computes_run(operation, count, result, x, b.value);
        else if constexpr (is_constant<B>) return false;
        else return computes_run(operation, count, result, x, b.lanes(1, len));
    }

    // Non-array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, const B &b, const D &d, Size<Role::len> len) {
        return objects<Tier>(a, b, d, len.value, 0, 1);
    }
    // Array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, const B &b, const D &d, Size<Role::len> len, Count count) {
        if (in_a_run(a, b, d, len.value, count.value)) return smxStsNoErr;
        return with_gaps<Tier>(a, b, d, len.value, count.value);
    }
    // By value: a run does without the operands in memory.
    template <class Tier, class A, class B, class D>
    [[gnu::noinline]] static SmxStatus with_gaps(A a, B b, D d, int len, int count) {
        const auto one_by_one = [&](int first, int last) { return objects<Tier>(a, b, d, len, first, last); };
        // A long pointer table takes longer to look through than to walk.
        if (std::is_same_v<Tier, P> && len > 6) return one_by_one(0, count);
        return in_groups(a, b, d, len, count, one_by_one);
    }
    // List kernels that call the non-array kernel.
    template <class Tier, class Call, class A, class B, class D>
    static SmxStatus run(Tier, const Inner<Call> &inner, const A &a, const B &b, const D &d, Size<Role::len> len,
                         Count count) {
        const auto one_by_one = each_by(inner);
        if (inner.replaced) return one_by_one(0, count.value);
        return in_groups(a, b, d, len.value, count.value, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
