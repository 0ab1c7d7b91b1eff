// QR factorization and solve of one object, or of a group of them: templates over the number type. Sizes are int, or
// constants where the code is to be unrolled (with_fixed_shape); the arithmetic and its order are the same.
#pragma once

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

// The shapes that are computed in local copies: the squares of sides 3 to 6, and 6 rows of 4.
template <class F>
[[gnu::always_inline]] inline bool with_fixed_shape(int width, int height, F f) {
    if (width == 4 && height == 6) return f(Fixed<4>{}, Fixed<6>{}), true;
    if (width != height) return false;
    switch (width) {
    case 3: return f(Fixed<3>{}, Fixed<3>{}), true;
    case 4: return f(Fixed<4>{}, Fixed<4>{}), true;
    case 5: return f(Fixed<5>{}, Fixed<5>{}), true;
    case 6: return f(Fixed<6>{}, Fixed<6>{}), true;
    default: return false;
    }
}

// The machine epsilon, against a column's sum of squares.
template <class T>
constexpr T qr_tolerance = sizeof(T) == 4 ? static_cast<T>(0x1p-23) : static_cast<T>(0x1p-52);

// A square matrix has no reflection for its last column.
template <class Width, class Height>
[[gnu::always_inline]] inline int reflections(Width width, Height height) {
    return width == height ? width - 1 : width;
}

// Factors a in place, with v as the current reflector; false if a column's test failed.
template <class Num, class A, class V, class Width, class Height>
[[gnu::always_inline]] inline bool qr_decompose(const A &a, const V &v, Width width, Height height,
                                                Failure<Num> &failure) {
    using T = ElementOfNumber<Num>;
    const int w = width, h = height, steps = reflections(width, height);
#pragma GCC unroll 6
    for (int k = 0; k < steps; ++k) {
        Num sum = T(0);
#pragma GCC unroll 6
        for (int i = k; i < h; ++i) sum = sum + a(i, k) * a(i, k);
        if (failure.stop(!(magnitude(sum) >= qr_tolerance<T>))) return false;
        const Num root = square_root(sum), diagonal = a(k, k);
        const Num norm = select(diagonal > T(0), root, -root);
        const Num scale = T(1) / (norm + diagonal);
        v(k) = T(1);
        Num square = T(1);
#pragma GCC unroll 6
        for (int i = k + 1; i < h; ++i) {
            const Num entry = a(i, k) * scale;
            v(i) = entry;
            square = square + entry * entry;
        }
        const Num beta = T(-2) / square;
#pragma GCC unroll 6
        for (int j = k; j < w; ++j) {
            Num u = a(k, j);
#pragma GCC unroll 6
            for (int i = k + 1; i < h; ++i) u = u + a(i, j) * v(i);
            u = u * beta;
            a(k, j) = a(k, j) + u;
            // Below the diagonal, column k becomes the reflector.
            if (j > k)
#pragma GCC unroll 6
                for (int i = k + 1; i < h; ++i) a(i, j) = a(i, j) + v(i) * u;
        }
#pragma GCC unroll 6
        for (int i = k + 1; i < h; ++i) a(i, k) = v(i);
    }
    return true;
}

// x from the packed factorization a; b holds the right-hand side, and then the reflected one.
template <class Num, class A, class B, class X, class Width, class Height>
[[gnu::always_inline]] inline void qr_solve(const A &a, const B &b, const X &x, Width width, Height height) {
    using T = ElementOfNumber<Num>;
    const int w = width, h = height, steps = reflections(width, height);
#pragma GCC unroll 6
    for (int k = 0; k < steps; ++k) {
        Num u = b(k), square = T(1);
#pragma GCC unroll 6
        for (int i = k + 1; i < h; ++i) {
            const Num entry = a(i, k);
            square = square + entry * entry;
            u = u + entry * b(i);
        }
        u = u * (T(-2) / square);
        b(k) = b(k) + u;
#pragma GCC unroll 6
        for (int i = k + 1; i < h; ++i) b(i) = b(i) + a(i, k) * u;
    }
    x(w - 1) = b(w - 1) / a(w - 1, w - 1);
#pragma GCC unroll 6
    for (int i = w - 2; i >= 0; --i) {
        Num sum = T(0);
#pragma GCC unroll 6
        for (int j = i + 1; j < w; ++j) sum = sum + a(i, j) * x(j);
        x(i) = (b(i) - sum) / a(i, i);
    }
}

// The same on local arrays.
template <class Num, int W, int H>
struct QRObject {
    Num a[H][W], v[H], x[W];
    [[gnu::always_inline]] bool decompose(Failure<Num> &failure) {
        return qr_decompose(matrix(), vector(), Fixed<W>{}, Fixed<H>{}, failure);
    }
    [[gnu::always_inline]] void solve() {
        qr_solve<Num>(
            matrix(), vector(), [this](int j) -> Num & { return x[j]; }, Fixed<W>{}, Fixed<H>{});
    }
    [[gnu::always_inline]] auto matrix() {
        return [this](int i, int j) -> Num & { return a[i][j]; };
    }
    [[gnu::always_inline]] auto vector() {
        return [this](int i) -> Num & { return v[i]; };
    }
};

} // namespace SMX_ISA
} // namespace smx
