// Row<T, N>: N adjacent elements of one object in a register, or in a register and a rest, read and written without
// touching their neighbours. For loops that take one object after the other.
#pragma once

#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

#if defined(__AVX512F__)
template <class T, int N>
struct Row {
    static constexpr int bytes = N * static_cast<int>(sizeof(T)) <= 16   ? 16
                                 : N * static_cast<int>(sizeof(T)) <= 32 ? 32
                                                                         : 64;
    typedef T V __attribute__((vector_size(bytes)));
    static constexpr auto mask = static_cast<unsigned char>((1 << N) - 1);
    V v;
    static Row all(T x) { return {x - V{}}; }
    static Row load(const Byte *from) {
        Row r;
        if constexpr (N * sizeof(T) == bytes) std::memcpy(&r.v, from, bytes);
        else if constexpr (sizeof(T) == 4 && bytes == 16) r.v = reinterpret_cast<V>(_mm_maskz_loadu_ps(mask, from));
        else if constexpr (sizeof(T) == 4) r.v = reinterpret_cast<V>(_mm256_maskz_loadu_ps(mask, from));
        else if constexpr (bytes == 32) r.v = reinterpret_cast<V>(_mm256_maskz_loadu_pd(mask, from));
        else r.v = reinterpret_cast<V>(_mm512_maskz_loadu_pd(mask, from));
        return r;
    }
    void store(const Byte *at) const {
        Byte *const to = const_cast<Byte *>(at);
        if constexpr (N * sizeof(T) == bytes) std::memcpy(to, &v, bytes);
        else if constexpr (sizeof(T) == 4 && bytes == 16) _mm_mask_storeu_ps(to, mask, reinterpret_cast<__m128>(v));
        else if constexpr (sizeof(T) == 4) _mm256_mask_storeu_ps(to, mask, reinterpret_cast<__m256>(v));
        else if constexpr (bytes == 32) _mm256_mask_storeu_pd(to, mask, reinterpret_cast<__m256d>(v));
        else _mm512_mask_storeu_pd(to, mask, reinterpret_cast<__m512d>(v));
    }
    friend Row operator+(Row a, Row b) { return {a.v + b.v}; }
    friend Row operator-(Row a, Row b) { return {a.v - b.v}; }
    friend Row operator*(Row a, Row b) { return {a.v * b.v}; }
};
#else
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
struct Row {
    static constexpr int size = sizeof(T);
    static constexpr int bytes = N * size >= 32 && pack_bytes >= 32 ? 32 : N * size >= 16 ? 16 : 8;
    static constexpr int rest = N - bytes / size;
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
          std::conditional_t<rest == 1, SingleElement<T>, Row<T, rest<2 ? 2 : rest>>>;
    V v;
    Tail tail;
    static Row all(T x) { return {x - V{}, Tail::all(x)}; }
    static Row load(const Byte *from) {
        V v;
        std::memcpy(&v, from, bytes);
        return {v, Tail::load(from + bytes)};
    }
    void store(const Byte *to) const {
        std::memcpy(const_cast<Byte *>(to), &v, bytes);
        tail.store(to + bytes);
    }
    friend Row operator+(Row a, Row b) { return {a.v + b.v, a.tail + b.tail}; }
    friend Row operator-(Row a, Row b) { return {a.v - b.v, a.tail - b.tail}; }
    friend Row operator*(Row a, Row b) { return {a.v * b.v, a.tail * b.tail}; }
};
#endif

} // namespace SMX_ISA
} // namespace smx
