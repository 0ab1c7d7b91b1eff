// Pack<T>: the same element of as many objects as a vector register of this unit's instruction set holds, with the
// operations that constant-size algorithms use (the scalar half stands in frame_number.hpp).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

#if defined(__AVX512F__)
constexpr int pack_bytes = 64;
#elif defined(__AVX2__)
constexpr int pack_bytes = 32;
#else
constexpr int pack_bytes = 16;
#endif

template <class T>
struct VectorOf;
template <>
struct VectorOf<float> {
    typedef float Vector __attribute__((vector_size(pack_bytes)));
    typedef std::int32_t Integers __attribute__((vector_size(pack_bytes)));
    static constexpr std::int32_t magnitude_bits = 0x7fffffff;
};
template <>
struct VectorOf<double> {
    typedef double Vector __attribute__((vector_size(pack_bytes)));
    typedef std::int64_t Integers __attribute__((vector_size(pack_bytes)));
    static constexpr std::int64_t magnitude_bits = 0x7fffffffffffffff;
};

// All bits set in the lanes for which a comparison holds.
template <class T>
struct Mask {
    typename VectorOf<T>::Integers bits;
    Mask() = default;
    Mask(typename VectorOf<T>::Integers bits_) : bits(bits_) {}
    explicit Mask(bool all) : bits(typename VectorOf<T>::Integers{} - all) {}
    friend Mask operator&(Mask a, Mask b) { return a.bits & b.bits; }
    friend Mask operator|(Mask a, Mask b) { return a.bits | b.bits; }
    friend Mask operator!(Mask a) { return ~a.bits; }
};

template <class T>
struct Pack {
    using Vector = typename VectorOf<T>::Vector;
    static constexpr int width = pack_bytes / static_cast<int>(sizeof(T));
    Vector v;
    Pack() = default;
    Pack(Vector v_) : v(v_) {}
    Pack(T all) : v(all - Vector{}) {}

    friend Pack operator+(Pack a, Pack b) { return a.v + b.v; }
    friend Pack operator-(Pack a, Pack b) { return a.v - b.v; }
    friend Pack operator*(Pack a, Pack b) { return a.v * b.v; }
    friend Pack operator/(Pack a, Pack b) { return a.v / b.v; }
    friend Pack operator-(Pack a) { return -a.v; }
    Pack &operator+=(Pack b) { return *this = *this + b; }
    Pack &operator-=(Pack b) { return *this = *this - b; }
    Pack &operator*=(Pack b) { return *this = *this * b; }
    friend Mask<T> operator<(Pack a, Pack b) { return Mask<T>(a.v < b.v); }
    friend Mask<T> operator>(Pack a, Pack b) { return Mask<T>(a.v > b.v); }
    friend Mask<T> operator<=(Pack a, Pack b) { return Mask<T>(a.v <= b.v); }
    friend Mask<T> operator>=(Pack a, Pack b) { return Mask<T>(a.v >= b.v); }
    friend Mask<T> operator==(Pack a, Pack b) { return Mask<T>(a.v == b.v); }
    friend Mask<T> operator!=(Pack a, Pack b) { return Mask<T>(a.v != b.v); }
};

template <class T>
struct NumberTraits<Pack<T>> {
    using Element = T;
    using Index = Pack<T>; // small integers, exact in T, so that indexes need no masks of their own
    using Mask = smx::Mask<T>;
};

template <class T>
inline Pack<T> select(Mask<T> mask, Pack<T> yes, Pack<T> no) {
    return mask.bits ? yes.v : no.v;
}
template <class T>
inline Mask<T> select(Mask<T> mask, Mask<T> yes, Mask<T> no) {
    return (mask & yes) | (!mask & no);
}
template <class T>
inline Pack<T> magnitude(Pack<T> x) {
    using Integers = typename VectorOf<T>::Integers;
    return reinterpret_cast<typename Pack<T>::Vector>(reinterpret_cast<Integers>(x.v) &
                                                      (VectorOf<T>::magnitude_bits - Integers{}));
}

#if defined(__AVX512F__)
inline Pack<float> square_root(Pack<float> x) {
    return reinterpret_cast<Pack<float>::Vector>(_mm512_sqrt_ps(reinterpret_cast<__m512>(x.v)));
}
inline Pack<double> square_root(Pack<double> x) {
    return reinterpret_cast<Pack<double>::Vector>(_mm512_sqrt_pd(reinterpret_cast<__m512d>(x.v)));
}
inline bool any(Mask<float> m) {
    return _mm512_movepi32_mask(reinterpret_cast<__m512i>(m.bits)) != 0;
}
inline bool any(Mask<double> m) {
    return _mm512_movepi64_mask(reinterpret_cast<__m512i>(m.bits)) != 0;
}
#elif defined(__AVX2__)
inline Pack<float> square_root(Pack<float> x) {
    return reinterpret_cast<Pack<float>::Vector>(_mm256_sqrt_ps(reinterpret_cast<__m256>(x.v)));
}
inline Pack<double> square_root(Pack<double> x) {
    return reinterpret_cast<Pack<double>::Vector>(_mm256_sqrt_pd(reinterpret_cast<__m256d>(x.v)));
}
inline bool any(Mask<float> m) {
    return _mm256_movemask_ps(reinterpret_cast<__m256>(m.bits)) != 0;
}
inline bool any(Mask<double> m) {
    return _mm256_movemask_pd(reinterpret_cast<__m256d>(m.bits)) != 0;
}
#elif defined(__SSE2__)
inline Pack<float> square_root(Pack<float> x) {
    return reinterpret_cast<Pack<float>::Vector>(_mm_sqrt_ps(reinterpret_cast<__m128>(x.v)));
}
inline Pack<double> square_root(Pack<double> x) {
    return reinterpret_cast<Pack<double>::Vector>(_mm_sqrt_pd(reinterpret_cast<__m128d>(x.v)));
}
inline bool any(Mask<float> m) {
    return _mm_movemask_ps(reinterpret_cast<__m128>(m.bits)) != 0;
}
inline bool any(Mask<double> m) {
    return _mm_movemask_pd(reinterpret_cast<__m128d>(m.bits)) != 0;
}
#else
template <class T>
inline Pack<T> square_root(Pack<T> x) {
    Pack<T> root;
    for (int l = 0; l < Pack<T>::width; ++l) root.v[l] = square_root(static_cast<T>(x.v[l]));
    return root;
}
template <class T>
inline bool any(Mask<T> m) {
    bool found = false;
    for (int l = 0; l < Pack<T>::width; ++l) found = found || m.bits[l] != 0;
    return found;
}
#endif
template <class T>
inline bool all(Mask<T> m) {
    return !any(!m);
}

// A group never stops early: it remembers, and the caller runs a group that has failed again, one by one.
template <class T>
struct Failure<Pack<T>> {
    Mask<T> failed{false};
    bool stop(Mask<T> now) {
        failed = failed | now;
        return false;
    }
    bool any() const { return smx::any(failed); }
};

template <class T>
inline Pack<T> load_pack(const void *at) {
    Pack<T> p;
    std::memcpy(&p.v, at, sizeof p.v);
    return p;
}
template <class T>
inline void store_pack(void *at, Pack<T> p) {
    std::memcpy(at, &p.v, sizeof p.v);
}

} // namespace SMX_ISA
} // namespace smx
