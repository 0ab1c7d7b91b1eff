// The frame that every function runs in: exported names, entry checks in their order.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "members.hpp"
#include "rules.hpp"
#include "smx.h"

using namespace members;

namespace {

std::set<std::string> names(const char *command, int field) {
    std::set<std::string> found;
    FILE *const pipe = popen(command, "r");
    char line[512], first[256], second[256], third[256];
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        const int fields = std::sscanf(line, "%255s %255s %255s", first, second, third);
        if (fields < field) continue;
        std::string name = field == 2 ? second : third;
        found.insert(name.substr(0, name.find('@')));
    }
    pclose(pipe);
    return found;
}

// Exported without a row of their own.
const std::set<std::string> others = {"smxGetLibVersion", "smxEigenValuesGetBufSize_32f",
                                      "smxEigenValuesGetBufSize_64f", "smxEigenValuesVectorsGetBufSize_32f",
                                      "smxEigenValuesVectorsGetBufSize_64f"};

} // namespace

TEST(Names, TheExportedSetIsTheCatalogue) {
    std::set<std::string> expected = others;
    for (const std::string &name : kernel_less_functions()) expected.insert(name);
    for (const Member &m : all()) {
        expected.insert(m.name());
        if (m.row->array() && m.row->shape != "ARRAY_NO_DRIVER") expected.insert(m.driver());
        expected.insert(m.kernel());
        expected.insert(m.kernel_s2());
        if (m.row->name == "LUDecomp_m" || m.row->name == "Invert_m") {
            const bool lu = m.row->name == "LUDecomp_m";
            expected.insert(m.layout == Layout::pointers ? m.kernel() + "_com" : m.kernel() + (lu ? "_S_com" : "_com"));
            if (m.layout == Layout::strided) expected.insert(m.kernel_s2() + "_com");
        }
    }
    const std::set<std::string> found = names("nm -D --defined-only " SMX_LIBRARY, 3);
    for (const std::string &name : expected) EXPECT_TRUE(found.count(name)) << name << " is missing";
    for (const std::string &name : found) EXPECT_TRUE(expected.count(name)) << name << " is not in the catalogue";
}

TEST(Names, OnlyTheCRuntimeOpenMPAndTheThreadCountAreNeeded) {
    const std::set<std::string> undefined = names("nm -D --undefined-only " SMX_LIBRARY, 2);
    EXPECT_TRUE(undefined.count("GOMP_parallel") || undefined.count("__kmpc_fork_call"));
    for (const std::string &name : undefined) {
        const bool known = name.rfind("GOMP_", 0) == 0 || name.rfind("omp_", 0) == 0 || name.rfind("__kmpc_", 0) == 0 ||
                           name.rfind("_ITM_", 0) == 0 || name.rfind("__cxa_finalize", 0) == 0 ||
                           name.rfind("__gmon_start__", 0) == 0 || name.rfind("__asan", 0) == 0 ||
                           name.rfind("__ubsan", 0) == 0;
        static const std::set<std::string> libc = {"getenv", "memcpy", "memmove",          "memset",
                                                   "memcmp", "strcmp", "__stack_chk_fail", "threads_omp_of_n_smk"};
        EXPECT_TRUE(known || libc.count(name)) << name;
    }
    FILE *const pipe = popen("readelf -d " SMX_LIBRARY " | grep NEEDED", "r");
    char line[512];
    bool needs_libc = false;
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        const std::string text = line;
        needs_libc = needs_libc || text.find("libc.so") != text.npos;
        EXPECT_TRUE(text.find("libc.so") != text.npos || text.find("libgomp") != text.npos ||
                    text.find("libomp") != text.npos || text.find("libsmkcore") != text.npos ||
                    text.find("libasan") != text.npos || text.find("libubsan") != text.npos)
            << text;
    }
    pclose(pipe);
    EXPECT_TRUE(needs_libc);
}

#ifdef SMX_WIDE_OBJECTS
// A function that the linker might merge with that of another unit would run wide instructions on any processor.
TEST(Names, UnitsOfWideInstructionSetsShareNoFunction) {
    int own = 0;
    for (const std::string &name : names("nm --defined-only " SMX_WIDE_OBJECTS, 3)) {
        if (name.rfind("_ZTS", 0) == 0 || name.find('.') == 0) continue;
        const bool in_own_namespace = name.find("3smx4avx2") != name.npos || name.find("3smx6avx512") != name.npos;
        own += in_own_namespace;
        EXPECT_TRUE(in_own_namespace) << name;
    }
    EXPECT_GT(own, 100);
}
#endif

TEST(Names, TheVersionRecordIsConstant) {
    const SmxLibraryVersion *const v = smxGetLibVersion();
    EXPECT_EQ(v, smxGetLibVersion());
    EXPECT_EQ(v->versionMajor * 10 + v->versionMinor, 52);
    EXPECT_EQ(v->buildMajor, 108);
    EXPECT_EQ(v->buildMinor, 345);
    EXPECT_EQ(std::string(v->targetCode, 4), std::string("px\0\0", 4));
    EXPECT_STREQ(v->libraryName, "libsmxpx.so.5.2");
    EXPECT_STREQ(v->versionText, "5.2");
    EXPECT_STREQ(v->buildDateText, "Jul 11 2007");
}

