// The number type of a constant-size algorithm: one element, or a pack with the same element of several objects
// (frame_pack.hpp). Here stands the scalar half of what such an algorithm may call, so that one text serves both.
#pragma once

#include "frame_isa.hpp"

namespace smx {
inline namespace SMX_ISA {

// A constant as a type. Not the standard library's: clang leaves its conversion out of line, shared by the units of all
// instruction sets.
template <auto constant>
struct Fixed {
    static constexpr auto value = constant;
    constexpr operator decltype(constant)() const { return constant; }
};

template <class Num>
struct NumberTraits;
template <>
struct NumberTraits<float> {
    using Element = float;
    using Index = int;
    using Mask = bool;
};
template <>
struct NumberTraits<double> {
    using Element = double;
    using Index = int;
    using Mask = bool;
};
template <class Num>
using ElementOfNumber = typename NumberTraits<Num>::Element;
template <class Num>
using IndexOf = typename NumberTraits<Num>::Index;
template <class Num>
using MaskOf = typename NumberTraits<Num>::Mask;

inline float select(bool mask, float yes, float no) {
    return mask ? yes : no;
}
inline double select(bool mask, double yes, double no) {
    return mask ? yes : no;
}
inline int select(bool mask, int yes, int no) {
    return mask ? yes : no;
}
inline bool any(bool mask) {
    return mask;
}
inline bool all(bool mask) {
    return mask;
}
inline float magnitude(float x) {
    return __builtin_fabsf(x);
}
inline double magnitude(double x) {
    return __builtin_fabs(x);
}
inline float square_root(float x) {
    return __builtin_sqrtf(x);
}
inline double square_root(double x) {
    return __builtin_sqrt(x);
}

// In double.
inline double widened(float x) {
    return x;
}
inline double widened(double x) {
    return x;
}

// How an algorithm fails. A single object stops at once; a group goes on and remembers that it has to be run again one
// by one, so that statuses and partial results are those of the single objects.
template <class Num>
struct Failure {
    bool stop(bool failed) const { return failed; }
};

} // namespace SMX_ISA
} // namespace smx
