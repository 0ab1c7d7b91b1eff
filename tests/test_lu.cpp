// LU decomposition and back substitution: bit by bit against a plain reference of both paths, what stands in the
// results after each kind of failure included; and residuals.
#include "reference.hpp"

namespace {

using namespace reference;

SINGLE_CALL(LUDecomp, m)
ARRAY_CALL(LUDecomp, ma)
SINGLE_CALL(LUBackSubst, mv)
ARRAY_CALL(LUBackSubst, mva)
ARRAY_CALL(LUBackSubst, mava)
using factor::Array, factor::Just, factor::One, factor::Vectors;

template <class T>
struct LU : ::testing::Test {};
TYPED_TEST_SUITE(LU, factor::BothTypes);

constexpr int sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 13};
bool written_out(int n) {
    return n >= 3 && n <= 6;
}

// Factors object `o` in the documented order; `general` takes the general path for every side.
template <class T>
SmxStatus decompose(const Objects<T> &src, const Objects<T> &dst, int *r, int n, int o, bool general) {
    const bool written = written_out(n) && !general, whole = written && src.form == Form::pointers;
    const T tolerance = written ? std::numeric_limits<T>::min() * 2 : std::numeric_limits<T>::epsilon();
    const auto fails = [&](T x) { return written ? !(std::fabs(x) >= tolerance) : !(std::fabs(x) > tolerance); };
    std::vector<T> copy(static_cast<std::size_t>(n * n));
    const auto w = [&](int i, int j) -> T & {
        return written ? copy[static_cast<std::size_t>(i * n + j)] : dst.at(o, i, j);
    };
    const auto store = [&](int i) {
        for (int j = 0; written && j < n; ++j) dst.at(o, i, j) = w(i, j);
    };
    for (int i = 0; i < n; ++i) r[i] = i;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) w(i, j) = src.at(o, i, j);
    for (int k = 0; k < n - 1; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(w(r[i], k)) > std::fabs(w(r[best], k))) best = i;
        if (!written && fails(w(r[best], k))) return smxStsSingularErr;
        std::swap(r[k], r[best]);
        const T pivot = w(r[k], k);
        if (written && fails(pivot)) return smxStsSingularErr;
        if (!whole) store(r[k]);
        const T reciprocal = T(1) / pivot;
        for (int i = k + 1; i < n; ++i)
            w(r[i], k) = written && k == n - 2 ? w(r[i], k) / pivot : w(r[i], k) * reciprocal;
        for (int i = k + 1; i < n; ++i)
            for (int j = k + 1; j < n; ++j) {
                const T product = w(r[i], k) * w(r[k], j);
                w(r[i], j) = w(r[i], j) - product;
            }
    }
    // The written-out paths test this physical element, not the last pivot.
    if (fails(written ? w(n - 1, n - 1) : w(r[n - 1], n - 1))) return smxStsSingularErr;
    for (int i = 0; i < n; ++i)
        if (whole || i == n - 1) store(whole ? i : r[i]);
    return smxStsNoErr;
}

// The kernel of the general path, which takes every side.
template <class T>
SmxStatus general_kernel(const Objects<T> &src, int *r, const Objects<T> &dst, int n) {
    const auto call = [](const char *suffix, auto... arguments) {
        const std::string name = std::string("ownsmxLUDecomp_m_") + (sizeof(T) == 4 ? "32f" : "64f") + suffix;
        return reinterpret_cast<SmxStatus (*)(decltype(arguments)...)>(members::symbol(name))(arguments...);
    };
    if (src.form == Form::pointers)
        return call("_P_com", src.table.data(), src.shift, r, dst.table.data(), dst.shift, n);
    if (src.form == Form::packed || src.form == Form::list)
        return call("_S_com", src.start(0), src.stride1, r, dst.start(0), dst.stride1, n);
    return call("_S2_com", src.start(0), src.stride1, src.stride2, r, dst.start(0), dst.stride1, dst.stride2, n);
}

template <class T>
void solve(const Objects<T> &f, int fo, const int *r, const Vectors<T> &b, const Vectors<T> &x, int n, int o,
           bool reciprocals) {
    const auto F = [&](int i, int j) { return f.at(fo, r[i], j); };
    std::vector<T> y(static_cast<std::size_t>(n));
    const auto at = [&](int i) -> T & { return written_out(n) ? y[static_cast<std::size_t>(i)] : x.at(o, 0, i); };
    for (int i = 0; i < n; ++i) {
        T value = b.at(o, 0, r[i]), sum = T(0);
        for (int j = written_out(n) ? 1 : 0; j < i; ++j) {
            const T product = F(i, j) * at(j);
            written_out(n) ? value = value - product : sum = sum + product;
        }
        if (written_out(n) && i > 0) {
            const T product = F(i, 0) * at(0);
            value = value - product;
        }
        at(i) = written_out(n) || i == 0 ? value : value - sum;
    }
    for (int i = n - 1; i >= 0; --i) {
        T value = at(i), sum = T(0);
        for (int s = i + 1; s < n; ++s) {
            const int j = written_out(n) ? n + i - s : s;
            const T product = F(i, j) * at(j);
            written_out(n) ? value = value - product : sum = sum + product;
        }
        if (!written_out(n) && i < n - 1) value = value - sum;
        at(i) = reciprocals && written_out(n) ? value * (T(1) / F(i, i)) : value / F(i, i);
    }
    for (int i = 0; written_out(n) && i < n; ++i) x.at(o, 0, i) = at(i);
}

