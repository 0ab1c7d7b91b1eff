// Products of matrices by vectors and constants, gaxpy, saxpy and linear combinations against sequential models of
// their kernels: which sums start at 0.0, what is kept, and what is stored before the next element is read.
#include "reference.hpp"

namespace {

using namespace reference::models;
using reference::Form;

SINGLE_CALL(LComb, vv)
ARRAY_CALL(LComb, vav)
ARRAY_CALL(LComb, vava)

template <class T>
struct ProductVector : ::testing::Test {};
TYPED_TEST_SUITE(ProductVector, factor::BothTypes);

bool special_side(int n) {
    return n >= 3 && n <= 6;
}

// Sums ascend in the element type. Square ones of special sides start at the first product and are written out, but in
// lists of adjacent elements; what an object reads after its first store is then left open.
template <class T>
int by_vector(const Workspace<T> &w) {
    const Operand<T> &a = w["src1"], &b = w["src2"], &d = w["dst"];
    const int m = w.outer(), k = w.inner();
    const bool written = m == k && special_side(k) && w.form != Form::list;
    // One member goes row by row also where the others take blocks of rows.
    const bool by_rows = w.code() == "mva" && sizeof(T) == 4 && w.form == Form::packed;
    const bool kept = written && a.array && !b.array && (w.form == Form::packed || w.form == Form::strided);
    std::vector<T> single;
    for (int p = 0; p < k; ++p) single.push_back(b(0, p));
    const auto product = [&](int n, int i, int p) -> T {
        return a(n, i, p) * (kept ? single[static_cast<std::size_t>(p)] : b(n, p));
    };
    const auto sum = [&](int n, int i) {
        T s = written ? T(-0.0) : T(0);
        for (int p = 0; p < k; ++p) s = s + product(n, i, p);
        return s;
    };
    const bool blocked = w.form == Form::list || (w.form == Form::packed && !written && !by_rows);
    for (int n = 0, objects = 1; n < w.count; n += objects) {
        if (written && !by_rows && w.overlap != Overlap::none && w.meets(n, kept ? "src2" : "")) return untold;
        // Blocks: four rows of two objects, or eight of the one that is left, are summed, then stored.
        objects = blocked && w.row.array() && w.count - n > 1 ? 2 : 1;
        const int rows = !blocked ? 1 : objects == 2 ? 4 : 8;
        for (int i = 0; i < m; i += rows) {
            std::vector<T> sums;
            T s = T(0);
            if (blocked || written || by_rows) {
                for (int o = 0; o < objects; ++o)
                    for (int r = i; r < std::min(i + rows, m); ++r) sums.push_back(sum(n + o, r));
                for (std::size_t e = 0; e < sums.size(); ++e) {
                    const int height = std::min(rows, m - i), at = static_cast<int>(e);
                    d(n + at / height, i + at % height) = sums[e];
                }
            } else { // every partial sum passes through the result, which is the accumulator in tables of pointers
                d(n, i) = s;
                for (int p = 0; p < k; ++p) {
                    const T term = product(n, i, p);
                    d(n, i) = s = (w.form == Form::pointers ? d(n, i) : s) + term;
                }
            }
        }
    }
    return smxStsNoErr;
}

// Each element is read, multiplied and stored before the next one, in the order of the result.
template <class T>
int by_constant(const Workspace<T> &w) {
    for (int n = 0; n < w.count; ++n)
        for (int i = 0; i < w.height; ++i)
            for (int j = 0; j < w.width; ++j) w["dst"](n, i, j) = w["src"](n, i, j) * static_cast<T>(w.constant);
    return smxStsNoErr;
}

// Likewise; a single vector is read again for each object.
template <class T>
int combination(const Workspace<T> &w) {
    const Operand<T> &x = w["src1"], &y = w["src2"], &d = w["dst"];
    const T c = static_cast<T>(w.constant);
    for (int n = 0; n < w.count; ++n)
        for (int p = 0; p < w.width; ++p) {
            const T first = c * x(n, p), second = w.row.name[0] == 'L' ? c * y(n, p) : y(n, p);
            d(n, p) = first + second;
        }
    return smxStsNoErr;
}

template <class T>
int gaxpy(const Workspace<T> &w) {
    for (int n = 0; n < w.count; ++n)
        for (int i = 0; i < w.height; ++i) {
            T sum = w.width == w.height && special_side(w.width) ? T(-0.0) : T(0);
            for (int p = 0; p < w.width; ++p) {
                const T product = w["src1"](n, i, p) * w["src2"](n, p);
                sum = sum + product;
            }
            w["dst"](n, i) = sum + w["src3"](n, i);
        }
    return smxStsNoErr;
}

} // namespace

