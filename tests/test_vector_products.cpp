// Dot and cross products, norms, traces and the affine transform against sequential models: orders of summation, the
// cut-off of the Frobenius norms, what is kept of a single vector.
#include "reference.hpp"

namespace {

using namespace reference::models;
using reference::Form;

template <class T>
struct VectorProducts : ::testing::Test {};
TYPED_TEST_SUITE(VectorProducts, factor::BothTypes);

bool special_length(int n) {
    return n >= 3 && n <= 6;
}

// A chain of sums in the element type.
template <class T>
T chain(T sum, const std::vector<T> &terms) {
    for (const T term : terms) sum = sum + term;
    return sum;
}

template <class T>
int dot_product(const Workspace<T> &w) {
    const Operand<T> &a = w["src1"], &b = w["src2"];
    const bool written = special_length(w.width), kept = written && w.code() == "vav";
    const bool tail_first = w.width > 4 && written && (w.form == Form::strided || w.form == Form::list_strided);
    std::vector<T> single;
    for (int p = 0; p < w.width; ++p) single.push_back(b(0, p));
    for (int n = 0; n < w.count; ++n) {
        std::vector<T> x;
        for (int p = 0; p < w.width; ++p) x.push_back(a(n, p) * (kept ? single[static_cast<std::size_t>(p)] : b(n, p)));
        if (tail_first) { // what is behind the first four comes second
            const T tail = w.width == 6 ? x[4] + x[5] : x[4];
            x = {x[0], tail, x[1], x[2], x[3]};
        }
        w["dst"](n, 0) = chain(written ? T(-0.0) : T(0), x);
    }
    return smxStsNoErr;
}

template <class T>
int cross_product(const Workspace<T> &w) {
    const Operand<T> &a = w["src1"], &b = w["src2"];
    for (int n = 0; n < w.count; ++n)
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            const T left = a(n, j) * b(n, k), right = a(n, k) * b(n, j);
            w["dst"](n, i) = left - right;
        }
    return smxStsNoErr;
}

double square(double x) {
    return x * x;
}

// Norms of floats add their squares in double and round once.
template <class T>
int l2_norm(const Workspace<T> &w) {
    for (int n = 0; n < w.count; ++n) {
        double sum = 0;
        for (int p = 0; p < w.width; ++p) sum += square(static_cast<double>(w["src"](n, p)));
        w["dst"](n, 0) = static_cast<T>(std::sqrt(sum));
    }
    return smxStsNoErr;
}

template <class T>
int trace(const Workspace<T> &w) {
    const Operand<T> &a = w["src"], &d = w["dst"];
    const int side = w.width;
    for (int n = 0; n < w.count; ++n) {
        if (special_length(side)) {
            std::vector<T> x;
            for (int i = 0; i < side; ++i) x.push_back(a(n, i, i));
            // What is behind the first four comes first.
            if (side > 4 && w.form != Form::pointers) std::rotate(x.begin(), x.begin() + 4, x.end());
            d(n, 0) = chain(T(-0.0), x);
        } else {
            T sum = d(n, 0) = T(0);
            for (int i = 0; i < side; ++i) d(n, 0) = sum = sum + a(n, i, i);
        }
    }
    return smxStsNoErr;
}

template <class T>
int frobenius_norm(const Workspace<T> &w) {
    const bool array = w.row.array(), pointers = w.form == Form::pointers;
    const bool three = array && w.width == 3 && w.height == 3;
    const bool cut = !array ? pointers || sizeof(T) == 4 : !three && (pointers || w.width < 4 || w.width > 6);
    for (int n = 0; n < w.count; ++n) {
        std::vector<double> x;
        for (int i = 0; i < w.height; ++i)
            for (int j = 0; j < w.width; ++j) {
                x.push_back(square(static_cast<double>(w["src"](n, i, j))));
                // Pointer tables are taken two entries at a time.
                if (const std::size_t e = x.size(); pointers && !three && (i * w.width + j) % 2 == 1) {
                    x[e - 2] += x[e - 1];
                    x.pop_back();
                }
            }
        const double sum = chain(0.0, x), epsilon = static_cast<double>(std::numeric_limits<T>::epsilon());
        w["dst"](n, 0) = cut && !(sum >= epsilon) ? T(0) : static_cast<T>(std::sqrt(sum));
    }
    return smxStsNoErr;
}

