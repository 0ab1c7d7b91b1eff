// Arrays of 3-vectors in the library's three layouts, and the calls on them under one name each.
#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "smx.h"

namespace mesh {

inline constexpr int element = sizeof(float);

inline void check(SmxStatus status) {
    if (status != smxStsNoErr) throw std::logic_error("a call was refused, status " + std::to_string(status));
}

// Standard layout: a field of an array of structures, `stride` bytes from one to the next.
struct Field {
    float *base;
    int stride;
};

// Pointer layout: a structure of arrays. Three pointers find object 0, each next object is one element on.
struct Planes {
    std::array<float *, 3> table;
};

// List layout: a pointer to each object, wherever it is, and how far behind it the vector stands.
struct Scattered {
    float *const *list;
    int shift;
};

inline void copy(Field src, Field dst, int count) {
    check(smxCopy_va_32f_SS(src.base, src.stride, element, dst.base, dst.stride, element, 3, count));
}
inline void copy(Field src, Planes dst, int count) {
    check(smxCopy_va_32f_SP(src.base, src.stride, element, dst.table.data(), 0, element, 3, count));
}
inline void copy(Field src, Scattered dst, int count) {
    check(smxCopy_va_32f_SL(src.base, src.stride, element, dst.list, dst.shift, element, 3, count));
}
inline void copy(Planes src, Field dst, int count) {
    check(smxCopy_va_32f_PS(src.table.data(), 0, element, dst.base, dst.stride, element, 3, count));
}
inline void copy(Scattered src, Field dst, int count) {
    check(smxCopy_va_32f_LS(src.list, src.shift, element, dst.base, dst.stride, element, 3, count));
}
inline void copy(Scattered src, Planes dst, int count) {
    check(smxCopy_va_32f_LP(src.list, src.shift, element, dst.table.data(), 0, element, 3, count));
}
inline void copy(Scattered src, Scattered dst, int count) {
    check(smxCopy_va_32f_LL(src.list, src.shift, element, dst.list, dst.shift, element, 3, count));
}

// a - b
inline void subtract(Field a, Field b, Field dst, int count) {
    check(
        smxSub_vava_32f(a.base, a.stride, element, b.base, b.stride, element, dst.base, dst.stride, element, 3, count));
}
inline void subtract(Planes a, Planes b, Planes dst, int count) {
    check(smxSub_vava_32f_P(a.table.data(), 0, element, b.table.data(), 0, element, dst.table.data(), 0, element, 3,
                            count));
}
inline void subtract(Scattered a, Scattered b, Scattered dst, int count) {
    check(
        smxSub_vava_32f_L(a.list, a.shift, element, b.list, b.shift, element, dst.list, dst.shift, element, 3, count));
}

inline void cross(Field a, Field b, Field dst, int count) {
    check(smxCrossProduct_vava_32f(a.base, a.stride, element, b.base, b.stride, element, dst.base, dst.stride, element,
                                   count));
}
inline void cross(Planes a, Planes b, Planes dst, int count) {
    check(smxCrossProduct_vava_32f_P(a.table.data(), 0, element, b.table.data(), 0, element, dst.table.data(), 0,
                                     element, count));
}
inline void cross(Scattered a, Scattered b, Scattered dst, int count) {
    check(smxCrossProduct_vava_32f_L(a.list, a.shift, element, b.list, b.shift, element, dst.list, dst.shift, element,
                                     count));
}

// The lengths come out one behind the other in every layout.
inline void lengths(Field a, float *dst, int count) {
    check(smxL2Norm_va_32f(a.base, a.stride, element, dst, 3, count));
}
inline void lengths(Planes a, float *dst, int count) {
    check(smxL2Norm_va_32f_P(a.table.data(), 0, element, dst, 3, count));
}
inline void lengths(Scattered a, float *dst, int count) {
    check(smxL2Norm_va_32f_L(a.list, a.shift, element, dst, 3, count));
}

// Each vector by its own factor, in place. A list wants its factors by pointers, too.
inline void scale(Field a, const std::vector<float> &factors, int count) {
    check(smxMul_vaca_32f(a.base, a.stride, element, factors.data(), element, a.base, a.stride, element, 3, count));
}
inline void scale(Planes a, const std::vector<float> &factors, int count) {
    check(smxMul_vaca_32f_P(a.table.data(), 0, element, factors.data(), element, a.table.data(), 0, element, 3, count));
}
inline void scale(Scattered a, const std::vector<float> &factors, int count) {
    std::vector<const float *> each;
    for (const float &factor : factors) each.push_back(&factor);
    check(smxMul_vaca_32f_L(a.list, a.shift, element, each.data(), 0, a.list, a.shift, element, 3, count));
}

// Stores of `fields` vectors for each of `count` objects, one store for each layout.
class Structs {
public:
    Structs(int fields, int count)
        : width(3 * fields), data(static_cast<std::size_t>(width) * static_cast<std::size_t>(count)) {}
    Field operator[](int field) { return {data.data() + 3 * field, width * element}; }

private:
    int width;
    std::vector<float> data;
};

class Arrays {
public:
    Arrays(int fields, int count)
        : length(static_cast<std::size_t>(count)), data(static_cast<std::size_t>(3 * fields) * length) {}
    Planes operator[](int field) {
        float *const first = data.data() + static_cast<std::size_t>(3 * field) * length;
        return {{first, first + length, first + 2 * length}};
    }

private:
    std::size_t length;
    std::vector<float> data;
};

// The objects stand in memory in a shuffled order.
class Objects {
public:
    Objects(int fields, int count) : data(static_cast<std::size_t>(3 * fields) * static_cast<std::size_t>(count)) {
        for (int n = 0; n < count; ++n) list.push_back(data.data() + static_cast<std::ptrdiff_t>(n) * 3 * fields);
        std::shuffle(list.begin(), list.end(), std::mt19937());
    }
    Scattered operator[](int field) { return {list.data(), 3 * field * element}; }

private:
    std::vector<float> data;
    std::vector<float *> list;
};

} // namespace mesh
