// The instruction set of a translation unit, and the one chosen at run time.
//
// Every unit is compiled for one set and puts all its inline code into the namespace of that set, so that code built
// for a wide set can never be merged into code that runs everywhere. The library itself is built for the baseline;
// the lanes_*.cpp units are built again for each wider set (smx/CMakeLists.txt) and reached through SMX_ON_LANES, or through
// SMX_ON_ALL_LANES (frame_lanes.hpp) where the narrower sets do what is left over.
#pragma once

#ifndef SMX_ISA
#define SMX_ISA baseline
#endif

namespace smx {

// `sequential` computes one object after the other.
enum class InstructionSet { sequential = 0, baseline = 1, avx2 = 2, avx512 = 3 };

extern int instruction_set_found; // or negative
extern bool splits_registers_found;
InstructionSet find_instruction_set();

inline namespace SMX_ISA {
// The widest set that the processor and its system support, or a narrower one that the environment variable SMX_ISA
// names, for tests. Found once, at the first call: every thread finds the same, so it does not matter which one stores
// it.
inline InstructionSet instruction_set() {
    const int found = __atomic_load_n(&instruction_set_found, __ATOMIC_RELAXED);
    return found >= 0 ? static_cast<InstructionSet>(found) : find_instruction_set();
}
// Does the processor do in two steps what is done to registers of 64 bytes? Known once the set has been found; a matter
// of speed alone.
inline bool splits_registers() {
    return __atomic_load_n(&splits_registers_found, __ATOMIC_RELAXED);
}
// Bytes of one vector register of the chosen set.
inline int lane_bytes() {
    return 8 << static_cast<int>(instruction_set());
}
template <class T>
inline int lane_width() {
    return lane_bytes() / static_cast<int>(sizeof(T));
}
} // namespace SMX_ISA

} // namespace smx

// Declares a function that exists once for each instruction set.
#ifdef SMX_WIDE_LANES
#define SMX_DECLARE_LANES(result, name, ...) \
    namespace smx::baseline {                \
    result name(__VA_ARGS__);                \
    }                                        \
    namespace smx::avx2 {                    \
    result name(__VA_ARGS__);                \
    }                                        \
    namespace smx::avx512 {                  \
    result name(__VA_ARGS__);                \
    }
#define SMX_ON_LANES(name, ...) SMX_ON_LANES_UP_TO(smx::InstructionSet::avx512, name, __VA_ARGS__)
#define SMX_ON_LANES_UP_TO(widest, name, ...)                                                       \
    (smx::instruction_set() == smx::InstructionSet::avx512 && widest >= smx::InstructionSet::avx512 \
         ? smx::avx512::name(__VA_ARGS__)                                                           \
     : smx::instruction_set() >= smx::InstructionSet::avx2 && widest >= smx::InstructionSet::avx2   \
         ? smx::avx2::name(__VA_ARGS__)                                                             \
         : smx::baseline::name(__VA_ARGS__))
#else
#define SMX_DECLARE_LANES(result, name, ...) \
    namespace smx::baseline {                \
    result name(__VA_ARGS__);                \
    }
#define SMX_ON_LANES(name, ...) smx::baseline::name(__VA_ARGS__)
#define SMX_ON_LANES_UP_TO(widest, name, ...) (static_cast<void>(widest), smx::baseline::name(__VA_ARGS__))
#endif
