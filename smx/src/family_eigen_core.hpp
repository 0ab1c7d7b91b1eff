// The iterations behind the general eigen families (family_eigen.hpp): Hessenberg reduction, the orthogonal matrix Q,
// double-shift iteration with block standardisation. One text for one object (Num is float or double, any side) and for
// a group of objects, one a vector lane (Num is a pack), as in family_eigen_sym_core.hpp. Row and column numbers count
// from 1, as in the published routines (LAPACK's xGEHRD, xORGHR, xLAHQR, xLANV2, from which much differs here).
#pragma once

#include <cstddef>

#include "family_eigen_sym_core.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
struct EigenLimits;
template <>
struct EigenLimits<float> {
    static constexpr float safmin = 0x1p-126F, eps = 0x1p-23F, inv_eps = 0x1p23F, one_minus_eps = 1 - 0x1p-23F;
    static constexpr float solve_min = 0x1p-125F, solve_big = 0x1p125F;
};
template <>
struct EigenLimits<double> {
    static constexpr double safmin = 0x1p-1022, eps = 0x1p-52, inv_eps = 0x1p52, one_minus_eps = 1 - 0x1p-52;
    static constexpr double solve_min = 0x1p-1021, solve_big = 0x1p1021;
};
template <class T>
inline T small_number(int n) {
    return static_cast<T>(n) * EigenLimits<T>::inv_eps * EigenLimits<T>::safmin;
}

// The values alone: absolute deflation, and only the active block is kept up. Or with vectors: relative deflation, the
// whole form T and Q are kept up.
struct ValuesOnly {
    static constexpr bool whole_form = false;
};
struct WholeForm {
    static constexpr bool whole_form = true;
};

// An n by n matrix stored by columns.
template <class Num>
struct Columns {
    Num *at;
    int n;
    [[gnu::always_inline]] Num &operator()(int i, int j) const {
        return at[static_cast<std::ptrdiff_t>(j - 1) * n + (i - 1)];
    }
};

// A row from which on work is needed in every object: rows above it may be done, too.
inline int first_row(int row) {
    return row;
}
template <class Lanes>
inline int first_row(Lanes) {
    return 1;
}

template <class Num>
[[gnu::always_inline]] inline Num safe_hypot(Num x, Num y) {
    using T = ElementOfNumber<Num>;
    const Num ax = magnitude(x), ay = magnitude(y);
    const MaskOf<Num> first = !(ay > ax); // a not-a-number in x comes through
    const Num w = select(first, ax, ay), z = select(first, ay, ax);
    return select(z >= EigenLimits<T>::safmin, w * square_root(z * z / (w * w) + T(1)), w);
}

// The reflector that maps (alpha, x) to (beta, 0), where x has the given norm and is to be scaled.
template <class Num>
struct Reflector {
    Num beta, tau, scale;
    MaskOf<Num> some; // else x stays as it is and nothing is reflected
    [[gnu::always_inline]] Reflector(Num alpha, Num norm) {
        using T = ElementOfNumber<Num>;
        some = !(norm < EigenLimits<T>::safmin); // a not-a-number comes through
        const Num length = safe_hypot(alpha, norm);
        const Num image = select(alpha >= T(0), -length, length);
        tau = select(some, (image - alpha) / image, Num(T(0)));
        scale = T(1) / (alpha - image);
        beta = select(some, image, alpha);
    }
};

// Applies I - tau v vt, with v in rows first .. n of column v_column of `from`, to columns from_column .. n of a.
template <class Num>
[[gnu::always_inline]] inline void reflect_columns(const Columns<Num> &a, const Columns<Num> &from, int v_column,
                                                   int first, int from_column, int n, Num tau) {
    const MaskOf<Num> here = magnitude(tau) > EigenLimits<ElementOfNumber<Num>>::safmin;
    if (!any(here)) return;
    for (int c = from_column; c <= n; ++c) {
        Num sum = a(first, c) * from(first, v_column);
        for (int t = first + 1; t <= n; ++t) sum = sum + a(t, c) * from(t, v_column);
        for (int t = first; t <= n; ++t) a(t, c) = select(here, a(t, c) - tau * from(t, v_column) * sum, a(t, c));
    }
}