// The matrix is read once; a point is read before its result is stored.
int affine(const Workspace<float> &w) {
    float m[4][4], t[4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = w["src1"](0, i, j);
    int status = smxStsNoErr;
    for (int n = 0; n < w.count; ++n) {
        const float x = w["src2"](n, 0), y = w["src2"](n, 1), z = w["src2"](n, 2);
        for (int r = 0; r < 4; ++r) {
            const float px = m[r][0] * x, py = m[r][1] * y, pz = m[r][2] * z;
            t[r] = ((px + m[r][3]) + py) + pz;
        }
        const bool good = std::fabs(t[3]) > std::numeric_limits<float>::min();
        const float reciprocal = 1 / t[3];
        for (int i = 0; i < 3; ++i) w["dst"](n, i) = good ? t[i] * reciprocal : std::numeric_limits<float>::max();
        if (!good) status = smxStsDivByZeroErr;
    }
    return status;
}

auto named(const std::string &operation) {
    return [operation](const std::string &row) { return row.rfind(operation + "_", 0) == 0; };
}

} // namespace

TYPED_TEST(VectorProducts, HaveTheBitsOfTheReference) {
    using T = TypeParam;
    EXPECT_GT((compare_all<T>(named("DotProduct"), true, dot_product<T>)), 4000);
    EXPECT_GT((compare_all<T>(named("CrossProduct"), false, cross_product<T>)), 6000);
    EXPECT_GT((compare_all<T>(named("L2Norm"), true, l2_norm<T>)), 2500);
    EXPECT_GT((compare_all<T>(named("Trace"), true, trace<T>)), 2500);
    EXPECT_GT((compare_all<T>(named("FrobNorm"), true, frobenius_norm<T>)), 2500);
}
TEST(AffineTransform, HasTheBitsOfTheReference) {
    EXPECT_GT(compare_all<float>(named("AffineTransform3DH"), true, affine), 600);
}

// The sum of squares is the machine epsilon itself, and just below it.
TEST(FrobeniusNorm, ASumAtTheBoundIsNotCutOff) {
    const float a[] = {0x1p-12F, 0x1p-12F, 0x1p-12F, 0x1.fffffep-13F};
    float norms[2] = {};
    ASSERT_EQ(smxFrobNorm_ma_32f(a, 8, 8, 4, 2, 1, norms, 2), smxStsNoErr);
    EXPECT_EQ(norms[0], std::sqrt(0x1p-23F));
    EXPECT_EQ(norms[1], 0);
    const double b[] = {0x1p-26, 0x1.fffffffffffffp-27};
    double double_norms[2] = {};
    ASSERT_EQ(smxFrobNorm_ma_64f(b, 8, 8, 8, 1, 1, double_norms, 2), smxStsNoErr);
    EXPECT_EQ(double_norms[0], 0x1p-26);
    EXPECT_EQ(double_norms[1], 0);
}

// w = x: bad where it is 0, denormal, the smallest normal itself or not a number; the others go on.
TEST(AffineTransform, MarksBadPointsAndGoesOn) {
    using limits = std::numeric_limits<float>;
    const float by_x[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0};
    const float w[] = {0, 2, limits::min(), limits::min() / 2, 0x1.000002p-126F, -limits::min(), limits::quiet_NaN(),
                       -4};
    const bool good[] = {false, true, false, false, true, false, false, true};
    for (const int repeat : {1, 5}) {
        std::vector<float> points, out(static_cast<std::size_t>(24 * repeat));
        for (int n = 0; n < 8 * repeat; ++n) points.insert(points.end(), {w[n % 8], 0.5F * w[n % 8], 2});
        EXPECT_EQ(smxAffineTransform3DH_mva_32f(by_x, 16, 4, points.data(), 12, 4, out.data(), 12, 4, 8 * repeat),
                  smxStsDivByZeroErr);
        for (std::size_t n = 0; n < points.size() / 3; ++n)
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_EQ(out[3 * n + i], good[n % 8] ? points[3 * n + i] * (1 / w[n % 8]) : limits::max()) << n;
    }
}
