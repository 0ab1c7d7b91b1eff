// The frame of every interface function: prove the arguments, choose a tier, call. Nothing is written before the
// checks have passed.
#pragma once

#include "frame_rules.hpp"
#include "smxdefs.h"

namespace smx {
inline namespace SMX_ISA {

enum class Layout { strided, pointers, list };

template <class T, const Rules &rules, class... Operands>
constexpr SmxStatus failed(Check check, const Operands &...o) {
    switch (check) {
    case Check::done: return smxStsNoErr;
    case Check::null: return (o.null() || ...) ? smxStsNullPtrErr : smxStsNoErr;
    case Check::count: return (o.count_bad() || ...) ? smxStsCountMatrixErr : smxStsNoErr;
    case Check::size: return (o.size_bad() || ...) ? smxStsSizeErr : smxStsNoErr;
    case Check::match: {
        Sizes sizes;
        (o.put(sizes), ...);
        return rules.match(sizes) ? smxStsNoErr : smxStsSizeMatchMatrixErr;
    }
    case Check::strides:
        return ((o.object_stride_bad() || o.row_strides_bad()) || ...) ? smxStsStrideMatrixErr : smxStsNoErr;
    case Check::shifts: return (o.shift_bad() || ...) ? smxStsRoiShiftMatrixErr : smxStsNoErr;
    case Check::source_strides:
        return ((o.is_source && (o.object_stride_bad() || o.row_strides_bad())) || ...) ? smxStsStrideMatrixErr
                                                                                        : smxStsNoErr;
    case Check::result_strides:
        return ((!o.is_source && (o.object_stride_bad() || o.row_strides_bad())) || ...) ? smxStsStrideMatrixErr
                                                                                         : smxStsNoErr;
    case Check::source_shifts: return ((o.is_source && o.shift_bad()) || ...) ? smxStsRoiShiftMatrixErr : smxStsNoErr;
    case Check::result_shifts: return ((!o.is_source && o.shift_bad()) || ...) ? smxStsRoiShiftMatrixErr : smxStsNoErr;
    case Check::rows: return (o.row_strides_bad() || ...) ? smxStsStrideMatrixErr : smxStsNoErr;
    case Check::object_strides: {
        Sizes sizes;
        (o.put(sizes), ...);
        return sizes.count > 1 && (o.object_stride_bad() || ...) ? smxStsStrideMatrixErr : smxStsNoErr;
    }
    }
    return smxStsNoErr;
}

template <class T, const Rules &rules, Layout layout>
constexpr Check step(int i) {
    const Order &order = sizeof(T) == 8 ? rules.order_of_double : rules.order;
    return layout == Layout::strided    ? order.strided[i]
           : layout == Layout::pointers ? order.pointers[i]
                                        : order.list[i];
}

// The first failing group's status, or 0.
template <class T, const Rules &rules, Layout layout, int i = 0, class... Operands>
[[gnu::always_inline]] inline SmxStatus first_failure(const Operands &...o) {
    if constexpr (i < 8 && step<T, rules, layout>(i < 8 ? i : 0) != Check::done) {
        if (const SmxStatus status = failed<T, rules>(step<T, rules, layout>(i), o...); status != smxStsNoErr)
            return status;
        return first_failure<T, rules, layout, i + 1>(o...);
    } else {
        return smxStsNoErr;
    }
}

template <class T>
constexpr int cell(const Cell &c) {
    return sizeof(T) == 4 ? c.f32 : c.f64;
}

// Is the work of the call large enough for the driver, in the tier that the strides select?
template <class T, const Rules &rules, Layout layout, class... Operands>
[[gnu::always_inline]] inline bool worth_threads(bool adjacent, const Operands &...o) {
    constexpr Bounds b = rules.bounds;
    Sizes sizes;
    (o.put(sizes), ...);
    const int work = static_cast<int>(b.work(sizes));
    const int bound = layout == Layout::pointers ? cell<T>(b.pointers)
                      : layout == Layout::list   ? (adjacent ? cell<T>(b.list) : cell<T>(b.list_s2))
                                                 : (adjacent ? cell<T>(b.strided) : cell<T>(b.strided_s2));
    return b.test == Test::reached ? work >= bound : work > bound;
}

// Checks, then one of the three calls: the driver of an array form, the kernel for adjacent elements (or the one of the
// pointer layout), the kernel for a general stride2.
template <class T, const Rules &rules, Layout layout, class Driver, class Kernel, class KernelS2, class... Operands>
[[gnu::always_inline]] inline SmxStatus enter(Driver driver, Kernel kernel, KernelS2 kernel_s2, const Operands &...o) {
    if (const SmxStatus status = first_failure<T, rules, layout>(o...); status != smxStsNoErr) return status;
    if constexpr (rules.at_once == AtOnce::side_one) {
        Sizes sizes;
        (o.put(sizes), ...);
        if (sizes[Role::side] == 1) return side_one_at_once(o...); // of the row's family
    }
    const bool adjacent = (o.adjacent() && ...);
    // Not `work != nullptr`: under the sanitizers GCC takes no function address for a constant.
    if constexpr (rules.bounds.strided.f32 != no_driver)
        if (worth_threads<T, rules, layout>(adjacent, o...)) return driver();
    return adjacent ? kernel() : kernel_s2();
}

} // namespace SMX_ISA
} // namespace smx
