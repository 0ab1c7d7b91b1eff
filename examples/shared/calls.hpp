// The library's calls for programs that are written once for both element types and for both ways of calling: one call
// for all objects of an array, or one for each.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>

#include "smx.h"

namespace shared {

[[noreturn, gnu::cold]] inline void refuse(SmxStatus status) {
    throw std::logic_error("smx refused a call with status " + std::to_string(status));
}
inline void check(SmxStatus status) {
    if (status != smxStsNoErr) refuse(status);
}

// Calls an smx function. Operands are tuples of the arguments that they stand for, other arguments are what they are.
// Inlined, all of that is nothing at run time: the calls for single objects are timed against those for arrays.
template <class Function, class... Parts>
[[gnu::always_inline]] inline SmxStatus call(Function function, const Parts &...parts) {
    const auto arguments = []<class Part>(const Part &part) {
        if constexpr (std::is_arithmetic_v<Part> || std::is_pointer_v<Part>) return std::tuple(part);
        else return part;
    };
    return std::apply(function, std::tuple_cat(arguments(parts)...));
}

// Operands in arrays of type T: matrices or vectors, `pitch` elements from object to object, or one matrix for all.
// `from` leaves out the first n objects.
template <class T>
struct Matrices {
    T *base;
    int pitch, row, width, height;
    Matrices from(std::size_t n) const {
        return {base + n * static_cast<std::size_t>(pitch), pitch, row, width, height};
    }
};
template <class T>
struct Vectors {
    T *base;
    int pitch, length;
    Vectors from(std::size_t n) const { return {base + n * static_cast<std::size_t>(pitch), pitch, length}; }
};
template <class T>
struct Common {
    T *base;
    int row, width, height;
    Common from(std::size_t) const { return *this; }
};

// Operations on `count` objects with one call, or, not `together`, on the first object with the call for a single one.
template <class T, bool together>
class Calls {
public:
    using M = Matrices<T>;
    using V = Vectors<T>;
    using C = Common<T>;
    int count = 1;

// Both names without their element type: that of the array form and that of the single one.
#define SHARED_PICK(array, single) pick(smx##array##_32f, smx##array##_64f, smx##single##_32f, smx##single##_64f)

    void multiply(C a, M b, M dst) const {
        run(SHARED_PICK(Mul_mma, Mul_mm), sized(a), sized(b), place(dst));
    }
    void multiply(M a, C b, M dst) const {
        run(SHARED_PICK(Mul_mam, Mul_mm), sized(a), sized(b), place(dst));
    }
    void multiply(M a, M b, M dst) const {
        run(SHARED_PICK(Mul_mama, Mul_mm), sized(a), sized(b), place(dst));
    }
    void multiply(C a, V b, V dst) const {
        run(SHARED_PICK(Mul_mva, Mul_mv), sized(a), sized(b), place(dst));
    }
    void multiply(M a, V b, V dst) const {
        run(SHARED_PICK(Mul_mava, Mul_mv), sized(a), sized(b), place(dst));
    }
    // By the transpose of b, or of a.
    void multiplyByT(M a, C b, M dst) const {
        run(SHARED_PICK(Mul_mat, Mul_mt), sized(a), sized(b), place(dst));
    }
    void multiplyByT(M a, M b, M dst) const {
        run(SHARED_PICK(Mul_mata, Mul_mt), sized(a), sized(b), place(dst));
    }
    void multiplyT(M a, M b, M dst) const {
        run(SHARED_PICK(Mul_tama, Mul_tm), sized(a), sized(b), place(dst));
    }

    void add(M a, C b, M dst) const {
        run(SHARED_PICK(Add_mam, Add_mm), place(a), place(b), sized(dst));
    }
    void add(M a, M b, M dst) const {
        run(SHARED_PICK(Add_mama, Add_mm), place(a), place(b), sized(dst));
    }
    void add(V a, V b, V dst) const {
        run(SHARED_PICK(Add_vava, Add_vv), place(a), place(b), sized(dst));
    }
    void subtract(C a, M b, M dst) const {
        run(SHARED_PICK(Sub_mma, Sub_mm), place(a), place(b), sized(dst));
    }
    void subtract(V a, V b, V dst) const {
        run(SHARED_PICK(Sub_vava, Sub_vv), place(a), place(b), sized(dst));
    }
    void dot(V a, V b, T *dst) const {
        run(SHARED_PICK(DotProduct_vava, DotProduct_vv), place(a), place(b), dst, a.length);
    }

    // What depends on the matrices gives its status. That of an array call says only that some object failed.
    [[nodiscard]] SmxStatus factorLU(M a, int *pivots, M dst) const {
        return status(SHARED_PICK(LUDecomp_ma, LUDecomp_m), place(a), pivots, place(dst), a.width);
    }
    void solveLU(M factors, const int *pivots, V right, V dst) const {
        run(SHARED_PICK(LUBackSubst_mava, LUBackSubst_mv), place(factors), pivots, place(right), place(dst),
            factors.width);
    }
    [[nodiscard]] SmxStatus factorCholesky(M a, M dst) const {
        return status(SHARED_PICK(CholeskyDecomp_ma, CholeskyDecomp_m), place(a), place(dst), a.width);
    }
    void solveCholesky(M factor, V right, V dst) const {
        run(SHARED_PICK(CholeskyBackSubst_mava, CholeskyBackSubst_mv), place(factor), place(right), place(dst),
            factor.width);
    }
    [[nodiscard]] SmxStatus invert(M a, T *buffer, M dst) const {
        return status(SHARED_PICK(Invert_ma, Invert_m), place(a), buffer, place(dst), a.width);
    }

#undef SHARED_PICK

private:
    static constexpr auto pick(auto array32, auto array64, auto single32, auto single64) {
        if constexpr (together && std::is_same_v<T, float>) return array32;
        else if constexpr (together) return array64;
        else if constexpr (std::is_same_v<T, float>) return single32;
        else return single64;
    }

    // An operand's pointer and strides, in bytes; that from object to object only where there are several.
    static constexpr int element = sizeof(T);
    static auto place(M m) {
        return std::tuple_cat(place(m.base, m.pitch), std::tuple(m.row * element, element));
    }
    static auto place(V v) {
        return std::tuple_cat(place(v.base, v.pitch), std::tuple(element));
    }
    static auto place(C m) {
        return std::tuple(m.base, m.row * element, element);
    }
    static auto place(T *base, int pitch) {
        if constexpr (together) return std::tuple(base, pitch * element);
        else return std::tuple(base);
    }
    // And its size behind them.
    static auto sized(V v) {
        return std::tuple_cat(place(v), std::tuple(v.length));
    }
    static auto sized(auto m) {
        return std::tuple_cat(place(m), std::tuple(m.width, m.height));
    }

    [[gnu::always_inline]] SmxStatus status(auto function, const auto &...parts) const {
        if constexpr (together) return call(function, parts..., count);
        else return call(function, parts...);
    }
    [[gnu::always_inline]] void run(auto function, const auto &...parts) const {
        check(status(function, parts...));
    }
};

// Calls work(calls, n): once for all objects, or for each object with the number of it.
template <class T, bool together, class Work>
void forAll(std::size_t objects, Work work) {
    if constexpr (together) work(Calls<T, true>{static_cast<int>(objects)}, std::size_t{0});
    else
        for (std::size_t n = 0; n < objects; ++n) work(Calls<T, false>(), n);
}

} // namespace shared
