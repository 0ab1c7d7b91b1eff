// Determinant and inverse: bit by bit against a plain reference, what stands in the results after a failure included;
// and residuals. In the closed forms of an inverse the order of additions is open: where values are not exact, a bound
// holds.
#include <csignal>
#include <numeric>

#include "reference.hpp"

namespace {

using namespace factor;
using reference::same;

SINGLE_CALL(Det, m)
ARRAY_CALL(Det, ma)
SINGLE_CALL(Invert, m)
ARRAY_CALL(Invert, ma)

template <class T>
struct DetInvert : ::testing::Test {};
TYPED_TEST_SUITE(DetInvert, BothTypes);

template <class T>
constexpr T smallest = std::numeric_limits<T>::min();
template <class T>
constexpr T nan_of = std::numeric_limits<T>::quiet_NaN();

// What Det and Invert may use of a buffer: a working copy and n integers.
template <class T>
int scratch(int n) {
    constexpr int E = sizeof(T), I = sizeof(int);
    return n * n + (n * I + E - 1) / E;
}

TYPED_TEST(DetInvert, SmallResiduals) {
    using T = TypeParam;
    std::mt19937 random(5);
    for (Form form : all_forms)
        for (int n = 1; n <= 9; ++n)
            for (Kind kind : all_kinds) {
                SCOPED_TRACE(testing::Message() << int(form) << " side " << n << " kind " << int(kind));
                constexpr int count = 21;
                Objects<T> src(form, n, n, count), dst(form, n, n, count);
                std::vector<T> det(count), buffer(static_cast<std::size_t>(scratch<T>(n)));
                for (int k = 0; k < count; ++k)
                    src.set(k, matrix<T>(kind, n, n, random, (sizeof(T) == 4 ? 100 : 960) / n));
                ASSERT_EQ(Det_ma<T>(form, Array{src}, Just{n}, Just{buffer.data()}, Just{det.data()}, Just{count}),
                          smxStsNoErr);
                ASSERT_EQ(Invert_ma<T>(form, Array{src}, Just{buffer.data()}, Array{dst}, Just{n}, Just{count}),
                          smxStsNoErr);
                for (int k = 0; k < count; ++k) {
                    const Matrix<Real> a = read(src, k);
                    Matrix<Real> exact(n, n);
                    const Real wanted = factor::invert(a, exact), cond = norm(a) * norm(exact);
                    Real rows = 1; // bounds every product of the expansion
                    for (int i = 0; i < n; ++i) {
                        Real sum = 0;
                        for (int j = 0; j < n; ++j) sum += std::fabs(a(i, j));
                        rows *= sum;
                    }
                    ASSERT_LT(std::fabs(static_cast<Real>(det[static_cast<std::size_t>(k)]) - wanted) /
                                  (n * rows * eps<T>),
                              30);
                    ASSERT_LT(norm(minus(a * read(dst, k), identity(n))) / (n * cond * eps<T>), 30);
                }
            }
}

bool closed_form(int n) {
    return n >= 3 && n <= 6;
}
template <class T>
T tolerance(int n) {
    return static_cast<T>(2 * n * n * n) * smallest<T>;
}

// Elimination with partial pivoting. `product` is that of the pivots but the last; it ends where one of these fails.
template <class T>
struct Elimination {
    T product = 1, sign = 1, last;
    bool failed = false;

    Elimination(Matrix<T> a, T least, bool divides) {
        const int n = a.rows;
        std::vector<int> rows(static_cast<std::size_t>(n));
        std::iota(rows.begin(), rows.end(), 0);
        int *const r = rows.data();
        for (int k = 0; k < n - 1 && !failed; ++k) {
            int best = k;
            for (int i = k + 1; i < n; ++i)
                if (std::fabs(a(r[i], k)) > std::fabs(a(r[best], k))) best = i;
            if (best != k) sign = -sign;
            std::swap(r[best], r[k]);
            const T pivot = a(r[k], k), reciprocal = T(1) / pivot;
            failed = !(std::fabs(pivot) >= least);
            if (failed) break;
            for (int i = k + 1; i < n; ++i) {
                const T f = divides ? a(r[i], k) / pivot : a(r[i], k) * reciprocal;
                for (int j = k + 1; j < n; ++j) a(r[i], j) -= a(r[k], j) * f;
            }
            product *= pivot;
        }
        last = a(r[n - 1], n - 1);
    }
};

// Object `o` without a row and a column (-1: with all of them).
template <class T>
Matrix<T> without(const Objects<T> &a, int o, int row, int column) {
    const int n = a.rows, m = n - (row >= 0);
    Matrix<T> w(m, m);
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < m; ++j) w(i, j) = a.at(o, i + (row >= 0 && i >= row), j + (column >= 0 && j >= column));
    return w;
}

