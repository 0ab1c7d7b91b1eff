// Copy, Extract and LoadIdentity: every member against a model that moves one element after the other in one block of
// memory, so that values, untouched memory and overlaps are judged alike; and the order of the entry checks.
#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <random>

#include "members.hpp"
#include "smx.h"

namespace {

using members::Argument;
using members::ArgumentType;

struct Sizes {
    int width, height, count;
    bool matrix;
};
enum class Spread { packed, structs, elements, lanes };

struct Strides {
    int objects, rows, elements;
};
Strides strides(Spread spread, const Sizes &s, int element) {
    const bool apart = spread == Spread::elements;
    const int stride2 = spread == Spread::lanes ? s.count * element : (apart ? 2 : 1) * element;
    const int stride1 = s.width * stride2 + (apart ? element : 0);
    const int stride0 =
        spread == Spread::lanes ? element : s.height * stride1 + (spread == Spread::structs ? 3 * element : 0);
    return {stride0, stride1, stride2};
}

// One array operand in one layout (S, P or L) within a block of memory.
struct Operand {
    char layout;
    int shift, stride0, stride1, stride2;
    std::vector<void *> table;
    unsigned char *base;

    Operand(char layout_, const Strides &apart, const Sizes &s, int element, unsigned char *base_)
        : layout(layout_), shift(layout == 'S' ? 0 : 2 * element), stride0(apart.objects), stride1(apart.rows),
          stride2(apart.elements), base(base_) {
        if (layout == 'P')
            for (int i = 0; i < s.height; ++i)
                for (int j = 0; j < s.width; ++j) table.push_back(base - shift + i * stride1 + j * stride2);
        if (layout == 'L') // from the last to the first, but for a run at the end
            for (int n = 0; n < s.count; ++n)
                table.push_back(base - shift + (n < 20 ? s.count - 1 - n : n - 20) * stride0);
    }
    Operand(char layout_, Spread spread, const Sizes &s, int element, unsigned char *base_)
        : Operand(layout_, strides(spread, s, element), s, element, base_) {}
    unsigned char *at(int n, int i, int j) const {
        unsigned char *const object = layout == 'L'
                                          ? static_cast<unsigned char *>(table[static_cast<std::size_t>(n)]) + shift
                                          : base + n * stride0;
        return object + i * stride1 + j * stride2;
    }
};

struct Arguments {
    std::vector<Argument> list;
    std::map<std::string, int> integers;
    std::map<std::string, void *> pointers;
    void integer(const std::string &name, int x) {
        list.push_back({name, ArgumentType::integer, nullptr});
        integers[name] = x;
    }
    void pointer(const std::string &name, void *x) {
        list.push_back({name, ArgumentType::pointer, nullptr});
        pointers[name] = x;
    }
    void operand(const std::string &name, const Operand &o, const Sizes &s, bool array) {
        const bool list_like = o.layout == 'L' && array;
        pointer(name, o.layout == 'P' || list_like ? const_cast<void **>(o.table.data()) : static_cast<void *>(o.base));
        if (o.layout == 'P' || list_like) integer(name + "RoiShift", o.shift);
        if (array && o.layout != 'L') integer(name + "Stride0", o.stride0);
        if (o.layout == 'P') return;
        if (s.matrix) integer(name + "Stride1", o.stride1);
        integer(name + "Stride2", o.stride2);
    }
    void sizes(const Sizes &s, bool array) {
        if (s.matrix) integer("width", s.width), integer("height", s.height);
        else integer("len", s.width);
        if (array) integer("count", s.count);
    }
    int call(const std::string &function) const {
        void *const f = members::symbol(function);
        if (f == nullptr) ADD_FAILURE() << "no " << function;
        return f == nullptr ? 1 : members::invoke(f, list, integers, pointers, 0, 4);
    }
};

std::string type(int element) {
    return element == 4 ? "_32f" : "_64f";
}

// Runs a call and its model on the same memory.
struct Block {
    std::vector<unsigned char> memory;
    explicit Block(std::size_t size) : memory(size) {
        std::mt19937 random(7);
        for (unsigned char &byte : memory) byte = static_cast<unsigned char>(random());
    }
    template <class Model>
    void expect(const Arguments &a, const std::string &function, const Sizes &s, Model model) {
        const std::vector<unsigned char> before = memory;
        model();
        const std::vector<unsigned char> wanted = memory;
        std::copy(before.begin(), before.end(), memory.begin());
        ASSERT_EQ(a.call(function), 0) << function;
        ASSERT_TRUE(memory == wanted) << function << " " << s.width << " by " << s.height << ", count " << s.count;
    }
};

void expect_copied(Block &block, const std::string &pair, const Operand &src, const Operand &dst, const Sizes &s,
                   int element) {
    Arguments a;
    a.operand("src", src, s, true);
    a.operand("dst", dst, s, true);
    a.sizes(s, true);
    block.expect(a, (s.matrix ? "smxCopy_ma" : "smxCopy_va") + type(element) + "_" + pair, s, [&] {
        for (int n = 0; n < s.count; ++n)
            for (int i = 0; i < s.height; ++i)
                for (int j = 0; j < s.width; ++j)
                    std::memmove(dst.at(n, i, j), src.at(n, i, j), static_cast<std::size_t>(element));
    });
}

template <class F>
void all_sizes(F f) {
    for (const bool matrix : {false, true})
        for (const int width : {1, 2, 3, 4, 5, 6, 9})
            for (const int height : {1, 3, 4, 5, 6, 8}) {
                if (matrix ? width > 2 && width < 9 && height != width && height != 8 && height != 1 : height != 1)
                    continue;
                // The last is enough for the longest runs through planes.
                for (const int count : {1, 3, 37, 150})
                    if (count < 150 || width * height <= 6) f(Sizes{width, height, count, matrix});
            }
}
constexpr Spread spreads[] = {Spread::packed, Spread::structs, Spread::elements, Spread::lanes};

} // namespace

