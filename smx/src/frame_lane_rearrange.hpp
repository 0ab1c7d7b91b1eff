// Elements of a few registers rearranged, where any lane can reach any other: short objects side by side and packs.
#pragma once

#include "frame_lane_rows.hpp"

namespace smx {
inline namespace SMX_ISA {

// Register k of a group of objects of L elements side by side; or, by masks, of fewer objects than a group.
template <class T, int L>
struct WholeGroup {
    static Pack<T> load(const Byte *group, int k) { return load_pack<T>(group + k * pack_bytes); }
    static void store(const Byte *group, int k, Pack<T> x) {
        store_pack(const_cast<Byte *>(group + k * pack_bytes), x);
    }
    static Mask<T> objects() { return Mask<T>(true); }
};
#if defined(__AVX512F__)
template <class T, int L>
struct PartOfGroup {
    int count;
    Mask<T> elements(int k) const {
        const int left = count * L - k * Pack<T>::width;
        return Mask<T>::of(_bzhi_u32(~0u, static_cast<unsigned>(left > 0 ? left : 0)));
    }
    Pack<T> load(const Byte *group, int k) const {
        const Byte *const from = group + k * pack_bytes;
        if constexpr (sizeof(T) == 4)
            return reinterpret_cast<typename Pack<T>::Vector>(_mm512_maskz_loadu_ps(elements(k).bits, from));
        else return reinterpret_cast<typename Pack<T>::Vector>(_mm512_maskz_loadu_pd(elements(k).bits, from));
    }
    void store(const Byte *group, int k, Pack<T> x) const {
        Byte *const to = const_cast<Byte *>(group + k * pack_bytes);
        if constexpr (sizeof(T) == 4) _mm512_mask_storeu_ps(to, elements(k).bits, reinterpret_cast<__m512>(x.v));
        else _mm512_mask_storeu_pd(to, elements(k).bits, reinterpret_cast<__m512d>(x.v));
    }
    Mask<T> objects() const { return Mask<T>::of(_bzhi_u32(~0u, static_cast<unsigned>(count))); }
};
#endif

// Elements of several registers come together by permutations of two, or by blends, each element in its own lane, with
// one permutation after or before them. Blends go anywhere in the processor, but are more operations: better where
// permutations of two take several operations themselves, and where there is nothing else to do.
enum class By { pairs, blends };
constexpr By usual_way = pack_bytes > 32 ? By::pairs : By::blends;

#if defined(__AVX2__)
constexpr bool rearranges = true;

// Register k of the result: its lane l is element Map::at(k W + l) of all elements of in[], register after register.
template <class T, class Map, int k, int registers, By by = usual_way>
struct Rearranged {
    using V = typename Pack<T>::Vector;
    static constexpr int W = Pack<T>::width;
    static constexpr int wanted(int l) { return Map::at(k * W + l); }
    // The next register from r on that gives a lane.
    static constexpr int next(int r) {
        for (; r < registers; ++r)
            for (int l = 0; l < W; ++l)
                if (wanted(l) / W == r) return r;
        return registers;
    }
    // The lanes that come from register r are added to those that are there.
    template <int r, int... l>
    [[gnu::always_inline]] static V added(const Pack<T> *in, V there, std::integer_sequence<int, l...> lanes) {
        if constexpr (r == registers) return there;
        else
            return added<next(r + 1)>(
                in, __builtin_shufflevector(there, in[r].v, (wanted(l) / W == r ? W + wanted(l) % W : l)...), lanes);
    }
    // Which register gives the element that lies in a lane there: -1 if none does, or two do.
    static constexpr int giver(int lane) {
        int found = -1, givers = 0;
        for (int l = 0; l < W; ++l)
            if (wanted(l) % W == lane) {
                found = wanted(l) / W;
                ++givers;
            }
        return givers == 1 ? found : -1;
    }
    static constexpr bool one_a_lane() {
        for (int l = 0; l < W; ++l)
            if (giver(l) < 0) return false;
        return true;
    }
    template <int r, int... l>
    [[gnu::always_inline]] static V blended(const Pack<T> *in, V there, std::integer_sequence<int, l...> lanes) {
        if constexpr (r == registers) return there;
        else
            return blended<next(r + 1)>(in, __builtin_shufflevector(there, in[r].v, (giver(l) == r ? W + l : l)...),
                                        lanes);
    }
    template <int... l>
    [[gnu::always_inline]] static V of(const Pack<T> *in, std::integer_sequence<int, l...> lanes) {
        if constexpr (by == By::blends && next(next(next(0) + 1) + 1) < registers && one_a_lane()) {
            const V mixed = blended<next(next(0) + 1)>(in, in[next(0)].v, lanes);
            return __builtin_shufflevector(mixed, mixed, wanted(l) % W...);
        }
        constexpr int r = next(0), second = next(r + 1), s = second == registers ? r : second;
        const V two = __builtin_shufflevector(in[r].v, in[s].v,
                                              (wanted(l) / W == r   ? wanted(l) % W
                                               : wanted(l) / W == s ? W + wanted(l) % W
                                                                    : l)...);
        return added<next(s + 1)>(in, two, lanes);
    }
};

// So many registers from so many others.
template <class T, class Map, int to, int from, By by = usual_way>
[[gnu::always_inline]] inline void rearrange(const Pack<T> *in, Pack<T> *out) {
    [&]<int... k>(std::integer_sequence<int, k...>) __attribute__((always_inline)) {
        constexpr auto lanes = std::make_integer_sequence<int, Pack<T>::width>{};
        ((out[k] = Rearranged<T, Map, k, from, by>::of(in, lanes)), ...);
    }
    (std::make_integer_sequence<int, to>{});
}

// W objects of L elements, side by side in L registers, and one pack an element; put_together is the way back.
template <class T, int L>
struct TakeApart {
    static constexpr int at(int e) { return e % Pack<T>::width * L + e / Pack<T>::width; }
};
template <class T, int L>
struct PutTogether {
    static constexpr int at(int e) { return e % L * Pack<T>::width + e / L; }
};
// For an odd L by blends: each element c of object l to the lane where it belongs in some register, then the registers.
template <class T, int L, int c>
struct ToItsLane {
    static constexpr int at(int lane) {
        int l = 0;
        while ((l * L + c) % Pack<T>::width != lane) ++l;
        return l;
    }
};
template <class T, int L>
struct InItsLane {
    static constexpr int at(int e) { return e % L * Pack<T>::width + e % Pack<T>::width; }
};
// For an even L in two steps, of which each looks at half of the registers. First the even (odd) elements of registers
// k and k + L / 2, which hold the same elements of objects that are W / 2 apart; both 16 bytes of the one, then of the
// other register.
template <class T, int L>
struct Halves {
    static constexpr int W = Pack<T>::width, K = chunk_elements<T>;
    // Where element `position` of register k and that of register k + L / 2 have gone.
    static constexpr int place(int position, int second) {
        return position / K * K + position % K / 2 + second * (K / 2);
    }
    template <int odd>
    struct Split {
        static constexpr int at(int l) { return l % K / (K / 2) * W + l / K * K + l % (K / 2) * 2 + odd; }
    };
    struct TakeApart { // of the even registers, or of the odd
        static constexpr int at(int e) {
            const int l = e % W, from = l % (W / 2) * L + e / W * 2;
            return from / W * W + place(from % W, l / (W / 2));
        }
    };
    struct PutTogether {
        static constexpr int at(int e) {
            const int k = e / W, l = e % W, second = l % K / (K / 2);
            const int from = k * W + l / K * K + l % (K / 2) * 2;
            return from % L / 2 * W + from / L + second * (W / 2);
        }
    };
    template <int second>
    struct Join { // of an even and an odd register
        static constexpr int at(int l) { return l % 2 * W + place(l / 2 * 2, second); }
    };
};
template <class T, int L, By by = usual_way>
[[gnu::always_inline]] inline void take_apart(const Pack<T> *in, Pack<T> *out) {
    if constexpr (L % 2 == 0) {
        using H = Halves<T, L>;
        constexpr int half = L / 2;
        Pack<T> even[half], odd[half], result[half];
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) {
            const Pack<T> two[2] = {in[k], in[k + half]};
            rearrange<T, typename H::template Split<0>, 1, 2>(two, even + k);
            rearrange<T, typename H::template Split<1>, 1, 2>(two, odd + k);
        }
        rearrange<T, typename H::TakeApart, half, half, by>(even, result);
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) out[2 * k] = result[k];
        rearrange<T, typename H::TakeApart, half, half, by>(odd, result);
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) out[2 * k + 1] = result[k];
    } else {
        rearrange<T, TakeApart<T, L>, L, L, by>(in, out);
    }
}
template <class T, int L, By by = usual_way>
[[gnu::always_inline]] inline void put_together(const Pack<T> *in, Pack<T> *out) {
    if constexpr (L % 2 == 0) {
        using H = Halves<T, L>;
        constexpr int half = L / 2;
        Pack<T> even[half], odd[half], source[half];
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) source[k] = in[2 * k];
        rearrange<T, typename H::PutTogether, half, half, by>(source, even);
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) source[k] = in[2 * k + 1];
        rearrange<T, typename H::PutTogether, half, half, by>(source, odd);
