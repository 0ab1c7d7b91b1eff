// The iterations behind the symmetric eigen families (family_eigen_sym.hpp): Householder reduction, implicit-shift
// sweeps, sort. One text for one object (Num is float or double, any side) and for a group of objects, one a vector
// lane (Num is a pack): what depends on data runs under masks, and an object that is done keeps its values.
//
// The two sweeps are mirror images, so an object that needs the upward one is turned over, swept downward and turned
// back; where they truly differ, the mask `upward` decides.
#pragma once

#include <cstddef>

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
struct EigenEpsilon;
template <>
struct EigenEpsilon<float> {
    static constexpr float value = 0x1p-23F;
};
template <>
struct EigenEpsilon<double> {
    static constexpr double value = 0x1p-52;
};

constexpr int sweep_limit = 30; // for one eigenvalue

// What sets the four symmetric families apart. All of it is required behaviour.
template <bool array_form, bool with_vectors>
struct SymmetricForm {
    static constexpr bool vectors = with_vectors;
    // The gates of the reduction, by the squared length of a column and by its distance from its first entry.
    static constexpr bool skips_small_columns = array_form;
    static constexpr bool skips_aligned_columns = array_form || with_vectors;
    // Rotations multiply by a reciprocal, or divide.
    static constexpr bool rotates_by_reciprocal = array_form && with_vectors;
    // The product that decides singularity takes a factor for every split that a downward search meets, also in
    // mid-block, or it is the product of the eigenvalues.
    static constexpr bool multiplies_in_search = !with_vectors;
    static constexpr bool sorts_before_test = !array_form && with_vectors;
    // With vectors, the array forms have the bound of `float` for both types.
    template <class T>
    static constexpr T singular = array_form &&with_vectors ? T(0x1p-23) : EigenEpsilon<T>::value;
};

struct NoVectors {};

template <class Num>
inline IndexOf<Num> index_of(int i) {
    return IndexOf<Num>(static_cast<ElementOfNumber<Num>>(i));
}
template <class X, class Mask>
[[gnu::always_inline]] inline void exchange(Mask mask, X &a, X &b) {
    const X kept = a;
    a = select(mask, b, kept);
    b = select(mask, kept, b);
}

// Reduces the n by n matrix w to tridiagonal form, accumulating the reflections in z (the identity on entry). Only what
// is read later is computed: the trailing block, and of each eliminated column the entry that stays. u is scratch.
template <class Form, class Num, class Z>
[[gnu::always_inline]] inline void reduce_symmetric(Num *w, Num *u, [[maybe_unused]] const Z &z, int n,
                                                    ElementOfNumber<Num> gate) {
    using T = ElementOfNumber<Num>;
    using Mask = MaskOf<Num>;
    const auto at = [=](int i, int j) -> Num & { return w[std::ptrdiff_t{i} * n + j]; };
    for (int k = 1; k < n - 1; ++k) {
        Num s = at(k, k - 1) * at(k, k - 1);
        for (int i = k + 1; i < n; ++i) s = s + at(i, k - 1) * at(i, k - 1);
        Mask skip(false);
        if (Form::skips_small_columns) skip = s <= gate;
        if (all(skip)) continue;
        const Num x = square_root(s), a = at(k, k - 1);
        if (Form::skips_aligned_columns) skip = skip | (magnitude(x - a) <= gate);
        const Mask positive = a > gate, large = magnitude(a) > gate;
        const Num xa = x * a;
        u[k] = select(positive, a + x, select(large, a - x, x));
        Num h = select(positive, (s + xa) * T(2), select(large, (s - xa) * T(2), s + s));
        skip = skip | (h <= gate);
        if (all(skip)) continue;
        const Mask here = !skip;
        h = T(2) / h;
        for (int i = k + 1; i < n; ++i) u[i] = at(i, k - 1);

        for (int j = k - 1; j < n; ++j) {
            Num sum = at(k, j) * u[k];
            for (int i = k + 1; i < n; ++i) sum = sum + at(i, j) * u[i];
            const Num p = h * sum;
            for (int i = k; i < (j < k ? k + 1 : n); ++i) at(i, j) = select(here, at(i, j) - u[i] * p, at(i, j));
        }
        for (int j = k; j < n; ++j) {
            Num sum = at(j, k) * u[k];
            for (int i = k + 1; i < n; ++i) sum = sum + at(j, i) * u[i];
            const Num p = h * sum;
            for (int i = k; i < n; ++i) at(j, i) = select(here, at(j, i) - u[i] * p, at(j, i));
        }
        if constexpr (Form::vectors) {
            if (k == 1) {
                for (int i = 1; i < n; ++i) {
                    z(i, i) = select(here, T(1) - h * (u[i] * u[i]), Num(T(1)));
                    for (int j = i + 1; j < n; ++j) {
                        const Num value = select(here, -(h * u[i] * u[j]), Num(T(0)));
                        z(i, j) = value;
                        z(j, i) = value;
                    }
                }
                continue;
            }
            for (int r = 1; r < n; ++r) {
                Num sum = u[k] * z(r, k);
                for (int j = k + 1; j < n; ++j) sum = sum + u[j] * z(r, j);
                const Num p = h * sum;
                for (int j = k; j < n; ++j) {
                    const Num before = z(r, j);
                    z(r, j) = select(here, before - u[j] * p, before);
                }
            }
        }
    }
}

