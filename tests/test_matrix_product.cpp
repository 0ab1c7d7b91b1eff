// Matrix products against a plain reference: ascending sums in the element type, from the first product where the path
// of the side is written out, from 0.0 elsewhere (seen where every product is a negative zero).
#include "reference.hpp"

namespace {

using namespace reference;

template <class T>
struct MatrixProduct : ::testing::Test {};
TYPED_TEST_SUITE(MatrixProduct, factor::BothTypes);

bool written_out(const members::Row &row, Form form, int m, int k, int c) {
    if (m != k || k != c || m < 3 || m > 6) return false;
    return form != Form::list || row.operands[3].kind == "M" || row.operands[3].kind == "T"; // src2 is single
}

} // namespace

TYPED_TEST(MatrixProduct, HasTheBitsOfTheReference) {
    using T = TypeParam;
    constexpr struct {
        int m, k, c;
    } shapes[] = {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}, {5, 5, 5}, {6, 6, 6}, {7, 7, 7}, {3, 3, 4},
                  {5, 3, 3}, {3, 5, 7}, {4, 2, 5}, {9, 8, 6}, {8, 4, 1}, {1, 7, 2}, {6, 6, 5}, {4, 1, 2}};
    std::mt19937 random(2);
    int calls = 0;
    for (const members::Row &row : members::rows()) {
        if (row.name.rfind("Mul_", 0) != 0 || row.operands.size() < 7 ||
            row.operands[6].structure != members::Structure::matrix)
            continue;
        const members::Operand &first = row.operands[0], &second = row.operands[3];
        const bool t1 = first.kind[0] == 'T', t2 = second.kind[0] == 'T';
        for (const Form form : all_forms) {
            const members::Member *const member_ = member<T>(row, form);
            if (member_ == nullptr) continue;
            for (const auto [m, k, c] : shapes)
                for (const int count : {1, 5, 19})
                    for (const int values : {0, 1, 2, 3}) { // ordinary, with special ones, negative zeros, over src2
                        const bool written = written_out(row, form, m, k, c), over = values == 3;
                        if ((count > 1 && !row.array()) || (over && !written)) continue;
                        Objects<T> src1(form, t1 ? k : m, t1 ? m : k, count), src2(form, t2 ? c : k, t2 ? k : c, count);
                        Objects<T> apart(form, m, c, count);
                        fill(src1, random, values == 1);
                        fill(src2, random, values == 1);
                        if (values == 2) {
                            for (T &x : src1.memory) x = T(-0.0);
                            for (T &x : src2.memory) x = T(1);
                        }
                        Objects<T> &dst = over ? src2 : apart;
                        const std::vector<T> before = dst.memory;
                        const View<T> a{src1, t1, first.array}, b{src2, t2, second.array};
                        // Written out, src2 is read whole: a single one of strided arrays once for all objects.
                        const bool once =
                            row.array() && !second.array && (form == Form::packed || form == Form::strided);
                        std::vector<T> read(static_cast<std::size_t>(k * c));
                        for (int n = 0; n < (row.array() ? count : 1); ++n) {
                            for (int e = 0; e < k * c && (n == 0 || !once); ++e)
                                read[static_cast<std::size_t>(e)] = b(n, e / c, e % c);
                            for (int i = 0; i < m; ++i)
                                for (int j = 0; j < c; ++j) {
                                    T sum = written ? T(-0.0) : T(0);
                                    for (int p = 0; p < k; ++p) {
                                        const T product = a(n, i, p) * read[static_cast<std::size_t>(p * c + j)];
                                        sum = sum + product;
                                    }
                                    dst.at(n, i, j) = sum;
                                }
                        }
                        const std::vector<T> expected = dst.memory;
                        dst.memory.assign(before.begin(), before.end());

                        Call call{*member_,
                                  {{"src1Width", src1.cols},
                                   {"src1Height", src1.rows},
                                   {"src2Width", src2.cols},
                                   {"src2Height", src2.rows},
                                   {"count", count}},
                                  {}};
                        call.operand("src1", src1, first.array);
                        call.operand("src2", src2, second.array);
                        call.operand("dst", dst, row.array());
                        ASSERT_EQ(call.run(), 0);
                        ASSERT_TRUE(same(expected, dst.memory))
                            << member_->name()
                            << (form == Form::strided || form == Form::list_strided ? " spread " : " ") << m << "x" << k
                            << "x" << c << " count " << count << " values " << values;
                        ++calls;
                    }
        }
    }
    EXPECT_GT(calls, 5000);
}
