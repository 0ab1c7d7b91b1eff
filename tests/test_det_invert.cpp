// Determinant and inverse.
#include <csignal>

#include "factor.hpp"

namespace {

using namespace factor;

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

// What Det and Invert may use of a buffer, in elements.
std::size_t scratch(int n) {
    return static_cast<std::size_t>(n) * static_cast<std::size_t>(n + 1);
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
                std::vector<T> det(count), buffer(scratch(n));
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

// Arrays give what single objects give, bit for bit; every share of an inversion stops at its first failure.
TYPED_TEST(DetInvert, ArraysAreSinglesInShares) {
    using T = TypeParam;
    std::mt19937 random(6);
    for (Form form : all_forms)
        for (int n = 1; n <= 7; ++n)
            for (int threads : {1, 2, 3})
                for (bool failing : {false, true}) {
                    SCOPED_TRACE(testing::Message()
                                 << int(form) << " side " << n << " threads " << threads << ' ' << failing);
                    const int count = 40001 / n + 40;
                    Objects<T> src(form, n, n, count), dst(form, n, n, count), expected(form, n, n, count);
                    std::vector<T> det(count, mark<T>), expected_det = det, buffer(scratch(n), mark<T>);
                    const Matrix<Real> some[] = {
                        matrix<T>(Kind::random, n, n, random, 0), matrix<T>(Kind::random, n, n, random, 0),
                        matrix<T>(Kind::graded, n, n, random, 0), matrix<T>(Kind::random, n, n, random, 0),
                        matrix<T>(Kind::near_singular, n, n, random, 0)};
                    for (int k = 0; k < count; ++k) src.set(k, some[k % 5]);
                    if (failing) // the last row: no pivot fails before the last one
                        for (int k : {13, count / 2 + 9, count - 2})
                            for (int j = 0; j < n; ++j) src.at(k, n - 1, j) = 0;
                    for (int k = 0; k < count; ++k)
                        Det_m<T>(form, One{src, k}, Just{n}, Just{buffer.data()},
                                 Just{&expected_det[static_cast<std::size_t>(k)]});
                    // Side 1 is not divided over threads.
                    const SmxStatus wanted = in_shares(count, n == 1 ? 1 : threads, [&](int k) {
                        return Invert_m<T>(form, One{src, k}, Just{buffer.data()}, One{expected, k}, Just{n});
                    });
                    ASSERT_EQ(wanted, failing ? smxStsSingularErr : smxStsNoErr);
                    const Threads set(threads);
                    buffer.assign(buffer.size(), mark<T>);
                    const std::vector<T> untouched = buffer;
                    ASSERT_EQ(Det_ma<T>(form, Array{src}, Just{n}, Just{buffer.data()}, Just{det.data()}, Just{count}),
                              smxStsNoErr);
                    ASSERT_EQ(Invert_ma<T>(form, Array{src}, Just{buffer.data()}, Array{dst}, Just{n}, Just{count}),
                              wanted);
                    ASSERT_TRUE(same_bytes(det, expected_det));
                    ASSERT_TRUE(same_bytes(dst.memory, expected.memory));
                    ASSERT_TRUE((threads == 1 && (n < 3 || n > 6)) || same_bytes(buffer, untouched));
                    if (!failing && n >= 3 && n <= 6) { // in place
                        ASSERT_EQ(Invert_ma<T>(form, Array{src}, Just{buffer.data()}, Array{src}, Just{n}, Just{count}),
                                  wanted);
                        ASSERT_TRUE(same_bytes(src.memory, dst.memory));
                    }
                }
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
