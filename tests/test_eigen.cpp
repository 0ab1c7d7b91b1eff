// Eigenvalues and eigenvectors of general matrices.
#include <complex>

#include "eigen.hpp"
#include "family_eigen_vectors.hpp"

namespace {

using namespace eigen;
using Complex = std::complex<Real>;

SINGLE_CALL(EigenValues, m)
ARRAY_CALL(EigenValues, ma)
SINGLE_CALL(EigenValuesVectorsRight, m)
ARRAY_CALL(EigenValuesVectorsRight, ma)
SINGLE_CALL(EigenValuesVectorsLeft, m)
ARRAY_CALL(EigenValuesVectorsLeft, ma)
SINGLE_CALL(EigenValuesVectors, m)
ARRAY_CALL(EigenValuesVectors, ma)

template <class T>
struct Eigen : ::testing::Test {};
TYPED_TEST_SUITE(Eigen, BothTypes);

enum class Shape { random, normal, rotation, graded, triangular, defective };
constexpr Shape all_shapes[] = {Shape::random, Shape::normal,     Shape::rotation,
                                Shape::graded, Shape::triangular, Shape::defective};

template <class T>
Matrix<Real> general(Shape shape, int n, std::mt19937 &random) {
    std::uniform_real_distribution<double> between(-1, 1);
    Matrix<Real> a(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            Real x = between(random);
            if (shape == Shape::normal) x = i == j ? i + 1 : 0;
            if (shape == Shape::graded) x = std::ldexp(x, -i - j) + (i == j ? n - i : 0);
            if (shape == Shape::triangular && i > j) x = 0;
            if (shape == Shape::triangular && i == j) x = i + 1;
            if (shape == Shape::defective) x = i == j ? 2 : j == i + 1;
            a(i, j) = x;
        }
    if (shape == Shape::rotation) {
        a = identity(n);
        for (int i = 0; i + 1 < n; i += 2) {
            const Real angle = 0.3 + i;
            a(i, i) = a(i + 1, i + 1) = std::cos(angle);
            a(i + 1, i) = -(a(i, i + 1) = std::sin(angle));
        }
    }
    if (shape == Shape::normal || shape == Shape::rotation) {
        const Matrix<Real> q = orthogonal(n, random);
        a = q * a * transposed(q);
    }
    round_to<T>(a);
    return a;
}

template <class T>
struct Results {
    SmxStatus status[4];
    std::vector<T> re[4], im[4]; // of the values alone, Right, Left, and both
};

template <class T>
Results<T> run(Form form, bool array, const Objects<T> &src, const Objects<T> (&v)[4], int n, int count) {
    Results<T> r;
    for (int f = 0; f < 4; ++f) {
        r.status[f] = smxStsNoErr;
        r.re[f] = r.im[f] = marked<T>(n * count);
    }
    std::vector<T> buffer = scratch<T>(n);
    const Just b{buffer.data()};
    const auto re = [&](int f, int k) { return Just{r.re[f].data() + k * n}; };
    const auto im = [&](int f, int k) { return Just{r.im[f].data() + k * n}; };
    if (array) {
        const Just c{count};
        r.status[0] = EigenValues_ma<T>(form, Array{src}, re(0, 0), im(0, 0), Just{n}, c, b);
        r.status[1] = EigenValuesVectorsRight_ma<T>(form, Array{src}, Array{v[0]}, re(1, 0), im(1, 0), Just{n}, c, b);
        r.status[2] = EigenValuesVectorsLeft_ma<T>(form, Array{src}, Array{v[1]}, re(2, 0), im(2, 0), Just{n}, c, b);
        r.status[3] =
            EigenValuesVectors_ma<T>(form, Array{src}, Array{v[2]}, Array{v[3]}, re(3, 0), im(3, 0), Just{n}, c, b);
        return r;
    }
    for (int k = 0; k < count; ++k) {
        const One s{src, k};
        r.status[0] |= EigenValues_m<T>(form, s, re(0, k), im(0, k), Just{n}, b);
        r.status[1] |= EigenValuesVectorsRight_m<T>(form, s, One{v[0], k}, re(1, k), im(1, k), Just{n}, b);
        r.status[2] |= EigenValuesVectorsLeft_m<T>(form, s, One{v[1], k}, re(2, k), im(2, k), Just{n}, b);
        r.status[3] |= EigenValuesVectors_m<T>(form, s, One{v[2], k}, One{v[3], k}, re(3, k), im(3, k), Just{n}, b);
    }
    return r;
}

// The worst |a y - w y| / (|a| |y| eps) over the columns of v. The second matrix of a pair is its conjugate.
template <class T>
Real residual(const Matrix<Real> &a, const Matrix<Real> &v, const T *re, const T *im, bool conjugated) {
    const int n = a.rows;
    Real worst = 0;
    for (int j = 0; j < n; ++j) {
        const bool pair = im[j] != 0;
        const Complex w(re[j], conjugated ? -im[j] : im[j]);
        Real distance = 0, length = 0;
        for (int i = 0; i < n; ++i) {
            const auto y = [&](int k) { return pair ? Complex(v(k, j), v(k, j + 1)) : Complex(v(k, j)); };
            Complex d = -w * y(i);
            for (int k = 0; k < n; ++k) d += a(i, k) * y(k);
            distance = std::max(distance, std::abs(d));
            length += std::norm(y(i));
        }
        EXPECT_NEAR(static_cast<double>(length), 1, 1e-5);
        worst = std::max(worst, distance / (norm(a) * eps<T>));
        j += pair;
    }
    return worst;
}

TYPED_TEST(Eigen, VectorsHaveSmallResidualsOnBothSides) {
    using T = TypeParam;
    std::mt19937 random(1);
    for (Form form : all_forms)
        for (bool array : {false, true})
            for (int n : sides)
                for (Shape shape : all_shapes) {
                    SCOPED_TRACE(testing::Message() << int(form) << (array ? " array" : " single") << " side " << n
                                                    << " shape " << int(shape));
                    const int count = array ? 37 : 2;
                    Objects<T> src(form, n, n, count);
                    const Objects<T> v[4] = {
                        {form, n, n, count}, {form, n, n, count}, {form, n, n, count}, {form, n, n, count}};
                    for (int k = 0; k < count; ++k) src.set(k, general<T>(shape, n, random));
                    const Results<T> r = run<T>(form, array, src, v, n, count);
                    for (int f = 0; f < 4; ++f) ASSERT_EQ(r.status[f], smxStsNoErr);
                    EXPECT_TRUE(same_bytes(v[0].memory, v[2].memory)) << "Right and both agree";
                    EXPECT_TRUE(same_bytes(v[1].memory, v[3].memory)) << "Left and both agree";
                    for (int k = 0; k < count; ++k) {
                        const Matrix<Real> a = read(src, k);
                        const T *re = r.re[3].data() + k * n, *im = r.im[3].data() + k * n;
                        Real trace = 0;
                        for (int i = 0; i < n; ++i) trace += a(i, i) - r.re[0][k * n + i];
                        ASSERT_LT(std::fabs(trace) / (n * norm(a) * eps<T>), 30);
                        if (shape == Shape::defective) continue; // the right vectors may even vanish
                        ASSERT_LT(residual(transposed(a), read(v[2], k), re, im, false), 100) << "right";
                        ASSERT_LT(residual(a, read(v[3], k), re, im, true), 100) << "left";
#ifdef SMX_TEST_LAPACK
                        if (shape == Shape::normal || shape == Shape::rotation) { // well conditioned
                            std::vector<double> full(a.e.begin(), a.e.end()), wr(n), wi(n);
                            LAPACKE_dgeev(LAPACK_ROW_MAJOR, 'N', 'N', n, full.data(), n, wr.data(), wi.data(), nullptr,
                                          1, nullptr, 1);
                            for (int i = 0; i < n; ++i) {
                                Real nearest = 1;
                                for (int j = 0; j < n; ++j)
                                    nearest = std::min(nearest, std::abs(Complex(wr[i] - r.re[0][k * n + j],
                                                                                 wi[i] - r.im[0][k * n + j])));
                                ASSERT_LT(nearest / (n * norm(a) * eps<T>), 30);
                            }
                        }
#endif
                    }
                }
}

enum class Kind {
    integers,
    diagonal,
    rotations,
    cyclic,
    graded,
    tiny,
    jordan,
    triangular,
    symmetric,
    faint,
    huge,
    special,
    random
};

// Of every sort that meets a rule of its own: tolerances, exceptional shifts, each case of the blocks, small pivots.
template <class T>
void fill(const Objects<T> &a, int o, Kind kind, std::mt19937 &random) {
    std::uniform_real_distribution<double> between(-1, 1);
    const int n = a.rows, top = std::numeric_limits<T>::max_exponent;
    const int turn = static_cast<int>(random() % 64u);
    const T least = static_cast<T>(n) / std::numeric_limits<T>::epsilon() *
                    std::numeric_limits<T>::min(); // what deflates in any case
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double x = between(random);
            if (kind == Kind::integers) x = static_cast<int>(random() % 5) - 2;
            if (kind == Kind::diagonal) x = i == j ? x : 0;
            if (kind == Kind::rotations) x = i / 2 != j / 2 ? 0 : i == j ? turn % 3 : i < j ? 1 + turn % 2 * i : -1;
            if (kind == Kind::cyclic) x = i == n - 1 ? (j == 0 || turn % 2 ? 1 : 0) : j == i + 1;
            if (kind == Kind::cyclic && turn > 31 && j == i + 1) x = std::ldexp(x, -(turn * (i + 3)) % 100);
            if (kind == Kind::graded) x = std::ldexp(x, turn % 2 ? -i - j : i + j);
            if (kind == Kind::tiny) x = std::ldexp(x, turn % 2 ? -turn : -turn * top / 64);
            if (kind == Kind::huge) x = std::ldexp(x, turn * top / 64);
            if (kind == Kind::jordan) x = i == j ? turn % 4 : turn % 8 < 4 ? j == i + 1 : i == j + 1;
            if (kind == Kind::triangular && (turn % 2 ? i > j : i < j)) x = 0;
            if (kind == Kind::symmetric && i > j) x = static_cast<double>(a.at(o, j, i));
            a.at(o, i, j) = static_cast<T>(x);
        }
    if (kind == Kind::faint) // blocks of two that end below the smallest pivot, and zeros
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                const double b = i == j ? (i % 2 ? -0.2 : 0.2) : i < j ? 1.1 : -0.1;
                const bool ordinary = turn % 2 && i / 2 % 2;
                a.at(o, i, j) = i / 2 == j / 2 && (i | 1) < n ? static_cast<T>(b) * (ordinary ? T(1) : least) : T(0);
            }
    if (kind == Kind::special) put_special(a, o, random);
}

