// The eigen methods once more, plainly, object by object and in one text each: the bits that the library must give.
#pragma once

#include "reference.hpp"

namespace eigen_model {

using factor::Form, factor::Objects;

// Of two magnitudes; a not-a-number stays.
template <class T>
T larger(T a, T b) {
    return a > b || std::isnan(a) ? a : b;
}
template <class T>
T smaller(T a, T b) {
    return a < b || std::isnan(a) ? a : b;
}

// ---- symmetric matrices

// One call's rules; `z` takes the vectors, or is null for values alone. `form` is list or packed only where the
// elements of every operand are adjacent.
template <class T>
struct Symmetric {
    Form form;
    bool array;
    int n;
    const Objects<T> *z;

    static constexpr T eps = std::numeric_limits<T>::epsilon();
    using Product = double; // of the values: no rounding to float between the factors
    int o = 0;
    T *value = nullptr;
    std::vector<T> w = {};
    bool down = false;
    T downward_product = 1;

    T &W(int i, int j) { return w[static_cast<std::size_t>(i * n + j)]; }
    T &Z(int i, int j) const { return z->at(o, i, j); }

    SmxStatus operator()(const Objects<T> &src, int object, T *values) {
        o = object;
        value = values;
        w.resize(static_cast<std::size_t>(n * n));
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) W(i, j) = src.at(o, i, j);
        if (n == 2) return side_two();
        for (int i = 0; z && i < n; ++i)
            for (int j = 0; j < n; ++j) Z(i, j) = T(i == j);
        if (n == 1) {
            value[0] = W(0, 0);
            return smxStsNoErr;
        }
        reduce();
        down = std::fabs(W(n - 1, n - 1)) <= std::fabs(W(0, 0));
        downward_product = 1;
        if (!sweep()) return smxStsConvergeErr;
        const bool kept_in_sweep = down && !z;
        Product product = 1;
        for (int k = 0; k < n; ++k) {
            if (!kept_in_sweep) value[k] = W(k, k);
            product *= static_cast<Product>(W(k, k));
        }
        if (kept_in_sweep) {
            value[0] = W(0, 0);
            product = downward_product * W(0, 0);
        }
        if (z && !array) sort();
        if (std::fabs(product) <= (z && array ? Product(0x1p-23) : Product(eps))) return smxStsSingularErr;
        if (!(z && !array)) sort();
        return smxStsNoErr;
    }

    SmxStatus side_two() {
        const T a = W(0, 0), b = W(0, 1), c = W(1, 1), det = a * c - b * b;
        if (std::fabs(det) <= (!z && array && form == Form::packed ? T(0x1p-52) : eps)) return smxStsSingularErr;
        const T sum = a + c, q = a - c, t = T(2) * b, disc = std::sqrt(q * q + t * t);
        const bool negative = !(sum >= -eps);
        if (sum > eps || negative) {
            value[0] = T(0.5) * (negative ? sum - disc : sum + disc);
            value[1] = det / value[0];
        } else {
            value[0] = T(0.5) * disc;
            value[1] = T(-0.5) * disc;
        }
        if (!z) return smxStsNoErr;
        const bool up = array || q >= -eps;
        const T q2 = up ? q + disc : q - disc;
        T x = 1, y = 0;
        if (array ? q2 == T(0) : std::fabs(t) >= std::fabs(q2)) {
            if (!(std::fabs(t) <= eps)) {
                const T rho = -q2 / t;
                x = T(1) / std::sqrt(T(1) + rho * rho);
                y = rho * x;
            }
        } else {
            const T rho = -t / q2, length = std::sqrt(T(1) + rho * rho);
            x = rho / length;
            y = T(1) / length;
        }
        const bool turned = array ? !negative : negative != up;
        const T p = turned ? -y : x, r = turned ? x : y;
        Z(0, 0) = p;
        Z(0, 1) = -r;
        Z(1, 0) = r;
        Z(1, 1) = p;
        return smxStsNoErr;
    }

