// QR decomposition and back substitution.
#include "factor.hpp"

namespace {

using namespace factor;

SINGLE_CALL(QRDecomp, m)
ARRAY_CALL(QRDecomp, ma)
SINGLE_CALL(QRBackSubst, mv)
ARRAY_CALL(QRBackSubst, mva)
ARRAY_CALL(QRBackSubst, mava)

template <class T>
struct QR : ::testing::Test {};
TYPED_TEST_SUITE(QR, BothTypes);

struct Shape {
    int width, height;
};
constexpr Shape shapes[] = {{1, 1}, {1, 2}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6},
                            {4, 6}, {7, 7}, {8, 8}, {9, 9}, {3, 4}, {5, 9}, {2, 7}};

// Q of a packed result: the product of its reflections.
Matrix<Real> orthogonal_factor(const Matrix<Real> &packed) {
    const int h = packed.rows, steps = packed.cols == h ? h - 1 : packed.cols;
    Matrix<Real> q = identity(h);
    for (int k = steps - 1; k >= 0; --k) {
        Matrix<Real> v(h, 1);
        Real square = 1;
        v(k, 0) = 1;
        for (int i = k + 1; i < h; ++i) {
            v(i, 0) = packed(i, k);
            square += v(i, 0) * v(i, 0);
        }
        for (int j = 0; j < h; ++j) {
            Real u = 0;
            for (int i = k; i < h; ++i) u += v(i, 0) * q(i, j);
            for (int i = k; i < h; ++i) q(i, j) -= 2 / square * u * v(i, 0);
        }
    }
    return q;
}

TYPED_TEST(QR, FactorsAndSolvesWithSmallResiduals) {
    using T = TypeParam;
    std::mt19937 random(3);
    for (Form form : all_forms)
        for (const auto [w, h] : shapes)
            for (Kind kind : all_kinds) {
                // Graded columns sink below the tolerance at high sides.
                if (kind == Kind::graded && sizeof(T) == 4 && w > 6) continue;
                SCOPED_TRACE(testing::Message() << int(form) << " shape " << w << ' ' << h << " kind " << int(kind));
                constexpr int count = 21;
                Objects<T> src(form, h, w, count), dst(form, h, w, count);
                Vectors<T> b(form, h, count), x(form, w, count);
                std::vector<T> buffer(static_cast<std::size_t>(h));
                for (int k = 0; k < count; ++k) {
                    src.set(k, matrix<T>(kind, h, w, random, sizeof(T) == 4 ? 58 : 505));
                    for (int i = 0; i < h; ++i) b.at(k, 0, i) = static_cast<T>(i + k + 1);
                }
                ASSERT_EQ(
                    QRDecomp_ma<T>(form, Array{src}, Just{buffer.data()}, Array{dst}, Just{w}, Just{h}, Just{count}),
                    smxStsNoErr);
                ASSERT_EQ(QRBackSubst_mava<T>(form, Array{dst}, Just{buffer.data()}, Array{b}, Array{x}, Just{w},
                                              Just{h}, Just{count}),
                          smxStsNoErr);
                for (int k = 0; k < count; ++k) {
                    const Matrix<Real> a = read(src, k), packed = read(dst, k), q = orthogonal_factor(packed);
                    Matrix<Real> r(h, w);
                    for (int i = 0; i < w; ++i)
                        for (int j = i; j < w; ++j) r(i, j) = packed(i, j);
                    const Matrix<Real> right = transposed(read(b, k)), solution = transposed(read(x, k));
                    ASSERT_LT(norm(minus(a, q * r)) / (h * norm(a) * eps<T>), 30);
                    ASSERT_LT(norm(minus(identity(h), transposed(q) * q)) / (h * eps<T>), 30);
                    // Square: the residual; else its projection onto the columns.
                    const Matrix<Real> residual = minus(right, a * solution);
                    const Real scale = h * (norm(a) * norm(solution) + norm(right)) * eps<T>;
                    if (w == h) {
                        ASSERT_LT(norm(residual) / scale, 30);
                    } else {
                        ASSERT_LT(norm(transposed(a) * residual) / (norm(transposed(a)) * scale), 30);
                    }
                }
            }
}

