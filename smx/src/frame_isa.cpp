#include "frame_isa.hpp"

#include <stdlib.h>
#include <string.h>

namespace smx {

namespace {

InstructionSet widest() {
#ifdef SMX_WIDE_LANES
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl"))
        return InstructionSet::avx512;
    if (__builtin_cpu_supports("avx2")) return InstructionSet::avx2;
#endif
    return InstructionSet::baseline;
}

InstructionSet chosen() {
    const InstructionSet limit = widest();
    const char *const name = getenv("SMX_ISA");
    if (name == nullptr) return limit;
    InstructionSet wanted = limit;
    if (strcmp(name, "baseline") == 0) wanted = InstructionSet::baseline;
    if (strcmp(name, "avx2") == 0) wanted = InstructionSet::avx2;
    return wanted < limit ? wanted : limit;
}

int remembered = 0;

} // namespace

InstructionSet instruction_set() {
    // Every thread finds the same answer, so it does not matter which one stores it.
    const int known = __atomic_load_n(&remembered, __ATOMIC_RELAXED);
    if (known != 0) return static_cast<InstructionSet>(known);
    const InstructionSet found = chosen();
    __atomic_store_n(&remembered, static_cast<int>(found), __ATOMIC_RELAXED);
    return found;
}

} // namespace smx
