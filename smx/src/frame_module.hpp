// What a module stamps from its row of the catalogue.
//
//   SMX_MODULE(Add_mm)               interface functions and kernels of a row
//   SMX_MODULE_VIA(Add_mam, Add_mm)  the same, where the list kernels call the non-array kernels of another row
//   SMX_MODULE_VIA_S2(Mul_mama, Mul_mm)  the same, but only the _LS2 kernels call another one
//   SMX_MODULE_VIA_P(CholeskyDecomp_ma, CholeskyDecomp_m)  the same, but only the _P kernels call another one
//   SMX_MODULE_VIA_PLAIN_32f(CholeskyBackSubst_mva, CholeskyBackSubst_mv)  the same for one kernel alone
//   SMX_MODULE_COM(LUDecomp_m, (LUGeneral))     a row whose kernels leave their general path to `_com` kernels
//   SMX_MODULE_VIA_COM(LUDecomp_ma, LUDecomp_m)  its array row, which calls those `_com` kernels for each object
//   SMX_MODULE_VIA_COM_BUT_P(Invert_ma, Invert_m)  the same, but the _P kernels have their own general path
//   SMX_DRIVERS(Add_mam)             the drivers of an array row
//   SMX_DRIVERS_WITH_SCRATCH(Det_ma, elements)  the same with so many elements of scratch for each thread
//   SMX_DRIVERS_WITH_SCRATCH(EigenValues_ma, query)  the same for a row with one kernel: as many bytes as query_32f or
//                                                _64f says
//
// All three tiers are exported, and each calls the next by its name, so that one that a user preloads is the one
// called.
#pragma once

#include "frame_catalogue.hpp"
#include "frame_entry.hpp"
#include "frame_stamp.hpp"
#include "smx.h"

namespace smx {
inline namespace SMX_ISA {

// The tier of a kernel, by which a family tells its kernels apart.
struct Plain {};
struct S2 {};
struct P {};
struct L {};
struct LS2 {};
template <class Tier>
constexpr bool is_list = std::is_same_v<Tier, L> || std::is_same_v<Tier, LS2>;
template <class Tier>
constexpr bool is_adjacent = std::is_same_v<Tier, L> || std::is_same_v<Tier, Plain>;

// The non-array kernel that a list kernel calls for each object, and whether a user has replaced it: a faster path may
// pass it by only if nobody can tell.
template <class Call>
struct Inner {
    Call call;
    bool replaced;
};
template <class Call>
Inner(Call, bool) -> Inner<Call>;
// Objects one after the other by that kernel, whose status nobody looks at.
template <class Call>
inline auto each_by(const Inner<Call> &inner) {
    return [&inner](int first, int last) {
        for (int n = first; n < last; ++n) inner.call(n);
        return SmxStatus{smxStsNoErr};
    };
}

template <class Function>
inline bool replaced(Function *called, Function *ours) {
    __asm__("" : "+r"(called)); // or the compiler takes two names for two functions
    return called != ours;
}

} // namespace SMX_ISA
} // namespace smx

#define SMX_MODULE(name) SMX_MODULE_1(name, SMX_ROW_##name)
#define SMX_MODULE_1(name, ...) SMX_MODULE_2(name, __VA_ARGS__)
#define SMX_MODULE_2(name, shape, family, rules, ...) \
    SMX_RULES(name, rules)                            \
    SMX_STAMP_##shape(name, float, 32f, family, __VA_ARGS__) SMX_STAMP_##shape(name, double, 64f, family, __VA_ARGS__)

