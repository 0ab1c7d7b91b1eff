#include "lanes_runs.hpp"

#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

const Byte *from_element(std::ptrdiff_t first, const void *base, const LaneRun &run) {
    return at(base, first * run.element);
}

template <Arithmetic operation, class T>
std::ptrdiff_t compute(const LaneRun &run, T constant, std::ptrdiff_t first) {
    const std::ptrdiff_t bytes = (run.count - first) * run.element;
    if (leaves_run(bytes, run.sources + 1)) return first;
    const Byte *const a = from_element(first, run.source[0], run), *const d = from_element(first, run.result, run);
    if (run.sources == 1)
        run_of_elements<T>([=](auto x) { return apply<operation>(x, decltype(x)(constant)); }, d, bytes, a);
    else
        run_of_elements<T>([](auto x, auto y) { return apply<operation>(x, y); }, d, bytes, a,
                           from_element(first, run.source[1], run));
    return run.count;
}
template <Arithmetic operation>
std::ptrdiff_t compute(const LaneRun &run, double constant, std::ptrdiff_t first) {
    return run.element == sizeof(float) ? compute<operation, float>(run, static_cast<float>(constant), first)
                                        : compute<operation, double>(run, constant, first);
}

} // namespace

std::ptrdiff_t copy_run_lanes(const LaneRun &run, std::ptrdiff_t first) {
    const std::ptrdiff_t bytes = (run.count - first) * run.element;
    const bool is_near = 2 * bytes <= near_bytes, is_far = bytes >= far_bytes;
    if (is_far && leaves_run(bytes, 2)) return first;
    const Byte *const from = from_element(first, run.source[0], run), *const to = from_element(first, run.result, run);
    // Between the first cache and memory nothing is faster than the processor's instruction for blocks.
    if (is_near || is_far) run_of_elements<float>([](auto x) { return x; }, to, bytes, from);
    else if (from != to) std::memcpy(const_cast<Byte *>(to), from, static_cast<std::size_t>(bytes));
    return run.count;
}

std::ptrdiff_t compute_run_lanes(const LaneRun &run, Arithmetic operation, double constant, std::ptrdiff_t first) {
    switch (operation) {
    case Arithmetic::add: return compute<Arithmetic::add>(run, constant, first);
    case Arithmetic::subtract: return compute<Arithmetic::subtract>(run, constant, first);
    case Arithmetic::subtract_from: return compute<Arithmetic::subtract_from>(run, constant, first);
    case Arithmetic::multiply: return compute<Arithmetic::multiply>(run, constant, first);
    }
    return first;
}

} // namespace SMX_ISA
} // namespace smx
