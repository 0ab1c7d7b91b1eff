// Loads and stores of a group of objects, once for all layouts.
//
// A LaneAccess brings the elements of W consecutive objects into packs and back. There are three ways: objects that
// follow each other element by element (a structure of arrays) are vector loads; rows with adjacent elements are
// loaded through W row addresses and transposed in registers; everything else goes one element at a time. Nothing
// outside the described elements is read or written.
#pragma once

#include <utility>

#include "frame_lanes.hpp"
#include "frame_pack.hpp"
#include "lanes_lists.hpp"

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
inline Wide join(const __m128 (&part)[4]) {
    const __m256 low = _mm256_insertf128_ps(_mm256_castps128_ps256(part[0]), part[1], 1);
    const __m256 high = _mm256_insertf128_ps(_mm256_castps128_ps256(part[2]), part[3], 1);
    return _mm512_insertf32x8(_mm512_castps256_ps512(low), high, 1);
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
inline Wide join(const __m128 (&part)[2]) {
    return _mm256_insertf128_ps(_mm256_castps128_ps256(part[0]), part[1], 1);
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
inline Wide join(const __m128 (&part)[1]) {
    return part[0];
}
template <int q>
inline __m128 part_of(Wide x) {
    return x;
}
#endif
constexpr int chunk_parts = pack_bytes / 16;

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

// C elements at `offset` of each of the W rows.
template <class T, int C, class Rows>
[[gnu::always_inline]] inline void load_chunk(const Rows &rows, std::ptrdiff_t offset, Pack<T> *out) {
    constexpr int K = chunk_elements<T>;
    Wide x[K];
#pragma GCC unroll 4
    for (int k = 0; k < K; ++k) {
        __m128 part[chunk_parts];
#pragma GCC unroll 4
        for (int q = 0; q < chunk_parts; ++q) part[q] = load_part<T, C>(rows[q * K + k] + offset);
        x[k] = join(part);
    }
    transpose_parts(x);
#pragma GCC unroll 4
    for (int c = 0; c < C; ++c) out[c] = reinterpret_cast<typename Pack<T>::Vector>(x[c]);
}
// C elements of packs on their way out: store<l>() writes those of object l.
template <class T, int C>
struct Chunk {
    static constexpr int K = chunk_elements<T>;
    Wide x[K];
    [[gnu::always_inline]] explicit Chunk(const Pack<T> *in) {
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
template <class T, int C, class Rows>
inline void load_chunk(const Rows &rows, std::ptrdiff_t offset, Pack<T> *out) {
    for (int c = 0; c < C; ++c)
        for (int l = 0; l < Pack<T>::width; ++l)
            out[c].v[l] = load_element<T>(rows[l] + offset + c * static_cast<std::ptrdiff_t>(sizeof(T)));
}
template <class T, int C>
struct Chunk {
    const Pack<T> *in;
    explicit Chunk(const Pack<T> *packs) : in(packs) {}
    template <int l>
    void store(const Byte *to) const {
        for (int c = 0; c < C; ++c) store_element<T>(to + c * static_cast<std::ptrdiff_t>(sizeof(T)), in[c].v[l]);
    }
};
#endif

// 32 bytes of each of W rows of doubles, for half the loads and stores of two chunks. Four lanes are as soon loaded in
// chunks.
#if defined(__AVX512F__)
constexpr bool loads_long_chunks = true;
template <class Rows>
[[gnu::always_inline]] inline void load_long_chunk(const Rows &rows, std::ptrdiff_t offset, Pack<double> *out) {
    using V = Pack<double>::Vector;
    const auto part = [&](int l) { return _mm256_loadu_pd(reinterpret_cast<const double *>(rows[l] + offset)); };
    const auto row = [&](int l) { return V(_mm512_insertf64x4(_mm512_castpd256_pd512(part(l)), part(l + 2), 1)); };
    const auto columns = [&](V a, V b, int c) { // c and c + 2
        out[c].v = __builtin_shufflevector(a, b, 0, 1, 4, 5, 8, 9, 12, 13);
        out[c + 2].v = __builtin_shufflevector(a, b, 2, 3, 6, 7, 10, 11, 14, 15);
    };
    const V a = row(0), b = row(1), c = row(4), d = row(5);
    columns(__builtin_shufflevector(a, b, 0, 8, 2, 10, 4, 12, 6, 14),
            __builtin_shufflevector(c, d, 0, 8, 2, 10, 4, 12, 6, 14), 0);
    columns(__builtin_shufflevector(a, b, 1, 9, 3, 11, 5, 13, 7, 15),
            __builtin_shufflevector(c, d, 1, 9, 3, 11, 5, 13, 7, 15), 1);
}
#else
constexpr bool loads_long_chunks = false;
template <class Rows>
void load_long_chunk(const Rows &rows, std::ptrdiff_t offset, Pack<double> *out);
#endif
#if defined(__AVX2__)
constexpr bool stores_long_chunks = true;
struct LongChunk {
    using V = Pack<double>::Vector;
    V x[4];
#if defined(__AVX512F__)
    [[gnu::always_inline]] explicit LongChunk(const Pack<double> *in) {
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
    [[gnu::always_inline]] explicit LongChunk(const Pack<double> *in) {
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
#else
constexpr bool stores_long_chunks = false;
struct LongChunk;
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
    const int longest = long_chunks && sizeof(T) == 8 ? 2 * K : K;
    if (first + longest <= L) return {first, longest, first + longest};
    if (longest > K && L > longest && first + longest - 1 == L) return {L - longest, longest, L};
    if (first + K <= L) return {first, K, first + K};
    return L >= K ? Piece{L - K, K, L} : Piece{0, L, L};
}

template <class T, int L, int first = 0, class Rows>
[[gnu::always_inline]] inline void load_run(const Rows &rows, std::ptrdiff_t offset, Pack<T> *out) {
    if constexpr (first < L) {
        constexpr Piece piece = piece_from<T, L>(first, loads_long_chunks);
        constexpr std::ptrdiff_t begin = piece.first * static_cast<std::ptrdiff_t>(sizeof(T));
        if constexpr (piece.elements > chunk_elements<T>) load_long_chunk(rows, offset + begin, out + piece.first);
        else load_chunk<T, piece.elements>(rows, offset + begin, out + piece.first);
        load_run<T, L, piece.next>(rows, offset, out);
    }
}

template <class T, Piece piece>
struct Outgoing {
    using Registers = std::conditional_t<(piece.elements > chunk_elements<T>), LongChunk, Chunk<T, piece.elements>>;
    Registers registers;
    [[gnu::always_inline]] explicit Outgoing(const Pack<T> *in) : registers(in + piece.first) {}
    template <int l>
    [[gnu::always_inline]] void store(const Byte *run) const {
        registers.template store<l>(run + piece.first * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
};
// All pieces of object 0, then of object 1, and so on.
template <class Rows, int... l, class... Pieces>
[[gnu::always_inline]] inline void store_pieces(const Rows &rows, std::ptrdiff_t offset,
                                                std::integer_sequence<int, l...>, const Pieces &...pieces) {
    const auto store = [&]<int object>(Fixed<object>) __attribute__((always_inline)) {
        const Byte *const run = rows[object] + offset;
        (pieces.template store<object>(run), ...);
    };
    (store(Fixed<l>{}), ...);
}
// Piece after piece, or, in order, object after object: then all pieces have to be in registers at once.
template <class T, int L, bool in_order = false, int first = 0, class Rows, class... Earlier>
[[gnu::always_inline]] inline void store_run(const Rows &rows, std::ptrdiff_t offset, const Pack<T> *in,
                                             const Earlier &...earlier) {
    constexpr auto objects = std::make_integer_sequence<int, Pack<T>::width>{};
    if constexpr (first == L) {
        if constexpr (in_order) store_pieces(rows, offset, objects, earlier...);
    } else {
        constexpr Piece piece = piece_from<T, L>(first, stores_long_chunks);
        const Outgoing<T, piece> outgoing(in);
        if constexpr (!in_order) {
            store_pieces(rows, offset, objects, outgoing);
            store_run<T, L, false, piece.next>(rows, offset, in);
        } else {
            store_run<T, L, true, piece.next>(rows, offset, in, earlier..., outgoing);
        }
    }
}

// ---- rearranging the elements of a few registers, where any lane can reach any other

#if defined(__AVX2__)
constexpr bool rearranges = true;

// Elements of several registers come together by permutations of two, or by blends, each element in its own lane, with
// one permutation after or before them. Blends go anywhere in the processor, but are more operations: better where
// permutations of two take several operations themselves, and where there is nothing else to do.
enum class By { pairs, blends };
constexpr By usual_way = pack_bytes > 32 ? By::pairs : By::blends;

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

template <class T, class Map, int registers, By by = usual_way, int... k>
[[gnu::always_inline]] inline void rearrange(const Pack<T> *in, Pack<T> *out, std::integer_sequence<int, k...>) {
    constexpr auto lanes = std::make_integer_sequence<int, Pack<T>::width>{};
    ((out[k] = Rearranged<T, Map, k, registers, by>::of(in, lanes)), ...);
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
        constexpr auto registers = std::make_integer_sequence<int, half>{};
        constexpr auto one = std::make_integer_sequence<int, 1>{};
        Pack<T> even[half], odd[half], result[half];
        for (int k = 0; k < half; ++k) {
            const Pack<T> two[2] = {in[k], in[k + half]};
            rearrange<T, typename H::template Split<0>, 2>(two, even + k, one);
            rearrange<T, typename H::template Split<1>, 2>(two, odd + k, one);
        }
        rearrange<T, typename H::TakeApart, half, by>(even, result, registers);
        for (int k = 0; k < half; ++k) out[2 * k] = result[k];
        rearrange<T, typename H::TakeApart, half, by>(odd, result, registers);
        for (int k = 0; k < half; ++k) out[2 * k + 1] = result[k];
    } else {
        rearrange<T, TakeApart<T, L>, L, by>(in, out, std::make_integer_sequence<int, L>{});
    }
}
template <class T, int L, By by = usual_way>
[[gnu::always_inline]] inline void put_together(const Pack<T> *in, Pack<T> *out) {
    if constexpr (L % 2 == 0) {
        using H = Halves<T, L>;
        constexpr int half = L / 2;
        constexpr auto registers = std::make_integer_sequence<int, half>{};
        constexpr auto one = std::make_integer_sequence<int, 1>{};
        Pack<T> even[half], odd[half], source[half];
        for (int k = 0; k < half; ++k) source[k] = in[2 * k];
        rearrange<T, typename H::PutTogether, half, by>(source, even, registers);
        for (int k = 0; k < half; ++k) source[k] = in[2 * k + 1];
        rearrange<T, typename H::PutTogether, half, by>(source, odd, registers);
        for (int k = 0; k < half; ++k) {
            const Pack<T> two[2] = {even[k], odd[k]};
            rearrange<T, typename H::template Join<0>, 2>(two, out + k, one);
            rearrange<T, typename H::template Join<1>, 2>(two, out + k + half, one);
        }
    } else if constexpr (by == By::blends) {
        constexpr auto registers = std::make_integer_sequence<int, L>{};
        Pack<T> in_lane[L];
        [&]<int... c>(std::integer_sequence<int, c...>) {
            constexpr auto lanes = std::make_integer_sequence<int, Pack<T>::width>{};
            ((in_lane[c] = Rearranged<T, ToItsLane<T, L, c>, 0, 1>::of(in + c, lanes)), ...);
        }
        (registers);
        rearrange<T, InItsLane<T, L>, L, by>(in_lane, out, registers);
    } else {
        rearrange<T, PutTogether<T, L>, L>(in, out, std::make_integer_sequence<int, L>{});
    }
}
template <class T, int L, By by = usual_way>
[[gnu::always_inline]] inline void load_side_by_side(const Byte *from, Pack<T> *out) {
    Pack<T> in[L];
    for (int k = 0; k < L; ++k) in[k] = load_pack<T>(from + k * pack_bytes);
    take_apart<T, L, by>(in, out);
}
template <class T, int L, By by = usual_way>
[[gnu::always_inline]] inline void store_side_by_side(const Byte *to, const Pack<T> *in) {
    Pack<T> out[L];
    put_together<T, L, by>(in, out);
    for (int k = 0; k < L; ++k) store_pack(const_cast<Byte *>(to + k * pack_bytes), out[k]);
}
#else
constexpr bool rearranges = false;
enum class By { pairs, blends };
constexpr By usual_way = By::pairs;
template <class T, class Map, int k, int registers, By by = By::pairs>
struct Rearranged;
template <class T, class Map, int registers, class Registers>
void rearrange(const Pack<T> *in, Pack<T> *out, Registers);
template <class T, int L>
void take_apart(const Pack<T> *in, Pack<T> *out);
template <class T, int L>
void put_together(const Pack<T> *in, Pack<T> *out);
template <class T, int L, By by = By::pairs>
void load_side_by_side(const Byte *from, Pack<T> *out);
template <class T, int L, By by = By::pairs>
void store_side_by_side(const Byte *to, const Pack<T> *in);
#endif

// The first C elements of a register, the others left out.
#if defined(__AVX512F__)
constexpr bool masked_ends = true;
template <class T, int C>
inline Pack<T> load_end(const Byte *from) {
    using Vector = typename Pack<T>::Vector;
    if constexpr (sizeof(T) == 4) return reinterpret_cast<Vector>(_mm512_maskz_loadu_ps((1u << C) - 1, from));
    else return reinterpret_cast<Vector>(_mm512_maskz_loadu_pd((1u << C) - 1, from));
}
template <class T, int C>
inline void store_end(const Byte *to, Pack<T> x) {
    if constexpr (sizeof(T) == 4)
        _mm512_mask_storeu_ps(const_cast<Byte *>(to), (1u << C) - 1, reinterpret_cast<__m512>(x.v));
    else _mm512_mask_storeu_pd(const_cast<Byte *>(to), (1u << C) - 1, reinterpret_cast<__m512d>(x.v));
}
#else
constexpr bool masked_ends = false;
template <class T, int C>
Pack<T> load_end(const Byte *from);
template <class T, int C>
void store_end(const Byte *to, Pack<T> x);
#endif

// ---- groups of R by C objects (a vector is one row)

template <class T, int R, int C>
struct LaneAccess {
    using Num = Pack<T>;
    static constexpr int W = Num::width;
    static constexpr std::ptrdiff_t size = sizeof(T);
    enum class Way { across, rows, elements };

    const LaneOperand &o;
    Way way;
    bool dense;  // the rows of an object follow each other without a gap
    bool packed; // and so do the objects

    explicit LaneAccess(const LaneOperand &operand)
        : o(operand), way(o.addressing != Addressing::list && o.stride0 == size                   ? Way::across
                          : o.addressing != Addressing::pointers && (o.stride2 == size || C == 1) ? Way::rows
                                                                                                  : Way::elements),
          dense(o.stride1 == C * size || R == 1),
          packed(dense && (o.stride2 == size || C == 1) && o.addressing == Addressing::strided &&
                 o.stride0 == R * C * size) {}

    // The address of element (i, j), as stored, of object n.
    const Byte *address(int n, int i, int j) const {
        switch (o.addressing) {
        case Addressing::strided: return at(o.base, (o.single ? 0 : n * o.stride0) + i * o.stride1 + j * o.stride2);
        case Addressing::list: return at(o.table[n], o.shift + i * o.stride1 + j * o.stride2);
        case Addressing::pointers: return at(o.table[i * C + j], o.shift + (o.single ? 0 : n * o.stride0));
        }
        return nullptr;
    }
    // Where the objects of a group start (strided or list): in the list itself, or noted down here.
    [[gnu::always_inline]] const Byte *const *rows_of(int n, const Byte *(&here)[W]) const {
        if (o.addressing == Addressing::list) {
            if (o.shift == 0) return reinterpret_cast<const Byte *const *>(o.table + n);
            for (int l = 0; l < W; ++l) here[l] = at(o.table[n + l], o.shift);
        } else {
            const std::ptrdiff_t step = o.single ? 0 : o.stride0;
            here[0] = at(o.base, n * step);
            for (int l = 1; l < W; ++l) here[l] = at(here[l - 1], step);
        }
        return here;
    }

    // Where element (i, j) lies behind the start of each object. A pointer table has no such start: the element's own
    // addresses are noted down.
    [[gnu::always_inline]] std::ptrdiff_t place(int n, int i, int j, const Byte *(&here)[W]) const {
        if (o.addressing != Addressing::pointers) return i * o.stride1 + j * o.stride2;
        for (int l = 0; l < W; ++l) here[l] = at(o.table[i * C + j], o.shift + (n + l) * o.stride0);
        return 0;
    }

    // Few elements an object, side by side: whole registers, rearranged.
    static constexpr bool few = rearranges && R * C > 1 && R *C <= 6;

    // Objects n .. n + W - 1 as stored, row-major.
    [[gnu::always_inline]] void load_stored(int n, Num *out) const {
        if (o.single) {
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) out[i * C + j] = Num(load_element<T>(address(0, i, j)));
        } else if (way == Way::across) {
            if (o.addressing == Addressing::pointers)
                for (int e = 0; e < R * C; ++e) out[e] = load_pack<T>(at(o.table[e], o.shift + n * size));
            else
                for (int i = 0; i < R; ++i)
                    for (int j = 0; j < C; ++j)
                        out[i * C + j] = load_pack<T>(at(o.base, n * size + i * o.stride1 + j * o.stride2));
        } else if (way == Way::rows) {
            if constexpr (few)
                if (packed) return load_side_by_side<T, R * C>(at(o.base, n * o.stride0), out);
            const Byte *here[W];
            const Byte *const *const rows = rows_of(n, here);
            if (dense) load_run<T, R * C>(rows, 0, out);
            else
#pragma GCC unroll 6
                for (int i = 0; i < R; ++i) load_run<T, C>(rows, i * o.stride1, out + i * C);
        } else {
            const Byte *here[W] = {};
            const Byte *const *const rows = o.addressing != Addressing::pointers ? rows_of(n, here) : here;
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) out[i * C + j] = gather<T>(rows, place(n, i, j, here));
        }
    }
    // The same, as the operation sees them: a transposed operand with its indexes exchanged (square objects only).
    [[gnu::always_inline]] void load_here(int n, Num *out) const {
        load_stored(n, out);
        if constexpr (R == C)
            if (o.transposed)
                for (int i = 0; i < R; ++i)
                    for (int j = i + 1; j < C; ++j) {
                        const Num kept = out[i * C + j];
                        out[i * C + j] = out[j * C + i];
                        out[j * C + i] = kept;
                    }
    }
    [[gnu::always_inline]] void store_here(int n, const Num *in) const {
        if (way == Way::across) {
            if (o.addressing == Addressing::pointers)
                for (int e = 0; e < R * C; ++e)
                    store_pack(const_cast<Byte *>(at(o.table[e], o.shift + n * size)), in[e]);
            else
                for (int i = 0; i < R; ++i)
                    for (int j = 0; j < C; ++j)
                        store_pack(const_cast<Byte *>(at(o.base, n * size + i * o.stride1 + j * o.stride2)),
                                   in[i * C + j]);
        } else if (way == Way::rows) {
            if constexpr (few)
                if (packed) return store_side_by_side<T, R * C>(at(o.base, n * o.stride0), in);
            const Byte *here[W];
            const Byte *const *const rows = rows_of(n, here);
            if (dense) store_run<T, R * C>(rows, 0, in);
            else
#pragma GCC unroll 6
                for (int i = 0; i < R; ++i) store_run<T, C>(rows, i * o.stride1, in + i * C);
        } else {
            const Byte *here[W] = {};
            const Byte *const *const rows = o.addressing != Addressing::pointers ? rows_of(n, here) : here;
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) {
                    const std::ptrdiff_t offset = place(n, i, j, here);
                    scatter<T>(rows, offset, in[i * C + j]);
                }
        }
    }

    // Out of line, where a call is little beside the work: every family would have its own copy of all ways.
    [[gnu::noinline]] void load_there(int n, Num *out) const {
        load_here(n, out);
    }
    [[gnu::noinline]] void store_there(int n, const Num *in) const {
        store_here(n, in);
    }

    [[gnu::always_inline]] void load(int n, Num *out) const {
        if constexpr (R * C <= 4) load_here(n, out);
        else load_there(n, out);
    }
    [[gnu::always_inline]] void store(int n, const Num *in) const {
        if constexpr (R * C <= 4) store_here(n, in);
        else store_there(n, in);
    }
};

// ---- groups of objects of a known layout

// What a loop knows of an operand: objects without gaps behind each other; without gaps inside at a stride, or listed,
// or either (dense); or element by element (a structure of arrays). Beside objects with gaps between them, single
// elements may be anywhere.
enum class Known { nothing, packed, strided, listed, dense, planes };

template <class T, int R, int C>
bool is_known(const LaneAccess<T, R, C> &a, Known known) {
    using Way = typename LaneAccess<T, R, C>::Way;
    if (known == Known::nothing) return true;
    if (a.o.single || a.o.transposed) return false;
    if (R * C == 1)
        return known == Known::strided || known == Known::listed || known == Known::dense ||
               (a.o.addressing == Addressing::strided && a.way == Way::across);
    switch (known) {
    case Known::packed: return a.packed;
    case Known::planes: return a.way == Way::across;
    case Known::dense: return a.way == Way::rows && a.dense;
    case Known::listed: return a.way == Way::rows && a.dense && a.o.addressing == Addressing::list;
    default: return a.way == Way::rows && a.dense && a.o.addressing == Addressing::strided;
    }
}

// An operand inside a loop: loads and stores inlined, with nothing to decide, and nothing that a store could change.
template <Known known, class T, int R, int C>
struct Objects {
    static constexpr bool few = false;
    const LaneAccess<T, R, C> &access;
    explicit Objects(const LaneAccess<T, R, C> &a) : access(a) {}
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
        if constexpr (R * C == 1) access.load_here(n, out);
        else access.load_there(n, out);
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
        if constexpr (R * C == 1) access.store_here(n, in);
        else access.store_there(n, in);
    }
};
template <class T, int R, int C>
struct Objects<Known::packed, T, R, C> {
    static constexpr int bytes = R * C * static_cast<int>(sizeof(T));
    static constexpr bool few = LaneAccess<T, R, C>::few;
    const Byte *base;
    explicit Objects(const LaneAccess<T, R, C> &a) : base(static_cast<const Byte *>(a.o.base)) {}
    const Byte *group(int n) const { return base + std::ptrdiff_t{n} * bytes; }
    PackedRows<bytes> rows(int n) const { return {group(n)}; }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
        if constexpr (R * C == 1) *out = load_pack<T>(group(n));
        else if constexpr (few) load_side_by_side<T, R * C>(group(n), out);
        else load_run<T, R * C>(rows(n), 0, out);
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
        if constexpr (R * C == 1) store_pack(const_cast<Byte *>(group(n)), *in);
        else if constexpr (few) store_side_by_side<T, R * C>(group(n), in);
        else store_run<T, R * C>(rows(n), 0, in);
    }
};
template <class T, int R, int C>
struct Objects<Known::strided, T, R, C> {
    static constexpr bool few = false;
    const Byte *base;
    std::ptrdiff_t step;
    explicit Objects(const LaneAccess<T, R, C> &a) : base(static_cast<const Byte *>(a.o.base)), step(a.o.stride0) {}
    StridedRows<Pack<T>::width> rows(int n) const { return {at(base, n * step), step}; }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C>(rows(n), 0, in); }
};
template <class T, int R, int C>
struct Objects<Known::listed, T, R, C> {
    static constexpr bool few = false;
    // With all of a group in registers; then results may meet each other, the last object's being what stays.
    static constexpr bool in_order = R * C <= (pack_bytes == 64 ? 28 : 16);
    const void *const *table;
    std::ptrdiff_t shift;
    explicit Objects(const LaneAccess<T, R, C> &a) : table(a.o.table), shift(a.o.shift) {}
    ListedRows rows(int n) const { return {table + n, shift}; }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C, in_order>(rows(n), 0, in); }
};
// Beside so much work, W addresses are quickly noted down.
template <class T, int R, int C>
struct Objects<Known::dense, T, R, C> {
    static constexpr bool few = false;
    const LaneAccess<T, R, C> &access;
    explicit Objects(const LaneAccess<T, R, C> &a) : access(a) {}
    struct Rows {
        const Byte *here[Pack<T>::width], *const *table;
        [[gnu::always_inline]] Rows(const LaneAccess<T, R, C> &a, int n) : table(a.rows_of(n, here)) {}
        Rows(const Rows &) = delete;
        const Byte *operator[](int l) const { return table[l]; }
    };
    [[gnu::always_inline]] Rows rows(int n) const { return Rows(access, n); }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C>(rows(n), 0, in); }
};
template <class T, int R, int C>
struct Objects<Known::planes, T, R, C> {
    static constexpr bool few = false;
    const Byte *plane[R * C];
    explicit Objects(const LaneAccess<T, R, C> &a) {
        for (int e = 0; e < R * C; ++e) plane[e] = a.address(0, e / C, e % C);
    }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
#pragma GCC unroll 36
        for (int e = 0; e < R * C; ++e) out[e] = load_pack<T>(plane[e] + n * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
#pragma GCC unroll 36
        for (int e = 0; e < R * C; ++e)
            store_pack(const_cast<Byte *>(plane[e] + n * static_cast<std::ptrdiff_t>(sizeof(T))), in[e]);
    }
};
template <class T>
struct Objects<Known::planes, T, 1, 1> : Objects<Known::packed, T, 1, 1> {
    using Objects<Known::packed, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::strided, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    using Objects<Known::nothing, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::dense, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    using Objects<Known::nothing, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::listed, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    static constexpr bool in_order = true; // nothing that could meet
    using Objects<Known::nothing, T, 1, 1>::Objects;
};

