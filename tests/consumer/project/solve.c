/* C99: an array of systems inside an array of structures, solved in place on two threads, and the version record. */
#include <smkcore.h>
#include <smx.h>
#include <string.h>

/* The double in front keeps the size a multiple of 8 also where the ABI aligns doubles to 4: strides must be. */
struct body {
    double mass;
    double inertia[3][3];
    double torque[3];
};

enum { bodies = 100 };

int main(void) {
    static struct body body[bodies];
    static int pivots[bodies][3];
    const int step = (int)sizeof body[0], row = (int)sizeof body[0].inertia[0], element = (int)sizeof(double);

    /* Rows 2x, 4y, 8z with x, y, z = 1, 2, k: exact in binary. */
    for (int k = 0; k < bodies; ++k)
        for (int i = 0; i < 3; ++i) {
            body[k].inertia[i][i] = 2 << i;
            body[k].torque[i] = (2 << i) * (i < 2 ? i + 1 : k);
        }

    threads_omp_of_n_smk = 2;
    if (smxLUDecomp_ma_64f(body[0].inertia[0], step, row, element, pivots[0], body[0].inertia[0], step, row, element, 3,
                           bodies) != smxStsNoErr)
        return 1;
    if (smxLUBackSubst_mava_64f(body[0].inertia[0], step, row, element, pivots[0], body[0].torque, step, element,
                                body[0].torque, step, element, 3, bodies) != smxStsNoErr)
        return 2;
    for (int k = 0; k < bodies; ++k)
        for (int i = 0; i < 3; ++i)
            if (body[k].torque[i] != (i < 2 ? i + 1 : k)) return 3;
    return strcmp(smxGetLibVersion()->libraryName, "libsmxpx.so.5.2") == 0 ? 0 : 4;
}
