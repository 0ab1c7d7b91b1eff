#include "lanes_copy.hpp"

#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

bool by_rows(const LaneOperand &o) {
    return o.addressing != Addressing::pointers && !o.transposed && (o.stride2 == o.element || o.columns == 1);
}
bool dense(const LaneOperand &o) {
    return o.rows == 1 || o.stride1 == static_cast<std::ptrdiff_t>(o.columns) * o.element;
}
const Byte *start(const LaneOperand &o, int n) {
    return o.addressing == Addressing::list ? at(o.table[n], o.shift) : at(o.base, n * o.stride0);
}
Byte *writable(const Byte *to) {
    return const_cast<Byte *>(to);
}

// Rows of adjacent elements, `bytes` of them known to the compiler or not; a row may be copied onto itself.
template <class CopyRow>
[[gnu::always_inline]] inline void rows(const LanePlan &plan, int first, int last, int height, CopyRow copy_row) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    for (int n = first; n < last; ++n) {
        const Byte *const from = start(s, n), *const to = start(d, n);
        for (int i = 0; i < height; ++i) copy_row(writable(at(to, i * d.stride1)), at(from, i * s.stride1));
    }
}

// All objects in one block, unless the ends of source and destination meet.
bool whole(const LanePlan &plan, int first) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    const std::ptrdiff_t object = static_cast<std::ptrdiff_t>(d.rows) * d.columns * d.element;
    if (s.addressing != Addressing::strided || d.addressing != Addressing::strided || s.stride0 != object ||
        d.stride0 != object)
        return false;
    const std::ptrdiff_t bytes = (plan.count - first) * object;
    const Byte *const from = start(s, first), *const to = start(d, first);
    const std::uintptr_t x = reinterpret_cast<std::uintptr_t>(from), y = reinterpret_cast<std::uintptr_t>(to);
    const std::uintptr_t size = static_cast<std::uintptr_t>(bytes);
    if (x < y + size && y < x + size) return false;
    std::memcpy(writable(to), from, size);
    return true;
}

template <int bytes>
[[gnu::always_inline]] inline void fixed(Byte *to, const Byte *from) {
    Byte block[bytes];
    std::memcpy(block, from, bytes);
    std::memcpy(to, block, bytes);
}

// Objects or rows as blocks; nothing is loaded ahead of an object that is stored before it.
int blocks(const LanePlan &plan, int first, int last) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    const bool one_block = dense(s) && dense(d);
    const int height = one_block ? 1 : d.rows;
    const std::ptrdiff_t bytes = static_cast<std::ptrdiff_t>(d.columns) * d.element * (one_block ? d.rows : 1);
    switch (bytes) {
#define SMX_BLOCK(size) \
    case size: rows(plan, first, last, height, fixed<size>); return last;
        // clang-format off
        SMX_BLOCK(12) SMX_BLOCK(16) SMX_BLOCK(20) SMX_BLOCK(24) SMX_BLOCK(32) SMX_BLOCK(36) SMX_BLOCK(40) SMX_BLOCK(48)
        SMX_BLOCK(64) SMX_BLOCK(72) SMX_BLOCK(100) SMX_BLOCK(128) SMX_BLOCK(144) SMX_BLOCK(200) SMX_BLOCK(288)
        // clang-format on
#undef SMX_BLOCK
                default : rows(plan, first, last, height, [&](Byte *to, const Byte *from) {
                    std::memmove(to, from, static_cast<std::size_t>(bytes));
                });
        return last;
    }
}

// Through registers: between a structure of arrays and rows, and transposed.
template <class T, int R, int C>
SMX_LANE_LOOP int packs(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, R, C>;
    const Access s(plan.source[0].operand), d(plan.result[0]);
    if (s.way == Access::Way::elements || d.way == Access::Way::elements) return first;
    return each_group<T>(plan, first, [&](int n) {
        Pack<T> x[R * C];
        s.load(n, x);
        d.store(n, x);
        return true;
    });
}

// Squares without gaps transposed within their registers, one object after the other.
template <class T, int N>
int transposed_squares(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, N, N>;
    const Access s(plan.source[0].operand), d(plan.result[0]);
    if constexpr (masked_ends)
        if (s.way == Access::Way::rows && d.way == Access::Way::rows && s.dense && d.dense) {
            constexpr int W = Pack<T>::width, registers = (N * N + W - 1) / W, last = registers - 1;
            struct Transposition {
                static constexpr int at(int e) { return e < N * N ? e % N * N + e / N : 0; }
            };
            const ObjectStarts from(s.o), to(d.o);
            return each_object(plan, first, [&](int n) {
                const Byte *const source = from[n], *const result = to[n];
                Pack<T> in[registers], out[registers];
                for (int k = 0; k < last; ++k) in[k] = load_pack<T>(source + k * pack_bytes);
                in[last] = load_end<T, N * N - last * W>(source + last * pack_bytes);
                rearrange<T, Transposition, registers>(in, out, std::make_integer_sequence<int, registers>{});
                for (int k = 0; k < last; ++k) store_pack(writable(result + k * pack_bytes), out[k]);
                store_end<T, N * N - last * W>(result + last * pack_bytes, out[last]);
            });
        }
    return packs<T, N, N>(plan, first);
}

template <class T>
int copy(const LanePlan &plan, int first) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    if (by_rows(s) && by_rows(d)) {
        if (dense(s) && dense(d) && whole(plan, first)) return plan.count;
        if (plan.verdict == Verdict::always) return blocks(plan, first, plan.count);
        return each_group<T>(plan, first, [&](int n) {
            blocks(plan, n, n + Pack<T>::width);
            return true;
        });
    }
    int done = first;
    with_side(d.columns, [&]<int N>(Side<N>) {
        if (d.rows == 1) done = packs<T, 1, N>(plan, first);
        else if (d.rows == N && s.transposed) done = transposed_squares<T, N>(plan, first);
        else if (d.rows == N) done = packs<T, N, N>(plan, first);
    });
    return done;
}

} // namespace

int copy_lanes(const LanePlan &plan, int first) {
    return plan.result[0].element == sizeof(float) ? copy<float>(plan, first) : copy<double>(plan, first);
}

} // namespace SMX_ISA
} // namespace smx