TEST(Copy, EveryPairOfLayoutsWithAndWithoutOverlap) {
    all_sizes([](const Sizes &s) {
        for (const int E : {4, 8})
            for (const char *pair : {"SS", "SP", "SL", "PS", "PP", "PL", "LS", "LP", "LL"})
                for (const Spread from : spreads)
                    for (const Spread to : spreads)
                        for (const int offset : {40000, 0, E, s.width * E, s.width * s.height * E, 17 * E, -E}) {
                            const bool pointers_and_list = pair == std::string("PL") || pair == std::string("LP");
                            if (offset != 40000 && from != to && !(pointers_and_list && s.count < 150)) continue;
                            Block block(90000);
                            const Operand src(pair[0], from, s, E, block.memory.data() + 512);
                            const Operand dst(pair[1], to, s, E, block.memory.data() + 512 + offset);
                            expect_copied(block, pair, src, dst, s, E);
                            if (testing::Test::HasFatalFailure()) return;
                        }
    });
}

// Objects far from each other come together where the first or the last of them lies.
TEST(Copy, GathersOntoItsOwnObject) {
    for (const int E : {4, 8})
        for (const int len : {3, 4, 5, 6})
            for (const int count : {2, 9, 10})
                for (const int own : {0, count - 1}) {
                    const Sizes s{len, 1, count, false};
                    const Strides apart{512, len * E, E};
                    Block block(8000);
                    const Operand src('S', apart, s, E, block.memory.data() + 512);
                    const Operand dst('S', Spread::packed, s, E, src.base + own * (apart.objects - len * E));
                    expect_copied(block, "SS", src, dst, s, E);
                    if (testing::Test::HasFatalFailure()) return;
                }
}

// Each operand with gaps of its own, near the other one or away from it, and lists that name an object again.
TEST(Copy, WhatNoListOfCasesThinksOf) {
    std::mt19937 random(11);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto seldom = [&](int n) { return below(3) == 0 ? below(n) : 0; };
    for (int call = 0; call < 20000; ++call) {
        const bool matrix = below(3) == 0;
        const Sizes s{1 + below(7), matrix ? 1 + below(6) : 1, 1 + below(below(4) == 0 ? 150 : 40), matrix};
        const int E = below(2) == 0 ? 4 : 8;
        const auto gaps = [&] {
            if (below(5) == 0) return strides(Spread::lanes, s, E);
            const int stride2 = E * (1 + seldom(2)), stride1 = s.width * stride2 + E * seldom(3);
            return Strides{s.height * stride1 + E * seldom(9), stride1, stride2};
        };
        const auto bytes = [&](const Strides &x) {
            return s.count * x.objects + s.height * x.rows + s.width * x.elements;
        };
        const std::string pair = {"SPL"[below(3)], "SPL"[below(3)]};
        const Strides from = gaps(), to = gaps();
        const int room = bytes(from) + bytes(to), distance = below(2) == 0 ? room : below(room / E) * E;
        const bool source_first = below(4) != 0;
        Block block(static_cast<std::size_t>(2 * room + 1024));
        const auto place = [&](bool first) { return block.memory.data() + 512 + (first ? 0 : distance); };
        Operand src(pair[0], from, s, E, place(source_first)), dst(pair[1], to, s, E, place(!source_first));
        for (Operand *o : {&src, &dst})
            for (int again = o->layout == 'L' ? seldom(4) : 0; again > 0; --again)
                o->table[static_cast<std::size_t>(below(s.count))] = o->table[static_cast<std::size_t>(below(s.count))];
        expect_copied(block, pair, src, dst, s, E);
        if (testing::Test::HasFatalFailure()) {
            ADD_FAILURE() << "call " << call << ", distance " << distance;
            return;
        }
    }
}

