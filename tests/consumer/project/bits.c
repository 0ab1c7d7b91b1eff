/* A call gives the same bits wherever it is built and run: one number for all results, which was found on x86-64. */
#include <stdio.h>
#include <stdlib.h>

#include <smx.h>

enum { COUNT = 19, SIDES = 4, MOST = 8, SPACE = COUNT * MOST * MOST };

static unsigned state = 1, digest = 2166136261u;

/* In [-1, 1), exact in both types. */
static double next(void) {
    state = state * 1664525u + 1013904223u;
    return (int)(state >> 9) / 4194304.0 - 1;
}
static void take(const void *results, size_t bytes) {
    const unsigned char *byte = results;
    while (bytes-- > 0) digest = (digest ^ *byte++) * 16777619u;
}
static void check(SmxStatus status, const char *call) {
    if (status == smxStsNoErr) return;
    printf("%s: status %d\n", call, (int)status);
    exit(1);
}
#define CHECK(call) check(call, #call)

#define FAMILIES(T, type)                                                                                              \
    static void families_##type(int n) {                                                                               \
        static T a[SPACE], b[SPACE], spd[SPACE], v[SPACE], x[SPACE], y[SPACE], z[SPACE], buffer[16 * SPACE];           \
        static int pivots[SPACE];                                                                                      \
        const int size = sizeof(T), row = n * size, whole = n * row;                                                   \
        const size_t all = COUNT * (size_t)whole, vectors = COUNT * (size_t)row;                                       \
        int i, j, k;                                                                                                   \
        for (i = 0; i < COUNT * n * n; ++i) a[i] = (T)next(), b[i] = (T)next(), v[i] = (T)next();                      \
        CHECK(smxMul_tama_##type(a, whole, row, size, n, n, a, whole, row, size, n, n, spd, whole, row, size, COUNT)); \
        for (k = 0; k < COUNT; ++k)                                                                                    \
            for (i = 0; i < n; ++i) a[(k * n + i) * n + i] += 4, spd[(k * n + i) * n + i] += 1;                        \
        take(spd, all);                                                                                                \
        CHECK(smxMul_mama_##type(a, whole, row, size, n, n, b, whole, row, size, n, n, x, whole, row, size, COUNT));   \
        take(x, all);                                                                                                  \
        CHECK(smxLUDecomp_ma_##type(a, whole, row, size, pivots, x, whole, row, size, n, COUNT));                      \
        take(x, all);                                                                                                  \
        CHECK(smxLUBackSubst_mava_##type(x, whole, row, size, pivots, v, row, size, y, row, size, n, COUNT));          \
        take(y, vectors);                                                                                              \
        CHECK(smxCholeskyDecomp_ma_##type(spd, whole, row, size, x, whole, row, size, n, COUNT));                      \
        for (k = 0; k < COUNT; ++k) /* the other triangle is not written */                                            \
            for (i = 0; i < n; ++i) take(x + (k * n + i) * n, (size_t)(i + 1) * sizeof(T));                            \
        CHECK(smxQRDecomp_ma_##type(a, whole, row, size, buffer, x, whole, row, size, n, n, COUNT));                   \
        take(x, all);                                                                                                  \
        CHECK(smxQRBackSubst_mava_##type(x, whole, row, size, buffer, v, row, size, y, row, size, n, n, COUNT));       \
        take(y, vectors);                                                                                              \
        CHECK(smxDet_ma_##type(a, whole, row, size, n, buffer, y, COUNT));                                             \
        take(y, COUNT * sizeof(T));                                                                                    \
        CHECK(smxInvert_ma_##type(a, whole, row, size, buffer, x, whole, row, size, n, COUNT));                        \
        take(x, all);                                                                                                  \
        CHECK(smxFrobNorm_ma_##type(a, whole, row, size, n, n, y, COUNT));                                             \
        take(y, COUNT * sizeof(T));                                                                                    \
        CHECK(smxDotProduct_vava_##type(a, row, size, b, row, size, y, n, COUNT));                                     \
        take(y, COUNT * sizeof(T));                                                                                    \
        CHECK(smxGaxpy_mva_##type(a, row, size, n, n, b, row, size, n, v, row, size, n, y, row, size, COUNT));         \
        take(y, vectors);                                                                                              \
        for (k = 0; k < COUNT; ++k)                                                                                    \
            for (i = 0; i < n; ++i)                                                                                    \
                for (j = 0; j < i; ++j) spd[(k * n + i) * n + j] = spd[(k * n + j) * n + i];                           \
        CHECK(smxEigenValuesVectorsSym_ma_##type(spd, whole, row, size, buffer, x, whole, row, size, y, n, COUNT));    \
        take(x, all);                                                                                                  \
        take(y, vectors);                                                                                              \
        CHECK(smxEigenValuesVectorsRight_ma_##type(a, whole, row, size, x, whole, row, size, y, z, n, COUNT, buffer)); \
        take(x, all);                                                                                                  \
        take(y, vectors);                                                                                              \
        take(z, vectors);                                                                                              \
    }
FAMILIES(float, 32f)
FAMILIES(double, 64f)

int main(void) {
    static const int sides[SIDES] = {3, 4, 6, MOST};
    const unsigned expected = 0x5c7cced7u;
    int i;
    for (i = 0; i < SIDES; ++i) {
        families_32f(sides[i]);
        families_64f(sides[i]);
    }
    printf("%08x, %08x expected\n", digest, expected);
    return digest == expected ? 0 : 1;
}