// A row whose kernels call those of another row, or leave part of their work to another family.
#define SMX_MODULE_VIA(name, inner) SMX_MODULE_OF(SMX_STAMP_VIA, name, inner)
#define SMX_MODULE_VIA_S2(name, inner) SMX_MODULE_OF(SMX_STAMP_VIA_S2, name, inner)
#define SMX_MODULE_VIA_P(name, inner) SMX_MODULE_OF(SMX_STAMP_VIA_P, name, inner)
#define SMX_MODULE_VIA_PLAIN_32f(name, inner) SMX_MODULE_OF(SMX_STAMP_VIA_PLAIN, name, inner)
#define SMX_MODULE_COM(name, com_family) SMX_MODULE_OF(SMX_STAMP_COM, name, com_family)
#define SMX_MODULE_VIA_COM(name, single) SMX_MODULE_OF(SMX_STAMP_VIA_COM, name, single)
#define SMX_MODULE_VIA_COM_BUT_P(name, single) SMX_MODULE_OF(SMX_STAMP_VIA_COM_BUT_P, name, single)
#define SMX_MODULE_OF(stamp, name, other) SMX_MODULE_OF_1(stamp, name, other, SMX_ROW_##name)
#define SMX_MODULE_OF_1(stamp, name, other, ...) SMX_MODULE_OF_2(stamp, name, other, __VA_ARGS__)
#define SMX_MODULE_OF_2(stamp, name, other, shape, family, rules, ...) \
    SMX_RULES(name, rules)                                             \
    stamp(name, other, float, 32f, family, __VA_ARGS__) stamp(name, other, double, 64f, family, __VA_ARGS__)

#define SMX_DRIVERS(name) SMX_DRIVERS_1(name, 0, SMX_ROW_##name)
#define SMX_DRIVERS_WITH_SCRATCH(name, elements) SMX_DRIVERS_1(name, elements, SMX_ROW_##name)
#define SMX_DRIVERS_1(name, elements, ...) SMX_DRIVERS_2(name, elements, __VA_ARGS__)
#define SMX_DRIVERS_2(name, elements, shape, family, rules, ...)       \
    SMX_STAMP_DRIVERS_##shape(name, float, 32f, elements, __VA_ARGS__) \
        SMX_STAMP_DRIVERS_##shape(name, double, 64f, elements, __VA_ARGS__)

#define SMX_RULES(name, rules)                           \
    namespace smx {                                      \
    inline namespace SMX_ISA {                           \
    inline constexpr Rules rules_##name{SMX_BARE rules}; \
    }                                                    \
    }

#define SMX_FUNCTION(name, layout, T, ...) extern "C" SMX_API SmxStatus name(SMX_LIST(PARAM, layout, T, __VA_ARGS__))
#define SMX_CALL(name, layout, T, ...) [&] { return name(SMX_LIST(ARG, layout, T, __VA_ARGS__)); }

#define SMX_KERNEL(name, tier, layout, T, family, ...)                                  \
    SMX_FUNCTION(name, layout, T, __VA_ARGS__) {                                        \
        using namespace smx;                                                            \
        return SMX_BARE family::run(tier{}, SMX_LIST(OPERAND, layout, T, __VA_ARGS__)); \
    }

