// Which driver or kernel a call reaches, with recorder.cpp preloaded: tiers, bounds on both sides, and the shares of
// the threads. Nothing is computed, so operands need no memory.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <omp.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "members.hpp"
#include "recorder.hpp"
#include "rules.hpp"

extern "C" int threads_omp_of_n_smk;

using namespace members;

namespace {

char somewhere[8];

struct Arguments {
    std::map<std::string, int> integers;
    std::map<std::string, void *> pointers;
};

// Sizes that fit together: `rows` of the first matrix as it is used, `inner` columns of it, `columns` of the product;
// a side, or the length of a vector, is `inner`.
struct Sizes {
    int rows, inner, columns;
};
constexpr Sizes different = {4, 3, 5};

int size_of(const Member &m, const std::string &argument, const Sizes &s) {
    const std::string code = rules::code(m);
    const bool t1 = code[0] == 't', t2 = code.find_last_of('t') != code.npos && code.find_last_of('t') > 0;
    const std::map<std::string, int> sizes = {{"src1Width", t1 ? s.rows : s.inner},
                                              {"src1Height", t1 ? s.inner : s.rows},
                                              {"src2Width", t2 ? s.inner : s.columns},
                                              {"src2Height", t2 ? s.columns : s.inner},
                                              {"src2Len", s.inner},
                                              {"src3Len", s.rows},
                                              {"width", s.inner},
                                              {"height", s.rows},
                                              {"len", s.inner},
                                              {"widthHeight", s.inner}};
    return sizes.at(argument);
}

Arguments arguments(const Member &m, const Sizes &sizes, int count, bool adjacent) {
    Arguments a;
    for (const Argument &argument : m.arguments()) {
        if (argument.type == ArgumentType::pointer) a.pointers[argument.name] = somewhere;
        else if (argument.operand->structure == Structure::size)
            a.integers[argument.name] = size_of(m, argument.name, sizes);
        else if (argument.operand->structure == Structure::count) a.integers[argument.name] = count;
        else if (argument.name.find("RoiShift") != std::string::npos) a.integers[argument.name] = 0;
        else if (argument.name.find("Stride2") != std::string::npos)
            a.integers[argument.name] = adjacent ? m.element : 2 * m.element;
        else a.integers[argument.name] = 8 * m.element;
    }
    return a;
}

std::vector<RecordedCall> record(const Member &m, const Arguments &a, const std::string &function) {
    recorder_clear();
    invoke(symbol(function), m.arguments(), a.integers, a.pointers, 1, m.element);
    const RecordedCall *calls;
    const int count = recorder_calls(&calls);
    return {calls, calls + count};
}
std::string reached(const Member &m, const Arguments &a) {
    const std::vector<RecordedCall> calls = record(m, a, m.name());
    return calls.size() == 1 ? calls[0].name : std::to_string(calls.size()) + " calls";
}

int bound_of(const Member &m, const rules::Bound &b, bool adjacent) {
    const int type = m.element == 8;
    if (m.layout == Layout::pointers) return b.pointers[type];
    if (m.layout == Layout::list) return adjacent ? b.list[type] : b.list_s2[type];
    return adjacent ? b.strided[type] : b.s2[type];
}

// The rank of rows, inner and columns among the three sizes; first all alike.
constexpr int orders[][3] = {{0, 0, 0}, {0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};

// The nearest works that sizes up to 12 in this order can reach: below the bound, at it and above. So close to it, work
// that is counted with another size in place of one lies on the other side.
std::vector<std::pair<Sizes, int>> nearest(const Member &m, const rules::Bound &b, int bound, const int *order) {
    std::pair<Sizes, int> best[3]; // below, at, above
    long long distance[3] = {1LL << 40, 1LL << 40, 1LL << 40};
    const auto look = [&](const Sizes &sizes) {
        const auto work = [&](long long n) { return b.work(sizes.rows, sizes.inner, sizes.columns, n); };
        // Work grows evenly with the objects.
        const long long last = (bound - work(1)) / (work(2) - work(1)) + 1;
        for (long long n = std::max(last - 1, 1LL); n <= std::max(last, 0LL) + 1; ++n) {
            const long long away = work(n) - bound;
            const int side = away < 0 ? 0 : away == 0 ? 1 : 2;
            if (std::abs(away) < distance[side])
                distance[side] = std::abs(away), best[side] = {sizes, static_cast<int>(n)};
        }
    };
    const int least = rules::operation(m) == "Invert" ? 2 : 1; // side 1 is done before
    const bool high = rules::starts(m.row->name, "QR");        // no wider than high
    for (int x = least; x <= 12; ++x)
        for (int y = x + 1; y <= 12; ++y)
            for (int z = y + 1; z <= 12; ++z) {
                const int by_magnitude[3] = {x, y, z};
                const Sizes sizes = {by_magnitude[order[0]], by_magnitude[order[1]], by_magnitude[order[2]]};
                if (!high || sizes.inner <= sizes.rows) look(sizes);
            }
    std::vector<std::pair<Sizes, int>> found;
    for (const int side : {0, 1, 2})
        if (distance[side] < 1LL << 40) found.push_back(best[side]);
    return found;
}

} // namespace

TEST(Calls, WorkBelowAtAndAboveTheBound) {
    for (const Member &m : all()) {
        if (!m.row->array()) continue;
        const rules::Bound *const b = rules::bound(m);
        if (b == nullptr) continue;
        for (const bool adjacent : {true, false}) {
            if (!adjacent && m.layout == Layout::pointers) continue;
            const int bound = bound_of(m, *b, adjacent);
            const std::string kernel = adjacent || m.layout == Layout::pointers ? m.kernel() : m.kernel_s2();
            int below = 0, above = 0;
            for (const int *const order : orders)
                for (const auto &[sizes, count] : nearest(m, *b, bound, order)) {
                    const long long work = b->work(sizes.rows, sizes.inner, sizes.columns, count);
                    const bool driver = b->at_least ? work >= bound : work > bound;
                    (driver ? above : below) += 1;
                    ASSERT_EQ(reached(m, arguments(m, sizes, count, adjacent)), driver ? m.driver() : kernel)
                        << m.name() << " work " << work << " bound " << bound << " of " << sizes.rows << " by "
                        << sizes.inner << " by " << sizes.columns << ", " << count << " objects";
                }
            EXPECT_GE(above, 1) << m.name();
            if (bound > 6) {
                EXPECT_GE(below, 1) << m.name();
            }
        }
    }
}

// One stride2 that is not the element size sends the call to the general tier.
TEST(Calls, AnySingleStrideSelectsTheGeneralTier) {
    for (const Member &m : all()) {
        if (m.layout == Layout::pointers || m.row->one_kernel() || symbol(m.kernel_s2()) == nullptr) continue;
        threads_omp_of_n_smk = 1;
        for (const Argument &argument : m.arguments()) {
            if (argument.name.find("Stride2") == std::string::npos) continue;
            Arguments a = arguments(m, different, 1, true);
            a.integers[argument.name] *= 2;
            const std::string found = reached(m, a);
            // The smallest products go to the driver already.
            EXPECT_TRUE(found == m.kernel_s2() || (found == m.driver() && m.element == 4)) << m.name() << " " << found;
        }
    }
}

namespace {

// Drivers are recorded too, so their own code is looked up behind the recorder.
void *real_driver(const Member &m) {
    static void *const library = dlopen(SMX_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    return dlsym(library, m.driver().c_str());
}

std::vector<RecordedCall> drive(const Member &m, const Arguments &a) {
    recorder_clear();
    invoke(real_driver(m), m.arguments(), a.integers, a.pointers, 1, m.element);
    const RecordedCall *calls;
    const int count = recorder_calls(&calls);
    std::vector<RecordedCall> list(calls, calls + count);
    std::sort(list.begin(), list.end(), [](const RecordedCall &x, const RecordedCall &y) {
        return x.first != y.first ? x.first < y.first : x.second < y.second;
    });
    return list;
}

} // namespace

// Thread t takes quotient objects, one more below the remainder; fewer objects than threads run on the calling thread.
TEST(Calls, SharesOfTheThreads) {
    for (const Member &m : all()) {
        if (!m.row->array() || symbol(m.driver()) == nullptr || !m.row->operands[0].array) continue;
        if (m.row->operands[0].structure != Structure::matrix && m.row->operands[0].structure != Structure::vector)
            continue;
        for (int threads = -1; threads <= 4; ++threads)
            for (int count = 1; count <= 2 * threads + 3; ++count)
                for (const bool adjacent : {true, false}) {
                    if (!adjacent && m.layout == Layout::pointers) continue;
                    threads_omp_of_n_smk = threads;
                    const std::vector<RecordedCall> calls = drive(m, arguments(m, different, count, adjacent));
                    const int shares = threads <= 1 || count < threads ? 1 : threads;
                    ASSERT_EQ(calls.size(), static_cast<std::size_t>(shares))
                        << m.name() << " T " << threads << " count " << count;
                    const int quotient = count / std::max(threads, 1), remainder = count % std::max(threads, 1);
                    for (int t = 0; t < shares; ++t) {
                        const int first = quotient * t + std::min(t, remainder);
                        const RecordedCall &call = calls[static_cast<std::size_t>(t)];
                        ASSERT_EQ(call.name, adjacent || m.layout == Layout::pointers ? m.kernel() : m.kernel_s2());
                        const std::ptrdiff_t moved = static_cast<const char *>(call.first) - somewhere;
                        const std::ptrdiff_t step = m.layout == Layout::strided ? 8 * m.element
                                                    : m.layout == Layout::list
                                                        ? static_cast<std::ptrdiff_t>(sizeof(void *))
                                                        : 0;
                        ASSERT_EQ(moved, step * first) << m.name();
                        if (m.layout == Layout::pointers) {
                            ASSERT_EQ(call.second, 8 * m.element * first) << m.name();
                        }
                    }
                }
    }
    threads_omp_of_n_smk = 1;
}

// The driver makes its own choice of tier, on its direct path and for the shares.
TEST(Calls, AnySingleStrideSelectsTheGeneralTierInTheDriver) {
    for (const Member &m : all()) {
        if (symbol(m.driver()) == nullptr || m.layout == Layout::pointers || m.row->one_kernel()) continue;
        for (const Argument &argument : m.arguments()) {
            if (argument.name.find("Stride2") == std::string::npos) continue;
            Arguments a = arguments(m, different, 5, true);
            a.integers[argument.name] *= 2;
            for (const int threads : {1, 2}) {
                threads_omp_of_n_smk = threads;
                const std::vector<RecordedCall> calls = drive(m, a);
                ASSERT_EQ(calls.size(), static_cast<std::size_t>(threads)) << m.name();
                for (const RecordedCall &call : calls) ASSERT_EQ(call.name, m.kernel_s2()) << argument.name;
            }
        }
    }
    threads_omp_of_n_smk = 1;
}

namespace {
int answers[3], order_of_arrival[3];
int answer_of_a_share() {
    const int t = omp_get_thread_num();
    std::this_thread::sleep_for(std::chrono::milliseconds(40 * order_of_arrival[t]));
    return answers[t];
}
} // namespace

// The first failure to arrive is the result, whichever share it comes from; a success takes nothing back.
TEST(Calls, TheFirstFailureToArriveIsTheResult) {
    constexpr struct {
        int answers[3], order[3], result;
    } cases[] = {{{-195, -205, -10}, {2, 0, 1}, -205},
                 {{-195, -205, -10}, {1, 2, 0}, -10},
                 {{-195, 0, -10}, {1, 0, 2}, -195},
                 {{0, -205, 0}, {2, 0, 1}, -205},
                 {{0, 0, 0}, {0, 1, 2}, 0}};
    for (const char *name : {"smxEigenValuesSym_ma_32f", "smxLUDecomp_ma_64f_P", "smxCholeskyDecomp_ma_32f_L"})
        for (const auto &c : cases) {
            const Member &m = find(name);
            const Arguments a = arguments(m, different, 7, true);
            std::copy(c.answers, c.answers + 3, answers);
            std::copy(c.order, c.order + 3, order_of_arrival);
            threads_omp_of_n_smk = 3;
            recorder_answer = answer_of_a_share;
            EXPECT_EQ(invoke(real_driver(m), m.arguments(), a.integers, a.pointers, 1, m.element), c.result) << name;
            recorder_answer = nullptr;
            threads_omp_of_n_smk = 1;
        }
}

#ifndef __clang__ // whose unnamed lock is the library's own
// All drivers share OpenMP's unnamed lock, which every share takes, failed or not.
TEST(Calls, ADriverWaitsForTheUnnamedLock) {
    threads_omp_of_n_smk = 2;
    std::atomic<bool> done{false};
    std::thread caller;
#pragma omp critical
    {
        caller = std::thread([&done] {
            const Member &m = find("smxAdd_mama_32f");
            drive(m, arguments(m, different, 4, true));
            done = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_FALSE(done);
    }
    caller.join();
    threads_omp_of_n_smk = 1;
}
#endif

// The team is as large as the thread count is when it forks, the shares are cut before: a share without a thread is not
// done, and a thread without a share does nothing.
TEST(Calls, TheThreadCountMayChangeBeforeTheFork) {
    const Member &m = find("smxQRDecomp_ma_64f");
    const Arguments a = arguments(m, {4, 3, 3}, 10, true);
    threads_omp_of_n_smk = 3;
    recorder_at_allocation = [] { threads_omp_of_n_smk = 2; };
    std::vector<RecordedCall> calls = drive(m, a);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(static_cast<const char *>(calls[1].first) - somewhere, 4 * 8 * 8);
    threads_omp_of_n_smk = 2;
    recorder_at_allocation = [] { threads_omp_of_n_smk = 3; };
    calls = drive(m, a);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(static_cast<const char *>(calls[1].first) - somewhere, 5 * 8 * 8);
    recorder_at_allocation = nullptr;
    threads_omp_of_n_smk = 1;
}

// A shift is an int: where the last share's would not fit, the call stays on its thread.
TEST(Calls, AShiftThatDoesNotFitIsNotHandedOn) {
    const Member &m = find("smxAdd_mama_64f_P");
    threads_omp_of_n_smk = 2;
    Arguments a = arguments(m, different, 4, true);
    a.integers["src1Stride0"] = 0x40000000;
    EXPECT_EQ(drive(m, a).size(), 1u);
    a.integers["src1Stride0"] = -0x60000000; // as nobody but the caller of a driver can give it
    EXPECT_EQ(drive(m, a).size(), 1u);
    a.integers["src1Stride0"] = 0x20000000;
    EXPECT_EQ(drive(m, a).size(), 2u);
    threads_omp_of_n_smk = 1;
}

// Inside a caller's parallel region the runtime gives one thread, which does its own share and no other.
TEST(Calls, ANestedCallDoesItsFirstShareOnly) {
    const Member &m = find("smxMul_mama_64f");
    threads_omp_of_n_smk = 3;
    omp_set_max_active_levels(1);
    std::vector<RecordedCall> calls;
#pragma omp parallel num_threads(2)
    {
#pragma omp critical(one_caller) // an unnamed one is the lock that the driver takes itself
        calls = drive(m, arguments(m, different, 10, true));
    }
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].first, somewhere);
    threads_omp_of_n_smk = 1;
}

// Work figures wrap: a call whose work is negative that way takes its kernel.
TEST(Calls, WorkWraps) {
    const Member &m = find("smxMul_mama_64f");
    EXPECT_EQ(reached(m, arguments(m, {20000, 20000, 20000}, 2, true)),
              m.kernel()); // 2 400 000 000 is negative as an int
    EXPECT_EQ(reached(m, arguments(m, {20000, 20000, 20000}, 1, true)), m.driver());
}