// The expansion by minors of the leading rows, from the highest column on; a minor is known by its set of columns. With
// `magnitudes` the sum of all terms' magnitudes instead.
template <class X, class E>
X expansion(const Matrix<E> &a, bool magnitudes = false) {
    std::vector<X> minors(std::size_t(1) << a.rows, X(1));
    for (unsigned set = 1; set < minors.size(); ++set) {
        const int row = __builtin_popcount(set) - 1;
        X sum = 0;
        for (int j = a.rows - 1, term = 0; j >= 0; --j) {
            if (!(set >> j & 1)) continue;
            const X element = magnitudes ? std::fabs(a(row, j)) : a(row, j);
            const X product = row == 0 ? element : element * minors[set & ~(1u << j)];
            sum = term == 0 ? product : term % 2 && !magnitudes ? sum - product : sum + product;
            ++term;
        }
        minors[set] = sum;
    }
    return minors.back();
}

template <class T>
T determinant(const Objects<T> &a, int o, bool array) {
    if (closed_form(a.rows)) return expansion<T>(without(a, o, -1, -1));
    const T least = tolerance<T>(a.rows);
    const Elimination<T> e(without(a, o, -1, -1), least, true);
    if ((e.failed && !array) || !(std::fabs(e.last) > least)) return 0;
    return e.product * (e.last * (e.failed ? T(0) : e.sign));
}

constexpr int sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 13};

TYPED_TEST(DetInvert, DeterminantsHaveTheBitsOfTheReference) {
    using T = TypeParam;
    std::mt19937 random(6);
    for (const Form form : all_forms)
        for (const int n : sides)
            for (const Sample sample : all_samples)
                for (int round = 0; round < 25; ++round) {
                    const Deal<T> call("Det_ma", form, 1, n, n, n > 7 ? 100 : 12, random);
                    Objects<T> src(call.form[0], n, n, call.count);
                    for (int o = 0; o < call.count; ++o)
                        put_sample(src, o, random() % 3 ? sample : Sample::random, tolerance<T>(n), random);
                    std::vector<T> det(static_cast<std::size_t>(call.count) + 2, mark<T>);
                    const std::vector<T> wanted = call.expected(det,
                                                                [&](int o) {
                                                                    det.data()[o + 1] = determinant(src, o, call.array);
                                                                    return smxStsNoErr;
                                                                })
                                                      .second;
                    Buffer<T> buffer(scratch<T>(n));
                    const Just scratch{buffer.data()}, result{&det[1]};
                    const Threads set(call.threads);
                    const SmxStatus found =
                        call.array ? Det_ma<T>(form, Array{src}, Just{n}, scratch, result, Just{call.count})
                                   : Det_m<T>(form, One{src}, Just{n}, scratch, result);
                    SCOPED_TRACE(testing::Message() << "side " << n << " sample " << int(sample) << ' ' << call);
                    ASSERT_EQ(found, smxStsNoErr);
                    ASSERT_TRUE(same(det, wanted));
                    ASSERT_TRUE(buffer.untouched(closed_form(n) || call.shares > 1));
                }
}

// No statuses of the library: a zero is stored through a null pointer, or a closed form's result is not known, too near
// the tolerance or the ends of the range.
constexpr SmxStatus ends_the_process = 1, depends_on_order = 2;

// An inverse by the reference, and how far its elements may be from it; negative: not a bit, 0: but for a zero's sign.
template <class T>
struct Inverse {
    SmxStatus status = smxStsNoErr;
    Matrix<T> values;
    Matrix<Real> slack;
    explicit Inverse(int n) : values(n, n), slack(n, n) { slack.e.assign(slack.e.size(), -1); }
};

