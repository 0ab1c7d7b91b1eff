#include "lanes_copy.hpp"

#include "frame_lane_loops.hpp"
#include "frame_lane_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

bool by_rows(const LaneOperand &o) {
    return o.addressing != Addressing::pointers && !o.transposed && (o.stride2 == o.element || o.columns == 1);
}
bool dense(const LaneOperand &o) {
    return o.rows == 1 || o.stride1 == static_cast<std::ptrdiff_t>(o.columns) * o.element;
}
Byte *writable(const Byte *to) {
    return const_cast<Byte *>(to);
}

// By masks where they are faster, or in parts.
template <int bytes, bool may_mask>
struct Block {
    static constexpr bool masked = may_mask && loads_ends && bytes < 32 && bytes != 16;
    [[gnu::always_inline]] void operator()(Byte *to, const Byte *from) const {
        if constexpr (masked) Row<float, bytes / 4>::load(from).store(to);
        else if constexpr (bytes < 32) RowInParts<float, bytes / 4>::load(from).store(to);
        else element_by_element<float, bytes / 4>([](auto x) { return x; }, to, from);
    }
};

// Objects as blocks of `bytes`, or `height` rows of them a stride apart; a block may be copied onto itself.
template <class CopyBlock>
[[gnu::always_inline]] inline int blocks(const LanePlan &plan, int first, CopyBlock copy_block) {
    return each_object_of<float, Loop::light>(
        plan, first, [&](const Byte *from, const Byte *to) { copy_block(writable(to), from); }, plan.source[0].operand,
        plan.result[0]);
}
template <class CopyBlock>
[[gnu::always_inline]] inline int blocks(const LanePlan &plan, int first, int height, CopyBlock copy_block) {
    if (height == 1) return blocks(plan, first, copy_block);
    const std::ptrdiff_t from_row = plan.source[0].operand.stride1, to_row = plan.result[0].stride1;
    return blocks(plan, first, [&](Byte *to, const Byte *from) {
        for (int i = 0; i < height; ++i) copy_block(writable(at(to, i * to_row)), at(from, i * from_row));
    });
}
#if defined(__AVX512F__)
// Blocks into a result without gaps: what a whole register writes beyond its object is the next one's, and follows.
template <int bytes>
SMX_LANE_LOOP int blocks_without_gaps(const LanePlan &plan, int first) {
    using Object = Row<float, bytes / 4>;
    const StridedStarts from(plan.source[0].operand), to(plan.result[0]);
    const int last = plan.count - 1;
#pragma GCC unroll 4
    for (int n = first; n < last; ++n) {
        const Object x = Object::load(from[n]);
        std::memcpy(writable(to[n]), &x.v, sizeof x.v);
    }
    Object::load(from[last]).store(to[last]);
    return plan.count;
}
#endif
// Calls f(Block<size>{}) for the size that is `bytes`, if it is one of those named.
template <bool may_mask, int... sizes, class F>
[[gnu::always_inline]] inline bool with_block(std::ptrdiff_t bytes, F f) {
    return ((bytes == sizes && (f(Block<sizes, may_mask>{}), true)) || ...);
}
SMX_LANE_LOOP int blocks(const LanePlan &plan, int first) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    const int height = dense(s) && dense(d) ? 1 : d.rows;
    const std::ptrdiff_t bytes = std::ptrdiff_t{d.columns} * d.element * (height == 1 ? d.rows : 1);
    int done = first;
    const auto rows = [&](auto block) { done = blocks(plan, first, height, block); };
    const auto objects = [&](auto block) { done = blocks(plan, first, block); };
    const bool is_far = plan.count * bytes >= far_bytes;
#if defined(__AVX512F__)
    const auto strided = [](const LaneOperand &o) { return o.addressing == Addressing::strided && !o.single; };
    if (!is_far && height == 1 && strided(s) && strided(d) && d.stride0 == bytes) switch (bytes) {
        case 12: return blocks_without_gaps<12>(plan, first);
        case 20: return blocks_without_gaps<20>(plan, first);
        case 24: return blocks_without_gaps<24>(plan, first);
        default: break;
        }
#endif
    const bool known = (loads_ends && is_far && with_block<false, 12, 20, 24>(bytes, rows)) ||
                       with_block<true, 12, 16, 20, 24, 32, 40, 48>(bytes, rows) ||
                       (height == 1 && with_block<true, 36, 64, 72, 100, 128, 144, 200, 288>(bytes, objects));
    const auto any = [bytes](Byte *to, const Byte *from) { std::memmove(to, from, static_cast<std::size_t>(bytes)); };
    if (!known) done = blocks(plan, first, height, any);
    return done;
}