template <class Num, class Z, class Mask>
[[gnu::always_inline]] inline void exchange_columns(const Z &z, Mask mask, int i, int j, int n) {
    for (int r = 0; r < n; ++r) {
        const Num a = z(r, i), b = z(r, j);
        z(r, i) = select(mask, b, a);
        z(r, j) = select(mask, a, b);
    }
}

// Turns an object over: diagonal, off-diagonal and the columns of its vectors.
template <class Form, class Num, class Z>
[[gnu::always_inline]] inline void turn_over(MaskOf<Num> which, Num *d, Num *e, [[maybe_unused]] const Z &z, int n) {
    if (!any(which)) return;
    for (int i = 0; i < n / 2; ++i) {
        exchange(which, d[i], d[n - 1 - i]);
        if constexpr (Form::vectors) exchange_columns<Num>(z, which, i, n - 1 - i, n);
    }
    for (int i = 0; i < (n - 1) / 2; ++i) exchange(which, e[i], e[n - 2 - i]);
}

// Sweeps until e is negligible; d then holds the eigenvalues. False if an object has not converged. `singular` if one
// has too small a product.
template <class Form, class Num, class Z>
[[gnu::always_inline]] inline bool sweep_symmetric(Num *d, Num *e, [[maybe_unused]] const Z &z, int n, bool &singular) {
    using T = ElementOfNumber<Num>;
    using Mask = MaskOf<Num>;
    using Index = IndexOf<Num>;
    constexpr T eps = EigenEpsilon<T>::value;
    const Mask upward = !(magnitude(d[n - 1]) <= magnitude(d[0]));
    turn_over<Form>(upward, d, e, z, n);
    Num product(T(1)); // of a downward search
    for (int l = n - 1; l > 0; --l) {
        Mask active(true);
        for (int sweeps = 0;; ++sweeps) {
            Index start = index_of<Num>(0);
            Mask open = active;
            for (int m = l; m > 0; --m) {
                const Mask split = open & (magnitude(T(0.5) * e[m - 1]) <= eps);
                if (!any(split)) continue;
                if (Form::multiplies_in_search) product = select(split & !upward, product * d[m], product);
                start = select(split, index_of<Num>(m), start);
                open = open & !split;
            }
            active = active & (start != index_of<Num>(l));
            if (!any(active)) break;
            if (sweeps == sweep_limit) return false;

            Num g = (d[l - 1] - d[l]) / (T(2) * e[l - 1]);
            const Num root = square_root(g * g + T(1));
            const Num shift = select(g > eps, g + root, g - root);
            Num first = d[0];
            for (int m = 1; m < l; ++m) first = select(start == index_of<Num>(m), d[m], first);
            g = e[l - 1] / shift + (first - d[l]);
            Num s(T(1)), c(T(1)), p(T(0)), last(T(0));
            Mask running = active;
            for (int i = 0; i < l; ++i) {
                Mask now = running & (start <= index_of<Num>(i));
                if (!any(now)) continue;
                const Num f = s * e[i], b = c * e[i], r = square_root(g * g + f * f);
                if (i > 0) e[i - 1] = select(now & (start != index_of<Num>(i)), r, e[i - 1]);
                const Mask tiny = now & (magnitude(r) <= eps);
                if (any(tiny)) {
                    d[i] = select(tiny, d[i] - p, d[i]);
                    for (int m = 0; m <= i; ++m) e[m] = select(tiny & (start == index_of<Num>(m)), Num(T(0)), e[m]);
                    running = running & !tiny;
                    now = now & !tiny;
                    if (!any(now)) continue;
                }
                const Num inverse = T(1) / r;
                const Num sine = Form::rotates_by_reciprocal ? f * inverse : f / r;
                const Num cosine = Form::rotates_by_reciprocal ? g * inverse : g / r;
                if constexpr (Form::vectors)
                    for (int row = 0; row < n; ++row) {
                        const Num z0 = z(row, i), z1 = z(row, i + 1);
                        if constexpr (Form::rotates_by_reciprocal) {
                            const Num y0 = z0 * inverse, y1 = z1 * inverse;
                            z(row, i) = select(now, g * y0 + f * y1, z0);
                            z(row, i + 1) = select(now, g * y1 - f * y0, z1);
                        } else {
                            z(row, i) = select(now, cosine * z0 + sine * z1, z0);
                            z(row, i + 1) = select(now, cosine * z1 - sine * z0, z1);
                        }
                    }
                const Num left = d[i] - p;
                const Num step = (d[i + 1] - left) * sine + T(2) * cosine * b;
                s = select(now, sine, s);
                c = select(now, cosine, c);
                p = select(now, sine * step, p);
                d[i] = select(now, left + p, d[i]);
                g = select(now, cosine * step - b, g);
                last = select(now, step, last);
            }
            // An unlucky tiny `last` skips the update, but not in the first block of an upward sweep.
            Mask update = magnitude(last) > eps;
            if (l == n - 1) update = update | upward;
            update = update & running;
            d[l] = select(update, d[l] - p, d[l]);
            e[l - 1] = select(update, g, e[l - 1]);
        }
    }
    turn_over<Form>(upward, d, e, z, n);
    // The product of eigenvalues is not rounded to float between its factors; the one of a search is.
    const auto factor = [&](int k) {
        if (!Form::multiplies_in_search) return widened(d[k]);
        return widened(select(upward, d[k], k == 0 ? product * d[0] : Num(T(1))));
    };
    auto all_factors = factor(0);
    for (int k = 1; k < n; ++k) all_factors = all_factors * factor(k);
    singular = any(magnitude(all_factors) <= double{Form::template singular<T>});
    return true;
}

// Selection sort, descending by value, the first of equals kept.
template <class Form, class Num, class Z>
[[gnu::always_inline]] inline void sort_symmetric(Num *d, [[maybe_unused]] const Z &z, int n) {
    for (int i = 0; i < n - 1; ++i) {
        Num best = d[i];
        IndexOf<Num> place = index_of<Num>(i);
        for (int j = i + 1; j < n; ++j) {
            const MaskOf<Num> greater = d[j] > best;
            best = select(greater, d[j], best);
            place = select(greater, index_of<Num>(j), place);
        }
        for (int j = i + 1; j < n; ++j) {
            const MaskOf<Num> here = place == index_of<Num>(j);
            if (!any(here)) continue;
            exchange(here, d[i], d[j]);
            if constexpr (Form::vectors) exchange_columns<Num>(z, here, i, j, n);
        }
    }
}

} // namespace SMX_ISA
} // namespace smx