// A non-array kernel has a hidden second name, by which list kernels find out whether it has been replaced.
#define SMX_OWN_NAME(name, layout, T, ...)                         \
    extern "C" __attribute__((visibility("hidden"), alias(#name))) \
    SmxStatus smx_unreplaced_##name(SMX_LIST(PARAM, layout, T, __VA_ARGS__));

#define SMX_STAMP_SINGLE(name, T, type, family, ...)                      \
    SMX_KERNEL(ownsmx##name##_##type, Plain, A, T, family, __VA_ARGS__)   \
    SMX_KERNEL(ownsmx##name##_##type##_S2, S2, S, T, family, __VA_ARGS__) \
    SMX_KERNEL(ownsmx##name##_##type##_P, P, P, T, family, __VA_ARGS__)   \
    SMX_OWN_NAME(ownsmx##name##_##type, A, T, __VA_ARGS__)                \
    SMX_OWN_NAME(ownsmx##name##_##type##_S2, S, T, __VA_ARGS__)           \
    SMX_OWN_NAME(ownsmx##name##_##type##_P, P, T, __VA_ARGS__)            \
    SMX_STAMP_SINGLE_INTERFACE(name, T, type, __VA_ARGS__)

// An interface function: entry checks, then the driver or a kernel: one of two, or one for every stride2.
#define SMX_INTERFACE(function, name, layout, layout_name, kernel, kernel_layout, kernel_s2, T, driver, ...)      \
    SMX_FUNCTION(function, layout, T, __VA_ARGS__) {                                                              \
        return smx::enter<T, smx::rules_##name, smx::Layout::layout_name>(                                        \
            driver, SMX_CALL(kernel, kernel_layout, T, __VA_ARGS__), SMX_CALL(kernel_s2, layout, T, __VA_ARGS__), \
            SMX_LIST(OPERAND, layout, T, __VA_ARGS__));                                                           \
    }
#define SMX_INTERFACE_ONE_KERNEL(function, name, layout, layout_name, T, driver, ...)                                 \
    SMX_FUNCTION(smx##function, layout, T, __VA_ARGS__) {                                                             \
        const auto kernel = SMX_CALL(ownsmx##function, layout, T, __VA_ARGS__);                                       \
        return smx::enter<T, smx::rules_##name, smx::Layout::layout_name>(driver, kernel, kernel,                     \
                                                                          SMX_LIST(OPERAND, layout, T, __VA_ARGS__)); \
    }
#define SMX_STRIDED_INTERFACE(name, T, type, driver, ...)                                                        \
    SMX_INTERFACE(smx##name##_##type, name, S, strided, ownsmx##name##_##type, A, ownsmx##name##_##type##_S2, T, \
                  driver, __VA_ARGS__)
#define SMX_LIST_INTERFACE(name, T, type, driver, ...)                                                               \
    SMX_INTERFACE(smx##name##_##type##_L, name, L, list, ownsmx##name##_##type##_L, LA, ownsmx##name##_##type##_LS2, \
                  T, driver, __VA_ARGS__)
// No driver: the call runs on its own thread.
#define SMX_NO_DRIVER [] { return smxStsNoErr; }

#define SMX_STAMP_SINGLE_INTERFACE(name, T, type, ...)               \
    SMX_STRIDED_INTERFACE(name, T, type, SMX_NO_DRIVER, __VA_ARGS__) \
    SMX_INTERFACE_ONE_KERNEL(name##_##type##_P, name, P, pointers, T, SMX_NO_DRIVER, __VA_ARGS__)

#define SMX_STAMP_ARRAY(name, T, type, family, ...)                         \
    SMX_STAMP_ARRAY_KERNELS(name, T, type, family, __VA_ARGS__, (N, count)) \
    SMX_STAMP_LIST_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))  \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))

#define SMX_STAMP_LIST_KERNELS(name, T, type, family, ...)               \
    SMX_KERNEL(ownsmx##name##_##type##_L, L, LA, T, family, __VA_ARGS__) \
    SMX_KERNEL(ownsmx##name##_##type##_LS2, LS2, L, T, family, __VA_ARGS__)

#define SMX_STAMP_ARRAY_KERNELS(name, T, type, family, ...)               \
    SMX_KERNEL(ownsmx##name##_##type, Plain, A, T, family, __VA_ARGS__)   \
    SMX_KERNEL(ownsmx##name##_##type##_S2, S2, S, T, family, __VA_ARGS__) \
    SMX_KERNEL(ownsmx##name##_##type##_P, P, P, T, family, __VA_ARGS__)

#define SMX_STAMP_VIA(name, inner, T, type, family, ...)                                                             \
    SMX_STAMP_ARRAY_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))                                          \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_L, ownsmx##inner##_##type, L, LA, A, T, family, SMX_COUNTED, __VA_ARGS__) \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_LS2, ownsmx##inner##_##type##_S2, LS2, L, S, T, family, SMX_COUNTED,      \
                   __VA_ARGS__)                                                                                      \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))

#define SMX_STAMP_VIA_S2(name, inner, T, type, family, ...)                                                     \
    SMX_STAMP_ARRAY_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))                                     \
    SMX_KERNEL(ownsmx##name##_##type##_L, L, LA, T, family, __VA_ARGS__, (N, count))                            \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_LS2, ownsmx##inner##_##type##_S2, LS2, L, S, T, family, SMX_COUNTED, \
                   __VA_ARGS__)                                                                                 \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))

#define SMX_STAMP_VIA_P(name, inner, T, type, family, ...)                                                 \
    SMX_KERNEL(ownsmx##name##_##type, Plain, A, T, family, __VA_ARGS__, (N, count))                        \
    SMX_KERNEL(ownsmx##name##_##type##_S2, S2, S, T, family, __VA_ARGS__, (N, count))                      \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_P, ownsmx##inner##_##type##_P, P, P, P, T, family, SMX_COUNTED, \
                   __VA_ARGS__)                                                                            \
    SMX_STAMP_LIST_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))                                 \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))