// Reduces h to upper Hessenberg form; the reflectors stay below the sub-diagonal.
template <class Num>
[[gnu::always_inline]] inline void reduce_to_hessenberg(const Columns<Num> &h, Num *tau_store, Num *work, int n) {
    using T = ElementOfNumber<Num>;
    for (int i = 1; i < n; ++i) {
        Num squares(T(0));
        for (int r = i + 2; r <= n; ++r) squares = squares + h(r, i) * h(r, i);
        const Reflector<Num> f(h(i + 1, i), square_root(squares));
        for (int r = i + 2; r <= n; ++r) h(r, i) = select(f.some, h(r, i) * f.scale, h(r, i));
        tau_store[i - 1] = f.tau;
        h(i + 1, i) = Num(T(1));
        const MaskOf<Num> here = magnitude(f.tau) > EigenLimits<T>::safmin;
        if (any(here)) {
            for (int r = 1; r <= n; ++r) {
                Num sum = h(r, i + 1) * h(i + 1, i);
                for (int t = 2; t <= n - i; ++t) sum = sum + h(r, i + t) * h(i + t, i);
                work[r - 1] = f.tau * sum;
            }
            for (int t = 1; t <= n - i; ++t)
                for (int r = 1; r <= n; ++r)
                    h(r, i + t) = select(here, h(r, i + t) - work[r - 1] * h(i + t, i), h(r, i + t));
            reflect_columns(h, h, i, i + 1, i + 1, n, f.tau);
        }
        h(i + 1, i) = f.beta;
    }
}
template <class Num>
[[gnu::always_inline]] inline void clear_reflectors(const Columns<Num> &h, int n) {
    for (int j = 1; j <= n - 2; ++j)
        for (int i = j + 2; i <= n; ++i) h(i, j) = Num(ElementOfNumber<Num>(0));
}

// Q from the reflectors in h.
template <class Num>
[[gnu::always_inline]] inline void form_q(const Columns<Num> &q, const Columns<Num> &h, const Num *tau_store, int n) {
    using T = ElementOfNumber<Num>;
    for (int i = 1; i <= n; ++i) q(i, 1) = q(1, i) = Num(T(i == 1));
    for (int j = 1; j < n; ++j)
        for (int i = j + 2; i <= n; ++i) q(i, j + 1) = h(i, j);
    for (int c = n; c >= 2; --c) { // the last reflector is always empty
        const Num tau = tau_store[c - 2];
        q(c, c) = Num(T(1));
        if (c < n) reflect_columns(q, q, c, c, c + 1, n, tau);
        for (int i = c + 1; i <= n; ++i) q(i, c) = q(i, c) * -tau;
        q(c, c) = T(1) - tau;
        for (int i = 2; i < c; ++i) q(i, c) = Num(T(0));
    }
}

// The 2 by 2 block ((a, b), (c, d)) in its standard form: a real pair on the diagonal, or equal diagonal entries. The
// rotation is for the whole form; where a block gives none, cs and sn keep the values of the block before, which is
// required.
template <class Num>
struct StandardBlock {
    using T = ElementOfNumber<Num>;
    using Mask = MaskOf<Num>;
    Num a, b, c, d;
    Num imaginary;