    void reduce() {
        // One kernel has the gates of double.
        const T gate = sizeof(T) == 4 && z && array && form == Form::list ? T(0x1p-52) : eps;
        std::vector<T> u(static_cast<std::size_t>(n));
        for (int k = 1; k <= n - 2; ++k) {
            T s = 0;
            for (int i = k; i < n; ++i) s += W(i, k - 1) * W(i, k - 1);
            if (array && s <= gate) continue;
            const T x = std::sqrt(s), a = W(k, k - 1);
            for (int i = k + 1; i < n; ++i) u[i] = W(i, k - 1);
            if ((array || z) && std::fabs(x - a) <= gate) continue;
            T h = s + s;
            u[k] = x;
            if (a > gate) {
                u[k] = a + x;
                h = (s + x * a) * T(2);
            } else if (std::fabs(a) > gate) {
                u[k] = a - x;
                h = (s - x * a) * T(2);
            }
            if (h <= gate) continue;
            h = T(2) / h;
            const auto apply = [&](auto &&element) { // to one row or column
                T sum = 0;
                for (int i = k; i < n; ++i) sum += element(i) * u[i];
                const T p = h * sum;
                for (int i = k; i < n; ++i) element(i) -= u[i] * p;
            };
            for (int j = k - 1; j < n; ++j) apply([&](int i) -> T & { return W(i, j); });
            for (int j = k - 1; j < n; ++j) apply([&](int i) -> T & { return W(j, i); });
            if (!z) continue;
            for (int i = 1; k == 1 && i < n; ++i) { // the first reflector is written, not applied
                Z(i, i) = T(1) - h * (u[i] * u[i]);
                for (int j = i + 1; j < n; ++j) Z(i, j) = Z(j, i) = -(h * u[i] * u[j]);
            }
            for (int r = 1; k > 1 && r < n; ++r) apply([&](int j) -> T & { return Z(r, j); });
        }
    }

    // Both sweeps are one text, the downward one with its indexes counted from the other end.
    int at(int i) const { return down ? n - 1 - i : i; }
    T &d(int i) { return W(at(i), at(i)); }
    T &e(int i) { return W(std::max(at(i), at(i + 1)), std::min(at(i), at(i + 1))); }

    bool sweep() {
        for (int l = 0; l < n; ++l)
            for (int iterations = 0;; ++iterations) {
                int m = l;
                for (; m < n - 1; ++m)
                    if (std::fabs(T(0.5) * e(m)) <= eps) {
                        if (down && !z) { // every split that is met counts, also in mid-block
                            value[at(m)] = d(m);
                            downward_product *= d(m);
                        }
                        break;
                    }
                if (m == l) break;
                if (iterations == 30) return false;
                step(l, m);
            }
        return true;
    }

    void step(int l, int m) {
        T g = (d(l + 1) - d(l)) / (T(2) * e(l));
        T r = std::sqrt(g * g + T(1)), s = 1, c = 1, p = 0;
        g = e(l) / (g > eps ? g + r : g - r) + (d(m) - d(l));
        for (int i = m - 1; i >= l; --i) {
            const T f = s * e(i), b = c * e(i);
            r = std::sqrt(g * g + f * f);
            if (i != m - 1) e(i + 1) = r;
            if (std::fabs(r) <= eps) {
                d(i + 1) -= p;
                e(m - 1) = 0;
                return;
            }
            const bool reciprocal = z && array;
            const T inverse = T(1) / r;
            s = reciprocal ? f * inverse : f / r;
            c = reciprocal ? g * inverse : g / r;
            for (int row = 0; z && row < n; ++row) {
                T &first = Z(row, at(i + 1)), &second = Z(row, at(i));
                const T x = first, y = second;
                first = reciprocal ? g * (x * inverse) + f * (y * inverse) : c * x + s * y;
                second = reciprocal ? g * (y * inverse) - f * (x * inverse) : c * y - s * x;
            }
            g = d(i + 1) - p;
            r = (d(i) - g) * s + T(2) * c * b;
            p = s * r;
            d(i + 1) = g + p;
            g = c * r - b;
        }
        if (std::fabs(r) > eps || (!down && l == 0)) {
            d(l) -= p;
            e(l) = g;
        }
    }

    void sort() {
        for (int i = 0; i < n - 1; ++i) {
            int best = i;
            for (int k = i + 1; k < n; ++k)
                if (value[k] > value[best]) best = k;
            if (best == i) continue;
            std::swap(value[i], value[best]);
            for (int row = 0; z && row < n; ++row) std::swap(Z(row, i), Z(row, best));
        }
    }
};

// ---- general matrices

constexpr SmxStatus silent = 1; // the call ends here and says success

template <class T>
T safe_hypot(T x, T y) {
    const T ax = std::fabs(x), ay = std::fabs(y), w = ay > ax ? ay : ax, z = ay > ax ? ax : ay;
    return z >= std::numeric_limits<T>::min() ? w * std::sqrt(z * z / (w * w) + T(1)) : w;
}

