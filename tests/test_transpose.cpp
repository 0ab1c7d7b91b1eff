// Transpose: every element in every layout, and the order of reads and stores that an overlapping call sees.
#include <gtest/gtest.h>

#include <cstring>
#include <numeric>

#include "members.hpp"
#include "smx.h"

namespace {

using namespace members;

// Rectangular and square matrices in one call, addresses by the caller's strides.
template <class T>
void check(const Member &m, int width, int height, int count, bool apart) {
    const int E = sizeof(T), gap = apart ? 2 : 1;
    std::vector<T> from(static_cast<std::size_t>(count * width * height * gap)), to(from.size() + 8, T(-1)),
        wanted = to;
    std::iota(from.begin(), from.end(), T(1));
    std::map<std::string, int> integers{{"width", width}, {"height", height}, {"count", count}};
    std::map<std::string, void *> pointers;
    std::vector<void *> tables[2];
    const auto describe = [&](const char *name, std::vector<void *> &table, T *base, int columns) {
        integers[std::string(name) + "Stride0"] = width * height * gap * E;
        integers[std::string(name) + "Stride1"] = columns * gap * E;
        integers[std::string(name) + "Stride2"] = gap * E;
        integers[std::string(name) + "RoiShift"] = 2 * E;
        for (int e = 0; e < (m.layout == Layout::pointers ? width * height : count); ++e)
            table.push_back(reinterpret_cast<char *>(base) - 2 * E +
                            static_cast<std::ptrdiff_t>(e) * gap * E *
                                (m.layout == Layout::pointers ? 1 : width * height));
        pointers[name] = m.layout == Layout::strided ? static_cast<void *>(base) : table.data();
    };
    describe("src", tables[0], from.data(), width);
    describe("dst", tables[1], to.data() + 4, height);
    for (int n = 0; n < (m.row->array() ? count : 1); ++n)
        for (int r = 0; r < height; ++r)
            for (int c = 0; c < width; ++c)
                wanted[static_cast<std::size_t>(4 + ((n * width + c) * height + r) * gap)] =
                    from[static_cast<std::size_t>(((n * height + r) * width + c) * gap)];
    ASSERT_EQ(invoke(symbol(m.name()), m.arguments(), integers, pointers, 0, E), 0);
    ASSERT_TRUE(to == wanted) << m.name() << " " << width << " by " << height << " count " << count;
}

} // namespace

TEST(Transpose, EveryElementAndNothingElse) {
    for (const Member &m : all()) {
        if (m.row->name.rfind("Transpose", 0) != 0) continue;
        for (const int width : {1, 2, 3, 4, 5, 6, 7})
            for (const int height : {1, 3, 4, 5, 6, 8})
                for (const int count : {1, 2, 37})
                    for (const bool apart : {false, true}) {
                        m.element == 4 ? check<float>(m, width, height, count, apart)
                                       : check<double>(m, width, height, count, apart);
                        if (HasFatalFailure()) return;
                    }
    }
}

// In place, an element is stored before the next one is read: the upper triangle is lost, or in the pointer layout's
// general path the lower one.
TEST(Transpose, InPlaceIsNoTransposition) {
    for (const int side : {2, 4, 7})
        for (const bool array : {false, true}) {
            const int all_elements = side * side, E = 8, count = array ? 3 : 1;
            std::vector<double> strided(static_cast<std::size_t>(count * all_elements)), pointed, listed;
            std::iota(strided.begin(), strided.end(), 0);
            pointed = listed = strided;
            std::vector<double> by_result = strided, by_source = strided;
            for (int n = 0; n < count; ++n) {
                double *const x = by_result.data() + n * all_elements, *const y = by_source.data() + n * all_elements;
                for (int c = 0; c < side; ++c)
                    for (int r = 0; r < side; ++r) x[c * side + r] = x[r * side + c];
                for (int r = 0; r < side; ++r)
                    for (int c = 0; c < side; ++c) y[c * side + r] = y[r * side + c];
            }
            double *table[49], *list[3];
            for (int e = 0; e < all_elements; ++e) table[e] = pointed.data() + e;
            for (int n = 0; n < count; ++n) list[n] = listed.data() + n * all_elements;
            const int stride0 = all_elements * E, stride1 = side * E;
            if (array) {
                smxTranspose_ma_64f(strided.data(), stride0, stride1, E, side, side, strided.data(), stride0, stride1,
                                    E, 3);
                smxTranspose_ma_64f_P(table, 0, stride0, side, side, table, 0, stride0, 3);
                smxTranspose_ma_64f_L(list, 0, stride1, E, side, side, list, 0, stride1, E, 3);
                EXPECT_EQ(listed, by_result);
            } else {
                smxTranspose_m_64f(strided.data(), stride1, E, side, side, strided.data(), stride1, E);
                smxTranspose_m_64f_P(table, 0, side, side, table, 0);
            }
            EXPECT_EQ(strided, by_result);
            EXPECT_EQ(pointed, side == 4 ? by_result : by_source);
        }
}

// The array kernels of the pointer layout read their tables before they write: here the first result lies on them.
TEST(Transpose, TablesAreReadOnce) {
    for (const int side : {3, 4, 5, 6}) {
        struct {
            double *tables[2][36];
            double second[36];
        } block;
        std::vector<double> from(static_cast<std::size_t>(2 * side * side));
        std::iota(from.begin(), from.end(), 1);
        for (int e = 0; e < side * side; ++e) {
            block.tables[0][e] = from.data() + e;
            block.tables[1][e] = reinterpret_cast<double *>(&block) + e;
        }
        ASSERT_EQ(smxTranspose_ma_64f_P(block.tables[0], 0, side * side * 8, side, side, block.tables[1], 0,
                                        sizeof block.tables, 2),
                  0);
        for (int r = 0; r < side; ++r)
            for (int c = 0; c < side; ++c)
                EXPECT_EQ(block.second[c * side + r], from[static_cast<std::size_t>((side + r) * side + c)]);
    }
}
