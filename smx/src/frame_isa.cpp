#include "frame_isa.hpp"

#include <stdlib.h>
#include <string.h>

namespace smx {

namespace {

InstructionSet widest() {
#ifdef SMX_WIDE_LANES
    // All that the units are compiled for and the compilers know by name: a virtual machine may hide any of it.
    __builtin_cpu_init();
    const bool v3 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
                    __builtin_cpu_supports("fma");
    const bool v4 = v3 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                    __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
                    __builtin_cpu_supports("avx512cd");
    if (v4) return InstructionSet::avx512;
    if (v3) return InstructionSet::avx2;
#endif
    return InstructionSet::baseline;
}

InstructionSet chosen() {
    const InstructionSet limit = widest();
    const char *const name = getenv("SMX_ISA");
    if (name == nullptr) return limit;
    // "avx512", like any other name, is the widest there is.
    static constexpr struct {
        const char *name;
        InstructionSet set;
    } sets[] = {{"sequential", InstructionSet::sequential},
                {"baseline", InstructionSet::baseline},
                {"avx2", InstructionSet::avx2}};
    for (const auto &set : sets)
        if (strcmp(name, set.name) == 0 && set.set < limit) return set.set;
    return limit;
}

} // namespace

int instruction_set_found = -1;

InstructionSet find_instruction_set() {
    const InstructionSet found = chosen();
    __atomic_store_n(&instruction_set_found, static_cast<int>(found), __ATOMIC_RELAXED);
    return found;
}

} // namespace smx