// Of (alpha, x) to (beta, scaled x); returns tau.
template <class T>
T make_reflector(T *v, int length) {
    T sum = 0;
    for (int i = 1; i < length; ++i) sum += v[i] * v[i];
    const T norm = std::sqrt(sum), alpha = v[0];
    if (norm < std::numeric_limits<T>::min()) return 0; // a not-a-number goes on, and spreads
    v[0] = alpha >= T(0) ? -safe_hypot(alpha, norm) : safe_hypot(alpha, norm);
    const T factor = T(1) / (alpha - v[0]);
    for (int i = 1; i < length; ++i) v[i] *= factor;
    return (v[0] - alpha) / v[0];
}

// The robust solve of one or two equations, after LAPACK's DLALN2: (m - (wr + i wi)) x = scale * b, m by columns.
template <class T>
struct SmallSolve {
    T re[2], im[2]; // b, then x
    T scale = 1, norm = 0;

    static constexpr T least = 2 * std::numeric_limits<T>::min(), most = T(1) / least;
    static void divide(T a, T b, T c, T d, T &re, T &im) {
        const T modulus = c * c + d * d;
        re = (a * c + b * d) / modulus;
        im = (b * c - a * d) / modulus;
    }

    void one(T m, T wr, T wi, bool complex, T smin) {
        const T smini = larger(smin, least);
        T cr = m - wr, ci = -wi;
        if (!complex) ci = 0;
        T size = std::fabs(cr) + std::fabs(ci);
        if (size < smini) {
            cr = size = smini;
            ci = 0;
        }
        const T b = std::fabs(re[0]) + (complex ? std::fabs(im[0]) : T(0));
        if (size < T(1) && b > T(1) && b > most * size) scale = T(1) / b;
        if (complex) divide(scale * re[0], scale * im[0], cr, ci, re[0], im[0]);
        else re[0] = re[0] * scale / cr;
        norm = std::fabs(re[0]) + (complex ? std::fabs(im[0]) : T(0));
    }

    SmxStatus two(const T (&m)[4], T wr, T wi, bool complex, T smin) {
        const T smini = larger(smin, least);
        const T cr[4] = {m[0] - wr, m[1], m[2], m[3] - wr}, ci[4] = {-wi, 0, 0, -wi};
        const auto size = [&](int k) { return std::fabs(cr[k]) + (complex ? std::fabs(ci[k]) : T(0)); };
        int p = 0;
        T greatest = 0;
        for (int k = 0; k < 4; ++k)
            if (size(k) > greatest) greatest = size(p = k);
        if (greatest < smini) return complex ? smxStsErr : silent;
        // The pivot table is an exclusive or: entry k under pivot p stands at p ^ k.
        const T r21 = cr[p ^ 1], r12 = cr[p ^ 2], r22 = cr[p ^ 3], i21 = ci[p ^ 1], i12 = ci[p ^ 2], i22 = ci[p ^ 3];
        if (p & 1) {
            std::swap(re[0], re[1]);
            std::swap(im[0], im[1]);
        }
        complex ? solve_complex(cr[p], ci[p], r21, i21, r12, i12, r22, i22, p == 0 || p == 3, smini)
                : solve_real(cr[p], r21, r12, r22, smini);
        if (p & 2) {
            std::swap(re[0], re[1]);
            std::swap(im[0], im[1]);
        }
        if (norm > T(1) && greatest > T(1) && norm > most / greatest) {
            const T factor = greatest / most;
            for (T *x : {&re[0], &re[1], &im[0], &im[1], &norm, &scale}) *x *= factor;
        }
        return smxStsNoErr;
    }

    void solve_real(T u11, T c21, T u12, T c22, T smini) {
        const T inverse = T(1) / u11, l21 = inverse * c21;
        T u22 = c22 - u12 * l21;
        if (std::fabs(u22) < smini) u22 = smini;
        const T b1 = re[0], b2 = re[1] - l21 * b1;
        const T bound = larger(std::fabs(b1 * (u22 * inverse)), std::fabs(b2));
        if (bound > T(1) && std::fabs(u22) < T(1) && bound >= most * std::fabs(u22)) scale = T(1) / bound;
        re[1] = b2 * scale / u22;
        re[0] = scale * b1 * inverse - re[1] * (inverse * u12);
        norm = larger(std::fabs(re[0]), std::fabs(re[1]));
    }

