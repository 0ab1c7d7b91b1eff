#include "lanes_runs.hpp"

#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <Arithmetic operation, class T>
void compute(const Byte *x, const Byte *y, const Byte *result, std::ptrdiff_t bytes, T constant) {
    if (y == nullptr)
        run_of_elements<T>([=](auto e) { return apply<operation>(e, decltype(e)(constant)); }, result, bytes, x);
    else run_of_elements<T>([](auto e, auto f) { return apply<operation>(e, f); }, result, bytes, x, y);
}

} // namespace

void copy_run_lanes(const void *x, const void *result, std::ptrdiff_t bytes) {
    run_of_elements<float>([](auto e) { return e; }, static_cast<const Byte *>(result), bytes,
                           static_cast<const Byte *>(x));
}

void compute_run_lanes(const void *x, const void *y, const void *result, std::ptrdiff_t bytes, RunKind kind,
                       double constant) {
    const auto with = [&]<Arithmetic operation>() {
        const auto *const a = static_cast<const Byte *>(x), *const b = static_cast<const Byte *>(y);
        const auto *const d = static_cast<const Byte *>(result);
        if (kind.element == sizeof(float)) compute<operation>(a, b, d, bytes, static_cast<float>(constant));
        else compute<operation>(a, b, d, bytes, constant);
    };
    switch (kind.operation) {
    case Arithmetic::add: return with.template operator()<Arithmetic::add>();
    case Arithmetic::subtract: return with.template operator()<Arithmetic::subtract>();
    case Arithmetic::subtract_from: return with.template operator()<Arithmetic::subtract_from>();
    case Arithmetic::multiply: return with.template operator()<Arithmetic::multiply>();
    }
}

} // namespace SMX_ISA
} // namespace smx