TYPED_TEST(Eigen, EveryFormHasTheBitsOfTheModelAlsoWhereItStops) {
    using T = TypeParam;
    std::mt19937 random(2);
    int unfinished = 0;
    for (Form form : all_forms)
        for (int n : model_sides)
            for (int number = 0; number < 4 * calls_of_a_side; ++number) {
                const int family = number % 4; // values alone, Right, Left, both
                const Call c = call(number / 4, form, family ? 7000 / (3 * n * n + n) : 10000 / (n * n + n), random);
                SCOPED_TRACE(testing::Message() << "form " << int(form) << " side " << n << " call " << number);
                Objects<T> src(form, n, n, c.count), apart(c.in_place ? form : c.results, n, n, c.count);
                Objects<T> second(apart.form, n, n, c.count);
                for (int k = 0; k < c.count; ++k)
                    fill(src, k, Kind(kind_for(c, int(Kind::random) + 1, random)), random);
                Objects<T> &first = c.in_place && family ? src : apart;
                const std::vector<T> before[2] = {first.memory, second.memory};
                const int size = family ? n * (3 * n + 5) : n * (n + 5);
                std::vector<T> re = marked<T>(n * c.count + 1), im = re, expected_re = re, expected_im = re;
                std::vector<T> buffer = marked<T>(size + 1);
                const Objects<T> *right = family == 1 || family == 3 ? &first : nullptr;
                const Objects<T> *left = family == 2 ? &first : family == 3 ? &second : nullptr;
                eigen_model::General<T> model{n, right, left};
                const Ends ends(
                    c, [&](int k) { return model(src, k, expected_re.data() + k * n, expected_im.data() + k * n); });
                const std::vector<T> expected[2] = {first.memory, second.memory};
                first.memory.assign(before[0].begin(), before[0].end());
                second.memory.assign(before[1].begin(), before[1].end());

                const Threads set(c.threads);
                const Just b{buffer.data()};
                const Just side{n}, count{c.count};
                for (int k = 0; k < (c.array ? 1 : c.count); ++k) {
                    const Just x{re.data() + k * n}, y{im.data() + k * n};
                    const One s{src, k}, v{first, k}, w{second, k};
                    const Array ss{src}, vs{first}, ws{second};
                    const SmxStatus found =
                        c.array ? (family == 0   ? EigenValues_ma<T>(form, ss, x, y, side, count, b)
                                   : family == 1 ? EigenValuesVectorsRight_ma<T>(form, ss, vs, x, y, side, count, b)
                                   : family == 2 ? EigenValuesVectorsLeft_ma<T>(form, ss, vs, x, y, side, count, b)
                                                 : EigenValuesVectors_ma<T>(form, ss, vs, ws, x, y, side, count, b))
                                : (family == 0   ? EigenValues_m<T>(form, s, x, y, side, b)
                                   : family == 1 ? EigenValuesVectorsRight_m<T>(form, s, v, x, y, side, b)
                                   : family == 2 ? EigenValuesVectorsLeft_m<T>(form, s, v, x, y, side, b)
                                                 : EigenValuesVectors_m<T>(form, s, v, w, x, y, side, b));
                    ASSERT_TRUE(c.array ? ends.allow(found) : found == ends.single(k)) << found;
                }
                ASSERT_TRUE(reference::same(re, expected_re));
                ASSERT_TRUE(reference::same(im, expected_im));
                ASSERT_TRUE(reference::same(first.memory, expected[0]));
                ASSERT_TRUE(reference::same(second.memory, expected[1]));
                ASSERT_EQ(buffer.back(), mark<T>);
                if (c.past_the_bound && c.threads > 1 && c.threads <= c.count) {
                    ASSERT_EQ(buffer, marked<T>(size + 1)) << "threads have scratch of their own";
                }
                unfinished += ends.count(smxStsConvergeErr);
            }
    EXPECT_GT(unfinished, 500);
}

