// Row<T, N>: N adjacent elements of one object in a register, or in a register and a rest, read and written without
// touching their neighbours. For loops that take one object after the other.
#pragma once

#include "frame_lane_rows.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
struct SingleElement {
    T v;
    static SingleElement all(T x) { return {x}; }
    static SingleElement load(const Byte *from) { return {load_element<T>(from)}; }
    void store(const Byte *to) const { store_element(to, v); }
    friend SingleElement operator+(SingleElement a, SingleElement b) { return {a.v + b.v}; }
    friend SingleElement operator-(SingleElement a, SingleElement b) { return {a.v - b.v}; }
    friend SingleElement operator*(SingleElement a, SingleElement b) { return {a.v * b.v}; }
};
// The widest vector that fits, then the rest by itself.
template <class T, int N>
struct RowInParts {
    static constexpr int size = sizeof(T);
    static constexpr int bytes = N * size >= 32 && pack_bytes >= 32 ? 32 : N * size >= 16 ? 16 : 8;
    static constexpr int rest = N - bytes / size;
    static constexpr bool longer = false, masked = false; // than the row; read and written by masks
    typedef T V __attribute__((vector_size(bytes)));
    struct Nothing {
        static Nothing all(T) { return {}; }
        static Nothing load(const Byte *) { return {}; }
        void store(const Byte *) const {}
        friend Nothing operator+(Nothing, Nothing) { return {}; }
        friend Nothing operator-(Nothing, Nothing) { return {}; }
        friend Nothing operator*(Nothing, Nothing) { return {}; }
    };
    using Tail = std::conditional_t < rest == 0, Nothing,
          std::conditional_t<rest == 1, SingleElement<T>, RowInParts<T, rest<2 ? 2 : rest>>>;
    V v;
    Tail tail;
    static RowInParts all(T x) { return {x - V{}, Tail::all(x)}; }
    static RowInParts load(const Byte *from) {
        V v;
        std::memcpy(&v, from, bytes);
        return {v, Tail::load(from + bytes)};
    }
    void store(const Byte *to) const {
        std::memcpy(const_cast<Byte *>(to), &v, bytes);
        tail.store(to + bytes);
    }
    friend RowInParts operator+(RowInParts a, RowInParts b) { return {a.v + b.v, a.tail + b.tail}; }
    friend RowInParts operator-(RowInParts a, RowInParts b) { return {a.v - b.v, a.tail - b.tail}; }
    friend RowInParts operator*(RowInParts a, RowInParts b) { return {a.v * b.v, a.tail * b.tail}; }
};

#if defined(__AVX512F__)
// In one register. Up to 32 bytes by masks, which is faster than parts but from memory: see each_object_of().
template <class T, int N>
struct Row {
    static constexpr int size = N * static_cast<int>(sizeof(T));
    static constexpr int bytes = size <= 16 ? 16 : size <= 32 ? 32 : 64;
    typedef T V __attribute__((vector_size(bytes)));
    static constexpr auto mask = static_cast<unsigned char>((1 << size / 4) - 1);
    static constexpr bool longer = size != bytes, masked = longer && bytes <= 32;
    V v;
    static Row all(T x) { return {x - V{}}; }
    static Row load(const Byte *from) {
        Row r;
        if constexpr (size == bytes) std::memcpy(&r.v, from, bytes);
        else if constexpr (bytes == 16) r.v = reinterpret_cast<V>(_mm_maskz_loadu_ps(mask, from));
        else if constexpr (bytes == 32) r.v = reinterpret_cast<V>(_mm256_maskz_loadu_ps(mask, from));
        else r.v = reinterpret_cast<V>(load_first<size>(from));
        return r;
    }
    // Where the operand goes on behind the row: the other lanes are not looked at.
    static Row load_whole(const Byte *from) {
        Row r;
        std::memcpy(&r.v, from, bytes);
        return r;
    }
    void store(const Byte *at) const {
        Byte *const to = const_cast<Byte *>(at);
        if constexpr (size == bytes) std::memcpy(to, &v, bytes);
        else if constexpr (bytes == 16) _mm_mask_storeu_ps(to, mask, reinterpret_cast<__m128>(v));
        else if constexpr (bytes == 32) _mm256_mask_storeu_ps(to, mask, reinterpret_cast<__m256>(v));
        else store_first<size>(at, reinterpret_cast<__m512>(v));
    }
    friend Row operator+(Row a, Row b) { return {a.v + b.v}; }
    friend Row operator-(Row a, Row b) { return {a.v - b.v}; }
    friend Row operator*(Row a, Row b) { return {a.v * b.v}; }
};
#else
template <class T, int N>
using Row = RowInParts<T, N>;
#endif