enum class Values { ordinary, ties, edges };

// Ties are small integers, often singular; edges are tiny pivots about the tolerances, permutations, not-a-numbers.
template <class T>
void fill_matrix(Objects<T> &a, int o, int n, Values values, std::mt19937 &random) {
    std::uniform_real_distribution<double> uniform(-1, 1);
    const int turn = static_cast<int>(random() % 8u);
    const T tiny[] = {std::numeric_limits<T>::epsilon(),
                      std::numeric_limits<T>::min() * 2,
                      std::nextafter(std::numeric_limits<T>::min() * 2, T(0)),
                      std::numeric_limits<T>::quiet_NaN(),
                      std::nextafter(std::numeric_limits<T>::epsilon(), T(1)),
                      T(0)};
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            T value = static_cast<T>(uniform(random));
            if (values == Values::ties) value = static_cast<T>(static_cast<int>(random() % 3) - 1);
            if (values == Values::edges) {
                value = (i + turn) % n == j ? T(1) : T(0);
                if (random() % static_cast<unsigned>(2 * n * n) == 0) value = tiny[random() % std::size(tiny)];
            }
            a.at(o, i, j) = value;
        }
}

} // namespace

TYPED_TEST(LU, FactorsHaveTheBitsOfTheReferenceAlsoWhereTheyStop) {
    using T = TypeParam;
    std::mt19937 random(4);
    int failures = 0, successes = 0;
    for (const Form form : all_forms)
        for (const int n : sides)
            for (const Values values : {Values::ordinary, Values::ties, Values::edges})
                for (int round = 0; round < 100; ++round) {
                    const bool in_place = round % 3 == 2;
                    const int count = 1 + round % 20;
                    Objects<T> src(form, n, n, count), apart(form, n, n, count);
                    for (int o = 0; o < count; ++o)
                        fill_matrix(src, o, n, o % 4 == 3 ? values : Values::ordinary, random);
                    if (count == 1) fill_matrix(src, 0, n, values, random);
                    Objects<T> &dst = in_place ? src : apart;
                    // Listed twice, the last factors stay; in place, they are those of the first ones.
                    if (is_list(form) && round % 4 == 3) dst.table[1] = dst.table[0];
                    const bool general = count == 1 && (round == 20 || round == 40);
                    const std::vector<T> before = dst.memory;
                    std::vector<int> pivots(static_cast<std::size_t>(n * count) + 2, -9), expected_pivots = pivots;
                    const SmxStatus expected = factor::in_shares(count, 1, [&](int o) {
                        return decompose(src, dst, expected_pivots.data() + 1 + o * n, n, o, general);
                    });
                    const std::vector<T> expected_memory = dst.memory;
                    dst.memory.assign(before.begin(), before.end());
                    SmxStatus found;
                    if (general) found = general_kernel(src, pivots.data() + 1, dst, n);
                    else if (count == 1)
                        found = LUDecomp_m<T>(form, One{src}, Just{pivots.data() + 1}, One{dst}, Just{n});
                    else
                        found =
                            LUDecomp_ma<T>(form, Array{src}, Just{pivots.data() + 1}, Array{dst}, Just{n}, Just{count});
                    SCOPED_TRACE(testing::Message() << "form " << int(form) << " side " << n << " values "
                                                    << int(values) << " count " << count << " in place " << in_place);
                    ASSERT_EQ(found, expected);
                    ASSERT_EQ(pivots, expected_pivots);
                    ASSERT_TRUE(same(dst.memory, expected_memory));
                    (found == 0 ? successes : failures) += 1;
                }
    EXPECT_GT(failures, 500);
    EXPECT_GT(successes, 500);
}