namespace {

struct Fault {
    std::string argument;
    int value; // pointers become null
};

// All faults of one check group of a member.
std::vector<Fault> faults(const Member &m, char group) {
    std::vector<Fault> list;
    const int E = m.element;
    const auto ends = [](const std::string &name, const char *with) {
        return name.size() >= std::char_traits<char>::length(with) &&
               name.compare(name.size() - std::char_traits<char>::length(with), std::string::npos, with) == 0;
    };
    for (const Argument &a : m.arguments()) {
        const bool stride = a.name.find("Stride") != std::string::npos, shift = ends(a.name, "RoiShift");
        const bool source = a.operand->source;
        if (group == 'n' && a.type == ArgumentType::pointer) list.push_back({a.name, 0});
        if (group == 'c' && a.operand->structure == Structure::count)
            list.insert(list.end(), {{a.name, 0}, {a.name, -1}});
        if (group == 'z' && a.operand->structure == Structure::size)
            list.insert(list.end(), {{a.name, 0}, {a.name, -3}});
        const bool split =
            rules::starts(m.row->name, "EigenValuesVectors") && !rules::starts(m.row->name, "EigenValuesVectorsSym");
        const bool wanted_side = !split || (group == 's' || group == 'r' ? source : !source);
        if ((group == 's' || group == 'S') && stride && wanted_side)
            list.insert(list.end(), {{a.name, 0}, {a.name, -E}, {a.name, E + 1}, {a.name, E / 2}});
        if ((group == 'r' || group == 'R') && shift && wanted_side && !rules::tests_no_shift(m))
            list.insert(list.end(), {{a.name, -E}, {a.name, 1}, {a.name, E + E / 2}});
    }
    if (group == 'm') {
        const std::string code = rules::code(m);
        if (rules::starts(m.row->name, "QR")) list = {{"width", 4}};
        else if (rules::starts(m.row->name, "Gaxpy"))
            list = {{"src2Len", 4}, {"src3Len", 4}, {"src1Width", 4}, {"src1Height", 2}};
        else if (code.find('v') != std::string::npos) list = {{"src2Len", 4}};
        else {
            const char second = code.find_last_of("mt") == std::string::npos ? 'm' : code[code.find_last_of("mt")];
            list = {{second == 'm' ? "src2Height" : "src2Width", 4}, {code[0] == 'm' ? "src1Width" : "src1Height", 2}};
        }
    }
    return list;
}

int status_of(char group) {
    switch (group) {
    case 'n': return -8;
    case 'c': return -203;
    case 'z': return -6;
    case 'm': return -204;
    case 's':
    case 'S': return -182;
    default: return -202;
    }
}

void apply(Call &call, const Member &m, const Fault &fault) {
    for (const Argument &a : m.arguments())
        if (a.name == fault.argument) {
            if (a.type == ArgumentType::pointer) call.set(fault.argument, nullptr);
            else call.set(fault.argument, fault.value);
        }
}

} // namespace

// Every argument's test by itself, and every pair of arguments of two groups: the first group in the member's order
// decides, and nothing is written.
TEST(Checks, EachTestAndEachPairOfGroupsInOrder) {
    const auto is_repeated = [](const std::vector<Fault> &list, std::size_t k) {
        return k > 0 && list[k].argument == list[k - 1].argument;
    };
    for (const Member &m : all()) {
        Shape shape;
        shape.count = 2;
        const std::string order = rules::order(m);
        for (std::size_t i = 0; i < order.size(); ++i) {
            const std::vector<Fault> own = faults(m, order[i]);
            for (const Fault &fault : own) {
                Call call(m, shape);
                apply(call, m, fault);
                const auto before = call.memory();
                ASSERT_EQ(call.run(), status_of(order[i])) << m.name() << " " << fault.argument << " " << fault.value;
                ASSERT_EQ(before, call.memory()) << m.name() << " has written";
            }
            for (std::size_t j = i + 1; j < order.size(); ++j) {
                const std::vector<Fault> later = faults(m, order[j]);
                for (std::size_t x = 0; x < own.size(); ++x)
                    for (std::size_t y = 0; y < later.size(); ++y) {
                        // A size fault and a dimension that does not fit may be the same argument.
                        if (is_repeated(own, x) || is_repeated(later, y) || own[x].argument == later[y].argument)
                            continue;
                        Call call(m, shape);
                        apply(call, m, later[y]);
                        apply(call, m, own[x]);
                        ASSERT_EQ(call.run(), status_of(order[i]))
                            << m.name() << " " << own[x].argument << " before " << later[y].argument;
                    }
            }
        }
        Call call(m, shape);
        EXPECT_EQ(call.run(), 0) << m.name() << ", well-formed";
    }
}

// Two members test no shift: they take any, and add it like a good one.
TEST(Checks, AShiftThatIsNotTestedIsUsed) {
    int members = 0;
    for (const Member &m : all()) {
        if (!rules::tests_no_shift(m)) continue;
        ++members;
        const Shape shape;
        for (const int shift : {3, -5}) {
            Call plain(m, shape), shifted(m, shape);
            for (const char *operand : {"src", "dst"}) {
                for (int e = 0; e < shape.size; ++e) static_cast<char **>(shifted.pointer(operand))[e] -= shift;
                shifted.set(operand + std::string("RoiShift"), shift);
            }
            ASSERT_EQ(plain.run(), 0);
            ASSERT_EQ(shifted.run(), 0) << m.name();
            EXPECT_EQ(plain.memory(), shifted.memory()) << m.name();
        }
    }
    EXPECT_EQ(members, 2);
}
