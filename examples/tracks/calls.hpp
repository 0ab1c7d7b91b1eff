// The smx names without their element type, and two ways of calling them: once for an array of objects, or for one.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "smx.h"

namespace tracks {

// Operands in arrays of type T: the objects' matrices or vectors, `pitch` elements apart, or one matrix for all.
template <class T>
struct Matrices {
    T *base;
    int pitch, row, width, height;
    T *object(std::size_t n) const { return base + n * static_cast<std::size_t>(pitch); }
    Matrices from(std::size_t n) const { return {object(n), pitch, row, width, height}; }
};
template <class T>
struct Vectors {
    T *base;
    int pitch, length;
    T *object(std::size_t n) const { return base + n * static_cast<std::size_t>(pitch); }
    Vectors from(std::size_t n) const { return {object(n), pitch, length}; }
};
template <class T>
struct Shared {
    T *base;
    int row, width, height;
};

// One overload a type: everything else in the program is written once, for any element type.
#define TRACKS_OVERLOADS(operation)                  \
    template <class... Arguments>                    \
    void operation(float, Arguments... arguments) {  \
        require(smx##operation##_32f(arguments...)); \
    }                                                \
    template <class... Arguments>                    \
    void operation(double, Arguments... arguments) { \
        require(smx##operation##_64f(arguments...)); \
    }
inline void require(SmxStatus status) {
    if (status == smxStsNotPosDefErr || status == smxStsSingularErr)
        throw std::runtime_error("the covariance of a track is not positive definite any more");
    if (status != smxStsNoErr) throw std::logic_error("smx refused a call with status " + std::to_string(status));
}
TRACKS_OVERLOADS(Mul_mma)
TRACKS_OVERLOADS(Mul_mama)
TRACKS_OVERLOADS(Mul_mat)
TRACKS_OVERLOADS(Mul_mata)
TRACKS_OVERLOADS(Mul_mva)
TRACKS_OVERLOADS(Mul_mava)
TRACKS_OVERLOADS(Mul_mm)
TRACKS_OVERLOADS(Mul_mt)
TRACKS_OVERLOADS(Mul_mv)
TRACKS_OVERLOADS(Add_mam)
TRACKS_OVERLOADS(Add_mama)
TRACKS_OVERLOADS(Add_mm)
TRACKS_OVERLOADS(Add_vava)
TRACKS_OVERLOADS(Add_vv)
TRACKS_OVERLOADS(Sub_mma)
TRACKS_OVERLOADS(Sub_mm)
TRACKS_OVERLOADS(Sub_vava)
TRACKS_OVERLOADS(Sub_vv)
TRACKS_OVERLOADS(DotProduct_vava)
TRACKS_OVERLOADS(DotProduct_vv)
TRACKS_OVERLOADS(CholeskyDecomp_ma)
TRACKS_OVERLOADS(CholeskyDecomp_m)
TRACKS_OVERLOADS(CholeskyBackSubst_mava)
TRACKS_OVERLOADS(CholeskyBackSubst_mv)
TRACKS_OVERLOADS(Invert_ma)
TRACKS_OVERLOADS(Invert_m)
#undef TRACKS_OVERLOADS

template <class T>
constexpr int bytes(int elements) {
    return elements * static_cast<int>(sizeof(T));
}

// Each operation of the filter for `count` objects with one call.
template <class T>
struct ArrayCalls {
    using M = Matrices<T>;
    using V = Vectors<T>;
    using S = Shared<T>;
    static constexpr int element = sizeof(T);
    int count;

    static int s0(M a) { return bytes<T>(a.pitch); }
    static int s0(V a) { return bytes<T>(a.pitch); }
    template <class Operand>
    static int s1(Operand a) {
        return bytes<T>(a.row);
    }

    void multiply(S a, M b, M dst) const {
        Mul_mma(T(), a.base, s1(a), element, a.width, a.height, b.base, s0(b), s1(b), element, b.width, b.height,
                dst.base, s0(dst), s1(dst), element, count);
    }
    void multiply(M a, M b, M dst) const {
        Mul_mama(T(), a.base, s0(a), s1(a), element, a.width, a.height, b.base, s0(b), s1(b), element, b.width,
                 b.height, dst.base, s0(dst), s1(dst), element, count);
    }
    // By the transpose of b.
    void multiplyTransposed(M a, S b, M dst) const {
        Mul_mat(T(), a.base, s0(a), s1(a), element, a.width, a.height, b.base, s1(b), element, b.width, b.height,
                dst.base, s0(dst), s1(dst), element, count);
    }
    void multiplyTransposed(M a, M b, M dst) const {
        Mul_mata(T(), a.base, s0(a), s1(a), element, a.width, a.height, b.base, s0(b), s1(b), element, b.width,
                 b.height, dst.base, s0(dst), s1(dst), element, count);
    }
    void multiply(S a, V b, V dst) const {
        Mul_mva(T(), a.base, s1(a), element, a.width, a.height, b.base, s0(b), element, b.length, dst.base, s0(dst),
                element, count);
    }
    void multiply(M a, V b, V dst) const {
        Mul_mava(T(), a.base, s0(a), s1(a), element, a.width, a.height, b.base, s0(b), element, b.length, dst.base,
                 s0(dst), element, count);
    }
    void add(M a, S b, M dst) const {
        Add_mam(T(), a.base, s0(a), s1(a), element, b.base, s1(b), element, dst.base, s0(dst), s1(dst), element,
                dst.width, dst.height, count);
    }
    void add(M a, M b, M dst) const {
        Add_mama(T(), a.base, s0(a), s1(a), element, b.base, s0(b), s1(b), element, dst.base, s0(dst), s1(dst), element,
                 dst.width, dst.height, count);
    }
    void subtract(S a, M b, M dst) const {
        Sub_mma(T(), a.base, s1(a), element, b.base, s0(b), s1(b), element, dst.base, s0(dst), s1(dst), element,
                dst.width, dst.height, count);
    }
    void add(V a, V b, V dst) const {
        Add_vava(T(), a.base, s0(a), element, b.base, s0(b), element, dst.base, s0(dst), element, dst.length, count);
    }
    void subtract(V a, V b, V dst) const {
        Sub_vava(T(), a.base, s0(a), element, b.base, s0(b), element, dst.base, s0(dst), element, dst.length, count);
    }
    void dot(V a, V b, T *dst) const {
        DotProduct_vava(T(), a.base, s0(a), element, b.base, s0(b), element, dst, a.length, count);
    }
    void factor(M a, M dst) const {
        CholeskyDecomp_ma(T(), a.base, s0(a), s1(a), element, dst.base, s0(dst), s1(dst), element, a.width, count);
    }
    void solve(M factor, V right, V dst) const {
        CholeskyBackSubst_mava(T(), factor.base, s0(factor), s1(factor), element, right.base, s0(right), element,
                               dst.base, s0(dst), element, factor.width, count);
    }
    void invert(M a, T *buffer, M dst) const {
        Invert_ma(T(), a.base, s0(a), s1(a), element, buffer, dst.base, s0(dst), s1(dst), element, a.width, count);
    }
};

// The same for the first object alone, with the calls for single objects.
template <class T>
struct SingleCalls {
    using M = Matrices<T>;
    using V = Vectors<T>;
    using S = Shared<T>;
    static constexpr int element = sizeof(T);

    template <class Operand>
    static int s1(Operand a) {
        return bytes<T>(a.row);
    }

    template <class Left>
    void multiply(Left a, M b, M dst) const {
        Mul_mm(T(), a.base, s1(a), element, a.width, a.height, b.base, s1(b), element, b.width, b.height, dst.base,
               s1(dst), element);
    }
    template <class Right>
    void multiplyTransposed(M a, Right b, M dst) const {
        Mul_mt(T(), a.base, s1(a), element, a.width, a.height, b.base, s1(b), element, b.width, b.height, dst.base,
               s1(dst), element);
    }
    template <class Left>
    void multiply(Left a, V b, V dst) const {
        Mul_mv(T(), a.base, s1(a), element, a.width, a.height, b.base, element, b.length, dst.base, element);
    }
    template <class Right>
    void add(M a, Right b, M dst) const {
        Add_mm(T(), a.base, s1(a), element, b.base, s1(b), element, dst.base, s1(dst), element, dst.width, dst.height);
    }
    void subtract(S a, M b, M dst) const {
        Sub_mm(T(), a.base, s1(a), element, b.base, s1(b), element, dst.base, s1(dst), element, dst.width, dst.height);
    }
    void add(V a, V b, V dst) const { Add_vv(T(), a.base, element, b.base, element, dst.base, element, dst.length); }
    void subtract(V a, V b, V dst) const {
        Sub_vv(T(), a.base, element, b.base, element, dst.base, element, dst.length);
    }
    void dot(V a, V b, T *dst) const { DotProduct_vv(T(), a.base, element, b.base, element, dst, a.length); }
    void factor(M a, M dst) const {
        CholeskyDecomp_m(T(), a.base, s1(a), element, dst.base, s1(dst), element, a.width);
    }
    void solve(M factor, V right, V dst) const {
        CholeskyBackSubst_mv(T(), factor.base, s1(factor), element, right.base, element, dst.base, element,
                             factor.width);
    }
    void invert(M a, T *buffer, M dst) const {
        Invert_m(T(), a.base, s1(a), element, buffer, dst.base, s1(dst), element, a.width);
    }
};

} // namespace tracks