    void solve_complex(T u11, T v11, T c21, T d21, T u12, T v12, T c22, T d22, bool diagonal, T smini) {
        T ur = T(1) / u11, ui = 0; // the reciprocal of the pivot
        if (diagonal && std::fabs(u11) > std::fabs(v11)) {
            const T ratio = v11 / u11;
            ur = T(1) / (u11 * (T(1) + ratio * ratio));
            ui = -ratio * ur;
        } else if (diagonal) {
            const T ratio = u11 / v11;
            ui = T(-1) / (v11 * (T(1) + ratio * ratio));
            ur = -ratio * ui;
        }
        const T lr = c21 * ur, li = diagonal ? c21 * ui : d21 * ur;
        const T sr = u12 * ur, si = diagonal ? u12 * ui : v12 * ur;
        T u22 = diagonal ? c22 - u12 * lr : c22 - u12 * lr + v12 * li;
        T v22 = diagonal ? d22 - u12 * li : -u12 * li - v12 * lr;
        T size = std::fabs(u22) + std::fabs(v22);
        if (size < smini) {
            u22 = size = smini;
            v22 = 0;
        }
        T r1 = re[0], i1 = im[0], r2 = re[1] - lr * r1 + li * i1, i2 = im[1] - li * r1 - lr * i1;
        const T bound = larger((std::fabs(r1) + std::fabs(i1)) * (size * (std::fabs(ur) + std::fabs(ui))),
                               std::fabs(r2) + std::fabs(i2));
        if (bound > T(1) && size < T(1) && bound >= most * size) {
            scale = T(1) / bound;
            for (T *b : {&r1, &i1, &r2, &i2}) *b *= scale;
        }
        divide(r2, i2, u22, v22, re[1], im[1]);
        re[0] = ur * r1 - ui * i1 - sr * re[1] + si * im[1];
        im[0] = ui * r1 + ur * i1 - si * re[1] - sr * im[1];
        norm = larger(std::fabs(re[0]) + std::fabs(im[0]), std::fabs(re[1]) + std::fabs(im[1]));
    }
};

// Indexes count from 1, as in the published routines. H is the transpose of the source.
template <class T>
struct General {
    int n;
    const Objects<T> *right, *left; // both null: values alone

    static constexpr T eps = std::numeric_limits<T>::epsilon(), safmin = std::numeric_limits<T>::min();
    T *re = nullptr, *im = nullptr;
    std::vector<T> h = {}, q = {};
    T cs = 0, sn = 0; // of the last block: one case leaves them as they are

    bool vectors() const { return right || left; }
    T small() const { return static_cast<T>(n) / eps * safmin; }
    T big() const { return (T(1) - eps) / small(); }
    T &H(int i, int j) { return h[static_cast<std::size_t>((j - 1) * n + i - 1)]; }
    T &Q(int i, int j) { return q[static_cast<std::size_t>((j - 1) * n + i - 1)]; }

    SmxStatus operator()(const Objects<T> &src, int o, T *values_re, T *values_im) {
        re = values_re;
        im = values_im;
        h.resize(static_cast<std::size_t>(n * n));
        q.assign(h.size(), T(0));
        cs = sn = 0;
        for (int i = 1; i <= n; ++i)
            for (int j = 1; j <= n; ++j) H(i, j) = src.at(o, j - 1, i - 1);
        reduce();
        if (!iterate()) return smxStsConvergeErr;
        const std::vector<T> schur_vectors = q;
        std::vector<T> results[2];
        for (const bool is_left : {false, true}) {
            if (!(is_left ? left : right)) continue;
            q = schur_vectors;
            if (const SmxStatus status = is_left ? left_vectors() : right_vectors()) return status;
            normalise();
            results[is_left] = q;
        }
        for (const bool is_left : {false, true})
            for (int j = 0; (is_left ? left : right) && j < n; ++j)
                for (int r = 0; r < n; ++r) (is_left ? left : right)->at(o, r, j) = results[is_left][j * n + r];
        return smxStsNoErr;
    }

    // Of columns first to last, by the reflector whose vector starts in the given row.
    template <class M>
    void apply_left(M &&a, const std::vector<T> &v, T tau, int row, int first, int last) {
        for (int c = first; c <= last; ++c) {
            T work = 0;
            for (std::size_t t = 0; t < v.size(); ++t) work += a(row + int(t), c) * v[t];
            for (std::size_t t = 0; t < v.size(); ++t) a(row + int(t), c) -= tau * v[t] * work;
        }
    }

