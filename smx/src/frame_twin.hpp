// Twin<T>: two packs that go through an algorithm side by side, for algorithms that wait for square roots and divisions
// most of the time. The operations are those of Pack (frame_pack.hpp).
#pragma once

#include "frame_pack.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
struct TwinMask {
    Mask<T> a, b;
    TwinMask() = default;
    TwinMask(Mask<T> x, Mask<T> y) : a(x), b(y) {}
    explicit TwinMask(bool all) : a(all), b(all) {}
    friend TwinMask operator&(TwinMask x, TwinMask y) { return {x.a & y.a, x.b & y.b}; }
    friend TwinMask operator|(TwinMask x, TwinMask y) { return {x.a | y.a, x.b | y.b}; }
    friend TwinMask operator!(TwinMask x) { return {!x.a, !x.b}; }
    friend bool any(TwinMask x) { return any(x.a | x.b); }
};

template <class T>
struct Twin {
    using M = TwinMask<T>;
    Pack<T> a, b;
    Twin() = default;
    Twin(Pack<T> x, Pack<T> y) : a(x), b(y) {}
    Twin(T all) : a(all), b(all) {}

    friend Twin operator+(Twin x, Twin y) { return {x.a + y.a, x.b + y.b}; }
    friend Twin operator-(Twin x, Twin y) { return {x.a - y.a, x.b - y.b}; }
    friend Twin operator*(Twin x, Twin y) { return {x.a * y.a, x.b * y.b}; }
    friend Twin operator/(Twin x, Twin y) { return {x.a / y.a, x.b / y.b}; }
    friend Twin operator-(Twin x) { return {-x.a, -x.b}; }
    friend M operator<(Twin x, Twin y) { return {x.a < y.a, x.b < y.b}; }
    friend M operator>(Twin x, Twin y) { return {x.a > y.a, x.b > y.b}; }
    friend M operator<=(Twin x, Twin y) { return {x.a <= y.a, x.b <= y.b}; }
    friend M operator>=(Twin x, Twin y) { return {x.a >= y.a, x.b >= y.b}; }
    friend M operator==(Twin x, Twin y) { return {x.a == y.a, x.b == y.b}; }
    friend Twin select(M m, Twin yes, Twin no) { return {select(m.a, yes.a, no.a), select(m.b, yes.b, no.b)}; }
    friend Twin magnitude(Twin x) { return {magnitude(x.a), magnitude(x.b)}; }
    friend Twin square_root(Twin x) { return {square_root(x.a), square_root(x.b)}; }
};

template <class T>
struct NumberTraits<Twin<T>> {
    using Element = T;
    using Index = Twin<T>;
    using Mask = TwinMask<T>;
};

// The elements of a group in double: as they are, or the two halves of a pack of floats; and back.
inline Pack<double> widened(Pack<double> x) {
    return x;
}
inline Twin<double> widened(Pack<float> x) {
    const DoubleHalves halves = widen(x);
    return {halves.low, halves.high};
}
// sum + x x where the elements were floats: such squares are exact, so that fusing rounds as often, and to the same bits.
inline Pack<double> plus_exact_square(Pack<double> sum, Pack<double> x) {
#if defined(__AVX512F__)
    const auto raw = [](Pack<double> p) { return reinterpret_cast<__m512d>(p.v); };
    return reinterpret_cast<Pack<double>::Vector>(_mm512_fmadd_pd(raw(x), raw(x), raw(sum)));
#elif defined(__FMA__)
    const auto raw = [](Pack<double> p) { return reinterpret_cast<__m256d>(p.v); };
    return reinterpret_cast<Pack<double>::Vector>(_mm256_fmadd_pd(raw(x), raw(x), raw(sum)));
#else
    return sum + x * x;
#endif
}
inline Twin<double> plus_exact_square(Twin<double> sum, Twin<double> x) {
    return {plus_exact_square(sum.a, x.a), plus_exact_square(sum.b, x.b)};
}
inline Pack<double> narrowed(Pack<double> x) {
    return x;
}
inline Pack<float> narrowed(Twin<double> x) {
    return narrow({x.a, x.b});
}

} // namespace SMX_ISA
} // namespace smx