// Sides 3 to 6. The elements' products and their sums are exact in T, or side 3 has one order only, or a bound holds.
template <class T>
Inverse<T> inverse_closed(const Objects<T> &src, int o, bool exact, bool nan_passes) {
    const int n = src.rows;
    const Real u = eps<T> / 2, most = std::numeric_limits<T>::max(), least = tolerance<T>(n);
    Matrix<Real> c(n, n), size(n, n); // cofactors, and the sums of their terms' magnitudes
    Real det = 0, det_size = 0;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const Matrix<T> minor = without(src, o, i, j);
            c(i, j) = n > 3 ? expansion<Real>(minor) : T(minor(0, 0) * minor(1, 1) - minor(0, 1) * minor(1, 0));
            if ((i + j) % 2) c(i, j) = -c(i, j);
            size(i, j) = expansion<Real>(minor, true);
            if (j > 0) continue;
            det += src.at(o, i, 0) * c(i, 0);
            det_size += std::fabs(src.at(o, i, 0)) * size(i, 0);
        }
    if (n == 3) {
        const auto term = [&](int i) { return src.at(o, i, 0) * static_cast<T>(c(i, 0)); };
        det = T(T(term(2) + term(1)) + term(0));
    }
    Inverse<T> result(n);
    if (std::isnan(det) ? !nan_passes : std::fabs(det) < least) result.status = smxStsSingularErr;
    const Real det_slack = n * u * det_size;
    const bool bounded = n > 3 && !exact && !std::isnan(det_size);
    if (bounded && !(det_size < most / 1024 && std::fabs(det) > 4 * det_slack && std::fabs(det) > least * 0x1p40L))
        result.status = depends_on_order;
    const T d = T(1) / static_cast<T>(det);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const Real x = c(i, j) / det;
            result.values(j, i) = bounded ? static_cast<T>(x) : static_cast<T>(c(i, j)) * d;
            if (n > 3 || j > 0) result.slack(j, i) = 0;
            if (bounded)
                result.slack(j, i) =
                    1.1L * (n * u * size(i, j) / std::fabs(det) + std::fabs(x) * (det_slack / std::fabs(det) + 4 * u));
            if (bounded && !(size(i, j) < most / 1024 && size(i, j) > least * 0x1p40L))
                result.status = depends_on_order;
        }
    return result;
}

// The pointer layout's array kernel tests the last pivot where the others test the determinant.
template <class T>
Inverse<T> inverse_by_elimination(const Objects<T> &src, int o, bool pointer_array) {
    const int n = src.rows;
    const T least = tolerance<T>(n);
    Inverse<T> result(n);
    const Elimination<T> whole(without(src, o, -1, -1), least, false);
    const T det = whole.product * (whole.sign * whole.last);
    if (whole.failed) result.status = pointer_array ? smxStsSingularErr : ends_the_process;
    else if (!(std::fabs(pointer_array ? whole.last : det) > least)) result.status = smxStsSingularErr;
    const T d = T(1) / det;
    for (int i = 0; i < n && result.status == smxStsNoErr; ++i)
        for (int j = 0; j < n; ++j) {
            const Elimination<T> minor(without(src, o, i, j), least, false);
            T value = minor.failed ? least : minor.product;
            value = std::fabs(minor.last) > least ? value * (minor.last * minor.sign) : least;
            result.values(j, i) = (i + j) % 2 ? -(value * d) : value * d;
        }
    return result;
}

template <class T>
Inverse<T> inverse(const Objects<T> &src, int o, Sample sample, bool pointers, const Deal<T> &call) {
    const int n = src.rows;
    if (closed_form(n)) {
        const bool nan_passes = n > 3 && !call.array && !pointers && call.adjacent;
        return inverse_closed(src, o, sample == Sample::ties || sample == Sample::edges, nan_passes);
    }
    if (n > 1) return inverse_by_elimination(src, o, pointers && call.array);
    Inverse<T> result(1);
    const T a = src.at(o, 0, 0);
    if (std::isnan(a) ? call.array : std::fabs(a) <= tolerance<T>(1)) result.status = smxStsSingularErr;
    result.values(0, 0) = T(1) / a;
    return result;
}

