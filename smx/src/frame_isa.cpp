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

InstructionSet limited(InstructionSet limit, const char *name) {
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

bool splits_wide_registers(const char *name) {
    if (strcmp(name, "split") == 0) return true;
    if (strcmp(name, "whole") == 0) return false;
#ifdef SMX_WIDE_LANES
    return __builtin_cpu_is("amdfam19h");
#else
    return false;
#endif
}

} // namespace

int instruction_set_found = -1;
bool splits_registers_found = false;

InstructionSet find_instruction_set() {
    // "split" and "whole" are the widest set, as on processors that split registers or do not; so is any other name, as
    // on this processor.
    const char *const variable = getenv("SMX_ISA"), *const name = variable != nullptr ? variable : "";
    const InstructionSet found = limited(widest(), name);
    __atomic_store_n(&splits_registers_found, splits_wide_registers(name), __ATOMIC_RELAXED);
    __atomic_store_n(&instruction_set_found, static_cast<int>(found), __ATOMIC_RELAXED);
    return found;
}

} // namespace smx