    void reduce() {
        std::vector<T> taus(static_cast<std::size_t>(n) + 1);
        for (int i = 1; i < n; ++i) {
            std::vector<T> v(static_cast<std::size_t>(n - i));
            for (int t = 0; t < n - i; ++t) v[t] = H(i + 1 + t, i);
            const T tau = taus[i] = make_reflector(v.data(), n - i), beta = v[0];
            v[0] = 1;
            if (std::fabs(tau) > safmin) {
                for (int r = 1; r <= n; ++r) {
                    T work = 0;
                    for (int t = 0; t < n - i; ++t) work += H(r, i + 1 + t) * v[t];
                    for (int t = 0; t < n - i; ++t) H(r, i + 1 + t) -= tau * work * v[t];
                }
                apply_left([&](int r, int c) -> T & { return H(r, c); }, v, tau, i + 1, i + 1, n);
            }
            H(i + 1, i) = beta;
            for (int t = 1; t < n - i; ++t) H(i + 1 + t, i) = v[t];
        }
        Q(1, 1) = 1;
        if (n > 1) Q(n, n) = T(1) - taus[n - 1];
        for (int c = n - 1; c >= 2; --c) { // column c of Q comes from the reflector in column c - 1 of H
            const T tau = taus[c - 1];
            std::vector<T> v(static_cast<std::size_t>(n - c + 1), T(1));
            for (int t = 1; t <= n - c; ++t) v[t] = H(c + t, c - 1);
            if (std::fabs(tau) > safmin) apply_left([&](int r, int j) -> T & { return Q(r, j); }, v, tau, c, c + 1, n);
            for (int t = 1; t <= n - c; ++t) Q(c + t, c) = v[t] * -tau;
            Q(c, c) = T(1) - tau;
        }
        for (int j = 1; j <= n - 2; ++j)
            for (int i = j + 2; i <= n; ++i) H(i, j) = 0;
    }

    bool negligible(int k, int first, int last) {
        if (!vectors()) return std::fabs(H(k, k - 1)) <= eps;
        T test = std::fabs(H(k - 1, k - 1)) + std::fabs(H(k, k));
        if (test <= safmin) {
            test = 0;
            for (int j = first; j <= last; ++j) {
                T sum = 0;
                for (int i = first; i <= std::min(j + 1, last); ++i) sum += std::fabs(H(i, j));
                test = larger(test, sum);
            }
        }
        return std::fabs(H(k, k - 1)) <= std::max(small(), eps * test); // a not-a-number in the test does not count
    }

    bool iterate() {
        int budget = 30 * n, its = 0, L = 1;
        for (int I = n; I > 0; budget -= its, I = L - 1) {
            its = 0;
            L = 1;
            while (budget >= 1) {
                int K = I;
                while (K > L && !negligible(K, L, I)) --K;
                L = K;
                if (L > 1) H(L, L - 1) = 0;
                if (L >= I - 1) break;
                double_step(L, I, its);
                if (++its >= budget) break;
            }
            if (L < I - 1) return false;
            if (L == I) {
                re[I - 1] = H(I, I);
                im[I - 1] = 0;
            } else {
                standardise(I);
            }
        }
        return true;
    }

    void double_step(int L, int I, int its) {
        T h44 = H(I, I), h33 = H(I - 1, I - 1), h43h34 = H(I, I - 1) * H(I - 1, I);
        if (its == 10 || its == 20) {
            const T s = std::fabs(H(I, I - 1)) + std::fabs(H(I - 1, I - 2));
            h33 = h44 = T(0.75) * s + H(I, I);
            h43h34 = T(-0.4375) * s * s;
        } else {
            const T half = (h33 - h44) * T(0.5), disc = half * half + h43h34;
            if (disc > T(0)) { // real roots: one of them is the shift, twice
                const T average = (h44 + h33) * T(0.5), root = std::sqrt(disc);
                const T top = (average < T(0) ? -root : root) + average;
                h33 = h44 = std::fabs(h33) - std::fabs(h44) > T(0) ? (h33 * h44 - h43h34) / top : top;
                h43h34 = 0;
            }
        }
        T v[3];
        int M = I - 2;
        for (;; --M) {
            const T h11 = H(M, M), h22 = H(M + 1, M + 1), s44 = h44 - h11, s33 = h33 - h11;
            v[0] = (s33 * s44 - h43h34) / H(M + 1, M) + H(M, M + 1);
            v[1] = h22 - h11 - s44 - s33;
            v[2] = H(M + 2, M + 1);
            const T sum = std::fabs(v[0]) + std::fabs(v[1]) + std::fabs(v[2]);
            for (T &x : v) x /= sum;
            if (M == L) break;
            if (std::fabs(H(M, M - 1)) * (std::fabs(v[2]) + std::fabs(v[1])) <=
                eps * std::fabs(v[0]) * (std::fabs(h11) + std::fabs(h22) + std::fabs(H(M - 1, M - 1))))
                break;
        }
        for (int K = M; K < I; ++K) {
            const int rows = std::min(3, I - K + 1);
            for (int t = 0; K > M && t < rows; ++t) v[t] = H(K + t, K - 1);
            const T tau = make_reflector(v, rows);
            if (K > M) {
                H(K, K - 1) = v[0];
                for (int t = 1; t < rows; ++t) H(K + t, K - 1) = 0;
            } else if (M > L) {
                H(K, K - 1) = -H(K, K - 1);
            }
            const T t2 = tau * v[1], t3 = rows == 3 ? tau * v[2] : T(0);
            const auto reflect = [&](T &x, T &y, T *w) {
                T sum = x + v[1] * y;
                if (rows == 3) sum += v[2] * *w;
                x -= sum * tau;
                y -= sum * t2;
                if (rows == 3) *w -= sum * t3;
            };
            for (int J = K; J <= (vectors() ? n : I); ++J)
                reflect(H(K, J), H(K + 1, J), rows == 3 ? &H(K + 2, J) : nullptr);
            for (int J = vectors() ? 1 : L; J <= std::min(K + 3, I); ++J)
                reflect(H(J, K), H(J, K + 1), rows == 3 ? &H(J, K + 2) : nullptr);
            for (int J = 1; vectors() && J <= n; ++J) reflect(Q(J, K), Q(J, K + 1), rows == 3 ? &Q(J, K + 2) : nullptr);
        }
    }