template <class T>
std::vector<T> values(std::initializer_list<double> a, int n) {
    std::vector<T> src(a.size()), w(static_cast<std::size_t>(2 * n)), buffer = scratch<T>(n);
    std::copy(a.begin(), a.end(), src.begin());
    constexpr int E = sizeof(T);
    const auto call = of_type<T>(smxEigenValues_m_32f, smxEigenValues_m_64f);
    EXPECT_EQ(call(src.data(), n * E, E, w.data(), w.data() + n, n, buffer.data()), smxStsNoErr);
    return w;
}

TYPED_TEST(Eigen, BlocksAreStandardisedWithTheirOddities) {
    using T = TypeParam;
    const auto expect = [](std::initializer_list<double> a, int n, std::initializer_list<double> expected, auto why) {
        const std::vector<T> found = values<T>(a, n);
        for (std::size_t k = 0; k < found.size(); ++k)
            EXPECT_NEAR(found[k], expected.begin()[k], 20 * eps<T>) << why << ", " << k;
    };
    expect({5}, 1, {5, 0}, "side 1");
    expect({0, -1, 1, 0}, 2, {0, 0, 1, -1}, "the positive part first");
    expect({1, 2, 2, 1}, 2, {1, 1, 2, -2}, "a real pair told as complex");
    expect({3, 0, 4, 1}, 2, {3, 1, 0, 0}, "triangular for H");
    expect({3, 4, 0, 1}, 2, {1, 3, 0, 0}, "swapped");
    expect({4, 1, 2, 3}, 2, {5, 2, 0, 0}, "an ordinary real pair");
}

