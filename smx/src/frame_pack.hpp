// Pack<T>: the same element of as many objects as a vector register of this unit's instruction set holds, with the
// operations that constant-size algorithms use (the scalar half stands in frame_number.hpp).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

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
// The verdict on overlaps knows the set by its name.
static_assert(pack_bytes == 8 << static_cast<int>(InstructionSet::SMX_ISA));

template <class T>
struct VectorOf;
template <>
struct VectorOf<float> {
    typedef float Vector __attribute__((vector_size(pack_bytes)));
    typedef std::int32_t Integers __attribute__((vector_size(pack_bytes)));
    typedef std::int32_t Indexes __attribute__((vector_size(pack_bytes))); // one 32-bit integer a lane
    static constexpr std::int32_t magnitude_bits = 0x7fffffff;
};
template <>
struct VectorOf<double> {
    typedef double Vector __attribute__((vector_size(pack_bytes)));
    typedef std::int64_t Integers __attribute__((vector_size(pack_bytes)));
    typedef std::int32_t Indexes __attribute__((vector_size(pack_bytes / 2)));
    static constexpr std::int64_t magnitude_bits = 0x7fffffffffffffff;
};

// The lanes for which a comparison holds: a mask register where the set has them, else all bits of the lane.
#if defined(__AVX512F__)
template <class T>
struct Mask {
    using Bits = std::conditional_t<sizeof(T) == 4, __mmask16, __mmask8>;
    Bits bits;
    Mask() = default;
    explicit Mask(bool all) : bits(static_cast<Bits>(all ? ~0 : 0)) {}
    static Mask of(unsigned bits) {
        Mask m;
        m.bits = static_cast<Bits>(bits);
        return m;
    }
    friend Mask operator&(Mask a, Mask b) { return of(a.bits & b.bits); }
    friend Mask operator|(Mask a, Mask b) { return of(a.bits | b.bits); }
    friend Mask operator!(Mask a) { return of(~static_cast<unsigned>(a.bits)); }
};
#else
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
#endif

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
};

template <class T>
struct NumberTraits<Pack<T>> {
    using Element = T;
    using Index = Pack<T>; // small integers, exact in T, so that indexes need no masks of their own
    using Mask = smx::Mask<T>;
};

#if defined(__AVX512F__)
template <int comparison>
inline Mask<float> compare(Pack<float> a, Pack<float> b) {
    return Mask<float>::of(
        _mm512_cmp_ps_mask(reinterpret_cast<__m512>(a.v), reinterpret_cast<__m512>(b.v), comparison));
}
template <int comparison>
inline Mask<double> compare(Pack<double> a, Pack<double> b) {
    return Mask<double>::of(
        _mm512_cmp_pd_mask(reinterpret_cast<__m512d>(a.v), reinterpret_cast<__m512d>(b.v), comparison));
}
#define SMX_PACK_COMPARISON(sign, comparison)            \
    template <class T>                                   \
    inline Mask<T> operator sign(Pack<T> a, Pack<T> b) { \
        return compare<comparison>(a, b);                \
    }
inline Pack<float> select(Mask<float> mask, Pack<float> yes, Pack<float> no) {
    return reinterpret_cast<Pack<float>::Vector>(
        _mm512_mask_blend_ps(mask.bits, reinterpret_cast<__m512>(no.v), reinterpret_cast<__m512>(yes.v)));
}
inline Pack<double> select(Mask<double> mask, Pack<double> yes, Pack<double> no) {
    return reinterpret_cast<Pack<double>::Vector>(
        _mm512_mask_blend_pd(mask.bits, reinterpret_cast<__m512d>(no.v), reinterpret_cast<__m512d>(yes.v)));
}
#else
#define SMX_PACK_COMPARISON(sign, comparison)            \
    template <class T>                                   \
    inline Mask<T> operator sign(Pack<T> a, Pack<T> b) { \
        return Mask<T>(a.v sign b.v);                    \
    }
template <class T>
inline Pack<T> select(Mask<T> mask, Pack<T> yes, Pack<T> no) {
    return mask.bits ? yes.v : no.v;
}
#endif
SMX_PACK_COMPARISON(<, _CMP_LT_OQ)
SMX_PACK_COMPARISON(>, _CMP_GT_OQ)
SMX_PACK_COMPARISON(<=, _CMP_LE_OQ)
SMX_PACK_COMPARISON(>=, _CMP_GE_OQ)
SMX_PACK_COMPARISON(==, _CMP_EQ_OQ)
SMX_PACK_COMPARISON(!=, _CMP_NEQ_UQ)
#undef SMX_PACK_COMPARISON
// Comparisons with one number for all lanes.
template <class T>
inline Mask<T> operator==(Pack<T> a, T b) {
    return a == Pack<T>(b);
}
template <class T>
inline Mask<T> operator>=(Pack<T> a, T b) {
    return a >= Pack<T>(b);
}
template <class T>
inline Mask<T> operator>(Pack<T> a, T b) {
    return a > Pack<T>(b);
}
template <class T>
inline Mask<T> operator<=(Pack<T> a, T b) {
    return a <= Pack<T>(b);
}
template <class T>
inline Mask<T> operator<(Pack<T> a, T b) {
    return a < Pack<T>(b);
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
    return m.bits != 0;
}
inline bool any(Mask<double> m) {
    return m.bits != 0;
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

// A pack of floats as two packs of doubles, and back. GCC converts whole vectors in halves of its own.
struct DoubleHalves {
    Pack<double> low, high;
};
#if defined(__AVX512F__)
inline DoubleHalves widen(Pack<float> x) {
    const __m512 all = reinterpret_cast<__m512>(x.v);
    return {reinterpret_cast<Pack<double>::Vector>(_mm512_cvtps_pd(_mm512_castps512_ps256(all))),
            reinterpret_cast<Pack<double>::Vector>(_mm512_cvtps_pd(_mm512_extractf32x8_ps(all, 1)))};
}
inline Pack<float> narrow(DoubleHalves x) {
    const __m512 low = _mm512_castps256_ps512(_mm512_cvtpd_ps(reinterpret_cast<__m512d>(x.low.v)));
    return reinterpret_cast<Pack<float>::Vector>(
        _mm512_insertf32x8(low, _mm512_cvtpd_ps(reinterpret_cast<__m512d>(x.high.v)), 1));
}
#else
typedef float HalfOfFloats __attribute__((vector_size(pack_bytes / 2)));
inline DoubleHalves widen(Pack<float> x) {
    HalfOfFloats half[2];
    std::memcpy(half, &x.v, sizeof half);
    return {__builtin_convertvector(half[0], Pack<double>::Vector),
            __builtin_convertvector(half[1], Pack<double>::Vector)};
}
inline Pack<float> narrow(DoubleHalves x) {
    const HalfOfFloats half[2] = {__builtin_convertvector(x.low.v, HalfOfFloats),
                                  __builtin_convertvector(x.high.v, HalfOfFloats)};
    return load_pack<float>(half);
}
#endif

} // namespace SMX_ISA
} // namespace smx
