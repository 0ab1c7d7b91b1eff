// Products of matrices by vectors and constants, gaxpy, saxpy and linear combinations: values in every form of memory.
#include "factor.hpp"

namespace {

using namespace factor;

SINGLE_CALL(Mul, mv)
SINGLE_CALL(Mul, tv)
ARRAY_CALL(Mul, mav)
ARRAY_CALL(Mul, tav)
ARRAY_CALL(Mul, mava)
ARRAY_CALL(Mul, tava)
ARRAY_CALL(Mul, mva)
ARRAY_CALL(Mul, tva)
SINGLE_CALL(Mul, mc)
SINGLE_CALL(Mul, tc)
ARRAY_CALL(Mul, mac)
ARRAY_CALL(Mul, tac)
SINGLE_CALL(Gaxpy, mv)
ARRAY_CALL(Gaxpy, mva)
ARRAY_CALL(Gaxpy, mvav)
SINGLE_CALL(Saxpy, vv)
ARRAY_CALL(Saxpy, vav)
ARRAY_CALL(Saxpy, vva)
ARRAY_CALL(Saxpy, vava)
SINGLE_CALL(LComb, vv)
ARRAY_CALL(LComb, vav)
ARRAY_CALL(LComb, vava)

template <class T>
struct ProductVector : ::testing::Test {};
TYPED_TEST_SUITE(ProductVector, BothTypes);

template <class O>
void fill(O &objects, unsigned seed) {
    std::mt19937 random(seed);
    for (int n = 0; n < objects.count; ++n)
        objects.set(n, matrix<std::decay_t<decltype(objects.at(0, 0, 0))>>(Kind::random, objects.rows, objects.cols,
                                                                           random, 0));
}

// |found - sum of terms| within the error of as many roundings as the ascending sum has.
template <class T>
void expect_sum(T found, const std::vector<Real> &terms) {
    Real sum = 0, magnitudes = 0;
    for (const Real x : terms) sum += x, magnitudes += std::fabs(x);
    EXPECT_LE(std::fabs(static_cast<Real>(found) - sum),
              (static_cast<Real>(terms.size()) + 1) * eps<T> / 2 * magnitudes * 1.01L);
}

constexpr int counts[] = {1, 2, 3, 37};

// Which operands are arrays, and how the matrix is read.
struct Code {
    bool transposed, matrices, vectors;
};

TYPED_TEST(ProductVector, MatrixByVector) {
    using T = TypeParam;
    for (Form form : all_forms)
        for (int w : {1, 2, 3, 4, 5, 6, 7, 9})
            for (int h : {1, 2, 3, 4, 5, 6, 7, 9})
                for (int count : counts) {
                    if (w != h && count == 37) continue;
                    SCOPED_TRACE(testing::Message() << int(form) << ": " << w << " by " << h << " count " << count);
                    Objects<T> a(form, h, w, count);
                    fill(a, 1);
                    for (const Code code : {Code{false, true, true},
                                            {true, true, true},
                                            {false, true, false},
                                            {true, true, false},
                                            {false, false, true},
                                            {true, false, true},
                                            {false, false, false},
                                            {true, false, false}}) {
                        const bool t = code.transposed;
                        const int k = t ? h : w, m = t ? w : h;
                        // A single operand of a list form is strided, and object 0 here.
                        Vectors<T> b(form, k, count), d(form, m, count);
                        fill(b, 2);
                        const auto call = [&](auto plain, auto transposed, const auto &x, const auto &y, const auto &z,
                                              auto... n) {
                            return t ? transposed(form, x, Just{w}, Just{h}, y, Just{k}, z, n...)
                                     : plain(form, x, Just{w}, Just{h}, y, Just{k}, z, n...);
                        };
#define CALL(code) [](auto... x) { return Mul_##code<T>(x...); }
                        const SmxStatus status =
                            code.matrices && code.vectors
                                ? call(CALL(mava), CALL(tava), Array{a}, Array{b}, Array{d}, Just{count})
                            : code.matrices ? call(CALL(mav), CALL(tav), Array{a}, One{b}, Array{d}, Just{count})
                            : code.vectors  ? call(CALL(mva), CALL(tva), One{a}, Array{b}, Array{d}, Just{count})
                                            : call(CALL(mv), CALL(tv), One{a}, One{b}, One{d});
#undef CALL
                        ASSERT_EQ(status, smxStsNoErr);
                        const int written = code.matrices || code.vectors ? count : 1;
                        for (int n = 0; n < count; ++n)
                            for (int i = 0; i < m; ++i) {
                                if (n >= written) {
                                    ASSERT_EQ(d.at(n, 0, i), mark<T>);
                                    continue;
                                }
                                std::vector<Real> terms;
                                for (int p = 0; p < k; ++p) {
                                    const int o = code.matrices ? n : 0;
                                    terms.push_back(static_cast<Real>(t ? a.at(o, p, i) : a.at(o, i, p)) *
                                                    b.at(code.vectors ? n : 0, 0, p));
                                }
                                expect_sum(d.at(n, 0, i), terms);
                            }
                    }
                    if (::testing::Test::HasFatalFailure()) return;
                }
}

TYPED_TEST(ProductVector, Gaxpy) {
    using T = TypeParam;
    for (Form form : all_forms)
        for (int w : {1, 3, 4, 5, 6, 8})
            for (int h : {1, 3, 4, 5, 6, 8})
                for (int count : counts) {
                    Objects<T> a(form, h, w, 1);
                    Vectors<T> b(form, w, count), c(form, h, count), d(form, h, count), e(form, h, count),
                        f(form, h, 1);
                    fill(a, 1), fill(b, 2), fill(c, 3);
                    ASSERT_EQ(Gaxpy_mva<T>(form, One{a}, Just{w}, Just{h}, Array{b}, Just{w}, Array{c}, Just{h},
                                           Array{d}, Just{count}),
                              smxStsNoErr);
                    ASSERT_EQ(Gaxpy_mvav<T>(form, One{a}, Just{w}, Just{h}, Array{b}, Just{w}, One{c}, Just{h},
                                            Array{e}, Just{count}),
                              smxStsNoErr);
                    ASSERT_EQ(Gaxpy_mv<T>(form, One{a}, Just{w}, Just{h}, One{b}, Just{w}, One{c}, Just{h}, One{f}),
                              smxStsNoErr);
                    for (int n = 0; n < count; ++n)
                        for (int i = 0; i < h; ++i) {
                            std::vector<Real> terms;
                            for (int p = 0; p < w; ++p)
                                terms.push_back(static_cast<Real>(a.at(0, i, p)) * b.at(n, 0, p));
                            terms.push_back(c.at(0, 0, i));
                            expect_sum(e.at(n, 0, i), terms);
                            terms.back() = c.at(n, 0, i);
                            expect_sum(d.at(n, 0, i), terms);
                        }
                    for (int i = 0; i < h; ++i) EXPECT_EQ(f.at(0, 0, i), e.at(0, 0, i));
                }
}

// One operation an element: the result is the rounded one.
TYPED_TEST(ProductVector, ConstantsAreMultipliedAndAddedElementByElement) {
    using T = TypeParam;
    const T s = T(1.3), r = T(-0.7);
    for (Form form : all_forms)
        for (int w : {1, 2, 3, 4, 5, 6, 7})
            for (int h : {2, 3, 4, 5, 6})
                for (int count : counts) {
                    Objects<T> a(form, h, w, count), stored(form, w, h, count), d(form, h, w, count),
                        e(form, h, w, count);
                    Vectors<T> x(form, w, count), y(form, w, count), v(form, w, count);
                    fill(a, 1), fill(stored, 2), fill(x, 3), fill(y, 4);
                    ASSERT_EQ(Mul_mac<T>(form, Array{a}, Just{s}, Array{d}, Just{w}, Just{h}, Just{count}),
                              smxStsNoErr);
                    ASSERT_EQ(Mul_tac<T>(form, Array{stored}, Just{s}, Array{e}, Just{w}, Just{h}, Just{count}),
                              smxStsNoErr);
                    for (int n = 0; n < count; ++n)
                        for (int i = 0; i < h; ++i)
                            for (int j = 0; j < w; ++j) {
                                ASSERT_EQ(d.at(n, i, j), static_cast<T>(a.at(n, i, j) * s));
                                ASSERT_EQ(e.at(n, i, j), static_cast<T>(stored.at(n, j, i) * s));
                            }
                    ASSERT_EQ(Mul_mc<T>(form, One{stored}, Just{s}, One{stored}, Just{h}, Just{w}), smxStsNoErr)
                        << "in place";
                    ASSERT_EQ(Mul_tc<T>(form, One{stored}, Just{T(1)}, One{d}, Just{w}, Just{h}), smxStsNoErr);
                    for (int i = 0; i < h; ++i)
                        for (int j = 0; j < w; ++j) ASSERT_EQ(d.at(0, i, j), e.at(0, i, j));

                    const auto check = [&](const char *code, bool lcomb, int stepped1, int stepped2, int objects,
                                           SmxStatus status) {
                        ASSERT_EQ(status, smxStsNoErr) << code;
                        for (int n = 0; n < objects; ++n)
                            for (int p = 0; p < w; ++p) {
                                const T first = static_cast<T>(s * x.at(n * stepped1, 0, p)),
                                        second = y.at(n * stepped2, 0, p);
                                ASSERT_EQ(v.at(n, 0, p),
                                          static_cast<T>(first + (lcomb ? static_cast<T>(r * second) : second)))
                                    << code << ' ' << int(form) << " len " << w << " object " << n;
                            }
                    };
                    const Just<T> S{s}, R{r};
                    const Just<int> L{w}, N{count};
                    check("Saxpy vava", false, 1, 1, count, Saxpy_vava<T>(form, Array{x}, S, Array{y}, Array{v}, L, N));
                    check("Saxpy vav", false, 1, 0, count, Saxpy_vav<T>(form, Array{x}, S, One{y}, Array{v}, L, N));
                    check("Saxpy vva", false, 0, 1, count, Saxpy_vva<T>(form, One{x}, S, Array{y}, Array{v}, L, N));
                    check("Saxpy vv", false, 0, 0, 1, Saxpy_vv<T>(form, One{x}, S, One{y}, One{v}, L));
                    check("LComb vava", true, 1, 1, count,
                          LComb_vava<T>(form, Array{x}, S, Array{y}, R, Array{v}, L, N));
                    check("LComb vav", true, 1, 0, count, LComb_vav<T>(form, Array{x}, S, One{y}, R, Array{v}, L, N));
                    check("LComb vv", true, 0, 0, 1, LComb_vv<T>(form, One{x}, S, One{y}, R, One{v}, L));
                }
}

// Where products of -0.0 are summed, a path that starts at 0.0 shows; nan times 0 is not skipped.
TYPED_TEST(ProductVector, WrittenOutSumsStartAtTheFirstProduct) {
    using T = TypeParam;
    for (Form form : all_forms)
        for (int side = 2; side <= 7; ++side) {
            Objects<T> a(form, side, side, 20);
            Vectors<T> b(form, side, 20), d(form, side, 20);
            for (int n = 0; n < 20; ++n)
                for (int i = 0; i < side; ++i) {
                    b.at(n, 0, i) = T(1);
                    for (int j = 0; j < side; ++j) a.at(n, i, j) = -T(0);
                }
            ASSERT_EQ(Mul_mava<T>(form, Array{a}, Just{side}, Just{side}, Array{b}, Just{side}, Array{d}, Just{20}),
                      smxStsNoErr);
            const bool negative = side >= 3 && side <= 6 && form != Form::list;
            for (int n = 0; n < 20; ++n) EXPECT_EQ(std::signbit(d.at(n, 0, 1)), negative) << int(form) << ' ' << side;
        }
    const T nan = std::numeric_limits<T>::quiet_NaN();
    T x[1] = {nan}, y[1] = {1}, z[1] = {0};
    ASSERT_EQ((of_type<T>(smxSaxpy_vv_32f, smxSaxpy_vv_64f)(x, sizeof(T), T(0), y, sizeof(T), z, sizeof(T), 1)),
              smxStsNoErr);
    EXPECT_TRUE(std::isnan(z[0]));
}

TYPED_TEST(ProductVector, LengthsMustFit) {
    using T = TypeParam;
    constexpr int E = sizeof(T);
    T a[10] = {}, b[5] = {}, c[5] = {}, d[5] = {};
    const auto mv = of_type<T>(smxMul_mv_32f, smxMul_mv_64f), tv = of_type<T>(smxMul_tv_32f, smxMul_tv_64f);
    EXPECT_EQ(tv(a, 2 * E, E, 2, 5, b, E, 5, d, E), smxStsNoErr);
    EXPECT_EQ(mv(a, 2 * E, E, 2, 5, b, E, 5, d, E), smxStsSizeMatchMatrixErr);
    EXPECT_EQ(mv(a, 1, E, 2, 5, b, E, 5, d, E), smxStsSizeMatchMatrixErr) << "before the strides";
    const auto gaxpy = of_type<T>(smxGaxpy_mv_32f, smxGaxpy_mv_64f);
    EXPECT_EQ(gaxpy(a, 3 * E, E, 3, 2, b, E, 3, c, E, 2, d, E), smxStsNoErr);
    EXPECT_EQ(gaxpy(a, 3 * E, E, 3, 2, b, E, 3, c, E, 3, d, E), smxStsSizeMatchMatrixErr);
    EXPECT_EQ(gaxpy(a, 3 * E, E, 3, 2, b, E, 2, c, E, 2, d, E), smxStsSizeMatchMatrixErr);
}

} // namespace
