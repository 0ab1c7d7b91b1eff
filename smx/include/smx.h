/* smx: linear algebra for small matrices and short vectors, above all for large arrays of them.
 *
 * Names     smx<Operation>_<operands>_<type>[_<layout>]: smxMul_tama_64f_P multiplies each matrix of an array, read
 *           transposed (ta), by the matrix of another array (ma), in double, in the pointer layout.
 *
 *           m matrix   t matrix that is read transposed   v vector   c constant   an a behind the letter: an array
 *           32f float   64f double
 *           no suffix standard layout   _P pointer layout   _L list layout (array forms only)
 *
 *           The letters stand in the order of the mathematical expression; results have no letter.
 *
 * Layouts   An operand is whatever memory its arguments describe. Strides and shifts count bytes. Element (i, j), row i
 *           and column j, of object n stands at
 *
 *             standard   base + n * stride0 + i * stride1 + j * stride2
 *             pointer    table[i * columns + j] + roiShift + n * stride0
 *             list       list[n] + roiShift + i * stride1 + j * stride2
 *
 *           A vector's element j has no row part: base + n * stride0 + j * stride2, table[j] + ..., list[n] + ... +
 *           j * stride2. A pointer table has one entry for every element of one object, row by row. A list has one
 *           entry for each object; one that it names twice is processed twice, in order. A single operand has no
 *           stride0 and, in a list function, no list: it stays in the standard layout. A transposed operand is stored
 *           as it is and read with its indexes exchanged, so its stride1 and its table belong to the stored rows.
 *           Strides are compared with nothing but the element size: objects, rows and elements may interleave, and an
 *           array may be a field of an array of structures.
 *
 *           All strides must be positive multiples of the element size, shifts multiples of it and not negative, sizes
 *           and counts at least 1. No pointer inside a table or a list is tested. In C, declare the tables and lists of
 *           sources as `const float *table[9]`; C++ takes `float *table[9]` too.
 *
 * Status    0 or one of the values in smxdefs.h. Arguments are checked before anything is written. A group below says
 *           "Checks:" with the order of its tests; the first test that fails gives the status.
 *
 * Overlap   Never tested. Each group says what in-place use gives; what it does not name is undefined.
 *
 * Threads   None are used until the caller asks: threads_omp_of_n_smk (smkcore.h) starts at OMP_NUM_THREADS where that
 *           is set to a number, else at 1. An array call with more work, counted in elements, than its group's line
 *           "Threads" names is then cut into that many contiguous shares of objects; with fewer objects than threads it
 *           runs on the calling thread. Every function may be called from several threads at once.
 *           TWO TRAPS: inside a parallel region of the caller's own, where OpenMP gives nested regions one thread, such
 *           a call does only the first share and returns 0. Set threads_omp_of_n_smk to 1 before such a region and
 *           split the array there yourself. And the threads of a call take OpenMP's unnamed lock, so one that is made
 *           from inside an unnamed critical section never returns: give the section a name.
 *
 * Bits      A call gives the same bits for every thread count, address, instruction set and compiler. Unless a group
 *           says otherwise, each product, sum and difference is rounded to the element type, in the stated order, and
 *           none are fused. Which bits a not-a-number carries is not promised, nor which floating-point exceptions
 *           are flagged: do not have them trapped.
 *
 * smxdefs.h      types, statuses, version query       smxproduct.h   products, norms, transforms
 * smxarith.h     element-wise arithmetic, moving      smxfactor.h    factorizations, solve, determinant, inverse
 * smxeigen.h     eigenproblems */
#ifndef SMX_H
#define SMX_H

#include "smxarith.h"
#include "smxdefs.h"
#include "smxeigen.h"
#include "smxfactor.h"
#include "smxproduct.h"

#endif