    template <class Form>
    [[gnu::always_inline]] void standardise(Mask here, Num &cs, Num &sn) {
        constexpr T safmin = EigenLimits<T>::safmin;
        const Num zero(T(0)), one(T(1));
        imaginary = zero;
        const Mask upper = here & (magnitude(c) <= safmin); // nothing changes
        const Mask lower = here & !upper & (magnitude(b) <= safmin);
        const Mask full = here & !upper & !lower;
        const Num temp = a - d;
        const Mask level = full & (magnitude(temp) <= safmin);
        const Num abs_b = magnitude(b), abs_c = magnitude(c);
        const Mask b_positive = b >= T(0), c_positive = c >= T(0);
        const Mask opposite = (b_positive & Mask(!c_positive)) | (Mask(!b_positive) & c_positive);
        // The signs are not looked at, so that a pair that is real is told as complex.
        if (any(level)) imaginary = select(level, square_root(abs_b) * square_root(abs_c), imaginary);
        if (Form::whole_form) {
            const Mask plain = upper | (level & opposite);
            cs = select(plain, one, select(lower, zero, cs));
            sn = select(plain, zero, select(lower, one, sn));
        }
        const Num old_a = a, old_b = b, old_c = c, old_d = d;
        a = select(lower, old_d, a);
        d = select(lower, old_a, d);
        b = select(lower, -old_c, b);
        c = select(lower, zero, c);
        const Mask rest = full & !level;
        if (!any(rest)) return;

        const Num p = T(0.5) * temp;
        const Mask b_greater = abs_b > abs_c;
        const Num greater = select(b_greater, abs_b, abs_c), smaller = select(b_greater, abs_c, abs_b);
        const Num signed_smaller = select(opposite, -smaller, smaller);
        const Num abs_p = magnitude(p), scale = select(abs_p > greater, abs_p, greater);
        const Num z = p * (p / scale) + greater / scale * signed_smaller;
        const Mask real = rest & (z >= T(4) * EigenLimits<T>::eps);
        if (any(real)) {
            const Num r = square_root(scale) * square_root(z), z2 = select(p > T(0), p + r, p - r);
            if (Form::whole_form) {
                const Num tau = safe_hypot(old_c, z2);
                cs = select(real, z2 / tau, cs);
                sn = select(real, old_c / tau, sn);
            }
            a = select(real, old_d + z2, a);
            d = select(real, old_d - greater / z2 * signed_smaller, d);
            b = select(real, old_b - old_c, b);
            c = select(real, zero, c);
        }
        const Mask other = rest & !real;
        if (any(other)) make_diagonal_equal<Form>(other, old_a, old_b, old_c, old_d, temp, p, cs, sn);
    }

    template <class Form>
    [[gnu::always_inline]] void make_diagonal_equal(Mask here, Num old_a, Num old_b, Num old_c, Num old_d, Num temp,
                                                    Num p, Num &cs, Num &sn) {
        constexpr T safmin = EigenLimits<T>::safmin;
        const Num zero(T(0));
        const Num sigma = old_b + old_c, tau = safe_hypot(sigma, temp);
        const Num cosine = square_root((magnitude(sigma) / tau + T(1)) * T(0.5));
        Num sine = -p / (tau * cosine);
        sine = select(sigma < T(0), -sine, sine);
        const Num aa = old_a * cosine + old_b * sine, bb = old_b * cosine - old_a * sine;
        const Num cc = old_c * cosine + old_d * sine, dd = old_d * cosine - old_c * sine;
        const Num a2 = aa * cosine + cc * sine, b2 = bb * cosine + dd * sine;
        const Num c2 = cc * cosine - aa * sine, d2 = dd * cosine - bb * sine;
        const Num middle = T(0.5) * (a2 + d2);
        const Num root_b = square_root(magnitude(b2)), root_c = square_root(magnitude(c2));

        // A tiny off-diagonal entry: b2 is dropped, also where c2 is the tiny one.
        const Mask tiny = here & ((magnitude(b2) <= safmin) | (magnitude(c2) <= safmin));
        const Mask positive = here & !tiny & (b2 > T(0)) & (c2 > T(0));
        const Mask negative = here & !tiny & (b2 < T(0)) & (c2 < T(0));
        const Mask equal_signs = positive | negative, complex = here & !tiny & !equal_signs;
        // The offset is p, not the square root of b2 c2.
        const Num offset = select(positive, p, -p);
        a = select(here, select(equal_signs, middle + offset, middle), a);
        d = select(here, select(equal_signs, middle - offset, middle), d);
        b = select(here, select(tiny, -c2, select(equal_signs, b2 - c2, b2)), b);
        c = select(here, select(complex, c2, zero), c);
        imaginary = select(complex, root_b * root_c, imaginary);
        if (Form::whole_form) {
            const Num rt = T(1) / square_root(magnitude(b2 + c2));
            const Num cross_c = root_b * cosine, cross_s = root_c * sine; // root_b stands in both sums
            cs = select(here, select(tiny, -sine, select(equal_signs, rt * (cross_c - cross_s), cosine)), cs);
            sn = select(here, select(tiny, cosine, select(equal_signs, rt * (cross_c + cross_s), sine)), sn);
        }
    }
};

