// Arrays of 3-vectors in the library's three layouts, and the calls on them under one name each.
#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include "calls.hpp"

namespace mesh {

inline constexpr int element = sizeof(float);

// Standard layout: a field of an array of structures, `stride` bytes from one to the next.
struct Field {
    float *base;
    int stride;
    auto place() const { return std::tuple(base, stride, element); }
};

// Pointer layout: a structure of arrays. Three pointers find object 0, each next object is one element on.
struct Planes {
    std::array<float *, 3> table;
    auto place() const { return std::tuple(table.data(), 0, element); }
};

// List layout: a pointer to each object, wherever it is, and how far behind it the vector stands.
struct Scattered {
    float *const *list;
    int shift;
    auto place() const { return std::tuple(list, shift, element); }
};

// The function for the layout.
template <class Layout>
constexpr auto pick(auto standard, auto pointer, auto list) {
    if constexpr (std::is_same_v<Layout, Field>) return standard;
    else if constexpr (std::is_same_v<Layout, Planes>) return pointer;
    else return list;
}

inline void run(auto function, const auto &...parts) {
    shared::check(shared::call(function, parts...));
}

template <class From, class To>
void copy(const From &src, const To &dst, int count) {
    const auto function = pick<From>(pick<To>(smxCopy_va_32f_SS, smxCopy_va_32f_SP, smxCopy_va_32f_SL),
                                     pick<To>(smxCopy_va_32f_PS, smxCopy_va_32f_PP, smxCopy_va_32f_PL),
                                     pick<To>(smxCopy_va_32f_LS, smxCopy_va_32f_LP, smxCopy_va_32f_LL));
    run(function, src.place(), dst.place(), 3, count);
}

// a - b
template <class V>
void subtract(const V &a, const V &b, const V &dst, int count) {
    run(pick<V>(smxSub_vava_32f, smxSub_vava_32f_P, smxSub_vava_32f_L), a.place(), b.place(), dst.place(), 3, count);
}

template <class V>
void cross(const V &a, const V &b, const V &dst, int count) {
    run(pick<V>(smxCrossProduct_vava_32f, smxCrossProduct_vava_32f_P, smxCrossProduct_vava_32f_L), a.place(), b.place(),
        dst.place(), count);
}

// The lengths come out one behind the other in every layout.
template <class V>
void lengths(const V &a, float *dst, int count) {
    run(pick<V>(smxL2Norm_va_32f, smxL2Norm_va_32f_P, smxL2Norm_va_32f_L), a.place(), dst, 3, count);
}

// Each vector by its own factor, in place. A list wants its factors by pointers, too.
template <class V>
void scale(const V &a, const std::vector<float> &factors, int count) {
    std::vector<const float *> each;
    for (const float &factor : factors) each.push_back(&factor);
    const auto first =
        pick<V>(std::tuple(factors.data(), element), std::tuple(factors.data(), element), std::tuple(each.data(), 0));
    run(pick<V>(smxMul_vaca_32f, smxMul_vaca_32f_P, smxMul_vaca_32f_L), a.place(), first, a.place(), 3, count);
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