TYPED_TEST(ProductVector, MatrixByVectorHasTheBitsOfTheReference) {
    const auto belongs = [](const std::string &row) {
        return row.rfind("Mul_", 0) == 0 && (row[4] == 'm' || row[4] == 't') && row.find('v') != row.npos;
    };
    EXPECT_GT((compare_all<TypeParam>(belongs, true, by_vector<TypeParam>)), 8000);
}
TYPED_TEST(ProductVector, MatrixByConstantHasTheBitsOfTheReference) {
    const auto belongs = [](const std::string &row) {
        return row.rfind("Mul_", 0) == 0 && (row[4] == 'm' || row[4] == 't') && row.back() == 'c';
    };
    EXPECT_GT((compare_all<TypeParam>(belongs, true, by_constant<TypeParam>)), 6000);
}
TYPED_TEST(ProductVector, CombinationsHaveTheBitsOfTheReference) {
    const auto belongs = [](const std::string &row) {
        return row.rfind("Saxpy", 0) == 0 || row.rfind("LComb", 0) == 0;
    };
    EXPECT_GT((compare_all<TypeParam>(belongs, true, combination<TypeParam>)), 10000);
}
TYPED_TEST(ProductVector, GaxpyHasTheBitsOfTheReference) {
    // Results may not lie on a source.
    const auto belongs = [](const std::string &row) { return row.rfind("Gaxpy", 0) == 0; };
    EXPECT_GT((compare_all<TypeParam>(belongs, false, gaxpy<TypeParam>)), 4000);
}

// The models give both constants one value.
TYPED_TEST(ProductVector, EachConstantOfALinearCombinationBelongsToItsVector) {
    using T = TypeParam;
    using factor::Array, factor::Just, factor::One;
    const Just<T> s{T(1.3)}, r{T(-0.7)};
    std::mt19937 random(9);
    for (const Form form : factor::all_forms)
        for (int len = 2; len <= 7; ++len) {
            const Just<int> l{len}, count{19};
            factor::Vectors<T> x(form, len, 19), y(form, len, 19), one(form, len, 1), shared(form, len, 19),
                own(form, len, 19);
            reference::fill(x, random, false);
            reference::fill(y, random, false);
            ASSERT_EQ(LComb_vv<T>(form, One{x}, s, One{y}, r, One{one}, l), 0);
            ASSERT_EQ(LComb_vav<T>(form, Array{x}, s, One{y}, r, Array{shared}, l, count), 0);
            ASSERT_EQ(LComb_vava<T>(form, Array{x}, s, Array{y}, r, Array{own}, l, count), 0);
            for (int n = 0; n < 19; ++n)
                for (int p = 0; p < len; ++p) {
                    const T first = s.x * x.at(n, 0, p), with_own = r.x * y.at(n, 0, p), with_one = r.x * y.at(0, 0, p);
                    ASSERT_EQ(own.at(n, 0, p), first + with_own);
                    ASSERT_EQ(shared.at(n, 0, p), first + with_one);
                    if (n == 0) {
                        ASSERT_EQ(one.at(n, 0, p), first + with_one);
                    }
                }
        }
}

TYPED_TEST(ProductVector, LengthsMustFit) {
    using T = TypeParam;
    using factor::of_type;
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
