// Cholesky decomposition and back substitution.
#include "factor.hpp"

namespace {

using namespace factor;

SINGLE_CALL(CholeskyDecomp, m)
ARRAY_CALL(CholeskyDecomp, ma)
SINGLE_CALL(CholeskyBackSubst, mv)
ARRAY_CALL(CholeskyBackSubst, mva)
ARRAY_CALL(CholeskyBackSubst, mava)

template <class T>
struct Cholesky : ::testing::Test {};
TYPED_TEST_SUITE(Cholesky, BothTypes);

// B Bt + a little of the identity, scaled as the kind asks.
template <class T>
Matrix<Real> positive_definite(Kind kind, int n, std::mt19937 &random) {
    Matrix<Real> b = matrix<T>(kind == Kind::near_overflow ? Kind::random : kind, n, n, random, 0);
    Matrix<Real> a = b * transposed(b);
    for (int i = 0; i < n; ++i) a(i, i) *= 1 + 8 * n * eps<T>;
    for (Real &x : a.e)
        x = static_cast<T>(kind == Kind::near_overflow ? std::ldexp(x, sizeof(T) == 4 ? 115 : 1000) : x);
    return a;
}

TYPED_TEST(Cholesky, FactorsAndSolvesWithSmallResiduals) {
    using T = TypeParam;
    std::mt19937 random(1);
    for (Form form : all_forms)
        for (int n = 1; n <= 9; ++n)
            for (Kind kind : all_kinds) {
                // float's epsilon refuses what is nearly singular in double
                if (form == Form::pointers && n == 3 && sizeof(T) == 8 && kind == Kind::near_singular) continue;
                SCOPED_TRACE(testing::Message() << int(form) << " side " << n << " kind " << int(kind));
                constexpr int count = 21;
                Objects<T> src(form, n, n, count), dst(form, n, n, count);
                Vectors<T> b(form, n, count), x(form, n, count);
                for (int k = 0; k < count; ++k) {
                    src.set(k, positive_definite<T>(kind, n, random));
                    for (int i = 0; i < n; ++i) {
                        b.at(k, 0, i) = static_cast<T>(i + k + 1);
                        for (int j = i + 1; j < n; ++j) src.at(k, i, j) = std::numeric_limits<T>::quiet_NaN();
                    }
                }
                ASSERT_EQ(CholeskyDecomp_ma<T>(form, Array{src}, Array{dst}, Just{n}, Just{count}), smxStsNoErr);
                ASSERT_EQ(CholeskyBackSubst_mava<T>(form, Array{dst}, Array{b}, Array{x}, Just{n}, Just{count}),
                          smxStsNoErr);
                for (int k = 0; k < count; ++k) {
                    Matrix<Real> l(n, n), a(n, n), right(n, 1), solution(n, 1);
                    for (int i = 0; i < n; ++i) {
                        right(i, 0) = static_cast<Real>(b.at(k, 0, i));
                        solution(i, 0) = static_cast<Real>(x.at(k, 0, i));
                        for (int j = 0; j < n; ++j) {
                            if (j > i) {
                                ASSERT_EQ(dst.at(k, i, j), mark<T>) << "upper triangle";
                            } else l(i, j) = i == j ? 1 / static_cast<Real>(dst.at(k, i, j)) : dst.at(k, i, j);
                            a(i, j) = src.at(k, i > j ? i : j, i > j ? j : i);
                        }
                    }
                    ASSERT_LT(norm(minus(a, l * transposed(l))) / (n * norm(a) * eps<T>), 30);
                    ASSERT_LT(
                        norm(minus(right, a * solution)) / (n * (norm(a) * norm(solution) + norm(right)) * eps<T>), 30);
                }
            }
}

// Arrays give what single objects give, bit for bit, wherever their objects lie and however many threads share them;
// every share stops at its first failure and leaves what a single object leaves.
TYPED_TEST(Cholesky, ArraysAreSinglesInShares) {
    using T = TypeParam;
    std::mt19937 random(2);
    for (Form form : all_forms)
        for (int n : {1, 2, 3, 4, 5, 6, 7})
            for (int threads : {1, 2, 3})
                for (int failing_row : {-1, 0, 1, 2, 5}) {
                    if (failing_row >= n) continue;
                    // The pointer layout's single kernel has rules of its own, tested below.
                    if (form == Form::pointers && (n == 3 || failing_row == 1)) continue;
                    SCOPED_TRACE(testing::Message()
                                 << int(form) << " side " << n << " threads " << threads << " row " << failing_row);
                    const int count = 7501 / (n * n) + 40;
                    Objects<T> src(form, n, n, count), dst(form, n, n, count), expected(form, n, n, count);
                    const Matrix<Real> some[] = {positive_definite<T>(Kind::random, n, random),
                                                 positive_definite<T>(Kind::graded, n, random),
                                                 positive_definite<T>(Kind::random, n, random)};
                    for (int k = 0; k < count; ++k) src.set(k, some[k % 3]);
                    if (failing_row >= 0)
                        for (int k : {13, count / 2 + 9, count - 2})
                            src.at(k, failing_row, failing_row) = T(-k % 2 * 4);
                    const SmxStatus wanted = in_shares(count, threads, [&](int k) {
                        return CholeskyDecomp_m<T>(form, One{src, k}, One{expected, k}, Just{n});
                    });
                    ASSERT_EQ(wanted, failing_row < 0 ? smxStsNoErr : smxStsNotPosDefErr);
                    const Threads set(threads);
                    ASSERT_EQ(CholeskyDecomp_ma<T>(form, Array{src}, Array{dst}, Just{n}, Just{count}), wanted);
                    ASSERT_TRUE(same_bytes(dst.memory, expected.memory));

                    Vectors<T> b(form, n, count), x(form, n, count), y(form, n, count), z(form, n, count),
                        one(form, n, count);
                    for (int k = 0; k < count; ++k)
                        for (int i = 0; i < n; ++i) b.at(k, 0, i) = static_cast<T>(random() % 1000) / 7;
                    CholeskyBackSubst_mava<T>(form, Array{dst}, Array{b}, Array{x}, Just{n}, Just{count});
                    CholeskyBackSubst_mva<T>(form, One{dst, 2}, Array{b}, Array{z}, Just{n}, Just{count});
                    for (int k = 0; k < count; ++k) {
                        CholeskyBackSubst_mv<T>(form, One{dst, k}, One{b, k}, One{y, k}, Just{n});
                        CholeskyBackSubst_mv<T>(form, One{dst, 2}, One{b, k}, One{one, k}, Just{n});
                    }
                    ASSERT_TRUE(same_bytes(x.memory, y.memory));
                    ASSERT_TRUE(same_bytes(z.memory, one.memory));
                    // in place
                    CholeskyBackSubst_mava<T>(form, Array{dst}, Array{b}, Array{b}, Just{n}, Just{count});
                    ASSERT_TRUE(same_bytes(b.memory, x.memory));
                    if (failing_row < 0) {
                        ASSERT_EQ(CholeskyDecomp_ma<T>(form, Array{src}, Array{src}, Just{n}, Just{count}),
                                  smxStsNoErr);
                        for (int k = 0; k < count; ++k)
                            for (int i = 0; i < n; ++i)
                                for (int j = 0; j <= i; ++j) ASSERT_EQ(src.at(k, i, j), dst.at(k, i, j));
                    }
                }
}

// A lower triangle of ones with `radicand` as the radicand of `row`.
template <class T>
void put_radicand(Objects<T> &src, int k, int row, T radicand) {
    for (int i = 0; i < src.rows; ++i)
        for (int j = 0; j <= i; ++j) src.at(k, i, j) = i == j ? T(1) : T(0);
    src.at(k, row, row) = radicand;
}

TYPED_TEST(Cholesky, RadicandBounds) {
    using T = TypeParam;
    const auto status = [](Form form, bool array, int n, int row, T radicand) {
        constexpr int count = 40; // more than any group
        Objects<T> src(form, n, n, count), dst(form, n, n, count);
        for (int k = 0; k < count; ++k) put_radicand(src, k, row, radicand);
        return array ? CholeskyDecomp_ma<T>(form, Array{src}, Array{dst}, Just{n}, Just{count})
                     : CholeskyDecomp_m<T>(form, One{src}, One{dst}, Just{n});
    };
    const T tiny = std::numeric_limits<T>::denorm_min(), nan = std::numeric_limits<T>::quiet_NaN();
    for (Form form : all_forms)
        for (bool array : {false, true})
            for (int n = 1; n <= 8; ++n)
                for (int row = 0; row < n; ++row) {
                    SCOPED_TRACE(testing::Message()
                                 << int(form) << " array " << array << " side " << n << " row " << row);
                    const bool float_bound = form == Form::pointers && n == 3;
                    const bool double_bound = form == Form::strided && array && sizeof(T) == 8 && (n < 3 || n > 5);
                    const T bound = float_bound ? T(0x1p-23) : double_bound ? T(0x1p-52) : T(0);
                    const T above = bound == 0 ? tiny : bound * (1 + std::numeric_limits<T>::epsilon());
                    EXPECT_EQ(status(form, array, n, row, bound), smxStsNotPosDefErr);
                    EXPECT_EQ(status(form, array, n, row, T(-1)), smxStsNotPosDefErr);
                    EXPECT_EQ(status(form, array, n, row, above), smxStsNoErr);
                    const bool passes = float_bound && !array && row == 2; // row 0's reaches row 1
                    EXPECT_EQ(status(form, array, n, row, nan), passes ? smxStsNoErr : smxStsNotPosDefErr);
                }
}

// What the pointer layout leaves when row i fails: rows before i, but row 0 waits for row 1 in the single kernel.
TYPED_TEST(Cholesky, PointerLayoutStoresWholeRows) {
    using T = TypeParam;
    for (bool array : {false, true})
        for (int n = 3; n <= 7; ++n)
            for (int row = 0; row < n; ++row) {
                SCOPED_TRACE(testing::Message() << "array " << array << " side " << n << " row " << row);
                Objects<T> src(Form::pointers, n, n, 2), dst(Form::pointers, n, n, 2);
                for (int k = 0; k < 2; ++k) put_radicand(src, k, row, T(-1));
                EXPECT_EQ(array ? CholeskyDecomp_ma<T>(Form::pointers, Array{src}, Array{dst}, Just{n}, Just{2})
                                : CholeskyDecomp_m<T>(Form::pointers, One{src}, One{dst}, Just{n}),
                          smxStsNotPosDefErr);
                const bool held_back = row == 1 && !array && n != 4 && n != 7;
                for (int i = 0; i < n; ++i)
                    for (int j = 0; j < n; ++j) {
                        const bool written = j <= i && ((i < row && !held_back) || (n == 7 && i == row && j < i));
                        EXPECT_EQ(dst.at(0, i, j) != mark<T>, written) << i << ' ' << j;
                        EXPECT_EQ(dst.at(1, i, j), mark<T>);
                    }
            }
}

TYPED_TEST(Cholesky, ListsOfVectorsCheckTheirArgumentsInAnotherOrder) {
    using T = TypeParam;
    constexpr int E = sizeof(T);
    T a[9] = {1}, b[3] = {1}, x[3];
    T *const from[] = {b}, *const to[] = {x};
    const auto call = of_type<T>(smxCholeskyBackSubst_mva_32f_L, smxCholeskyBackSubst_mva_64f_L);
    EXPECT_EQ(call(nullptr, 1, E, from, 1, E, to, 0, E, 0, 0), smxStsNullPtrErr);
    EXPECT_EQ(call(a, 1, E, from, 1, E, to, 0, E, 0, 0), smxStsStrideMatrixErr);
    EXPECT_EQ(call(a, E, E, from, 1, E, to, 0, E, 0, 0), smxStsRoiShiftMatrixErr);
    EXPECT_EQ(call(a, E, E, from, 0, E, to, 0, E, 0, 0), smxStsSizeErr);
    EXPECT_EQ(call(a, E, E, from, 0, E, to, 0, E, 1, 0), smxStsCountMatrixErr);
    EXPECT_EQ(call(a, E, E, from, 0, E, to, 0, E, 1, 1), smxStsNoErr);
}

} // namespace