TYPED_TEST(DetInvert, InversesHaveTheBitsOfTheReferenceAlsoWhereTheyStop) {
    using T = TypeParam;
    std::mt19937 random(7);
    int failures = 0, successes = 0;
    Real nearest = 0;
    for (const Form form : all_forms)
        for (const int n : sides)
            for (const Sample sample : all_samples)
                for (int round = 0; round < (n > 9 ? 5 : 40); ++round) {
                    Deal<T> call("Invert_ma", form, 2, n, n, n > 7 ? 1 << 20 : 24, random);
                    if (n == 1) call.shares = 1; // not divided over threads
                    const bool in_place = (n == 1 || closed_form(n)) && random() % 3 == 0;
                    Objects<T> src(call.form[0], n, n, call.count), apart(call.form[1], n, n, call.count);
                    if (in_place && call.form[0] != call.form[1]) continue;
                    // A few matrices of the kind and some ordinary ones, many times.
                    constexpr int some = 6;
                    Objects<T> pool(Form::packed, n, n, 2 * some);
                    std::vector<Inverse<T>> inverses;
                    for (int k = 0; k < pool.count; ++k) {
                        const Sample now = k < some ? sample : Sample::random;
                        Inverse<T> result(n);
                        do {
                            put_sample(pool, k, now, tolerance<T>(n), random);
                            result = inverse(pool, k, now, form == Form::pointers, call);
                        } while (result.status > 0);
                        inverses.push_back(result);
                    }
                    const int rate = 1 + below(call.count, random);
                    const auto kind = [&](int o) { return o % rate == rate / 2 ? o / rate % some : some + o % some; };
                    for (int o = 0; o < call.count; ++o)
                        src.set(o, [&](int i, int j) { return pool.at(kind(o), i, j); });
                    Objects<T> &dst = in_place ? src : apart;
                    std::vector<Real> slack(dst.memory.size(), -1);
                    const auto [status, memory] = call.expected(dst.memory, [&](int o) {
                        const Inverse<T> &result = inverses[static_cast<std::size_t>(kind(o))];
                        for (int i = 0; i < n && result.status == smxStsNoErr; ++i)
                            for (int j = 0; j < n; ++j) {
                                T &x = dst.at(o, i, j);
                                x = result.values(i, j);
                                slack[static_cast<std::size_t>(&x - dst.memory.data())] = result.slack(i, j);
                            }
                        return result.status;
                    });
                    Buffer<T> buffer(scratch<T>(n));
                    const Just scratch{buffer.data()};
                    const Threads set(call.threads);
                    const SmxStatus found =
                        call.array ? Invert_ma<T>(form, Array{src}, scratch, Array{dst}, Just{n}, Just{call.count})
                                   : Invert_m<T>(form, One{src}, scratch, One{dst}, Just{n});
                    SCOPED_TRACE(testing::Message() << "side " << n << " sample " << int(sample) << ' ' << call
                                                    << " in place " << in_place);
                    ASSERT_EQ(found, status);
                    for (std::size_t i = 0; i < memory.size(); ++i) {
                        const T x = dst.memory[i], y = memory[i];
                        if (std::memcmp(&x, &y, sizeof(T)) == 0 || (std::isnan(x) && std::isnan(y))) continue;
                        const Real error = std::fabs(Real(x) - Real(y));
                        ASSERT_LE(error, slack[i]) << x << " for " << y;
                        if (error > 0) nearest = std::max(nearest, error / slack[i]);
                    }
                    ASSERT_TRUE(buffer.untouched(n == 1 || closed_form(n) || call.shares > 1));
                    (found == 0 ? successes : failures) += 1;
                }
    EXPECT_GT(failures, 500);
    EXPECT_GT(successes, 500);
    this->RecordProperty("greatest_part_of_the_bound", std::to_string(nearest));
    std::printf("errors of closed forms: up to %.2Lf of their bound\n", nearest);
}

