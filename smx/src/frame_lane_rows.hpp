// Rows of W objects and packs: where the objects of a group start, and how runs of adjacent elements are transposed
// into packs and back, chunk by chunk. Nothing outside the elements named is read or written.
#pragma once

#include <utility>

#include "frame_pack.hpp"

namespace smx {
inline namespace SMX_ISA {

using Byte = char;

// Four floats or two doubles: where little is computed, to bring them into lanes takes longer than one object after the
// other.
constexpr bool few_lanes = pack_bytes == 16;

inline const Byte *at(const void *base, std::ptrdiff_t offset) {
    return reinterpret_cast<const Byte *>(reinterpret_cast<std::uintptr_t>(base) + static_cast<std::uintptr_t>(offset));
}
template <class T>
inline T load_element(const Byte *from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}
template <class T>
inline void store_element(const Byte *to, T value) {
    std::memcpy(const_cast<Byte *>(to), &value, sizeof value);
}

// ---- where the W objects of a group start

// One every `apart` bytes: constant displacements.
template <std::ptrdiff_t apart>
struct PackedRows {
    const Byte *start;
    const Byte *operator[](int l) const { return start + l * apart; }
};
// One every `step` bytes: what does not fit into registers together is computed on the way.
template <int W>
struct StridedRows {
    const Byte *fours[(W + 3) / 4];
    std::ptrdiff_t step, thrice;
    StridedRows(const Byte *start, std::ptrdiff_t s) : step(s), thrice(3 * s) {
        for (int q = 0; q < (W + 3) / 4; ++q) fours[q] = at(start, 4 * q * s);
    }
    const Byte *operator[](int l) const { return at(fours[l / 4], l % 4 == 3 ? thrice : l % 4 * step); }
};
// Others, listed or noted down, are looked up in memory.
template <class Rows>
constexpr bool looked_up = true;
template <std::ptrdiff_t apart>
constexpr bool looked_up<PackedRows<apart>> = false;
template <int W>
constexpr bool looked_up<StridedRows<W>> = false;
struct ListedRows {
    const void *const *table;
    std::ptrdiff_t shift;
    const Byte *operator[](int l) const { return at(table[l], shift); }
};

// ---- chunks: 16 bytes of each of W rows, transposed

template <class T>
constexpr int chunk_elements = 16 / static_cast<int>(sizeof(T));

#if defined(__SSE2__)
#if defined(__AVX512F__)
using Wide = __m512;
inline Wide unpack_low(Wide a, Wide b) {
    return _mm512_unpacklo_ps(a, b);
}
inline Wide unpack_high(Wide a, Wide b) {
    return _mm512_unpackhi_ps(a, b);
}
inline Wide pairs_low(Wide a, Wide b) {
    return _mm512_shuffle_ps(a, b, 0x44);
}
inline Wide pairs_high(Wide a, Wide b) {
    return _mm512_shuffle_ps(a, b, 0xee);
}
template <int q>
inline Wide with_part(Wide x, __m128 part) {
    if constexpr (q == 0) return _mm512_castps128_ps512(part);
    else return _mm512_insertf32x4(x, part, q);
}
template <int q>
inline __m128 part_of(Wide x) {
    if constexpr (q == 0) return _mm512_castps512_ps128(x);
    else return _mm512_extractf32x4_ps(x, q);
}
#elif defined(__AVX2__)
using Wide = __m256;
inline Wide unpack_low(Wide a, Wide b) {
    return _mm256_unpacklo_ps(a, b);
}
inline Wide unpack_high(Wide a, Wide b) {
    return _mm256_unpackhi_ps(a, b);
}
inline Wide pairs_low(Wide a, Wide b) {
    return _mm256_shuffle_ps(a, b, 0x44);
}
inline Wide pairs_high(Wide a, Wide b) {
    return _mm256_shuffle_ps(a, b, 0xee);
}
template <int q>
inline Wide with_part(Wide x, __m128 part) {
    if constexpr (q == 0) return _mm256_castps128_ps256(part);
    else return _mm256_insertf128_ps(x, part, 1);
}
template <int q>
inline __m128 part_of(Wide x) {
    if constexpr (q == 0) return _mm256_castps256_ps128(x);
    else return _mm256_extractf128_ps(x, 1);
}
#else
using Wide = __m128;
inline Wide unpack_low(Wide a, Wide b) {
    return _mm_unpacklo_ps(a, b);
}
inline Wide unpack_high(Wide a, Wide b) {
    return _mm_unpackhi_ps(a, b);
}
inline Wide pairs_low(Wide a, Wide b) {
    return _mm_shuffle_ps(a, b, 0x44);
}
inline Wide pairs_high(Wide a, Wide b) {
    return _mm_shuffle_ps(a, b, 0xee);
}
template <int q>
inline Wide with_part(Wide, __m128 part) {
    return part;
}
template <int q>
inline __m128 part_of(Wide x) {
    return x;
}
#endif

// K rows of K elements become K columns, in every 16-byte part of the registers by itself; its own inverse.
inline void transpose_parts(Wide (&x)[4]) {
    const Wide a = unpack_low(x[0], x[1]), b = unpack_low(x[2], x[3]);
    const Wide c = unpack_high(x[0], x[1]), d = unpack_high(x[2], x[3]);
    x[0] = pairs_low(a, b);
    x[1] = pairs_high(a, b);
    x[2] = pairs_low(c, d);
    x[3] = pairs_high(c, d);
}
inline void transpose_parts(Wide (&x)[2]) {
    const Wide low = pairs_low(x[0], x[1]);
    x[1] = pairs_high(x[0], x[1]);
    x[0] = low;
}

// 16 bytes, or the first C elements of them.
template <class T, int C>
inline __m128 load_part(const Byte *from) {
    constexpr std::size_t bytes = C * sizeof(T);
    if constexpr (bytes == 16) return _mm_loadu_ps(reinterpret_cast<const float *>(from));
    else if constexpr (bytes == 4) return _mm_set_ss(load_element<float>(from));
    else if constexpr (bytes == 8) return _mm_castpd_ps(_mm_set_sd(load_element<double>(from)));
    else
#if defined(__AVX__)
        return _mm_maskload_ps(reinterpret_cast<const float *>(from), _mm_setr_epi32(-1, -1, -1, 0));
#else
        return _mm_movelh_ps(load_part<float, 2>(from), load_part<float, 1>(from + 8));
#endif
}
template <class T, int C>
inline void store_part(const Byte *at, __m128 part) {
    constexpr std::size_t bytes = C * sizeof(T);
    Byte *const to = const_cast<Byte *>(at);
    if constexpr (bytes == 16) {
        _mm_storeu_ps(reinterpret_cast<float *>(to), part);
    } else if constexpr (bytes == 4) {
        store_element(to, _mm_cvtss_f32(part));
    } else if constexpr (bytes == 8) {
        store_element(to, _mm_cvtsd_f64(_mm_castps_pd(part)));
    } else {
#if defined(__AVX512VL__)
        // GCC folds an extraction into the masked store, and that instruction faults on the element left out.
        __asm__("" : "+v"(part));
        _mm_mask_storeu_ps(to, 7, part);
#else
        store_part<float, 2>(to, part);
        store_part<float, 1>(to + 8, _mm_movehl_ps(part, part));
#endif
    }
}

#if defined(__AVX512F__)
// The first bytes of a register, the others left out: in parts of at most 32, since a masked load or store of 64 bytes
// takes twice as long where its address comes from a list.
template <int bytes>
[[gnu::always_inline]] inline __m512 load_first(const Byte *from) {
    constexpr int more = (bytes - 32) / 4;
    if constexpr (bytes == 64) {
        return _mm512_loadu_ps(from);
    } else if constexpr (bytes <= 16) {
        return _mm512_zextps128_ps512(load_part<float, bytes / 4>(from));
    } else if constexpr (bytes < 32) {
        return _mm512_zextps256_ps512(_mm256_maskz_loadu_ps((1u << bytes / 4) - 1, from));
    } else {
        const __m512 low = _mm512_zextps256_ps512(_mm256_loadu_ps(reinterpret_cast<const float *>(from)));
        if constexpr (more == 0) {
            return low;
        } else if constexpr (more <= 4) {
            const __m128 rest = load_part<float, more>(from + 32);
            return _mm512_insertf32x4(low, rest, 2);
        } else {
            const __m256 rest = _mm256_maskz_loadu_ps((1u << more) - 1, from + 32);
            return _mm512_insertf32x8(low, rest, 1);
        }
    }
}
template <int bytes>
[[gnu::always_inline]] inline void store_first(const Byte *at, __m512 x) {
    constexpr int more = (bytes - 32) / 4;
    Byte *const to = const_cast<Byte *>(at);
    if constexpr (bytes == 64) {
        _mm512_storeu_ps(to, x);
    } else if constexpr (bytes <= 16) {
        store_part<float, bytes / 4>(at, _mm512_castps512_ps128(x));
    } else if constexpr (bytes < 32) {
        _mm256_mask_storeu_ps(to, (1u << bytes / 4) - 1, _mm512_castps512_ps256(x));
    } else {
        _mm256_storeu_ps(reinterpret_cast<float *>(to), _mm512_castps512_ps256(x));
        if constexpr (more > 4) _mm256_mask_storeu_ps(to + 32, (1u << more) - 1, _mm512_extractf32x8_ps(x, 1));
        else if constexpr (more > 0) store_part<float, more>(at + 32, _mm512_extractf32x4_ps(x, 2));
    }
}
#endif

// C elements of each of W objects on their way into packs: take<l>() reads those of object l.
template <class T, int C>
struct ChunkIn {
    static constexpr int K = chunk_elements<T>, registers = K;
    Wide x[K];
    template <int l>
    [[gnu::always_inline]] void take(const Byte *from) {
        x[l % K] = with_part<l / K>(x[l % K], load_part<T, C>(from));
    }
    [[gnu::always_inline]] void finish(Pack<T> *out) {
        transpose_parts(x);
#pragma GCC unroll 4
        for (int c = 0; c < C; ++c) out[c] = reinterpret_cast<typename Pack<T>::Vector>(x[c]);
    }
};
// And out of them: store<l>() writes those of object l.
template <class T, int C>
struct ChunkOut {
    static constexpr int K = chunk_elements<T>;
    Wide x[K];
    [[gnu::always_inline]] explicit ChunkOut(const Pack<T> *in) {
#pragma GCC unroll 4
        for (int k = 0; k < K; ++k) x[k] = reinterpret_cast<Wide>(in[k < C ? k : 0].v);
        transpose_parts(x);
    }
    template <int l>
    [[gnu::always_inline]] void store(const Byte *to) const {
        store_part<T, C>(to, part_of<l / K>(x[l % K]));
    }
};
#else
template <class T, int C>
struct ChunkIn {
    static constexpr int registers = C;
    Pack<T> x[C];
    template <int l>
    void take(const Byte *from) {
        for (int c = 0; c < C; ++c) x[c].v[l] = load_element<T>(from + c * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
    void finish(Pack<T> *out) {
        for (int c = 0; c < C; ++c) out[c] = x[c];
    }
};
template <class T, int C>
struct ChunkOut {
    const Pack<T> *in;
    explicit ChunkOut(const Pack<T> *packs) : in(packs) {}
    template <int l>
    void store(const Byte *to) const {
        for (int c = 0; c < C; ++c) store_element<T>(to + c * static_cast<std::ptrdiff_t>(sizeof(T)), in[c].v[l]);
    }
};
#endif

// 32 bytes of each of W rows, for half the loads and stores of two chunks. In registers of 32 bytes, that is worth it
// only for stores of doubles.
template <class T>
constexpr bool loads_long_chunks = pack_bytes > 32;
template <class T>
constexpr bool stores_long_chunks = pack_bytes > 32 || (pack_bytes > 16 && sizeof(T) == 8);
template <class T>
struct LongChunkIn;
template <class T>
struct LongChunkOut;
#if defined(__AVX512F__)
template <>
struct LongChunkIn<float> {
    static constexpr int registers = 8;
    Wide x[2][4]; // objects k and k + 4, and k + 8 and k + 12
    template <int l>
    [[gnu::always_inline]] void take(const Byte *from) {
        Wide &two = x[l / 8][l % 4];
        const __m256 part = _mm256_loadu_ps(reinterpret_cast<const float *>(from));
        if constexpr (l % 8 < 4) two = _mm512_castps256_ps512(part);
        else two = _mm512_insertf32x8(two, part, 1);
    }
    [[gnu::always_inline]] void finish(Pack<float> *out) {
        transpose_parts(x[0]);
        transpose_parts(x[1]);
#pragma GCC unroll 4
        for (int c = 0; c < 4; ++c) {
            out[c].v = reinterpret_cast<Pack<float>::Vector>(_mm512_shuffle_f32x4(x[0][c], x[1][c], 0x88));
            out[c + 4].v = reinterpret_cast<Pack<float>::Vector>(_mm512_shuffle_f32x4(x[0][c], x[1][c], 0xdd));
        }
    }
};
template <>
struct LongChunkOut<float> {
    Wide x[2][4];
    [[gnu::always_inline]] explicit LongChunkOut(const Pack<float> *in) {
        using V = Pack<float>::Vector;
#pragma GCC unroll 4
        for (int c = 0; c < 4; ++c) {
            const V a = in[c].v, b = in[c + 4].v;
            x[0][c] = reinterpret_cast<Wide>(
                __builtin_shufflevector(a, b, 0, 1, 2, 3, 16, 17, 18, 19, 4, 5, 6, 7, 20, 21, 22, 23));
            x[1][c] = reinterpret_cast<Wide>(
                __builtin_shufflevector(a, b, 8, 9, 10, 11, 24, 25, 26, 27, 12, 13, 14, 15, 28, 29, 30, 31));
        }
        transpose_parts(x[0]);
        transpose_parts(x[1]);
    }
    template <int l>
    [[gnu::always_inline]] void store(const Byte *to) const {
        const Wide two = x[l / 8][l % 4];
        __m256 part;
        if constexpr (l % 8 < 4) part = _mm512_castps512_ps256(two);
        else part = _mm512_extractf32x8_ps(two, 1);
        _mm256_storeu_ps(reinterpret_cast<float *>(const_cast<Byte *>(to)), part);
    }
};
template <>
struct LongChunkIn<double> {
    using V = Pack<double>::Vector;
    static constexpr int registers = 4;
    V x[4]; // objects 0 and 2, 1 and 3, 4 and 6, 5 and 7
    template <int l>
    [[gnu::always_inline]] void take(const Byte *from) {
        constexpr int k = l / 4 * 2 + l % 2;
        const __m256d part = _mm256_loadu_pd(reinterpret_cast<const double *>(from));
        if constexpr (l % 4 < 2) x[k] = V(_mm512_castpd256_pd512(part));
        else x[k] = V(_mm512_insertf64x4(__m512d(x[k]), part, 1));
    }
    [[gnu::always_inline]] void finish(Pack<double> *out) const {
        const auto columns = [&](V a, V b, int c) { // c and c + 2
            out[c].v = __builtin_shufflevector(a, b, 0, 1, 4, 5, 8, 9, 12, 13);
            out[c + 2].v = __builtin_shufflevector(a, b, 2, 3, 6, 7, 10, 11, 14, 15);
        };
        columns(__builtin_shufflevector(x[0], x[1], 0, 8, 2, 10, 4, 12, 6, 14),
                __builtin_shufflevector(x[2], x[3], 0, 8, 2, 10, 4, 12, 6, 14), 0);
        columns(__builtin_shufflevector(x[0], x[1], 1, 9, 3, 11, 5, 13, 7, 15),
                __builtin_shufflevector(x[2], x[3], 1, 9, 3, 11, 5, 13, 7, 15), 1);
    }
};
#endif
#if defined(__AVX2__)
template <>
struct LongChunkOut<double> {
    using V = Pack<double>::Vector;
    V x[4];
#if defined(__AVX512F__)
    [[gnu::always_inline]] explicit LongChunkOut(const Pack<double> *in) {
        const V a = in[0].v, b = in[1].v, c = in[2].v, d = in[3].v;
        const auto rows = [&](int k, V left, V right) { // objects k, k + 2, k + 4, k + 6
            x[k] = __builtin_shufflevector(left, right, 0, 1, 8, 9, 2, 3, 10, 11);
            x[k + 2] = __builtin_shufflevector(left, right, 4, 5, 12, 13, 6, 7, 14, 15);
        };
        rows(0, __builtin_shufflevector(a, b, 0, 8, 2, 10, 4, 12, 6, 14),
             __builtin_shufflevector(c, d, 0, 8, 2, 10, 4, 12, 6, 14));
        rows(1, __builtin_shufflevector(a, b, 1, 9, 3, 11, 5, 13, 7, 15),
             __builtin_shufflevector(c, d, 1, 9, 3, 11, 5, 13, 7, 15));
    }
    template <int l>
    [[gnu::always_inline]] void store(const Byte *to) const {
        const __m512d pair = x[l % 2 + l / 4 * 2];
        __m256d row;
        if constexpr (l % 4 < 2) row = _mm512_castpd512_pd256(pair);
        else row = _mm512_extractf64x4_pd(pair, 1);
        _mm256_storeu_pd(reinterpret_cast<double *>(const_cast<Byte *>(to)), row);
    }
#else
    [[gnu::always_inline]] explicit LongChunkOut(const Pack<double> *in) {
        const V a = in[0].v, b = in[1].v, c = in[2].v, d = in[3].v;
        const auto rows = [&](int k, V left, V right) { // objects k and k + 2
            x[k] = __builtin_shufflevector(left, right, 0, 1, 4, 5);
            x[k + 2] = __builtin_shufflevector(left, right, 2, 3, 6, 7);
        };
        rows(0, __builtin_shufflevector(a, b, 0, 4, 2, 6), __builtin_shufflevector(c, d, 0, 4, 2, 6));
        rows(1, __builtin_shufflevector(a, b, 1, 5, 3, 7), __builtin_shufflevector(c, d, 1, 5, 3, 7));
    }
    template <int l>
    [[gnu::always_inline]] void store(const Byte *to) const {
        _mm256_storeu_pd(reinterpret_cast<double *>(const_cast<Byte *>(to)), x[l]);
    }
#endif
};
#endif

// One element of each of the W rows, each at its own address. Not by way of an array in memory: a vector load right
// behind the narrow stores that it covers has to wait for them.
template <class T>
inline Pack<T> gather(const Byte *const *rows, std::ptrdiff_t offset) {
    constexpr int W = Pack<T>::width;
#if defined(__AVX512F__)
    using Vector = typename Pack<T>::Vector;
    const Byte *const base = at(nullptr, offset);
    const __m512i low = _mm512_loadu_si512(rows);
    if constexpr (sizeof(T) == 8) {
        return reinterpret_cast<Vector>(_mm512_i64gather_pd(low, base, 1));
    } else {
        const __m512i high = _mm512_loadu_si512(rows + W / 2);
        return reinterpret_cast<Vector>(_mm512_insertf32x8(_mm512_castps256_ps512(_mm512_i64gather_ps(low, base, 1)),
                                                           _mm512_i64gather_ps(high, base, 1), 1));
    }
#else
    typename Pack<T>::Vector v = {};
    for (int l = 0; l < W; ++l) v[l] = load_element<T>(rows[l] + offset);
    return v;
#endif
}
template <class T>
inline void scatter(const Byte *const *rows, std::ptrdiff_t offset, Pack<T> x) {
    T lanes[Pack<T>::width];
    store_pack(lanes, x);
    for (int l = 0; l < Pack<T>::width; ++l) store_element(rows[l] + offset, lanes[l]);
}

// Runs of L adjacent elements, in pieces. The last piece of a long run goes back over elements already done rather than
// past its end.
struct Piece {
    int first, elements, next;
};
template <class T, int L>
constexpr Piece piece_from(int first, bool long_chunks) {
    constexpr int K = chunk_elements<T>;
    const int longest = long_chunks ? 2 * K : K;
    if (first + longest <= L) return {first, longest, first + longest};
    if (longest > K && L > longest && first + longest - 1 == L) return {L - longest, longest, L};
    if (first + K <= L) return {first, K, first + K};
    return L >= K ? Piece{L - K, K, L} : Piece{0, L, L};
}

// What all pieces of object 0 need done, then of object 1, and so on.
template <class Rows, int... l, class Each>
[[gnu::always_inline]] inline void each_row(const Rows &rows, std::ptrdiff_t offset, std::integer_sequence<int, l...>,
                                            Each each) {
    (each(rows[l] + offset, Fixed<l>{}), ...);
}

template <class T, Piece piece>
struct Incoming {
    using Registers =
        std::conditional_t<(piece.elements > chunk_elements<T>), LongChunkIn<T>, ChunkIn<T, piece.elements>>;
    static constexpr int registers = Registers::registers;
    Registers in;
    template <int l>
    [[gnu::always_inline]] void take(const Byte *run) {
        in.template take<l>(run + piece.first * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
    [[gnu::always_inline]] void finish(Pack<T> *out) { in.finish(out + piece.first); }
};
// Piece after piece; or object after object where rows have to be looked up, as many pieces at once as there are
// registers for, so that each row is looked up once.
template <class T, int L, int first = 0, class Rows, class... Earlier>
[[gnu::always_inline]] inline void load_run(const Rows &rows, std::ptrdiff_t offset, Pack<T> *out,
                                            Earlier &...earlier) {
    constexpr int room = looked_up<Rows> ? 12 : 1;
    if constexpr (first == L || (0 + ... + Earlier::registers) >= room) {
        each_row(
            rows, offset, std::make_integer_sequence<int, Pack<T>::width>{},
            [&]<int l>(const Byte *run, Fixed<l>)
                __attribute__((always_inline)) { (earlier.template take<l>(run), ...); });
        (earlier.finish(out), ...);
        if constexpr (first < L) load_run<T, L, first>(rows, offset, out);
    } else {
        constexpr Piece piece = piece_from<T, L>(first, loads_long_chunks<T>);
        Incoming<T, piece> incoming;
        load_run<T, L, piece.next>(rows, offset, out, earlier..., incoming);
    }
}

template <class T, Piece piece>
struct Outgoing {
    using Registers =
        std::conditional_t<(piece.elements > chunk_elements<T>), LongChunkOut<T>, ChunkOut<T, piece.elements>>;
    Registers registers;
    [[gnu::always_inline]] explicit Outgoing(const Pack<T> *in) : registers(in + piece.first) {}
    template <int l>
    [[gnu::always_inline]] void store(const Byte *run) const {
        registers.template store<l>(run + piece.first * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
};
template <class T, class Rows, class... Pieces>
[[gnu::always_inline]] inline void store_pieces(const Rows &rows, std::ptrdiff_t offset, const Pieces &...pieces) {
    each_row(
        rows, offset, std::make_integer_sequence<int, Pack<T>::width>{},
        [&]<int l>(const Byte *run, Fixed<l>) __attribute__((always_inline)) { (pieces.template store<l>(run), ...); });
}
// Piece after piece, or, in order, object after object: then all pieces have to be in registers at once.
template <class T, int L, bool in_order = false, int first = 0, class Rows, class... Earlier>
[[gnu::always_inline]] inline void store_run(const Rows &rows, std::ptrdiff_t offset, const Pack<T> *in,
                                             const Earlier &...earlier) {
    if constexpr (first == L) {
        if constexpr (in_order) store_pieces<T>(rows, offset, earlier...);
    } else {
        constexpr Piece piece = piece_from<T, L>(first, stores_long_chunks<T>);
        const Outgoing<T, piece> outgoing(in);
        if constexpr (!in_order) {
            store_pieces<T>(rows, offset, outgoing);
            store_run<T, L, false, piece.next>(rows, offset, in);
        } else {
            store_run<T, L, true, piece.next>(rows, offset, in, earlier..., outgoing);
        }
    }
}

} // namespace SMX_ISA
} // namespace smx
