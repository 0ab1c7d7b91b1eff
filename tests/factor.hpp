// What the tests of factorizations, solves, determinants and inverses share: arrays of objects in every form of
// memory, calls of one operation in that form, kinds of matrices, and a reference in long double.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "rules.hpp"
#include "smkcore.h"
#include "smx.h"

namespace factor {

enum class Form { packed, strided, pointers, list, list_strided };
constexpr Form all_forms[] = {Form::packed, Form::strided, Form::pointers, Form::list, Form::list_strided};

template <class T>
constexpr T mark = T(-77.25); // memory that nobody has written

// `count` objects; a vector is one row.
template <class T>
struct Objects {
    Form form;
    int rows, cols, count;
    int shift, stride0, stride1, stride2; // bytes
    std::vector<T> memory;
    std::vector<T *> table;

    Objects(Form form_, int rows_, int cols_, int count_) : form(form_), rows(rows_), cols(cols_), count(count_) {
        constexpr int E = sizeof(T);
        const bool spread = form == Form::strided || form == Form::list_strided;
        stride2 = spread ? 2 * E : E;
        stride1 = cols * stride2 + (spread ? E : 0);
        stride0 = form == Form::pointers ? E : rows * stride1 + (spread ? 3 * E : 0);
        shift = form == Form::pointers || form == Form::list || form == Form::list_strided ? 2 * E : 0;
        const int elements = form == Form::pointers ? rows * cols * count : count * stride0 / E;
        memory.assign(static_cast<std::size_t>(elements) + 4, mark<T>);
        if (form == Form::pointers)
            for (int e = 0; e < rows * cols; ++e) table.push_back(memory.data() + e * count);
        else
            for (int n = 0; n < count; ++n) table.push_back(memory.data() + (count - 1 - n) * stride0 / E);
    }
    Objects(const Objects &) = delete;
    Objects(Objects &&) = delete;

    T *start(int n) const {
        if (form == Form::list || form == Form::list_strided) return table[n] + shift / static_cast<int>(sizeof(T));
        return const_cast<T *>(memory.data()) + n * stride0 / static_cast<int>(sizeof(T));
    }
    T &at(int n, int i, int j) const {
        constexpr int E = sizeof(T);
        if (form == Form::pointers) return table[i * cols + j][(shift + n * stride0) / E];
        return start(n)[(i * stride1 + j * stride2) / E];
    }
    template <class Source>
    void set(int n, const Source &a) {
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < cols; ++j) at(n, i, j) = static_cast<T>(a(i, j));
    }

    auto strides() const { return std::tuple(stride1, stride2); }
};
template <class T>
struct Vectors : Objects<T> {
    Vectors(Form form, int len, int count) : Objects<T>(form, 1, len, count) {}
    auto strides() const { return std::tuple(this->stride2); }
};

// How an item stands in an argument list: an operand of an array form, object n of it, one object, or a plain value.
template <class O>
struct Array {
    const O &o;
    auto strided() const { return std::tuple_cat(std::tuple(o.start(0), o.stride0), o.strides()); }
    auto pointers() const { return std::tuple(o.table.data(), o.shift, o.stride0); }
    auto listed() const { return std::tuple_cat(std::tuple(o.table.data(), o.shift), o.strides()); }
};
template <class O>
struct One {
    const O &o;
    int n = 0;
    auto strided() const { return std::tuple_cat(std::tuple(o.start(n)), o.strides()); }
    auto pointers() const { return std::tuple(o.table.data(), o.shift + n * o.stride0); }
    auto listed() const { return strided(); }
};
template <class X>
struct Just {
    X x;
    auto strided() const { return std::tuple(x); }
    auto pointers() const { return std::tuple(x); }
    auto listed() const { return std::tuple(x); }
};
template <class O>
Array(const O &) -> Array<O>;
template <class O>
One(const O &, int = 0) -> One<O>;
template <class X>
Just(X) -> Just<X>;

template <class T, class F, class D>
auto of_type(F float_function, D double_function) {
    if constexpr (std::is_same_v<T, float>) return float_function;
    else return double_function;
}