TYPED_TEST(Eigen, ScratchSizes) {
    const auto small = of_type<TypeParam>(smxEigenValuesGetBufSize_32f, smxEigenValuesGetBufSize_64f);
    const auto large = of_type<TypeParam>(smxEigenValuesVectorsGetBufSize_32f, smxEigenValuesVectorsGetBufSize_64f);
    constexpr int E = sizeof(TypeParam);
    int bytes = -1;
    EXPECT_EQ(small(0, &bytes), smxStsSizeErr);
    EXPECT_EQ(large(-1, &bytes), smxStsSizeErr);
    EXPECT_EQ(bytes, -1);
    EXPECT_EQ(small(0, nullptr), smxStsNullPtrErr);
    EXPECT_EQ(large(3, nullptr), smxStsNullPtrErr);
    EXPECT_EQ(small(7, &bytes), smxStsNoErr);
    EXPECT_EQ(bytes, 7 * 12 * E);
    EXPECT_EQ(large(7, &bytes), smxStsNoErr);
    EXPECT_EQ(bytes, 7 * 26 * E);
}

// Blocks that a caller's matrix hardly reaches, since deflation clears them first: T is made here.
TYPED_TEST(Eigen, SingularBlocksEndTheBackSubstitution) {
    using T = TypeParam;
    const T least = smx::small_number<T>(4) / 4;
    const T pair[16] = {0, least, 0, 0, -least, 0, 0, 0, 1, 1, 0, least, 1, 1, -least, 0};
    const T real[9] = {0, least, 0, -least, 0, 0, 1, 1, 0};
    const auto solved = [&](const T *elements, int n, bool right) {
        T form[16], q[16], small[12];
        std::copy(elements, elements + n * n, form);
        for (int e = 0; e < n * n; ++e) q[e] = T(e % (n + 1) == 0);
        smx::BackSubstitution<T> substitution({form, n}, n, small, small + n, small + 2 * n);
        return right ? substitution.right({q, n}) : substitution.left({q, n});
    };
    EXPECT_EQ(solved(pair, 4, true), smx::Solved::no);
    EXPECT_EQ(solved(pair, 4, false), smx::Solved::no);
    EXPECT_EQ(solved(real, 3, true), smx::Solved::silently);
    const T turned[9] = {0, 0, 0, 1, 0, least, 1, -least, 0};
    EXPECT_EQ(solved(turned, 3, false), smx::Solved::silently);
}

