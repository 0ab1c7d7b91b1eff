// Matrix sums and differences against a plain reference in the documented order of reads and stores, also where the
// result lies over a source.
#include <algorithm>
#include <chrono>

#include "reference.hpp"

namespace {

using namespace reference;

template <class T>
struct MatrixSum : ::testing::Test {};
TYPED_TEST_SUITE(MatrixSum, factor::BothTypes);

// The pointer kernels of the sides 3 to 6 read whole objects before they store, but for the forms without such paths.
bool reads_first(const std::string &row, Form form, int width, int height) {
    return form == Form::pointers && width == height && width >= 3 && width <= 6 && row != "Add_mat" &&
           row != "Sub_mat" && row != "Sub_mata";
}

template <class T>
void sums(bool subtract, const View<T> &a, const View<T> &b, const View<T> &d, int width, int height, int count,
          bool first) {
    const auto sum = [&](T x, T y) -> T { return subtract ? x - y : x + y; };
    const auto size = static_cast<std::size_t>(width * height);
    std::vector<T> x(size), y(size);
    for (int n = 0; n < count; ++n) {
        if (!first) {
            for (int i = 0; i < height; ++i)
                for (int j = 0; j < width; ++j) d(n, i, j) = sum(a(n, i, j), b(n, i, j));
            continue;
        }
        for (int e = 0; e < width * height; ++e) { // a single source once for all objects
            if (n == 0 || a.array) x[static_cast<std::size_t>(e)] = a(n, e / width, e % width);
            if (n == 0 || b.array) y[static_cast<std::size_t>(e)] = b(n, e / width, e % width);
        }
        for (int e = 0; e < width * height; ++e)
            d(n, e / width, e % width) = sum(x[static_cast<std::size_t>(e)], y[static_cast<std::size_t>(e)]);
    }
}

} // namespace

TYPED_TEST(MatrixSum, HasTheBitsOfTheReference) {
    using T = TypeParam;
    constexpr struct {
        int width, height;
    } shapes[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}, {4, 3}, {3, 5}, {1, 9}};
    std::mt19937 random(1);
    int calls = 0;
    for (const members::Row &row : members::rows()) {
        const bool subtract = row.name.rfind("Sub_", 0) == 0;
        const members::Operand &first = row.operands[0], &second = row.operands[1];
        if ((!subtract && row.name.rfind("Add_", 0) != 0) || first.structure != members::Structure::matrix) continue;
        const bool t1 = first.kind[0] == 'T', t2 = second.kind[0] == 'T';
        for (const Form form : all_forms) {
            const members::Member *const m = member<T>(row, form);
            if (m == nullptr) continue;
            for (const auto [width, height] : shapes)
                for (const int count : {1, 5, 19})
                    for (const int over : {0, 1, 2}) { // the result is apart, over src1, over src2
                        if (over != 0 && (over == 1 ? t1 : t2) && width != height) continue;
                        if (count > 1 && !row.array()) continue;
                        const auto made = [&, w = width, h = height](bool t) {
                            return Objects<T>(form, t ? w : h, t ? h : w, count);
                        };
                        Objects<T> src1 = made(t1), src2 = made(t2), apart = made(false);
                        for (Objects<T> *o : {&src1, &src2, &apart}) fill(*o, random, true);
                        Objects<T> &dst = over == 0 ? apart : over == 1 ? src1 : src2;
                        const std::vector<T> before = dst.memory;
                        sums<T>(subtract, {src1, t1, first.array}, {src2, t2, second.array}, {dst, false, row.array()},
                                width, height, count, reads_first(row.name, form, width, height));
                        const std::vector<T> expected = dst.memory;
                        dst.memory.assign(before.begin(), before.end());

                        Call call{*m, {{"width", width}, {"height", height}, {"count", count}}, {}};
                        call.operand("src1", src1, first.array);
                        call.operand("src2", src2, second.array);
                        call.operand("dst", dst, row.array());
                        ASSERT_EQ(call.run(), 0);
                        ASSERT_TRUE(same(expected, dst.memory))
                            << m->name() << (form == Form::strided || form == Form::list_strided ? " spread " : " ")
                            << width << "x" << height << " count " << count << " over " << over;
                        ++calls;
                    }
        }
    }
    EXPECT_GT(calls, 2000);
}

// Whether a call may be computed many objects at once must not take longer to find out than the call itself, however the
// elements of large objects lie.
TEST(MatrixSumOfLargeObjects, TakesTheTimeOfItsWorkInAnyOrderOfElements) {
    constexpr int side = 128, count = 16, planes = side * side;
    std::vector<float> memory(static_cast<std::size_t>(2 * planes * count));
    float *const source = memory.data(), *const result = source + planes * count;
    std::vector<float *> by_rows(planes), by_columns(planes), to_rows(planes), to_columns(planes);
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j) {
            by_rows[static_cast<std::size_t>(i * side + j)] = source + (i * side + j) * count;
            by_columns[static_cast<std::size_t>(i * side + j)] = source + (j * side + i) * count;
            to_rows[static_cast<std::size_t>(i * side + j)] = result + (i * side + j) * count;
            to_columns[static_cast<std::size_t>(i * side + j)] = result + (j * side + i) * count;
        }
    const auto seconds = [](auto call) {
        double best = 1e9;
        for (int times = 0; times < 3; ++times) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(call(), smxStsNoErr);
            best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
        return best;
    };
    const auto by_pointers = [&](float *const *from, float *const *to) {
        return seconds([=] { return smxAdd_mama_32f_P(from, 0, 4, from, 0, 4, to, 0, 4, side, side, count); });
    };
    const auto by_strides = [&](float *from, float *to) {
        constexpr int column = 4 * side * count, row = 4 * count;
        return seconds([=] {
            return smxAdd_mama_32f(from, 4, row, column, from, 4, row, column, to, 4, row, column, side, side, count);
        });
    };
    const double usual = by_pointers(by_rows.data(), to_rows.data());
    EXPECT_LT(by_pointers(by_columns.data(), to_columns.data()), 50 * usual);
    EXPECT_LT(by_pointers(by_columns.data(), by_columns.data()), 50 * usual);
    EXPECT_LT(by_strides(source, result), 50 * usual);
    EXPECT_LT(by_strides(source, source), 50 * usual);
}