#pragma GCC unroll 6
        for (int k = 0; k < half; ++k) {
            const Pack<T> two[2] = {even[k], odd[k]};
            rearrange<T, typename H::template Join<0>, 1, 2>(two, out + k);
            rearrange<T, typename H::template Join<1>, 1, 2>(two, out + k + half);
        }
    } else if constexpr (by == By::blends) {
        Pack<T> in_lane[L];
        [&]<int... c>(std::integer_sequence<int, c...>) {
            constexpr auto lanes = std::make_integer_sequence<int, Pack<T>::width>{};
            ((in_lane[c] = Rearranged<T, ToItsLane<T, L, c>, 0, 1>::of(in + c, lanes)), ...);
        }
        (std::make_integer_sequence<int, L>{});
        rearrange<T, InItsLane<T, L>, L, L, by>(in_lane, out);
    } else {
        rearrange<T, PutTogether<T, L>, L, L>(in, out);
    }
}
template <class T, int L, By by = usual_way, class Registers = WholeGroup<T, L>>
[[gnu::always_inline]] inline void load_side_by_side(const Byte *from, Pack<T> *out, Registers registers = {}) {
    Pack<T> in[L];
#pragma GCC unroll 6
    for (int k = 0; k < L; ++k) in[k] = registers.load(from, k);
    take_apart<T, L, by>(in, out);
}
template <class T, int L, By by = usual_way, class Registers = WholeGroup<T, L>>
[[gnu::always_inline]] inline void store_side_by_side(const Byte *to, const Pack<T> *in, Registers registers = {}) {
    Pack<T> out[L];
    put_together<T, L, by>(in, out);
#pragma GCC unroll 6
    for (int k = 0; k < L; ++k) registers.store(to, k, out[k]);
}
#else
constexpr bool rearranges = false;
template <class T, class Map, int k, int registers, By by = usual_way>
struct Rearranged;
template <class T, class Map, int to, int from, By by = usual_way>
void rearrange(const Pack<T> *in, Pack<T> *out);
template <class T, int L>
void take_apart(const Pack<T> *in, Pack<T> *out);
template <class T, int L>
void put_together(const Pack<T> *in, Pack<T> *out);
template <class T, int L, By by = usual_way, class Registers = WholeGroup<T, L>>
void load_side_by_side(const Byte *from, Pack<T> *out, Registers registers = {});
template <class T, int L, By by = usual_way, class Registers = WholeGroup<T, L>>
void store_side_by_side(const Byte *to, const Pack<T> *in, Registers registers = {});
#endif

// The first C elements of a register, the others left out.
#if defined(__AVX512F__)
constexpr bool loads_ends = true;
template <class T, int C>
inline Pack<T> load_end(const Byte *from) {
    return reinterpret_cast<typename Pack<T>::Vector>(load_first<C *static_cast<int>(sizeof(T))>(from));
}
template <class T, int C>
inline void store_end(const Byte *to, Pack<T> x) {
    store_first<C *static_cast<int>(sizeof(T))>(to, reinterpret_cast<__m512>(x.v));
}
#else
constexpr bool loads_ends = false;
template <class T, int C>
Pack<T> load_end(const Byte *from);
template <class T, int C>
void store_end(const Byte *to, Pack<T> x);
#endif

} // namespace SMX_ISA
} // namespace smx