// op_code<T>(form, items...): the member for that form. A single form has no list member: a list's objects are strided.
#define SINGLE_CALL(op, code)                                                                           \
    template <class T, class... Items>                                                                  \
    SmxStatus op##_##code(::factor::Form form, const Items &...items) {                                 \
        if (form == ::factor::Form::pointers)                                                           \
            return std::apply(::factor::of_type<T>(smx##op##_##code##_32f_P, smx##op##_##code##_64f_P), \
                              std::tuple_cat(items.pointers()...));                                     \
        return std::apply(::factor::of_type<T>(smx##op##_##code##_32f, smx##op##_##code##_64f),         \
                          std::tuple_cat(items.strided()...));                                          \
    }
#define ARRAY_CALL(op, code)                                                                            \
    template <class T, class... Items>                                                                  \
    SmxStatus op##_##code(::factor::Form form, const Items &...items) {                                 \
        if (form == ::factor::Form::pointers)                                                           \
            return std::apply(::factor::of_type<T>(smx##op##_##code##_32f_P, smx##op##_##code##_64f_P), \
                              std::tuple_cat(items.pointers()...));                                     \
        if (form == ::factor::Form::list || form == ::factor::Form::list_strided)                       \
            return std::apply(::factor::of_type<T>(smx##op##_##code##_32f_L, smx##op##_##code##_64f_L), \
                              std::tuple_cat(items.listed()...));                                       \
        return std::apply(::factor::of_type<T>(smx##op##_##code##_32f, smx##op##_##code##_64f),         \
                          std::tuple_cat(items.strided()...));                                          \
    }

struct Threads {
    int kept = threads_omp_of_n_smk;
    explicit Threads(int n) { threads_omp_of_n_smk = n; }
    ~Threads() { threads_omp_of_n_smk = kept; }
};

// Runs one(n) as a call over `count` objects on so many threads does: every share stops at its first failure.
// Returns the first failure, or 0.
template <class One>
SmxStatus in_shares(int count, int threads, One one) {
    SmxStatus status = smxStsNoErr;
    if (threads > count) threads = 1;
    for (int t = 0, n = 0; t < threads; ++t) {
        const int last = n + count / threads + (t < count % threads);
        for (SmxStatus now = smxStsNoErr; n < last; ++n)
            if (now == smxStsNoErr && (now = one(n)) != smxStsNoErr && status == smxStsNoErr) status = now;
    }
    return status;
}

template <class T>
bool same_bytes(const std::vector<T> &a, const std::vector<T> &b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

// ---- matrices

using Real = long double;
template <class T>
struct Matrix {
    int rows, cols;
    std::vector<T> e;
    Matrix(int rows_, int cols_) : rows(rows_), cols(cols_), e(static_cast<std::size_t>(rows_ * cols_)) {}
    T &operator()(int i, int j) { return e[static_cast<std::size_t>(i * cols + j)]; }
    const T &operator()(int i, int j) const { return e[static_cast<std::size_t>(i * cols + j)]; }
};

template <class M>
Matrix<Real> operator*(const Matrix<Real> &a, const M &b) {
    Matrix<Real> c(a.rows, b.cols);
    for (int i = 0; i < a.rows; ++i)
        for (int j = 0; j < b.cols; ++j)
            for (int k = 0; k < a.cols; ++k) c(i, j) += a(i, k) * static_cast<Real>(b(k, j));
    return c;
}
inline Matrix<Real> transposed(const Matrix<Real> &a) {
    Matrix<Real> t(a.cols, a.rows);
    for (int i = 0; i < a.rows; ++i)
        for (int j = 0; j < a.cols; ++j) t(j, i) = a(i, j);
    return t;
}
inline Matrix<Real> minus(Matrix<Real> a, const Matrix<Real> &b) {
    for (std::size_t i = 0; i < a.e.size(); ++i) a.e[i] -= b.e[i];
    return a;
}
inline Matrix<Real> identity(int n) {
    Matrix<Real> a(n, n);
    for (int i = 0; i < n; ++i) a(i, i) = 1;
    return a;
}
// The greatest row sum of magnitudes.
inline Real norm(const Matrix<Real> &a) {
    Real greatest = 0;
    for (int i = 0; i < a.rows; ++i) {
        Real sum = 0;
        for (int j = 0; j < a.cols; ++j) sum += std::fabs(a(i, j));
        if (!(sum <= greatest)) greatest = sum;
    }
    return greatest;
}
// Inverse and determinant by elimination with pivoting.
inline Real invert(Matrix<Real> a, Matrix<Real> &inverse) {
    const int n = a.rows;
    Real det = 1;
    inverse = identity(n);
    for (int k = 0; k < n; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(a(i, k)) > std::fabs(a(best, k))) best = i;
        for (int j = 0; j < n; ++j) {
            std::swap(a(k, j), a(best, j));
            std::swap(inverse(k, j), inverse(best, j));
        }
        const Real pivot = a(k, k);
        det *= best == k ? pivot : -pivot;
        for (int j = 0; j < n; ++j) {
            a(k, j) /= pivot;
            inverse(k, j) /= pivot;
        }
        for (int i = 0; i < n; ++i)
            if (const Real f = a(i, k); i != k)
                for (int j = 0; j < n; ++j) {
                    a(i, j) -= f * a(k, j);
                    inverse(i, j) -= f * inverse(k, j);
                }
    }
    return det;
}

enum class Kind { diagonal, upper, lower, random, graded, near_singular, near_overflow };
constexpr Kind all_kinds[] = {Kind::diagonal, Kind::upper,         Kind::lower,        Kind::random,
                              Kind::graded,   Kind::near_singular, Kind::near_overflow};

// Elements are representable in T. `power` is the binary exponent of the near-overflow kind.
template <class T>
Matrix<Real> matrix(Kind kind, int rows, int cols, std::mt19937 &random, int power) {
    std::uniform_real_distribution<double> between(-1, 1);
    Matrix<Real> a(rows, cols);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < cols; ++j) {
            Real x = between(random) + (i == j ? 3 : 0);
            if ((kind == Kind::diagonal && i != j) || (kind == Kind::upper && i > j) || (kind == Kind::lower && i < j))
                x = 0;
            if (kind == Kind::graded) x = std::ldexp(x, -i - j);
            if (kind == Kind::near_overflow) x = std::ldexp(x, power);
            a(i, j) = x;
        }
    if (kind == Kind::near_singular && cols > 1)
        for (int i = 0; i < rows; ++i) a(i, cols - 1) = a(i, 0) + a(i, cols - 1) * (sizeof(T) == 4 ? 0x1p-8 : 0x1p-25);
    for (Real &x : a.e) x = static_cast<T>(x);
    return a;
}

template <class O>
Matrix<Real> read(const O &objects, int n) {
    Matrix<Real> a(objects.rows, objects.cols);
    for (int i = 0; i < a.rows; ++i)
        for (int j = 0; j < a.cols; ++j) a(i, j) = static_cast<Real>(objects.at(n, i, j));
    return a;
}

template <class T>
constexpr Real eps = std::numeric_limits<T>::epsilon();

using BothTypes = ::testing::Types<float, double>;

// ---- calls of any form, count and number of threads against a model of one object

inline int below(int n, std::mt19937 &random) {
    return static_cast<int>(random() % static_cast<unsigned>(n));
}

// The form of the same layout whose elements of a row are adjacent, or not.
inline Form beside(Form form, bool spread) {
    if (form == Form::pointers) return form;
    if (form == Form::list || form == Form::list_strided) return spread ? Form::list_strided : Form::list;
    return spread ? Form::strided : Form::packed;
}

// A call's forms and extent, dealt out at random. The elements of a row may be adjacent in one operand and not in
// another: the call takes the path for adjacent ones if all are.
template <class T>
struct Deal {
    Form form[3] = {}; // of each operand
    bool adjacent = true, array = true;
    int count, threads, shares; // `shares` is how many parts the call makes of its objects

    // The member is that of `operation` ("QRDecomp_ma") for the form; its first operand is h by w. One call in `rarity`
    // is big enough for the threads.
    Deal(const std::string &operation, Form first, int operands, int h, int w, int rarity, std::mt19937 &random) {
        const bool mixed = random() % 4 == 0, is_list = beside(first, true) == Form::list_strided;
        for (int i = 0; i < operands; ++i) {
            form[i] = mixed ? beside(first, random() % 2 == 0) : first;
            adjacent = adjacent && form[i] != Form::strided && form[i] != Form::list_strided;
        }
        const char *const suffix = first == Form::pointers ? "_P" : is_list ? "_L" : "";
        const auto &member = members::find("smx" + operation + (sizeof(T) == 4 ? "_32f" : "_64f") + suffix);
        const rules::Bound &rule = *rules::bound(member);
        const int *const bounds = first == Form::pointers ? rule.pointers
                                  : is_list               ? (adjacent ? rule.list : rule.list_s2)
                                                          : (adjacent ? rule.strided : rule.s2);
        const auto divided = [&] { return rule.work(h, w, 0, count) > bounds[sizeof(T) / 8]; };
        count = 1;
        if (below(rarity, random) == 0)
            while (!divided()) ++count;
        count += below(40, random);
        if (random() % 4 == 0) count = 1;
        array = count > 1 || random() % 2 == 0;
        threads = 1 + below(3, random);
        shares = array && divided() ? threads : 1;
    }
    // What a call is to return and leave in `memory`, by a model that runs here object by object.
    template <class Model>
    std::pair<SmxStatus, std::vector<T>> expected(std::vector<T> &memory, Model model) const {
        const std::vector<T> before = memory;
        const SmxStatus status = in_shares(count, shares, model);
        std::pair<SmxStatus, std::vector<T>> result(status, memory);
        std::copy(before.begin(), before.end(), memory.begin());
        return result;
    }
};
template <class T>
std::ostream &operator<<(std::ostream &out, const Deal<T> &d) {
    return out << "forms " << int(d.form[0]) << int(d.form[1]) << int(d.form[2]) << " array " << d.array << " count "
               << d.count << " threads " << d.threads << " shares " << d.shares;
}

enum class Sample { random, ties, graded, edges, specials };
constexpr Sample all_samples[] = {Sample::random, Sample::ties, Sample::graded, Sample::edges, Sample::specials};

// Ties are small integers, often singular. Edges are permutations in which one element lies about a bound.
template <class T>
void put_sample(const Objects<T> &a, int o, Sample sample, T bound, std::mt19937 &random) {
    using Limits = std::numeric_limits<T>;
    std::uniform_real_distribution<double> uniform(-1, 1);
    const auto any = [&](int n) { return below(n, random); };
    const T above = std::nextafter(bound, T(1)), below = std::nextafter(bound, T(0));
    const T edge[] = {below, bound, above, -below, -bound, -above, T(0), Limits::quiet_NaN()};
    const T special[] = {Limits::quiet_NaN(), Limits::infinity(), Limits::max() / 4, Limits::denorm_min(), -T(0)};
    const int turn = any(a.rows), step = any(8), column = any(a.cols);
    for (int i = 0; i < a.rows; ++i)
        for (int j = 0; j < a.cols; ++j) {
            double x = uniform(random);
            if (sample == Sample::ties) x = any(5) - 2;
            if (sample == Sample::graded) x = std::ldexp(x, -(i + j) * step);
            if (sample == Sample::edges) x = i == (j + turn) % a.rows ? (any(2) ? 1 : -1) : 0;
            a.at(o, i, j) = static_cast<T>(x);
        }
    if (sample == Sample::edges) a.at(o, (column + turn) % a.rows, column) = edge[any(8)];
    if (sample == Sample::specials) a.at(o, any(a.rows), any(a.cols)) = special[any(5)];
}

// A buffer of which a call is to use `used` elements at most, and where it needs none, nothing.
template <class T>
struct Buffer {
    std::ptrdiff_t used;
    std::vector<T> memory;
    explicit Buffer(int elements) : used(elements), memory(static_cast<std::size_t>(elements) + 8, mark<T>) {}
    T *data() { return memory.data(); }
    bool untouched(bool all) const {
        return std::all_of(memory.begin() + (all ? 0 : used), memory.end(), [](T x) { return x == mark<T>; });
    }
};

} // namespace factor