// ---- loops over groups

// A loop over groups as one function, with all that its body calls: GCC would leave a body with several uses of its
// operands out of line, and read them anew for each group.
#define SMX_LANE_LOOP [[gnu::flatten, gnu::noinline]]

// Objects first .. count - 1 in groups: body(n) computes the group from object n on (or as many groups as its plan was
// judged for) and says whether it may stand. `in_order` if it stores one object of a group after the other.
template <class T, int at_once = 1, bool in_order = false, class Body>
[[gnu::always_inline]] inline int each_group(const LanePlan &plan, int first, Body body) {
    constexpr int W = at_once * Pack<T>::width;
    const int count = plan.count;
    const bool watched = plan.watched && begins_groups(plan) && !(in_order && only_results_may_meet(plan));
    int n = first;
    for (; n + W <= count; n += W) {
        if (watched && !begin_group(plan, n, W)) break;
        if (!body(n)) break;
    }
    return n;
}

// The same, body(n, objects...), where the layout of all operands is known.
template <Known known, class T, class Body, int... R, int... C>
[[gnu::always_inline]] inline int each_group_known(const LanePlan &plan, int first, Body body,
                                                   const LaneAccess<T, R, C> &...operands) {
    return [&](const auto... objects) __attribute__((always_inline)) {
        constexpr bool in_order = known == Known::listed && (Objects<Known::listed, T, R, C>::in_order && ...);
        return each_group<T, 1, in_order>(plan, first, [&](int n) { return body(n, objects...); });
    }
    (Objects<known, T, R, C>(operands)...);
}
// The same where it is one of those named, or none: for bodies that do so little that the way of the loads counts.
template <class T, Known... layouts, class Body, class... Operands>
[[gnu::always_inline]] inline int each_group_by(const LanePlan &plan, int first, Body body,
                                                const Operands &...operands) {
    int done = first;
    [[maybe_unused]] const auto as = [&]<Known known>(Fixed<known>) __attribute__((always_inline)) {
        // Beside what narrow packs do not save, a decision is little; the code for each layout would be much.
        if constexpr (few_lanes) return false;
        const bool fits = (is_known(operands, known) && ...);
        if (fits) done = each_group_known<known, T>(plan, first, body, operands...);
        return fits;
    };
    if ((as(Fixed<layouts>{}) || ...)) return done;
    return each_group_known<Known::nothing, T>(plan, first, body, operands...);
}

