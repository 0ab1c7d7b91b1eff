// Groups of objects against one after the other: the same bits, the same statuses, for every instruction set, over all
// members, layouts, values and overlaps; and no access outside the operands.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "members.hpp"

extern "C" {
extern int threads_omp_of_n_smk;
int ownsmxEigenValuesSym_ma_64f(const double *src, int stride0, int stride1, double *buffer, double *values, int n,
                                int count);
}

namespace {

std::vector<std::string> lines_of(const std::string &environment, const std::string &options) {
    FILE *const pipe = popen((environment + " " LANES_DIGEST " " + options + " 2>&1").c_str(), "r");
    std::vector<std::string> lines;
    char line[512];
    while (std::fgets(line, sizeof line, pipe) != nullptr) lines.emplace_back(line);
    if (pclose(pipe) != 0) lines.emplace_back("the process failed\n");
    return lines;
}

void expect_same(const std::vector<std::string> &expected, const std::vector<std::string> &found) {
    ASSERT_EQ(expected.size(), found.size()) << found.back();
    int different = 0;
    for (std::size_t i = 0; i < expected.size(); ++i)
        if (expected[i] != found[i] && ++different <= 10)
            ADD_FAILURE() << "expected " << expected[i] << "found    " << found[i];
    EXPECT_EQ(different, 0) << "of " << expected.size() << " calls";
}

} // namespace

TEST(Lanes, EveryInstructionSetGivesTheBitsOfOneAfterTheOther) {
    const std::vector<std::string> sequential = lines_of("SMX_ISA=sequential", "");
    ASSERT_GT(sequential.size(), 1000u) << sequential.back();
    for (const char *set : {"baseline", "avx2", "split", "whole"}) {
        SCOPED_TRACE(set);
        expect_same(sequential, lines_of(std::string("SMX_ISA=") + set, ""));
    }
}

// What no list of cases thinks of. Other seeds: lanes_digest --random SEED CALLS, once for each SMX_ISA.
TEST(Lanes, CallsLeftToChanceGiveTheBitsOfOneAfterTheOther) {
    const std::string calls = "--random 20261124 50000";
    const std::vector<std::string> sequential = lines_of("SMX_ISA=sequential", calls);
    ASSERT_EQ(sequential.size(), 50000u) << sequential.back();
    for (const char *set : {"baseline", "avx2", "split", "whole"}) {
        SCOPED_TRACE(set);
        expect_same(sequential, lines_of(std::string("SMX_ISA=") + set, calls));
    }
}

TEST(Lanes, EveryThreadCountGivesTheSameBits) {
    const std::vector<std::string> one = lines_of("OMP_NUM_THREADS=1", "--plain");
    ASSERT_GT(one.size(), 1000u) << one.back();
    for (const char *threads : {"2", "3", "4"}) {
        SCOPED_TRACE(threads);
        expect_same(one, lines_of(std::string("OMP_NUM_THREADS=") + threads, "--plain"));
    }
}

// Whatever its bound is: every driver, over the real kernels, in shares that are no multiple of a group.
TEST(Lanes, EveryDriverGivesTheBitsOfTheSequentialCall) {
    using namespace members;
    for (const Member &member : all()) {
        if (!member.row->array() || symbol(member.driver()) == nullptr) continue;
        for (const int size : {3, 5})
            for (const int threads : {2, 3, 4}) {
                Shape shape;
                shape.size = size;
                shape.count = 59;
                shape.object_gap = threads - 2;
                shape.shuffled = threads == 4;
                Call alone(member, shape), shared(member, shape);
                threads_omp_of_n_smk = 1;
                ASSERT_EQ(alone.run(), 0) << member.name();
                threads_omp_of_n_smk = threads;
                EXPECT_EQ(shared.run_driver(), 0) << member.name();
                threads_omp_of_n_smk = 1;
                EXPECT_TRUE(shared.memory() == alone.memory()) << member.name() << " on " << threads << " threads";
            }
    }
}

// Nothing in the library is shared between calls.
TEST(Lanes, CallsAtTheSameTimeDoNotMeet) {
    using namespace members;
    for (const Member &member : all()) {
        if (!member.row->array()) continue;
        Shape shape;
        shape.size = 4;
        shape.count = 500;
        Call alone(member, shape);
        ASSERT_EQ(alone.run(), 0) << member.name();
        const std::vector<unsigned char> expected = alone.memory();
        std::vector<std::thread> threads;
        std::atomic<int> different{0};
        for (int t = 0; t < 3; ++t)
            threads.emplace_back([&] {
                Call call(member, shape);
                for (int repeated = 0; repeated < 150; ++repeated) call.run();
                different += call.memory() != expected;
            });
        for (std::thread &thread : threads) thread.join();
        EXPECT_EQ(different, 0) << member.name();
    }
}

// The interface refuses negative strides, a kernel takes them. The first object's values fall onto the second's source.
TEST(Lanes, ObjectsThatGoDownAreTakenOneAfterTheOther) {
    constexpr int side = 3, count = 40, object = side * side;
    const auto values_of_all = [](int at_once) {
        std::vector<double> memory(2 * count * object), buffer(object);
        for (int i = 0; i < 2 * count * object; ++i) memory[i] = i % object % (side + 1) == 0 ? 1 + i % 13 : 0.5;
        double *const source = &memory[(count - 1) * object], *const values = source - object;
        for (int n = 0; n < count; n += at_once)
            EXPECT_EQ(ownsmxEigenValuesSym_ma_64f(source - n * object, -8 * object, 8 * side, buffer.data(),
                                                  values + n * side, side, at_once),
                      0);
        return memory;
    };
    EXPECT_EQ(values_of_all(count), values_of_all(1));
}

TEST(Lanes, NothingOutsideTheOperandsIsTouched) {
    for (const char *set : {"sequential", "baseline", "avx2", "split", "whole"})
        EXPECT_EQ(lines_of(std::string("SMX_ISA=") + set, "--guard"), std::vector<std::string>{"guarded\n"}) << set;
}