// The state of the iteration. re and im receive the eigenvalues in the order of the final diagonal; q is used by the
// whole form only.
template <class Form, class Num>
struct DoubleShift {
    using T = ElementOfNumber<Num>;
    using Mask = MaskOf<Num>;
    using Index = IndexOf<Num>;
    Columns<Num> h, q;
    Num *re, *im;
    int n;
    Num q1, q2, q3; // the reflector of a step
    Index start;    // its first row
    Num h33, h44, h43h34;

    [[gnu::always_inline]] DoubleShift(const Columns<Num> &h_, const Columns<Num> &q_, Num *re_, Num *im_, int n_)
        : h(h_), q(q_), re(re_), im(im_), n(n_) {}

    [[gnu::always_inline]] static Num add(Num a, Num b, Num c) { return a + b + c; }

    // The 1-norm of the active block.
    [[gnu::always_inline]] Num block_norm(Index low, int bottom) const {
        Num norm(T(0));
        for (int j = first_row(low); j <= bottom; ++j) {
            Num sum(T(0));
            for (int i = first_row(low); i <= (j < bottom ? j + 1 : bottom); ++i)
                sum = select(low <= index_of<Num>(i), sum + magnitude(h(i, j)), sum);
            norm = select((low <= index_of<Num>(j)) & (sum > norm), sum, norm);
        }
        return norm;
    }

    // Raises `low` to the row below the lowest negligible sub-diagonal entry, which is cleared.
    [[gnu::always_inline]] void deflate(Mask active, Index &low, int bottom) const {
        Mask open = active;
        const Index before = low;
        for (int k = bottom; k > 1; --k) {
            open = open & (low < index_of<Num>(k));
            if (!any(open)) return;
            Mask small;
            if constexpr (Form::whole_form) {
                Num test = magnitude(h(k - 1, k - 1)) + magnitude(h(k, k));
                const Mask tiny = open & (test <= EigenLimits<T>::safmin);
                if (any(tiny)) test = select(tiny, block_norm(before, bottom), test);
                const Num relative = EigenLimits<T>::eps * test, least = Num(small_number<T>(n));
                small = open & (magnitude(h(k, k - 1)) <= select(relative > least, relative, least));
            } else {
                small = open & (magnitude(h(k, k - 1)) <= EigenLimits<T>::eps);
            }
            if (!any(small)) continue;
            h(k, k - 1) = select(small, Num(T(0)), h(k, k - 1));
            low = select(small, index_of<Num>(k), low);
            open = open & !small;
        }
    }

    [[gnu::always_inline]] void choose_shift(int bottom, int sweep) {
        const int i = bottom;
        if (sweep == 10 || sweep == 20) {
            const Num s = magnitude(h(i, i - 1)) + magnitude(h(i - 1, i - 2));
            h44 = T(0.75) * s + h(i, i);
            h33 = h44;
            h43h34 = T(-0.4375) * s * s;
            return;
        }
        h44 = h(i, i);
        h33 = h(i - 1, i - 1);
        h43h34 = h(i, i - 1) * h(i - 1, i);
        const Num half = (h33 - h44) * T(0.5), disc = half * half + h43h34;
        const Mask real = disc > T(0);
        if (!any(real)) return;
        const Num root = square_root(disc), average = (h44 + h33) * T(0.5);
        const Num top = select(average < T(0), -root, root) + average;
        const Num value = select(magnitude(h33) - magnitude(h44) > T(0), (h33 * h44 - h43h34) / top, top);
        h44 = select(real, value, h44);
        h33 = select(real, value, h33);
        h43h34 = select(real, Num(T(0)), h43h34);
    }