// Structures of arrays of any shape, taken element by element of `plane_groups` groups at once; others are not touched.
inline bool is_planes(const LaneOperand &o) {
    return o.addressing != Addressing::list && !o.single && o.stride0 == o.element;
}
// Element (i, j) of object 0, as the operation sees it.
inline const Byte *element_at(const LaneOperand &o, int i, int j) {
    const int row = o.transposed ? j : i, column = o.transposed ? i : j;
    if (o.addressing == Addressing::pointers) return at(o.table[row * o.columns + column], o.shift);
    return at(o.base, row * o.stride1 + column * o.stride2);
}
template <class T, class F, class... Sources>
SMX_LANE_LOOP int plane_by_plane(const LanePlan &plan, int first, F apply, const LaneOperand &d,
                                 const Sources &...sources) {
    if (plan.groups < plane_groups || !(is_planes(d) && ... && is_planes(sources))) return first;
    const int height = d.rows, width = d.columns;
    return each_group<T, plane_groups>(plan, first, [&](int n) {
        const auto plane = [&](const Byte *to, const auto *...from) {
#pragma GCC unroll 8
            for (int k = 0; k < plane_groups * pack_bytes; k += pack_bytes)
                store_pack(const_cast<Byte *>(to + k), apply(load_pack<T>(from + k)...));
        };
        const std::ptrdiff_t offset = n * static_cast<std::ptrdiff_t>(sizeof(T));
        for (int i = 0; i < height; ++i)
            for (int j = 0; j < width; ++j) plane(element_at(d, i, j) + offset, element_at(sources, i, j) + offset...);
        return true;
    });
}