#define SMX_STAMP_VIA_PLAIN(name, inner, T, type, family, ...) \
    SMX_VIA_PLAIN_##type(name, inner, T, type, family, __VA_ARGS__)
#define SMX_VIA_PLAIN_64f(name, inner, T, type, family, ...) SMX_STAMP_ARRAY(name, T, type, family, __VA_ARGS__)
#define SMX_VIA_PLAIN_32f(name, inner, T, type, family, ...)                                                        \
    SMX_KERNEL_VIA(ownsmx##name##_##type, ownsmx##inner##_##type, Plain, A, A, T, family, SMX_COUNTED, __VA_ARGS__) \
    SMX_KERNEL(ownsmx##name##_##type##_S2, S2, S, T, family, __VA_ARGS__, (N, count))                               \
    SMX_KERNEL(ownsmx##name##_##type##_P, P, P, T, family, __VA_ARGS__, (N, count))                                 \
    SMX_STAMP_LIST_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))                                          \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))

// A kernel that calls another one for each of its objects: a list kernel the non-array kernel, or a kernel with paths
// for the sides 3 to 6 the one that holds its general path.
#define SMX_KERNEL_VIA(name, inner, tier, layout, inner_layout, T, family, counted, ...)                           \
    extern "C" SmxStatus inner(SMX_LIST(SINGLE, inner_layout, T, __VA_ARGS__));                                    \
    extern "C" __attribute__((visibility("hidden")))                                                               \
    SmxStatus smx_unreplaced_##inner(SMX_LIST(SINGLE, inner_layout, T, __VA_ARGS__));                              \
    SMX_FUNCTION(name, layout, T, counted(__VA_ARGS__)) {                                                          \
        using namespace smx;                                                                                       \
        const auto call = [&]([[maybe_unused]] int n) { return inner(SMX_LIST(OBJECT, layout, T, __VA_ARGS__)); }; \
        return SMX_BARE family::run(tier{}, Inner{call, replaced(inner, smx_unreplaced_##inner)},                  \
                                    SMX_LIST(OPERAND, layout, T, counted(__VA_ARGS__)));                           \
    }
#define SMX_COUNTED(...) __VA_ARGS__, (N, count)
#define SMX_UNCOUNTED(...) __VA_ARGS__

#define SMX_STAMP_COM(name, com_family, T, type, family, ...)                                                       \
    SMX_COM_KERNEL(SMX_COM_PLAIN_##name(name, type), Plain, A, T, com_family, __VA_ARGS__)                          \
    SMX_COM_KERNEL(ownsmx##name##_##type##_S2_com, S2, S, T, com_family, __VA_ARGS__)                               \
    SMX_COM_KERNEL(ownsmx##name##_##type##_P_com, P, P, T, com_family, __VA_ARGS__)                                 \
    SMX_KERNEL_VIA_(ownsmx##name##_##type, SMX_COM_PLAIN_##name(name, type), Plain, A, A, T, family, SMX_UNCOUNTED, \
                    __VA_ARGS__)                                                                                    \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_S2, ownsmx##name##_##type##_S2_com, S2, S, S, T, family, SMX_UNCOUNTED,  \
                   __VA_ARGS__)                                                                                     \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_P, ownsmx##name##_##type##_P_com, P, P, P, T, family, SMX_UNCOUNTED,     \
                   __VA_ARGS__)                                                                                     \
    SMX_STAMP_SINGLE_INTERFACE(name, T, type, __VA_ARGS__)
#define SMX_STAMP_VIA_COM(name, single, T, type, family, ...)                                                   \
    SMX_STAMP_VIA_COM_STRIDED(name, single, T, type, family, __VA_ARGS__)                                       \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_P, ownsmx##single##_##type##_P_com, P, P, P, T, family, SMX_COUNTED, \
                   __VA_ARGS__)                                                                                 \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))
