// What the tests of the two eigen families share.
#pragma once

#include "eigen_model.hpp"
#ifdef SMX_TEST_LAPACK
#include <lapacke.h>
#endif

namespace eigen {

using namespace factor;

constexpr int sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 17};

// An orthogonal matrix: products of random reflections.
inline Matrix<Real> orthogonal(int n, std::mt19937 &random) {
    std::normal_distribution<double> normal;
    Matrix<Real> q = identity(n);
    for (int k = 0; k < n; ++k) {
        Matrix<Real> v(n, 1);
        Real length = 0;
        for (Real &x : v.e) {
            x = normal(random);
            length += x * x;
        }
        const Matrix<Real> vt = transposed(v), qv = q * v;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) q(i, j) -= 2 / length * qv(i, 0) * v(j, 0);
    }
    return q;
}
template <class T>
void round_to(Matrix<Real> &a) {
    for (Real &x : a.e) x = static_cast<T>(x);
}
template <class T>
std::vector<T> scratch(int n) {
    return std::vector<T>(static_cast<std::size_t>(n * (3 * n + 5)));
}
template <class T>
std::vector<T> marked(int elements) {
    return std::vector<T>(static_cast<std::size_t>(elements), mark<T>);
}

// ---- for the comparisons with the plain model

constexpr int model_sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 13};

// One call: its form, that of its results (elements may be adjacent in one and not in the other), and its objects.
struct Call {
    Form form, results;
    bool array, in_place, past_the_bound;
    int threads, count;
};
constexpr int calls_of_a_side = 30;
inline Call call(int number, Form form, int just_past_the_bound, std::mt19937 &random) {
    constexpr Form other[] = {Form::strided, Form::packed, Form::pointers, Form::list_strided, Form::list};
    Call c{form, number % 5 == 3 ? other[int(form)] : form, number % 3 != 0, number % 5 == 4, false, 1, 12};
    if (c.array) c.count = 1 + static_cast<int>(random() % 40u);
    if (number >= calls_of_a_side - 4) { // of one thread and of more, dividing the objects evenly or not
        c.array = c.past_the_bound = true;
        c.count = just_past_the_bound + 1;
        c.threads = 1 + number % 3;
    }
    return c;
}

// Objects of every kind singly; in arrays mostly the ordinary kind, the last one, so that not all end at once.
inline int kind_for(const Call &c, int kinds, std::mt19937 &random) {
    const bool any = !c.array || random() % static_cast<unsigned>(c.past_the_bound ? c.count / 3 + 1 : 8) == 0;
    return any ? static_cast<int>(random() % static_cast<unsigned>(kinds)) : kinds - 1;
}

// One element, or one and its mirror image, becomes a value that ordinary arithmetic does not meet.
template <class T>
void put_special(const Objects<T> &a, int o, std::mt19937 &random) {
    using Limits = std::numeric_limits<T>;
    const T x[] = {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(), Limits::denorm_min()};
    const int place = static_cast<int>(random() % 1024u), i = place % a.rows, j = place / a.rows % a.rows;
    a.at(o, i, j) = x[random() % std::size(x)];
    if (random() % 2) a.at(o, j, i) = a.at(o, i, j);
}

// Runs the model over the shares of a call, or over its single objects, and keeps what they end with.
struct Ends {
    std::vector<SmxStatus> of; // each object; a share stops at its first failure
    bool failed = false;
    template <class One>
    Ends(const Call &c, One one) : of(static_cast<std::size_t>(c.count), smxStsNoErr) {
        const auto note = [&](int k) { return of[k] = one(k); };
        if (c.array) in_shares(c.count, c.threads, note);
        else
            for (int k = 0; k < c.count; ++k) note(k);
        for (SmxStatus status : of) failed |= status < 0;
    }
    SmxStatus single(int k) const { return std::min<SmxStatus>(of[k], smxStsNoErr); } // a silent end is no failure
    // Of several shares that fail, any may be the one that is told.
    bool allow(SmxStatus found) const { return failed ? found < 0 && count(found) > 0 : found == smxStsNoErr; }
    int count(SmxStatus status) const { return static_cast<int>(std::count(of.begin(), of.end(), status)); }
};

} // namespace eigen