// Each object is found in the list when its turn comes, also where the copies so far have changed the list.
TEST(Copy, OntoTheListOfItsSource) {
    constexpr int count = 20, elements = 3;
    std::vector<double> pool(1000);
    for (std::size_t i = 0; i < pool.size(); ++i) { // the bits of pointers into itself
        const double *const other = &pool[i * 37 % 900];
        std::memcpy(&pool[i], &other, sizeof other);
    }
    for (const bool in_order : {true, false}) {
        const auto run = [&](auto copy) {
            std::vector<const double *> area(200);
            for (int n = 0; n < count; ++n)
                area[static_cast<std::size_t>(n)] = &pool[(in_order ? n : n * 7 % count) * 3u];
            copy(area.data());
            return area;
        };
        const auto expected = run([&](const double **list) {
            for (int n = 0; n < count; ++n)
                for (int p = 0; p < elements; ++p)
                    std::memcpy(list + 1 + n * elements + p, list[n] + p, sizeof(double));
        });
        const auto found = run([&](const double **list) {
            double *const onto = reinterpret_cast<double *>(list + 1);
            EXPECT_EQ(smxCopy_va_64f_LS(list, 0, 8, onto, 24, 8, elements, count), smxStsNoErr);
        });
        EXPECT_EQ(found, expected) << in_order;
    }
}