// Every pivot of the small solves, against the product.
TYPED_TEST(Eigen, SmallSolvesHold) {
    using T = TypeParam;
    std::mt19937 random(5);
    std::uniform_real_distribution<double> between(-1, 1);
    for (int trial = 0; trial < 400; ++trial) {
        T m[4];
        for (int k = 0; k < 4; ++k) m[k] = static_cast<T>(between(random) * (k == trial % 4 ? 8 : 1));
        const bool complex = trial % 8 > 3;
        const T wr = static_cast<T>(between(random)), wi = complex ? static_cast<T>(between(random) * 4) : T(0);
        smx::SmallSolve<T> x;
        for (int k = 0; k < 2; ++k) {
            x.re[k] = static_cast<T>(between(random));
            x.im[k] = complex ? static_cast<T>(between(random)) : T(0);
        }
        const Complex b[2] = {{x.re[0], x.im[0]}, {x.re[1], x.im[1]}};
        ASSERT_EQ(x.two(m, wr, wi, complex, smx::EigenLimits<T>::solve_min), smx::Solved::yes);
        const Complex w(wr, wi), x0(x.re[0], x.im[0]), x1(x.re[1], x.im[1]);
        const Real scale = x.scale;
        EXPECT_LT(std::abs((Complex(m[0]) - w) * x0 + Real(m[2]) * x1 - scale * b[0]) / eps<T>, 100 * (1 + x.norm));
        EXPECT_LT(std::abs(Real(m[1]) * x0 + (Complex(m[3]) - w) * x1 - scale * b[1]) / eps<T>, 100 * (1 + x.norm));
    }
}

} // namespace
