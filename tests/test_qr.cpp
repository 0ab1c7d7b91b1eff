// QR decomposition and back substitution: bit by bit against a plain reference, what stands in the results after a
// failure included; and residuals.
#include "reference.hpp"

namespace {

using namespace factor;
using reference::same;

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
constexpr Shape shapes[] = {{1, 1}, {1, 2}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6},   {4, 6}, {7, 7},
                            {8, 8}, {9, 9}, {3, 4}, {5, 9}, {2, 7}, {6, 7}, {13, 13}, {5, 13}};

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

// Factors object `o` in the documented order.
template <class T>
SmxStatus decompose(const Objects<T> &src, const Objects<T> &dst, int o) {
    const int w = src.cols, h = src.rows;
    const auto a = [&](int i, int j) -> T & { return dst.at(o, i, j); };
    for (int i = 0; i < h; ++i)
        for (int j = 0; j < w; ++j) a(i, j) = src.at(o, i, j);
    Matrix<T> v(h, 1);
    for (int k = 0; k < (w == h ? w - 1 : w); ++k) {
        T squares = 0;
        for (int i = k; i < h; ++i) squares += a(i, k) * a(i, k);
        if (!(squares >= std::numeric_limits<T>::epsilon())) return smxStsDivByZeroErr;
        const T root = std::sqrt(squares), r = a(k, k) > 0 ? root : -root, scale = T(1) / (r + a(k, k));
        T square = 1;
        v(k, 0) = 1;
        for (int i = k + 1; i < h; ++i) {
            v(i, 0) = a(i, k) * scale;
            square += v(i, 0) * v(i, 0);
        }
        const T beta = T(-2) / square;
        for (int j = k; j < w; ++j) {
            T u = a(k, j);
            for (int i = k + 1; i < h; ++i) u += a(i, j) * v(i, 0);
            u *= beta;
            for (int i = k; i < h; ++i) a(i, j) += v(i, 0) * u;
        }
        for (int i = k + 1; i < h; ++i) a(i, k) = v(i, 0);
    }
    return smxStsNoErr;
}

template <class T>
SmxStatus solve(const Objects<T> &f, int fo, const Objects<T> &b, const Objects<T> &x, int o) {
    const int w = f.cols, h = f.rows;
    const auto a = [&](int i, int j) { return f.at(fo, i, j); };
    Matrix<T> y(h, 1);
    for (int i = 0; i < h; ++i) y(i, 0) = b.at(o, 0, i);
    for (int k = 0; k < (w == h ? w - 1 : w); ++k) {
        T u = y(k, 0), square = 1;
        for (int i = k + 1; i < h; ++i) {
            square += a(i, k) * a(i, k);
            u += a(i, k) * y(i, 0);
        }
        u *= T(-2) / square;
        y(k, 0) += u;
        for (int i = k + 1; i < h; ++i) y(i, 0) += a(i, k) * u;
    }
    for (int i = w - 1; i >= 0; --i) {
        T sum = 0;
        for (int j = i + 1; j < w; ++j) sum += a(i, j) * x.at(o, 0, j);
        x.at(o, 0, i) = (i == w - 1 ? y(i, 0) : y(i, 0) - sum) / a(i, i);
    }
    return smxStsNoErr;
}

// Edges are upper triangular but for one column, whose sum of squares lies about the bound.
template <class T>
void put_matrix(const Objects<T> &a, int o, Sample sample, std::mt19937 &random) {
    put_sample(a, o, sample, std::numeric_limits<T>::epsilon(), random);
    if (sample != Sample::edges) return;
    const T root = sizeof(T) == 4 ? T(0x1p-12) : T(0x1p-26); // 2 root^2 or root^2 is the bound
    const T first[] = {root, std::nextafter(root, T(0)), std::nextafter(root, T(1)), -root, T(0)};
    const T second[] = {sizeof(T) == 4 ? root : T(0), sizeof(T) == 4 ? -root : T(0), std::nextafter(root, T(0)), T(1)};
    const int column = below(a.cols, random);
    for (int i = 0; i < a.rows; ++i)
        for (int j = 0; j < a.cols; ++j)
            if (i > j || j == column) a.at(o, i, j) = i == j ? T(1) : T(0);
            else a.at(o, i, j) = static_cast<T>(below(3, random) - (i == j ? 3 : 1));
    if (column < a.rows) a.at(o, column, column) = first[below(5, random)];
    if (column + 1 < a.rows) a.at(o, column + 1, column) = second[below(4, random)];
}