TYPED_TEST(DetInvert, DeterminantTolerances) {
    using T = TypeParam;
    const auto det = [](int n, std::initializer_list<T> diagonal, bool array = false, T corner = 0) {
        Objects<T> a(Form::packed, n, n, 1);
        T buffer[100], value = mark<T>;
        for (int i = 0; i < n * n; ++i) a.memory[static_cast<std::size_t>(i)] = 0;
        for (int i = 0; i < n; ++i) a.at(0, i, i) = i < static_cast<int>(diagonal.size()) ? diagonal.begin()[i] : T(1);
        if (corner != 0) a.at(0, 0, n - 1) = corner;
        const SmxStatus status = array ? Det_ma<T>(Form::packed, Array{a}, Just{n}, Just{buffer}, Just{&value}, Just{1})
                                       : Det_m<T>(Form::packed, One{a}, Just{n}, Just{buffer}, Just{&value});
        EXPECT_EQ(status, smxStsNoErr);
        return value;
    };
    const T two = 2 * smallest<T>, sixteen = 16 * smallest<T>, more = 1 + std::numeric_limits<T>::epsilon();
    EXPECT_EQ(det(1, {two}), 0);
    EXPECT_EQ(det(1, {two * more}), two * more);
    EXPECT_EQ(det(2, {sixteen}), sixteen); // a pivot at the tolerance goes on
    EXPECT_EQ(det(2, {sixteen / more}), 0);
    EXPECT_EQ(det(2, {1, sixteen}), 0); // the last one does not
    EXPECT_EQ(det(2, {1, sixteen * more}), sixteen * more);
    EXPECT_EQ(det(3, {sixteen}), sixteen); // no tolerance in an expansion
    EXPECT_EQ(det(7, {sixteen}), 0);
    EXPECT_EQ(det(2, {nan_of<T>}), 0);
    EXPECT_TRUE(std::isnan(det(3, {nan_of<T>})));
    // The zero of an array is a product with 0: its sign is the last element's, and infinity spoils it.
    EXPECT_FALSE(std::signbit(det(2, {0, -1})));
    EXPECT_TRUE(std::signbit(det(2, {0, -1}, true)));
    EXPECT_TRUE(std::isnan(det(2, {0, std::numeric_limits<T>::infinity()}, true)));
    for (int n = 1; n <= 9; ++n) EXPECT_EQ(det(n, {}), 1) << n;

    // At side 1024 the integer of the tolerance wraps to a negative number, which nothing is below.
    constexpr int great = 1024;
    std::vector<T> wide(great * great), work(great * great + great);
    for (std::size_t i = 0; i < great; ++i) wide[i * (great + 1)] = i == 0 ? two : T(1);
    T tiny = 0;
    const int row = great * static_cast<int>(sizeof(T));
    of_type<T>(smxDet_m_32f, smxDet_m_64f)(wide.data(), row, sizeof(T), great, work.data(), &tiny);
    EXPECT_EQ(tiny, two);

    T swap[] = {0, 1, 1, 0}, rows[] = {1, 2, 3, 4}, buffer[6], value;
    const int E = sizeof(T);
    const auto call = of_type<T>(smxDet_m_32f, smxDet_m_64f);
    EXPECT_EQ(call(swap, 2 * E, E, 2, buffer, &value), smxStsNoErr);
    EXPECT_EQ(value, -1);
    call(rows, 2 * E, E, 2, buffer, &value);
    EXPECT_NEAR(value, -2, 1e-6);
    EXPECT_EQ(call(rows, 2 * E, E, 3, nullptr, &value), smxStsNullPtrErr); // needed even where it is not used
}

// A diagonal matrix, by its first element; the others are 1.
template <class T>
SmxStatus invert_diagonal(Form form, bool array, int n, T first, Objects<T> &dst) {
    Objects<T> src(form, n, n, dst.count);
    T buffer[100];
    for (int k = 0; k < dst.count; ++k)
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) src.at(k, i, j) = i != j ? T(0) : i == 0 ? first : T(1);
    return array ? Invert_ma<T>(form, Array{src}, Just{buffer}, Array{dst}, Just{n}, Just{dst.count})
                 : Invert_m<T>(form, One{src}, Just{buffer}, One{dst}, Just{n});
}

