// C++98: the pointer and the list layout, whose tables convert without a cast.
#include <smx.h>

int main() {
    float real[4] = {1, 2, 3, 4}, imaginary[4] = {5, 6, 7, 8}, sums[4];
    float *a[4], *b[4], *dst[4];
    for (int i = 0; i < 4; ++i) {
        a[i] = &real[3 - i];
        b[i] = &imaginary[i];
        dst[i] = &sums[i];
    }
    if (smxAdd_mm_32f_P(a, 0, b, 0, dst, 0, 2, 2) != smxStsNoErr) return 1;
    for (int i = 0; i < 4; ++i)
        if (sums[i] != 9.0F) return 2;

    float *list[2] = {imaginary, real}, *products[2] = {sums, sums + 2};
    // Each 1 by 2 row of the list, times the column (1, 2).
    if (smxMul_mam_32f_L(list, 0, 8, 4, 2, 1, real, 4, 4, 1, 2, products, 0, 4, 4, 2) != smxStsNoErr) return 3;
    return sums[0] == 17.0F && sums[2] == 5.0F ? 0 : 4;
}