    // The start row of the step, and the first column of the shifted product there.
    [[gnu::always_inline]] void find_start(Mask active, Index low, int bottom) {
        Mask open = active;
        for (int m = bottom - 2; m >= 1; --m) {
            const Num h11 = h(m, m), h22 = h(m + 1, m + 1), h21 = h(m + 1, m), h12 = h(m, m + 1);
            const Num s44 = h44 - h11, s33 = h33 - h11;
            const Num v1 = (s33 * s44 - h43h34) / h21 + h12, v2 = h22 - h11 - s44 - s33, v3 = h(m + 2, m + 1);
            const Num sum = add(magnitude(v1), magnitude(v2), magnitude(v3));
            q1 = select(open, v1 / sum, q1);
            q2 = select(open, v2 / sum, q2);
            q3 = select(open, v3 / sum, q3);
            Mask stop = open & (low == index_of<Num>(m));
            if (m > 1)
                stop = stop | (open & (magnitude(h(m, m - 1)) * (magnitude(q3) + magnitude(q2)) <=
                                       EigenLimits<T>::eps * magnitude(q1) *
                                           add(magnitude(h11), magnitude(h22), magnitude(h(m - 1, m - 1)))));
            start = select(stop, index_of<Num>(m), start);
            open = open & !stop;
            if (!any(open)) return;
        }
    }

    template <bool three>
    [[gnu::always_inline]] void reflect(Num &x, Num &y, Num *z, Mask now, Num t1, Num t2, Num t3) const {
        Num sum = x + q2 * y;
        if (three) sum = sum + q3 * *z;
        sum = select(now, sum, Num(T(0))); // with t1 .. t3, an object at rest subtracts 0
        x = x - sum * t1;
        y = y - sum * t2;
        if (three) *z = *z - sum * t3;
    }

    template <bool three>
    [[gnu::always_inline]] void step(Mask active, Index low, int bottom, int k) {
        const Num zero(T(0));
        const Mask now = active & (start <= index_of<Num>(k)), later = active & (start < index_of<Num>(k));
        if (!any(now)) return;
        if (k > 1) {
            q1 = select(later, h(k, k - 1), q1);
            q2 = select(later, h(k + 1, k - 1), q2);
            if (three) q3 = select(later, h(k + 2, k - 1), q3);
        }
        Num squares = q2 * q2;
        if (three) squares = squares + q3 * q3;
        const Reflector<Num> f(q1, square_root(squares));
        q1 = select(now, f.beta, q1);
        q2 = select(now & f.some, q2 * f.scale, q2);
        if (three) q3 = select(now & f.some, q3 * f.scale, q3);
        if (k > 1) {
            const Mask turned = now & !later & (low < index_of<Num>(k));
            h(k, k - 1) = select(later, q1, select(turned, -h(k, k - 1), h(k, k - 1)));
            h(k + 1, k - 1) = select(later, zero, h(k + 1, k - 1));
            if (three) h(k + 2, k - 1) = select(later, zero, h(k + 2, k - 1));
        }
        const Num t1 = select(now, f.tau, zero), t2 = select(now, f.tau * q2, zero);
        const Num t3 = three ? select(now, f.tau * q3, zero) : zero;
        const int last_column = Form::whole_form ? n : bottom;
        const int last_row = !three || k + 3 > bottom ? bottom : k + 3;
        for (int j = k; j <= last_column; ++j)
            reflect<three>(h(k, j), h(k + 1, j), three ? &h(k + 2, j) : nullptr, now, t1, t2, t3);
        // From the last row up: the next step begins with the last ones.
        for (int j = last_row; j >= (Form::whole_form ? 1 : first_row(low)); --j)
            reflect<three>(h(j, k), h(j, k + 1), three ? &h(j, k + 2) : nullptr, now, t1, t2, t3);
        if constexpr (Form::whole_form)
            for (int j = 1; j <= n; ++j)
                reflect<three>(q(j, k), q(j, k + 1), three ? &q(j, k + 2) : nullptr, now, t1, t2, t3);
    }