#define SMX_STAMP_VIA_COM_BUT_P(name, single, T, type, family, ...)                 \
    SMX_STAMP_VIA_COM_STRIDED(name, single, T, type, family, __VA_ARGS__)           \
    SMX_KERNEL(ownsmx##name##_##type##_P, P, P, T, family, __VA_ARGS__, (N, count)) \
    SMX_STAMP_ARRAY_INTERFACE(name, T, type, __VA_ARGS__, (N, count))
#define SMX_STAMP_VIA_COM_STRIDED(name, single, T, type, family, ...)                                                  \
    SMX_KERNEL_VIA_(ownsmx##name##_##type, SMX_COM_PLAIN_##single(single, type), Plain, A, A, T, family, SMX_COUNTED,  \
                    __VA_ARGS__)                                                                                       \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_S2, ownsmx##single##_##type##_S2_com, S2, S, S, T, family, SMX_COUNTED,     \
                   __VA_ARGS__)                                                                                        \
    SMX_KERNEL_VIA_(ownsmx##name##_##type##_L, SMX_COM_PLAIN_##single(single, type), L, LA, A, T, family, SMX_COUNTED, \
                    __VA_ARGS__)                                                                                       \
    SMX_KERNEL_VIA(ownsmx##name##_##type##_LS2, ownsmx##single##_##type##_S2_com, LS2, L, S, T, family, SMX_COUNTED,   \
                   __VA_ARGS__)

// The plain `_com` kernel of each of the two families that have one.
#define SMX_COM_PLAIN_LUDecomp_m(name, type) ownsmx##name##_##type##_S_com
#define SMX_COM_PLAIN_Invert_m(name, type) ownsmx##name##_##type##_com
#define SMX_COM_KERNEL(...) SMX_COM_KERNEL_(__VA_ARGS__)
#define SMX_COM_KERNEL_(name, tier, layout, T, family, ...) \
    SMX_KERNEL(name, tier, layout, T, family, __VA_ARGS__)  \
    SMX_OWN_NAME(name, layout, T, __VA_ARGS__)
#define SMX_KERNEL_VIA_(...) SMX_KERNEL_VIA(__VA_ARGS__)

