// Eigenvectors of one quasi-triangular matrix T: back substitution for each eigenvalue, the way back through Q, and
// normalisation. After LAPACK's xTREVC and xLALN2, from which much differs; row and column numbers count from 1.
#pragma once

#include "family_eigen_core.hpp"
#include "smxdefs.h"

namespace smx {
inline namespace SMX_ISA {

constexpr unsigned right_mode = 1, left_mode = 2; // with respect to T

enum class Solved {
    yes,
    no,      // smxStsErr
    silently // the kernel returns at once, with smxStsNoErr
};

// Where the elements of the 2 by 2 matrix come to lie when element p is the pivot.
inline constexpr int pivot_order[4][4] = {{0, 1, 2, 3}, {1, 0, 3, 2}, {2, 3, 0, 1}, {3, 2, 1, 0}};
constexpr bool exchanges_rows(int pivot) {
    return pivot == 1 || pivot == 3;
}
constexpr bool exchanges_unknowns(int pivot) {
    return pivot == 2 || pivot == 3;
}

// Solves (M - (wr + i wi)) x = scale b for a matrix M of one or two rows, with scale chosen so that nothing overflows.
template <class T>
struct SmallSolve {
    T re[2], im[2]; // b on entry, x after it
    T scale = 1, norm = 0;

    static T larger(T a, T b) { return b > a ? b : a; }

    // `bound` is the magnitude of the right-hand side, `pivot` that of what it is divided by.
    void guard(T bound, T pivot, bool also_equal) {
        constexpr T big = EigenLimits<T>::solve_big;
        if (bound > T(1) && pivot < T(1) && (also_equal ? bound >= big * pivot : bound > big * pivot))
            scale = T(1) / bound;
    }
    static void divide(T a, T b, T c, T d, T &x, T &y) {
        const T modulus = c * c + d * d;
        x = (a * c + b * d) / modulus;
        y = (b * c - a * d) / modulus;
    }

    void one(T m, T wr, T wi, bool complex, T smini) {
        T cr = m - wr, ci = complex ? -wi : T(0);
        T pivot = magnitude(cr) + magnitude(ci);
        if (pivot < smini) {
            cr = pivot = smini;
            ci = 0;
        }
        if (complex) {
            guard(magnitude(re[0]) + magnitude(im[0]), pivot, false);
            divide(scale * re[0], scale * im[0], cr, ci, re[0], im[0]);
            norm = magnitude(re[0]) + magnitude(im[0]);
        } else {
            guard(magnitude(re[0]), pivot, false);
            re[0] = re[0] * scale / cr;
            norm = magnitude(re[0]);
        }
    }

    // The matrix is m[0] m[2] over m[1] m[3].
    Solved two(const T (&m)[4], T wr, T wi, bool complex, T smini) {
        const T cr[4] = {m[0] - wr, m[1], m[2], m[3] - wr};
        const T ci[4] = {complex ? -wi : T(0), 0, 0, complex ? -wi : T(0)};
        T greatest = 0;
        int pivot = 0;
        for (int k = 0; k < 4; ++k)
            if (const T size = magnitude(cr[k]) + magnitude(ci[k]); size > greatest) {
                greatest = size;
                pivot = k;
            }
        if (greatest < smini) return complex ? Solved::no : Solved::silently;
        const int(&order)[4] = pivot_order[pivot];
        if (complex) solve_complex(cr, ci, order, pivot, smini);
        else solve_real(cr, order, pivot, smini);
        if (norm > T(1) && greatest > T(1) && norm > EigenLimits<T>::solve_big / greatest) {
            const T shrink = greatest / EigenLimits<T>::solve_big;
            for (int k = 0; k < 2; ++k) {
                re[k] *= shrink;
                im[k] *= shrink;
            }
            norm *= shrink;
            scale *= shrink;
        }
        return Solved::yes;
    }

private:
    void solve_real(const T (&c)[4], const int (&order)[4], int pivot, T smini) {
        const T u11 = c[order[0]], c21 = c[order[1]], u12 = c[order[2]], c22 = c[order[3]];
        const T inverse = T(1) / u11, l21 = inverse * c21;
        T u22 = c22 - u12 * l21;
        if (magnitude(u22) < smini) u22 = smini;
        const bool turned = exchanges_rows(pivot);
        const T b1 = re[turned], b2 = re[!turned] - l21 * b1;
        guard(larger(magnitude(b1 * (u22 * inverse)), magnitude(b2)), magnitude(u22), true);
        const T x2 = b2 * scale / u22;
        const T x1 = scale * b1 * inverse - x2 * (inverse * u12);
        const bool crossed = exchanges_unknowns(pivot);
        re[crossed] = x1;
        re[!crossed] = x2;
        norm = larger(magnitude(x1), magnitude(x2));
    }

    void solve_complex(const T (&cr)[4], const T (&ci)[4], const int (&order)[4], int pivot, T smini) {
        const T ur11 = cr[order[0]], ui11 = ci[order[0]], cr21 = cr[order[1]], ci21 = ci[order[1]];
        const T ur12 = cr[order[2]], ui12 = ci[order[2]], cr22 = cr[order[3]], ci22 = ci[order[3]];
        T inverse_re, inverse_im, lr21, li21, ur12s, ui12s, ur22, ui22;
        if (pivot == 0 || pivot == 3) { // the off-diagonal entries are real
            if (magnitude(ur11) > magnitude(ui11)) {
                const T ratio = ui11 / ur11;
                inverse_re = T(1) / (ur11 * (T(1) + ratio * ratio));
                inverse_im = -ratio * inverse_re;
            } else {
                const T ratio = ur11 / ui11;
                inverse_im = T(-1) / (ui11 * (T(1) + ratio * ratio));
                inverse_re = -ratio * inverse_im;
            }
            lr21 = cr21 * inverse_re;
            li21 = cr21 * inverse_im;
            ur12s = ur12 * inverse_re;
            ui12s = ur12 * inverse_im;
            ur22 = cr22 - ur12 * lr21;
            ui22 = ci22 - ur12 * li21;
        } else { // the diagonal entries are real
            inverse_re = T(1) / ur11;
            inverse_im = 0;
            lr21 = cr21 * inverse_re;
            li21 = ci21 * inverse_re;
            ur12s = ur12 * inverse_re;
            ui12s = ui12 * inverse_re;
            ur22 = cr22 - ur12 * lr21 + ui12 * li21;
            ui22 = -ur12 * li21 - ui12 * lr21;
        }
        T size22 = magnitude(ur22) + magnitude(ui22);
        if (size22 < smini) {
            ur22 = smini;
            ui22 = 0;
        }
        const bool turned = exchanges_rows(pivot);
        T br1 = re[turned], bi1 = im[turned];
        T br2 = re[!turned] - lr21 * br1 + li21 * bi1;
        T bi2 = im[!turned] - li21 * br1 - lr21 * bi1;
        guard(larger((magnitude(br1) + magnitude(bi1)) * (size22 * (magnitude(inverse_re) + magnitude(inverse_im))),
                     magnitude(br2) + magnitude(bi2)),
              size22, true);
        br1 *= scale;
        bi1 *= scale;
        br2 *= scale;
        bi2 *= scale;
        T xr2, xi2;
        divide(br2, bi2, ur22, ui22, xr2, xi2);
        const T xr1 = inverse_re * br1 - inverse_im * bi1 - ur12s * xr2 + ui12s * xi2;
        const T xi1 = inverse_im * br1 + inverse_re * bi1 - ui12s * xr2 - ur12s * xi2;
        const bool crossed = exchanges_unknowns(pivot);
        re[crossed] = xr1;
        im[crossed] = xi1;
        re[!crossed] = xr2;
        im[!crossed] = xi2;
        norm = larger(magnitude(xr1) + magnitude(xi1), magnitude(xr2) + magnitude(xi2));
    }
};

template <class T>
struct BackSubstitution {
    Columns<T> t; // quasi-triangular
    int n;
    T *norms; // of the columns above the diagonal
    T *re, *im;
    T small, big;
    T wr = 0, wi = 0, smini = 0; // the eigenvalue, and the smallest pivot for it

    BackSubstitution(const Columns<T> &form, int side, T *norms_, T *re_, T *im_)
        : t(form), n(side), norms(norms_ - 1), re(re_ - 1), im(im_ - 1), small(small_number<T>(side)),
          big(EigenLimits<T>::one_minus_eps / small) {
        for (int j = 1; j <= n; ++j) {
            norms[j] = 0;
            for (int i = 1; i < j; ++i) norms[j] += magnitude(t(i, j));
        }
    }

    // Do rows j - 1 and j hold a block?
    bool is_block(int j) const { return j > 1 && j <= n && magnitude(t(j, j - 1)) > EigenLimits<T>::safmin; }
    static bool is_scaled(T scale) { return magnitude(scale - T(1)) > EigenLimits<T>::safmin; }

    // The eigenvalue of row k, or of the pair of rows k and other.
    void take_value(int k, int other) {
        wr = t(k, k);
        wi = k == other ? T(0) : square_root(magnitude(t(k, other))) * square_root(magnitude(t(other, k)));
        const T relative = EigenLimits<T>::eps * (magnitude(wr) + magnitude(wi));
        const T smin = relative > small ? relative : small;
        smini = smin > EigenLimits<T>::solve_min ? smin : EigenLimits<T>::solve_min;
    }

    void scale_entries(int from, int to, T factor, bool complex) {
        for (int i = from; i <= to; ++i) re[i] *= factor;
        if (complex)
            for (int i = from; i <= to; ++i) im[i] *= factor;
    }

    // The block of rows a .. b against its right-hand side; `turned` solves with its transpose.
    Solved solve(SmallSolve<T> &x, int a, int b, bool complex, bool turned) const {
        const T shift = turned ? -wi : wi;
        for (int k = 0; k <= b - a; ++k) {
            x.re[k] = re[a + k];
            x.im[k] = complex ? im[a + k] : T(0);
        }
        if (a == b) {
            x.one(t(a, a), wr, shift, complex, smini);
            return Solved::yes;
        }
        const T m[4] = {t(a, a), turned ? t(a, b) : t(b, a), turned ? t(b, a) : t(a, b), t(b, b)};
        return x.two(m, wr, shift, complex, smini);
    }
    void store(const SmallSolve<T> &x, int a, int b, bool complex) {
        for (int k = 0; k <= b - a; ++k) {
            re[a + k] = x.re[k];
            if (complex) im[a + k] = x.im[k];
        }
    }

    // Column `to` of q becomes the combination of columns from .. last by x, plus x[to] times itself.
    void combine(const Columns<T> &q, const T *x, int from, int last, int to) const {
        for (int r = 1; r <= n; ++r) {
            T sum = 0;
            for (int i = from; i <= last; ++i) sum += q(r, i) * x[i];
            q(r, to) = from <= last ? sum + x[to] * q(r, to) : x[to] * q(r, to);
        }
    }
    // The greatest entry of columns first .. last, by the sum of the magnitudes of a row.
    T greatest(const Columns<T> &q, int first, int last) const {
        T found = 0;
        for (int r = 1; r <= n; ++r) {
            T size = magnitude(q(r, first));
            if (last != first) size += magnitude(q(r, last));
            if (size > found) found = size;
        }
        return found;
    }

    // T x = w x, from the last eigenvalue up; q is Q on entry and receives the vectors.
    Solved right(const Columns<T> &q) {
        for (int k = n; k >= 1;) {
            const bool complex = is_block(k);
            const int first = complex ? k - 1 : k;
            take_value(k, first);
            if (complex) {
                if (magnitude(t(first, k)) <= magnitude(t(k, first))) {
                    re[first] = -wi / t(k, first);
                    im[k] = 1;
                } else {
                    re[first] = 1;
                    im[k] = wi / t(first, k);
                }
                re[k] = 0;
                im[first] = 0;
                for (int i = 1; i < first; ++i) {
                    re[i] = -re[first] * t(i, first);
                    im[i] = -im[k] * t(i, k);
                }
            } else {
                re[k] = 1;
                for (int i = 1; i < k; ++i) re[i] = -t(i, k);
            }
            for (int b = first - 1; b >= 1;) {
                const int a = is_block(b) ? b - 1 : b;
                SmallSolve<T> x;
                if (const Solved solved = solve(x, a, b, complex, false); solved != Solved::yes) return solved;
                if (x.norm > T(1) && SmallSolve<T>::larger(norms[a], norms[b]) > big / x.norm) {
                    for (int i = 0; i <= b - a; ++i) {
                        x.re[i] /= x.norm;
                        x.im[i] /= x.norm;
                    }
                    x.scale /= x.norm;
                }
                if (is_scaled(x.scale)) scale_entries(1, k, x.scale, complex);
                store(x, a, b, complex);
                for (int j = a; j <= b; ++j)
                    for (int i = 1; i < a; ++i) {
                        re[i] -= re[j] * t(i, j);
                        if (complex) im[i] -= im[j] * t(i, j);
                    }
                b = a - 1;
            }
            if (complex) {
                combine(q, re, 1, first - 1, first);
                combine(q, im, 1, first - 1, k);
                const T factor = T(1) / greatest(q, first, k);
                for (int r = 1; r <= n; ++r) {
                    q(r, first) *= factor;
                    q(r, k) *= factor;
                }
            } else if (k > 1) { // the first vector drops its factor
                combine(q, re, 1, k - 1, k);
            }
            k = first - 1;
        }
        return Solved::yes;
    }

    // yt T = w yt, from the first eigenvalue down.
    Solved left(const Columns<T> &q) {
        for (int k = 1; k <= n;) {
            const bool complex = is_block(k + 1);
            const int last = complex ? k + 1 : k;
            take_value(k, last);
            if (complex) {
                if (magnitude(t(last, k)) <= magnitude(t(k, last))) {
                    re[k] = wi / t(k, last);
                    im[last] = 1;
                } else {
                    re[k] = 1;
                    im[last] = -wi / t(last, k);
                }
                re[last] = 0;
                im[k] = 0;
                for (int i = last + 1; i <= n; ++i) {
                    re[i] = -re[k] * t(k, i);
                    im[i] = -im[last] * t(last, i);
                }
            } else {
                re[k] = 1;
                for (int i = k + 1; i <= n; ++i) re[i] = -t(k, i);
            }
            T greatest_entry = 1, critical = big;
            for (int a = last + 1; a <= n;) {
                const int b = is_block(a + 1) ? a + 1 : a;
                if (SmallSolve<T>::larger(norms[a], norms[b]) > critical) {
                    scale_entries(k, n, T(1) / greatest_entry, complex);
                    greatest_entry = 1;
                    critical = big;
                }
                for (int j = a; j <= b; ++j) {
                    reduce(re, last + 1, a - 1, j);
                    if (complex) reduce(im, last + 1, a - 1, j);
                }
                SmallSolve<T> x;
                if (const Solved solved = solve(x, a, b, complex, true); solved != Solved::yes) return solved;
                if (is_scaled(x.scale)) scale_entries(k, n, x.scale, complex);
                store(x, a, b, complex);
                for (int i = 0; i <= b - a; ++i) {
                    greatest_entry = SmallSolve<T>::larger(greatest_entry, magnitude(x.re[i]));
                    if (complex) greatest_entry = SmallSolve<T>::larger(greatest_entry, magnitude(x.im[i]));
                }
                critical = big / greatest_entry;
                a = b + 1;
            }
            if (complex) {
                combine(q, re, last + 1, n, k);
                combine(q, im, last + 1, n, last);
            } else if (k < n) {
                combine(q, re, k + 1, n, k);
            }
            if (const T size = greatest(q, k, last); size > EigenLimits<T>::safmin)
                for (int r = 1; r <= n; ++r) {
                    q(r, k) /= size;
                    if (complex) q(r, last) /= size;
                }
            k = last + 1;
        }
        return Solved::yes;
    }

    void reduce(T *x, int from, int to, int j) const {
        T sum = 0;
        for (int i = from; i <= to; ++i) sum += t(i, j) * x[i];
        x[j] -= sum;
    }
};

// Unit vectors; that of a pair is turned so that its largest entry is real, up to rounding.
template <class T>
void normalise_vectors(const Columns<T> &v, const T *imaginary, int n) {
    constexpr T safmin = EigenLimits<T>::safmin;
    for (int j = 1; j <= n;) {
        T squares = 0;
        for (int r = 1; r <= n; ++r) squares += v(r, j) * v(r, j);
        if (!(magnitude(imaginary[j - 1]) >= safmin) || j == n) {
            if (magnitude(squares) > safmin) {
                const T factor = T(1) / square_root(squares);
                for (int r = 1; r <= n; ++r) v(r, j) *= factor;
            }
            ++j;
            continue;
        }
        for (int r = 1; r <= n; ++r) squares += v(r, j + 1) * v(r, j + 1);
        const T factor = T(1) / square_root(squares);
        T largest = 0;
        int m = 1;
        for (int r = 1; r <= n; ++r) {
            v(r, j) *= factor;
            v(r, j + 1) *= factor;
            const T size = v(r, j) * v(r, j) + v(r, j + 1) * v(r, j + 1);
            if (size > largest) {
                largest = size;
                m = r;
            }
        }
        const T length = square_root(v(m, j) * v(m, j) + v(m, j + 1) * v(m, j + 1));
        T cs = v(m, j) / length, sn = v(m, j + 1) / length;
        if (magnitude(v(m, j)) > magnitude(v(m, j + 1)) && cs < T(0)) {
            cs = -cs;
            sn = -sn;
        }
        for (int r = 1; r <= n; ++r) {
            const T re = v(r, j), im = v(r, j + 1);
            v(r, j) = cs * re + sn * im;
            v(r, j + 1) = cs * im - sn * re;
        }
        j += 2;
    }
}

// The scratch of the families with vectors, which starts with h.
template <class T, unsigned modes>
struct VectorScratch {
    static constexpr bool both = modes == (right_mode | left_mode);
    Columns<T> h, q, second;
    T *small[3];
    VectorScratch(T *buffer, int n) : h{buffer, n}, q{next(h), n}, second{both ? next(q) : q.at, n} {
        small[0] = next(second);
        small[1] = small[0] + n;
        small[2] = small[1] + n;
    }
    static T *next(const Columns<T> &m) { return m.at + static_cast<std::ptrdiff_t>(m.n) * m.n; }
    const Columns<T> &left() const { return second; }
};

// From T in scratch.h and Q in scratch.q to the vectors: the right ones in scratch.q, the left ones in scratch.left().
template <class T, unsigned modes>
Solved eigen_vectors_of_form(const VectorScratch<T, modes> &scratch, const T *im, int n) {
    BackSubstitution<T> substitution(scratch.h, n, scratch.small[0], scratch.small[1], scratch.small[2]);
    if (scratch.both)
        for (std::ptrdiff_t e = 0; e < static_cast<std::ptrdiff_t>(n) * n; ++e) scratch.second.at[e] = scratch.q.at[e];
    Solved solved = Solved::yes;
    if ((modes & right_mode) != 0) solved = substitution.right(scratch.q);
    if ((modes & left_mode) != 0 && solved == Solved::yes) solved = substitution.left(scratch.left());
    if (solved != Solved::yes) return solved;
    if ((modes & right_mode) != 0) normalise_vectors(scratch.q, im, n);
    if ((modes & left_mode) != 0) normalise_vectors(scratch.left(), im, n);
    return Solved::yes;
}

} // namespace SMX_ISA
} // namespace smx