    [[gnu::always_inline]] static void rotate(Num &x, Num &y, Mask here, Num cs, Num sn) {
        const Num kept = x;
        x = select(here, cs * x + sn * y, x);
        y = select(here, cs * y - sn * kept, y);
    }

    // False if an object has used up its budget of 30 n steps.
    [[gnu::always_inline]] bool run() {
        const Num zero(T(0));
        Num cs = zero, sn = zero;
        q1 = q2 = q3 = zero;
        start = index_of<Num>(1);
        Index bottom = index_of<Num>(n), budget = index_of<Num>(sweep_limit * n);
        for (int i = n; i >= 1; --i) {
            const Mask here = bottom == index_of<Num>(i);
            if (!any(here)) continue;
            Index low = index_of<Num>(1);
            Mask active = here;
            for (int sweep = 0;; ++sweep) {
                deflate(active, low, i);
                active = active & (low < index_of<Num>(i - 1));
                if (!any(active)) break;
                choose_shift(i, sweep);
                find_start(active, low, i);
                for (int k = first_row(start); k <= i - 2; ++k) step<true>(active, low, i, k);
                step<false>(active, low, i, i - 1);
                budget = select(active, budget - index_of<Num>(1), budget);
                if (any(active & (budget < index_of<Num>(1)))) return false;
            }
            const Mask single = here & (low == index_of<Num>(i));
            re[i - 1] = select(single, h(i, i), re[i - 1]);
            im[i - 1] = select(single, zero, im[i - 1]);
            const Mask pair = here & !single;
            if (i > 1 && any(pair)) {
                StandardBlock<Num> block{h(i - 1, i - 1), h(i - 1, i), h(i, i - 1), h(i, i), zero};
                block.template standardise<Form>(pair, cs, sn);
                h(i - 1, i - 1) = select(pair, block.a, h(i - 1, i - 1));
                h(i - 1, i) = select(pair, block.b, h(i - 1, i));
                h(i, i - 1) = select(pair, block.c, h(i, i - 1));
                h(i, i) = select(pair, block.d, h(i, i));
                re[i - 2] = select(pair, block.a, re[i - 2]);
                im[i - 2] = select(pair, block.imaginary, im[i - 2]);
                re[i - 1] = select(pair, block.d, re[i - 1]);
                im[i - 1] = select(pair, -block.imaginary, im[i - 1]);
                if constexpr (Form::whole_form) {
                    for (int j = i + 1; j <= n; ++j) rotate(h(i - 1, j), h(i, j), pair, cs, sn);
                    for (int r = 1; r <= i - 2; ++r) rotate(h(r, i - 1), h(r, i), pair, cs, sn);
                    for (int r = 1; r <= n; ++r) rotate(q(r, i - 1), q(r, i), pair, cs, sn);
                }
            }
            bottom = select(here, low - index_of<Num>(1), bottom);
        }
        return true;
    }
};

// From h to the eigenvalues; false if an object has not converged.
template <class Num>
[[gnu::always_inline]] inline bool find_values(const Columns<Num> &h, Num *tau_store, Num *work, Num *re, Num *im) {
    reduce_to_hessenberg(h, tau_store, work, h.n);
    clear_reflectors(h, h.n);
    return DoubleShift<ValuesOnly, Num>(h, h, re, im, h.n).run();
}
// The same with the quasi-triangular form in h and the orthogonal matrix that leads to it in q.
template <class Num>
[[gnu::always_inline]] inline bool reduce_to_triangular(const Columns<Num> &h, const Columns<Num> &q, Num *tau_store,
                                                        Num *work, Num *re, Num *im) {
    reduce_to_hessenberg(h, tau_store, work, h.n);
    form_q(q, h, tau_store, h.n);
    clear_reflectors(h, h.n);
    return DoubleShift<WholeForm, Num>(h, q, re, im, h.n).run();
}

} // namespace SMX_ISA
} // namespace smx