TYPED_TEST(LU, SolutionsHaveTheBitsOfTheReference) {
    using T = TypeParam;
    std::mt19937 random(5);
    for (const Form form : all_forms)
        for (const int n : sides)
            for (const bool in_place : {false, true})
                for (const int objects : {1, 3, 20, -20}) {
                    const int count = std::abs(objects);
                    Objects<T> f(form, n, n, count);
                    Vectors<T> b(form, n, count), apart(form, n, count);
                    fill(f, random, count == 3); // with zeros on the diagonal: a solve never fails
                    std::vector<int> pivots;
                    for (int o = 0; o < count; ++o) {
                        std::vector<int> rows(static_cast<std::size_t>(n));
                        for (int i = 0; i < n; ++i) rows[static_cast<std::size_t>(i)] = i;
                        std::shuffle(rows.begin(), rows.end(), random);
                        pivots.insert(pivots.end(), rows.begin(), rows.end());
                    }
                    fill(b, random, false);
                    Vectors<T> &x = in_place ? b : apart;
                    // A solution listed twice: the last one stays; in place, it is that of the first one.
                    if (objects < 0 && is_list(form)) x.table[1] = x.table[0];
                    const std::vector<T> before = x.memory;
                    for (const int shape : {0, 1, 2}) { // mv, mva, mava
                        x.memory.assign(before.begin(), before.end());
                        for (int o = 0; o < (shape == 0 ? 1 : count); ++o)
                            solve<T>(f, shape == 2 ? o : 0, pivots.data() + (shape == 2 ? o * n : 0), b, x, n, o,
                                     shape == 1);
                        const std::vector<T> expected = x.memory;
                        x.memory.assign(before.begin(), before.end());
                        const SmxStatus status =
                            shape == 0   ? LUBackSubst_mv<T>(form, One{f}, Just{pivots.data()}, One{b}, One{x}, Just{n})
                            : shape == 1 ? LUBackSubst_mva<T>(form, One{f}, Just{pivots.data()}, Array{b}, Array{x},
                                                              Just{n}, Just{count})
                                         : LUBackSubst_mava<T>(form, Array{f}, Just{pivots.data()}, Array{b}, Array{x},
                                                               Just{n}, Just{count});
                        ASSERT_EQ(status, smxStsNoErr);
                        ASSERT_TRUE(same(x.memory, expected))
                            << "form " << int(form) << " side " << n << " shape " << shape << " count " << count
                            << " in place " << in_place;
                    }
                }
}

TYPED_TEST(LU, ResidualsAreSmall) {
    using T = TypeParam;
    using factor::eps, factor::Matrix, factor::Real;
    std::mt19937 random(6);
    Real worst_factor = 0, worst_solution = 0;
    for (const Form form : all_forms)
        for (const int n : sides)
            for (const factor::Kind kind : factor::all_kinds) {
                if (kind == factor::Kind::graded && sizeof(T) == 4 && n > 6) continue; // sinks below the tolerance
                constexpr int count = 9;
                Objects<T> a(form, n, n, count), lu(form, n, n, count);
                Vectors<T> b(form, n, count), x(form, n, count);
                std::vector<int> pivots(static_cast<std::size_t>(n * count));
                for (int o = 0; o < count; ++o) {
                    a.set(o, factor::matrix<T>(kind, n, n, random, sizeof(T) == 4 ? 60 : 500));
                    for (int i = 0; i < n; ++i) b.at(o, 0, i) = static_cast<T>(1 + i + o);
                }
                const SmxStatus status =
                    LUDecomp_ma<T>(form, Array{a}, Just{pivots.data()}, Array{lu}, Just{n}, Just{count});
                SCOPED_TRACE(testing::Message() << "form " << int(form) << " side " << n << " kind " << int(kind));
                ASSERT_EQ(status, smxStsNoErr);
                ASSERT_EQ(
                    LUBackSubst_mava<T>(form, Array{lu}, Just{pivots.data()}, Array{b}, Array{x}, Just{n}, Just{count}),
                    0);
                for (int o = 0; o < count; ++o) {
                    const Matrix<Real> whole = factor::read(a, o);
                    Matrix<Real> lower = factor::identity(n), upper(n, n), permuted(n, n), right(n, 1), solution(n, 1);
                    for (int i = 0; i < n; ++i) {
                        const int row = pivots[static_cast<std::size_t>(o * n + i)];
                        for (int j = 0; j < n; ++j) {
                            (j < i ? lower : upper)(i, j) = lu.at(o, row, j);
                            permuted(i, j) = whole(row, j);
                        }
                        right(i, 0) = b.at(o, 0, i);
                        solution(i, 0) = x.at(o, 0, i);
                    }
                    worst_factor =
                        std::max(worst_factor, norm(minus(permuted, lower * upper)) / (n * norm(whole) * eps<T>));
                    worst_solution = std::max(worst_solution, norm(minus(right, whole * solution)) /
                                                                  (norm(whole) * norm(solution) * n * eps<T>));
                }
            }
    EXPECT_LT(worst_factor, 30);
    EXPECT_LT(worst_solution, 30);
    this->RecordProperty("worst_factor", std::to_string(worst_factor));
    std::printf("worst residuals: factors %.2Lf, solutions %.2Lf\n", worst_factor, worst_solution);
}
