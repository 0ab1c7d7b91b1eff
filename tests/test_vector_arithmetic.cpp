// Add, Sub and Mul on vectors and constants: every element of every member, and what overlapping calls see.
#include <gtest/gtest.h>

#include <cstring>

#include "members.hpp"
#include "smkcore.h"
#include "smx.h"

namespace {

using namespace members;

constexpr double value = 1.25; // what members::Call passes as a constant

bool is_ours(const std::string &row) {
    return (row.rfind("Add_", 0) == 0 || row.rfind("Sub_", 0) == 0 || row.rfind("Mul_", 0) == 0) &&
           row.find_first_of("mt", 4) == std::string::npos;
}

template <class T>
T expected(const Member &m, const Call &call, int n, int j) {
    const Row &row = *m.row;
    const Operand &second = row.operands[1];
    const T x = static_cast<T>(call.element(row.operands[0].name, row.operands[0].array ? n : 0, 0, j));
    const T y = second.structure == Structure::value ? static_cast<T>(value)
                : second.structure == Structure::constants
                    ? static_cast<T>(call.element(second.name, n, 0, 0))
                    : static_cast<T>(call.element(second.name, second.array ? n : 0, 0, j));
    if (row.name[0] == 'A') return x + y;
    if (row.name[0] == 'M') return x * y;
    return row.name[4] == 'c' ? y - x : x - y; // the constant first
}

template <class T>
void check(const Member &m, const Shape &shape) {
    Call call(m, shape);
    const std::size_t bytes = call.bytes("dst");
    std::vector<unsigned char> room(bytes + 128, 0xa5), wanted;
    call.move("dst", reinterpret_cast<char *>(room.data()) + 64);
    wanted = room;
    for (int n = 0; n < (m.row->array() ? shape.count : 1); ++n)
        for (int j = 0; j < shape.size; ++j) {
            const T result = expected<T>(m, call, n, j);
            std::memcpy(wanted.data() + 64 + static_cast<std::ptrdiff_t>(n) * call.integer("dstStride0") +
                            static_cast<std::ptrdiff_t>(j) * call.integer("dstStride2"),
                        &result, sizeof result);
        }
    const std::vector<unsigned char> sources = call.memory();
    ASSERT_EQ(call.run(), 0) << m.name();
    ASSERT_TRUE(room == wanted) << m.name() << " len " << shape.size << " count " << shape.count << " step "
                                << shape.step << " gap " << shape.object_gap << " lanes " << shape.lanes << " threads "
                                << threads_omp_of_n_smk;
    ASSERT_TRUE(call.memory() == sources) << m.name();
}

} // namespace

TEST(VectorArithmetic, EveryElementInEveryLayoutAndNothingElse) {
    int rows = 0;
    for (const Member &m : all()) {
        if (!is_ours(m.row->name)) continue;
        ++rows;
        for (const int size : {1, 2, 3, 4, 5, 6, 7, 21})
            for (const int count : {1, 2, 5, 37, 2500}) {
                if (count == 2500 && size != 3 && size != 21) continue;
                for (const int threads : {1, 3}) {
                    threads_omp_of_n_smk = threads;
                    Shape shape;
                    shape.size = size;
                    shape.count = count;
                    shape.values = Shape::Values::random;
                    shape.shift = 2;
                    for (int variant = 0; variant < 5; ++variant) {
                        shape.step = variant == 1 ? 2 : 1;
                        shape.object_gap = variant == 2 || variant == 4 ? 1 : 0;
                        shape.lanes = variant == 3;
                        shape.shuffled = variant == 4;
                        m.element == 4 ? check<float>(m, shape) : check<double>(m, shape);
                        if (HasFatalFailure()) return;
                    }
                }
            }
    }
    threads_omp_of_n_smk = 1;
    EXPECT_EQ(rows, 6 * 2 * 2 + 17 * 2 * 3); // single forms in two layouts, array forms in three
}

// A single vector under the results: lengths 3 to 6 keep it, all others read it again. Vectors lie right behind it.
TEST(VectorArithmetic, ASingleVectorIsKeptOnlyWherePathsAreWrittenOut) {
    for (const int len : {4, 7}) {
        std::vector<float> f(21, 1), g = f;
        std::vector<double> d(21, 1), e = d;
        float *const x = f.data(), *const y = g.data();
        double *const u = d.data(), *const v = e.data();
        const int o = 4 * len, p = 8 * len;
        // Object 0's result lies on the single vector of ones, object 1's on object 0's source.
        EXPECT_EQ(smxAdd_vav_32f(x + len, o, 4, x, 4, x, o, 4, len, 2), 0);
        EXPECT_EQ(smxAdd_vav_64f(u + len, p, 8, u, 8, u, p, 8, len, 2), 0);
        EXPECT_EQ(smxSub_vva_32f(y, 4, y + len, o, 4, y, o, 4, len, 2), 0);
        EXPECT_EQ(smxSub_vva_64f(v, 8, v + len, p, 8, v, p, 8, len, 2), 0);
        const bool kept = len == 4;
        EXPECT_EQ(x[len], kept ? 2 : 3);
        EXPECT_EQ(u[len], kept ? 2 : 3);
        EXPECT_EQ(y[len], kept ? 0 : -1);
        EXPECT_EQ(v[len], -1); // double has no path written out
    }
}

// The constant of an object is read before its elements are stored, and again for the next object.
TEST(VectorArithmetic, AConstantUnderItsObjectIsReadOnce) {
    for (const int len : {3, 6, 8}) {
        std::vector<double> x(static_cast<std::size_t>(3 * len), 1);
        ASSERT_EQ(smxAdd_vaca_64f(x.data(), 8 * len, 8, x.data() + 1, 8 * len, x.data(), 8 * len, 8, len, 3), 0);
        for (const double e : x) EXPECT_EQ(e, 2);
        ASSERT_EQ(smxMul_vaca_64f(x.data(), 8 * len, 8, x.data(), 8, x.data(), 8 * len, 8, len, 3), 0);
        EXPECT_EQ(x[0], 4);
        EXPECT_EQ(x[static_cast<std::size_t>(len)], 8);
    }
}