    void standardise(int I) {
        T &A = H(I - 1, I - 1), &B = H(I - 1, I), &C = H(I, I - 1), &D = H(I, I);
        const T a = A, b = B, c = C, d = D, temp = a - d, p = T(0.5) * temp;
        const T fb = std::fabs(b), fc = std::fabs(c);
        const bool differ = (b >= T(0)) != (c >= T(0));
        T imaginary = 0;
        const auto store = [&](T na, T nb, T nc, T nd) { A = na, B = nb, C = nc, D = nd; };
        const auto rotation = [&](T x, T y) { cs = x, sn = y; };
        if (fc <= safmin) {
            rotation(1, 0);
        } else if (fb <= safmin) {
            store(d, -c, 0, a);
            rotation(0, 1);
        } else if (std::fabs(temp) <= safmin) { // told as complex whatever the signs
            imaginary = std::sqrt(fb) * std::sqrt(fc);
            if (differ) rotation(1, 0);
        } else {
            const T bcmax = larger(fb, fc), least = smaller(fb, fc), bcmis = differ ? -least : least;
            const T scale = larger(std::fabs(p), bcmax), z = p * (p / scale) + bcmax / scale * bcmis;
            if (z >= T(4) * eps) {
                const T r = std::sqrt(scale) * std::sqrt(z), z2 = p > T(0) ? p + r : p - r;
                const T tau = safe_hypot(c, z2);
                store(d + z2, b - c, 0, d - bcmax / z2 * bcmis);
                rotation(z2 / tau, c / tau);
            } else {
                const T sigma = b + c, tau = safe_hypot(sigma, temp);
                const T co = std::sqrt((std::fabs(sigma) / tau + T(1)) * T(0.5)), quotient = -p / (tau * co);
                const T si = sigma < T(0) ? -quotient : quotient;
                const T aa = a * co + b * si, bb = b * co - a * si, cc = c * co + d * si, dd = d * co - c * si;
                const T a2 = aa * co + cc * si, b2 = bb * co + dd * si, c2 = cc * co - aa * si, d2 = dd * co - bb * si;
                const T m = T(0.5) * (a2 + d2);
                rotation(co, si);
                if (std::fabs(b2) <= safmin || std::fabs(c2) <= safmin) {
                    store(m, -c2, 0, m);
                    rotation(-si, co);
                } else if ((b2 > T(0) && c2 > T(0)) || (b2 < T(0) && c2 < T(0))) {
                    const T offset = c2 > T(0) ? p : -p;
                    const T sab = std::sqrt(std::fabs(b2)), sac = std::sqrt(std::fabs(c2));
                    const T rt = T(1) / std::sqrt(std::fabs(b2 + c2));
                    store(m + offset, b2 - c2, 0, m - offset);
                    rotation(rt * (sab * co - sac * si), rt * (sab * co + sac * si));
                } else {
                    store(m, b2, c2, m);
                    imaginary = std::sqrt(std::fabs(b2)) * std::sqrt(std::fabs(c2));
                }
            }
        }
        re[I - 2] = A;
        im[I - 2] = imaginary;
        re[I - 1] = D;
        im[I - 1] = -imaginary;
        const auto rotate = [&](T &x, T &y) {
            const T h1 = x, h2 = y;
            x = cs * h1 + sn * h2;
            y = cs * h2 - sn * h1;
        };
        for (int J = I + 1; vectors() && J <= n; ++J) rotate(H(I - 1, J), H(I, J));
        for (int r = 1; vectors() && r <= I - 2; ++r) rotate(H(r, I - 1), H(r, I));
        for (int r = 1; vectors() && r <= n; ++r) rotate(Q(r, I - 1), Q(r, I));
    }