// Arrays give what single objects give, bit for bit; every share stops at its first failure and leaves what a single
// object leaves.
TYPED_TEST(QR, ArraysAreSinglesInShares) {
    using T = TypeParam;
    std::mt19937 random(4);
    for (Form form : all_forms)
        for (const auto [w, h] : shapes)
            for (int threads : {1, 2, 3})
                for (int failing : {-1, 0, 1, 4}) {
                    if (failing >= (w == h ? w - 1 : w)) continue;
                    SCOPED_TRACE(testing::Message() << int(form) << " shape " << w << ' ' << h << " threads " << threads
                                                    << " column " << failing);
                    const int count = 2801 / (2 * w) + 40;
                    Objects<T> src(form, h, w, count), dst(form, h, w, count), expected(form, h, w, count);
                    std::vector<T> buffer(static_cast<std::size_t>(h), mark<T>);
                    const Matrix<Real> some[] = {matrix<T>(Kind::random, h, w, random, 0),
                                                 matrix<T>(Kind::lower, h, w, random, 0),
                                                 matrix<T>(Kind::random, h, w, random, 0)};
                    for (int k = 0; k < count; ++k) src.set(k, some[k % 3]);
                    if (failing >= 0)
                        for (int k : {13, count / 2 + 9, count - 2})
                            for (int i = 0; i < h; ++i) src.at(k, i, failing) = 0;
                    const SmxStatus wanted = in_shares(count, threads, [&, w = w, h = h](int k) {
                        return QRDecomp_m<T>(form, One{src, k}, Just{buffer.data()}, One{expected, k}, Just{w},
                                             Just{h});
                    });
                    ASSERT_EQ(wanted, failing < 0 ? smxStsNoErr : smxStsDivByZeroErr);
                    buffer.assign(buffer.size(), mark<T>);
                    const std::vector<T> untouched = buffer;
                    const Threads set(threads);
                    ASSERT_EQ(QRDecomp_ma<T>(form, Array{src}, Just{buffer.data()}, Array{dst}, Just{w}, Just{h},
                                             Just{count}),
                              wanted);
                    ASSERT_TRUE(same_bytes(dst.memory, expected.memory));
                    ASSERT_TRUE(threads == 1 || same_bytes(buffer, untouched));

                    Vectors<T> b(form, h, count), x(form, w, count), y(form, w, count), z(form, w, count),
                        one(form, w, count);
                    for (int k = 0; k < count; ++k)
                        for (int i = 0; i < h; ++i) b.at(k, 0, i) = static_cast<T>(random() % 1000) / 7;
                    QRBackSubst_mava<T>(form, Array{dst}, Just{buffer.data()}, Array{b}, Array{x}, Just{w}, Just{h},
                                        Just{count});
                    QRBackSubst_mva<T>(form, One{dst, 2}, Just{buffer.data()}, Array{b}, Array{z}, Just{w}, Just{h},
                                       Just{count});
                    for (int k = 0; k < count; ++k) {
                        QRBackSubst_mv<T>(form, One{dst, k}, Just{buffer.data()}, One{b, k}, One{y, k}, Just{w},
                                          Just{h});
                        QRBackSubst_mv<T>(form, One{dst, 2}, Just{buffer.data()}, One{b, k}, One{one, k}, Just{w},
                                          Just{h});
                    }
                    ASSERT_TRUE(same_bytes(x.memory, y.memory));
                    ASSERT_TRUE(same_bytes(z.memory, one.memory));
                    // in place
                    ASSERT_EQ(QRDecomp_ma<T>(form, Array{src}, Just{buffer.data()}, Array{src}, Just{w}, Just{h},
                                             Just{count}),
                              wanted);
                    if (failing < 0) {
                        ASSERT_TRUE(same_bytes(src.memory, dst.memory));
                    }
                    if (w == h) {
                        QRBackSubst_mava<T>(form, Array{dst}, Just{buffer.data()}, Array{b}, Array{b}, Just{w}, Just{h},
                                            Just{count});
                        ASSERT_TRUE(same_bytes(b.memory, x.memory));
                    }
                }
}

TYPED_TEST(QR, SmallExamples) {
    using T = TypeParam;
    const auto packed = [](int w, int h, std::initializer_list<double> elements, SmxStatus status) {
        Objects<T> a(Form::packed, h, w, 1);
        T buffer[3] = {mark<T>, mark<T>, mark<T>};
        std::copy(elements.begin(), elements.end(), a.memory.begin());
        EXPECT_EQ(QRDecomp_m<T>(Form::packed, One{a}, Just{buffer}, One{a}, Just{w}, Just{h}), status);
        if (h == 1) {
            EXPECT_EQ(buffer[0], mark<T>);
        }
        return std::vector<T>(a.memory.begin(), a.memory.begin() + w * h);
    };
    EXPECT_EQ(packed(1, 1, {0}, smxStsNoErr), (std::vector<T>{0}));
    EXPECT_EQ(packed(1, 2, {3, 4}, smxStsNoErr), (std::vector<T>{-5, T(0.5)}));
    EXPECT_EQ(packed(1, 2, {0, 1}, smxStsNoErr), (std::vector<T>{1, -1})); // a zero counts as negative
    packed(2, 2, {0, 0, 0, 0}, smxStsDivByZeroErr);
    packed(2, 2, {1, 0, 0, 0}, smxStsNoErr); // the last column of a square matrix is not tested
    packed(2, 3, {1, 0, 0, 0, 0, 0}, smxStsDivByZeroErr);
    // The bound holds for the sum of squares, and passes itself.
    const double bound = sizeof(T) == 4 ? 0x1p-23 : 0x1p-52, root = sizeof(T) == 4 ? 0x1p-12 : 0x1p-26;
    packed(1, 3, {sizeof(T) == 4 ? root : root / 2, sizeof(T) == 4 ? root : root / 2, sizeof(T) == 4 ? 0 : root / 2},
           sizeof(T) == 4 ? smxStsNoErr : smxStsDivByZeroErr); // 2^-12 2^-12 2 = 2^-23; below 2^-52
    packed(1, 2, {root * 0.99, 0}, smxStsDivByZeroErr);
    packed(1, 2, {0, std::sqrt(bound) * 1.01}, smxStsNoErr);
    packed(1, 2, {std::nan(""), 1}, smxStsDivByZeroErr);
}

TYPED_TEST(QR, TheMatchTestComesLast) {
    using T = TypeParam;
    constexpr int E = sizeof(T);
    T a[4] = {}, buffer[2];
    const auto call = of_type<T>(smxQRDecomp_m_32f, smxQRDecomp_m_64f);
    EXPECT_EQ(call(a, 2 * E, E, buffer, a, 2 * E, E + 1, 2, 1), smxStsStrideMatrixErr);
    EXPECT_EQ(call(a, 2 * E, E, buffer, a, 2 * E, E, 2, 1), smxStsSizeMatchMatrixErr);
    EXPECT_EQ(call(a, 2 * E, E, nullptr, a, 2 * E, E, 2, 1), smxStsNullPtrErr);
}

} // namespace