// ---- loops over objects

// Where the objects of a strided operand start; a single object is one at a stride of 0.
struct StridedStarts {
    const Byte *base;
    std::ptrdiff_t stride;
    explicit StridedStarts(const LaneOperand &o)
        : base(static_cast<const Byte *>(o.base)), stride(o.single ? 0 : o.stride0) {}
    const Byte *operator[](int n) const { return at(base, n * stride); }
};
struct ListedStarts {
    const void *const *table;
    std::ptrdiff_t shift;
    explicit ListedStarts(const LaneOperand &o) : table(o.table), shift(o.shift) {}
    const Byte *operator[](int n) const { return at(table[n], shift); }
};
// Of either kind. There is nothing to decide: a strided operand is a table of one entry.
struct ObjectStarts {
    const void *const *table;
    std::ptrdiff_t step, shift, stride;
    explicit ObjectStarts(const LaneOperand &o) {
        const bool listed = o.addressing == Addressing::list;
        table = listed ? o.table : &o.base;
        step = listed;
        shift = listed ? o.shift : 0;
        stride = listed || o.single ? 0 : o.stride0;
    }
    const Byte *operator[](int n) const { return at(table[n * step], n * stride + shift); }
};

enum class Loop {
    usual,
    pairs, // the sequential kernel takes two objects at a time, so its order may show between neighbours, too
    lists, // lists have a loop of their own
    light  // so have all pairs of layouts: so little is done for an object of a source and of a result
};