#define SMX_STAMP_ARRAY_INTERFACE(name, T, type, ...)                                                         \
    SMX_FUNCTION(ownOMP_smx##name##_##type, S, T, __VA_ARGS__);                                               \
    SMX_FUNCTION(ownOMP_smx##name##_##type##_P, P, T, __VA_ARGS__);                                           \
    SMX_FUNCTION(ownOMP_smx##name##_##type##_L, L, T, __VA_ARGS__);                                           \
    SMX_STRIDED_INTERFACE(name, T, type, SMX_CALL(ownOMP_smx##name##_##type, S, T, __VA_ARGS__), __VA_ARGS__) \
    SMX_INTERFACE_ONE_KERNEL(name##_##type##_P, name, P, pointers, T,                                         \
                             SMX_CALL(ownOMP_smx##name##_##type##_P, P, T, __VA_ARGS__), __VA_ARGS__)         \
    SMX_LIST_INTERFACE(name, T, type, SMX_CALL(ownOMP_smx##name##_##type##_L, L, T, __VA_ARGS__), __VA_ARGS__)

// An array row without drivers: every call runs on the calling thread.
#define SMX_STAMP_ARRAY_NO_DRIVER(name, T, type, family, ...)               \
    SMX_STAMP_ARRAY_KERNELS(name, T, type, family, __VA_ARGS__, (N, count)) \
    SMX_STAMP_LIST_KERNELS(name, T, type, family, __VA_ARGS__, (N, count))  \
    SMX_STAMP_SINGLE_INTERFACE(name, T, type, __VA_ARGS__, (N, count))      \
    SMX_LIST_INTERFACE(name, T, type, SMX_NO_DRIVER, __VA_ARGS__, (N, count))

// Rows without kernels: the work stands in the interface functions. An array row places its count itself.
#define SMX_STAMP_SINGLE_NO_KERNEL(name, T, type, family, ...)                       \
    SMX_ALONE(smx##name##_##type, name, S2, S, S, strided, T, family, , __VA_ARGS__) \
    SMX_ALONE(smx##name##_##type##_P, name, P, P, P, pointers, T, family, , __VA_ARGS__)
#define SMX_STAMP_ARRAY_NO_KERNEL(name, T, type, family, ...)      \
    SMX_STAMP_SINGLE_NO_KERNEL(name, T, type, family, __VA_ARGS__) \
    SMX_ALONE(smx##name##_##type##_L, name, LS2, L, L, list, T, family, , __VA_ARGS__)
// A source and a destination, each in its own layout; the order of the checks goes by the destination's.
#define SMX_STAMP_COPY(name, T, type, family, source, ...)                                        \
    SMX_ALONE(smx##name##_##type##_SS, name, S2, S, S, strided, T, family, source, __VA_ARGS__)   \
    SMX_ALONE(smx##name##_##type##_SP, name, S2, S, P, pointers, T, family, source, __VA_ARGS__)  \
    SMX_ALONE(smx##name##_##type##_SL, name, S2, S, L, list, T, family, source, __VA_ARGS__)      \
    SMX_ALONE(smx##name##_##type##_PS, name, P, P, S, strided, T, family, source, __VA_ARGS__)    \
    SMX_ALONE(smx##name##_##type##_PP, name, P, P, P, pointers, T, family, source, __VA_ARGS__)   \
    SMX_ALONE(smx##name##_##type##_PL, name, P, P, L, list, T, family, source, __VA_ARGS__)       \
    SMX_ALONE(smx##name##_##type##_LS, name, LS2, L, S, strided, T, family, source, __VA_ARGS__)  \
    SMX_ALONE(smx##name##_##type##_LP, name, LS2, L, P, pointers, T, family, source, __VA_ARGS__) \
    SMX_ALONE(smx##name##_##type##_LL, name, LS2, L, L, list, T, family, source, __VA_ARGS__)
// An interface function that does the work. A row's first operand may have a layout of its own.
#define SMX_ALONE(function, name, tier, first_layout, layout, layout_name, T, family, first, ...)                   \
    extern "C" SMX_API SmxStatus function(SMX_LIST_BEHIND(PARAM, first_layout, layout, T, first, __VA_ARGS__)) {    \
        using namespace smx;                                                                                        \
        if (const SmxStatus status = first_failure<T, rules_##name, smx::Layout::layout_name>(                      \
                SMX_LIST_BEHIND(OPERAND, first_layout, layout, T, first, __VA_ARGS__));                             \
            status != smxStsNoErr)                                                                                  \
            return status;                                                                                          \
        return SMX_BARE family::run(tier{}, SMX_LIST_BEHIND(OPERAND, first_layout, layout, T, first, __VA_ARGS__)); \
    }
#define SMX_LIST_BEHIND(group, first_layout, layout, T, first, ...) \
    SMX_BEHIND(SMX_LIST(group, first_layout, T, first)) SMX_LIST(group, layout, T, __VA_ARGS__)
#define SMX_BEHIND(...) __VA_ARGS__ __VA_OPT__(, )

// A row with one element type and one layout: float, strided.
#define SMX_STAMP_ARRAY_STRIDED_FLOAT(name, T, type, family, ...) \
    SMX_STRIDED_FLOAT_##type(name, T, type, family, __VA_ARGS__, (N, count))
#define SMX_STRIDED_FLOAT_64f(...)
#define SMX_STRIDED_FLOAT_32f(name, T, type, family, ...)                 \
    SMX_KERNEL(ownsmx##name##_##type, Plain, A, T, family, __VA_ARGS__)   \
    SMX_KERNEL(ownsmx##name##_##type##_S2, S2, S, T, family, __VA_ARGS__) \
    SMX_FUNCTION(ownOMP_smx##name##_##type, S, T, __VA_ARGS__);           \
    SMX_STRIDED_INTERFACE(name, T, type, SMX_CALL(ownOMP_smx##name##_##type, S, T, __VA_ARGS__), __VA_ARGS__)
#define SMX_STAMP_DRIVERS_ARRAY_STRIDED_FLOAT(name, T, type, elements, ...) \
    SMX_STRIDED_FLOAT_DRIVER_##type(name, T, type, elements, __VA_ARGS__, (N, count))
#define SMX_STRIDED_FLOAT_DRIVER_64f(...)
#define SMX_STRIDED_FLOAT_DRIVER_32f(name, T, type, elements, ...)                                                 \
    SMX_DRIVER(ownOMP_smx##name##_##type, S, ownsmx##name##_##type, A, ownsmx##name##_##type##_S2, S, T, elements, \
               __VA_ARGS__)

#define SMX_STAMP_DRIVERS_ARRAY(name, T, type, elements, ...)                                                      \
    SMX_DRIVER(ownOMP_smx##name##_##type, S, ownsmx##name##_##type, A, ownsmx##name##_##type##_S2, S, T, elements, \
               __VA_ARGS__, (N, count))                                                                            \
    SMX_DRIVER(ownOMP_smx##name##_##type##_P, P, ownsmx##name##_##type##_P, P, ownsmx##name##_##type##_P, P, T,    \
               elements, __VA_ARGS__, (N, count))                                                                  \
    SMX_DRIVER(ownOMP_smx##name##_##type##_L, L, ownsmx##name##_##type##_L, LA, ownsmx##name##_##type##_LS2, L, T, \
               elements, __VA_ARGS__, (N, count))

// A driver with its kernel for adjacent elements and the one for a general stride2; the pointer layout has one kernel.
#define SMX_DRIVER(name, layout, kernel, kernel_layout, kernel_s2, s2_layout, T, elements, ...)                  \
    SMX_FUNCTION(kernel, kernel_layout, T, __VA_ARGS__);                                                         \
    SMX_FUNCTION(kernel_s2, s2_layout, T, __VA_ARGS__);                                                          \
    SMX_FUNCTION(name, layout, T, __VA_ARGS__) {                                                                 \
        const bool adjacent = smx::all_adjacent(SMX_LIST(OPERAND, layout, T, __VA_ARGS__));                      \
        const auto fits = [&](std::ptrdiff_t first) {                                                            \
            return smx::all_fit(first, SMX_LIST(OPERAND, layout, T, __VA_ARGS__));                               \
        };                                                                                                       \
        if (adjacent)                                                                                            \
            return smx::drive(                                                                                   \
                count, fits, SMX_CALL(kernel, kernel_layout, T, __VA_ARGS__),                                    \
                [&](const smx::Share &share) { return kernel(SMX_LIST(SHARE, kernel_layout, T, __VA_ARGS__)); }, \
                SMX_SCRATCH_BYTES(elements, T));                                                                 \
        return smx::drive(                                                                                       \
            count, fits, SMX_CALL(kernel_s2, s2_layout, T, __VA_ARGS__),                                         \
            [&](const smx::Share &share) { return kernel_s2(SMX_LIST(SHARE, s2_layout, T, __VA_ARGS__)); },      \
            SMX_SCRATCH_BYTES(elements, T));                                                                     \
    }
#define SMX_SCRATCH_BYTES(elements, T) static_cast<std::size_t>(elements) * sizeof(T)

// The general eigen families: one kernel for each layout, with every stride, and scratch of as many bytes as a size
// query says. Count and scratch stand in the row.
#define SMX_STAMP_SINGLE_ONE_KERNEL(name, T, type, family, ...)                              \
    SMX_KERNEL(ownsmx##name##_##type, S2, S, T, family, __VA_ARGS__)                         \
    SMX_KERNEL(ownsmx##name##_##type##_P, P, P, T, family, __VA_ARGS__)                      \
    SMX_INTERFACE_ONE_KERNEL(name##_##type, name, S, strided, T, SMX_NO_DRIVER, __VA_ARGS__) \
    SMX_INTERFACE_ONE_KERNEL(name##_##type##_P, name, P, pointers, T, SMX_NO_DRIVER, __VA_ARGS__)
#define SMX_STAMP_ARRAY_ONE_KERNEL(name, T, type, family, ...)                            \
    SMX_ONE_KERNEL_ARRAY(name##_##type, name, S2, S, strided, T, family, __VA_ARGS__)     \
    SMX_ONE_KERNEL_ARRAY(name##_##type##_P, name, P, P, pointers, T, family, __VA_ARGS__) \
    SMX_ONE_KERNEL_ARRAY(name##_##type##_L, name, LS2, L, list, T, family, __VA_ARGS__)
#define SMX_ONE_KERNEL_ARRAY(function, name, tier, layout, layout_name, T, family, ...) \
    SMX_KERNEL(ownsmx##function, tier, layout, T, family, __VA_ARGS__)                  \
    SMX_FUNCTION(ownOMP_smx##function, layout, T, __VA_ARGS__);                         \
    SMX_INTERFACE_ONE_KERNEL(function, name, layout, layout_name, T,                    \
                             SMX_CALL(ownOMP_smx##function, layout, T, __VA_ARGS__), __VA_ARGS__)

#define SMX_STAMP_DRIVERS_ARRAY_ONE_KERNEL(name, T, type, query, ...)           \
    SMX_ONE_KERNEL_DRIVER(name##_##type, S, T, query##_##type, __VA_ARGS__)     \
    SMX_ONE_KERNEL_DRIVER(name##_##type##_P, P, T, query##_##type, __VA_ARGS__) \
    SMX_ONE_KERNEL_DRIVER(name##_##type##_L, L, T, query##_##type, __VA_ARGS__)
#define SMX_ONE_KERNEL_DRIVER(function, layout, T, query, ...)                                                    \
    SMX_FUNCTION(ownsmx##function, layout, T, __VA_ARGS__);                                                       \
    SMX_FUNCTION(ownOMP_smx##function, layout, T, __VA_ARGS__) {                                                  \
        int bytes = 0;                                                                                            \
        query(widthHeight, &bytes);                                                                               \
        return smx::drive(                                                                                        \
            count,                                                                                                \
            [&](std::ptrdiff_t first) { return smx::all_fit(first, SMX_LIST(OPERAND, layout, T, __VA_ARGS__)); }, \
            SMX_CALL(ownsmx##function, layout, T, __VA_ARGS__),                                                   \
            [&](const smx::Share &share) { return ownsmx##function(SMX_LIST(SHARE, layout, T, __VA_ARGS__)); },   \
            static_cast<std::size_t>(bytes));                                                                     \
    }
