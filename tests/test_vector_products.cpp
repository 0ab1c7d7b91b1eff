// Dot and cross products, norms, traces and the affine transform: values, orders of summation and the odd rules.
#include "factor.hpp"

#include <limits>

namespace {

using namespace factor;

SINGLE_CALL(DotProduct, vv)
ARRAY_CALL(DotProduct, vav)
ARRAY_CALL(DotProduct, vava)
SINGLE_CALL(CrossProduct, vv)
ARRAY_CALL(CrossProduct, vav)
ARRAY_CALL(CrossProduct, vva)
ARRAY_CALL(CrossProduct, vava)
SINGLE_CALL(L2Norm, v)
ARRAY_CALL(L2Norm, va)
SINGLE_CALL(Trace, m)
ARRAY_CALL(Trace, ma)
SINGLE_CALL(FrobNorm, m)
ARRAY_CALL(FrobNorm, ma)

template <class T>
struct VectorProducts : ::testing::Test {};
TYPED_TEST_SUITE(VectorProducts, BothTypes);

// Random objects; `scale` may leave the range of the squares.
template <class O>
void fill(O &objects, unsigned seed, Real scale = 1) {
    using T = std::decay_t<decltype(objects.at(0, 0, 0))>;
    std::mt19937 random(seed);
    for (int n = 0; n < objects.count; ++n) {
        Matrix<Real> a = matrix<T>(Kind::random, objects.rows, objects.cols, random, 0);
        for (Real &x : a.e) x *= scale;
        objects.set(n, a);
    }
}

bool is_s2(Form form) {
    return form == Form::strided || form == Form::list_strided;
}

// The order in which terms are added, as indexes; a pair in parentheses for the doubled tail.
template <class T>
T chained(const std::vector<T> &x) {
    T sum = x[0];
    for (std::size_t i = 1; i < x.size(); ++i) sum = static_cast<T>(sum + x[i]);
    return sum;
}
template <class T>
std::vector<T> dot_order(std::vector<T> p, Form form) {
    if (!is_s2(form) || (p.size() != 5 && p.size() != 6)) return p;
    return {p[0], p.size() == 6 ? static_cast<T>(p[4] + p[5]) : p[4], p[1], p[2], p[3]};
}
template <class T>
std::vector<T> trace_order(std::vector<T> d, Form form) {
    if (form == Form::pointers || (d.size() != 5 && d.size() != 6)) return d;
    return {d.size() == 6 ? static_cast<T>(d[4] + d[5]) : d[4], d[0], d[1], d[2], d[3]};
}

// Terms of very different magnitudes: another order of addition gives another sum.
template <class T>
T term(int n, int p) {
    const T big = sizeof(T) == 4 ? T(1e9) : T(1e18);
    const T terms[] = {big, T(1.25), T(-3.5), T(0.3), -big, T(7.1), T(0.9)};
    return terms[(p + (n % 3 == 2 ? n : 0)) % 7] * T(1 + n % 3);
}

TYPED_TEST(VectorProducts, DotProductsAndTracesAddInTheirStatedOrder) {
    using T = TypeParam;
    int told_apart = 0;
    for (Form form : all_forms)
        for (int len = 1; len <= 9; ++len)
            for (int count : {1, 2, 37}) {
                SCOPED_TRACE(testing::Message() << int(form) << " len " << len << " count " << count);
                Vectors<T> a(form, len, count), b(form, len, count);
                Objects<T> m(form, len, len, count);
                std::vector<T> dot(static_cast<std::size_t>(count), mark<T>), by_one = dot, trace = dot;
                T single = mark<T>, trace_single = mark<T>;
                fill(b, 5), fill(m, 6);
                for (int n = 0; n < count; ++n)
                    for (int p = 0; p < len; ++p) {
                        a.at(n, 0, p) = term<T>(n, p);
                        m.at(n, p, p) = term<T>(n, p);
                    }
                ASSERT_EQ(DotProduct_vava<T>(form, Array{a}, Array{b}, Just{dot.data()}, Just{len}, Just{count}), 0);
                ASSERT_EQ(DotProduct_vav<T>(form, Array{a}, One{b}, Just{by_one.data()}, Just{len}, Just{count}), 0);
                ASSERT_EQ(DotProduct_vv<T>(form, One{a}, One{b}, Just{&single}, Just{len}), 0);
                ASSERT_EQ(Trace_ma<T>(form, Array{m}, Just{len}, Just{trace.data()}, Just{count}), 0);
                ASSERT_EQ(Trace_m<T>(form, One{m}, Just{len}, Just{&trace_single}), 0);
                for (int n = 0; n < count; ++n) {
                    std::vector<T> products, with_one, diagonal;
                    for (int p = 0; p < len; ++p) {
                        products.push_back(static_cast<T>(a.at(n, 0, p) * b.at(n, 0, p)));
                        with_one.push_back(static_cast<T>(a.at(n, 0, p) * b.at(0, 0, p)));
                        diagonal.push_back(m.at(n, p, p));
                    }
                    const auto at = static_cast<std::size_t>(n);
                    EXPECT_EQ(dot[at], chained(dot_order(products, form)));
                    EXPECT_EQ(by_one[at], chained(dot_order(with_one, form)));
                    EXPECT_EQ(trace[at], chained(trace_order(diagonal, form)));
                    told_apart += chained(dot_order(products, form)) != chained(products);
                    told_apart += chained(trace_order(diagonal, form)) != chained(diagonal);
                }
                EXPECT_EQ(single, dot[0]);
                EXPECT_EQ(trace_single, trace[0]);
            }
    EXPECT_GT(told_apart, 100) << "the terms do not tell the orders apart";
}

TYPED_TEST(VectorProducts, CrossProductsRoundEachProductAndTheDifference) {
    using T = TypeParam;
    for (Form form : all_forms)
        for (int count : {1, 3, 37}) {
            Vectors<T> a(form, 3, count), b(form, 3, count), d(form, 3, count);
            fill(a, 1), fill(b, 2);
            const auto check = [&](int step1, int step2, int objects, SmxStatus status) {
                ASSERT_EQ(status, smxStsNoErr);
                for (int n = 0; n < objects; ++n)
                    for (int i = 0; i < 3; ++i) {
                        const int j = (i + 1) % 3, k = (i + 2) % 3, p = n * step1, q = n * step2;
                        const T left = static_cast<T>(a.at(p, 0, j) * b.at(q, 0, k)),
                                right = static_cast<T>(a.at(p, 0, k) * b.at(q, 0, j));
                        ASSERT_EQ(d.at(n, 0, i), static_cast<T>(left - right)) << int(form) << " object " << n;
                    }
            };
            check(1, 1, count, CrossProduct_vava<T>(form, Array{a}, Array{b}, Array{d}, Just{count}));
            check(1, 0, count, CrossProduct_vav<T>(form, Array{a}, One{b}, Array{d}, Just{count}));
            check(0, 1, count, CrossProduct_vva<T>(form, One{a}, Array{b}, Array{d}, Just{count}));
            check(0, 0, 1, CrossProduct_vv<T>(form, One{a}, One{b}, One{d}));
        }
}

TYPED_TEST(VectorProducts, CrossProductsWithOneSecondVectorTestTheCountLate) {
    using T = TypeParam;
    constexpr int E = sizeof(T);
    T a[3] = {}, b[3] = {}, d[3] = {};
    T *const x[] = {a, a + 1, a + 2}, *const y[] = {b, b + 1, b + 2}, *const z[] = {d, d + 1, d + 2};
    const auto vav = of_type<T>(smxCrossProduct_vav_32f, smxCrossProduct_vav_64f);
    const auto vva = of_type<T>(smxCrossProduct_vva_32f, smxCrossProduct_vva_64f);
    const auto vav_p = of_type<T>(smxCrossProduct_vav_32f_P, smxCrossProduct_vav_64f_P);
    const auto vav_l = of_type<T>(smxCrossProduct_vav_32f_L, smxCrossProduct_vav_64f_L);
    EXPECT_EQ(vav(a, 1, E, b, E, d, E, E, 0), smxStsStrideMatrixErr);
    EXPECT_EQ(vva(a, 1, b, E, E, d, E, E, 0), smxStsCountMatrixErr);
    EXPECT_EQ(vav_p(x, 1, E, y, 0, z, 0, E, 0), smxStsCountMatrixErr);
    EXPECT_EQ(vav_l(x, 1, E, b, E, z, 0, E, 0), smxStsRoiShiftMatrixErr);
}

TYPED_TEST(VectorProducts, NormsAddSquaresInDoubleAndRoundOnce) {
    using T = TypeParam;
    const Real scales[] = {1, sizeof(T) == 4 ? 1e19L : 1e150L, sizeof(T) == 4 ? 1e-30L : 1e-130L};
    for (Form form : all_forms)
        for (int len = 1; len <= 9; ++len)
            for (const Real scale : scales) {
                constexpr int count = 37;
                Vectors<T> a(form, len, count);
                fill(a, 3, scale);
                std::vector<T> norms(count);
                T single;
                ASSERT_EQ(L2Norm_va<T>(form, Array{a}, Just{norms.data()}, Just{len}, Just{count}), 0);
                ASSERT_EQ(L2Norm_v<T>(form, One{a}, Just{&single}, Just{len}), 0);
                EXPECT_EQ(single, norms[0]);
                for (int n = 0; n < count; ++n) {
                    double sum = 0;
                    for (int p = 0; p < len; ++p)
                        sum += static_cast<double>(a.at(n, 0, p)) * static_cast<double>(a.at(n, 0, p));
                    EXPECT_EQ(norms[static_cast<std::size_t>(n)], static_cast<T>(std::sqrt(sum)))
                        << int(form) << " len " << len;
                }
            }
    const float big[] = {3e19F, 3e19F, 3e19F};
    float norm = 0;
    ASSERT_EQ(smxL2Norm_v_32f(big, 4, &norm, 3), smxStsNoErr);
    EXPECT_NEAR(norm, 5.196152e19F, 1e13F);
}

// Where the sum of squares is below the machine epsilon, some members give 0.
template <class T>
bool cuts_off(Form form, bool array, int w, int h) {
    if (!array) return form == Form::pointers || sizeof(T) == 4;
    if (w == 3 && h == 3) return false;
    return form == Form::pointers || w < 4 || w > 6;
}

TYPED_TEST(VectorProducts, FrobeniusNormsCutOffByTheirTable) {
    using T = TypeParam;
    const double epsilon = std::numeric_limits<T>::epsilon();
    for (Form form : all_forms)
        for (int w = 1; w <= 8; ++w)
            for (int h = 1; h <= 8; ++h) {
                SCOPED_TRACE(testing::Message() << int(form) << ": " << w << " by " << h);
                constexpr int count = 37;
                Objects<T> a(form, h, w, count);
                fill(a, 4);
                // One element that is not 0, and its square: below, at and above the bound, and not a number.
                const T at_bound = std::ldexp(T(1), sizeof(T) == 4 ? -12 : -26);
                const T lone[] = {at_bound, at_bound * (sizeof(T) == 4 ? T(2) : T(1)),
                                  std::numeric_limits<T>::quiet_NaN()};
                for (int n = 3; n < 6; ++n) {
                    a.set(n, Matrix<Real>(h, w));
                    a.at(n, h - 1, w - 1) = lone[n - 3];
                }
                for (const bool array : {true, false}) {
                    std::vector<T> norms(count, mark<T>);
                    if (array) {
                        ASSERT_EQ(FrobNorm_ma<T>(form, Array{a}, Just{w}, Just{h}, Just{norms.data()}, Just{count}), 0);
                    } else {
                        for (int n = 0; n < count; ++n)
                            ASSERT_EQ(FrobNorm_m<T>(form, One{a, n}, Just{w}, Just{h},
                                                    Just{&norms[static_cast<std::size_t>(n)]}),
                                      0);
                    }
                    for (int n = 0; n < count; ++n) {
                        std::vector<double> squares;
                        for (int i = 0; i < h; ++i)
                            for (int j = 0; j < w; ++j)
                                squares.push_back(static_cast<double>(a.at(n, i, j)) *
                                                  static_cast<double>(a.at(n, i, j)));
                        if (form == Form::pointers && !(array && w == 3 && h == 3))
                            for (std::size_t e = 0; e < squares.size(); ++e) {
                                if (e + 1 == squares.size()) break;
                                squares[e] += squares[e + 1];
                                squares.erase(squares.begin() + static_cast<std::ptrdiff_t>(e) + 1);
                            }
                        const double sum = chained(squares);
                        const T expected =
                            cuts_off<T>(form, array, w, h) && !(sum >= epsilon) ? T(0) : static_cast<T>(std::sqrt(sum));
                        const T found = norms[static_cast<std::size_t>(n)];
                        EXPECT_TRUE(found == expected || (std::isnan(found) && std::isnan(expected)))
                            << found << " for " << expected << " array " << array << " object " << n;
                    }
                }
            }
}

TEST(AffineTransform, DividesByTheFourthCoordinateAndMarksBadPoints) {
    const float smallest = std::numeric_limits<float>::min(), greatest = std::numeric_limits<float>::max();
    const float m[20] = {1.5F, 0.25F, -1, 2,    99, 0.5F,  2, 0.75F, -3,   99,
                         0.1F, 0.3F,  1,  0.7F, 99, 0.01F, 0, 0,     0.9F, 99};
    const auto row = [&](int r, const float *p) {
        const float *const c = m + 5 * r;
        return ((c[0] * p[0] + c[3]) + c[1] * p[1]) + c[2] * p[2];
    };
    for (const int spread : {1, 2})
        for (const int count : {1, 5, 16, 37, 400})
            for (const int threads : {1, 3}) {
                const Threads guard(threads);
                std::vector<float> points(static_cast<std::size_t>(count * 3 * spread)), out(points.size() + 8, -1.0F);
                for (std::size_t i = 0; i < points.size(); ++i) points[i] = std::sin(static_cast<float>(i) * 0.7F) * 5;
                const int stride = 12 * spread, step = 4 * spread;
                ASSERT_EQ(smxAffineTransform3DH_mva_32f(m, 20, 4, points.data(), stride, step, out.data(), stride, step,
                                                        count),
                          smxStsNoErr);
                for (int n = 0; n < count; ++n) {
                    const auto first = static_cast<std::size_t>(n * 3 * spread), s = static_cast<std::size_t>(spread);
                    const float p[3] = {points[first], points[first + s], points[first + 2 * s]};
                    const float reciprocal = 1 / row(3, p);
                    for (int r = 0; r < 3; ++r)
                        ASSERT_EQ(out[first + static_cast<std::size_t>(r) * s], row(r, p) * reciprocal) << n;
                }
            }
    // w = x: bad where it is 0, denormal, the smallest normal itself or not a number; the others go on.
    const float by_x[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0};
    const float w[] = {0,
                       2,
                       smallest,
                       smallest / 2,
                       std::nextafter(smallest, 1.0F),
                       -smallest,
                       std::numeric_limits<float>::quiet_NaN(),
                       -4};
    const bool good[] = {false, true, false, false, true, false, false, true};
    for (const int repeat : {1, 5}) {
        std::vector<float> points, out(static_cast<std::size_t>(24 * repeat));
        for (int n = 0; n < 8 * repeat; ++n) points.insert(points.end(), {w[n % 8], 0.5F * w[n % 8], 2});
        EXPECT_EQ(smxAffineTransform3DH_mva_32f(by_x, 16, 4, points.data(), 12, 4, out.data(), 12, 4, 8 * repeat),
                  smxStsDivByZeroErr);
        for (std::size_t n = 0; n < points.size() / 3; ++n)
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_EQ(out[3 * n + i], good[n % 8] ? points[3 * n + i] * (1 / w[n % 8]) : greatest) << n;
    }
    const float none[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    float identity[6] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(smxAffineTransform3DH_mva_32f(none, 16, 4, identity, 12, 4, identity, 12, 4, 2), smxStsNoErr)
        << "in place";
    for (int i = 0; i < 6; ++i) EXPECT_EQ(identity[i], static_cast<float>(i + 1));
}

} // namespace