// Four gigabytes of addresses, all but the last page of them the same few megabytes of memory.
class LargeObject {
public:
    static constexpr std::size_t part = 16 << 20, size = std::size_t{1} << 32, page = 4096;
    LargeObject() {
        at = static_cast<unsigned char *>(
            mmap(nullptr, size + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
        const int memory = memfd_create("large", 0);
        EXPECT_EQ(ftruncate(memory, part), 0);
        for (std::size_t from = 0; from < size; from += part)
            EXPECT_NE(mmap(at + from, part, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, memory, 0), MAP_FAILED);
        close(memory);
    }
    ~LargeObject() { munmap(at, size + page); }
    float *base() const { return reinterpret_cast<float *>(at); }
    float &last() const { return reinterpret_cast<float *>(at + size)[3]; }

private:
    unsigned char *at;
};

TEST(Copy, ObjectsOfMoreThanFourGigabytes) {
    const LargeObject source, results[2];
    source.last() = 7;
    const float *const from[] = {source.base(), source.base()};
    float *const to[] = {results[0].base(), results[1].base()};
    const int length = static_cast<int>(LargeObject::size / sizeof(float)) + 4;
    ASSERT_EQ(smxCopy_va_32f_LL(from, 0, sizeof(float), to, 0, sizeof(float), length, 2), smxStsNoErr);
    EXPECT_EQ(results[0].last(), 7);
    EXPECT_EQ(results[1].last(), 7);
}

TEST(Extract, EveryLayoutWithAndWithoutOverlap) {
    all_sizes([](const Sizes &s) {
        for (const int E : {4, 8})
            for (const bool transposed : {false, true})
                for (const bool array : {false, true})
                    for (const char layout : {'S', 'P', 'L'})
                        for (const Spread from : spreads)
                            for (const int offset : {40000, 0, E, 5 * E, 40 * E}) {
                                if ((layout == 'L' && !array) || (transposed && !s.matrix) || (!array && s.count > 1))
                                    continue;
                                Block block(90000);
                                Sizes stored = s;
                                if (transposed) std::swap(stored.width, stored.height);
                                const Operand src(layout, from, stored, E, block.memory.data() + 512);
                                unsigned char *const dst = block.memory.data() + 512 + offset;
                                Arguments a;
                                a.operand("src", src, s, array);
                                a.pointer("dst", dst);
                                a.sizes(s, array);
                                const std::string code = std::string(!s.matrix    ? "v"
                                                                     : transposed ? "t"
                                                                                  : "m") +
                                                         (array ? "a" : "");
                                const std::string suffix = layout == 'S' ? "" : std::string("_") + layout;
                                block.expect(a, "smxExtract_" + code + type(E) + suffix, s, [&] {
                                    const auto move = [&](int n, int i, int j) {
                                        std::memmove(dst + ((n * s.height + i) * s.width + j) * E,
                                                     transposed ? src.at(n, j, i) : src.at(n, i, j),
                                                     static_cast<std::size_t>(E));
                                    };
                                    // One pointer after the other, or one object after the other.
                                    const bool by_pointer = layout == 'P' && !transposed;
                                    const int outer = by_pointer ? 1 : s.count, inner = by_pointer ? s.count : 1;
                                    for (int n = 0; n < outer; ++n)
                                        for (int i = 0; i < s.height; ++i)
                                            for (int j = 0; j < s.width; ++j)
                                                for (int m = 0; m < inner; ++m) move(n + m, i, j);
                                });
                                if (testing::Test::HasFatalFailure()) return;
                            }
    });
}

TEST(LoadIdentity, EveryLayoutAndShape) {
    all_sizes([](const Sizes &s) {
        if (!s.matrix) return;
        for (const int E : {4, 8})
            for (const char layout : {'S', 'P', 'L'})
                for (const Spread to : spreads) {
                    Block block(90000);
                    const Operand dst(layout, to, s, E, block.memory.data() + 512);
                    Arguments a;
                    a.operand("dst", dst, s, true);
                    a.sizes(s, true);
                    block.expect(
                        a, "smxLoadIdentity_ma" + type(E) + (layout == 'S' ? "" : std::string("_") + layout), s, [&] {
                            for (int n = 0; n < s.count; ++n)
                                for (int i = 0; i < s.height; ++i)
                                    for (int j = 0; j < s.width; ++j) {
                                        const float f = i == j;
                                        const double d = i == j;
                                        std::memcpy(dst.at(n, i, j), E == 4 ? static_cast<const void *>(&f) : &d,
                                                    static_cast<std::size_t>(E));
                                    }
                        });
                    if (testing::Test::HasFatalFailure()) return;
                }
    });
}

// A pointer is read once, for all objects: the results of the first may lie on the pointers themselves.
TEST(Extract, EachPointerIsReadOnce) {
    for (const int side : {1, 3, 7}) {
        const std::size_t elements = static_cast<std::size_t>(side * side);
        std::vector<double> from(3 * elements);
        std::iota(from.begin(), from.end(), 1);
        union {
            const double *table[49];
            double results[3 * 49];
        } block;
        for (std::size_t e = 0; e < elements; ++e) block.table[e] = from.data() + e;
        ASSERT_EQ(smxExtract_ma_64f_P(block.table, 0, side * side * 8, block.results, side, side, 3), 0);
        EXPECT_EQ(std::vector<double>(block.results, block.results + from.size()), from) << side;
    }
}

// Where the elements of a row lie on each other, its 1 is what stays.
TEST(LoadIdentity, ARowIsZeroBeforeItsOneIsWritten) {
    for (const int width : {2, 4, 5}) {
        double cells[4] = {7, 7, 7, 7};
        std::vector<double *> table;
        for (int e = 0; e < 4 * width; ++e) table.push_back(cells + e / width);
        ASSERT_EQ(smxLoadIdentity_ma_64f_P(table.data(), 0, 8, width, 4, 1), 0);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(cells[i], i < width) << width << " " << i;
    }
}

// ---- entry checks

namespace {

// Groups: n null, z size, c count, a and b rows of source and destination, f and g their shifts, o object strides where
// count is above 1, O object strides always.
struct Group {
    char letter;
    int status;
    std::vector<std::string> arguments;
    int bad;
};
const Group groups[] = {{'n', -8, {"src", "dst"}, 0},
                        {'z', -6, {"len", "width", "height"}, 0},
                        {'c', -203, {"count"}, 0},
                        {'a', -182, {"srcStride1", "srcStride2"}, 0},
                        {'b', -182, {"dstStride1", "dstStride2"}, 6},
                        {'f', -202, {"srcRoiShift"}, 2},
                        {'g', -202, {"dstRoiShift"}, -8},
                        {'o', -182, {"srcStride0", "dstStride0"}, 3},
                        {'O', -182, {"srcStride0"}, 3}};
const Group &group(char letter) {
    for (const Group &g : groups)
        if (g.letter == letter) return g;
    throw std::runtime_error("no group");
}
bool spoil(Arguments &a, const std::string &argument, int bad) {
    if (a.pointers.count(argument) != 0) return a.pointers[argument] = nullptr, true;
    if (a.integers.count(argument) == 0) return false;
    a.integers[argument] = bad;
    return true;
}

void expect_order(const Arguments &good, const std::string &function, const std::string &order) {
    ASSERT_EQ(good.call(function), 0) << function;
    for (std::size_t i = 0; i < order.size(); ++i)
        for (const std::string &one : group(order[i]).arguments) {
            Arguments a = good;
            if (!spoil(a, one, group(order[i]).bad)) continue;
            EXPECT_EQ(a.call(function), group(order[i]).status) << function << " " << one;
            if (order[i] == 'o') {
                a.integers["count"] = 1;
                EXPECT_EQ(a.call(function), 0) << function << " " << one << " for one object";
            } else if (order[i] == 'O') {
                a.integers["count"] = 1;
                EXPECT_EQ(a.call(function), -182) << function;
            }
            for (std::size_t j = i + 1; j < order.size(); ++j)
                for (const std::string &other : group(order[j]).arguments) {
                    Arguments both = good;
                    // A count below 1 hides the object strides.
                    if (spoil(both, one, group(order[i]).bad) && spoil(both, other, group(order[j]).bad)) {
                        EXPECT_EQ(both.call(function), group(order[i]).status)
                            << function << " " << one << ", " << other;
                    }
                }
        }
}

} // namespace

TEST(Copy, ChecksInOrder) {
    for (const int E : {4, 8})
        for (const bool matrix : {false, true})
            for (const std::string pair : {"SS", "SP", "SL", "PS", "PP", "PL", "LS", "LP", "LL"}) {
                const Sizes s{3, matrix ? 2 : 1, 2, matrix};
                Block block(4096);
                const Operand src(pair[0], Spread::packed, s, E, block.memory.data() + 512);
                const Operand dst(pair[1], Spread::packed, s, E, block.memory.data() + 2048);
                Arguments a;
                a.operand("src", src, s, true);
                a.operand("dst", dst, s, true);
                a.sizes(s, true);
                const bool shifts_first = !matrix && E == 4 && pair[1] == 'P';
                expect_order(a, (matrix ? "smxCopy_ma" : "smxCopy_va") + type(E) + "_" + pair,
                             shifts_first ? "nzcfgabo" : "nzcabfgo");
            }
}

TEST(Extract, ChecksInOrder) {
    for (const int E : {4, 8})
        for (const std::string code : {"v", "m", "t", "va", "ma", "ta"})
            for (const char layout : {'S', 'P', 'L'}) {
                const bool array = code.size() == 2, matrix = code[0] != 'v';
                if (layout == 'L' && !array) continue;
                const Sizes s{3, matrix ? 3 : 1, 2, matrix};
                Block block(4096);
                const Operand src(layout, Spread::packed, s, E, block.memory.data() + 512);
                Arguments a;
                a.operand("src", src, s, array);
                a.pointer("dst", block.memory.data() + 2048);
                a.sizes(s, array);
                const bool size_first = layout == 'P' && !(code == "v" && E == 4);
                expect_order(a, "smxExtract_" + code + type(E) + (layout == 'S' ? "" : std::string("_") + layout),
                             array        ? "nzcfaO"
                             : size_first ? "znf"
                                          : "nzaf");
            }
}

TEST(LoadIdentity, ChecksInOrder) {
    for (const int E : {4, 8})
        for (const char layout : {'S', 'P', 'L'}) {
            const Sizes s{3, 2, 2, true};
            Block block(4096);
            const Operand dst(layout, Spread::packed, s, E, block.memory.data() + 512);
            Arguments a;
            a.operand("dst", dst, s, true);
            a.sizes(s, true);
            expect_order(a, "smxLoadIdentity_ma" + type(E) + (layout == 'S' ? "" : std::string("_") + layout),
                         layout == 'P' && E == 4 ? "nzgco" : "nzcbgo");
        }
}