TYPED_TEST(QR, FactorsHaveTheBitsOfTheReferenceAlsoWhereTheyStop) {
    using T = TypeParam;
    std::mt19937 random(4);
    int failures = 0, successes = 0;
    for (const Form form : all_forms)
        for (const auto [w, h] : shapes)
            for (const Sample sample : all_samples)
                for (int round = 0; round < 25; ++round) {
                    const Deal<T> call("QRDecomp_ma", form, 2, h, w, 5, random);
                    const bool in_place = random() % 3 == 0;
                    Objects<T> src(call.form[0], h, w, call.count), apart(call.form[1], h, w, call.count);
                    if (in_place && call.form[0] != call.form[1]) continue;
                    const int rate = 1 + below(call.count, random);
                    for (int o = 0; o < call.count; ++o)
                        put_matrix(src, o, o % rate == rate / 2 ? sample : Sample::random, random);
                    Objects<T> &dst = in_place ? src : apart;
                    const auto [status, memory] =
                        call.expected(dst.memory, [&](int o) { return decompose(src, dst, o); });
                    Buffer<T> buffer(h);
                    const Just scratch{buffer.data()};
                    const Just width{w}, height{h};
                    const Threads set(call.threads);
                    const SmxStatus found =
                        call.array
                            ? QRDecomp_ma<T>(form, Array{src}, scratch, Array{dst}, width, height, Just{call.count})
                            : QRDecomp_m<T>(form, One{src}, scratch, One{dst}, width, height);
                    SCOPED_TRACE(testing::Message() << "shape " << w << ' ' << h << " sample " << int(sample) << ' '
                                                    << call << " in place " << in_place);
                    ASSERT_EQ(found, status);
                    ASSERT_TRUE(same(dst.memory, memory));
                    ASSERT_TRUE(buffer.untouched(h == 1 || call.shares > 1));
                    (found == 0 ? successes : failures) += 1;
                }
    EXPECT_GT(failures, 1000);
    EXPECT_GT(successes, 1000);
}

TYPED_TEST(QR, SolutionsHaveTheBitsOfTheReference) {
    using T = TypeParam;
    std::mt19937 random(5);
    for (const Form form : all_forms)
        for (const auto [w, h] : shapes)
            for (int round = 0; round < 60; ++round) {
                const bool each = round % 2 == 0, in_place = round % 3 == 0; // mava, mva or mv
                const Deal<T> call(each ? "QRBackSubst_mava" : "QRBackSubst_mva", form, 3, h, w, 5, random);
                Objects<T> f(call.form[0], h, w, call.count);
                Vectors<T> b(call.form[1], h, call.count), apart(call.form[2], w, call.count);
                reference::fill(f, random, round % 4 == 0); // with zeros on the diagonal: a solve never fails
                reference::fill(b, random, round % 4 == 0);
                Vectors<T> &x = in_place ? b : apart; // each solution at the start of its right-hand side
                if (in_place && call.form[1] != call.form[2]) continue;
                const auto memory =
                    call.expected(x.memory, [&, each](int o) { return solve(f, each ? o : 0, b, x, o); }).second;
                Buffer<T> buffer(h);
                const Just scratch{buffer.data()};
                const Just width{w}, height{h}, count{call.count};
                const Threads set(call.threads);
                const SmxStatus found =
                    !call.array ? QRBackSubst_mv<T>(form, One{f}, scratch, One{b}, One{x}, width, height)
                    : each      ? QRBackSubst_mava<T>(form, Array{f}, scratch, Array{b}, Array{x}, width, height, count)
                                : QRBackSubst_mva<T>(form, One{f}, scratch, Array{b}, Array{x}, width, height, count);
                SCOPED_TRACE(testing::Message() << "shape " << w << ' ' << h << " each " << each << ' ' << call
                                                << " in place " << in_place);
                ASSERT_EQ(found, smxStsNoErr);
                ASSERT_TRUE(same(x.memory, memory));
                ASSERT_TRUE(buffer.untouched(call.shares > 1 || (w == h && w >= 3 && w <= 6)));
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