    // ---- back substitution

    bool coupled(int j) { return j >= 2 && j <= n && std::fabs(H(j, j - 1)) > safmin; } // j - 1 and j are a block
    T column_norm(int j) {
        T sum = 0;
        for (int i = 1; i < j; ++i) sum += std::fabs(H(i, j));
        return sum;
    }

    // The value at `first`, or first and first + 1, and the vector that is being solved for.
    struct Vector {
        bool pair;
        T wr, wi, smin;
        std::vector<T> x, y; // real and imaginary parts, from 1
        void scale(T factor) {
            for (T &e : x) e *= factor;
            for (T &e : y) e *= factor;
        }
    };
    Vector start(int first, bool pair) {
        Vector v{pair, H(first, first), 0, 0, std::vector<T>(n + 2), std::vector<T>(n + 2)};
        if (pair) v.wi = std::sqrt(std::fabs(H(first + 1, first))) * std::sqrt(std::fabs(H(first, first + 1)));
        v.smin = larger(eps * (std::fabs(v.wr) + std::fabs(v.wi)), small());
        return v;
    }
    SmxStatus solve(SmallSolve<T> &s, const Vector &v, int j, bool two, bool transposed) {
        for (int t = 0; t <= two; ++t) s.re[t] = v.x[j + t], s.im[t] = v.y[j + t];
        const T wi = transposed ? -v.wi : v.wi;
        if (!two) {
            s.one(H(j, j), v.wr, wi, v.pair, v.smin);
            return smxStsNoErr;
        }
        const T below = H(j + 1, j), above = H(j, j + 1);
        return s.two({H(j, j), transposed ? above : below, transposed ? below : above, H(j + 1, j + 1)}, v.wr, wi,
                     v.pair, v.smin);
    }

    SmxStatus right_vectors() {
        for (int k = n; k >= 1; --k) {
            const bool pair = coupled(k);
            const int last = k, first = pair ? --k : k;
            Vector v = start(first, pair);
            if (!pair) {
                v.x[k] = 1;
                for (int i = 1; i < k; ++i) v.x[i] = -H(i, k);
            } else {
                const T above = H(first, last), below = H(last, first);
                const bool tie = std::fabs(above) <= std::fabs(below);
                v.x[first] = tie ? -v.wi / below : T(1);
                v.y[last] = tie ? T(1) : v.wi / above;
                for (int i = 1; i < first; ++i) {
                    v.x[i] = -v.x[first] * H(i, first);
                    v.y[i] = -v.y[last] * H(i, last);
                }
            }
            for (int j = first - 1; j >= 1; --j) {
                const bool two = coupled(j);
                if (two) --j;
                SmallSolve<T> s{};
                if (const SmxStatus status = solve(s, v, j, two, false)) return status;
                const T norm = two ? larger(column_norm(j), column_norm(j + 1)) : column_norm(j);
                if (s.norm > T(1) && norm > big() / s.norm)
                    for (T *x : {&s.re[0], &s.re[1], &s.im[0], &s.im[1], &s.scale}) *x /= s.norm;
                if (std::fabs(s.scale - T(1)) > safmin) v.scale(s.scale);
                for (int t = 0; t <= two; ++t) {
                    v.x[j + t] = s.re[t];
                    if (pair) v.y[j + t] = s.im[t];
                    for (int i = 1; i < j; ++i) {
                        v.x[i] -= s.re[t] * H(i, j + t);
                        if (pair) v.y[i] -= s.im[t] * H(i, j + t);
                    }
                }
            }
            T greatest = 0;
            for (int r = 1; r <= n; ++r) {
                const auto transform = [&](const std::vector<T> &x, int column) {
                    T sum = 0;
                    for (int i = 1; i < first; ++i) sum += Q(r, i) * x[i];
                    if (first > 1) Q(r, column) = sum + x[column] * Q(r, column);
                    else if (pair) Q(r, column) *= x[column];
                };
                transform(v.x, first);
                if (pair) transform(v.y, last);
                if (pair) greatest = larger(greatest, std::fabs(Q(r, first)) + std::fabs(Q(r, last)));
            }
            for (int r = 1; pair && r <= n; ++r) {
                Q(r, first) *= T(1) / greatest;
                Q(r, last) *= T(1) / greatest;
            }
        }
        return smxStsNoErr;
    }