// Objects first .. count - 1 one after the other, each read whole before it is stored: only what overlaps within the
// same object matters. body(start...) is given where each operand's object starts. Whether it reads and writes by masks
// is told because that does not make the processor fetch ahead: a stream through memory is touched for it.
template <class T, Loop kind = Loop::usual, bool masked = false, class Body, class... Operands>
[[gnu::always_inline]] inline int each_object_of(const LanePlan &plan, int first, Body body,
                                                 const Operands &...operands) {
    const auto loop = [&](const auto... starts) __attribute__((always_inline)) {
        if constexpr (kind == Loop::pairs)
            if (!safe_in_pairs(plan, first))
                return each_group<T>(plan, first, [&](int n) {
                    for (int l = n; l < n + Pack<T>::width; ++l) body(starts[l]...);
                    return true;
                });
        const int last = safe_alone_until(plan, first);
        for (int n = first; n < last;) {
            const int end = masked ? touched_until(plan, n, last) : last;
            if constexpr (kind == Loop::light) {
#pragma GCC unroll 4
                for (; n < end; ++n) body(starts[n]...);
            } else {
                for (; n < end; ++n) body(starts[n]...);
            }
        }
        return last;
    };
    const auto listed = [](const LaneOperand &o) { return o.addressing == Addressing::list; };
    if ((!listed(operands) && ...)) return loop(StridedStarts(operands)...);
    if constexpr (kind == Loop::light) {
        const auto two = [&](const LaneOperand &a, const LaneOperand &b) __attribute__((always_inline)) {
            if (!listed(a)) return loop(StridedStarts(a), ListedStarts(b));
            return listed(b) ? loop(ListedStarts(a), ListedStarts(b)) : loop(ListedStarts(a), StridedStarts(b));
        };
        return two(operands...);
    }
    if constexpr (kind == Loop::lists)
        if ((listed(operands) && ...)) return loop(ListedStarts(operands)...);
    return loop(ObjectStarts(operands)...);
}