// Through registers: between a structure of arrays and rows, and transposed.
template <class T, int R, int C>
SMX_LANE_LOOP int packs(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, R, C>;
    const Access s(plan.source[0].operand), d(plan.result[0]);
    if (s.way == Access::Way::elements || d.way == Access::Way::elements) return first;
    const auto through = [](int n, const auto &from, const auto &to) {
        Pack<T> x[R * C];
        from.load(n, x);
        to.store(n, x);
        return true;
    };
    using enum Known;
    if constexpr (R == 1) {
        int done = first;
        const auto between = [&]<Known source, Known result>(Fixed<source>, Fixed<result>) {
            if (!is_known(s, source) || !is_known(d, result)) return false;
            const Objects<source, T, R, C> from(s);
            const Objects<result, T, R, C> to(d);
            done = each_group<T>(plan, first, [&](int n) {
                Pack<T> x[C];
                if constexpr (from.few) load_side_by_side<T, C, By::blends>(from.group(n), x);
                else from.load(n, x);
                if constexpr (to.few) store_side_by_side<T, C, By::blends>(to.group(n), x);
                else to.store(n, x);
                return true;
            });
            return true;
        };
        if (between(Fixed<planes>{}, Fixed<packed>{}) || between(Fixed<packed>{}, Fixed<planes>{})) return done;
    }
    return each_group_by<T>(plan, first, through, s, d);
}

// Squares without gaps transposed within their registers, one object after the other.
template <class T, int N>
SMX_LANE_LOOP int transposed_squares(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, N, N>;
    const Access s(plan.source[0].operand), d(plan.result[0]);
    if constexpr (loads_ends && sizeof(T) == 8 && N == 3) {
        // Shorter registers cross fewer lines of the cache, and no end is left over.
        typedef double Four __attribute__((vector_size(32)));
        const auto transpose = [](const Byte *source, const Byte *result) __attribute__((always_inline)) {
            Four a, b;
            std::memcpy(&a, source, sizeof a);
            std::memcpy(&b, source + 32, sizeof b);
            const auto last = load_element<double>(source + 64);
            const Four x = __builtin_shufflevector(a, b, 0, 3, 6, 1), y = __builtin_shufflevector(a, b, 4, 7, 2, 5);
            std::memcpy(writable(result), &x, sizeof x);
            std::memcpy(writable(result + 32), &y, sizeof y);
            store_element(result + 64, last);
        };
        if (s.way == Access::Way::rows && d.way == Access::Way::rows && s.dense && d.dense)
            return each_object_of<T>(plan, first, transpose, s.o, d.o);
    } else if constexpr (loads_ends)
        if (s.way == Access::Way::rows && d.way == Access::Way::rows && s.dense && d.dense) {
            constexpr int W = Pack<T>::width, registers = (N * N + W - 1) / W, last = registers - 1;
            struct Transposition {
                static constexpr int at(int e) { return e < N * N ? e % N * N + e / N : 0; }
            };
            const auto transpose = [=](const Byte *source, const Byte *result) {
                Pack<T> in[registers], out[registers];
                for (int k = 0; k < last; ++k) in[k] = load_pack<T>(source + k * pack_bytes);
                in[last] = load_end<T, N * N - last * W>(source + last * pack_bytes);
                rearrange<T, Transposition, registers, registers>(in, out);
                for (int k = 0; k < last; ++k) store_pack(writable(result + k * pack_bytes), out[k]);
                store_end<T, N * N - last * W>(result + last * pack_bytes, out[last]);
            };
            return each_object_of<T>(plan, first, transpose, s.o, d.o);
        }
    if (!loads_ends && s.way == Access::Way::rows && d.way == Access::Way::rows) return first;
    return packs<T, N, N>(plan, first);
}

template <class T>
int copy(const LanePlan &plan, int first) {
    const LaneOperand &s = plan.source[0].operand, &d = plan.result[0];
    if (by_rows(s) && by_rows(d)) return blocks(plan, first);
    first = plane_by_plane<T>(
        plan, first, [](auto x) { return x; }, d, s);
    int done = first;
    with_side(d.columns, [&]<int N>(Side<N>) {
        if (d.rows == 1 && !s.transposed) done = packs<T, 1, N>(plan, first);
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