    SmxStatus left_vectors() {
        for (int k = 1; k <= n; ++k) {
            const bool pair = coupled(k + 1);
            const int first = k, last = pair ? ++k : k;
            Vector v = start(first, pair);
            if (!pair) {
                v.x[k] = 1;
                for (int i = k + 1; i <= n; ++i) v.x[i] = -H(k, i);
            } else {
                const T above = H(first, last), below = H(last, first);
                const bool tie = std::fabs(below) <= std::fabs(above);
                v.x[first] = tie ? v.wi / above : T(1);
                v.y[last] = tie ? T(1) : -v.wi / below;
                for (int i = last + 1; i <= n; ++i) {
                    v.x[i] = -v.x[first] * H(first, i);
                    v.y[i] = -v.y[last] * H(last, i);
                }
            }
            T vmax = 1, vcrit = big();
            for (int j = last + 1; j <= n; ++j) {
                const bool two = coupled(j + 1);
                if ((two ? larger(column_norm(j), column_norm(j + 1)) : column_norm(j)) > vcrit) {
                    v.scale(T(1) / vmax);
                    vmax = 1;
                    vcrit = big();
                }
                for (int t = 0; t <= two; ++t)
                    for (std::vector<T> *x : {&v.x, &v.y}) {
                        T sum = 0;
                        for (int i = last + 1; i < j; ++i) sum += H(i, j + t) * (*x)[i];
                        (*x)[j + t] -= sum;
                    }
                SmallSolve<T> s{};
                if (const SmxStatus status = solve(s, v, j, two, true)) return status;
                if (std::fabs(s.scale - T(1)) > safmin) v.scale(s.scale);
                for (int t = 0; t <= two; ++t) {
                    v.x[j + t] = s.re[t];
                    if (pair) v.y[j + t] = s.im[t];
                    vmax = larger(larger(std::fabs(v.x[j + t]), std::fabs(v.y[j + t])), vmax);
                }
                vcrit = big() / vmax;
                j += two;
            }
            T greatest = 0;
            for (int r = 1; r <= n; ++r) {
                const auto transform = [&](const std::vector<T> &x, int column) {
                    if (last == n && !pair) return;
                    T sum = 0;
                    for (int i = last + 1; i <= n; ++i) sum += Q(r, i) * x[i];
                    Q(r, column) = last < n ? x[column] * Q(r, column) + sum : x[column] * Q(r, column);
                };
                transform(v.x, first);
                if (pair) transform(v.y, last);
                greatest = larger(greatest, std::fabs(Q(r, first)) + (pair ? std::fabs(Q(r, last)) : T(0)));
            }
            for (int r = 1; greatest > safmin && r <= n; ++r)
                for (int c = first; c <= last; ++c) Q(r, c) /= greatest;
        }
        return smxStsNoErr;
    }

    void normalise() {
        for (int j = 1; j <= n; ++j) {
            const bool pair = std::fabs(im[j - 1]) >= safmin;
            T s = 0;
            for (int c = j; c <= j + pair; ++c)
                for (int r = 1; r <= n; ++r) s += Q(r, c) * Q(r, c);
            for (int c = j; (pair || std::fabs(s) > safmin) && c <= j + pair; ++c)
                for (int r = 1; r <= n; ++r) Q(r, c) *= T(1) / std::sqrt(s);
            if (!pair) continue;
            int m = 1;
            T greatest = 0;
            for (int r = 1; r <= n; ++r) {
                const T length = Q(r, j) * Q(r, j) + Q(r, j + 1) * Q(r, j + 1);
                if (length > greatest) greatest = length, m = r;
            }
            const T x = Q(m, j), y = Q(m, j + 1), length = std::sqrt(x * x + y * y);
            T co = x / length, si = y / length;
            if (std::fabs(x) > std::fabs(y) && co < T(0)) co = -co, si = -si;
            for (int r = 1; r <= n; ++r) {
                const T u = Q(r, j), v = Q(r, j + 1);
                Q(r, j) = co * u + si * v;
                Q(r, j + 1) = co * v - si * u;
            }
            ++j;
        }
    }
};

} // namespace eigen_model