// L adjacent elements of each object in the widest vectors that fit, the last one going back over elements that are
// done already; all are read before the first store. apply(x...) is given vectors or single elements.
template <class T, int L, class F, class... Starts>
[[gnu::always_inline]] inline void element_by_element(F apply, const Byte *d, Starts... from) {
    constexpr int size = sizeof(T), bytes = L * size;
    constexpr int wide = bytes >= 32 && pack_bytes >= 32 ? 32 : bytes >= 16 ? 16 : size;
    constexpr int vectors = (bytes + wide - 1) / wide;
    typedef T V __attribute__((vector_size(wide)));
    V result[vectors];
    const auto load = [](const Byte *at) {
        V x;
        std::memcpy(&x, at, wide);
        return x;
    };
#pragma GCC unroll 40
    for (int k = 0; k < vectors; ++k) result[k] = apply(load(from + (k == vectors - 1 ? bytes - wide : k * wide))...);
#pragma GCC unroll 40
    for (int k = 0; k < vectors; ++k)
        std::memcpy(const_cast<Byte *>(d + (k == vectors - 1 ? bytes - wide : k * wide)), &result[k], wide);
}

// Runs are left to a narrower set where small steps are faster. 64 bytes are better than 32 only in the first cache;
// beyond, they wait for the stores where the operands lie an unlucky distance apart. Through memory, the processor
// fetches further ahead of 16.
constexpr std::ptrdiff_t near_bytes = 48 << 10; // of all operands
constexpr bool leaves_run(std::ptrdiff_t bytes, int operands) {
    return pack_bytes > 32 ? operands * bytes > near_bytes : pack_bytes > 16 && bytes >= far_bytes;
}

