// A library to preload: it puts itself before every driver and kernel of the catalogue, notes each call with its first
// two arguments, and computes nothing.
#include <dlfcn.h>

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "recorder.hpp"

#include "frame_catalogue.hpp"

namespace {
RecordedCall calls[4096];
std::atomic<int> count{0};
} // namespace

extern "C" {

__attribute__((visibility("default"))) int recorder_calls(const RecordedCall **found) {
    *found = calls;
    return count;
}
__attribute__((visibility("default"))) void recorder_clear() {
    count = 0;
}

__attribute__((visibility("default"))) int (*recorder_answer)() = nullptr;
__attribute__((visibility("default"))) void (*recorder_at_allocation)() = nullptr;
__attribute__((visibility("default"))) void *omp_alloc(std::size_t size, std::uintptr_t allocator) {
    using Allocate = void *(*)(std::size_t, std::uintptr_t);
    static const Allocate next = reinterpret_cast<Allocate>(dlsym(RTLD_NEXT, "omp_alloc"));
    if (recorder_at_allocation != nullptr) recorder_at_allocation();
    return next(size, allocator);
}

// The caller cleans up, so a function may take fewer parameters than it is called with.
#define STUB(name)                                                                   \
    __attribute__((visibility("default"))) int name(const void *first, int second) { \
        calls[count++ & 4095] = {#name, first, second};                              \
        return recorder_answer != nullptr ? recorder_answer() : 0;                   \
    }
#define STUBS(row) STUBS_1(row, SMX_ROW_##row)
#define STUBS_1(row, ...) STUBS_2(row, __VA_ARGS__)
#define STUBS_2(row, shape, ...) STUBS_##shape(row, 32f) STUBS_##shape(row, 64f)
#define STUBS_SINGLE(row, type) \
    STUB(ownsmx##row##_##type) STUB(ownsmx##row##_##type##_S2) STUB(ownsmx##row##_##type##_P)
#define STUBS_ARRAY(row, type) \
    STUBS_SINGLE(row, type)    \
    STUB(ownsmx##row##_##type##_L) STUB(ownsmx##row##_##type##_LS2) STUBS_DRIVERS(row, type)
#define STUBS_DRIVERS(row, type) \
    STUB(ownOMP_smx##row##_##type) STUB(ownOMP_smx##row##_##type##_P) STUB(ownOMP_smx##row##_##type##_L)
#define STUBS_SINGLE_ONE_KERNEL(row, type) STUB(ownsmx##row##_##type) STUB(ownsmx##row##_##type##_P)
#define STUBS_ARRAY_ONE_KERNEL(row, type) \
    STUBS_SINGLE_ONE_KERNEL(row, type) STUB(ownsmx##row##_##type##_L) STUBS_DRIVERS(row, type)
#define STUBS_ARRAY_STRIDED_FLOAT(row, type) STUBS_STRIDED_FLOAT_##type(row)
#define STUBS_STRIDED_FLOAT_32f(row) STUB(ownsmx##row##_32f) STUB(ownsmx##row##_32f_S2) STUB(ownOMP_smx##row##_32f)
#define STUBS_STRIDED_FLOAT_64f(row)
#define STUBS_ARRAY_NO_DRIVER(row, type) \
    STUBS_SINGLE(row, type) STUB(ownsmx##row##_##type##_L) STUB(ownsmx##row##_##type##_LS2)
#define STUBS_SINGLE_NO_KERNEL(row, type)
#define STUBS_ARRAY_NO_KERNEL(row, type)
#define STUBS_COPY(row, type)

SMX_CATALOGUE(STUBS)
}