TYPED_TEST(DetInvert, InverseTolerances) {
    using T = TypeParam;
    const T more = 1 + std::numeric_limits<T>::epsilon();
    for (Form form : all_forms)
        for (bool array : {false, true})
            for (int n = 1; n <= 6; ++n) {
                SCOPED_TRACE(testing::Message() << int(form) << " array " << array << " side " << n);
                Objects<T> dst(form, n, n, array ? 40 : 1), empty(form, n, n, dst.count);
                const T tolerance = T(2 * n * n * n) * smallest<T>;
                if (n != 2) // there a first pivot is another matter
                {
                    EXPECT_EQ(invert_diagonal(form, array, n, tolerance / more, dst), smxStsSingularErr);
                }
                if (n < 3 && n != 2) {
                    EXPECT_EQ(invert_diagonal(form, array, n, tolerance, dst), smxStsSingularErr);
                }
                EXPECT_TRUE(same_bytes(dst.memory, empty.memory));
                if (n >= 3) {
                    EXPECT_EQ(invert_diagonal(form, array, n, tolerance, dst), smxStsNoErr);
                }
                EXPECT_EQ(invert_diagonal(form, array, n, T(2), dst), smxStsNoErr);
                for (int i = 0; i < n; ++i)
                    for (int j = 0; j < n; ++j)
                        if (n != 2) {
                            EXPECT_EQ(dst.at(0, i, j), i != j ? T(0) : i == 0 ? T(0.5) : T(1));
                        }
                if (n == 2) continue;
                const bool plain = (form == Form::packed || form == Form::list) && !array;
                const bool passes = (n == 1 && !array) || (n > 3 && plain);
                EXPECT_EQ(invert_diagonal(form, array, n, nan_of<T>, dst), passes ? smxStsNoErr : smxStsSingularErr);
                if (passes) {
                    EXPECT_TRUE(std::isnan(dst.at(0, 0, 0)));
                }
            }
}

TYPED_TEST(DetInvert, SingularMinorsCountAsTheTolerance) {
    using T = TypeParam;
    T a[] = {2, 0, 0, 4}, inverse[4], buffer[6];
    const int E = sizeof(T);
    ASSERT_EQ(of_type<T>(smxInvert_m_32f, smxInvert_m_64f)(a, 2 * E, E, buffer, inverse, 2 * E, E, 2), smxStsNoErr);
    EXPECT_EQ(inverse[0], T(0.5));
    EXPECT_EQ(inverse[3], T(0.25));
    EXPECT_EQ(inverse[1], -2 * smallest<T>);
    EXPECT_EQ(inverse[2], -2 * smallest<T>);
    // At side 7 a minor with a failing pivot counts as the tolerance times its last pivot.
    Objects<T> dst(Form::packed, 7, 7, 1);
    ASSERT_EQ(invert_diagonal(Form::packed, false, 7, T(1), dst), smxStsNoErr);
    for (int i = 0; i < 7; ++i)
        for (int j = 0; j < 7; ++j) {
            EXPECT_NEAR(dst.at(0, i, j), i == j, 0x1p-20);
            if (i != j) {
                EXPECT_NE(dst.at(0, i, j), 0);
            }
        }
}

// The pointer layout's array kernel tests its last pivot, the others the determinant.
TYPED_TEST(DetInvert, PointerArraysTestTheirLastPivot) {
    using T = TypeParam;
    for (Form form : all_forms) {
        Objects<T> src(form, 2, 2, 1), dst(form, 2, 2, 1);
        T buffer[6];
        for (int e = 0; e < 4; ++e) src.at(0, e / 2, e % 2) = 0;
        src.at(0, 0, 0) = src.at(0, 1, 1) = std::sqrt(smallest<T>); // the determinant is below the tolerance
        EXPECT_EQ(Invert_ma<T>(form, Array{src}, Just{buffer}, Array{dst}, Just{2}, Just{1}),
                  form == Form::pointers ? smxStsNoErr : smxStsSingularErr);
        EXPECT_EQ(Invert_m<T>(form, One{src}, Just{buffer}, One{dst}, Just{2}), smxStsSingularErr);
    }
}

// A pivot that fails before the last one ends the process in all members but the pointer layout's array form.
TYPED_TEST(DetInvert, EarlyPivotFailuresStoreThroughNull) {
    using T = TypeParam;
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
#ifdef __SANITIZE_ADDRESS__ // tells of the signal and exits
    const testing::ExitedWithCode ended(1);
    const char *const said = "SEGV on unknown address 0x0+ ";
#else
    const testing::KilledBySignal ended(SIGSEGV);
    const char *const said = "";
#endif
    for (Form form : all_forms)
        for (bool array : {false, true}) {
            SCOPED_TRACE(testing::Message() << int(form) << " array " << array);
            const int n = form == Form::list ? 7 : 2;
            Objects<T> dst(form, n, n, 1), empty(form, n, n, 1);
            if (form == Form::pointers && array) {
                EXPECT_EQ(invert_diagonal(form, array, n, T(0), dst), smxStsSingularErr);
                EXPECT_TRUE(same_bytes(dst.memory, empty.memory));
            } else {
                EXPECT_EXIT(invert_diagonal(form, array, n, T(0), dst), ended, said);
            }
        }
}

} // namespace