// Several rows of an object without gaps in one register: row p of the second operand, repeated in each row of the
// register, times column p of the first, each element repeated along its row. On processors that split registers, those
// of 64 bytes are slower than the 32-byte set.
template <class T, int N, bool listed = false>
struct Together {
    static constexpr bool exists = false;
};
#if defined(__AVX2__)
#if defined(__AVX512F__)
inline __m512 repeated(const float *four) {
    return _mm512_broadcast_f32x4(_mm_loadu_ps(four));
}
inline __m512d repeated(const double *four) {
    return _mm512_broadcast_f64x4(_mm256_loadu_pd(four));
}
#else
inline __m256 repeated(const float *four) {
    return _mm256_broadcast_ps(reinterpret_cast<const __m128 *>(four));
}
#endif
// Four q of a register, or the first N elements of it, from an address of its own, and to it.
template <int q, int N>
inline Pack<float> with_four(Pack<float> x, const Byte *from) {
    return reinterpret_cast<Pack<float>::Vector>(with_part<q>(reinterpret_cast<Wide>(x.v), load_part<float, N>(from)));
}
template <int q, int N>
inline void store_four(const Byte *to, Pack<float> x) {
    store_part<float, N>(to, part_of<q>(reinterpret_cast<Wide>(x.v)));
}
#if defined(__AVX512F__)
template <int q, int N>
inline Pack<double> with_four(Pack<double> x, const Byte *from) {
    const __m256d four = _mm256_maskz_loadu_pd((1u << N) - 1, from);
    if constexpr (q == 0) return reinterpret_cast<Pack<double>::Vector>(_mm512_castpd256_pd512(four));
    else return reinterpret_cast<Pack<double>::Vector>(_mm512_insertf64x4(reinterpret_cast<__m512d>(x.v), four, 1));
}
template <int q, int N>
inline void store_four(const Byte *to, Pack<double> x) {
    const __m512d all = reinterpret_cast<__m512d>(x.v);
    __m256d four;
    if constexpr (q == 0) four = _mm512_castpd512_pd256(all);
    else four = _mm512_extractf64x4_pd(all, 1);
    // As in store_part(): the extraction must not become part of the masked store.
    __asm__("" : "+v"(four));
    _mm256_mask_storeu_pd(const_cast<Byte *>(to), (1u << N) - 1, four);
}
#endif
template <class T>
struct FoursTogether {
    static constexpr bool exists = true, masked = false;
    static constexpr int bytes = pack_bytes;
    using V = typename Pack<T>::Vector;
    static V load(const Byte *from) { return load_pack<T>(from).v; }
    static void store(const Byte *to, V v) { store_pack(const_cast<Byte *>(to), Pack<T>(v)); }
    template <int p, int... l>
    static V column(V x, std::integer_sequence<int, l...>) {
        return __builtin_shufflevector(x, x, (l / 4 * 4 + p)...);
    }
    V second[4];
    template <int N>
    explicit FoursTogether(const Pack<T> (&rows)[N]) {
        for (int p = 0; p < N; ++p) second[p] = rows[p].v;
    }
    explicit FoursTogether(const Byte *b) {
#pragma GCC unroll 4
        for (int p = 0; p < 4; ++p) second[p] = repeated(reinterpret_cast<const T *>(b) + 4 * p);
    }
    static constexpr auto lanes = std::make_integer_sequence<int, Pack<T>::width>{};
    template <bool from_zero, int terms = 4>
    V sum(V x) const {
        V sum = column<0>(x, lanes) * second[0];
        if (from_zero) sum = V{} + sum;
        sum = sum + column<1>(x, lanes) * second[1];
        sum = sum + column<2>(x, lanes) * second[2];
        if constexpr (terms == 4) sum = sum + column<3>(x, lanes) * second[3];
        return sum;
    }
    template <bool from_zero>
    void product(const Byte *a, const Byte *d) const {
        constexpr int registers = 16 * static_cast<int>(sizeof(T)) / bytes;
        V rows[registers];
#pragma GCC unroll 2
        for (int k = 0; k < registers; ++k) rows[k] = sum<from_zero>(load(a + k * bytes));
#pragma GCC unroll 2
        for (int k = 0; k < registers; ++k) store(d + k * bytes, rows[k]);
    }
};
template <bool listed>
struct Together<float, 4, listed> : FoursTogether<float> {
    using FoursTogether<float>::FoursTogether;
};
#else
template <class T>
struct FoursTogether;
template <int q, int N, class T>
Pack<T> with_four(Pack<T> x, const Byte *from);
template <int q, int N, class T>
void store_four(const Byte *to, Pack<T> x);
#endif
#if defined(__AVX512F__)
template <bool listed>
struct Together<double, 4, listed> : FoursTogether<double> {
    using FoursTogether<double>::FoursTogether;
};
// By masks, or for objects of lists in parts: see load_first().
template <bool listed>
struct Together<float, 3, listed> {
    static constexpr bool exists = true, masked = !listed;
    using V = __m512;
    static constexpr int bytes = 36;
    static constexpr __mmask16 mask = 0x1ff;
    static V load(const Byte *from) {
        if constexpr (listed) return load_first<bytes>(from);
        else return _mm512_maskz_loadu_ps(mask, from);
    }
    static void store(const Byte *to, V v) {
        if constexpr (listed) store_first<bytes>(to, v);
        else _mm512_mask_storeu_ps(const_cast<Byte *>(to), mask, v);
    }
    template <int p>
    static V column(V x) {
        return _mm512_permutexvar_ps(
            _mm512_setr_epi32(p, p, p, p + 3, p + 3, p + 3, p + 6, p + 6, p + 6, 0, 0, 0, 0, 0, 0, 0), x);
    }
    template <int p>
    static V row(V x) {
        constexpr int i = 3 * p, j = i + 1, k = i + 2;
        return _mm512_permutexvar_ps(_mm512_setr_epi32(i, j, k, i, j, k, i, j, k, 0, 0, 0, 0, 0, 0, 0), x);
    }
    V second[3];
    explicit Together(const Byte *b) {
        const V x = load(b);
        second[0] = row<0>(x);
        second[1] = row<1>(x);
        second[2] = row<2>(x);
    }
    template <bool from_zero>
    void product(const Byte *a, const Byte *d) const {
        const V x = load(a);
        V sum = column<0>(x) * second[0];
        if (from_zero) sum = V{} + sum;
        sum = sum + column<1>(x) * second[1];
        sum = sum + column<2>(x) * second[2];
        store(d, sum);
    }
};
#endif

} // namespace SMX_ISA
} // namespace smx