// `bytes` of adjacent elements, whatever objects they belong to. apply(x...) is given packs or single elements.
template <class T, class F, class... Sources>
[[gnu::always_inline]] inline void run_of_elements(F apply, const Byte *d, std::ptrdiff_t bytes, Sources... from) {
    constexpr int size = sizeof(T), four = 4 * pack_bytes;
    const auto one_by_one = [=](std::ptrdiff_t e, std::ptrdiff_t end) __attribute__((always_inline)) {
#pragma GCC unroll 1
        for (; e < end; e += size) store_element<T>(d + e, apply(load_element<T>(from + e)...));
        return e;
    };
    const auto pack = [=](std::ptrdiff_t e) __attribute__((always_inline)) {
        store_pack(const_cast<Byte *>(d + e), Pack<T>(apply(load_pack<T>(from + e)...)));
    };
    // A store that crosses two lines of the cache costs twice.
    constexpr int worth_aligning = 16 * pack_bytes;
    std::ptrdiff_t e = 0;
    if (bytes >= worth_aligning) e = one_by_one(e, -reinterpret_cast<std::intptr_t>(d) & (pack_bytes - 1));
    // Beyond the first cache, a line that will be stored is asked for a little ahead: sums are 3 % faster.
    const bool beyond = (static_cast<std::ptrdiff_t>(sizeof...(from)) + 1) * bytes > near_bytes;
#pragma GCC unroll 1
    for (; e + four <= bytes; e += four) {
        if (beyond) __builtin_prefetch(d + e + 2 * four, 1);
#pragma GCC unroll 4
        for (int k = 0; k < four; k += pack_bytes) pack(e + k);
    }
#pragma GCC unroll 1
    for (; e + pack_bytes <= bytes; e += pack_bytes) pack(e);
    one_by_one(e, bytes);
}

// Calls f(T{}, Side<n>{}) for an element type and a side of 3 to 6; else, or if there is less than one group, nothing is
// done.
template <class F>
[[gnu::always_inline]] inline int by_type_and_side(const LanePlan &plan, int element, int side, int first, F f) {
    int done = first;
    if ((plan.count - first) * element < pack_bytes) return first;
    if (element == sizeof(float)) with_side(side, [&](auto s) { done = f(float{}, s); });
    else with_side(side, [&](auto s) { done = f(double{}, s); });
    return done;
}

} // namespace SMX_ISA
} // namespace smx
